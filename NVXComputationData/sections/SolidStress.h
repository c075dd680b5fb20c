// The solid stress record (section <SOLID_STRESS>). Only the fields other
// sections already reach exist so far.
#ifndef NVX_SECTIONS_SOLIDSTRESS_H_
#define NVX_SECTIONS_SOLIDSTRESS_H_

#include <cstdint>

struct CNVX3DSolidStress {
  std::int32_t FlagFiberEffect = 0;  // mirrors the fill fibre flag when that is set
};

#endif  // NVX_SECTIONS_SOLIDSTRESS_H_
