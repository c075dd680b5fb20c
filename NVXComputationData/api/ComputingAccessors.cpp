// Accessors of the computing-resource sections (<TASKMANAGER>,
// <REMOTE_MACHINES>, <COMPUTING_MANAGER>) and the generic members that reach
// them. Only the generic members test for a missing implementation object.
#include "NVX3DComputation.h"
#include "core/NVX3DComputationImpl.h"
#include "core/Subscript.h"

namespace {
CNVX3DTaskManager& Task(CNVX3DComputationImpl* impl) { return *impl->sections.taskManager; }
CNVX3DRemoteMachines& Remote(CNVX3DComputationImpl* impl) { return *impl->sections.remoteMachines; }
CNVX3DComputingManager& Manager(CNVX3DComputationImpl* impl) {
  return *impl->sections.computingManager;
}
RemoteParm& Machine(CNVX3DComputationImpl* impl, int index) {
  return nvx::At(Remote(impl).ValueMachineSetting, index);
}
}  // namespace

// ---- Generic members ----------------------------------------------------------

int CNVX3DComputation::GetComputationMolde() { return m_pImpl ? Task(m_pImpl).IDTaskMode : 0; }
void CNVX3DComputation::SetComputationMolde(int v) {
  if (m_pImpl) Task(m_pImpl).IDTaskMode = v;
}
int CNVX3DComputation::GetLocalHostModeCPUNumber() {
  return m_pImpl ? Task(m_pImpl).ValueLocalNoTask : 0;
}
void CNVX3DComputation::SetLocalHostModeCPUNumber(int v) {
  if (m_pImpl) Task(m_pImpl).ValueLocalNoTask = v;
}
int CNVX3DComputation::GetComputingManagerCPUNumber() {
  return m_pImpl ? Manager(m_pImpl).ValueComputingManagerNoTask : 0;
}
void CNVX3DComputation::SetComputingManagerModeCPUNumber(int v) {
  if (m_pImpl) Manager(m_pImpl).ValueComputingManagerNoTask = v;
}

// ---- <TASKMANAGER> ------------------------------------------------------------

int CNVX3DComputation::GetTaskVersion(int& v) { return v = Task(m_pImpl).Version; }
void CNVX3DComputation::SetTaskVersion(int v) { Task(m_pImpl).Version = v; }
int CNVX3DComputation::GetTaskIDTaskMode(int& v) { return v = Task(m_pImpl).IDTaskMode; }
void CNVX3DComputation::SetTaskIDTaskMode(int v) { Task(m_pImpl).IDTaskMode = v; }
int CNVX3DComputation::GetTaskValueAccelerType(int& v) {
  v = Task(m_pImpl).flagAccelerationType;
  return 1;
}
void CNVX3DComputation::SetTaskValueAccelerType(int v) { Task(m_pImpl).flagAccelerationType = v; }
// Reports ValueLocalNoTask, as GetTaskValueLocalNoTask does.
int CNVX3DComputation::GetTaskValueNoTask(int& v) { return v = Task(m_pImpl).ValueLocalNoTask; }
void CNVX3DComputation::SetTaskValueNoTask(int v) { Task(m_pImpl).ValueNoTask = v; }
int CNVX3DComputation::GetTaskValueLocalNoTask(int& v) {
  return v = Task(m_pImpl).ValueLocalNoTask;
}
void CNVX3DComputation::SetTaskValueLocalNoTask(int v) { Task(m_pImpl).ValueLocalNoTask = v; }
int CNVX3DComputation::GetTaskValueConsoleRedirection(int& v) {
  return v = Task(m_pImpl).ValueConsoleRedirection;
}
void CNVX3DComputation::SetTaskValueConsoleRedirection(int v) {
  Task(m_pImpl).ValueConsoleRedirection = v;
}

// ---- <REMOTE_MACHINES> --------------------------------------------------------

int CNVX3DComputation::GetRemoteVersion(int& v) { return v = Remote(m_pImpl).Version; }
void CNVX3DComputation::SetRemoteVersion(int v) { Remote(m_pImpl).Version = v; }
int CNVX3DComputation::GetRemoteValueNoMachine(int& v) {
  return v = Remote(m_pImpl).ValueNoMachine;
}
void CNVX3DComputation::SetRemoteValueNoMachine(int v) { nvx::SetMachineCount(Remote(m_pImpl), v); }
int CNVX3DComputation::GetRemoteValueRemoteNoTask(int& v) {
  return v = Remote(m_pImpl).ValueRemoteNoTask;
}
void CNVX3DComputation::SetRemoteValueRemoteNoTask(int v) { Remote(m_pImpl).ValueRemoteNoTask = v; }
int CNVX3DComputation::GetRemoteValueMap(std::string& v) {
  v = Remote(m_pImpl).ValueMap;
  return 1;
}
void CNVX3DComputation::SetRemoteValueMap(std::string v) {
  Remote(m_pImpl).ValueMap = std::move(v);
}
int CNVX3DComputation::GetRemoteValueShareFolderName(std::string& v) {
  v = Remote(m_pImpl).ValueShareFolderName;
  return 1;
}
void CNVX3DComputation::SetRemoteValueShareFolderName(std::string v) {
  Remote(m_pImpl).ValueShareFolderName = std::move(v);
}
int CNVX3DComputation::GetRemoteValueSharedVelmaraName(std::string& v) {
  v = Remote(m_pImpl).ValueSharedVelmaraName;
  return 1;
}
void CNVX3DComputation::SetRemoteValueSharedVelmaraName(std::string v) {
  Remote(m_pImpl).ValueSharedVelmaraName = std::move(v);
}
int CNVX3DComputation::GetRemoteValueParallelWorkingFolder(std::string& v) {
  v = Remote(m_pImpl).ValueParallelWorkingFolder;
  return 1;
}
void CNVX3DComputation::SetRemoteValueParallelWorkingFolder(std::string v) {
  Remote(m_pImpl).ValueParallelWorkingFolder = std::move(v);
}
int CNVX3DComputation::GetRemoteValueLocalHost(std::string& v) {
  v = Remote(m_pImpl).ValueLocalHost;
  return 1;
}
void CNVX3DComputation::SetRemoteValueLocalHost(std::string v) {
  Remote(m_pImpl).ValueLocalHost = std::move(v);
}
int CNVX3DComputation::GetRemoteValueMachineSetting(int i, RemoteParm& v) {
  v = Machine(m_pImpl, i);
  return 1;
}
void CNVX3DComputation::SetRemoteValueMachineSetting(int i, RemoteParm v) {
  Machine(m_pImpl, i) = std::move(v);
}
int CNVX3DComputation::GetRemoteValueMachineWeighting(int i, double& v) {
  v = Machine(m_pImpl, i).ValueMachineWeighting;
  return 1;
}
void CNVX3DComputation::SetRemoteValueMachineWeighting(int i, double v) {
  Machine(m_pImpl, i).ValueMachineWeighting = v;
}

// ---- <COMPUTING_MANAGER> ------------------------------------------------------

int CNVX3DComputation::GetCpmoutingVersion(int& v) { return v = Manager(m_pImpl).Version; }
void CNVX3DComputation::SetCpmoutingVersion(int v) { Manager(m_pImpl).Version = v; }
int CNVX3DComputation::GetCpmoutingValueComputingManagerNoTask(int& v) {
  return v = Manager(m_pImpl).ValueComputingManagerNoTask;
}
void CNVX3DComputation::SetCpmoutingValueComputingManagerNoTask(int v) {
  Manager(m_pImpl).ValueComputingManagerNoTask = v;
}
