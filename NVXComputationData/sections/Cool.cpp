// Keys of the five cooling sections, the cooling reset and the shell preset.
// <SHELL_COOL> and <SOLID_COOL> bind the same fields where they share them.
#include "sections/Cool.h"

#include "NVX3DRSVExTool.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNStream.h"

namespace nvx {
namespace {

// Output-time sections start from the default number format.
void ResetNumberFormat(KrnStream& out) {
  out.General();
  out.Precision(6);
}

// Named exception of the "SHELL_COOL" table: the reader takes
// "FlagAutoSetCoolTimeExcludeRunner" into its int scratch value and throws it
// away, so the field keeps what it held; the writer stores it as usual.
void SetIntItem(const Key& key, NVX3DRSVExTool::CRSVTable& table) {
  table.SetItem(key.name, static_cast<int>(key.As<std::int32_t>()));
}
void ReadAndDiscardInt(const Key& key, NVX3DRSVExTool::CRSVTable& table, RsvScratch& scratch) {
  table.GetItem(key.name, &scratch.i);
}
const CustomOps kDiscardedOnRsvRead = [] {
  CustomOps ops;
  ops.setItems = SetIntItem;
  ops.getItems = ReadAndDiscardInt;
  return ops;
}();

KeyList ShellCoolKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidCool& r = *impl.sections.cool;
  return {
      // "Version= ": no blank before the sign, unlike the other lines.
      Field("Version", r.Version).Sep("= "),
      Field("IDSolver", r.IDSolver),
      Field("FlagSolverAcceleration", r.FlagSolverAcceleration),
      Field("FlagParallelCompute", r.FlagParallelCompute),
      Field("FlagNetworkAnalysis", r.FlagNetworkAnalysis),
      Field("FlagAutoSetCoolTime", r.FlagAutoSetCoolTime),
      Field("ValueAutoSetCoolTimeMaxIteration", r.ValueAutoSetCoolTimeMaxIteration),
      Field("ValueAutoSetCoolTimeTolerance", r.ValueAutoSetCoolTimeTolerance),
      Field("FlagAutoSetCoolTimeExcludeRunner", r.FlagAutoSetCoolTimeExcludeRunner).Use(kKrn),
      Custom("FlagAutoSetCoolTimeExcludeRunner", &r.FlagAutoSetCoolTimeExcludeRunner,
             kDiscardedOnRsvRead)
          .Use(kRsv),
      Lines(r.ShellCoolLines),
  };
}

KeyList SolidCoolKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidCool& r = *impl.sections.cool;
  // Named exception: "ValueMaxMBInnerTempVariationTolerance" is written to the
  // "SOLID_COOL" table but never read back, so an RSV read keeps the value.
  constexpr std::uint8_t kRsvWriteOnly = kKrn | kRsvWrite;
  return {
      Field("Version", r.Version).Sep("= "),
      Field("IDSolver", r.IDSolver),
      Field("FlagSolverAcceleration", r.FlagSolverAcceleration),
      Field("FlagParallelCompute", r.FlagParallelCompute),
      Field("FlagNetworkAnalysis", r.FlagNetworkAnalysis),
      Field("Flag3DSolidCoolingChannel", r.Flag3DSolidCoolingChannel),
      Field("Flag3DSolidCoolingTurbulence", r.Flag3DSolidCoolingTurbulence),
      Field("Value3DSolidCoolingTurbulenceRoughness", r.Value3DSolidCoolingTurbulenceRoughness),
      Field("FlagAdvancedHotRunner", r.FlagAdvancedHotRunner),
      Field("FlagSteadyState", r.FlagSteadyState),
      Field("FlagAutoSetCoolTime", r.FlagAutoSetCoolTime),
      Field("FlagMultipleTimeForAllProc", r.FlagMultipleTimeForAllProc),
      Field("ValueAutoSetCoolTimeMaxIteration", r.ValueAutoSetCoolTimeMaxIteration),
      Field("ValueAutoSetCoolTimeTolerance", r.ValueAutoSetCoolTimeTolerance),
      Field("FlagAutoSetCoolTimeExcludeRunner", r.FlagAutoSetCoolTimeExcludeRunner),
      Field("ValueMaxCycleNumber", r.ValueMaxCycleNumber),
      // Explanations written right after the number; the reader converts only
      // the leading integer of the value token, so they are ignored on reading.
      Field("ValueConvergeType", r.ValueConvergeType).Suffix(" (1~3)"),
      Field("ValueConvergeUnit", r.ValueConvergeUnit).Suffix("(1: degree 2: percentage)"),
      Field("ValueMaxTempVariationTolerance", r.ValueMaxTempVariationTolerance),
      Field("ValueMaxPartSurfTempVariationTolerance", r.ValueMaxPartSurfTempVariationTolerance),
      Field("ValueMaxMBInnerTempVariationTolerance", r.ValueMaxMBInnerTempVariationTolerance)
          .Use(kRsvWriteOnly),
      Field("FlagAutoAdiabaticLayer", r.FlagAutoAdiabaticLayer),
      // The preheat settings and the mold-base resolution live only in KRN.
      Field("FlagPreheatAverageTemp", r.FlagPreheatAverageTemp).Use(kKrn),
      Field("ValuePreheatAverageTempVariation", r.ValuePreheatAverageTempVariation).Use(kKrn),
      Field("FlagPreheatHighestTemp", r.FlagPreheatHighestTemp).Use(kKrn),
      Field("ValuePreheatHighestTempVariation", r.ValuePreheatHighestTempVariation).Use(kKrn),
      Field("FlagPreheatLowestTemp", r.FlagPreheatLowestTemp).Use(kKrn),
      Field("ValuePreheatLowestTempVariation", r.ValuePreheatLowestTempVariation).Use(kKrn),
      Field("FlagMoldbaseResulationType", r.FlagMoldbaseResulationType).Use(kKrn),
  };
}

// The output-time sections write "=" with no blanks around it, except the
// open section's "Version = ". The RSV tables carry the counts but their
// readers never take them back: the times are read with the count in memory.
constexpr std::uint8_t kCountUse = kKrn | kRsvWrite;

KeyList CoolOutputTimesKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidCool& r = *impl.sections.cool;
  return {
      Field("Version", r.CoolTimesVersion).Sep("="),
      Field("FlagAutoLoadIntermediateResult", r.CoolFlagAutoLoadIntermediateResult).Sep("="),
      Field("ValueCheckIntermediteTimeSpan", r.CoolValueCheckIntermediteTimeSpan).Sep("="),
      Times("ValueNoCoolOutputTime", r.CoolTimes).Sep("=").Use(kCountUse),
      TimeArray("COOL_OUTPUT_TIMES_TimeSteps", r.CoolTimes),
      Lines(r.CoolOutputTimesLines),
  };
}

KeyList MoldPreheatOutputTimesKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidCool& r = *impl.sections.cool;
  return {
      Field("Version", r.PreheatTimesVersion).Sep("="),
      Field("FlagAutoLoadIntermediateResult", r.PreheatFlagAutoLoadIntermediateResult).Sep("="),
      Field("ValueCheckIntermediteTimeSpan", r.PreheatValueCheckIntermediteTimeSpan).Sep("="),
      Times("ValueNoPreheatOutputTime", r.PreheatTimes).Sep("="),
      // The cool section's lines, written a second time here.
      Lines(r.CoolOutputTimesLines),
  };
}

KeyList OpenOutputTimesKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidCool& r = *impl.sections.cool;
  return {
      Field("Version", r.OpenTimesVersion),  // "Version = ", with blanks
      Times("ValueNoOpenOutputTime", r.OpenTimes).Sep("=").Use(kCountUse),
      TimeArray("OPEN_OUTPUT_TIMES_TimeSteps", r.OpenTimes),
      Lines(r.OpenOutputTimesLines),
  };
}

}  // namespace

const SectionDef kShellCoolSection{KrnTag::kShellCool, "SHELL_COOL", ShellCoolKeys};
const SectionDef kSolidCoolSection{KrnTag::kSolidCool, "SOLID_COOL", SolidCoolKeys};
const SectionDef kCoolOutputTimesSection{KrnTag::kCoolOutputTimes, "COOL_OUTPUT_TIMES",
                                         CoolOutputTimesKeys, ResetNumberFormat};
const SectionDef kMoldPreheatOutputTimesSection{KrnTag::kMoldPreheatOutputTimes, nullptr,
                                                MoldPreheatOutputTimesKeys, ResetNumberFormat};
const SectionDef kOpenOutputTimesSection{KrnTag::kOpenOutputTimes, "OPEN_OUTPUT_TIMES",
                                         OpenOutputTimesKeys, ResetNumberFormat};

void GenerateTimes(OutputTimes& block, std::int32_t n, double duration) {
  block.Count = n;
  const double step = duration / (static_cast<double>(n) + 1.0);
  if (static_cast<long long>(n) + 1 < 2) return;
  double t = step;
  for (std::int32_t i = 0; i < n; ++i, t += step) block.Times.push_back(t);
}

void ResetCool(CNVX3DSolidCool& r, double cooling, double moldOpen, double moldPreheat) {
  r.Version = 1004;
  r.IDSolver = 2;
  r.FlagSolverAcceleration = true;
  r.FlagParallelCompute = r.FlagNetworkAnalysis = r.FlagAutoSetCoolTime = false;
  r.ValueAutoSetCoolTimeMaxIteration = 10;
  r.ValueAutoSetCoolTimeTolerance = 0.05;
  r.FlagAutoSetCoolTimeExcludeRunner = 0;

  r.CoolTimesVersion = 1001;
  r.CoolFlagAutoLoadIntermediateResult = false;
  r.CoolValueCheckIntermediteTimeSpan = 60.0;
  GenerateTimes(r.CoolTimes, cooling < 0.01 ? 0 : 3, cooling);
  r.OpenTimesVersion = 1001;
  GenerateTimes(r.OpenTimes, 3, moldOpen);
  GenerateTimes(r.PreheatTimes, 3, moldPreheat);

  r.ValueMaxTempVariationTolerance = r.ValueMaxPartSurfTempVariationTolerance =
      r.ValueMaxMBInnerTempVariationTolerance = 1.0;
  r.ValuePreheatAverageTempVariation = r.ValuePreheatHighestTempVariation =
      r.ValuePreheatLowestTempVariation = moldPreheat;
  r.FlagMultipleTimeForAllProc = false;
  r.ValueMaxCycleNumber = 10;
  r.ValueConvergeType = 3;
  r.ValueConvergeUnit = 1;
  r.FlagAdvancedHotRunner = r.Flag3DSolidCoolingChannel = false;
  r.Value3DSolidCoolingTurbulenceRoughness = 0.02;
  r.Flag3DSolidCoolingTurbulence = 1;
  r.FlagAutoAdiabaticLayer = true;
  r.FlagPreheatAverageTemp = r.FlagPreheatHighestTemp = r.FlagPreheatLowestTemp = false;
  r.FlagMoldbaseResulationType = 0;
}

void ApplyShellCoolPreset(CNVX3DSolidCool& r) {
  r.Version = 1004;
  r.IDSolver = 1;
  r.FlagSolverAcceleration = r.FlagParallelCompute = false;
  r.FlagNetworkAnalysis = r.FlagAutoSetCoolTime = false;
  r.ValueAutoSetCoolTimeMaxIteration = 10;
  r.ValueAutoSetCoolTimeTolerance = 0.05;
  r.FlagAutoSetCoolTimeExcludeRunner = 0;
  r.CoolTimesVersion = 1001;
  r.CoolFlagAutoLoadIntermediateResult = false;
  r.CoolValueCheckIntermediteTimeSpan = 60.0;
  r.CoolTimes.Count = 0;
  r.OpenTimesVersion = 1001;
  r.OpenTimes.Count = 0;
}

std::int32_t ResolutionLevelType(std::uint64_t memoryBytes, bool longFiber, bool foaming) {
  if (longFiber && foaming) return 0;
  const auto mib = static_cast<std::int32_t>(static_cast<std::uint32_t>(memoryBytes >> 20));
  return mib >= 32000 ? 1 : 0;
}

}  // namespace nvx
