// NVXData: the host's description of a project, passed by value to
// CNVX3DComputation::LoadKRNFile and copied whole; and RemoteParm, one remote
// machine of the computing resources. Both are plain value types. An NVXData,
// value-initialised or default-constructed, holds 0, empty and false.
#ifndef NVX_CORE_NVXDATA_H_
#define NVX_CORE_NVXDATA_H_

#include <string>
#include <vector>

// One entry of the project's gate list.
struct NVXDataGate {
  int Id = 0;
  double X = 0.0;
  double Y = 0.0;
  double Z = 0.0;
  double Diameter = 0.0;
};

struct NVXData {
  // Leading members.
  int DataVersion = 0;
  std::string ProjectName;
  // The project's KRN file.
  std::string KRNFilePath;
  // 1 is a shell (mid-plane) model; 0, 2 and 3 are solid models.
  int ModelKind = 0;
  // The solid preset, 0 to 14; must not be negative.
  int AnalysisType = 0;
  int MeshType = 0;
  int ShotCount = 0;
  // The two advanced filling options. Shell parameter files carry the
  // long-fiber and foaming sections only when both are set, and the cooling
  // resolution stays coarse (type 0) when both are set.
  bool HasLongFiberSettings = false;
  bool HasFoamingSettings = false;
  // 0: the project's KRN file; -1: the same without the fibre values; 1 and 2:
  // defaults of the model kind; 3: leave the parameters as they are.
  int LoadMode = 0;
  // Process values.
  double MeltTemperature = 0.0;
  double MoldTemperature = 0.0;
  // Start values of the gate-freeze criteria: the freeze temperature and the
  // flow-rate ratio (at most 1).
  double EjectionTemperature = 0.0;
  double FreezeFlowRateRatio = 0.0;
  // The two fibre values copied into the long-fiber settings on a load.
  double FiberAspectRatio = 0.0;
  double FiberWeight = 0.0;
  // The three durations of the cooling reset: cooling, mold opening, mold preheat.
  double CoolingTime = 0.0;
  double MoldOpenTime = 0.0;
  double MoldPreheatTime = 0.0;
  // Set: a write clears the fibre-orientation model settings first.
  bool ClearFiberModelOnWrite = false;
  // Material and further project texts.
  std::string MaterialName;
  bool MaterialHasFiller = false;
  bool MaterialHasFiber = false;
  bool MaterialHasMineral = false;
  std::string MaterialFile;
  std::string MoldMaterialName;
  std::string CoolantName;
  int CoolantCount = 0;
  std::string ProjectDirectory;
  std::string ResultDirectory;
  std::string MeshFile;
  int ElementCount = 0;
  std::string RunnerFile;
  std::string CoolingChannelFile;
  std::string InsertFile;
  std::string PreviousShotProject;
  std::string Description;
  // Lists of numbers and of composite entries.
  std::vector<double> ProcessTimes;
  std::vector<double> ProcessPressures;
  std::vector<int> CavityIds;
  std::vector<NVXDataGate> Gates;
};

// One remote machine of the computing resources, in the order of its fields in
// files; a new entry has these defaults.
struct RemoteParm {
  std::string ValueMachineName;        // host name
  std::string ValueMachinePath;        // path on that machine
  int ValueMachineJob = 0;             // jobs given to it
  double ValueMachineWeighting = 1.0;  // its weight in the distribution
};

#endif  // NVX_CORE_NVXDATA_H_
