// Keys of <FILL_ADVANCED_MCIM>.
#include "sections/Foaming.h"

#include "core/NVX3DComputationImpl.h"

namespace nvx {
namespace {

KeyList FoamingKeys(CNVX3DComputationImpl& impl) {
  CNVX3DFoaming& r = *impl.sections.foaming;
  // FlagEstimateBubble has no RSV item: an RSV write drops it and an RSV read
  // leaves what memory holds, so it survives only in KRN files. Deliberate.
  constexpr std::uint8_t kKrnOnly = kKrn;
  constexpr Notation kSci = Notation::kScientific;
  return {
      Field("Version", r.Version),
      Field("FlagEstimateBubble", r.FlagEstimateBubble).Use(kKrnOnly),
      Field("GasType", r.GasType),
      Field("BubbleGrowthModel", r.BubbleGrowthModel),
      // Printed in whatever notation an earlier section left in force.
      Field("PolymerMolecularWeight", r.PolymerMolecularWeight),
      // The writer switches notation value by value and never restores it: it
      // ends in scientific notation, which the slip section written next and
      // everything after it inherit.
      Field("GasDiffusionCoefficient", r.GasDiffusionCoefficient).Note(kSci),
      Field("GasSolubilityParameter", r.GasSolubilityParameter).Note(kSci),
      Field("SurfaceTension", r.SurfaceTension).Note(Notation::kFixed),
      Field("CorrectionFactorf0", r.CorrectionFactorf0).Note(kSci),
      Field("CorrectionFactorF", r.CorrectionFactorF).Note(kSci),
      Field("ThresholdofBubbleFt", r.ThresholdofBubbleFt).Note(kSci),
  };
}

}  // namespace

const SectionDef kFoamingSection{KrnTag::kFillAdvancedMCIM, "FILL_ADVANCED_MCIM", FoamingKeys};

void ResetFoaming(CNVX3DFoaming& record) {
  std::vector<double> list = std::move(record.List);
  record = CNVX3DFoaming();
  record.List = std::move(list);
}

}  // namespace nvx
