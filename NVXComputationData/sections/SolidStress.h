// The solid stress record (section <SOLID_STRESS>) and the part-insert
// material record (RSV table "PartInsert"). Only the fields other sections
// already reach exist so far.
#ifndef NVX_SECTIONS_SOLIDSTRESS_H_
#define NVX_SECTIONS_SOLIDSTRESS_H_

#include <cstdint>

struct CNVX3DSolidStress {
  std::int32_t FlagFiberEffect = 0;  // mirrors the fill fibre flag when that is set
};

struct CNVX3DPartInsert {
  std::int32_t Version = 1001;
};

#endif  // NVX_SECTIONS_SOLIDSTRESS_H_
