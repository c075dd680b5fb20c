// Keys of <FILL_ADVANCED_SlipBC>. The writer selects no notation: its doubles
// print in the notation the foaming section, written just before it, leaves.
#include "sections/SlipBC.h"

#include "core/NVX3DComputationImpl.h"

namespace nvx {
namespace {

KeyList SlipBCKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSlipBC& r = *impl.sections.slip;
  return {
      // No accessor of its own: the facade's generic GetVersion/SetVersion.
      Field("Version", r.Version),
      Field("FlagSlipBC", r.FlagSlipBC),
      Field("FlagSlipExcludeRunner", r.FlagSlipExcludeRunner),
      Field("ValueSlipCoeff", r.ValueSlipCoeff),
      Field("ValueSlipFrictionForce", r.ValueSlipFrictionForce),
  };
}

}  // namespace

const SectionDef kSlipBCSection{KrnTag::kFillAdvancedSlipBC, "FILL_ADVANCED_SlipBC", SlipBCKeys};

void ResetSlipBC(CNVX3DSlipBC& record) { record = CNVX3DSlipBC(); }

}  // namespace nvx
