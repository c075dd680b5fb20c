// The multi-component molding record (section <SOLID_MCM>). Its fields are
// still to come.
#ifndef NVX_SECTIONS_MCM_H_
#define NVX_SECTIONS_MCM_H_

#include <cstdint>

struct CNVX3DSolidMCM {};

#endif  // NVX_SECTIONS_MCM_H_
