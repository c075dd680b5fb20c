// The parameter tables of the RSV file: their write and read orders, and the
// generic table writer and reader that walk a section's key list.
#ifndef NVX_RSV_RSVTABLES_H_
#define NVX_RSV_RSVTABLES_H_

#include <string>

#include "NVX3DRSVExTool.h"
#include "core/SectionDef.h"

namespace nvx {

// The time-step arrays lie in the group kTimeStepGroup (core/OutputTimes.h)
// beside the tables.

// Writes every table in the write order into the parameter group.
void WriteParameterTables(NVX3DRSVExTool::CRSVTool& tool, NVX3DRSVExTool::CRSVGroup* group,
                          CNVX3DComputationImpl& impl);
// Reads every table in the read order; tables missing from the file are
// skipped and leave their records.
void ReadParameterTables(NVX3DRSVExTool::CRSVTool& tool, NVX3DRSVExTool::CRSVGroup* group,
                         CNVX3DComputationImpl& impl);

// One section's table (opened, or created when missing; skipped when neither
// works), then its time-step arrays.
void WriteSectionTable(NVX3DRSVExTool::CRSVTool& tool, NVX3DRSVExTool::CRSVGroup* group,
                       const SectionDef& def, CNVX3DComputationImpl& impl);

// One section's table. Items are read through one scratch value per type,
// zeroed when the table is opened and never reset between items, and stored
// whether or not the item was there: an item missing from the file takes the
// value of the item of the same type read before it (or zero).
//
// Time-step arrays are read with the count already in memory, never resizing
// the list: the array's first values (row by row, whatever its width) are
// copied into the existing list by index, 0.0 past what the array holds, and
// an index past the list's end throws std::out_of_range.
void ReadSectionTable(NVX3DRSVExTool::CRSVTool& tool, NVX3DRSVExTool::CRSVGroup* group,
                      const SectionDef& def, CNVX3DComputationImpl& impl);

// Sizes every output-time block of `def` to the count stored in its open
// `table`, as the KRN file read before an RSV read normally does: the count is
// kept as stored and the list holds that many times of 0.0 (at most
// kMaxOutputTimes), since the time arrays are read with the count in memory.
// For readers of an RSV file on its own.
void SizeTimesFromTable(const SectionDef& def, NVX3DRSVExTool::CRSVTable& table,
                        CNVX3DComputationImpl& impl);

// The parameter tables, then the computation report, into the RSV file `path`
// (created when missing). False when the file cannot be had, when a table
// write failed (the report is then left out), or when any write of tables or
// report, the flush or the close failed; a failed report row has shown its
// message box as well.
bool WriteRsvFile(const std::string& path, CNVX3DComputationImpl& impl);

}  // namespace nvx

#endif  // NVX_RSV_RSVTABLES_H_
