// The cooling, warpage, solid stress and part-insert tables in a real RSV
// file: round trips, the deliberate asymmetries, the count-in-memory rule of
// the time arrays, and items missing from a table.
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

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

using CoolingFamilyRsv = nvxtest::RsvFileTest;

}  // namespace

TEST_F(CoolingFamilyRsv, CoolingAsymmetriesAndKrnOnlyFields) {
  CNVX3DComputation c;
  c.SetSolidCoolIDSolver(3);
  c.SetShellCoolFlagAutoSetCoolTimeExcludeRunner(1);
  c.SetSolidCoolValueMaxMBInnerTempVariationTolerance(4.5);
  c.SetSolidCoolValueMaxPartSurfTempVariationTolerance(2.5);
  Write(c);

  CNVX3DComputation back;
  back.SetSolidCoolValueMaxMBInnerTempVariationTolerance(9.0);
  back.SetFlagPreheatLowestTemp(true);
  back.SetValuePreheatAverageTempVariation(7.0);
  back.SetMoldPreheatTimeSteps(2);
  Read(back);
  int v = 0;
  double x = 0.0;
  EXPECT_EQ(back.GetSolidCoolIDSolver(v), 3);
  EXPECT_EQ(back.GetSolidCoolFlagAutoSetCoolTimeExcludeRunner(v), 1);  // from SOLID_COOL
  back.GetSolidCoolValueMaxMBInnerTempVariationTolerance(x);
  EXPECT_EQ(x, 9.0);  // written, never read
  back.GetSolidCoolValueMaxPartSurfTempVariationTolerance(x);
  EXPECT_EQ(x, 2.5);
  EXPECT_TRUE(back.GetFlagPreheatLowestTemp());
  EXPECT_EQ(back.GetValuePreheatAverageTempVariation(), 7.0);
  EXPECT_EQ(back.GetMoldPreheatTimeSteps(), 2);

  // SHELL_COOL alone: the runner flag is read and thrown away.
  WriteOnlyTable("SHELL_COOL", [](CRSVTable& t) {
    t.SetItem("Version", 5);
    t.SetItem("FlagAutoSetCoolTimeExcludeRunner", 1);
  });
  CNVX3DComputation shell;
  Read(shell);
  EXPECT_EQ(shell.GetShellCoolVersion(v), 5);
  EXPECT_EQ(shell.GetShellCoolFlagAutoSetCoolTimeExcludeRunner(v), 0);
  // A missing IDSolver takes the int read just before it (the version).
  EXPECT_EQ(shell.GetSolidCoolIDSolver(v), 5);
}

TEST_F(CoolingFamilyRsv, TimesAreReadWithTheCountInMemory) {
  CNVX3DComputation c;
  c.SetValueNoCoolOutputTimeSteps(3);
  c.SetValueNoCoolOutputTimeStepValue(2, 7.5);
  c.SetValueNoOpenOutputTimeSteps(1);
  c.SetValueNoOpenOutputTimeStepValue(0, 2.0);
  c.SetCoolOutPutTimeValueCheckIntermediteTimeSpan(30.0);
  Write(c);

  CNVX3DComputation back;
  back.SetValueNoCoolOutputTimeSteps(3);
  back.SetValueNoOpenOutputTimeSteps(1);
  Read(back);
  double t = 0.0;
  back.GetValueNoCoolOutputTimeStepValue(2, t);
  EXPECT_EQ(t, 7.5);
  back.GetValueNoOpenOutputTimeStepValue(0, t);
  EXPECT_EQ(t, 2.0);
  back.GetCoolOutPutTimeValueCheckIntermediteTimeSpan(t);
  EXPECT_EQ(t, 30.0);

  // The count in memory decides: a list shorter than it throws.
  CNVX3DComputationImpl impl;
  impl.sections.cool->CoolTimes.Count = 3;
  CRSVTool tool;
  ASSERT_EQ(tool.Open(path_), 0);
  CRSVGroup* group = tool.OpenGroup(1, 4);
  EXPECT_THROW(nvx::ReadSectionTable(tool, group, nvx::kCoolOutputTimesSection, impl),
               std::out_of_range);
  impl.sections.cool->CoolTimes.Count = 0;
  nvx::ReadSectionTable(tool, group, nvx::kCoolOutputTimesSection, impl);
  EXPECT_TRUE(impl.sections.cool->CoolTimes.Times.empty());
  tool.CloseGroup(group);
  tool.Close();
}

TEST_F(CoolingFamilyRsv, WarpageTablesKeepTheirOddTypes) {
  CNVX3DComputation c;
  c.SetSolidWarpValueIMCMedTH(0.25);
  c.SetSolidWarpIDCompositeModel(4);
  c.SetFlagDifferentialEffect(3);
  Write(c);
  {
    CRSVTool tool;
    ASSERT_EQ(tool.Open(path_), 0);
    CRSVGroup* group = tool.OpenGroup(1, 4);
    CRSVTable* shell = tool.OpenTable(group, "SHELL_WARP");
    int asInt = 0;
    ASSERT_TRUE(shell->GetItem("ValueIMCRelST", &asInt));
    EXPECT_EQ(asInt, 50000);
    tool.CloseTable(shell);
    tool.Close();
  }
  CNVX3DComputation back;
  back.SetFlagDifferentialEffect(8);
  Read(back);
  double x = 1.0;
  int v = 0;
  back.GetSolidWarpValueIMCMedTH(x);
  EXPECT_EQ(x, 0.25);  // SOLID_WARP, read after SHELL_WARP, carries the doubles
  back.GetSolidWarpIDCompositeModel(v);
  EXPECT_EQ(v, 4);
  EXPECT_EQ(back.GetFlagDifferentialEffect(), 8);

  WriteOnlyTable("SHELL_WARP", [](CRSVTable& t) {
    t.SetItem("ValueMaxIteration", 50000);
    t.SetItem("ValueIMCMedTH", 0.75);
  });
  CNVX3DComputation shell;
  Read(shell);
  shell.GetShellWarpValueIMCMedTH(x);
  EXPECT_EQ(x, 0.0);  // whatever the item held
  shell.GetShellWarpValueMinIterativeError(x);
  EXPECT_EQ(x, 0.0);
}

TEST_F(CoolingFamilyRsv, StressListsAndPartInsertsRoundTrip) {
  CNVX3DComputation c;
  c.SetSolidStressTempTimeCount(2);
  c.SetSolidStressTempTime(1, 3.0, 4.0);
  c.SetSolidStressOutPutTimingCount(1);
  c.SetSolidStressOutPutTiming(0, 0.5);
  c.SetFlagWeldlineAnalysis(1);
  c.SetAnnealingCycleNumer(4);
  c.SetPartInsertCount(2);
  c.SetPartInsertCLTECount(1, 1);
  c.SetPartInsertCLTE(1, 0, 20.0, 1e-5);
  Write(c);

  CNVX3DComputation back;
  back.SetPartInsertCount(5);
  Read(back);
  double a = 0.0, b = 0.0;
  int v = 0;
  EXPECT_EQ(back.GetSolidStressTempTimeCount(), 2);
  back.GetSolidStressTempTime(1, a, b);
  EXPECT_EQ(a + b, 7.0);
  EXPECT_EQ(back.GetSolidStressOutPutTiming(0), 0.5);
  back.GetFlagWeldlineAnalysis(v);
  EXPECT_EQ(v, 1);
  EXPECT_EQ(back.GetAnnealingCycleNumber(), 4);
  ASSERT_EQ(back.GetPartInsertCount(), 2);
  EXPECT_EQ(back.GetPartInsertNumber(1), 2);
  back.GetPartInsertCLTE(1, 0, a, b);
  EXPECT_EQ(b, 1e-5);

  // An absurd count reads only the inserts present; a ragged block whole rows.
  WriteOnlyTable("PartInsert", [](CRSVTable& t) {
    const double values[] = {1.0, 2.0, 3.0};
    t.SetItem("NoPartInsert", 2147483647);
    t.SetItem("PartInsertNumber1", 6);
    t.SetItem("PartInsertModulus1", sizeof values, values);
  });
  Read(back);
  ASSERT_EQ(back.GetPartInsertCount(), 1);
  EXPECT_EQ(back.GetPartInsertNumber(0), 6);
  EXPECT_EQ(back.GetPartInsertModulusCount(0), 1);
  EXPECT_EQ(back.GetPartInsertCLTECount(0), 0);
  EXPECT_EQ(back.GetSolidStressTempTimeCount(), 2);  // no SOLID_STRESS table: unchanged
}
