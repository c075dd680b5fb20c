// The viscoelastic records (sections <SOLID_VE>, <SOLID_VE_STRESS>,
// <SOLID_VE_WARP>, <SOLID_VE_CURING_STRESS>) and their curve lists. Their
// fields are still to come.
#ifndef NVX_SECTIONS_VISCOELASTIC_H_
#define NVX_SECTIONS_VISCOELASTIC_H_

#include <cstdint>

class CNVXPROProfile {
 public:
  virtual ~CNVXPROProfile() = default;
};

struct CNVX3DSolidVE {};
struct CNVX3DVEStress {};
struct CNVX3DVEWarp {};
struct CNVX3DVECuringStress {};

#endif  // NVX_SECTIONS_VISCOELASTIC_H_
