// The computation report in a real RSV file, read back through the HDF5 C API:
// row records, sizes, order, texts, resizing, and the failure messages.
#include <gtest/gtest.h>
#include <hdf5.h>

#include <cstring>
#include <string>
#include <vector>

#include "NVX3DRSVExTool.h"
#include "NVXHostHooks.h"
#include "TestUtil.h"
#include "rsv/ComputationReport.h"

using namespace nvx;

namespace {

struct Row {
  int id;
  std::string value;
};

// The rows of a report array, checking the record layout on the way.
std::vector<Row> ReadRows(const std::string& file, const std::string& path) {
  std::vector<Row> rows;
  hid_t f = H5Fopen(file.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
  hid_t d = H5Dopen2(f, path.c_str(), H5P_DEFAULT);
  hid_t type = H5Dget_type(d);
  hid_t space = H5Dget_space(d);
  hsize_t dims[2] = {0, 0};
  EXPECT_EQ(H5Sget_simple_extent_ndims(space), 2);
  H5Sget_simple_extent_dims(space, dims, nullptr);
  EXPECT_EQ(dims[1], 1u);
  EXPECT_EQ(H5Tget_size(type), kReportRowSize);
  EXPECT_EQ(H5Tget_member_offset(type, 0), 0u);
  EXPECT_EQ(H5Tget_member_offset(type, 1), 4u);
  std::vector<unsigned char> buffer(dims[0] * kReportRowSize);
  EXPECT_GE(H5Dread(d, type, H5S_ALL, H5S_ALL, H5P_DEFAULT, buffer.data()), 0);
  for (hsize_t i = 0; i < dims[0]; ++i) {
    const unsigned char* r = buffer.data() + i * kReportRowSize;
    Row row;
    std::memcpy(&row.id, r, 4);
    row.value.assign(reinterpret_cast<const char*>(r + 4),
                     strnlen(reinterpret_cast<const char*>(r + 4), 128));
    rows.push_back(row);
  }
  H5Sclose(space);
  H5Tclose(type);
  H5Dclose(d);
  H5Fclose(f);
  return rows;
}

std::vector<std::string> g_messages;
void CollectMessage(const char* text, const char* caption) {
  g_messages.push_back(std::string(caption) + ": " + text);
}

ReportContent Content(int machines) {
  ReportContent c;
  for (int i = 0; i < 38; ++i) c.sequence.push_back("s" + std::to_string(i));
  c.taskManager = {"Yes", "host%%1", "8", "%s%n"};
  c.machineCount = machines;
  c.machineName = [](int i) {
    static const std::vector<std::string> names = {"alpha", "beta%d"};
    return names.at(static_cast<std::size_t>(i - 1));
  };
  c.computation = "C:\\part.krn";
  return c;
}

const char kTop[] = "/Project/ComputationReport/";

}  // namespace

TEST(ComputationReport, WritesRowsAndAttribute) {
  nvxtest::TempDir dir;
  const std::string file = dir.File("p.rsv");
  ASSERT_EQ(WriteComputationReport(file, Content(2)), 1);

  const std::vector<Row> sequence = ReadRows(file, std::string(kTop) + "Sequence/Result0");
  ASSERT_EQ(sequence.size(), 41u);
  for (int i = 0; i < 38; ++i) {
    EXPECT_EQ(sequence[i].id, i);
    EXPECT_EQ(sequence[i].value, "s" + std::to_string(i));
  }
  for (int i = 38; i < 41; ++i) EXPECT_EQ(sequence[i].value, "");  // reserved rows

  const std::vector<Row> tasks = ReadRows(file, std::string(kTop) + "TaskManager/Result0");
  ASSERT_EQ(tasks.size(), 4u);
  EXPECT_EQ(tasks[1].value, "host%1");
  EXPECT_EQ(tasks[3].value, "%s%n");
  const std::vector<Row> second = ReadRows(file, std::string(kTop) + "TaskManager/Result2");
  ASSERT_EQ(second.size(), 1u);
  EXPECT_EQ(second[0].id, 0);
  EXPECT_EQ(second[0].value, "beta%d");

  NVX3DRSVExTool::CRSVTool tool;
  ASSERT_EQ(tool.Open(file), 0);
  std::string attribute;
  EXPECT_TRUE(tool.ReadAttribute(tool.OpenGroup(1), "Computation", &attribute));
  EXPECT_EQ(attribute, "C:\\part.krn");
}

TEST(ComputationReport, ResizesExistingArraysAndSkipsMissingMachines) {
  nvxtest::TempDir dir;
  const std::string file = dir.File("p.rsv");
  {
    NVX3DRSVExTool::CRSVTool tool;
    ASSERT_EQ(tool.Create(file, 4, 1, 0), 0);
    auto* sequence = tool.CreateGroup(tool.OpenGroup(1, 7), "Sequence");
    ASSERT_NE(tool.CreateArray(sequence, "Result0", NVX3DRSVExTool::kRSVTypeInt32, 7, 1), nullptr);
  }
  // The existing 7-row int array is resized to 41 rows; no machine, no Result1.
  ASSERT_EQ(WriteComputationReport(file, Content(0)), 1);
  hid_t f = H5Fopen(file.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
  hid_t d = H5Dopen2(f, "/Project/ComputationReport/Sequence/Result0", H5P_DEFAULT);
  hid_t space = H5Dget_space(d);
  hsize_t dims[2] = {0, 0};
  H5Sget_simple_extent_dims(space, dims, nullptr);
  EXPECT_EQ(dims[0], 41u);
  EXPECT_EQ(H5Lexists(f, "/Project/ComputationReport/TaskManager/Result1", H5P_DEFAULT), 0);
  H5Sclose(space);
  H5Dclose(d);
  H5Fclose(f);
}

TEST(ComputationReport, FailuresShowTheirMessageAndTheReportGoesOn) {
  nvxtest::TempDir dir;
  const std::string file = dir.File("p.rsv");
  {
    // "Sequence" taken by a table: the group can be neither opened nor created.
    NVX3DRSVExTool::CRSVTool tool;
    ASSERT_EQ(tool.Create(file, 4, 1, 0), 0);
    ASSERT_NE(tool.CreateTable(tool.OpenGroup(1, 7), "Sequence"), nullptr);
  }
  g_messages.clear();
  NVXSetMessageBoxHandler(CollectMessage);
  EXPECT_EQ(WriteComputationReport(file, Content(1)), 1);
  NVXSetMessageBoxHandler(nullptr);
  EXPECT_EQ(g_messages, std::vector<std::string>{"Computer Parameter: Set Sequence Result0 Fail"});
  EXPECT_EQ(ReadRows(file, std::string(kTop) + "TaskManager/Result1")[0].value, "alpha");

  // A machine beyond the list throws, after the rows before it are written.
  EXPECT_THROW(WriteComputationReport(dir.File("q.rsv"), Content(3)), std::out_of_range);
  EXPECT_EQ(ReadRows(dir.File("q.rsv"), std::string(kTop) + "TaskManager/Result2")[0].value,
            "beta%d");

  // A file that cannot be reached.
  EXPECT_EQ(WriteComputationReport(dir.File("missing/x.rsv"), Content(0)), 0);
}
