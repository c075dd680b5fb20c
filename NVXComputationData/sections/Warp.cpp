// Keys of <SHELL_WARP> and <SOLID_WARP>, and the two warpage presets.
#include "sections/Warp.h"

#include "NVX3DRSVExTool.h"
#include "core/NVX3DComputationImpl.h"

namespace nvx {
namespace {

// Named exception of the "SHELL_WARP" table: "ValueMinIterativeError",
// "ValueIMCMedTH", "ValueIMCMedWR" and "ValueIMCRelST" are written as int items
// holding ValueMaxIteration (keys bound to that field, RSV write only), and the
// reader takes each into its int scratch value and then sets the double field
// to 0.0 whatever the item held. The four doubles never travel through that
// table; "SOLID_WARP" carries them as doubles.
void ReadIntStoreZero(const Key& key, NVX3DRSVExTool::CRSVTable& table, RsvScratch& scratch) {
  table.GetItem(key.name, &scratch.i);
  key.As<double>() = 0.0;
}
const CustomOps kZeroedOnRsvRead = [] {
  CustomOps ops;
  ops.getItems = ReadIntStoreZero;
  return ops;
}();

KeyList ShellWarpKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidWrap& r = *impl.sections.warp;
  const auto asMaxIteration = [&r](const char* name, double& field) {
    return KeyList{Field(name, field).Note(Notation::kScientific).Use(kKrn),
                   Field(name, r.ValueMaxIteration).Use(kRsvWrite),
                   Custom(name, &field, kZeroedOnRsvRead).Use(kRsvRead)};
  };
  KeyList keys = {
      Field("Version", r.Version),
      Field("IDSolver", r.IDSolver),
      Field("IDCompositeModel", r.IDCompositeModel),
      Field("FlagSolverAcceleration", r.FlagSolverAcceleration),
      Field("FlagRemoveRunner", r.FlagRemoveRunner),
      Field("FlagFiberEffect", r.FlagFiberEffect),
      Field("FlagHighOrderElement", r.FlagHighOrderElement),
      Field("FlagInMoldConstraint", r.FlagInMoldConstraint),
      Field("FlagMoldThermalDeformation", r.FlagMoldThermalDeformation),
      Field("ValueMaxIteration", r.ValueMaxIteration),
  };
  for (const KeyList& three : {asMaxIteration("ValueMinIterativeError", r.ValueMinIterativeError),
                               asMaxIteration("ValueIMCMedTH", r.ValueIMCMedTH),
                               asMaxIteration("ValueIMCMedWR", r.ValueIMCMedWR),
                               asMaxIteration("ValueIMCRelST", r.ValueIMCRelST)}) {
    keys.insert(keys.end(), three.begin(), three.end());
  }
  keys.push_back(Lines(r.ShellWarpLines));
  return keys;
}

KeyList SolidWarpKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidWrap& r = *impl.sections.warp;
  return {
      Field("Version", r.Version),
      Field("IDSolver", r.IDSolver),
      Field("IDCompositeModel", r.IDCompositeModel),
      // Named exception: the "SOLID_WARP" table writes and reads this item twice.
      Field("IDCompositeModel", r.IDCompositeModel).Use(kRsv),
      Field("FlagSolverAcceleration", r.FlagSolverAcceleration),
      Field("FlagRemoveRunner", r.FlagRemoveRunner),
      Field("FlagFiberEffect", r.FlagFiberEffect),
      Field("FlagHighOrderElement", r.FlagHighOrderElement),
      Field("FlagInMoldConstraint", r.FlagInMoldConstraint),
      // Unlike the cooling flags, any non-zero value (negative too) reads as true.
      Field("FlagEnhancedInMoldConstraint", r.FlagEnhancedInMoldConstraint)
          .TrueWhen(Truth::kNonZero)
          .Use(kKrn),
      Field("FlagMoldThermalDeformation", r.FlagMoldThermalDeformation),
      Field("FlagVEResidualStress", r.FlagVEResidualStress),
      Field("FlagRIMShrinkageType", r.FlagRIMShrinkageType),
      Field("ValueMaxIteration", r.ValueMaxIteration),
      Field("ValueMinIterativeError", r.ValueMinIterativeError).Note(Notation::kScientific),
      Field("ValueIMCMedTH", r.ValueIMCMedTH).Note(Notation::kScientific),
      Field("ValueIMCMedWR", r.ValueIMCMedWR).Note(Notation::kScientific),
      Field("ValueIMCRelST", r.ValueIMCRelST).Note(Notation::kScientific),
      Field("FlagDifferentialEffect", r.FlagDifferentialEffect).Use(kKrn),
      Field("FlagThermalDisplacement", r.FlagThermalDisplacement).Use(kKrn),
  };
}

void ApplyCommonPreset(CNVX3DSolidWrap& r) {
  r.Version = 1001;
  r.IDSolver = 0;
  r.IDCompositeModel = 2;
  r.FlagSolverAcceleration = r.FlagRemoveRunner = 1;
  r.FlagFiberEffect = r.FlagHighOrderElement = r.FlagInMoldConstraint = 0;
  r.FlagMoldThermalDeformation = 0;
  r.ValueMaxIteration = 50000;
  r.ValueMinIterativeError = 5e-05;
  r.ValueIMCMedWR = 0.001;
  r.ValueIMCRelST = 0.4;
}

}  // namespace

const SectionDef kShellWarpSection{KrnTag::kShellWarp, "SHELL_WARP", ShellWarpKeys};
const SectionDef kSolidWarpSection{KrnTag::kSolidWarp, "SOLID_WARP", SolidWarpKeys};

void ApplySolidWarpPreset(CNVX3DSolidWrap& r, const WarpProjectValues& project) {
  ApplyCommonPreset(r);
  r.FlagEnhancedInMoldConstraint = true;
  r.ValueIMCMedTH = 0.001;
  r.FlagVEResidualStress = 0;
  r.FlagRIMShrinkageType = 1;
  r.FlagDifferentialEffect = r.FlagThermalDisplacement = 0;
  // Later steps win over earlier ones.
  if (project.solverSelector == 2) {
    r.IDSolver = 1;
    r.FlagEnhancedInMoldConstraint = false;
  }
  if (project.optionA || project.optionB) r.IDSolver = 0;
  if (project.typeNumber >= 0 && project.typeNumber <= 14 &&
      ((0x6208u >> project.typeNumber) & 1u) != 0) {
    r.IDSolver = 0;
  }
}

void ApplyShellWarpPreset(CNVX3DSolidWrap& r) {
  ApplyCommonPreset(r);
  r.FlagEnhancedInMoldConstraint = false;
  r.ValueIMCMedTH = 0.333333;
}

}  // namespace nvx
