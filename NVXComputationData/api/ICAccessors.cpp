// Accessors of the IC packaging sections (<SOLID_IC>,
// <IC_PADDLE_SHIFT_OUTPUT_TIMES>, <IC_WIRE_SWEEP_OUTPUT_TIMES>).
#include <utility>

#include "NVX3DComputation.h"
#include "core/NVX3DComputationImpl.h"

namespace {
CNVX3DSolidIC& IC(CNVX3DComputationImpl* impl) { return *impl->sections.ic; }
}  // namespace

// The two version getters do not read the stored version: they leave their
// argument as it is and return 1.
int CNVX3DComputation::GetSolidICICPaddleVersion(int&) { return 1; }
int CNVX3DComputation::GetSolidICICWireSweepVersion(int&) { return 1; }
int CNVX3DComputation::GetSolidICVersion(int& v) { return v = IC(m_pImpl).Version; }
void CNVX3DComputation::SetSolidICVersion(int v) { IC(m_pImpl).Version = v; }
int CNVX3DComputation::GetSolidICFlagStressSolverType(int& v) {
  return v = IC(m_pImpl).FlagStressSolverType;
}
void CNVX3DComputation::SetSolidICFlagStressSolverType(int v) {
  IC(m_pImpl).FlagStressSolverType = v;
}
int CNVX3DComputation::GetSolidICFlagANSYSStressSolverAnalysisType(int& v) {
  return v = IC(m_pImpl).FlagANSYSStressSolverAnalysisType;
}
void CNVX3DComputation::SetSolidICFlagANSYSStressSolverAnalysisType(int v) {
  IC(m_pImpl).FlagANSYSStressSolverAnalysisType = v;
}
int CNVX3DComputation::GetSolidICFlagDragForceModel(int& v) {
  return v = IC(m_pImpl).FlagDragForceModel;
}
void CNVX3DComputation::SetSolidICFlagDragForceModel(int v) { IC(m_pImpl).FlagDragForceModel = v; }
int CNVX3DComputation::GetSolidICFlagWireSweepNonLinearOption(int& v) {
  return v = IC(m_pImpl).FlagWireSweepNonLinearOption;
}
void CNVX3DComputation::SetSolidICFlagWireSweepNonLinearOption(int v) {
  IC(m_pImpl).FlagWireSweepNonLinearOption = v;
}
int CNVX3DComputation::GetFlagWireSweepNLMatOption(int& v) {
  return v = IC(m_pImpl).FlagWireSweepNLMatOption;
}
void CNVX3DComputation::SetFlagWireSweepNLMatOption(int v) {
  IC(m_pImpl).FlagWireSweepNLMatOption = v;
}
int CNVX3DComputation::GetSolidICFlagPaddleShiftNonLinearOption(int& v) {
  return v = IC(m_pImpl).FlagPaddleShiftNonLinearOption;
}
void CNVX3DComputation::SetSolidICFlagPaddleShiftNonLinearOption(int v) {
  IC(m_pImpl).FlagPaddleShiftNonLinearOption = v;
}
int CNVX3DComputation::GetSolidICANSYSStressSolverDirectory(std::string& v) {
  v = IC(m_pImpl).ANSYSStressSolverDirectory;
  return 1;
}
void CNVX3DComputation::SetSolidICANSYSStressSolverDirectory(std::string v) {
  IC(m_pImpl).ANSYSStressSolverDirectory = std::move(v);
}
int CNVX3DComputation::GetSolidICABAQUSStressSolverDirectory(std::string& v) {
  v = IC(m_pImpl).ABAQUSStressSolverDirectory;
  return 1;
}
void CNVX3DComputation::SetSolidICABAQUSStressSolverDirectory(std::string v) {
  IC(m_pImpl).ABAQUSStressSolverDirectory = std::move(v);
}
int CNVX3DComputation::GetSolidICOutputBatchFileDirectory(std::string& v) {
  v = IC(m_pImpl).OutputBatchFileDirectory;
  return 1;
}
void CNVX3DComputation::SetSolidICOutputBatchFileDirectory(std::string v) {
  IC(m_pImpl).OutputBatchFileDirectory = std::move(v);
}
int CNVX3DComputation::GetWireCrossOverTolerance(double& v) {
  v = IC(m_pImpl).WireTolerance;
  return 1;
}
void CNVX3DComputation::SetWireCrossOverTolerance(double v) { IC(m_pImpl).WireTolerance = v; }
void CNVX3DComputation::SetSolidICICPaddleVersion(int v) { IC(m_pImpl).PaddleVersion = v; }
int CNVX3DComputation::GetSolidICICPaddleFlagAutoLoadIntermediateResult(int& v) {
  return v = IC(m_pImpl).PaddleFlagAutoLoadIntermediateResult;
}
void CNVX3DComputation::SetSolidICICPaddleFlagAutoLoadIntermediateResult(int v) {
  IC(m_pImpl).PaddleFlagAutoLoadIntermediateResult = v;
}
int CNVX3DComputation::GetSolidICICPaddleValueCheckIntermediteTimeSpan(double& v) {
  v = IC(m_pImpl).PaddleValueCheckIntermediteTimeSpan;
  return 1;
}
void CNVX3DComputation::SetSolidICICPaddleValueCheckIntermediteTimeSpan(double v) {
  IC(m_pImpl).PaddleValueCheckIntermediteTimeSpan = v;
}
int CNVX3DComputation::GetSolidICICPaddleValueNoPaddleShiftTime(int& n) {
  return n = IC(m_pImpl).PaddleTimes.Count;
}
void CNVX3DComputation::SetSolidICICPaddleValueNoPaddleShiftTime(int n) {
  IC(m_pImpl).PaddleTimes.SetCount(n);
}
int CNVX3DComputation::GetSolidIICPaddleValueNoPaddleShiftTimeValue(int i, double& t) {
  t = IC(m_pImpl).PaddleTimes.At(i);
  return 1;
}
void CNVX3DComputation::SetSolidIICPaddleValueNoPaddleShiftTimeValue(int i, double t) {
  IC(m_pImpl).PaddleTimes.At(i) = t;
}
void CNVX3DComputation::SetSolidICICWireSweepVersion(int v) { IC(m_pImpl).WireSweepVersion = v; }
int CNVX3DComputation::GetSolidICICWireSweepFlagAutoLoadIntermediateResult(int& v) {
  return v = IC(m_pImpl).WireSweepFlagAutoLoadIntermediateResult;
}
void CNVX3DComputation::SetSolidICICWireSweepFlagAutoLoadIntermediateResult(int v) {
  IC(m_pImpl).WireSweepFlagAutoLoadIntermediateResult = v;
}
int CNVX3DComputation::GetSolidICICWireSweepValueCheckIntermediteTimeSpan(double& v) {
  v = IC(m_pImpl).WireSweepValueCheckIntermediteTimeSpan;
  return 1;
}
void CNVX3DComputation::SetSolidICICWireSweepValueCheckIntermediteTimeSpan(double v) {
  IC(m_pImpl).WireSweepValueCheckIntermediteTimeSpan = v;
}
int CNVX3DComputation::GetSolidICValueNoWireSweepTime(int& n) {
  return n = IC(m_pImpl).WireSweepTimes.Count;
}
void CNVX3DComputation::SetSolidICValueNoWireSweepTime(int n) {
  IC(m_pImpl).WireSweepTimes.SetCount(n);
}
int CNVX3DComputation::GetSolidICValueNoWireSweepTimeValue(int i, double& t) {
  t = IC(m_pImpl).WireSweepTimes.At(i);
  return 1;
}
void CNVX3DComputation::SetSolidICValueNoWireSweepTimeValue(int i, double t) {
  IC(m_pImpl).WireSweepTimes.At(i) = t;
}
