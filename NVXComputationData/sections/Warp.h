// The warpage record (sections <SHELL_WARP> and <SOLID_WARP>). Only the fields
// other sections already reach exist so far.
#ifndef NVX_SECTIONS_WARP_H_
#define NVX_SECTIONS_WARP_H_

#include <cstdint>

class CNVX3DWrap {
 public:
  virtual ~CNVX3DWrap() = default;

  std::int32_t Version = 1001;
  std::int32_t FlagFiberEffect = 0;  // mirrors the fill fibre flag when that is set
};

class CNVX3DSolidWrap : public CNVX3DWrap {
 public:
  ~CNVX3DSolidWrap() override = default;
};

#endif  // NVX_SECTIONS_WARP_H_
