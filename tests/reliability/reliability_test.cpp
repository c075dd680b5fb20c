// The library under faults: full and read-only file systems, hostile RSV
// dimensions, reads that must not change their file, repeated rewrites.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "NVX3DComputation.h"
#include "NVX3DRSVExTool.h"
#include "NVXHostHooks.h"
#include "NVXPlatform.h"
#include "TestUtil.h"
#include "TinyFileSystem.h"

namespace {

using NVX3DRSVExTool::CRSVTool;
using nvxtest::ReadText;
using nvxtest::TempDir;
using nvxtest::TinyFileSystem;
using nvxtest::WriteText;

// A solid project's defaults with three fill output times and a long text.
void Prepare(CNVX3DComputation& c, const std::string& krn) {
  NVXData data;
  data.KRNFilePath = krn;
  data.LoadMode = 1;
  data.ModelKind = 2;
  ASSERT_TRUE(c.LoadKRNFile(data));
  c.SetFillOutputTimesSectionFillTimeSteps(3);
  for (int i = 0; i < 3; ++i) c.SetFillOutputTimesSectionFillTimeStepsValue(i, 1.5 * (i + 1));
  c.SetSummaryCreater(std::string(2000, 'c'));
}

// Stretches the fill-time array of `rsv` to `rows` x `cols` (no data is stored).
void StretchTimeArray(const std::string& rsv, std::uint64_t rows, std::uint64_t cols) {
  CRSVTool tool;
  ASSERT_EQ(tool.Open(rsv), 0);
  auto* group = tool.OpenGroup(1, 4);
  auto* steps = tool.OpenGroup(group, "Time_Stemp");
  auto* array = tool.OpenArray(steps, "FILLOUTPUTTIME_TimeSteps");
  ASSERT_NE(array, nullptr);
  ASSERT_EQ(array->ResetDimension(rows, cols), 0);
  ASSERT_EQ(tool.Close(), 0);
}

std::string g_lastCantOpen;
void RecordCantOpen(const char* path) { g_lastCantOpen = path; }

class HandlerScope {
 public:
  HandlerScope() { NVXSetCantOpenHandler(RecordCantOpen); }
  ~HandlerScope() { NVXSetCantOpenHandler(nullptr); }
};

TEST(KrnWriteFaults, FullDiskKeepsTheOldFileAndReportsFailure) {
  TinyFileSystem fs;
  if (!fs.Ready()) GTEST_SKIP() << fs.Reason();
  CNVX3DComputation c;
  const std::string krn = fs.File("p.krn");
  Prepare(c, krn);
  ASSERT_TRUE(c.WriteKRNFile(krn, 0));
  const auto mode = std::filesystem::perms(0640);
  std::filesystem::permissions(krn, mode);
  const std::string before = ReadText(krn);
  fs.Fill();
  c.SetSummaryCreater("changed");
  EXPECT_FALSE(c.WriteKRNFile(krn, 0));
  EXPECT_EQ(ReadText(krn), before);
  EXPECT_EQ(std::filesystem::status(krn).permissions(), mode);
}

TEST(KrnWriteFaults, UnopenablePathGoesToTheCantOpenHandler) {
  TempDir dir;
  CNVX3DComputation c;
  Prepare(c, dir.File("p.krn"));
  const std::string missing = dir.File("no/such/dir/p.krn");
  {
    HandlerScope scope;
    g_lastCantOpen.clear();
    EXPECT_FALSE(c.WriteKRNFile(missing, 0));
    EXPECT_EQ(g_lastCantOpen, missing);
  }
  // The default handler ends the process the documented way (standard error
  // is a text stream: on Windows its line end is "\r\n"; there the death test
  // runs the whole test again in a new process, so earlier output comes first).
#ifdef _WIN32
  const char* const kMessage = "Can't open\r?\n$";
#else
  const char* const kMessage = "^Can't open\n$";
#endif
  EXPECT_EXIT(c.WriteKRNFile(missing, 0), ::testing::ExitedWithCode(1), kMessage);
}

TEST(KrnWriteFaults, ReadOnlyFileSystemIsCantOpenAndKeepsTheFile) {
  TinyFileSystem fs;
  if (!fs.Ready()) GTEST_SKIP() << fs.Reason();
  CNVX3DComputation c;
  const std::string krn = fs.File("p.krn");
  Prepare(c, krn);
  ASSERT_TRUE(c.WriteKRNFile(krn, 0));
  const std::string before = ReadText(krn);
  if (!fs.MakeReadOnly()) GTEST_SKIP() << "remounting read-only failed";
  HandlerScope scope;
  g_lastCantOpen.clear();
  EXPECT_FALSE(c.WriteKRNFile(krn, 0));
  EXPECT_EQ(g_lastCantOpen, krn);
  EXPECT_EQ(ReadText(krn), before);
}

TEST(RsvFaults, HostileTimeArrayDimensionsAllocateNothingFromTheFile) {
  TempDir dir;
  CNVX3DComputation c;
  Prepare(c, dir.File("p.krn"));
  const std::string rsv = dir.File("p.rsv");
  c.SetRSVFilePath(rsv);
  ASSERT_TRUE(c.WriteRSVFile());

  // 2^40 rows: reading and rewriting use the three times in memory.
  StretchTimeArray(rsv, std::uint64_t(1) << 40, 1);
  c.SetFillOutputTimesSectionFillTimeStepsValue(0, 9.0);
  EXPECT_NO_THROW(EXPECT_TRUE(c.WriteRSVFile()));
  c.SetFillOutputTimesSectionFillTimeStepsValue(0, 0.0);
  EXPECT_NO_THROW(EXPECT_TRUE(c.ReadRSVFile()));
  double t = 0;
  c.GetFillOutputTimesSectionFillTimeStepsValue(0, t);
  EXPECT_EQ(t, 9.0);
  c.GetFillOutputTimesSectionFillTimeStepsValue(2, t);
  EXPECT_EQ(t, 4.5);

  // A time array of more than one column is no time list; it is passed over.
  const std::string wide = dir.File("wide.rsv");
  c.SetRSVFilePath(wide);
  ASSERT_TRUE(c.WriteRSVFile());
  StretchTimeArray(wide, 2048, 1048576);
  EXPECT_NO_THROW(EXPECT_TRUE(c.ReadRSVFile()));
  EXPECT_NO_THROW(EXPECT_TRUE(c.WriteRSVFile()));
}

TEST(RsvFaults, ReadingNeverChangesTheFile) {
  TempDir dir;
  const std::string empty = dir.File("empty.rsv");
  WriteText(empty, "");
  CNVX3DComputation c;
  Prepare(c, dir.File("p.krn"));
  c.SetRSVFilePath(empty);
  EXPECT_TRUE(c.ReadRSVFile());
  EXPECT_FALSE(c.WriteRSVFile());  // not an RSV file: never made into one
  EXPECT_EQ(nvx::platform::FileSize(empty), 0);

  const std::string rsv = dir.File("p.rsv");
  c.SetRSVFilePath(rsv);
  ASSERT_TRUE(c.WriteRSVFile());
  const std::string before = ReadText(rsv);
  EXPECT_TRUE(c.ReadRSVFile());
  EXPECT_EQ(ReadText(rsv), before);
}

TEST(RsvFaults, FullDiskMakesTheWriteFail) {
  TinyFileSystem fs;
  if (!fs.Ready()) GTEST_SKIP() << fs.Reason();
  CNVX3DComputation c;
  Prepare(c, fs.File("p.krn"));
  c.SetRSVFilePath(fs.File("p.rsv"));
  ASSERT_TRUE(c.WriteRSVFile());
  fs.Fill();
  c.SetSummaryCreater(std::string(4000, 'x'));
  EXPECT_FALSE(c.WriteRSVFile());
}

// An outside reader (h5py) reads every text item of the parameter tables of
// `rsv` as a str (never as bytes, which a fixed-length string would give), and
// `creater` as the Summary's Creater. Skips the calling test where h5py cannot
// run.
void ExpectTextsReadAsStr(const std::string& rsv, const std::string& creater) {
#ifdef _WIN32
  GTEST_SKIP() << "the h5py cross-check runs on Linux only";
#endif
  if (std::system("/usr/bin/python3 -c 'import h5py' 2>/dev/null") != 0) {
    GTEST_SKIP() << "python3-h5py is not installed";
  }
  const std::string check =
      "/usr/bin/python3 -c \"import h5py,sys\n"
      "g=h5py.File(sys.argv[1],'r')['Project/Computation']\n"
      "t=g['Summary'].attrs\n"
      "ok=all(isinstance(t[k],str) for k in ('File','Creater','Time','NVXObject'))\n"
      "ok=ok and t['Creater']==sys.argv[2]\n"
      "ok=ok and isinstance(g['REMOTE_MACHINES'].attrs['ValueParallelWorkingFolder'],str)\n"
      "ok=ok and not any(isinstance(v,bytes) for d in g.values() if isinstance(d,h5py.Dataset) "
      "for v in d.attrs.values())\n"
      "sys.exit(0 if ok else 1)\" '" +
      rsv + "' '" + creater + "'";
  EXPECT_EQ(std::system(check.c_str()), 0);
}

// An object saved once into a fresh RSV file of `first` bytes.
class RsvRewrites : public ::testing::Test {
 protected:
  void SetUp() override {
    Prepare(c, dir.File("p.krn"));
    c.SetRSVFilePath(rsv);
    ASSERT_TRUE(c.WriteRSVFile());
    first = nvx::platform::FileSize(rsv);
  }

  TempDir dir;
  CNVX3DComputation c;
  const std::string rsv = dir.File("p.rsv");
  std::int64_t first = 0;
};

TEST_F(RsvRewrites, TheSameParametersKeepTheFileSize) {
  for (int i = 0; i < 1000; ++i) ASSERT_TRUE(c.WriteRSVFile());
  EXPECT_LE(nvx::platform::FileSize(rsv), 2 * first);
  ExpectTextsReadAsStr(rsv, std::string(2000, 'c'));
}

// A project file is saved thousands of times with texts that change each
// time; the texts they replace must not pile up in the file.
TEST_F(RsvRewrites, ChangedTextsKeepTheFileSize) {
  std::string creater;
  for (int i = 0; i < 1000; ++i) {
    const std::string n = std::to_string(i);
    // Texts of changing lengths, so that no new text fits exactly where the old one was.
    creater = n + std::string(static_cast<std::size_t>(i % 50), 'c');
    c.SetSummaryCreater(creater);
    c.SetSummaryTime("2026-11-24 " + n);
    c.SetSummaryFile(L"project" + std::wstring(static_cast<std::size_t>(i % 7), L'x') + L".krn");
    c.SetRemoteValueParallelWorkingFolder(
        n + std::string(2000 + static_cast<std::size_t>(i % 13), 'w'));
    c.SetRemoteValueLocalHost("host" + n);
    ASSERT_TRUE(c.WriteRSVFile()) << "save " << i;
  }
  EXPECT_LE(nvx::platform::FileSize(rsv), 2 * first);

  std::string folder;
  c.SetRemoteValueParallelWorkingFolder("");
  ASSERT_TRUE(c.ReadRSVFile());
  c.GetRemoteValueParallelWorkingFolder(folder);
  EXPECT_EQ(folder, "999" + std::string(2000 + 999 % 13, 'w'));
  ExpectTextsReadAsStr(rsv, creater);
}

}  // namespace
