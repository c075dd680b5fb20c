// The computing-resource records: task manager (<TASKMANAGER>, slot 12),
// remote machines (<REMOTE_MACHINES>, slot 13, with the RSV group
// "ValueMachineSetting" of per-machine tables) and computing manager
// (<COMPUTING_MANAGER>, slot 11). They say where an analysis runs (the local
// machine, remote machines or a computing manager) and with how many tasks.
//
// Choices of this implementation where the file formats leave room:
// - The machine list holds ValueNoMachine entries. A negative count empties
//   the list and is stored as 0. A count read from a KRN or an RSV file is
//   kept as it stands, but the list it sizes stops at kMaxRemoteMachines
//   entries, so a damaged file never allocates without bound; writers then
//   emit the machines the list holds.
// - ValueLocalHost starts as "localhost".
// - The three sections are written by the document writers' lists like any
//   other: the model-kind writer for solid models always writes them, so a new
//   project's file carries its computing resources (mode 3's included).
#ifndef NVX_SECTIONS_COMPUTING_H_
#define NVX_SECTIONS_COMPUTING_H_

#include <cstdint>
#include <string>
#include <vector>

#include "core/NVXData.h"
#include "core/SectionDef.h"

class CNVX3DComputationImpl;

// Zero-filled by the implementation object. Fields in memory order; the KRN
// writer puts flagAccelerationType third.
struct CNVX3DTaskManager {
  std::int32_t Version = 0;
  // 0 local machine, 1 remote machines, 2 computing manager.
  std::int32_t IDTaskMode = 0;
  // Kept as read or set, but never written: files get the derived task count.
  std::int32_t ValueNoTask = 0;
  std::int32_t ValueLocalNoTask = 0;
  std::int32_t ValueConsoleRedirection = 0;
  std::int32_t flagAccelerationType = 0;
};

struct CNVX3DRemoteMachines {
  std::int32_t Version = 1004;
  // The length of ValueMachineSetting, except after a file whose count
  // exceeded kMaxRemoteMachines: the list then stops there.
  std::int32_t ValueNoMachine = 1;
  std::int32_t ValueRemoteNoTask = 1;
  std::string ValueMap;
  std::string ValueShareFolderName;
  std::string ValueSharedVelmaraName = "Velmara_R12_Solid";
  std::string ValueParallelWorkingFolder;
  std::string ValueLocalHost = "localhost";
  // Two texts of the record that no file or accessor reaches.
  std::string Unused1;
  std::string Unused2;
  std::vector<RemoteParm> ValueMachineSetting = std::vector<RemoteParm>(1);
};

// Zero-filled by the implementation object.
struct CNVX3DComputingManager {
  std::int32_t Version = 0;
  std::int32_t ValueComputingManagerNoTask = 0;
};

namespace nvx {

// More remote machines than any run distributes to: bounds the machine list a
// count read from a file allocates, and what the text form takes.
inline constexpr std::int32_t kMaxRemoteMachines = 4096;

extern const SectionDef kTaskManagerSection;
extern const SectionDef kRemoteMachinesSection;
extern const SectionDef kCompManagerSection;
// The RSV group "ValueMachineSetting": one table per machine.
extern const SectionDef kMachineSettingTables;

// Resizes the machine list to max(count, 0) entries (new ones with the
// defaults of RemoteParm, surplus ones dropped from the end) and stores that
// length as ValueNoMachine.
void SetMachineCount(CNVX3DRemoteMachines& record, std::int32_t count);

// A count as a file stores it: stored as max(count, 0), and the list resized
// as above but to no more than kMaxRemoteMachines entries.
void SetMachineCountFromFile(CNVX3DRemoteMachines& record, std::int32_t count);

// The task count files carry for "ValueNoTask": the count of the way of
// running IDTaskMode chooses; 0 for any other mode or a missing record.
std::int32_t DerivedTaskCount(const CNVX3DComputationImpl& impl);

// Every computing-resource record back to its defaults.
void ResetComputing(CNVX3DComputationImpl& impl);

// Mode 3 of the implementation object: the run goes to the computing manager
// with 16 tasks.
void ApplyComputingManagerMode(CNVX3DComputationImpl& impl);

}  // namespace nvx

#endif  // NVX_SECTIONS_COMPUTING_H_
