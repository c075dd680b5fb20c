// The cooling record: one CNVX3DSolidCool holds the settings of <SHELL_COOL>
// and <SOLID_COOL> and the three output-time blocks of <COOL_OUTPUT_TIMES>,
// <MoldPreheat_OUTPUT_TIMES> and <OPEN_OUTPUT_TIMES>.
//
// The shell and solid sections are two views of the same fields: both write
// the same values, and the section read later wins (the document reader takes
// <SHELL_COOL> before <SOLID_COOL>). A fresh record and a reset record differ on
// purpose (version 0 against 1004, solver 0 against 2, tolerance 0.0 against
// 0.05).
#ifndef NVX_SECTIONS_COOL_H_
#define NVX_SECTIONS_COOL_H_

#include <cstdint>
#include <string>
#include <vector>

#include "core/OutputTimes.h"
#include "core/SectionDef.h"

class CNVX3DCoolBase {
 public:
  virtual ~CNVX3DCoolBase() = default;

  // Fields shared by <SHELL_COOL> and <SOLID_COOL>.
  std::int32_t Version = 0;
  std::int32_t IDSolver = 0;
  bool FlagSolverAcceleration = true;
  bool FlagParallelCompute = false;
  bool FlagNetworkAnalysis = false;
  bool FlagAutoSetCoolTime = false;
  std::int32_t ValueAutoSetCoolTimeMaxIteration = 10;
  double ValueAutoSetCoolTimeTolerance = 0.0;
  std::int32_t FlagAutoSetCoolTimeExcludeRunner = 0;  // used as 0/1, kept as any integer

  // Cool output times.
  std::int32_t CoolTimesVersion = 0;
  bool CoolFlagAutoLoadIntermediateResult = false;
  double CoolValueCheckIntermediteTimeSpan = 0.0;
  nvx::OutputTimes CoolTimes;
  // Open output times.
  std::int32_t OpenTimesVersion = 0;
  nvx::OutputTimes OpenTimes;
  // Mold-preheat output times (KRN only; no RSV table).
  std::int32_t PreheatTimesVersion = 1001;
  bool PreheatFlagAutoLoadIntermediateResult = false;
  double PreheatValueCheckIntermediteTimeSpan = 60.0;
  nvx::OutputTimes PreheatTimes;

  // Free text lines written at the end of their sections; never read. The cool
  // lines close both <COOL_OUTPUT_TIMES> and <MoldPreheat_OUTPUT_TIMES>.
  std::vector<std::string> ShellCoolLines;
  std::vector<std::string> CoolOutputTimesLines;
  std::vector<std::string> OpenOutputTimesLines;

  // Memory only: the resolution level type of the host's cooling page (1 on
  // machines with at least 32000 MiB of physical memory, else 0).
  std::int32_t ResLevelType = 0;
};

class CNVX3DSolidCool : public CNVX3DCoolBase {
 public:
  ~CNVX3DSolidCool() override = default;

  bool FlagMultipleTimeForAllProc = false;
  std::int32_t ValueMaxCycleNumber = 10;
  std::int32_t ValueConvergeType = 3;  // 1 to 3
  std::int32_t ValueConvergeUnit = 1;  // 1 degree, 2 percentage
  double ValueMaxTempVariationTolerance = 1.0;
  double ValueMaxPartSurfTempVariationTolerance = 1.0;
  double ValueMaxMBInnerTempVariationTolerance = 1.0;
  bool FlagAdvancedHotRunner = false;
  bool Flag3DSolidCoolingChannel = false;
  std::int32_t Flag3DSolidCoolingTurbulence = 1;
  double Value3DSolidCoolingTurbulenceRoughness = 0.02;
  bool FlagSteadyState = false;
  bool FlagAutoAdiabaticLayer = true;
  bool FlagPreheatAverageTemp = false;
  bool FlagPreheatHighestTemp = false;
  bool FlagPreheatLowestTemp = false;
  double ValuePreheatAverageTempVariation = 0.0;
  double ValuePreheatHighestTempVariation = 0.0;
  double ValuePreheatLowestTempVariation = 0.0;
  std::int32_t FlagMoldbaseResulationType = 0;  // KRN only, no accessor
};

namespace nvx {

extern const SectionDef kShellCoolSection;
extern const SectionDef kSolidCoolSection;
extern const SectionDef kCoolOutputTimesSection;
extern const SectionDef kMoldPreheatOutputTimesSection;
extern const SectionDef kOpenOutputTimesSection;

// Time-list generation: stores n as the count and appends n times spaced
// duration / (n + 1) apart, by repeated addition. The list is not emptied
// first, so a second generation leaves the new times after the old ones.
void GenerateTimes(OutputTimes& block, std::int32_t n, double duration);

// The cooling reset of solid models with the cooling, mold-open and
// mold-preheat durations. FlagSteadyState and the text lines stay.
void ResetCool(CNVX3DSolidCool& record, double cooling, double moldOpen, double moldPreheat);
// The shell preset: solver 1 without acceleration, empty cool and open counts
// (their lists stay as they are); solid-only fields and mold preheat stay.
void ApplyShellCoolPreset(CNVX3DSolidCool& record);

// The resolution level type for `memoryBytes` of physical memory: 0 when both
// advanced filling options are set, else 1 from 32000 MiB up (the MiB counted
// as a signed 32-bit number), else 0.
std::int32_t ResolutionLevelType(std::uint64_t memoryBytes, bool longFiber, bool foaming);

}  // namespace nvx

#endif  // NVX_SECTIONS_COOL_H_
