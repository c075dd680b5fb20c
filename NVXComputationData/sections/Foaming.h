// The foaming (microcellular injection molding) record, section
// <FILL_ADVANCED_MCIM> and RSV table "FILL_ADVANCED_MCIM". Its gas solubility
// is replaced on every load from the per-user foaming material table
// (userfiles/FoamingMaterial.h).
#ifndef NVX_SECTIONS_FOAMING_H_
#define NVX_SECTIONS_FOAMING_H_

#include <cstdint>
#include <vector>

#include "core/SectionDef.h"

// Declared order; the KRN writer puts BubbleGrowthModel right after GasType.
struct CNVX3DFoaming {
  std::int32_t Version = 1001;
  std::int32_t FlagEstimateBubble = 1;  // KRN only: no RSV item
  std::int32_t GasType = 0;
  double PolymerMolecularWeight = 28.0;
  double GasDiffusionCoefficient = 8.07e-05;
  double GasSolubilityParameter = 4e-11;
  double SurfaceTension = 0.000178;
  double CorrectionFactorf0 = 7.4e-25;
  double CorrectionFactorF = 0.001;
  double ThresholdofBubbleFt = 0.1;
  std::int32_t BubbleGrowthModel = 0;
  // Kept for the record's layout; nothing fills or reads it.
  std::vector<double> List;
};

namespace nvx {

extern const SectionDef kFoamingSection;

void ResetFoaming(CNVX3DFoaming& record);

}  // namespace nvx

#endif  // NVX_SECTIONS_FOAMING_H_
