// Keys of <TASKMANAGER>, <REMOTE_MACHINES> and <COMPUTING_MANAGER>, the task
// count derived for "ValueNoTask", the shared section writer, the reset and
// the mode-3 adjustment. The machine list's own lines and tables live in
// RemoteMachineList.cpp.
#include "sections/Computing.h"

#include <algorithm>
#include <string>

#include "NVX3DRSVExTool.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNLine.h"
#include "krn/KRNSectionIO.h"
#include "krn/KRNStream.h"
#include "sections/RemoteMachineList.h"

namespace nvx {
namespace {

// ---- Deliberate oddities of these sections ----------------------------------
//
// DerivedNoTask: "ValueNoTask" is read into its field (KRN and RSV) but both
//   writers put the derived task count in its place; the field never reaches a
//   file. nvxparam shows the derived count and refuses to set it.
//
// TrailingEmptyLine: each of the three sections is followed by an empty line.
//   Which writers emit them is the document writers' business: the
//   section-present and template writers when the document held them, the
//   model-kind writer for solid models always.
//
// "flagAccelerationType" begins with a lower-case letter, unlike its
//   neighbours, and is written third although it is the last field in memory.
//
// <REMOTE_MACHINES> puts no blanks around "=" ("Version=", "ValueNoMachine=",
//   ...), except "ValueMap= " with one blank after it and the weight header
//   "ValueMachineWeighting = "; the other two sections use " = " throughout.
//
// ParallelFolderOps: "ValueParallelWorkingFolder" is read up to the next "=",
//   so blanks inside it survive; every other text value ends at a blank.
//
// <COMPUTING_MANAGER> switches the stream to fixed notation, precision 5,
//   without clearing scientific notation, and never switches back.

// ---- DerivedNoTask ----------------------------------------------------------

CNVX3DComputationImpl& ImplOf(const Key& key) { return key.As<CNVX3DComputationImpl>(); }

void WriteDerivedNoTaskKrn(const Key& key, KrnStream& out) {
  out.Text(key.name).Text(" = ").Int(DerivedTaskCount(ImplOf(key))).EndLine();
}

std::size_t ReadNoTaskKrn(const Key& key, std::string_view, std::string_view value,
                          const std::string*, const std::string*) {
  ImplOf(key).sections.taskManager->ValueNoTask = ParseInt(value);
  return 0;
}

void SetDerivedNoTaskItem(const Key& key, NVX3DRSVExTool::CRSVTable& table) {
  table.SetItem(key.name, static_cast<int>(DerivedTaskCount(ImplOf(key))));
}

void GetNoTaskItem(const Key& key, NVX3DRSVExTool::CRSVTable& table, RsvScratch& scratch) {
  table.GetItem(key.name, &scratch.i);
  ImplOf(key).sections.taskManager->ValueNoTask = scratch.i;
}

std::string FormatDerivedNoTask(const Key& key) {
  return std::to_string(DerivedTaskCount(ImplOf(key)));
}

bool RefuseNoTask(const Key&, const std::string&, std::string* error) {
  *error =
      "ValueNoTask is written from the task count of IDTaskMode's way of running; set "
      "TASKMANAGER.ValueLocalNoTask, REMOTE_MACHINES.ValueRemoteNoTask or "
      "COMPUTING_MANAGER.ValueComputingManagerNoTask instead";
  return false;
}

constexpr CustomOps MakeDerivedNoTaskOps() {
  CustomOps ops;
  ops.writeKrn = WriteDerivedNoTaskKrn;
  ops.readKrn = ReadNoTaskKrn;
  ops.setItems = SetDerivedNoTaskItem;
  ops.getItems = GetNoTaskItem;
  ops.format = FormatDerivedNoTask;
  ops.parse = RefuseNoTask;
  return ops;
}
constexpr CustomOps kDerivedNoTaskOps = MakeDerivedNoTaskOps();

void FixedPrecision5(KrnStream& out) {
  out.FixedKeepScientific();
  out.Precision(5);
}

// ---- Key tables ---------------------------------------------------------------

KeyList TaskManagerKeys(CNVX3DComputationImpl& impl) {
  CNVX3DTaskManager& r = *impl.sections.taskManager;
  return {
      Field("Version", r.Version),
      Field("IDTaskMode", r.IDTaskMode),
      Field("flagAccelerationType", r.flagAccelerationType),
      Custom("ValueNoTask", &impl, kDerivedNoTaskOps),
      Field("ValueLocalNoTask", r.ValueLocalNoTask),
      Field("ValueConsoleRedirection", r.ValueConsoleRedirection),
  };
}

KeyList RemoteMachinesKeys(CNVX3DComputationImpl& impl) {
  CNVX3DRemoteMachines& r = *impl.sections.remoteMachines;
  return {
      Field("Version", r.Version).Sep("="),
      Custom("ValueNoMachine", &r, kMachineCountOps),
      Field("ValueRemoteNoTask", r.ValueRemoteNoTask).Sep("="),
      Field("ValueMap", r.ValueMap).Sep("= "),
      Field("ValueShareFolderName", r.ValueShareFolderName).Sep("="),
      Field("ValueSharedVelmaraName", r.ValueSharedVelmaraName).Sep("="),
      Custom("ValueParallelWorkingFolder", &r.ValueParallelWorkingFolder, kParallelFolderOps),
      Field("ValueLocalHost", r.ValueLocalHost).Sep("="),
      // KRN only: the RSV file keeps the machines in per-machine tables.
      Custom("ValueMachineSetting", &r, kMachineRowsOps).Use(kKrn),
      Custom("ValueMachineWeighting", &r, kMachineWeightsOps).Use(kKrn),
  };
}

KeyList ComputingManagerKeys(CNVX3DComputationImpl& impl) {
  CNVX3DComputingManager& r = *impl.sections.computingManager;
  return {
      Field("Version", r.Version),
      Field("ValueComputingManagerNoTask", r.ValueComputingManagerNoTask),
  };
}

KeyList NoKeys(CNVX3DComputationImpl&) { return {}; }

}  // namespace

const SectionDef kTaskManagerSection{
    KrnTag::kTaskManager,     "TASKMANAGER", TaskManagerKeys, nullptr, nullptr, nullptr,
    WriteKrnKeysThenEmptyLine};
const SectionDef kRemoteMachinesSection{
    KrnTag::kRemoteMachines,  "REMOTE_MACHINES", RemoteMachinesKeys, nullptr, nullptr, nullptr,
    WriteKrnKeysThenEmptyLine};
const SectionDef kCompManagerSection{KrnTag::kComputingManager,
                                     "COMPUTING_MANAGER",
                                     ComputingManagerKeys,
                                     FixedPrecision5,
                                     nullptr,
                                     nullptr,
                                     WriteKrnKeysThenEmptyLine};
const SectionDef kMachineSettingTables{
    KrnTag::kRemoteMachines, "ValueMachineSetting", NoKeys, nullptr,
    WriteMachineTables,      ReadMachineTables};

void SetMachineCount(CNVX3DRemoteMachines& record, std::int32_t count) {
  const std::int32_t length = std::max<std::int32_t>(count, 0);
  record.ValueMachineSetting.resize(static_cast<std::size_t>(length));
  record.ValueNoMachine = length;
}

void SetMachineCountFromFile(CNVX3DRemoteMachines& record, std::int32_t count) {
  const std::int32_t length = std::max<std::int32_t>(count, 0);
  record.ValueMachineSetting.resize(static_cast<std::size_t>(std::min(length, kMaxRemoteMachines)));
  record.ValueNoMachine = length;
}

std::int32_t DerivedTaskCount(const CNVX3DComputationImpl& impl) {
  const CNVX3DTaskManager* task = impl.sections.taskManager.get();
  const CNVX3DRemoteMachines* remote = impl.sections.remoteMachines.get();
  const CNVX3DComputingManager* manager = impl.sections.computingManager.get();
  if (task == nullptr || remote == nullptr || manager == nullptr) return 0;
  switch (task->IDTaskMode) {
    case 0:
      return task->ValueLocalNoTask;
    case 1:
      return remote->ValueRemoteNoTask;
    case 2:
      return manager->ValueComputingManagerNoTask;
    default:
      return 0;
  }
}

void ResetComputing(CNVX3DComputationImpl& impl) {
  if (impl.sections.taskManager) *impl.sections.taskManager = CNVX3DTaskManager();
  if (impl.sections.remoteMachines) *impl.sections.remoteMachines = CNVX3DRemoteMachines();
  if (impl.sections.computingManager) *impl.sections.computingManager = CNVX3DComputingManager();
}

void ApplyComputingManagerMode(CNVX3DComputationImpl& impl) {
  if (impl.sections.taskManager) impl.sections.taskManager->IDTaskMode = 2;
  if (impl.sections.computingManager) {
    impl.sections.computingManager->ValueComputingManagerNoTask = 16;
  }
}

}  // namespace nvx
