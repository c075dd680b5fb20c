// The parameter tables in a real RSV (HDF5) file: round trips, the scratch
// value rule, the deliberate asymmetries and an independent reader.
#include <gtest/gtest.h>

#include "NVX3DComputation.h"
#include "NVX3DRSVExTool.h"
#include "RsvFixture.h"
#include "TestUtil.h"
#include "core/NVX3DComputationImpl.h"
#include "rsv/RSVTables.h"

using NVX3DRSVExTool::CRSVGroup;
using NVX3DRSVExTool::CRSVTable;
using NVX3DRSVExTool::CRSVTool;
using nvxtest::TempDir;

namespace {

using RsvTest = nvxtest::RsvFileTest;

}  // namespace

TEST_F(RsvTest, SummaryRoundTripKeepsStoredVersionAndSkipsKrnOnlyFields) {
  CNVX3DComputation c;
  c.SetSummaryVersion(7);
  c.SetSummaryFile(L"proj\u00e9.krn");
  c.SetSummaryFlagWarp(true);
  c.SetSummaryFlagHRSteady(true);
  c.SetDefaultMode(1);
  Write(c);
  Write(c);  // a second write opens the file and overwrites the items

  CNVX3DComputation back;
  Read(back);
  int version = 0;
  EXPECT_EQ(back.GetSummaryVersion(version), 7);
  std::wstring file;
  back.GetSummaryFile(file);
  EXPECT_EQ(file, L"proj\u00e9.krn");
  bool flag = false;
  back.GetSummaryFlagWarp(flag);
  EXPECT_TRUE(flag);
  back.GetSummaryFlagHRSteady(flag);
  EXPECT_FALSE(flag);
  EXPECT_EQ(back.GetDefaultMode(), 0);
}

TEST_F(RsvTest, MissingItemsTakeThePreviousValueOfTheirType) {
  WriteOnlyTable("SOLID_FILL", [](CRSVTable& t) {
    t.SetItem("Version", 4);
    t.SetItem("ValueGravityX", 9.81);
    t.SetItem("ValueGravityZ", 1.5);
  });
  CNVX3DComputation c;
  Read(c);
  double g = 0;
  c.GetSolidFillValueGravityY(g);  // missing: the value read for ValueGravityX
  EXPECT_DOUBLE_EQ(g, 9.81);
  int v = -1;
  c.GetSolidFillIDSolver(v);  // missing: the Version read before it
  EXPECT_EQ(v, 4);
  c.GetSolidFillVersion(v);
  EXPECT_EQ(v, 4);
  bool inertia = true;
  c.GetSolidFillFlagInertia(inertia);  // the bool scratch starts at false
  EXPECT_FALSE(inertia);
}

TEST_F(RsvTest, ShellFillStoresTheSolverChoiceInThePackTrio) {
  CNVX3DComputation c;
  c.SetShellFillIDSolver(3);
  c.SetShellPackidSolver(7);
  Write(c);
  CRSVTool tool;
  ASSERT_EQ(tool.Open(path_), 0);
  CRSVGroup* group = tool.OpenGroup(1, 4);
  int shellFill = 0, shellPack = 0, solidFill = 0;
  tool.OpenTable(group, "SHELL_FILL")->GetItem("IDSolver", &shellFill);
  tool.OpenTable(group, "SHELL_PACK")->GetItem("IDSolver", &shellPack);
  tool.OpenTable(group, "SOLID_FILL")->GetItem("IDSolver", &solidFill);
  tool.Close();
  EXPECT_EQ(shellFill, 7);
  EXPECT_EQ(shellPack, 7);
  EXPECT_EQ(solidFill, 3);

  CNVX3DComputation back;
  Read(back);
  int v = 0;
  back.GetShellFillIDSolver(v);
  EXPECT_EQ(v, 3);
  back.GetShellPackidSolver(v);
  EXPECT_EQ(v, 7);
}

TEST_F(RsvTest, FillRecordAsymmetries) {
  CNVX3DComputation c;
  c.SetSolidFillFlagConsiderIMDBC(true);
  c.SetFlag2WayPaddleShiftMethod(3);
  c.SetFillOutputTimesSectionFillMultiOutputType(2);
  c.SetSolidFillIDAnalysisMode(1);  // clears non-isothermal and viscous heating
  c.SetSolidFillFlagNonIsothermal(1);
  c.SetMaterialHasFiber(0);
  Write(c);

  CNVX3DComputation back;
  back.SetFlag2WayPaddleShiftMethod(5);
  Read(back);
  // KRN-only keys keep what memory holds.
  EXPECT_FALSE(back.GetSolidFillFlagConsiderIMDBC());
  EXPECT_EQ(back.GetFlag2WayPaddleShiftMethod(), 5);
  int v = 0;
  back.GetFillOutputTimesSectionFillMultiOutputType(v);
  EXPECT_EQ(v, 2);
  // The coupling ran after IDAnalysisMode; the flags stored after it win.
  back.GetSolidFillFlagNonIsothermal(v);
  EXPECT_EQ(v, 1);
  back.GetSolidFillFlagViscousHeating(v);
  EXPECT_EQ(v, 0);

  // The reader mirrors the fibre flag as the setters do.
  CNVX3DComputationImpl impl;
  impl.sections.fillPack->FlagEstimateFiber = 1;
  impl.sections.warp->FlagFiberEffect = impl.sections.stress->FlagFiberEffect = 1;
  CRSVTool tool;
  ASSERT_EQ(tool.Open(path_), 0);
  nvx::ReadParameterTables(tool, tool.OpenGroup(1, 4), impl);
  EXPECT_EQ(impl.sections.warp->FlagFiberEffect + impl.sections.stress->FlagFiberEffect, 0);
}

TEST_F(RsvTest, TimeArraysAreReadWithTheCountInMemory) {
  CNVX3DComputation c;
  c.SetFillOutputTimesSectionFillTimeSteps(3);
  c.SetFillOutputTimesSectionFillTimeStepsValue(2, 7.5);
  Write(c);

  CNVX3DComputation empty;
  Read(empty);
  int page = 0;
  EXPECT_EQ(empty.GetTimeSteps(page), 0);

  CNVX3DComputation sized;
  sized.SetFillOutputTimesSectionFillTimeSteps(3);
  Read(sized);
  EXPECT_DOUBLE_EQ(sized.GetTimeStepValue(0, 2), 7.5);

  // A list shorter than its count cannot take the stored values.
  CNVX3DComputationImpl shortList;
  shortList.sections.fillPack->FillTimes.Count = 3;
  CRSVTool tool;
  ASSERT_EQ(tool.Open(path_), 0);
  EXPECT_THROW(nvx::ReadParameterTables(tool, tool.OpenGroup(1, 4), shortList), std::out_of_range);
}

TEST_F(RsvTest, LenientReaderAndStrictWriter) {
  CNVX3DComputation c;
  c.SetRSVFilePath(dir_.File("missing.rsv"));
  EXPECT_TRUE(c.ReadRSVFile());
  nvxtest::WriteText(dir_.File("text.rsv"), "not hdf5");
  c.SetRSVFilePath(dir_.File("text.rsv"));
  EXPECT_TRUE(c.ReadRSVFile());
  EXPECT_FALSE(c.WriteRSVFile());
  EXPECT_EQ(nvxtest::ReadText(dir_.File("text.rsv")), "not hdf5");
}

TEST_F(RsvTest, AnIndependentReaderSeesTheLayout) {
  CNVX3DComputation c;
  c.SetPackOutputTimesSectionFillTimeSteps(2);
  Write(c);
  const nvxtest::H5dumpResult result =
      nvxtest::H5dump(H5DUMP_PATH, "-A", path_, dir_.File("dump.txt"));
  if (!result.ran) GTEST_SKIP() << result.why;
  ASSERT_EQ(result.status, 0) << result.text;
  const std::string& dump = result.text;
  for (const char* expected :
       {"GROUP \"Computation\"", "DATASET \"Summary\"", "ATTRIBUTE \"Flag3D\"",
        "ATTRIBUTE \"Creater\"", "GROUP \"Time_Stemp\"", "DATASET \"PACK_OUTPUT_TIMES_TimeSteps\"",
        "DATASET \"FILLOUTPUTTIME_TimeSteps\"", "H5T_STD_I32LE", "H5T_IEEE_F64LE"}) {
    EXPECT_NE(dump.find(expected), std::string::npos) << expected;
  }
}

// File names are UTF-8 on every system: the RSV file lands under exactly the
// name given, and reading it back finds it.
TEST_F(RsvTest, NonAsciiFileNameIsWrittenAndReadBack) {
  const std::string name = dir_.File("t\xc3\xabst-\xe4\xb8\xad.rsv");  // "tëst-中.rsv"
  CNVX3DComputation c;
  c.SetSummaryVersion(9);
  c.SetRSVFilePath(name);
  ASSERT_TRUE(c.WriteRSVFile());
  bool found = false;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::filesystem::u8path(dir_.Path())))
    found = found || entry.path().filename().u8string() == "t\xc3\xabst-\xe4\xb8\xad.rsv";
  EXPECT_TRUE(found);

  CNVX3DComputation back;
  back.SetRSVFilePath(name);
  ASSERT_TRUE(back.ReadRSVFile());
  int version = 0;
  EXPECT_EQ(back.GetSummaryVersion(version), 9);
}
