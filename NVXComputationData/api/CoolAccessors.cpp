// Accessors of the cooling sections (<SHELL_COOL>, <SOLID_COOL>,
// <COOL_OUTPUT_TIMES>, <MoldPreheat_OUTPUT_TIMES>, <OPEN_OUTPUT_TIMES>) and the
// generic members that reach the cooling record. Shell and solid names that
// reach the same field are the same operation. Section accessors do not test
// for a missing implementation object; the generic members do.
#include "NVX3DComputation.h"
#include "core/NVX3DComputationImpl.h"

namespace {
CNVX3DSolidCool& Cool(CNVX3DComputationImpl* impl) { return *impl->sections.cool; }

// Getter shapes: store and return the value (a flag as 0 or 1), or store and return 1.
template <typename T>
int Value(T& out, const T& field) {
  out = field;
  return static_cast<int>(field);
}
template <typename T>
int One(T& out, const T& field) {
  out = field;
  return 1;
}
}  // namespace

// ---- Generic members -----------------------------------------------------------

int CNVX3DComputation::GetResLevelType() { return m_pImpl ? Cool(m_pImpl).ResLevelType : 0; }
void CNVX3DComputation::SetResLevelType(int type) {
  if (m_pImpl) Cool(m_pImpl).ResLevelType = type;
}
bool CNVX3DComputation::GetAutoCoolingTimeSetting() {
  return m_pImpl ? Cool(m_pImpl).FlagAutoSetCoolTime : false;
}
// Does nothing, on purpose: the flag is set through the cooling sections.
void CNVX3DComputation::SetAutoCoolingTimeSetting(bool) {}
bool CNVX3DComputation::GetMultiTimeStepsForAllCycle() {
  return m_pImpl ? Cool(m_pImpl).FlagMultipleTimeForAllProc : false;
}
void CNVX3DComputation::SetMultiTimeStepsForAllCycle(bool flag) {
  if (m_pImpl) Cool(m_pImpl).FlagMultipleTimeForAllProc = flag;
}

// ---- <SHELL_COOL> and the shared fields ------------------------------------------

int CNVX3DComputation::GetShellCoolVersion(int& v) { return Value(v, Cool(m_pImpl).Version); }
void CNVX3DComputation::SetShellCoolVersion(int v) { Cool(m_pImpl).Version = v; }
// Deliberately the version field, not the solver.
int CNVX3DComputation::GetShellCoolIDSolver(int& v) { return Value(v, Cool(m_pImpl).Version); }
void CNVX3DComputation::SetShellCoolIDSolver(int v) { Cool(m_pImpl).Version = v; }
int CNVX3DComputation::GetShellCoolFlagSolverAcceleration(bool& f) {
  return Value(f, Cool(m_pImpl).FlagSolverAcceleration);
}
void CNVX3DComputation::SetShellCoolFlagSolverAcceleration(bool f) {
  Cool(m_pImpl).FlagSolverAcceleration = f;
}
int CNVX3DComputation::GetShellCoolFlagParallelCompute(bool& f) {
  return Value(f, Cool(m_pImpl).FlagParallelCompute);
}
void CNVX3DComputation::SetShellCoolFlagParallelCompute(bool f) {
  Cool(m_pImpl).FlagParallelCompute = f;
}
int CNVX3DComputation::GetShellCoolFlagNetworkAnalysis(bool& f) {
  return Value(f, Cool(m_pImpl).FlagNetworkAnalysis);
}
void CNVX3DComputation::SetShellCoolFlagNetworkAnalysis(bool f) {
  Cool(m_pImpl).FlagNetworkAnalysis = f;
}
void CNVX3DComputation::SetCanDoCoolPipeline(bool f) { Cool(m_pImpl).FlagNetworkAnalysis = f; }
int CNVX3DComputation::GetShellCoolFlagAutoSetCoolTime(bool& f) {
  return Value(f, Cool(m_pImpl).FlagAutoSetCoolTime);
}
void CNVX3DComputation::SetShellCoolFlagAutoSetCoolTime(bool f) {
  Cool(m_pImpl).FlagAutoSetCoolTime = f;
}
int CNVX3DComputation::GetShellCoolValueAutoSetCoolTimeMaxIteration(int& v) {
  return Value(v, Cool(m_pImpl).ValueAutoSetCoolTimeMaxIteration);
}
void CNVX3DComputation::SetShellCoolValueAutoSetCoolTimeMaxIteration(int v) {
  Cool(m_pImpl).ValueAutoSetCoolTimeMaxIteration = v;
}
// Takes the tolerance by value, so it cannot return it: changes nothing, returns 1.
int CNVX3DComputation::GetShellCoolValueAutoSetCoolTimeTolerance(double) { return 1; }
void CNVX3DComputation::SetShellCoolValueAutoSetCoolTimeTolerance(double v) {
  Cool(m_pImpl).ValueAutoSetCoolTimeTolerance = v;
}
int CNVX3DComputation::GetShellCoolFlagAutoSetCoolTimeExcludeRunner(int& v) {
  return Value(v, Cool(m_pImpl).FlagAutoSetCoolTimeExcludeRunner);
}
void CNVX3DComputation::SetShellCoolFlagAutoSetCoolTimeExcludeRunner(int v) {
  Cool(m_pImpl).FlagAutoSetCoolTimeExcludeRunner = v;
}

// ---- <SOLID_COOL> ------------------------------------------------------------------

int CNVX3DComputation::GetSolidCoolVersion(int& v) { return Value(v, Cool(m_pImpl).Version); }
void CNVX3DComputation::SetSolidCoolVersion(int v) { Cool(m_pImpl).Version = v; }
int CNVX3DComputation::GetSolidCoolIDSolver(int& v) { return Value(v, Cool(m_pImpl).IDSolver); }
void CNVX3DComputation::SetSolidCoolIDSolver(int v) { Cool(m_pImpl).IDSolver = v; }
int CNVX3DComputation::GetSolidCoolFlagSolverAcceleration(bool& f) {
  return Value(f, Cool(m_pImpl).FlagSolverAcceleration);
}
void CNVX3DComputation::SetSolidCoolFlagSolverAcceleration(bool f) {
  Cool(m_pImpl).FlagSolverAcceleration = f;
}
int CNVX3DComputation::GetSolidCoolFlagParallelCompute(bool& f) {
  return Value(f, Cool(m_pImpl).FlagParallelCompute);
}
void CNVX3DComputation::SetSolidCoolFlagParallelCompute(bool f) {
  Cool(m_pImpl).FlagParallelCompute = f;
}
int CNVX3DComputation::GetSolidCoolFlagNetworkAnalysis(bool& f) {
  return Value(f, Cool(m_pImpl).FlagNetworkAnalysis);
}
void CNVX3DComputation::SetSolidCoolFlagNetworkAnalysis(bool f) {
  Cool(m_pImpl).FlagNetworkAnalysis = f;
}
int CNVX3DComputation::GetSolidCoolFlagAutoSetCoolTime(bool& f) {
  return Value(f, Cool(m_pImpl).FlagAutoSetCoolTime);
}
void CNVX3DComputation::SetSolidCoolFlagAutoSetCoolTime(bool f) {
  Cool(m_pImpl).FlagAutoSetCoolTime = f;
}
int CNVX3DComputation::GetSolidCoolValueAutoSetCoolTimeMaxIteration(int& v) {
  return Value(v, Cool(m_pImpl).ValueAutoSetCoolTimeMaxIteration);
}
void CNVX3DComputation::SetSolidCoolValueAutoSetCoolTimeMaxIteration(int v) {
  Cool(m_pImpl).ValueAutoSetCoolTimeMaxIteration = v;
}
int CNVX3DComputation::GetSolidCoolValueAutoSetCoolTimeTolerance(double& v) {
  return One(v, Cool(m_pImpl).ValueAutoSetCoolTimeTolerance);
}
void CNVX3DComputation::SetSolidCoolValueAutoSetCoolTimeTolerance(double v) {
  Cool(m_pImpl).ValueAutoSetCoolTimeTolerance = v;
}
int CNVX3DComputation::GetSolidCoolFlagAutoSetCoolTimeExcludeRunner(int& v) {
  return Value(v, Cool(m_pImpl).FlagAutoSetCoolTimeExcludeRunner);
}
void CNVX3DComputation::SetSolidCoolFlagAutoSetCoolTimeExcludeRunner(int v) {
  Cool(m_pImpl).FlagAutoSetCoolTimeExcludeRunner = v;
}
int CNVX3DComputation::GetCoolRun3DSolidCoolingChannelAnalysis(bool& f) {
  return One(f, Cool(m_pImpl).Flag3DSolidCoolingChannel);
}
void CNVX3DComputation::SetCoolRun3DSolidCoolingChannelAnalysis(bool f) {
  Cool(m_pImpl).Flag3DSolidCoolingChannel = f;
}
void CNVX3DComputation::SetCanDoConformalCooling(bool f) {
  Cool(m_pImpl).Flag3DSolidCoolingChannel = f;
}
void CNVX3DComputation::Get3DSolidCoolingTurbulence(int& v) {
  v = Cool(m_pImpl).Flag3DSolidCoolingTurbulence;
}
void CNVX3DComputation::Set3DSolidCoolingTurbulence(int v) {
  Cool(m_pImpl).Flag3DSolidCoolingTurbulence = v;
}
void CNVX3DComputation::GetValue3DSolidCoolingTurbulenceRoughness(double& v) {
  v = Cool(m_pImpl).Value3DSolidCoolingTurbulenceRoughness;
}
void CNVX3DComputation::SetValue3DSolidCoolingTurbulenceRoughness(double v) {
  Cool(m_pImpl).Value3DSolidCoolingTurbulenceRoughness = v;
}
int CNVX3DComputation::GetSolidCoolFlagAdvancedHotRunner(bool& f) {
  return One(f, Cool(m_pImpl).FlagAdvancedHotRunner);
}
void CNVX3DComputation::SetSolidCoolFlagAdvancedHotRunner(bool f) {
  Cool(m_pImpl).FlagAdvancedHotRunner = f;
}
bool CNVX3DComputation::GetFlagSteadyState() { return Cool(m_pImpl).FlagSteadyState; }
void CNVX3DComputation::SetFlagSteadyState(bool f) { Cool(m_pImpl).FlagSteadyState = f; }
int CNVX3DComputation::GetSolidCoolFlagMultipleTimeForAllProc(bool& f) {
  return Value(f, Cool(m_pImpl).FlagMultipleTimeForAllProc);
}
void CNVX3DComputation::SetSolidCoolFlagMultipleTimeForAllProc(bool f) {
  Cool(m_pImpl).FlagMultipleTimeForAllProc = f;
}
int CNVX3DComputation::GetSolidCoolValueMaxCycleNumber(int& v) {
  return Value(v, Cool(m_pImpl).ValueMaxCycleNumber);
}
void CNVX3DComputation::SetSolidCoolValueMaxCycleNumber(int v) {
  Cool(m_pImpl).ValueMaxCycleNumber = v;
}
int CNVX3DComputation::GetSolidCoolValueConvergeType(int& v) {
  return Value(v, Cool(m_pImpl).ValueConvergeType);
}
void CNVX3DComputation::SetSolidCoolValueConvergeType(int v) {
  Cool(m_pImpl).ValueConvergeType = v;
}
int CNVX3DComputation::GetSolidCoolValueConvergeUnit(int& v) {
  return Value(v, Cool(m_pImpl).ValueConvergeUnit);
}
void CNVX3DComputation::SetSolidCoolValueConvergeUnit(int v) {
  Cool(m_pImpl).ValueConvergeUnit = v;
}
int CNVX3DComputation::GetSolidCoolValueMaxTempVariationTolerance(double& v) {
  return One(v, Cool(m_pImpl).ValueMaxTempVariationTolerance);
}
void CNVX3DComputation::SetSolidCoolValueMaxTempVariationTolerance(double v) {
  Cool(m_pImpl).ValueMaxTempVariationTolerance = v;
}
int CNVX3DComputation::GetSolidCoolValueMaxPartSurfTempVariationTolerance(double& v) {
  return One(v, Cool(m_pImpl).ValueMaxPartSurfTempVariationTolerance);
}
void CNVX3DComputation::SetSolidCoolValueMaxPartSurfTempVariationTolerance(double v) {
  Cool(m_pImpl).ValueMaxPartSurfTempVariationTolerance = v;
}
int CNVX3DComputation::GetSolidCoolValueMaxMBInnerTempVariationTolerance(double& v) {
  return One(v, Cool(m_pImpl).ValueMaxMBInnerTempVariationTolerance);
}
void CNVX3DComputation::SetSolidCoolValueMaxMBInnerTempVariationTolerance(double v) {
  Cool(m_pImpl).ValueMaxMBInnerTempVariationTolerance = v;
}
bool CNVX3DComputation::GetFlagAutoAdiabaticLayer() { return Cool(m_pImpl).FlagAutoAdiabaticLayer; }
void CNVX3DComputation::SetFlagAutoAdiabaticLayer(bool f) {
  Cool(m_pImpl).FlagAutoAdiabaticLayer = f;
}
bool CNVX3DComputation::GetFlagPreheatAverageTemp() { return Cool(m_pImpl).FlagPreheatAverageTemp; }
void CNVX3DComputation::SetFlagPreheatAverageTemp(bool f) {
  Cool(m_pImpl).FlagPreheatAverageTemp = f;
}
bool CNVX3DComputation::GetFlagPreheatHighestTemp() { return Cool(m_pImpl).FlagPreheatHighestTemp; }
void CNVX3DComputation::SetFlagPreheatHighestTemp(bool f) {
  Cool(m_pImpl).FlagPreheatHighestTemp = f;
}
bool CNVX3DComputation::GetFlagPreheatLowestTemp() { return Cool(m_pImpl).FlagPreheatLowestTemp; }
void CNVX3DComputation::SetFlagPreheatLowestTemp(bool f) {
  Cool(m_pImpl).FlagPreheatLowestTemp = f;
}
double CNVX3DComputation::GetValuePreheatAverageTempVariation() {
  return Cool(m_pImpl).ValuePreheatAverageTempVariation;
}
void CNVX3DComputation::SetValuePreheatAverageTempVariation(double v) {
  Cool(m_pImpl).ValuePreheatAverageTempVariation = v;
}
double CNVX3DComputation::GetValuePreheatHighestTempVariation() {
  return Cool(m_pImpl).ValuePreheatHighestTempVariation;
}
void CNVX3DComputation::SetValuePreheatHighestTempVariation(double v) {
  Cool(m_pImpl).ValuePreheatHighestTempVariation = v;
}
double CNVX3DComputation::GetValuePreheatLowestTempVariation() {
  return Cool(m_pImpl).ValuePreheatLowestTempVariation;
}
void CNVX3DComputation::SetValuePreheatLowestTempVariation(double v) {
  Cool(m_pImpl).ValuePreheatLowestTempVariation = v;
}

// ---- <COOL_OUTPUT_TIMES> -------------------------------------------------------------

int CNVX3DComputation::GetCoolOutPutTimeVersion(int& v) {
  return Value(v, Cool(m_pImpl).CoolTimesVersion);
}
void CNVX3DComputation::SetCoolOutPutTimeVersion(int v) { Cool(m_pImpl).CoolTimesVersion = v; }
int CNVX3DComputation::GetCoolOutPutTimeFlagAutoLoadIntermediateResult(bool& f) {
  return Value(f, Cool(m_pImpl).CoolFlagAutoLoadIntermediateResult);
}
void CNVX3DComputation::SetCoolOutPutTimeFlagAutoLoadIntermediateResult(bool f) {
  Cool(m_pImpl).CoolFlagAutoLoadIntermediateResult = f;
}
int CNVX3DComputation::GetCoolOutPutTimeValueCheckIntermediteTimeSpan(double& v) {
  return One(v, Cool(m_pImpl).CoolValueCheckIntermediteTimeSpan);
}
void CNVX3DComputation::SetCoolOutPutTimeValueCheckIntermediteTimeSpan(double v) {
  Cool(m_pImpl).CoolValueCheckIntermediteTimeSpan = v;
}
int CNVX3DComputation::GetValueNoCoolOutPutTimesteps(int& n) {
  return Value(n, Cool(m_pImpl).CoolTimes.Count);
}
void CNVX3DComputation::SetValueNoCoolOutputTimeSteps(int n) {
  Cool(m_pImpl).CoolTimes.SetCount(n);
}
int CNVX3DComputation::GetValueNoCoolOutputTimeStepValue(int i, double& t) {
  return One(t, Cool(m_pImpl).CoolTimes.At(i));
}
void CNVX3DComputation::SetValueNoCoolOutputTimeStepValue(int i, double t) {
  Cool(m_pImpl).CoolTimes.At(i) = t;
}

// ---- <MoldPreheat_OUTPUT_TIMES> --------------------------------------------------------

int CNVX3DComputation::GetMoldPreheatOutputTimeVersion() {
  return Cool(m_pImpl).PreheatTimesVersion;
}
void CNVX3DComputation::SetMoldPreheatOutputTimeVersion(int v) {
  Cool(m_pImpl).PreheatTimesVersion = v;
}
bool CNVX3DComputation::GetMoldPreheatOutputTimeFlagAutoLoadIntermediateResult() {
  return Cool(m_pImpl).PreheatFlagAutoLoadIntermediateResult;
}
void CNVX3DComputation::SetMoldPreheatOutputTimeFlagAutoLoadIntermediateResult(bool f) {
  Cool(m_pImpl).PreheatFlagAutoLoadIntermediateResult = f;
}
double CNVX3DComputation::GetMoldPreheatOutputTimeValueCheckIntermediteTimeSpan() {
  return Cool(m_pImpl).PreheatValueCheckIntermediteTimeSpan;
}
void CNVX3DComputation::SetMoldPreheatOutputTimeValueCheckIntermediteTimeSpan(double v) {
  Cool(m_pImpl).PreheatValueCheckIntermediteTimeSpan = v;
}
int CNVX3DComputation::GetMoldPreheatTimeSteps() { return Cool(m_pImpl).PreheatTimes.Count; }
void CNVX3DComputation::SetMoldPreheatTimeSteps(int n) { Cool(m_pImpl).PreheatTimes.SetCount(n); }
void CNVX3DComputation::GetMoldPreheatTimeStepsValue(int i, double& t) {
  t = Cool(m_pImpl).PreheatTimes.At(i);
}
void CNVX3DComputation::SetMoldPreheatTimeStepsValue(int i, double t) {
  Cool(m_pImpl).PreheatTimes.At(i) = t;
}

// ---- <OPEN_OUTPUT_TIMES> ----------------------------------------------------------------

int CNVX3DComputation::GetOpenOutPutTimeVersion(int& v) {
  return Value(v, Cool(m_pImpl).OpenTimesVersion);
}
void CNVX3DComputation::SetOpenOutPutTimeVersion(int v) { Cool(m_pImpl).OpenTimesVersion = v; }
int CNVX3DComputation::GetValueNoOpenOutPutTimesteps(int& n) {
  return Value(n, Cool(m_pImpl).OpenTimes.Count);
}
void CNVX3DComputation::SetValueNoOpenOutputTimeSteps(int n) {
  Cool(m_pImpl).OpenTimes.SetCount(n);
}
int CNVX3DComputation::GetValueNoOpenOutputTimeStepValue(int i, double& t) {
  return One(t, Cool(m_pImpl).OpenTimes.At(i));
}
void CNVX3DComputation::SetValueNoOpenOutputTimeStepValue(int i, double t) {
  Cool(m_pImpl).OpenTimes.At(i) = t;
}
