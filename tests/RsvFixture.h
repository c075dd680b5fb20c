// Test fixture for RSV files: a file in a temporary directory that parameter
// objects write and read, or that holds one hand-made table.
#ifndef NVX_TESTS_RSVFIXTURE_H_
#define NVX_TESTS_RSVFIXTURE_H_

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "NVX3DComputation.h"
#include "NVX3DRSVExTool.h"
#include "TestUtil.h"

namespace nvxtest {

class RsvFileTest : public ::testing::Test {
 protected:
  TempDir dir_;
  std::string path_ = dir_.File("p.rsv");

  void Write(CNVX3DComputation& c) {
    c.SetRSVFilePath(path_);
    ASSERT_TRUE(c.WriteRSVFile());
  }
  void Read(CNVX3DComputation& c) {
    c.SetRSVFilePath(path_);
    ASSERT_TRUE(c.ReadRSVFile());
  }
  // Replaces the file by one whose parameter group holds only table `name`,
  // with what `fill` puts there, as a build that lacked some items would have
  // written it.
  template <typename F>
  void WriteOnlyTable(const std::string& name, F fill) {
    std::filesystem::remove(path_);
    NVX3DRSVExTool::CRSVTool tool;
    ASSERT_EQ(tool.Create(path_, 4, 1, 0), 0);
    NVX3DRSVExTool::CRSVGroup* params = tool.CreateGroup(tool.OpenGroup(1), "Computation");
    ASSERT_NE(params, nullptr);
    NVX3DRSVExTool::CRSVTable* table = tool.CreateTable(params, name);
    ASSERT_NE(table, nullptr);
    fill(*table);
    table->Flush();
    tool.CloseTable(table);
    tool.Close();
  }
};

}  // namespace nvxtest

#endif  // NVX_TESTS_RSVFIXTURE_H_
