// ReadRSVFile and WriteRSVFile: the parameter tables of the project's RSV file.
#include <new>
#include <stdexcept>

#include "NVX3DComputation.h"
#include "NVX3DRSVExTool.h"
#include "core/NVX3DComputationImpl.h"
#include "rsv/ComputationReport.h"
#include "rsv/RSVTables.h"

using NVX3DRSVExTool::CRSVGroup;
using NVX3DRSVExTool::CRSVTool;

// Tables and report share one open of the file: opening an HDF5 file builds
// its whole metadata cache, which costs as much as writing a few tables. The
// tool counts every failed write, flush and close; its Close reports them.
bool nvx::WriteRsvFile(const std::string& path, CNVX3DComputationImpl& impl) {
  CRSVTool tool;
  if (tool.Create(path, 4, 1, 0) != 0 && tool.Open(path) != 0) return false;
  // A file that opened only for reading cannot take the tables.
  if (tool.IsReadOnly()) return false;
  CRSVGroup* group = tool.OpenGroup(1, 4);
  if (group == nullptr) {
    CRSVGroup* top = tool.OpenGroup(1);
    group = top ? tool.CreateGroup(top, "Computation") : nullptr;
    tool.CloseGroup(top);
    if (group == nullptr) {
      tool.Close();
      return false;
    }
  }
  nvx::WriteParameterTables(tool, group, impl);
  tool.CloseGroup(group);
  // Tables that did not reach the file get no report beside them.
  if (tool.FailureCount() != 0) {
    tool.Close();
    return false;
  }
  const int report = nvx::WriteComputationReport(tool, nvx::GatherReport(impl));
  return tool.Close() == 0 && report == 1;
}

namespace {

void ReadTables(const std::string& path, CNVX3DComputationImpl& impl) {
  CRSVTool tool;
  // Reading never writes: the file is opened read-only.
  if (tool.OpenReadOnly(path) != 0) return;
  if (CRSVGroup* group = tool.OpenGroup(1, 4)) {
    nvx::ReadParameterTables(tool, group, impl);
    tool.CloseGroup(group);
  }
  tool.Close();
}

}  // namespace

// Only the documented out-of-range error of a time list read with a count
// larger than its list leaves ReadRSVFile; writes emit what the lists hold, so
// no count a file gave makes WriteRSVFile throw. A file that would make the
// library run out of memory is a failed write or a read that stops where it
// failed.
bool CNVX3DComputation::WriteRSVFile() {
  if (m_pImpl == nullptr) return false;
  try {
    return nvx::WriteRsvFile(m_pImpl->rsvPath, *m_pImpl);
  } catch (const std::out_of_range&) {
    throw;
  } catch (const std::exception&) {
    return false;
  }
}

// True whenever the implementation object exists: a missing file or group
// simply changes nothing, and hosts call this without checking first.
bool CNVX3DComputation::ReadRSVFile() {
  if (m_pImpl == nullptr) return false;
  try {
    ReadTables(m_pImpl->rsvPath, *m_pImpl);
  } catch (const std::out_of_range&) {
    throw;
  } catch (const std::exception&) {
    // What was read stays; the rest of the records keep their values.
  }
  return true;
}
