// Construction, loading and the default reset of the implementation object.
#include "core/NVX3DComputationImpl.h"

#include <algorithm>
#include <new>

#include "NVXPlatform.h"
#include "krn/KRNSectionIO.h"
#include "userfiles/FoamingMaterial.h"

namespace {

// The per-user template's file name beside the per-user directory.
constexpr char kUserTemplateName[] = "/KRNTemplate.krn";

}  // namespace

CNVX3DComputationImpl::CNVX3DComputationImpl() {
  CNVX3DSectionTable& s = sections;
  // Slots 0 to 16, then 19 and 21, then 17, 18 and 20.
  s.document.Create();
  s.placeholder.Create();
  s.summary.Create();
  s.fillPack.Create();
  s.cool.Create();
  s.warp.Create();
  s.stress.Create();
  s.optic.Create();
  s.ic.Create();
  s.ve.Create();
  s.mcm.Create();
  s.computingManager.Create();
  s.taskManager.Create();
  s.remoteMachines.Create();
  s.longFiber.Create();
  s.foaming.Create();
  s.partInsert.Create();
  s.slip.Create();
  s.hrSteady.Create();
  s.veStress.Create();
  s.veWarp.Create();
  s.veCuring.Create();
  crystal.Create();
  processorCount = nvx::platform::LogicalProcessorCount();
  if (s.cool) {
    s.cool->ResLevelType =
        nvx::ResolutionLevelType(nvx::platform::PhysicalMemoryBytes(), false, false);
  }
}

std::unique_ptr<CNVX3DComputationImpl> CNVX3DComputationImpl::MakeComplete() {
  return std::make_unique<CNVX3DComputationImpl>();
}

int CNVX3DComputationImpl::TakeOver(const NVXData& d) {
  if (d.LoadMode >= 4) return -1;
  if (d.KRNFilePath.empty()) return -2;
  if (d.ModelKind >= 4) return -4;
  if (d.AnalysisType < 0) return -5;
  loadMode = d.LoadMode;
  krnPath = nvx::platform::NarrowToWide(d.KRNFilePath);
  modelKind = d.ModelKind;
  analysisType = d.AnalysisType;
  stateLongFiber = d.HasLongFiberSettings;
  stateFoaming = d.HasFoamingSettings;
  freezeTemperature = std::max(0.0, d.EjectionTemperature);
  freezeFlowRateRatio = std::max(0.0, std::min(1.0, d.FreezeFlowRateRatio));
  ComputePages();
  return 1;
}

void CNVX3DComputationImpl::ComputePages() {
  const bool shell = modelKind == 1;
  pages.fill(!shell);
  pages[kPageFill] = pages[kPagePack] = pages[kPageCool] = pages[kPageWarp] = true;
  pages[kPageComputing] = true;
  pages[kPageFiber] = data.MaterialHasFiber || stateLongFiber;
  pages[kPageFoaming] = stateFoaming;
}

void CNVX3DComputationImpl::ResetToDefaults() {
  const bool shell = modelKind == 1;
  if (sections.summary) nvx::ApplySummaryPreset(*sections.summary, shell);
  if (sections.fillPack) nvx::ResetFillPack(*sections.fillPack);
  // Cooling, warpage and stress records.
  if (CNVX3DSolidCool* cool = sections.cool.get()) {
    if (shell) {
      nvx::ApplyShellCoolPreset(*cool);
    } else {
      nvx::ResetCool(*cool, data.CoolingTime, data.MoldOpenTime, data.MoldPreheatTime);
    }
    cool->ResLevelType = nvx::ResolutionLevelType(nvx::platform::PhysicalMemoryBytes(),
                                                  stateLongFiber, stateFoaming);
  }
  if (CNVX3DSolidWrap* warp = sections.warp.get()) {
    if (shell) {
      nvx::ApplyShellWarpPreset(*warp);
    } else {
      // The solver selector is the project's mesh type; the two options are the
      // advanced filling options; the type number is the analysis type.
      nvx::ApplySolidWarpPreset(*warp, {data.MeshType, stateLongFiber, stateFoaming, analysisType});
    }
  }
  if (sections.stress) nvx::ResetSolidStress(*sections.stress);
  if (sections.partInsert) nvx::ResetPartInsert(*sections.partInsert);

  // Advanced filling records.
  if (sections.longFiber) nvx::ResetLongFiber(*sections.longFiber);
  if (sections.foaming) nvx::ResetFoaming(*sections.foaming);
  if (sections.slip) nvx::ResetSlipBC(*sections.slip);
  if (sections.hrSteady) nvx::ResetHRSteady(*sections.hrSteady);
  // The gas solubility of the project's material replaces the built-in one on
  // every reset, so that each load (whichever reset it ends with) consults
  // the per-user foaming material table.
  nvx::ApplyFoamingMaterial(*this);

  // Viscoelastic, optics, IC packaging and multi-component records.
  if (sections.ve) *sections.ve = CNVX3DSolidVE();
  if (sections.veStress) nvx::ResetVECurve(*sections.veStress);
  if (sections.veWarp) nvx::ResetVECurve(*sections.veWarp);
  if (sections.veCuring) nvx::ResetVECuring(*sections.veCuring);
  if (sections.optic) *sections.optic = CNVX3DSolidOptic();
  if (sections.ic) *sections.ic = CNVX3DSolidIC();
  if (sections.mcm) *sections.mcm = CNVX3DSolidMCM();

  // Computing-resource records.
  nvx::ResetComputing(*this);
}

void CNVX3DComputationImpl::ApplyDataAdjustments() {
  // A start value of 0 means the host gave none: the section default stays.
  if (CNVX3DFillPackTimeSteps* fp = sections.fillPack.get()) {
    if (freezeTemperature > 0.0) fp->ValueGateFreezeByTemperature = freezeTemperature;
    if (freezeFlowRateRatio > 0.0) fp->ValueGateFreezeByFlowRate = freezeFlowRateRatio;
  }
  // Cooling, warpage and stress records.

  // Advanced filling records.

  // Viscoelastic, optics, IC packaging and multi-component records.
  if (mode == 3 && sections.ic) nvx::ApplyICModeThree(*sections.ic);

  // Computing-resource records.
  if (mode == 3) nvx::ApplyComputingManagerMode(*this);
}

void CNVX3DComputationImpl::ApplyStressTimeAdjustments() {
  // A stress time period that is not positive means none was chosen: it takes
  // the project's cooling time, when the project gives one.
  CNVX3DSolidStress* stress = sections.stress.get();
  if (stress != nullptr && stress->ValueTimePeriod <= 0.0 && data.CoolingTime > 0.0) {
    stress->ValueTimePeriod = data.CoolingTime;
  }
}

bool CNVX3DComputationImpl::ReadKrn(const std::string& path) {
  CNVX3DKRNDocument* doc = sections.document.get();
  if (doc == nullptr) return false;
  if (!doc->Scan(path)) return true;
  for (std::size_t i = 0; i < nvx::kKrnTagCount; ++i) {
    const auto tag = static_cast<nvx::KrnTag>(i);
    const nvx::SectionDef* def = nvx::FindSection(tag);
    if (def != nullptr && doc->IsPresent(tag)) nvx::ReadKrnSection(*def, doc->Body(tag), *this);
  }
  return true;
}

bool CNVX3DComputationImpl::Load(const NVXData& d) {
  data = d;
  const int code = TakeOver(d);
  ResetToDefaults();

  if (!nvx::platform::FileExists(d.KRNFilePath)) {
    // No project file: start from the per-user template or the defaults. The
    // validation result does not matter on this path.
    if (UserTemplateExists()) {
      ReadKrn(userTemplatePath);
      ApplyDataAdjustments();
      ApplyStressTimeAdjustments();
    } else {
      ResetToDefaults();
      ApplyDataAdjustments();
    }
    if (mode == 1) {
      // Mode 1 clears the long-fiber flag and the warpage setting. The
      // long-fiber flag is the fibre-breakage flag, the record's only flag
      // that also travels in RSV; the warpage setting is the fibre effect:
      // mode 1 runs without fibres.
      if (sections.longFiber) sections.longFiber->FlagFiberBreakage = false;
      if (sections.warp) sections.warp->FlagFiberEffect = 0;
    }
    return true;
  }
  if (code < 1) return false;

  switch (loadMode) {
    case 0:
    case -1:
      fileExists = nvx::platform::FileExists(d.KRNFilePath);
      if (fileExists) {
        krnPath = nvx::platform::NarrowToWide(d.KRNFilePath);
        ReadKrn(d.KRNFilePath);
        // Load mode 0 takes the project's fibre values over the file's.
        if (loadMode == 0 && sections.longFiber) {
          nvx::TakeFiberValues(*sections.longFiber, d.FiberAspectRatio, d.FiberWeight);
        }
      } else {
        ResetToDefaults();
      }
      break;
    case 1:
    case 2:
      ResetToDefaults();
      break;
    default:
      break;
  }
  ApplyStressTimeAdjustments();
  return true;
}

std::string CNVX3DComputationImpl::UserTemplatePath() const {
  char dir[260] = {};
  if (!NVXGetReleaseVersionCurUserDirectory(dir, sizeof dir)) return {};
  std::string path = dir;
  if (path.size() + sizeof kUserTemplateName > sizeof dir) return {};
  return path + kUserTemplateName;
}

bool CNVX3DComputationImpl::UserTemplateExists() {
  userTemplatePath = UserTemplatePath();
  return !userTemplatePath.empty() && nvx::platform::FileExists(userTemplatePath);
}
