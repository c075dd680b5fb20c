// Accessors of the multi-component molding section (<SOLID_MCM>).
#include <utility>

#include "NVX3DComputation.h"
#include "core/NVX3DComputationImpl.h"

namespace {
CNVX3DSolidMCM& MCM(CNVX3DComputationImpl* impl) { return *impl->sections.mcm; }
}  // namespace

int CNVX3DComputation::GetSolidMCMVersion(int& v) { return v = MCM(m_pImpl).Version; }
void CNVX3DComputation::SetSolidMCMVersion(int v) { MCM(m_pImpl).Version = v; }
int CNVX3DComputation::GetSolidMCMFlagPrevShot(bool& v) {
  v = MCM(m_pImpl).FlagPrevShot;
  return 1;
}
void CNVX3DComputation::SetSolidMCMFlagPrevShot(bool v) { MCM(m_pImpl).FlagPrevShot = v; }
int CNVX3DComputation::GetSolidMCMValueShotRunID(int& v) { return v = MCM(m_pImpl).ValueShotRunID; }
void CNVX3DComputation::SetSolidMCMValueShotRunID(int v) { MCM(m_pImpl).ValueShotRunID = v; }
int CNVX3DComputation::GetSolidMCMValueShotProject(bool& v) {
  v = MCM(m_pImpl).FlagPrevShotProject;
  return 1;
}
void CNVX3DComputation::SetSolidMCMValueShotProject(bool v) {
  MCM(m_pImpl).FlagPrevShotProject = v;
}
int CNVX3DComputation::GetSolidMCMValueShotProjectPath(std::string& v) {
  v = MCM(m_pImpl).ValueShotProjectPath;
  return 1;
}
void CNVX3DComputation::SetSolidMCMValueShotProjectPath(std::string v) {
  MCM(m_pImpl).ValueShotProjectPath = std::move(v);
}
int CNVX3DComputation::GetSolidMCMValueShotProjectName(std::string& v) {
  v = MCM(m_pImpl).ValueShotProjectName;
  return 1;
}
void CNVX3DComputation::SetSolidMCMValueShotProjectName(std::string v) {
  MCM(m_pImpl).ValueShotProjectName = std::move(v);
}
