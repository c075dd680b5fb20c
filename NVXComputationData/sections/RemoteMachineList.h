// The remote machine list of <REMOTE_MACHINES>: its KRN rows, its RSV group of
// per-machine tables, and the text form the command-line tool shows and takes.
#ifndef NVX_SECTIONS_REMOTEMACHINELIST_H_
#define NVX_SECTIONS_REMOTEMACHINELIST_H_

#include "core/CustomKey.h"
#include "core/SectionDef.h"

namespace nvx {

// "ValueNoMachine": the machine count; reading or setting it resizes the list
// (a count read from a file to no more than kMaxRemoteMachines entries).
// Text form: a whole number from 0 to kMaxRemoteMachines.
extern const CustomOps kMachineCountOps;

// "ValueMachineSetting": the header line and one row per machine. Text form of
// the whole list (fields in RemoteParm order, blanks around fields ignored):
//   "0" for no machine, else "N: name|path|job|weight; name|path|job|weight"
// with N entries. A name holds no tab, "|" or ";"; a path no blank, "=", "|"
// or ";", since the KRN row could not keep them.
extern const CustomOps kMachineRowsOps;

// "ValueMachineWeighting": the header line and one weight row per machine.
// Not reachable as text: the weights are part of ValueMachineSetting's form.
extern const CustomOps kMachineWeightsOps;

// "ValueParallelWorkingFolder": a text read up to the next "=", blanks kept.
extern const CustomOps kParallelFolderOps;

// The group "ValueMachineSetting" with the tables "ValueMachine-0",
// "ValueMachine-1", ... (items "ValueMachineName", "ValueMachinePath",
// "ValueMachineJob", "ValueMachineWeighting"), one per machine below the count
// that the list holds. Tables of higher indices are left as they are; a
// missing group or table leaves its entries unchanged.
void WriteMachineTables(NVX3DRSVExTool::CRSVTool& tool, NVX3DRSVExTool::CRSVGroup* group,
                        CNVX3DComputationImpl& impl);
void ReadMachineTables(NVX3DRSVExTool::CRSVTool& tool, NVX3DRSVExTool::CRSVGroup* group,
                       CNVX3DComputationImpl& impl);

}  // namespace nvx

#endif  // NVX_SECTIONS_REMOTEMACHINELIST_H_
