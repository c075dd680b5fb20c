// The IC packaging record (sections <SOLID_IC>, <IC_PADDLE_SHIFT_OUTPUT_TIMES>,
// <IC_WIRE_SWEEP_OUTPUT_TIMES>). Its fields are still to come.
#ifndef NVX_SECTIONS_IC_H_
#define NVX_SECTIONS_IC_H_

#include <cstdint>

struct CNVX3DSolidIC {};

#endif  // NVX_SECTIONS_IC_H_
