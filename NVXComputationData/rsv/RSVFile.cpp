// ReadRSVFile and WriteRSVFile: the parameter tables of the project's RSV file.
#include "NVX3DComputation.h"
#include "NVX3DRSVExTool.h"
#include "core/NVX3DComputationImpl.h"
#include "rsv/ComputationReport.h"
#include "rsv/RSVTables.h"

using NVX3DRSVExTool::CRSVGroup;
using NVX3DRSVExTool::CRSVTool;

bool CNVX3DComputation::WriteRSVFile() {
  if (m_pImpl == nullptr) return false;
  const std::string& path = m_pImpl->rsvPath;
  CRSVTool tool;
  if (tool.Create(path, 4, 1, 0) != 0 && tool.Open(path) != 0) return false;
  // A file that opened only for reading cannot take the tables.
  if (tool.IsReadOnly()) return false;
  CRSVGroup* group = tool.OpenGroup(1, 4);
  if (group == nullptr) {
    CRSVGroup* top = tool.OpenGroup(1);
    group = top ? tool.CreateGroup(top, "Computation") : nullptr;
    tool.CloseGroup(top);
    if (group == nullptr) return false;
  }
  nvx::WriteParameterTables(tool, group, *m_pImpl);
  tool.CloseGroup(group);
  tool.Close();
  // The computation report goes into the same file; its result is the call's.
  return nvx::WriteComputationReport(path, nvx::GatherReport(*m_pImpl)) == 1;
}

// True whenever the implementation object exists: a missing file or group
// simply changes nothing, and hosts call this without checking first.
bool CNVX3DComputation::ReadRSVFile() {
  if (m_pImpl == nullptr) return false;
  CRSVTool tool;
  if (tool.Open(m_pImpl->rsvPath) == 0) {
    if (CRSVGroup* group = tool.OpenGroup(1, 4)) {
      nvx::ReadParameterTables(tool, group, *m_pImpl);
      tool.CloseGroup(group);
    }
    tool.Close();
  }
  return true;
}
