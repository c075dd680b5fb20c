// Accessors of the <SUMMARY> section. Section accessors do not test for a
// missing implementation object.
#include "NVX3DComputation.h"
#include "core/NVX3DComputationImpl.h"

namespace {
CNVX3DSummary& Summary(CNVX3DComputationImpl* impl) { return *impl->sections.summary; }
}  // namespace

int CNVX3DComputation::GetSummaryFile(std::wstring& v) {
  v = Summary(m_pImpl).File;
  return 1;
}
void CNVX3DComputation::SetSummaryFile(std::wstring v) { Summary(m_pImpl).File = v; }
int CNVX3DComputation::GetSummaryVersion(int& v) { return v = Summary(m_pImpl).Version; }
void CNVX3DComputation::SetSummaryVersion(int v) { Summary(m_pImpl).Version = v; }
int CNVX3DComputation::GetSummaryCreater(std::string& v) {
  v = Summary(m_pImpl).Creater;
  return 1;
}
void CNVX3DComputation::SetSummaryCreater(std::string v) { Summary(m_pImpl).Creater = v; }
int CNVX3DComputation::GetSummaryTime(std::string& v) {
  v = Summary(m_pImpl).Time;
  return 1;
}
void CNVX3DComputation::SetSummaryTime(std::string v) { Summary(m_pImpl).Time = v; }
int CNVX3DComputation::GetSummaryFlag3D(bool& v) {
  v = Summary(m_pImpl).Flag3D;
  return 1;
}
void CNVX3DComputation::SetSummaryFlag3D(bool v) { Summary(m_pImpl).Flag3D = v; }
int CNVX3DComputation::GetSummaryFlagFill(bool& v) {
  v = Summary(m_pImpl).FlagFill;
  return 1;
}
void CNVX3DComputation::SetSummaryFlagFill(bool v) { Summary(m_pImpl).FlagFill = v; }
int CNVX3DComputation::GetSummaryFlagHRSteady(bool& v) {
  v = Summary(m_pImpl).FlagHRSteady;
  return 1;
}
void CNVX3DComputation::SetSummaryFlagHRSteady(bool v) { Summary(m_pImpl).FlagHRSteady = v; }
int CNVX3DComputation::GetSummaryFlagPack(bool& v) {
  v = Summary(m_pImpl).FlagPack;
  return 1;
}
void CNVX3DComputation::SetSummaryFlagPack(bool v) { Summary(m_pImpl).FlagPack = v; }
int CNVX3DComputation::GetSummaryFlagCool(bool& v) {
  v = Summary(m_pImpl).FlagCool;
  return 1;
}
void CNVX3DComputation::SetSummaryFlagCool(bool v) { Summary(m_pImpl).FlagCool = v; }
int CNVX3DComputation::GetSummaryFlagWarp(bool& v) {
  v = Summary(m_pImpl).FlagWarp;
  return 1;
}
void CNVX3DComputation::SetSummaryFlagWarp(bool v) { Summary(m_pImpl).FlagWarp = v; }
int CNVX3DComputation::GetSummaryFlagOptic(bool& v) {
  v = Summary(m_pImpl).FlagOptic;
  return 1;
}
void CNVX3DComputation::SetSummaryFlagOptic(bool v) { Summary(m_pImpl).FlagOptic = v; }
int CNVX3DComputation::GetSummaryFlagICPackage(bool& v) {
  v = Summary(m_pImpl).FlagICPackage;
  return 1;
}
void CNVX3DComputation::SetSummaryFlagICPackage(bool v) { Summary(m_pImpl).FlagICPackage = v; }
int CNVX3DComputation::GetSummaryFlagMCM(bool& v) {
  v = Summary(m_pImpl).FlagMCM;
  return 1;
}
void CNVX3DComputation::SetSummaryFlagMCM(bool v) { Summary(m_pImpl).FlagMCM = v; }
int CNVX3DComputation::GetSummaryFlagStress(bool& v) {
  v = Summary(m_pImpl).FlagStress;
  return 1;
}
void CNVX3DComputation::SetSummaryFlagStress(bool v) { Summary(m_pImpl).FlagStress = v; }
int CNVX3DComputation::GetSummaryFlagTaskManager(bool& v) {
  v = Summary(m_pImpl).FlagTaskManager;
  return 1;
}
void CNVX3DComputation::SetSummaryFlagTaskManager(bool v) { Summary(m_pImpl).FlagTaskManager = v; }
