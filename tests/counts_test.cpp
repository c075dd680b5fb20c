// Counts a file stores and the lines or values that follow them: a count is
// kept as the file gives it, what the file does not give takes the defaults,
// and no count makes a later write fail.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "NVX3DComputation.h"
#include "NVX3DRSVExTool.h"
#include "TestUtil.h"

using NVX3DRSVExTool::CRSVArray;
using NVX3DRSVExTool::CRSVGroup;
using NVX3DRSVExTool::CRSVTable;
using NVX3DRSVExTool::CRSVTool;
using nvxtest::ReadTextLF;
using nvxtest::TempDir;
using nvxtest::WriteText;

namespace {

class CountsTest : public ::testing::Test {
 protected:
  TempDir dir_;
  nvxtest::UserDirScope userDir_{dir_.File("config")};

  // Loads `text` as the KRN file `name` into `c`.
  void Load(CNVX3DComputation& c, const std::string& name, const std::string& text) {
    WriteText(dir_.File(name), text);
    ASSERT_TRUE(c.LoadKRNFile(dir_.File(name).c_str()));
  }

  // Writes `c` to the KRN file `name` and returns its text.
  std::string Save(CNVX3DComputation& c, const std::string& name) {
    EXPECT_TRUE(c.WriteKRNFile(dir_.File(name), 0));
    return ReadTextLF(dir_.File(name));
  }
};

// Every count of the document, each larger than the lines that follow it.
const char kShortLists[] =
    "<FILL_ADVANCED_HRSteady>\nValueConvergenceCriteria = 2\nValueNoHRGate = 3\n"
    "ValueHRGateType = 0\n</FILL_ADVANCED_HRSteady>\n"
    "<FILL_OUTPUT_TIMES>\nValueNoFillOutputTime = 3\n1 = 0.5\n</FILL_OUTPUT_TIMES>\n"
    "<PACK_OUTPUT_TIMES>\nValueNoPackOutputTime = 2\n</PACK_OUTPUT_TIMES>\n"
    "<COOL_OUTPUT_TIMES>\nValueNoCoolOutputTime=2\n1 = 4\n</COOL_OUTPUT_TIMES>\n"
    "<MoldPreheat_OUTPUT_TIMES>\nValueNoPreheatOutputTime=1\n</MoldPreheat_OUTPUT_TIMES>\n"
    "<OPEN_OUTPUT_TIMES>\nValueNoOpenOutputTime=4\n1 = 1\n2 = 2\n</OPEN_OUTPUT_TIMES>\n"
    "<SOLID_VE_STRESS>\nMTCount = 3\nMT1 = 1 2\n</SOLID_VE_STRESS>\n"
    "<SOLID_VE_WARP>\nMTCount = 2\n</SOLID_VE_WARP>\n"
    "<SOLID_VE_CURING_STRESS>\nPARACount = 6\nPARA1 = 7\t 8\n</SOLID_VE_CURING_STRESS>\n"
    "<OPTIC_OUTPUT_DIRECTION>\nValueOpticLightDirection = 3\n1= 1 2 3\n2= 4 5 6\n"
    "</OPTIC_OUTPUT_DIRECTION>\n"
    "<IC_PADDLE_SHIFT_OUTPUT_TIMES>\nValueNoPaddleShiftTime = 2\n</IC_PADDLE_SHIFT_OUTPUT_TIMES>\n"
    "<IC_WIRE_SWEEP_OUTPUT_TIMES>\nValueNoWireSweepTime = 3\n1 = 9\n</IC_WIRE_SWEEP_OUTPUT_TIMES>\n"
    "<REMOTE_MACHINES>\nValueNoMachine=3\n</REMOTE_MACHINES>\n";

// The counts of kShortLists as `c` reports them, in the file's order.
std::vector<int> Counts(CNVX3DComputation& c) {
  std::vector<int> n(13, -99);
  c.GetAdvancedHotRunnerSteadyNumberOfHotRunnerGate(n[0]);
  c.GetFillOutputTimesSectionFillTimeSteps(n[1]);
  c.GetPackOutputTimesSectionFillTimeSteps(n[2]);
  c.GetValueNoCoolOutPutTimesteps(n[3]);
  n[4] = c.GetMoldPreheatTimeSteps();
  c.GetValueNoOpenOutPutTimesteps(n[5]);
  c.GetE0Time(n[6]);
  c.GetVEWarpE0Time(n[7]);
  c.GetVEStressCuringParacount(n[8]);
  c.GetSolidOpticDirectionValueOpticLightDirection(n[9]);
  c.GetSolidICICPaddleValueNoPaddleShiftTime(n[10]);
  c.GetSolidICValueNoWireSweepTime(n[11]);
  c.GetRemoteValueNoMachine(n[12]);
  return n;
}

const std::vector<int> kShortCounts = {3, 3, 2, 2, 1, 4, 3, 2, 6, 3, 2, 3, 3};

}  // namespace

TEST_F(CountsTest, OutputTimeCountsAreKeptAndTheMissingTimesAreZero) {
  CNVX3DComputation c;
  Load(c, "a.krn", kShortLists);
  EXPECT_EQ(Counts(c), kShortCounts);
  double t = -1.0;
  c.GetFillOutputTimesSectionFillTimeStepsValue(0, t);
  EXPECT_EQ(t, 0.5);
  c.GetFillOutputTimesSectionFillTimeStepsValue(2, t);
  EXPECT_EQ(t, 0.0);
  c.GetPackOutputTimesSectionFillTimeStepsValue(1, t);
  EXPECT_EQ(t, 0.0);
  c.GetValueNoOpenOutputTimeStepValue(3, t);
  EXPECT_EQ(t, 0.0);

  const std::string text = Save(c, "b.krn");
  EXPECT_NE(text.find("ValueNoFillOutputTime = 3\n1 = 0.5\n2 = 0\n3 = 0\n</FILL"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("ValueNoPackOutputTime = 2\n1 = 0\n2 = 0\n</PACK"), std::string::npos);
}

TEST_F(CountsTest, MachineCountWithoutRowsLoadsDefaultMachines) {
  CNVX3DComputation c;
  Load(c, "a.krn", "<REMOTE_MACHINES>\nValueNoMachine=3\n</REMOTE_MACHINES>\n");
  int n = 0;
  EXPECT_EQ(c.GetRemoteValueNoMachine(n), 3);
  RemoteParm m;
  m.ValueMachineName = "x";
  c.GetRemoteValueMachineSetting(2, m);
  EXPECT_EQ(m.ValueMachineName, "");
  EXPECT_DOUBLE_EQ(m.ValueMachineWeighting, 1.0);
  EXPECT_NE(Save(c, "b.krn")
                .find("ValueMachineSetting=\n 1 = \t0\t \n 2 = \t0\t \n 3 = \t0\t \n"
                      "ValueMachineWeighting = \n 1 = 1\n 2 = 1\n 3 = 1\n"),
            std::string::npos);

  // A count above the list's bound is kept alike by both readers.
  {
    CRSVTool tool;
    ASSERT_EQ(tool.Create(dir_.File("p.rsv"), 4, 1, 0), 0);
    CRSVTable* table =
        tool.CreateTable(tool.CreateGroup(tool.OpenGroup(1), "Computation"), "REMOTE_MACHINES");
    table->SetItem("ValueNoMachine", 5000);
    table->Flush();
    tool.CloseTable(table);
    tool.Close();
  }
  CNVX3DComputation fromKrn, fromRsv;
  Load(fromKrn, "big.krn", "<REMOTE_MACHINES>\nValueNoMachine=5000\n</REMOTE_MACHINES>\n");
  fromRsv.SetRSVFilePath(dir_.File("p.rsv"));
  ASSERT_TRUE(fromRsv.ReadRSVFile());
  EXPECT_EQ(fromKrn.GetRemoteValueNoMachine(n), 5000);
  EXPECT_EQ(fromRsv.GetRemoteValueNoMachine(n), 5000);
  fromKrn.GetRemoteValueMachineSetting(4095, m);
  fromRsv.GetRemoteValueMachineSetting(4095, m);
  // The report beside the tables lists the machines the list holds.
  fromKrn.SetRSVFilePath(dir_.File("big.rsv"));
  EXPECT_TRUE(fromKrn.WriteRSVFile());
}

TEST_F(CountsTest, GateCountWithoutGateLinesIsWrittenBackInFull) {
  CNVX3DComputation c;
  Load(c, "a.krn", kShortLists);
  const std::string text = Save(c, "b.krn");
  // The count sizes the gate list, whose gates the section leaves at 0.
  EXPECT_NE(text.find("ValueNoHRGate = 3\nValueHRGateType = 0\n1 = 0.000000\n2 = 0.000000\n"
                      "3 = 0.000000\n</FILL_ADVANCED_HRSteady>"),
            std::string::npos)
      << text;
}

TEST_F(CountsTest, CurveCountSetsThePointsBeforeTheirLines) {
  CNVX3DComputation c;
  Load(c, "a.krn", kShortLists);
  double e0 = -1.0, time = -1.0;
  c.GetE0T(0, e0, time);
  EXPECT_EQ(e0 + time, 3.0);
  c.GetE0T(2, e0, time);
  EXPECT_EQ(e0 + time, 0.0);
  const std::string text = Save(c, "b.krn");
  EXPECT_NE(text.find("MTCount = 3\nMT1 = "), std::string::npos) << text;
  EXPECT_NE(text.find("MT3 = 0.000000e+00\t 0.000000e+00\n</SOLID_VE_STRESS>"), std::string::npos);
}

TEST_F(CountsTest, DirectionCountAboveItsRowsNeverMakesAWriteThrow) {
  CNVX3DComputation c;
  Load(c, "a.krn", kShortLists);
  double x = -1.0, y = -1.0, z = -1.0;
  c.GetOpticDirectionValueOpticLightDirectionValue(2, x, y, z);
  EXPECT_EQ(x + y + z, 0.0);

  // A host that deletes a direction and keeps the count still writes: the
  // rows the list holds, which read back as the count asks.
  c.DeleteOpticDirectionValueOpticLightDirectionItem(0);
  c.SetRSVFilePath(dir_.File("p.rsv"));
  EXPECT_TRUE(c.WriteRSVFile());
  const std::string text = Save(c, "b.krn");
  EXPECT_NE(text.find("ValueOpticLightDirection = 3\n1= "), std::string::npos) << text;
  EXPECT_EQ(text.find("\n3= "), std::string::npos);
  CNVX3DComputation back;
  Load(back, "c.krn", text);
  int n = 0;
  back.GetSolidOpticDirectionValueOpticLightDirection(n);
  EXPECT_EQ(n, 3);
  back.GetOpticDirectionValueOpticLightDirectionValue(0, x, y, z);
  EXPECT_EQ(x + y + z, 15.0);
  back.GetOpticDirectionValueOpticLightDirectionValue(2, x, y, z);
  EXPECT_EQ(x + y + z, 0.0);
}

TEST_F(CountsTest, RsvTimeArraysKeepTheCountAndReadEveryWidth) {
  const std::string path = dir_.File("p.rsv");
  {
    CRSVTool tool;
    ASSERT_EQ(tool.Create(path, 4, 1, 0), 0);
    CRSVGroup* params = tool.CreateGroup(tool.OpenGroup(1), "Computation");
    CRSVTable* table = tool.CreateTable(params, "IC_PADDLE_SHIFT_OUTPUT_TIMES");
    table->SetItem("ValueNoPaddleShiftTime", 3);
    table->Flush();
    tool.CloseTable(table);
    CRSVGroup* steps = tool.CreateGroup(params, "Time_Stemp");
    const double paddle[] = {1.5, 2.5};
    CRSVArray* a = tool.CreateArray(steps, " IC_PADDLE_SHIFT_OUTPUT_TimeStep",
                                    NVX3DRSVExTool::kRSVTypeDouble, 1, 2);
    ASSERT_EQ(a->WriteArray(paddle), 0);
    tool.CloseArray(a);
    const double fill[] = {1, 2, 3, 4};
    a = tool.CreateArray(steps, "FILLOUTPUTTIME_TimeSteps", NVX3DRSVExTool::kRSVTypeDouble, 2, 2);
    ASSERT_EQ(a->WriteArray(fill), 0);
    tool.CloseArray(a);
    tool.Close();
  }
  CNVX3DComputation c;
  c.SetFillOutputTimesSectionFillTimeSteps(3);
  c.SetRSVFilePath(path);
  ASSERT_TRUE(c.ReadRSVFile());
  int n = 0;
  EXPECT_EQ(c.GetSolidICICPaddleValueNoPaddleShiftTime(n), 3);
  std::vector<double> times(3, -1.0);
  for (int i = 0; i < 3; ++i) c.GetSolidIICPaddleValueNoPaddleShiftTimeValue(i, times[i]);
  EXPECT_EQ(times, (std::vector<double>{1.5, 2.5, 0.0}));
  for (int i = 0; i < 3; ++i) c.GetFillOutputTimesSectionFillTimeStepsValue(i, times[i]);
  EXPECT_EQ(times, (std::vector<double>{1, 2, 3}));
}

TEST_F(CountsTest, DefaultTemplatePathOf512CharactersIsTaken) {
  // The path is padded with "./" steps up to the length wanted; the file's
  // name makes the padding even.
  const std::string folder = dir_.File("");
  const std::string name = (512 - folder.size()) % 2 == 0 ? "tt.krn" : "t.krn";
  WriteText(folder + name,
            "<FILL_ADVANCED_LONGFIBER>\nAspectRatio = 33\n</FILL_ADVANCED_LONGFIBER>\n");
  auto padded = [&](std::size_t length) {
    std::string pad;
    while (folder.size() + pad.size() + name.size() < length) pad += "./";
    return folder + pad + name;
  };
  const std::string taken = padded(512), ignored = padded(514);
  ASSERT_EQ(taken.size(), 512u);
  ASSERT_TRUE(std::filesystem::exists(std::filesystem::u8path(taken)));

  CNVX3DComputation c;
  c.LoadGPDefaultTemplete(ignored);
  double ratio = 0.0;
  c.GetFiberRatio(ratio);
  EXPECT_EQ(ratio, 20.0);
  c.LoadGPDefaultTemplete(taken);
  c.GetFiberRatio(ratio);
  EXPECT_EQ(ratio, 33.0);
}

TEST_F(CountsTest, EveryCountAboveItsLinesSurvivesKrnAndRsvWrites) {
  CNVX3DComputation c;
  Load(c, "a.krn", kShortLists);
  c.SetRSVFilePath(dir_.File("p.rsv"));
  ASSERT_TRUE(c.WriteRSVFile());
  const std::string text = Save(c, "b.krn");

  CNVX3DComputation krn;
  Load(krn, "c.krn", text);
  EXPECT_EQ(Counts(krn), kShortCounts);

  // The RSV readers take these counts from the file; the other output-time
  // counts come from the KRN file read before.
  CNVX3DComputation rsv;
  rsv.SetRSVFilePath(dir_.File("p.rsv"));
  ASSERT_TRUE(rsv.ReadRSVFile());
  const std::vector<int> n = Counts(rsv);
  EXPECT_EQ(n[6], 3);
  EXPECT_EQ(n[7], 2);
  EXPECT_EQ(n[9], 3);
  EXPECT_EQ(n[10], 2);
  EXPECT_EQ(n[12], 3);
}
