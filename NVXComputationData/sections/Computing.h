// The computing-resource records: task manager (<TASKMANAGER>), remote
// machines (<REMOTE_MACHINES>, RSV group "ValueMachineSetting") and computing
// manager (<COMPUTING_MANAGER>). Their fields are still to come.
#ifndef NVX_SECTIONS_COMPUTING_H_
#define NVX_SECTIONS_COMPUTING_H_

#include <cstdint>

struct CNVX3DTaskManager {};
struct CNVX3DRemoteMachines {};
struct CNVX3DComputingManager {};

#endif  // NVX_SECTIONS_COMPUTING_H_
