// The computation report, written into the RSV file beside the parameter
// tables: rows of (ID, text) describing the analysis sequence and the
// computing resources, one row per remote machine, and the "Computation"
// attribute naming the parameter file.
//
// Layout: every row is a packed 132-byte record, a 32-bit "ID" followed by a
// NUL-terminated 128-byte "Value". Under the report's top group (group 1, 7):
//   Sequence/Result0       41 x 1 rows, IDs 0 to 37 (38 to 40 zero-filled)
//   TaskManager/Result0     4 x 1 rows, IDs 0 to 3
//   TaskManager/Result<i>   1 x 1 row per remote machine i = 1..N, ID 0
// and the attribute "Computation" on group 1.
#ifndef NVX_RSV_COMPUTATIONREPORT_H_
#define NVX_RSV_COMPUTATIONREPORT_H_

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

class CNVX3DComputationImpl;
namespace NVX3DRSVExTool {
class CRSVTool;
}

namespace nvx {

inline constexpr std::size_t kReportRowSize = 132;
inline constexpr std::size_t kSequenceRows = 41;
inline constexpr std::size_t kSequenceTexts = 38;
inline constexpr std::size_t kTaskManagerRows = 4;

// What the report shows, as texts before formatting.
struct ReportContent {
  std::vector<std::string> sequence;     // IDs 0 to 37
  std::vector<std::string> taskManager;  // IDs 0 to 3
  int machineCount = 0;                  // the remote machines' count
  // The name of machine i (1-based); throws std::out_of_range beyond the list,
  // after the rows before it have been written.
  std::function<std::string(int)> machineName;
  std::string computation;  // the parameter file, narrow
};

// Gathers the texts of the report from the records.
ReportContent GatherReport(const CNVX3DComputationImpl& impl);

// Writes the report into the RSV file `path`. Returns 1 when the file could be
// reached, 0 when it could not or the row type could not be made. A writer
// that fails shows its message box and the report goes on with the next.
int WriteComputationReport(const std::string& path, const ReportContent& content);

// The same into the file `tool` holds open for writing; the tool stays open.
int WriteComputationReport(NVX3DRSVExTool::CRSVTool& tool, const ReportContent& content);

}  // namespace nvx

#endif  // NVX_RSV_COMPUTATIONREPORT_H_
