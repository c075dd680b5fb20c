// The wall-slip boundary record, section <FILL_ADVANCED_SlipBC> and RSV table
// "FILL_ADVANCED_SlipBC". Its version is reached by the facade's generic
// GetVersion/SetVersion.
#ifndef NVX_SECTIONS_SLIPBC_H_
#define NVX_SECTIONS_SLIPBC_H_

#include <cstdint>

#include "core/SectionDef.h"

struct CNVX3DSlipBC {
  std::int32_t Version = 1001;
  std::int32_t FlagSlipBC = 0;
  std::int32_t FlagSlipExcludeRunner = 1;
  double ValueSlipCoeff = 1.0;
  double ValueSlipFrictionForce = 0.1;
};

namespace nvx {

extern const SectionDef kSlipBCSection;

void ResetSlipBC(CNVX3DSlipBC& record);

}  // namespace nvx

#endif  // NVX_SECTIONS_SLIPBC_H_
