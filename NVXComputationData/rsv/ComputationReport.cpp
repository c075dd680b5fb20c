// Writing the computation report's groups, rows and attribute.
#include "rsv/ComputationReport.h"

#include <cstdint>
#include <cstring>

#include "NVX3DRSVExTool.h"
#include "NVXPlatform.h"
#include "rsv/ReportText.h"

using NVX3DRSVExTool::CRSVArray;
using NVX3DRSVExTool::CRSVGroup;
using NVX3DRSVExTool::CRSVTool;

namespace nvx {
namespace {

// The group names carry their trailing separator; they are kept as text the
// viewer's side knows. The other names of that family are defined beside them
// for the viewer's other pages; the report itself does not use them.
char kSequenceGroup[] = "Sequence/";
char kTaskManagerGroup[] = "TaskManager/";
[[maybe_unused]] char kMaterialGroup[] = "Material/";
[[maybe_unused]] char kCoolingChannelGroup[] = "CoolingChannel/";
[[maybe_unused]] char kHeatingRodGroup[] = "HeatingRod/";
[[maybe_unused]] char kMoldMetalGroup[] = "MoldMetal/";
[[maybe_unused]] char kProcessGroup[] = "Process/";

constexpr char kCaption[] = "Computer Parameter";
// The messages are shown to users exactly so ("Manger" included).
constexpr char kSequenceFail[] = "Set Sequence Result0 Fail";
constexpr char kTaskManagerFail[] = "Set Task Manger Result0 Fail";
constexpr char kMachinesFail[] = "Set Task Manger Result1 Fail";
constexpr char kAttributeFail[] = "Set Attribute Fail";

constexpr int kIdType = 3;  // 32-bit signed integer
constexpr std::size_t kValueOffset = 4;

// Rows of IDs 0.. for `texts`, then zero-filled rows up to `rows`.
std::vector<unsigned char> Rows(const std::vector<std::string>& texts, std::size_t rows) {
  std::vector<unsigned char> buffer(rows * kReportRowSize, 0);
  for (std::size_t i = 0; i < texts.size() && i < rows; ++i) {
    unsigned char* row = buffer.data() + i * kReportRowSize;
    const std::int32_t id = static_cast<std::int32_t>(i);
    std::memcpy(row, &id, sizeof id);
    const std::string value = FormatRecordText(texts[i]);
    std::memcpy(row + kValueOffset, value.data(), value.size());
  }
  return buffer;
}

// Writes `buffer` as array `name` (rows x 1) in the child `groupName` of
// `top`, opening or creating both; an existing array of another row count is
// resized first. False when the group or the array cannot be had or written.
bool WriteRows(CRSVTool& tool, CRSVGroup* top, const char* groupName, const std::string& name,
               int rowType, const std::vector<unsigned char>& buffer, std::uint64_t rows) {
  CRSVGroup* group = tool.OpenGroup(top, groupName);
  if (group == nullptr) group = tool.CreateGroup(top, groupName);
  if (group == nullptr) return false;
  bool ok = false;
  CRSVArray* array = tool.OpenArray(group, name);
  if (array != nullptr) {
    std::uint64_t have = 0, cols = 0;
    ok = array->GetDimension(&have, &cols) == 0 &&
         (have == rows || array->ResetDimension(rows, 1) == 0);
  } else {
    array = tool.CreateArray(group, name, rowType, rows, 1);
    ok = array != nullptr;
  }
  if (ok) ok = array->WriteArray(buffer.data()) == 0;
  tool.CloseArray(array);
  tool.CloseGroup(group);
  return ok;
}

void Report(bool ok, const char* message) {
  if (!ok) platform::ShowMessageBox(message, kCaption);
}

}  // namespace

int WriteComputationReport(CRSVTool& tool, const ReportContent& content) {
  CRSVGroup* top = tool.OpenGroup(1, 7);
  if (top == nullptr) return 1;
  const int rowType = tool.BeginCreateCompoundDataType(kReportRowSize);
  if (rowType < 0) return 0;
  tool.AddCompoundDataTypeMember("ID", kIdType, 0);
  tool.AddCompoundDataTypeFixedLengthStringMember("Value", kValueOffset, kReportTextSize);
  if (tool.EndCreateCompoundDataType() != 0) return 0;

  Report(WriteRows(tool, top, kSequenceGroup, "Result0", rowType,
                   Rows(content.sequence, kSequenceRows), kSequenceRows),
         kSequenceFail);
  Report(WriteRows(tool, top, kTaskManagerGroup, "Result0", rowType,
                   Rows(content.taskManager, kTaskManagerRows), kTaskManagerRows),
         kTaskManagerFail);
  for (int i = 1; i <= content.machineCount; ++i) {
    // The row of machine i has ID 0.
    const std::vector<unsigned char> row = Rows({content.machineName(i)}, 1);
    Report(WriteRows(tool, top, kTaskManagerGroup, "Result" + std::to_string(i), rowType, row, 1),
           kMachinesFail);
  }

  CRSVGroup* attributeGroup = tool.OpenGroup(1);
  Report(attributeGroup != nullptr &&
             tool.WriteAttribute(attributeGroup, "Computation", content.computation) == 0,
         kAttributeFail);
  tool.CloseGroup(attributeGroup);
  tool.CloseGroup(top);
  return 1;
}

int WriteComputationReport(const std::string& path, const ReportContent& content) {
  CRSVTool tool;
  if (tool.Create(path, 4, 1, 0) != 0 && tool.Open(path) != 0) return 0;
  const int result = WriteComputationReport(tool, content);
  tool.Close();
  return result;
}

}  // namespace nvx
