// nvxparam's writes on a full and on a read-only file system, an empty file
// given to every verb, and corrupt RSV files read in a guarded child.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "TestUtil.h"
#include "TinyFileSystem.h"

namespace {

using nvxtest::ReadText;
using nvxtest::TempDir;
using nvxtest::TinyFileSystem;
using nvxtest::WriteText;

struct Result {
  int status;  // exit status, or 128 + signal
  std::string err;
};

Result Tool(const TempDir& scratch, const std::vector<std::string>& args) {
  std::string command = NVXPARAM_PATH;
  for (const std::string& arg : args) command += " '" + arg + "'";
  command += " >/dev/null 2>'" + scratch.File("err") + "'";
  const int raw = std::system(command.c_str());
  const int status = WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + WTERMSIG(raw);
  return {status, ReadText(scratch.File("err"))};
}

class NvxParamFaults : public ::testing::Test {
 protected:
  void SetUp() override { ::setenv("XDG_CONFIG_HOME", scratch_.File("config").c_str(), 1); }
  TempDir scratch_;
};

TEST_F(NvxParamFaults, FullDiskFailsWithItsCauseAndKeepsEveryFile) {
  TinyFileSystem fs;
  if (!fs.Ready()) GTEST_SKIP() << fs.Reason();
  const std::string krn = fs.File("p.krn"), rsv = fs.File("p.rsv");
  ASSERT_EQ(Tool(scratch_, {"new", krn}).status, 0);
  ASSERT_EQ(Tool(scratch_, {"to-rsv", krn, rsv}).status, 0);
  const std::string krnBefore = ReadText(krn), rsvBefore = ReadText(rsv);
  fs.Fill();

  Result r = Tool(scratch_, {"set", krn, "SUMMARY.Creater=" + std::string(400, 'x')});
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find("No space left on device"), std::string::npos) << r.err;
  r = Tool(scratch_, {"from-rsv", rsv, krn});
  EXPECT_EQ(r.status, 2) << r.err;
  // The RSV file is written through a copy: no crash, and the original stays.
  r = Tool(scratch_, {"to-rsv", krn, rsv});
  EXPECT_EQ(r.status, 2) << r.err;
  EXPECT_EQ(ReadText(krn), krnBefore);
  EXPECT_EQ(ReadText(rsv), rsvBefore);
}

TEST_F(NvxParamFaults, ReadOnlyFileSystemRefusesWritesAndStillReads) {
  TinyFileSystem fs;
  if (!fs.Ready()) GTEST_SKIP() << fs.Reason();
  const std::string krn = fs.File("p.krn"), rsv = fs.File("p.rsv");
  ASSERT_EQ(Tool(scratch_, {"new", krn}).status, 0);
  ASSERT_EQ(Tool(scratch_, {"to-rsv", krn, rsv}).status, 0);
  if (!fs.MakeReadOnly()) GTEST_SKIP() << "remounting read-only failed";
  for (const std::vector<std::string>& args :
       std::vector<std::vector<std::string>>{{"set", krn, "SUMMARY.Flag3D=0"},
                                             {"to-rsv", krn, rsv},
                                             {"from-rsv", rsv, krn},
                                             {"new", fs.File("q.krn")}}) {
    const Result r = Tool(scratch_, args);
    EXPECT_EQ(r.status, 2) << args[0];
    EXPECT_NE(r.err.find("Read-only file system"), std::string::npos) << args[0] << r.err;
  }
  EXPECT_EQ(Tool(scratch_, {"get", rsv, "SUMMARY.Flag3D"}).status, 0);
}

TEST_F(NvxParamFaults, AnEmptyFileStaysEmptyWhateverTheVerb) {
  const std::string empty = scratch_.File("empty.rsv"), krn = scratch_.File("p.krn");
  WriteText(empty, "");
  ASSERT_EQ(Tool(scratch_, {"new", krn}).status, 0);
  for (const std::vector<std::string>& args :
       std::vector<std::vector<std::string>>{{"show", empty},
                                             {"get", empty, "SUMMARY.Flag3D"},
                                             {"from-rsv", empty, krn},
                                             {"to-rsv", krn, empty},
                                             {"set", empty, "SUMMARY.Flag3D=1"}}) {
    EXPECT_EQ(Tool(scratch_, args).status, 2) << args[0];
    EXPECT_EQ(ReadText(empty), "") << args[0];
  }
}

TEST_F(NvxParamFaults, AFileThatCrashesTheFileLibraryIsReportedAsCorrupt) {
  // Found by the RSV fuzzer: a global-heap object whose size runs far past its
  // collection, which the HDF5 library copies without checking.
  const std::string rsv = std::string(DATA_DIR) + "/heap_overrun.rsv";
  const std::string krn = scratch_.File("p.krn");
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {"show", rsv}, {"get", rsv, "SUMMARY.Creater"}, {"from-rsv", rsv, krn}}) {
    const Result r = Tool(scratch_, args);
    EXPECT_EQ(r.status, 2) << args[0];
    EXPECT_NE(r.err.find("corrupt or unreadable RSV file"), std::string::npos) << r.err;
  }
}

}  // namespace
