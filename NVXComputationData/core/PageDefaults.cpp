// The fields each page reset copies, named by their KRN keys and copied through
// the sections' key lists, so a page follows its sections' keys.
#include "core/PageDefaults.h"

#include <string>
#include <vector>

#include "core/NVX3DComputationImpl.h"
#include "core/SectionDef.h"

namespace nvx {
namespace {

// Copies the field behind `to` from the field behind `from` (same kind).
void CopyField(const Key& from, const Key& to) {
  switch (from.kind) {
    case KeyKind::kInt:
      to.As<std::int32_t>() = from.As<std::int32_t>();
      break;
    case KeyKind::kDouble:
      to.As<double>() = from.As<double>();
      break;
    case KeyKind::kBool:
      to.As<bool>() = from.As<bool>();
      break;
    case KeyKind::kText:
      to.As<std::string>() = from.As<std::string>();
      break;
    case KeyKind::kWideText:
      to.As<std::wstring>() = from.As<std::wstring>();
      break;
    case KeyKind::kTimes:
      to.As<OutputTimes>() = from.As<OutputTimes>();
      break;
    case KeyKind::kFixedInt:
    case KeyKind::kLines:
    case KeyKind::kTimeArray:
    case KeyKind::kCustom:
      break;
  }
}

// Copies the KRN keys `names` of section `tag` (every KRN key when empty).
void CopyKeys(KrnTag tag, const std::vector<std::string>& names, CNVX3DComputationImpl& from,
              CNVX3DComputationImpl& to) {
  const SectionDef* def = FindSection(tag);
  if (def == nullptr) return;
  const KeyList source = def->keys(from);
  const KeyList target = def->keys(to);
  for (std::size_t i = 0; i < source.size() && i < target.size(); ++i) {
    const Key& key = source[i];
    if ((key.use & kKrnRead) == 0) continue;
    bool wanted = names.empty();
    for (const std::string& name : names) wanted |= name == key.name;
    if (wanted) CopyField(key, target[i]);
  }
}

// Sets the double behind KRN key `name` of section `tag` to 0.0.
void ClearDouble(KrnTag tag, const char* name, CNVX3DComputationImpl& impl) {
  const SectionDef* def = FindSection(tag);
  if (def == nullptr) return;
  const KeyList keys = def->keys(impl);
  const Key* key = FindKey(keys, name, kKrnRead);
  if (key != nullptr && key->kind == KeyKind::kDouble) key->As<double>() = 0.0;
}

// Page 1 of a shell template takes the version but not the solver, and clears
// the tolerance; a solid template takes the solver but not the version. The
// asymmetry is the dialog's long-standing behaviour and is kept.
const std::vector<std::string> kShellCoolKeys = {"Version",
                                                 "FlagSolverAcceleration",
                                                 "FlagParallelCompute",
                                                 "FlagNetworkAnalysis",
                                                 "FlagAutoSetCoolTime",
                                                 "ValueAutoSetCoolTimeMaxIteration",
                                                 "FlagAutoSetCoolTimeExcludeRunner"};
const std::vector<std::string> kSolidCoolKeys = {"IDSolver",
                                                 "FlagSolverAcceleration",
                                                 "FlagParallelCompute",
                                                 "FlagNetworkAnalysis",
                                                 "FlagAutoSetCoolTime",
                                                 "ValueAutoSetCoolTimeMaxIteration",
                                                 "ValueAutoSetCoolTimeTolerance",
                                                 "FlagAutoSetCoolTimeExcludeRunner",
                                                 "FlagAdvancedHotRunner",
                                                 "FlagMultipleTimeForAllProc",
                                                 "ValueMaxCycleNumber",
                                                 "ValueConvergeType",
                                                 "ValueConvergeUnit",
                                                 "ValueMaxTempVariationTolerance",
                                                 "ValueMaxPartSurfTempVariationTolerance",
                                                 "ValueMaxMBInnerTempVariationTolerance",
                                                 "Flag3DSolidCoolingChannel"};
const std::vector<std::string> kShellWarpKeys = {"IDSolver",
                                                 "IDCompositeModel",
                                                 "FlagSolverAcceleration",
                                                 "FlagRemoveRunner",
                                                 "FlagFiberEffect",
                                                 "FlagHighOrderElement",
                                                 "FlagInMoldConstraint",
                                                 "FlagMoldThermalDeformation",
                                                 "ValueMaxIteration",
                                                 "ValueMinIterativeError",
                                                 "ValueIMCMedTH",
                                                 "ValueIMCMedWR",
                                                 "ValueIMCRelST"};

std::vector<std::string> SolidWarpKeys() {
  std::vector<std::string> keys = kShellWarpKeys;
  // The three solid-only settings that follow the in-mold constraint values.
  keys.insert(keys.end(),
              {"FlagVEResidualStress", "FlagRIMShrinkageType", "FlagDifferentialEffect"});
  return keys;
}

}  // namespace

void CopyPage(int page, TemplateKind kind, CNVX3DComputationImpl& from, CNVX3DComputationImpl& to) {
  const bool shell = kind == TemplateKind::kShell;
  switch (page) {
    case 0:
      // A template with neither section still resets the solid settings, to
      // the defaults of the template object.
      if (shell) {
        CopyKeys(KrnTag::kShellFill, {}, from, to);
        CopyKeys(KrnTag::kShellPack, {}, from, to);
      } else {
        CopyKeys(KrnTag::kSolidFill, {}, from, to);
        CopyKeys(KrnTag::kSolidPack, {}, from, to);
        to.sections.fillPack->FillTimes = from.sections.fillPack->FillTimes;
        to.sections.fillPack->PackTimes = from.sections.fillPack->PackTimes;
      }
      break;
    case 1:
      if (shell) {
        CopyKeys(KrnTag::kShellCool, kShellCoolKeys, from, to);
        ClearDouble(KrnTag::kShellCool, "ValueAutoSetCoolTimeTolerance", to);
      } else if (kind == TemplateKind::kSolid) {
        CopyKeys(KrnTag::kSolidCool, kSolidCoolKeys, from, to);
      }
      break;
    case 2:
      if (shell) {
        CopyKeys(KrnTag::kShellWarp, kShellWarpKeys, from, to);
      } else if (kind == TemplateKind::kSolid) {
        CopyKeys(KrnTag::kSolidWarp, SolidWarpKeys(), from, to);
      }
      break;
    default:
      break;
  }
}

}  // namespace nvx
