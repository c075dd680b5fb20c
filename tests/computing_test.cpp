// The computing-resource sections: exact KRN text, the machine rows, damaged
// machine counts, the per-machine RSV tables, the derived task count, the
// mode-3 adjustment, the accessors and the machine list's text form.
#include <gtest/gtest.h>

#include <sstream>

#include "NVX3DComputation.h"
#include "NVX3DRSVExTool.h"
#include "SectionIO.h"
#include "TestUtil.h"
#include "core/KeyText.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNDocumentWriter.h"
#include "krn/KRNSectionIO.h"
#include "rsv/RSVTables.h"

using namespace nvx;
using NVX3DRSVExTool::CRSVGroup;
using NVX3DRSVExTool::CRSVTable;
using NVX3DRSVExTool::CRSVTool;
using nvxtest::TempDir;

namespace {

constexpr KrnTag kComputingTags[] = {KrnTag::kTaskManager, KrnTag::kRemoteMachines,
                                     KrnTag::kComputingManager};

// The three sections as the section-present writer emits them.
std::string WriteComputing(CNVX3DComputationImpl& impl) {
  std::ostringstream os;
  KrnStream out(os);
  for (KrnTag tag : kComputingTags) WriteKrnSection(*FindSection(tag), out, impl, false);
  return nvxtest::ToLF(os.str());
}

void MarkPresent(CNVX3DComputationImpl& impl) {
  for (KrnTag tag : kComputingTags) impl.sections.document->SetPresent(tag, true);
}

const char kFreshText[] =
    "<TASKMANAGER>\nVersion = 0\nIDTaskMode = 0\nflagAccelerationType = 0\nValueNoTask = 0\n"
    "ValueLocalNoTask = 0\nValueConsoleRedirection = 0\n</TASKMANAGER>\n\n"
    "<REMOTE_MACHINES>\nVersion=1004\nValueNoMachine=1\nValueRemoteNoTask=1\nValueMap= \n"
    "ValueShareFolderName=\nValueSharedVelmaraName=Velmara_R12_Solid\n"
    "ValueParallelWorkingFolder=\nValueLocalHost=localhost\nValueMachineSetting=\n"
    " 1 = \t0\t \nValueMachineWeighting = \n 1 = 1\n</REMOTE_MACHINES>\n\n"
    "<COMPUTING_MANAGER>\nVersion = 0\nValueComputingManagerNoTask = 0\n"
    "</COMPUTING_MANAGER>\n\n";

}  // namespace

TEST(ComputingKrn, FreshRecordsWriteTheExactText) {
  CNVX3DComputationImpl impl;
  EXPECT_EQ(WriteComputing(impl), kFreshText);

  // The computing manager leaves fixed notation, precision 5, in force.
  std::ostringstream os;
  KrnStream out(os);
  out.Scientific();
  WriteKrnSection(*FindSection(KrnTag::kComputingManager), out, impl, false);
  EXPECT_TRUE(out.IsFixed() && out.IsScientific());
  EXPECT_EQ(out.GetPrecision(), 5);
}

TEST(ComputingKrn, TheModelKindWriterWritesAllThreeForSolids) {
  TempDir dir;
  CNVX3DComputationImpl impl;
  impl.modelKind = 3;
  ASSERT_TRUE(WriteKrnDocument(DocumentWriter::kModelKind, dir.File("a.krn"), impl));
  const std::string text = nvxtest::ReadTextLF(dir.File("a.krn"));
  const std::string middle = "</TASKMANAGER>\n\n<REMOTE_MACHINES>\nVersion=1004\n";
  EXPECT_NE(text.find("\n<TASKMANAGER>\nVersion = 0\n"), std::string::npos);
  EXPECT_NE(text.find(middle), std::string::npos);
  const std::string end =
      "</REMOTE_MACHINES>\n\n<COMPUTING_MANAGER>\nVersion = 0\n"
      "ValueComputingManagerNoTask = 0\n</COMPUTING_MANAGER>\n\n</KRN_FILE>\n";
  ASSERT_GT(text.size(), end.size());
  EXPECT_EQ(text.substr(text.size() - end.size()), end);
}

TEST(ComputingKrn, ValueNoTaskIsDerivedFromTheWayOfRunning) {
  CNVX3DComputationImpl impl;
  const std::pair<int, std::int32_t> cases[] = {{0, 4}, {1, 8}, {2, 12}, {3, 0}, {-1, 0}};
  impl.sections.taskManager->ValueNoTask = 99;
  impl.sections.taskManager->ValueLocalNoTask = 4;
  impl.sections.remoteMachines->ValueRemoteNoTask = 8;
  impl.sections.computingManager->ValueComputingManagerNoTask = 12;
  for (auto [mode, count] : cases) {
    impl.sections.taskManager->IDTaskMode = mode;
    EXPECT_NE(WriteComputing(impl).find("ValueNoTask = " + std::to_string(count) + "\n"),
              std::string::npos)
        << mode;
  }
  impl.sections.computingManager.reset();
  impl.sections.taskManager->IDTaskMode = 0;
  EXPECT_EQ(DerivedTaskCount(impl), 0);

  // The reader still stores what the file says.
  nvxtest::ReadSection(impl, KrnTag::kTaskManager, "ValueNoTask = 5\n");
  EXPECT_EQ(impl.sections.taskManager->ValueNoTask, 5);

  CNVX3DComputation c;
  c.SetTaskValueNoTask(99);
  c.SetTaskValueLocalNoTask(4);
  int v = 0;
  EXPECT_EQ(c.GetTaskValueNoTask(v), 4);  // ValueLocalNoTask, not the 99 stored
  EXPECT_EQ(v, 4);
}

TEST(ComputingKrn, MachineRowsKeepNameBlanksAndCutPaths) {
  CNVX3DComputationImpl impl;
  nvxtest::ReadSection(impl, KrnTag::kRemoteMachines,
                       "ValueNoMachine=3\nValueShareFolderName=my share\n"
                       "ValueParallelWorkingFolder=C:\\par work\\x\nValueMachineSetting=\n"
                       " 1 = node one\t4\t D:\\run dir\n"
                       " 7 = skipped\t9\t E:\\x\n"
                       " 3 = n=3\t2\t F:\\y\n"
                       "ValueMachineWeighting = \n 1 = 0.5\n 5 = 9\n 3 = 2e-1\n");
  const CNVX3DRemoteMachines& r = *impl.sections.remoteMachines;
  EXPECT_EQ(r.ValueShareFolderName, "my");
  EXPECT_EQ(r.ValueParallelWorkingFolder, "C:\\par work\\x");
  ASSERT_EQ(r.ValueMachineSetting.size(), 3u);
  EXPECT_EQ(r.ValueMachineSetting[0].ValueMachineName, "node one");
  EXPECT_EQ(r.ValueMachineSetting[0].ValueMachineJob, 4);
  EXPECT_EQ(r.ValueMachineSetting[0].ValueMachinePath, "D:\\run");
  EXPECT_DOUBLE_EQ(r.ValueMachineSetting[0].ValueMachineWeighting, 0.5);
  // A misnumbered row repeats the last parsed row, weight 1.0 included.
  EXPECT_EQ(r.ValueMachineSetting[1].ValueMachineName, "node one");
  EXPECT_DOUBLE_EQ(r.ValueMachineSetting[1].ValueMachineWeighting, 1.0);
  EXPECT_EQ(r.ValueMachineSetting[2].ValueMachineName, "n=3");
  EXPECT_DOUBLE_EQ(r.ValueMachineSetting[2].ValueMachineWeighting, 0.2);

  const std::string text = WriteComputing(impl);
  EXPECT_NE(text.find("ValueParallelWorkingFolder=C:\\par work\\x\n"), std::string::npos);
  EXPECT_NE(text.find(" 1 = node one\t4\t D:\\run\n 2 = node one\t4\t D:\\run\n"),
            std::string::npos);
}

TEST(ComputingKrn, DamagedMachineCountsStayWithinTheSection) {
  CNVX3DComputationImpl impl;
  CNVX3DRemoteMachines& r = *impl.sections.remoteMachines;
  // An absurd count is kept, the list stops at its bound, and nothing is read
  // past the section.
  nvxtest::ReadSection(impl, KrnTag::kRemoteMachines,
                       "ValueNoMachine=2000000000\nValueMachineSetting=\n 1 = a\t1\t p\n");
  EXPECT_EQ(r.ValueNoMachine, 2000000000);
  EXPECT_EQ(r.ValueMachineSetting.size(), static_cast<std::size_t>(kMaxRemoteMachines));
  EXPECT_EQ(r.ValueMachineSetting[0].ValueMachineName, "a");

  nvxtest::ReadSection(impl, KrnTag::kRemoteMachines,
                       "ValueNoMachine=-4\nValueMachineSetting=\n 1 = a\n");
  EXPECT_EQ(r.ValueNoMachine, 0);
  EXPECT_TRUE(r.ValueMachineSetting.empty());

  // A count above the rows present swallows the weight header; rows without
  // tabs give an empty job and path.
  nvxtest::ReadSection(
      impl, KrnTag::kRemoteMachines,
      "ValueNoMachine=3\nValueMachineSetting=\n 1 = solo\nValueMachineWeighting = \n"
      " 1 = 4\n");
  EXPECT_EQ(r.ValueMachineSetting[0].ValueMachineName, "solo");
  EXPECT_EQ(r.ValueMachineSetting[0].ValueMachinePath, "");
  EXPECT_EQ(r.ValueMachineSetting[2].ValueMachineName, "solo");
  EXPECT_DOUBLE_EQ(r.ValueMachineSetting[0].ValueMachineWeighting, 1.0);
}

TEST(ComputingRsv, TablesRoundTripAndLeaveTablesBeyondTheCount) {
  TempDir dir;
  const std::string path = dir.File("p.rsv");
  CNVX3DComputation c;
  c.SetRSVFilePath(path);
  c.SetTaskIDTaskMode(1);
  c.SetTaskValueNoTask(77);
  c.SetRemoteValueRemoteNoTask(6);
  c.SetRemoteValueNoMachine(3);
  c.SetRemoteValueMachineSetting(2, RemoteParm{"third", "C:\\t", 5, 2.5});
  c.SetRemoteValueParallelWorkingFolder("C:\\a b");
  c.SetCpmoutingVersion(3);
  ASSERT_TRUE(c.WriteRSVFile());
  c.SetRemoteValueNoMachine(2);
  c.SetRemoteValueMachineSetting(0, RemoteParm{"first", "p", 1, 0.5});
  ASSERT_TRUE(c.WriteRSVFile());

  CRSVTool tool;
  ASSERT_EQ(tool.Open(path), 0);
  CRSVGroup* group = tool.OpenGroup(1, 4);
  int noTask = 0;
  tool.OpenTable(group, "TASKMANAGER")->GetItem("ValueNoTask", &noTask);
  EXPECT_EQ(noTask, 6);  // derived, not the 77 stored
  CRSVGroup* machines = tool.OpenGroup(group, "ValueMachineSetting");
  ASSERT_NE(machines, nullptr);
  std::string name;
  CRSVTable* third = tool.OpenTable(machines, "ValueMachine-2");  // left from the first write
  ASSERT_NE(third, nullptr);
  third->GetItem("ValueMachineName", &name);
  EXPECT_EQ(name, "third");
  tool.Close();

  CNVX3DComputation back;
  back.SetRSVFilePath(path);
  ASSERT_TRUE(back.ReadRSVFile());
  int v = 0;
  EXPECT_EQ(back.GetRemoteValueNoMachine(v), 2);
  RemoteParm m;
  back.GetRemoteValueMachineSetting(0, m);
  EXPECT_EQ(m.ValueMachineName, "first");
  EXPECT_DOUBLE_EQ(m.ValueMachineWeighting, 0.5);
  EXPECT_THROW(back.GetRemoteValueMachineSetting(2, m), std::out_of_range);
  std::string folder;
  back.GetRemoteValueParallelWorkingFolder(folder);
  EXPECT_EQ(folder, "C:\\a b");
  EXPECT_EQ(back.GetCpmoutingVersion(v), 3);
  EXPECT_EQ(back.GetComputationMolde(), 1);
}

TEST(ComputingRsv, MissingTablesAndItemsFollowTheReaderRules) {
  TempDir dir;
  const std::string path = dir.File("p.rsv");
  {
    CRSVTool tool;
    ASSERT_EQ(tool.Create(path, 4, 1, 0), 0);
    CRSVGroup* params = tool.CreateGroup(tool.OpenGroup(1), "Computation");
    CRSVTable* remote = tool.CreateTable(params, "REMOTE_MACHINES");
    remote->SetItem("ValueNoMachine", 2000000000);  // bounded on reading
    remote->Flush();
    CRSVGroup* machines = tool.CreateGroup(params, "ValueMachineSetting");
    CRSVTable* m1 = tool.CreateTable(machines, "ValueMachine-1");
    m1->SetItem("ValueMachineName", std::string("only name"));
    m1->SetItem("ValueMachineJob", 7);
    m1->Flush();
    tool.Close();
  }
  CNVX3DComputation c;
  c.SetTaskVersion(9);
  c.SetCpmoutingValueComputingManagerNoTask(4);
  c.SetRSVFilePath(path);
  ASSERT_TRUE(c.ReadRSVFile());
  int v = 0;
  EXPECT_EQ(c.GetTaskVersion(v), 9);  // no TASKMANAGER table: unchanged
  EXPECT_EQ(c.GetComputingManagerCPUNumber(), 4);
  EXPECT_EQ(c.GetRemoteValueNoMachine(v), 2000000000);  // the list stops at kMaxRemoteMachines
  RemoteParm m;
  c.GetRemoteValueMachineSetting(0, m);  // no table: the default entry
  EXPECT_EQ(m.ValueMachineName, "");
  EXPECT_DOUBLE_EQ(m.ValueMachineWeighting, 1.0);
  c.GetRemoteValueMachineSetting(1, m);  // missing items take the scratch values
  EXPECT_EQ(m.ValueMachineName, "only name");
  EXPECT_EQ(m.ValueMachinePath, "only name");
  EXPECT_EQ(m.ValueMachineJob, 7);
  EXPECT_DOUBLE_EQ(m.ValueMachineWeighting, 0.0);
  // The Version item is missing too: the int scratch started at 0.
  EXPECT_EQ(c.GetRemoteVersion(v), 0);
}

TEST(ComputingRoundTrip, KrnAndRsvRewriteByteIdentical) {
  TempDir dir;
  CNVX3DComputationImpl impl;
  MarkPresent(impl);
  impl.sections.document->SetPresent(KrnTag::kSummary, true);
  impl.sections.document->SetPresent(KrnTag::kSolidFill, true);
  CNVX3DRemoteMachines& r = *impl.sections.remoteMachines;
  SetMachineCount(r, 2);
  r.ValueMachineSetting[1] = RemoteParm{"node b", "E:\\w", 3, 0.25};
  r.ValueMap = "map";
  impl.sections.summary->Time = "today";  // the default text has blanks
  impl.sections.taskManager->IDTaskMode = 2;
  impl.sections.computingManager->ValueComputingManagerNoTask = 16;
  const std::string a = dir.File("a.krn"), b = dir.File("b.krn"), c = dir.File("c.krn");
  ASSERT_TRUE(WriteKrnDocument(DocumentWriter::kSectionPresent, a, impl));

  CNVX3DComputationImpl krnBack;
  krnBack.ReadKrn(a);
  ASSERT_TRUE(WriteKrnDocument(DocumentWriter::kSectionPresent, b, krnBack));
  EXPECT_EQ(nvxtest::ReadText(a), nvxtest::ReadText(b));

  CNVX3DComputation writer;
  ASSERT_TRUE(writer.LoadKRNFile(a.c_str()));
  writer.SetRSVFilePath(dir.File("p.rsv"));
  ASSERT_TRUE(writer.WriteRSVFile());
  CNVX3DComputationImpl rsvBack;
  CRSVTool tool;
  ASSERT_EQ(tool.Open(dir.File("p.rsv")), 0);
  ReadParameterTables(tool, tool.OpenGroup(1, 4), rsvBack);
  tool.Close();
  for (KrnTag tag : {KrnTag::kSummary, KrnTag::kSolidFill}) {
    rsvBack.sections.document->SetPresent(tag, true);
  }
  MarkPresent(rsvBack);
  ASSERT_TRUE(WriteKrnDocument(DocumentWriter::kSectionPresent, c, rsvBack));
  EXPECT_EQ(nvxtest::ReadText(a), nvxtest::ReadText(c));
}

TEST(ComputingLoad, ResetAndModeThreeAdjustments) {
  TempDir dir;
  nvxtest::UserDirScope user(dir.File("user"));
  NVXData d;
  d.KRNFilePath = dir.File("missing.krn");
  d.ModelKind = 2;
  CNVX3DComputation c;
  c.SetTaskIDTaskMode(1);
  c.SetRemoteValueNoMachine(4);
  c.SetMode(3);
  ASSERT_TRUE(c.LoadKRNFile(d));
  EXPECT_EQ(c.GetComputationMolde(), 2);
  EXPECT_EQ(c.GetComputingManagerCPUNumber(), 16);
  int v = 0;
  EXPECT_EQ(c.GetRemoteValueNoMachine(v), 1);  // reset to the defaults

  c.SetMode(0);
  ASSERT_TRUE(c.LoadKRNFile(d));
  EXPECT_EQ(c.GetComputationMolde(), 0);
  EXPECT_EQ(c.GetComputingManagerCPUNumber(), 0);

  // A load from an existing file skips the adjustments.
  nvxtest::WriteText(d.KRNFilePath, "<TASKMANAGER>\nIDTaskMode = 1\n</TASKMANAGER>\n");
  c.SetMode(3);
  ASSERT_TRUE(c.LoadKRNFile(d));
  EXPECT_EQ(c.GetComputationMolde(), 1);
  EXPECT_EQ(c.GetComputingManagerCPUNumber(), 0);
}

TEST(ComputingAccessors, GenericPairsAndIndexedMembers) {
  CNVX3DComputation c;
  c.SetComputationMolde(2);
  c.SetLocalHostModeCPUNumber(6);
  c.SetComputingManagerModeCPUNumber(32);
  int v = 0;
  EXPECT_EQ(c.GetTaskIDTaskMode(v), 2);
  EXPECT_EQ(c.GetTaskValueLocalNoTask(v), 6);
  EXPECT_EQ(c.GetLocalHostModeCPUNumber(), 6);
  EXPECT_EQ(c.GetCpmoutingValueComputingManagerNoTask(v), 32);
  c.SetTaskValueAccelerType(5);
  EXPECT_EQ(c.GetTaskValueAccelerType(v), 1);
  EXPECT_EQ(v, 5);

  c.SetRemoteValueNoMachine(3);
  double w = 0.0;
  c.GetRemoteValueMachineWeighting(2, w);
  EXPECT_DOUBLE_EQ(w, 1.0);
  EXPECT_THROW(c.GetRemoteValueMachineWeighting(3, w), std::out_of_range);
  EXPECT_THROW(c.SetRemoteValueMachineWeighting(-1, w), std::out_of_range);
  try {
    c.SetRemoteValueMachineSetting(3, RemoteParm{});
    FAIL();
  } catch (const std::out_of_range& e) {
    EXPECT_STREQ(e.what(), "invalid vector<T> subscript");
  }
  c.SetRemoteValueNoMachine(-2);
  EXPECT_EQ(c.GetRemoteValueNoMachine(v), 0);
  std::string host;
  c.GetRemoteValueLocalHost(host);
  EXPECT_EQ(host, "localhost");
}

TEST(ComputingText, MachineListFormatsAndParsesAsAWhole) {
  CNVX3DComputationImpl impl;
  const KeyList keys = FindSection(KrnTag::kRemoteMachines)->keys(impl);
  const Key& list = *FindKey(keys, "ValueMachineSetting", kKrnRead);
  EXPECT_EQ(FormatValue(list), "1: ||0|1");
  std::string error;
  ASSERT_TRUE(ParseValue(list, "2: node a | C:\\r | 4 | 0.5;b|D:\\s|1|2", &error)) << error;
  EXPECT_EQ(FormatValue(list), "2: node a|C:\\r|4|0.5; b|D:\\s|1|2");
  EXPECT_EQ(impl.sections.remoteMachines->ValueNoMachine, 2);
  for (const char* bad : {"3: a|p|1|1", "1: a|p q|1|1", "1: a|p|x|1", "1: a|p|1", "-1", "x"}) {
    EXPECT_FALSE(ParseValue(list, bad, &error)) << bad;
  }
  EXPECT_EQ(FormatValue(list), "2: node a|C:\\r|4|0.5; b|D:\\s|1|2");
  ASSERT_TRUE(ParseValue(list, "0", &error));
  EXPECT_TRUE(impl.sections.remoteMachines->ValueMachineSetting.empty());

  const KeyList taskKeys = FindSection(KrnTag::kTaskManager)->keys(impl);
  const Key& noTask = *FindKey(taskKeys, "ValueNoTask", kKrnRead);
  EXPECT_FALSE(ParseValue(noTask, "4", &error));
  EXPECT_NE(error.find("ValueLocalNoTask"), std::string::npos);
}
