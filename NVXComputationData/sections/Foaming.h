// The foaming record (section <FILL_ADVANCED_MCIM>). Its fields are still to
// come.
#ifndef NVX_SECTIONS_FOAMING_H_
#define NVX_SECTIONS_FOAMING_H_

#include <cstdint>

struct CNVX3DFoaming {
  std::int32_t Version = 1001;
};

#endif  // NVX_SECTIONS_FOAMING_H_
