// Accessors of the viscoelastic sections (<SOLID_VE>, <SOLID_VE_STRESS>,
// <SOLID_VE_WARP>, <SOLID_VE_CURING_STRESS>). Like the other plain accessors
// they do not test for a missing implementation object.
#include "NVX3DComputation.h"
#include "core/NVX3DComputationImpl.h"

namespace {
CNVX3DSolidVE& VE(CNVX3DComputationImpl* impl) { return *impl->sections.ve; }
CNVX3DVEStress& Stress(CNVX3DComputationImpl* impl) { return *impl->sections.veStress; }
CNVX3DVEWarp& Warp(CNVX3DComputationImpl* impl) { return *impl->sections.veWarp; }
CNVX3DVECuringStress& Curing(CNVX3DComputationImpl* impl) { return *impl->sections.veCuring; }
}  // namespace

int CNVX3DComputation::GetSolidVEVersion(int& v) { return v = VE(m_pImpl).Version; }
void CNVX3DComputation::SetSolidVEVersion(int v) { VE(m_pImpl).Version = v; }
int CNVX3DComputation::GetSolidVEFlagEstimateFlowPackStage(int& v) {
  return v = VE(m_pImpl).FlagEstimateFlowPackStage;
}
void CNVX3DComputation::SetSolidVEFlagEstimateFlowPackStage(int v) {
  VE(m_pImpl).FlagEstimateFlowPackStage = v;
}
int CNVX3DComputation::GetSolidVEFlagEstimateCoolStage(int& v) {
  return v = VE(m_pImpl).FlagEstimateCoolStage;
}
void CNVX3DComputation::SetSolidVEFlagEstimateCoolStage(int v) {
  nvx::SetEstimateCoolStage(VE(m_pImpl), v);
}
int CNVX3DComputation::GetSolidVEFlagEstimateEjection(int& v) {
  return v = VE(m_pImpl).FlagEstimateEjection;
}
void CNVX3DComputation::SetSolidVEFlagEstimateEjection(int v) {
  VE(m_pImpl).FlagEstimateEjection = v;
}
int CNVX3DComputation::GetVESTrerssVersion() { return Stress(m_pImpl).Version; }
void CNVX3DComputation::SetVESTrerssVersion(int v) { Stress(m_pImpl).Version = v; }
int CNVX3DComputation::GetFlagRnuTimeTempSetting() { return Stress(m_pImpl).FlagTempSetting; }
void CNVX3DComputation::SetFlagRnuTimeTempSetting(int v) { Stress(m_pImpl).FlagTempSetting = v; }
double CNVX3DComputation::GetC1() { return Stress(m_pImpl).C1; }
void CNVX3DComputation::SetC1(double v) { Stress(m_pImpl).C1 = v; }
double CNVX3DComputation::GetC2() { return Stress(m_pImpl).C2; }
void CNVX3DComputation::SetC2(double v) { Stress(m_pImpl).C2 = v; }
double CNVX3DComputation::GetTref() { return Stress(m_pImpl).Tref; }
void CNVX3DComputation::SetTref(double v) { Stress(m_pImpl).Tref = v; }
double CNVX3DComputation::GetElasticModulusRatio() { return Stress(m_pImpl).ValueEaslticRatio; }
void CNVX3DComputation::SetElasticModulusRatio(double v) { Stress(m_pImpl).ValueEaslticRatio = v; }
void CNVX3DComputation::SetE0Time(int n) { Stress(m_pImpl).Profile.SetPointCount(0, n); }
void CNVX3DComputation::GetE0Time(int& n) { n = Stress(m_pImpl).Profile.PointCount(0); }
void CNVX3DComputation::SetE0T(int i, double e0, double t) {
  Stress(m_pImpl).Profile.SetPoint(0, i, e0, t);
}
void CNVX3DComputation::GetE0T(int i, double& e0, double& t) {
  Stress(m_pImpl).Profile.GetPoint(0, i, e0, t);
}
int CNVX3DComputation::GetVEWarpVersion() { return Warp(m_pImpl).Version; }
void CNVX3DComputation::SetVEWarpVersion(int v) { Warp(m_pImpl).Version = v; }
int CNVX3DComputation::GetVEWarpFlagRnuTimeTempSetting() { return Warp(m_pImpl).FlagTempSetting; }
void CNVX3DComputation::SetVEWarpFlagRnuTimeTempSetting(int v) {
  Warp(m_pImpl).FlagTempSetting = v;
}
double CNVX3DComputation::GetVEWarpC1() { return Warp(m_pImpl).C1; }
void CNVX3DComputation::SetVEWarpC1(double v) { Warp(m_pImpl).C1 = v; }
double CNVX3DComputation::GetVEWarpC2() { return Warp(m_pImpl).C2; }
void CNVX3DComputation::SetVEWarpC2(double v) { Warp(m_pImpl).C2 = v; }
double CNVX3DComputation::GetVEWarpTref() { return Warp(m_pImpl).Tref; }
void CNVX3DComputation::SetVEWarpTref(double v) { Warp(m_pImpl).Tref = v; }
double CNVX3DComputation::GetVEWarpElasticModulusRatio() { return Warp(m_pImpl).ValueEaslticRatio; }
void CNVX3DComputation::SetVEWarpElasticModulusRatio(double v) {
  Warp(m_pImpl).ValueEaslticRatio = v;
}
void CNVX3DComputation::SetVEWarpE0Time(int n) { Warp(m_pImpl).Profile.SetPointCount(0, n); }
void CNVX3DComputation::GetVEWarpE0Time(int& n) { n = Warp(m_pImpl).Profile.PointCount(0); }
void CNVX3DComputation::SetVEWarpE0T(int i, double e0, double t) {
  Warp(m_pImpl).Profile.SetPoint(0, i, e0, t);
}
void CNVX3DComputation::GetVEWarpE0T(int i, double& e0, double& t) {
  Warp(m_pImpl).Profile.GetPoint(0, i, e0, t);
}
int CNVX3DComputation::GetFlagRunVEMat() { return Stress(m_pImpl).FlagRunVEMat; }
void CNVX3DComputation::SetFlagRunVEMat(int v) { Stress(m_pImpl).FlagRunVEMat = v; }
int CNVX3DComputation::GetFlagConsiderStress() { return Stress(m_pImpl).FlagConsiderStress; }
void CNVX3DComputation::SetFlagConsiderStress(int v) { Stress(m_pImpl).FlagConsiderStress = v; }
int CNVX3DComputation::GetFlagConsiderWarp() { return Stress(m_pImpl).FlagConsiderWarp; }
void CNVX3DComputation::SetFlagConsiderWarp(int v) { Stress(m_pImpl).FlagConsiderWarp = v; }
int CNVX3DComputation::GetFlagConsiderVEWarp() { return Warp(m_pImpl).FlagConsiderWarp; }
void CNVX3DComputation::SetFlagConsiderVEWarp(int v) { Warp(m_pImpl).FlagConsiderWarp = v; }
int CNVX3DComputation::GetVEStressCuringVersion() { return Curing(m_pImpl).Version; }
void CNVX3DComputation::SetVEStressCuringVersion(int v) { Curing(m_pImpl).Version = v; }
int CNVX3DComputation::GetVEStressModelType() { return Curing(m_pImpl).ModelType; }
void CNVX3DComputation::SetVEStressModelType(int v) { Curing(m_pImpl).ModelType = v; }
double CNVX3DComputation::GetVEStressCuringParaConst() { return Curing(m_pImpl).ValueEaslticRatio; }
void CNVX3DComputation::SetVEStressCuringParaConst(double v) {
  Curing(m_pImpl).ValueEaslticRatio = v;
}
void CNVX3DComputation::SetVEStressCuringParaCount(int n) {
  Curing(m_pImpl).Profile.SetPointCount(0, n);
}
void CNVX3DComputation::GetVEStressCuringParacount(int& n) {
  n = Curing(m_pImpl).Profile.PointCount(0);
}
void CNVX3DComputation::SetVEStressCuringPara(int i, double a, double b) {
  Curing(m_pImpl).Profile.SetPoint(0, i, a, b);
}
void CNVX3DComputation::GetVEStressCuringPara(int i, double& a, double& b) {
  Curing(m_pImpl).Profile.GetPoint(0, i, a, b);
}
