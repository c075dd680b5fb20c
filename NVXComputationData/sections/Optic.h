// The optics record (sections <SOLID_OPTIC>, <OPTIC_OUTPUT_DIRECTION>,
// <OPTIC_OUTPUT_TO_SOFTWARE>). Its fields are still to come.
#ifndef NVX_SECTIONS_OPTIC_H_
#define NVX_SECTIONS_OPTIC_H_

#include <cstdint>

struct CNVX3DSolidOptic {};

#endif  // NVX_SECTIONS_OPTIC_H_
