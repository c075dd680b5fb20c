// The slip boundary record (section <FILL_ADVANCED_SlipBC>). Its fields are
// still to come.
#ifndef NVX_SECTIONS_SLIPBC_H_
#define NVX_SECTIONS_SLIPBC_H_

#include <cstdint>

struct CNVX3DSlipBC {
  std::int32_t Version = 1001;
};

#endif  // NVX_SECTIONS_SLIPBC_H_
