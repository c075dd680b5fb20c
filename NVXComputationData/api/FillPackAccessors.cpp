// Accessors of the fill and pack sections (<SHELL_FILL>, <SHELL_PACK>,
// <SOLID_FILL>, <SOLID_PACK>, <FILL_OUTPUT_TIMES>, <PACK_OUTPUT_TIMES>) and of
// the crystallization parameters. Shell and solid names that reach the same
// field are the same operation. Plain accessors do not test for a missing
// implementation object; the pair accessors do.
#include "NVX3DComputation.h"
#include "core/NVX3DComputationImpl.h"

namespace {
CNVX3DFillPackTimeSteps& FP(CNVX3DComputationImpl* impl) { return *impl->sections.fillPack; }
CNVX3DCrystalLine& Crystal(CNVX3DComputationImpl* impl) { return *impl->crystal; }
}  // namespace

bool CNVX3DComputation::GetShellFillVersion(int& v) {
  v = FP(m_pImpl).Version;
  return true;
}
void CNVX3DComputation::SetShellFillVersion(int v) { FP(m_pImpl).Version = v; }
bool CNVX3DComputation::GetShellFillIDSolver(int& v) {
  v = FP(m_pImpl).IDSolver;
  return true;
}
void CNVX3DComputation::SetShellFillIDSolver(int v) { FP(m_pImpl).IDSolver = v; }
bool CNVX3DComputation::GetShellFillSolverAcceleration(int& v) {
  v = FP(m_pImpl).FlagSolverAcceleration;
  return true;
}
void CNVX3DComputation::SetShellFillSolverAcceleration(int v) {
  FP(m_pImpl).FlagSolverAcceleration = v;
}
bool CNVX3DComputation::GetShellFillEstimateFiber(int& v) {
  v = FP(m_pImpl).FlagEstimateFiber;
  return true;
}
bool CNVX3DComputation::GetShellFillValueNoFlowLayer(int& v) {
  v = FP(m_pImpl).ValueNoFlowLayer;
  return true;
}
void CNVX3DComputation::SetShellFillValueNoFlowLayer(int v) { FP(m_pImpl).ValueNoFlowLayer = v; }
int CNVX3DComputation::GetShellPackVersion(int& v) {
  v = FP(m_pImpl).PackVersion;
  return 1;
}
void CNVX3DComputation::SetShellPackVersion(int v) { FP(m_pImpl).PackVersion = v; }
int CNVX3DComputation::GetShellPackidSolver(int& v) {
  v = FP(m_pImpl).PackIDSolver;
  return 1;
}
void CNVX3DComputation::SetShellPackidSolver(int v) { FP(m_pImpl).PackIDSolver = v; }
int CNVX3DComputation::GetShellPackFlagAcceleration(int& v) {
  v = FP(m_pImpl).PackFlagSolverAcceleration;
  return 1;
}
void CNVX3DComputation::SetShellPackFlagAcceleration(int v) {
  FP(m_pImpl).PackFlagSolverAcceleration = v;
}
bool CNVX3DComputation::GetSolidFillVersion(int& v) {
  v = FP(m_pImpl).Version;
  return true;
}
void CNVX3DComputation::SetSolidFillVersion(int v) { FP(m_pImpl).Version = v; }
bool CNVX3DComputation::GetSolidFillIDSolver(int& v) {
  v = FP(m_pImpl).IDSolver;
  return true;
}
void CNVX3DComputation::SetSolidFillIDSolver(int v) { FP(m_pImpl).IDSolver = v; }
int CNVX3DComputation::GetSolidFillIDAnalysisMode(int& v) {
  v = FP(m_pImpl).IDAnalysisMode;
  return 1;
}
int CNVX3DComputation::GetSolidFillIDEfficiencyFactor(double& v) {
  v = FP(m_pImpl).IDEfficiencyFactor;
  return 1;
}
void CNVX3DComputation::SetSolidFillIDEfficiencyFactor(double v) {
  FP(m_pImpl).IDEfficiencyFactor = v;
}
int CNVX3DComputation::GetSolidFillIDFiberEfficiencyFactor(int& v) {
  v = FP(m_pImpl).IDFiberEfficiencyFactor;
  return 1;
}
void CNVX3DComputation::SetSolidFillIDFiberEfficiencyFactor(int v) {
  FP(m_pImpl).IDFiberEfficiencyFactor = v;
}
bool CNVX3DComputation::GetSolidFillSolverAcceleration(int& v) {
  v = FP(m_pImpl).FlagSolverAcceleration;
  return true;
}
void CNVX3DComputation::SetSolidFillSolverAcceleration(int v) {
  FP(m_pImpl).FlagSolverAcceleration = v;
}
int CNVX3DComputation::GetSolidFillFlagInertia(bool& v) {
  v = FP(m_pImpl).FlagInertia;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagInertia(bool v) { FP(m_pImpl).FlagInertia = v; }
int CNVX3DComputation::GetSolidFillFlagNonIsothermal(int& v) {
  v = FP(m_pImpl).FlagNonIsothermal;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagNonIsothermal(int v) { FP(m_pImpl).FlagNonIsothermal = v; }
int CNVX3DComputation::GetSolidFillFlagNonNewtonian(int& v) {
  v = FP(m_pImpl).FlagNonNewtonian;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagNonNewtonian(int v) { FP(m_pImpl).FlagNonNewtonian = v; }
int CNVX3DComputation::GetSolidFillFlagViscousHeating(int& v) {
  v = FP(m_pImpl).FlagViscousHeating;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagViscousHeating(int v) {
  FP(m_pImpl).FlagViscousHeating = v;
}
int CNVX3DComputation::GetSolidFillFlagStabilizer(int& v) {
  v = FP(m_pImpl).FlagStabilizer;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagStabilizer(int v) { FP(m_pImpl).FlagStabilizer = v; }
int CNVX3DComputation::GetSolidFillFlagCompressibleFlow(int& v) {
  v = FP(m_pImpl).FlagCompressibleFlow;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagCompressibleFlow(int v) {
  FP(m_pImpl).FlagCompressibleFlow = v;
}
int CNVX3DComputation::GetSolidFillFlagEstimateCoolTime(int& v) {
  v = FP(m_pImpl).FlagEstimateCoolTime;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagEstimateCoolTime(int v) {
  FP(m_pImpl).FlagEstimateCoolTime = v;
}
bool CNVX3DComputation::GetSolidFillEstimateFiber(int& v) {
  v = FP(m_pImpl).FlagEstimateFiber;
  return true;
}
int CNVX3DComputation::GetSolidFillFlagStopPackingAfterGateFreeze(int& v) {
  v = FP(m_pImpl).FlagStopPackingAfterGateFreeze;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagStopPackingAfterGateFreeze(int v) {
  FP(m_pImpl).FlagStopPackingAfterGateFreeze = v;
}
int CNVX3DComputation::GetSolidFillFlagGateFreezeByTemperature(int& v) {
  v = FP(m_pImpl).FlagGateFreezeByTemperature;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagGateFreezeByTemperature(int v) {
  FP(m_pImpl).FlagGateFreezeByTemperature = v;
}
int CNVX3DComputation::GetSolidFillValueGateFreezeByTemperature(double& v) {
  v = FP(m_pImpl).ValueGateFreezeByTemperature;
  return 1;
}
void CNVX3DComputation::SetSolidFillValueGateFreezeByTemperature(double v) {
  FP(m_pImpl).ValueGateFreezeByTemperature = v;
}
int CNVX3DComputation::GetSolidFillFlagGateFreezeByFlowRate(int& v) {
  v = FP(m_pImpl).FlagGateFreezeByFlowRate;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagGateFreezeByFlowRate(int v) {
  FP(m_pImpl).FlagGateFreezeByFlowRate = v;
}
int CNVX3DComputation::GetSolidFillValueGateFreezeByFlowRate(double& v) {
  v = FP(m_pImpl).ValueGateFreezeByFlowRate;
  return 1;
}
void CNVX3DComputation::SetSolidFillValueGateFreezeByFlowRate(double v) {
  FP(m_pImpl).ValueGateFreezeByFlowRate = v;
}
int CNVX3DComputation::GetSolidFillFlagGateFreezeByWeightDeviation(int& v) {
  v = FP(m_pImpl).FlagGateFreezeByWeightDeviation;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagGateFreezeByWeightDeviation(int v) {
  FP(m_pImpl).FlagGateFreezeByWeightDeviation = v;
}
int CNVX3DComputation::GetSolidFillValueGateFreezeByWeightDeviation(double& v) {
  v = FP(m_pImpl).ValueGateFreezeByWeightDeviation;
  return 1;
}
void CNVX3DComputation::SetSolidFillValueGateFreezeByWeightDeviation(double v) {
  FP(m_pImpl).ValueGateFreezeByWeightDeviation = v;
}
int CNVX3DComputation::GetSolidFillFlagOutputTecplot(int& v) {
  v = FP(m_pImpl).FlagOutputTecplot;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagOutputTecplot(int v) { FP(m_pImpl).FlagOutputTecplot = v; }
int CNVX3DComputation::GetSolidFillFlagOutputFEMAP(int& v) {
  v = FP(m_pImpl).FlagOutputFEMAP;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagOutputFEMAP(int v) { FP(m_pImpl).FlagOutputFEMAP = v; }
int CNVX3DComputation::GetSolidFillFlagOutputHyperMesh(int& v) {
  v = FP(m_pImpl).FlagOutputHyperMesh;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagOutputHyperMesh(int v) {
  FP(m_pImpl).FlagOutputHyperMesh = v;
}
int CNVX3DComputation::GetSolidFillFlagOutputHyperMeshAvi(int& v) {
  v = FP(m_pImpl).FlagOutputHyperMeshAvi;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagOutputHyperMeshAvi(int v) {
  FP(m_pImpl).FlagOutputHyperMeshAvi = v;
}
int CNVX3DComputation::GetSolidFillUseTemperatureDLL(int& v) {
  v = FP(m_pImpl).UseTemperatureDLL;
  return 1;
}
void CNVX3DComputation::SetSolidFillUseTemperatureDLL(int v) { FP(m_pImpl).UseTemperatureDLL = v; }
int CNVX3DComputation::GetSolidFillValueGravityX(double& v) {
  v = FP(m_pImpl).ValueGravityX;
  return 1;
}
void CNVX3DComputation::SetSolidFillValueGravityX(double v) { FP(m_pImpl).ValueGravityX = v; }
int CNVX3DComputation::GetSolidFillValueGravityY(double& v) {
  v = FP(m_pImpl).ValueGravityY;
  return 1;
}
void CNVX3DComputation::SetSolidFillValueGravityY(double v) { FP(m_pImpl).ValueGravityY = v; }
int CNVX3DComputation::GetSolidFillValueGravityZ(double& v) {
  v = FP(m_pImpl).ValueGravityZ;
  return 1;
}
void CNVX3DComputation::SetSolidFillValueGravityZ(double v) { FP(m_pImpl).ValueGravityZ = v; }
int CNVX3DComputation::GetSolidFillValueEOFPercent(double& v) {
  v = FP(m_pImpl).ValueEOFPercent;
  return 1;
}
void CNVX3DComputation::SetSolidFillValueEOFPercent(double v) { FP(m_pImpl).ValueEOFPercent = v; }
int CNVX3DComputation::GetSolidFillValueUIEOFPercent(double& v) {
  v = FP(m_pImpl).ValueUIEOFPercent;
  return 1;
}
void CNVX3DComputation::SetSolidFillValueUIEOFPercent(double v) {
  FP(m_pImpl).ValueUIEOFPercent = v;
}
int CNVX3DComputation::GetSolidFillFlagExcludeRunnerEOFPercent(int& v) {
  v = FP(m_pImpl).FlagExcludeRunnerEOFPercent;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagExcludeRunnerEOFPercent(int v) {
  FP(m_pImpl).FlagExcludeRunnerEOFPercent = v;
}
int CNVX3DComputation::GetSolidFillValueUnFilledElement(int& v) {
  v = FP(m_pImpl).ValueUnFilledElement;
  return 1;
}
void CNVX3DComputation::SetSolidFillValueUnFilledElement(int v) {
  FP(m_pImpl).ValueUnFilledElement = v;
}
int CNVX3DComputation::GetSolidFillIDStopCalculateCriterionType(int& v) {
  v = FP(m_pImpl).IDStopCalculateCriterionType;
  return 1;
}
void CNVX3DComputation::SetSolidFillIDStopCalculateCriterionType(int v) {
  FP(m_pImpl).IDStopCalculateCriterionType = v;
}
int CNVX3DComputation::GetSolidFillFlagVentingAnalysis(int& v) {
  v = FP(m_pImpl).FlagVentingAnalysis;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagVentingAnalysis(int v) {
  FP(m_pImpl).FlagVentingAnalysis = v;
}
int CNVX3DComputation::GetSolidFIllVentingTemperature(double& v) {
  v = FP(m_pImpl).VentingTemperature;
  return 1;
}
void CNVX3DComputation::SetSolidFillVentingTemperature(double v) {
  FP(m_pImpl).VentingTemperature = v;
}
int CNVX3DComputation::GetSolidFIllVentingPressure(double& v) {
  v = FP(m_pImpl).VentingPressure;
  return 1;
}
void CNVX3DComputation::SetSolidFIllVentingPressure(double v) { FP(m_pImpl).VentingPressure = v; }
int CNVX3DComputation::GetSolidFIllFlagCoreShiftMethod(int& v) {
  v = FP(m_pImpl).FlagCoreShiftMethod;
  return 1;
}
void CNVX3DComputation::SetSolidFIllFlagCoreShiftMethod(int v) {
  FP(m_pImpl).FlagCoreShiftMethod = v;
}
void CNVX3DComputation::GetStressSolverVolume(double& v) { v = FP(m_pImpl).FlagStressSolverVolume; }
void CNVX3DComputation::SetStressSolverVolume(double v) { FP(m_pImpl).FlagStressSolverVolume = v; }
int CNVX3DComputation::GetFlowParticleTracer(int& v) {
  v = FP(m_pImpl).FlagParticleTracer;
  return 1;
}
void CNVX3DComputation::SetFlowParticleTracer(int v) { FP(m_pImpl).FlagParticleTracer = v; }
int CNVX3DComputation::GetFlowParticleTracerGroupCount(int& v) {
  v = FP(m_pImpl).ValueParticleGroup;
  return 1;
}
void CNVX3DComputation::SetFlowParticleTracerGroupCount(int v) {
  FP(m_pImpl).ValueParticleGroup = v;
}
int CNVX3DComputation::GetSolidFillFlagFlowVECoupling(int& v) {
  v = FP(m_pImpl).FlagFlowVEcoupling;
  return 1;
}
void CNVX3DComputation::SetSolidFillFlagFlowVECoupling(int v) {
  FP(m_pImpl).FlagFlowVEcoupling = v;
}
int CNVX3DComputation::GetSolidPackVersion(int& v) {
  v = FP(m_pImpl).PackVersion;
  return 1;
}
void CNVX3DComputation::SetSolidPackVersion(int v) { FP(m_pImpl).PackVersion = v; }
int CNVX3DComputation::GetSolidPackidSolver(int& v) {
  v = FP(m_pImpl).PackIDSolver;
  return 1;
}
void CNVX3DComputation::SetSolidPackidSolver(int v) { FP(m_pImpl).PackIDSolver = v; }
int CNVX3DComputation::GetSoliodPackFlagSovlerAcceleration(int& v) {
  v = FP(m_pImpl).PackFlagSolverAcceleration;
  return 1;
}
void CNVX3DComputation::SetSoliodPackFlagSovlerAcceleration(int v) {
  FP(m_pImpl).PackFlagSolverAcceleration = v;
}
void CNVX3DComputation::GetPackFlagExPackingCalculation(int& v) {
  v = FP(m_pImpl).FlagexPackingCalculation;
}
void CNVX3DComputation::SetPackFlagExPackingCalculation(int v) {
  FP(m_pImpl).FlagexPackingCalculation = v;
}
int CNVX3DComputation::GetFillOutputTimesSectionVersion(int& v) {
  v = FP(m_pImpl).FillTimesVersion;
  return 1;
}
void CNVX3DComputation::SetFillOutputTimesSectionVersion(int v) {
  FP(m_pImpl).FillTimesVersion = v;
}
int CNVX3DComputation::GetFillOutputTimesSectionFlagAutoLoadIntermediateResult(int& v) {
  v = FP(m_pImpl).FlagAutoLoadIntermediateResult;
  return 1;
}
void CNVX3DComputation::SetFillOutputTimesSectionFlagAutoLoadIntermediateResult(int v) {
  FP(m_pImpl).FlagAutoLoadIntermediateResult = v;
}
int CNVX3DComputation::GetFillOutputTimesSectionFillMultiOutputType(int& v) {
  v = FP(m_pImpl).FlagFillMultiOutputType;
  return 1;
}
void CNVX3DComputation::SetFillOutputTimesSectionFillMultiOutputType(int v) {
  FP(m_pImpl).FlagFillMultiOutputType = v;
}
int CNVX3DComputation::GetFillOutputTimesSectionValueCheckIntermediteTimeSpan(double& v) {
  v = FP(m_pImpl).ValueCheckIntermediteTimeSpan;
  return 1;
}
int CNVX3DComputation::GetFillOutputTimesSectionFillTimeSteps(int& v) {
  v = FP(m_pImpl).FillTimes.Count;
  return 1;
}
int CNVX3DComputation::GetPackOutputTimeVersion(int& v) {
  v = FP(m_pImpl).PackTimesVersion;
  return 1;
}
void CNVX3DComputation::SetPackOutputTimeVersion(int v) { FP(m_pImpl).PackTimesVersion = v; }
int CNVX3DComputation::GetFlagEstimateCrystall() { return FP(m_pImpl).FlagEstimateCrystall; }
void CNVX3DComputation::SetFlagEstimateCrystall(int v) { FP(m_pImpl).FlagEstimateCrystall = v; }
int CNVX3DComputation::GetWeldLineParticle() { return FP(m_pImpl).FlagWeldingLineParticleTracer; }
void CNVX3DComputation::SetWeldLineParticle(int v) {
  FP(m_pImpl).FlagWeldingLineParticleTracer = v;
}
int CNVX3DComputation::GetFlagFlowEfficiencyFactor() {
  return FP(m_pImpl).FlagFlowEfficiencyFactor;
}
void CNVX3DComputation::SetFlagFlowEfficiencyFactor(int v) {
  FP(m_pImpl).FlagFlowEfficiencyFactor = v;
}
int CNVX3DComputation::GetFlag2WayPaddleShiftMethod() {
  return FP(m_pImpl).Flag2WayPaddleShiftMethod;
}
void CNVX3DComputation::SetFlag2WayPaddleShiftMethod(int v) {
  FP(m_pImpl).Flag2WayPaddleShiftMethod = v;
}
bool CNVX3DComputation::GetSolidFillFlagConsiderIMDBC() { return FP(m_pImpl).FlagConsiderIMDBC; }
void CNVX3DComputation::SetSolidFillFlagConsiderIMDBC(bool v) { FP(m_pImpl).FlagConsiderIMDBC = v; }
int CNVX3DComputation::GetFlagexPackingType() { return FP(m_pImpl).FlagexPackingType; }
void CNVX3DComputation::SetFlagexPackingType(int v) { FP(m_pImpl).FlagexPackingType = v; }

// Crystallization parameters.
void CNVX3DComputation::GetCrystalLineVersion(int& v) { v = Crystal(m_pImpl).Version; }
void CNVX3DComputation::SetCrystalLineVersion(int v) { Crystal(m_pImpl).Version = v; }
void CNVX3DComputation::GetFlagCrystalline(int& v) { v = Crystal(m_pImpl).FlagCrystalline; }
void CNVX3DComputation::SetFlagCrystalline(int v) { Crystal(m_pImpl).FlagCrystalline = v; }
void CNVX3DComputation::GetCrystalLineFlafModeling(int& v) { v = Crystal(m_pImpl).FlagModeling; }
void CNVX3DComputation::SetCrystalLineFlafModeling(int v) { Crystal(m_pImpl).FlagModeling = v; }
void CNVX3DComputation::GetdInduction_TimeM(double& v) { v = Crystal(m_pImpl).InductionTimeM; }
void CNVX3DComputation::SetdInduction_TimeM(double v) { Crystal(m_pImpl).InductionTimeM = v; }
void CNVX3DComputation::GetInduction_Alpha(double& v) { v = Crystal(m_pImpl).InductionAlpha; }
void CNVX3DComputation::SetInduction_Alpha(double v) { Crystal(m_pImpl).InductionAlpha = v; }
void CNVX3DComputation::GetHalfCrystall_Time_0(double& v) {
  v = Crystal(m_pImpl).HalfCrystallTime0;
}
void CNVX3DComputation::SetHalfCrystall_Time_0(double v) { Crystal(m_pImpl).HalfCrystallTime0 = v; }
void CNVX3DComputation::GetCrystallPara_n(double& v) { v = Crystal(m_pImpl).CrystallParaN; }
void CNVX3DComputation::SetCrystallPara_n(double v) { Crystal(m_pImpl).CrystallParaN = v; }
void CNVX3DComputation::GetSpherulite_GrowthRate(double& v) {
  v = Crystal(m_pImpl).SpheruliteGrowthRate;
}
void CNVX3DComputation::SetSpherulite_GrowthRate(double v) {
  Crystal(m_pImpl).SpheruliteGrowthRate = v;
}
void CNVX3DComputation::GetBalance_Tm0(double& v) { v = Crystal(m_pImpl).BalanceTm0; }
void CNVX3DComputation::SetBalance_Tm0(double v) { Crystal(m_pImpl).BalanceTm0 = v; }
void CNVX3DComputation::GetDTg(double& v) { v = Crystal(m_pImpl).DTg; }
void CNVX3DComputation::SetDTg(double v) { Crystal(m_pImpl).DTg = v; }
void CNVX3DComputation::GetShift_C1(double& v) { v = Crystal(m_pImpl).ShiftC1; }
void CNVX3DComputation::SetShift_C1(double v) { Crystal(m_pImpl).ShiftC1 = v; }
void CNVX3DComputation::GetShift_C2(double& v) { v = Crystal(m_pImpl).ShiftC2; }
void CNVX3DComputation::SetShift_C2(double v) { Crystal(m_pImpl).ShiftC2 = v; }

// ---- Accessors with more than one effect -------------------------------------

void CNVX3DComputation::SetShellFillEstimateFiber(int v) { nvx::SetEstimateFiber(*m_pImpl, v); }
void CNVX3DComputation::SetSolidFillEstimateFiber(int v) { nvx::SetEstimateFiber(*m_pImpl, v); }
void CNVX3DComputation::SetMaterialHasFiber(int v) { nvx::SetEstimateFiber(*m_pImpl, v); }
void CNVX3DComputation::SetMaterialCrystall(int v) { FP(m_pImpl).FlagEstimateCrystall = v; }
void CNVX3DComputation::SetSolidFillIDAnalysisMode(int v) { nvx::SetAnalysisMode(FP(m_pImpl), v); }

void CNVX3DComputation::GetFreezeTemperature(int& flag, double& value) {
  if (m_pImpl == nullptr) return;
  flag = FP(m_pImpl).FlagGateFreezeByTemperature;
  value = FP(m_pImpl).ValueGateFreezeByTemperature;
}
void CNVX3DComputation::SetFreezeTemperature(int flag, double value) {
  if (m_pImpl == nullptr) return;
  FP(m_pImpl).FlagGateFreezeByTemperature = flag;
  FP(m_pImpl).ValueGateFreezeByTemperature = value;
}
void CNVX3DComputation::GetFlowRate(int& flag, double& value) {
  if (m_pImpl == nullptr) return;
  flag = FP(m_pImpl).FlagGateFreezeByFlowRate;
  value = FP(m_pImpl).ValueGateFreezeByFlowRate;
}
void CNVX3DComputation::SetFlowRate(int flag, double value) {
  if (m_pImpl == nullptr) return;
  FP(m_pImpl).FlagGateFreezeByFlowRate = flag;
  FP(m_pImpl).ValueGateFreezeByFlowRate = value;
}
void CNVX3DComputation::GetPartWeightDeviation(int& flag, double& value) {
  if (m_pImpl == nullptr) return;
  flag = FP(m_pImpl).FlagGateFreezeByWeightDeviation;
  value = FP(m_pImpl).ValueGateFreezeByWeightDeviation;
}
void CNVX3DComputation::SetPartWeightDeviation(int flag, double value) {
  if (m_pImpl == nullptr) return;
  FP(m_pImpl).FlagGateFreezeByWeightDeviation = flag;
  FP(m_pImpl).ValueGateFreezeByWeightDeviation = value;
}

// The setter takes an int and stores it as a double.
void CNVX3DComputation::SetFillOutputTimesSectionValueCheckIntermediteTimeSpan(int v) {
  FP(m_pImpl).ValueCheckIntermediteTimeSpan = v;
}

void CNVX3DComputation::SetFillOutputTimesSectionFillTimeSteps(int n) {
  FP(m_pImpl).FillTimes.SetCount(n);
}
int CNVX3DComputation::GetFillOutputTimesSectionFillTimeStepsValue(int i, double& v) {
  v = FP(m_pImpl).FillTimes.At(i);
  return 1;
}
void CNVX3DComputation::SetFillOutputTimesSectionFillTimeStepsValue(int i, double v) {
  FP(m_pImpl).FillTimes.At(i) = v;
}

// Fills the count; the result is 0 and means nothing to callers.
int CNVX3DComputation::GetPackOutputTimesSectionFillTimeSteps(int& n) {
  n = FP(m_pImpl).PackTimes.Count;
  return 0;
}
void CNVX3DComputation::SetPackOutputTimesSectionFillTimeSteps(int n) {
  FP(m_pImpl).PackTimes.SetCount(n);
}
int CNVX3DComputation::GetPackOutputTimesSectionFillTimeStepsValue(int i, double& v) {
  v = FP(m_pImpl).PackTimes.At(i);
  return 1;
}
void CNVX3DComputation::SetPackOutputTimesSectionFillTimeStepsValue(int i, double v) {
  FP(m_pImpl).PackTimes.At(i) = v;
}
