// Accessors of the advanced filling sections (<FILL_ADVANCED_LONGFIBER>,
// <FILL_ADVANCED_HRSteady>, <FILL_ADVANCED_MCIM>, <FILL_ADVANCED_SlipBC>) and
// the generic GetVersion/SetVersion, which reach the slip record. Every
// accessor is one line into its record; without an implementation object a
// getter answers 0 and leaves its reference, a setter does nothing.
#include "NVX3DComputation.h"
#include "core/NVX3DComputationImpl.h"

namespace {

CNVX3DLongFiber* LF(CNVX3DComputationImpl* impl) {
  return impl ? impl->sections.longFiber.get() : nullptr;
}
CNVX3DHRSteady* HR(CNVX3DComputationImpl* impl) {
  return impl ? impl->sections.hrSteady.get() : nullptr;
}
CNVX3DFoaming* FM(CNVX3DComputationImpl* impl) {
  return impl ? impl->sections.foaming.get() : nullptr;
}
CNVX3DSlipBC* SL(CNVX3DComputationImpl* impl) { return impl ? impl->sections.slip.get() : nullptr; }

// Copies the field into `out`; 1, or 0 without a record.
template <typename R, typename T, typename U>
int Get(R* record, T R::*field, U& out) {
  if (record == nullptr) return 0;
  out = record->*field;
  return 1;
}
// The field's value, or zero without a record.
template <typename R, typename T>
T Value(R* record, T R::*field) {
  return record ? record->*field : T{};
}
template <typename R, typename T, typename U>
void Set(R* record, T R::*field, U value) {
  if (record) record->*field = value;
}

using LongFiber = CNVX3DLongFiber;
using HRSteady = CNVX3DHRSteady;
using Foaming = CNVX3DFoaming;
using Slip = CNVX3DSlipBC;

}  // namespace

// ---- Generic members -----------------------------------------------------------

int CNVX3DComputation::GetVersion() { return Value(SL(m_pImpl), &Slip::Version); }
void CNVX3DComputation::SetVersion(int v) { Set(SL(m_pImpl), &Slip::Version, v); }

// ---- <FILL_ADVANCED_LONGFIBER> -------------------------------------------------

// clang-format off
int CNVX3DComputation::GetAdvancedFiberVersion(int& v) { return Get(LF(m_pImpl), &LongFiber::Version, v); }
void CNVX3DComputation::SetAdvancedFiberVersion(int v) { Set(LF(m_pImpl), &LongFiber::Version, v); }
int CNVX3DComputation::GetAdvancedFiberOrthotropicClosureMethod(int& v) { return Get(LF(m_pImpl), &LongFiber::OrthotropicClosureMethod, v); }
void CNVX3DComputation::SetAdvancedFiberOrthotropicClosureMethod(int v) { Set(LF(m_pImpl), &LongFiber::OrthotropicClosureMethod, v); }
int CNVX3DComputation::GetAdvancedFiberModifiedFactor(double& v) { return Get(LF(m_pImpl), &LongFiber::ModifiedFactor, v); }
void CNVX3DComputation::SetAdvancedFiberModifiedFactor(double v) { Set(LF(m_pImpl), &LongFiber::ModifiedFactor, v); }
int CNVX3DComputation::GetAdvancedFiberDiffusionModelType(int& v) { return Get(LF(m_pImpl), &LongFiber::DiffusionModelType, v); }
void CNVX3DComputation::SetAdvancedFiberDiffusionModelType(int v) { Set(LF(m_pImpl), &LongFiber::DiffusionModelType, v); }
int CNVX3DComputation::GetAdvancedFiberCf(double& v) { return Get(LF(m_pImpl), &LongFiber::Cf, v); }
void CNVX3DComputation::SetAdvancedFiberCf(double v) { Set(LF(m_pImpl), &LongFiber::Cf, v); }
int CNVX3DComputation::GetAdvancedFiberCm(double& v) { return Get(LF(m_pImpl), &LongFiber::Cm, v); }
void CNVX3DComputation::SetAdvancedFiberCm(double v) { Set(LF(m_pImpl), &LongFiber::Cm, v); }
int CNVX3DComputation::GetAdvancedb1(double& v) { return Get(LF(m_pImpl), &LongFiber::b1, v); }
void CNVX3DComputation::SetAdvancedb1(double v) { Set(LF(m_pImpl), &LongFiber::b1, v); }
int CNVX3DComputation::GetAdvancedb2(double& v) { return Get(LF(m_pImpl), &LongFiber::b2, v); }
void CNVX3DComputation::SetAdvancedb2(double v) { Set(LF(m_pImpl), &LongFiber::b2, v); }
int CNVX3DComputation::GetAdvancedb3(double& v) { return Get(LF(m_pImpl), &LongFiber::b3, v); }
void CNVX3DComputation::SetAdvancedb3(double v) { Set(LF(m_pImpl), &LongFiber::b3, v); }
int CNVX3DComputation::GetAdvancedb4(double& v) { return Get(LF(m_pImpl), &LongFiber::b4, v); }
void CNVX3DComputation::SetAdvancedb4(double v) { Set(LF(m_pImpl), &LongFiber::b4, v); }
int CNVX3DComputation::GetAdvancedb5(double& v) { return Get(LF(m_pImpl), &LongFiber::b5, v); }
void CNVX3DComputation::SetAdvancedb5(double v) { Set(LF(m_pImpl), &LongFiber::b5, v); }
int CNVX3DComputation::GetFiberType(int& v) { return Get(LF(m_pImpl), &LongFiber::FiberType, v); }
void CNVX3DComputation::SetFiberType(int v) { Set(LF(m_pImpl), &LongFiber::FiberType, v); }
int CNVX3DComputation::GetFiberRatio(double& v) { return Get(LF(m_pImpl), &LongFiber::AspectRatio, v); }
void CNVX3DComputation::SetFiberRatio(double v) { Set(LF(m_pImpl), &LongFiber::AspectRatio, v); }
int CNVX3DComputation::GetFiberWeight(double& v) { return Get(LF(m_pImpl), &LongFiber::Weight, v); }
void CNVX3DComputation::SetFiberWeight(double v) { Set(LF(m_pImpl), &LongFiber::Weight, v); }
void CNVX3DComputation::GetFlagFiberBreakage(bool& v) { Get(LF(m_pImpl), &LongFiber::FlagFiberBreakage, v); }
void CNVX3DComputation::SetFlagFiberBreakage(bool v) { Set(LF(m_pImpl), &LongFiber::FlagFiberBreakage, v); }
void CNVX3DComputation::GetValueFiberDiameter(double& v) { Get(LF(m_pImpl), &LongFiber::ValueFiberDiameter, v); }
void CNVX3DComputation::SetValueFiberDiameter(double v) { Set(LF(m_pImpl), &LongFiber::ValueFiberDiameter, v); }
void CNVX3DComputation::GetValueFiberBreakageCD(double& v) { Get(LF(m_pImpl), &LongFiber::ValueFiberBreakageCD, v); }
void CNVX3DComputation::SetValueFiberBreakageCD(double v) { Set(LF(m_pImpl), &LongFiber::ValueFiberBreakageCD, v); }
void CNVX3DComputation::GetValueFiberBreakageCB(double& v) { Get(LF(m_pImpl), &LongFiber::ValueFiberBreakageCB, v); }
void CNVX3DComputation::SetValueFiberBreakageCB(double v) { Set(LF(m_pImpl), &LongFiber::ValueFiberBreakageCB, v); }
void CNVX3DComputation::GetValueFiberBreakageS(double& v) { Get(LF(m_pImpl), &LongFiber::ValueFiberBreakageS, v); }
void CNVX3DComputation::SetValueFiberBreakageS(double v) { Set(LF(m_pImpl), &LongFiber::ValueFiberBreakageS, v); }
// Deliberately the screw flag, not FlagFiberBreakage.
bool CNVX3DComputation::GetFiberBreakage() { return Value(LF(m_pImpl), &LongFiber::FlagScrewFiberBreakage); }
void CNVX3DComputation::SetFiberBreakage(bool v) { Set(LF(m_pImpl), &LongFiber::FlagScrewFiberBreakage, v); }
int CNVX3DComputation::GetHasConcertration() { return Value(LF(m_pImpl), &LongFiber::FlagConcertration); }
void CNVX3DComputation::SetHasConcertration(int v) { Set(LF(m_pImpl), &LongFiber::FlagConcertration, v); }
double CNVX3DComputation::GetParticleDiameter() { return Value(LF(m_pImpl), &LongFiber::ValueParticleDiameter); }
void CNVX3DComputation::SetParticlediameter(double v) { Set(LF(m_pImpl), &LongFiber::ValueParticleDiameter, v); }
double CNVX3DComputation::GetAverageConcentration() { return Value(LF(m_pImpl), &LongFiber::ValueAverageConcentration); }
void CNVX3DComputation::SetAverageConcentration(double v) { Set(LF(m_pImpl), &LongFiber::ValueAverageConcentration, v); }
double CNVX3DComputation::GetParticleFrictionIndex() { return Value(LF(m_pImpl), &LongFiber::ValueParticleFrictionIndex); }
void CNVX3DComputation::SetParticleFrictionIndex(double v) { Set(LF(m_pImpl), &LongFiber::ValueParticleFrictionIndex, v); }

// ---- <FILL_ADVANCED_HRSteady> --------------------------------------------------

int CNVX3DComputation::GetAdvancedHRVersion(int& v) { return Get(HR(m_pImpl), &HRSteady::Version, v); }
void CNVX3DComputation::SetAdvancedHRVersion(int v) { Set(HR(m_pImpl), &HRSteady::Version, v); }
int CNVX3DComputation::GetAdvancedHotRunnerSteadyFlowRate(double& v) { return Get(HR(m_pImpl), &HRSteady::ValueFlowRate, v); }
void CNVX3DComputation::SetAdvancedHotRunnerSteadyFlowRate(double v) { Set(HR(m_pImpl), &HRSteady::ValueFlowRate, v); }
int CNVX3DComputation::GetAdvancedHotRunnerSteadyConvergenceCriteria(double& v) { return Get(HR(m_pImpl), &HRSteady::ValueConvergenceCriteria, v); }
void CNVX3DComputation::SetAdvancedHotRunnerSteadyConvergenceCriteria(double v) { Set(HR(m_pImpl), &HRSteady::ValueConvergenceCriteria, v); }
int CNVX3DComputation::GetAdvancedHotRunnerSteadyNumberOfHotRunnerGate(int& v) { return Get(HR(m_pImpl), &HRSteady::ValueNoHRGate, v); }
void CNVX3DComputation::SetAdvancedHotRunnerSteadyNumberOfHotRunnerGate(int v) { Set(HR(m_pImpl), &HRSteady::ValueNoHRGate, v); }
int CNVX3DComputation::GetAdvancedHotRunnerSteadyGateType(int& v) { return Get(HR(m_pImpl), &HRSteady::ValueHRGateType, v); }
void CNVX3DComputation::SetAdvancedHotRunnerSteadyGateType(int v) { Set(HR(m_pImpl), &HRSteady::ValueHRGateType, v); }
// clang-format on

void CNVX3DComputation::SetAdvancedHotRunnerSteadyVectorSize(int size) {
  if (CNVX3DHRSteady* r = HR(m_pImpl)) r->Gates.resize(size > 0 ? size : 0, CNVX3DHRGate{});
}
int CNVX3DComputation::GetAdvancedHotRunnerSteadyGateInfo(int gate, int which, double& v) {
  const double* value = HR(m_pImpl) ? nvx::GateValue(*HR(m_pImpl), gate, which) : nullptr;
  if (value) v = *value;
  return value ? 1 : 0;
}
void CNVX3DComputation::SetAdvancedHotRunnerSteadyGateInfo(int gate, int which, double v) {
  if (double* value = HR(m_pImpl) ? nvx::GateValue(*HR(m_pImpl), gate, which) : nullptr) {
    *value = v;
  }
}

// ---- <FILL_ADVANCED_MCIM> ------------------------------------------------------

// clang-format off
int CNVX3DComputation::GetFoamingVersion(int& v) { return Get(FM(m_pImpl), &Foaming::Version, v); }
void CNVX3DComputation::SetFoamingVersion(int v) { Set(FM(m_pImpl), &Foaming::Version, v); }
int CNVX3DComputation::GetFoamingFlagEstimateBubble(int& v) { return Get(FM(m_pImpl), &Foaming::FlagEstimateBubble, v); }
void CNVX3DComputation::SetFoamingFlagEstimateBubble(int v) { Set(FM(m_pImpl), &Foaming::FlagEstimateBubble, v); }
int CNVX3DComputation::GetFoamingGasType(int& v) { return Get(FM(m_pImpl), &Foaming::GasType, v); }
void CNVX3DComputation::SetFoamingGasType(int v) { Set(FM(m_pImpl), &Foaming::GasType, v); }
int CNVX3DComputation::GetFoamingBubbleType(int& v) { return Get(FM(m_pImpl), &Foaming::BubbleGrowthModel, v); }
void CNVX3DComputation::SetFoamingBubbleType(int v) { Set(FM(m_pImpl), &Foaming::BubbleGrowthModel, v); }
int CNVX3DComputation::GetFoamingPolyMolecularWeight(double& v) { return Get(FM(m_pImpl), &Foaming::PolymerMolecularWeight, v); }
void CNVX3DComputation::SetFoamingPolyMolecularWeight(double v) { Set(FM(m_pImpl), &Foaming::PolymerMolecularWeight, v); }
int CNVX3DComputation::GetFoamingDiffusionCoef(double& v) { return Get(FM(m_pImpl), &Foaming::GasDiffusionCoefficient, v); }
void CNVX3DComputation::SetFoamingDiffusionCoef(double v) { Set(FM(m_pImpl), &Foaming::GasDiffusionCoefficient, v); }
int CNVX3DComputation::GetFoamingsolubilityParm(double& v) { return Get(FM(m_pImpl), &Foaming::GasSolubilityParameter, v); }
void CNVX3DComputation::SetFoamingSolubilityParm(double v) { Set(FM(m_pImpl), &Foaming::GasSolubilityParameter, v); }
int CNVX3DComputation::GetFoamingSurfaceTension(double& v) { return Get(FM(m_pImpl), &Foaming::SurfaceTension, v); }
void CNVX3DComputation::SetFoamingSurfaceTension(double v) { Set(FM(m_pImpl), &Foaming::SurfaceTension, v); }
int CNVX3DComputation::GetFoamingF0(double& v) { return Get(FM(m_pImpl), &Foaming::CorrectionFactorf0, v); }
void CNVX3DComputation::SetFoamingF0(double v) { Set(FM(m_pImpl), &Foaming::CorrectionFactorf0, v); }
int CNVX3DComputation::GetFoamingF(double& v) { return Get(FM(m_pImpl), &Foaming::CorrectionFactorF, v); }
void CNVX3DComputation::SetFoamingF(double v) { Set(FM(m_pImpl), &Foaming::CorrectionFactorF, v); }
int CNVX3DComputation::GetFoamingJt(double& v) { return Get(FM(m_pImpl), &Foaming::ThresholdofBubbleFt, v); }
void CNVX3DComputation::SetFoamingJt(double v) { Set(FM(m_pImpl), &Foaming::ThresholdofBubbleFt, v); }

// ---- <FILL_ADVANCED_SlipBC> ----------------------------------------------------

int CNVX3DComputation::GetFlagSlipBC() { return Value(SL(m_pImpl), &Slip::FlagSlipBC); }
void CNVX3DComputation::SetFlagSlipBC(int v) { Set(SL(m_pImpl), &Slip::FlagSlipBC, v); }
int CNVX3DComputation::GetFlagSlipExcludeRunner() { return Value(SL(m_pImpl), &Slip::FlagSlipExcludeRunner); }
void CNVX3DComputation::SetFlagSlipExcludeRunner(int v) { Set(SL(m_pImpl), &Slip::FlagSlipExcludeRunner, v); }
double CNVX3DComputation::GetValueSlipCoeff() { return Value(SL(m_pImpl), &Slip::ValueSlipCoeff); }
void CNVX3DComputation::SetValueSlipCoeff(double v) { Set(SL(m_pImpl), &Slip::ValueSlipCoeff, v); }
double CNVX3DComputation::GetValueSlipFrictionForce() { return Value(SL(m_pImpl), &Slip::ValueSlipFrictionForce); }
void CNVX3DComputation::SetValueSlipFrictionForce(double v) { Set(SL(m_pImpl), &Slip::ValueSlipFrictionForce, v); }
// clang-format on
