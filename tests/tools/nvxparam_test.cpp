// nvxparam run as a program on real files in a private directory.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "NVX3DRSVExTool.h"
#include "TestUtil.h"
#include "tools/RunTool.h"

namespace {

namespace fs = std::filesystem;
using nvxtest::ReadText;
using nvxtest::WriteText;

struct Result {
  int status;
  std::string out;
  std::string err;
};

// `text` with CR LF line ends read as LF: files the library writes end their
// lines the system's way.
std::string Lf(const std::string& text) {
  std::string lf;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!(text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')) lf += text[i];
  }
  return lf;
}

class NvxParamTest : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return dir_.File(name); }

  // nvxparam with `args`, standard input from the file `in` when given.
  Result Run(const std::vector<std::string>& args, const std::string& in = "") const {
    const int status =
        nvxtest::RunProgram(NVXPARAM_PATH, args, in, Path("out.txt"), Path("err.txt"));
    return {status, nvxtest::ReadOutput(Path("out.txt")), nvxtest::ReadOutput(Path("err.txt"))};
  }

  // The value `get` prints, without its line end; fails the test on an error.
  std::string Get(const std::string& file, const std::string& address) const {
    const Result r = Run({"get", file, address});
    EXPECT_EQ(r.status, 0) << r.err;
    return r.out.substr(0, r.out.find('\n'));
  }

  nvxtest::TempDir dir_;
  // No per-user template of the machine may change the defaults.
  nvxtest::UserDirScope user_{dir_.File("config")};
};

TEST_F(NvxParamTest, NewWritesTheDefaultsOfTheModelKindAndNeverOverwrites) {
  const std::string solid = Path("solid.krn"), shell = Path("shell.krn");
  ASSERT_EQ(Run({"new", solid}).status, 0);
  ASSERT_EQ(Run({"new", "--model-kind", "1", shell}).status, 0);
  EXPECT_EQ(Get(solid, "SUMMARY.Flag3D"), "1");
  EXPECT_EQ(Get(shell, "SUMMARY.Flag3D"), "0");

  const Result shown = Run({"show", shell});
  EXPECT_EQ(shown.status, 0);
  EXPECT_NE(shown.out.find("[SUMMARY]\n"), std::string::npos);
  EXPECT_NE(shown.out.find("\nFlag3D = 0\n"), std::string::npos);
  EXPECT_NE(shown.out.find("[SHELL_FILL]\n"), std::string::npos);
  EXPECT_EQ(shown.out.find("[SOLID_FILL]"), std::string::npos);
  EXPECT_EQ(Run({"get", shell, "SOLID_FILL.FlagInertia"}).status, 1);

  const std::string before = ReadText(solid);
  const Result again = Run({"new", "--model-kind=1", solid});
  EXPECT_EQ(again.status, 2);
  EXPECT_NE(again.err.find("already exists"), std::string::npos);
  EXPECT_EQ(ReadText(solid), before);
  EXPECT_EQ(Run({"new", "--model-kind", "0", Path("k0.krn")}).status, 2);
  EXPECT_FALSE(fs::exists(Path("k0.krn")));
}

TEST_F(NvxParamTest, SetEditsOnlyTheLinesOfItsKeysInTheFilesOwnForm) {
  const std::string file = Path("a.krn");
  ASSERT_EQ(Run({"new", file}).status, 0);
  // Comments, unknown sections and CRLF endings are the user's: set keeps them.
  std::string text = Lf(ReadText(file));
  for (std::size_t i = 0; (i = text.find('\n', i)) != std::string::npos; i += 2)
    text.insert(i, "\r");
  text = "# mine\r\n<MY_SECTION>\r\nX = 1\r\n</MY_SECTION>\r\n" + text;
  WriteText(file, text);

  // The file holds the 1-based output type; get and set speak the same form.
  EXPECT_EQ(Get(file, "FILL_OUTPUT_TIMES.FlagFillMultiOutputType"), "1");
  const Result set = Run({"set", file, "SOLID_FILL.FlagInertia=1", "SUMMARY.Creater=me",
                          "FILL_OUTPUT_TIMES.ValueNoFillOutputTime=3: 0.5, 1.25, 2",
                          "FILL_OUTPUT_TIMES.FlagFillMultiOutputType=2"});
  ASSERT_EQ(set.status, 0) << set.err;
  EXPECT_NE(set.out.find("SOLID_FILL.FlagInertia = 1"), std::string::npos) << set.out;
  std::string expected = text;
  for (const auto& [from, to] : std::vector<std::pair<std::string, std::string>>{
           {"FlagInertia = 0\r\n", "FlagInertia = 1\r\n"},
           {"FlagFillMultiOutputType = 1\r\n", "FlagFillMultiOutputType = 2\r\n"},
           {"ValueNoFillOutputTime = 0\r\n",
            "ValueNoFillOutputTime = 3\r\n1 = 0.5\r\n2 = 1.25\r\n3 = 2\r\n"}}) {
    ASSERT_NE(expected.find(from), std::string::npos) << from;
    expected.replace(expected.find(from), from.size(), to);
  }
  const std::string creater = expected.substr(expected.find("Creater ="));
  expected.replace(expected.find("Creater ="), creater.find('\r'), "Creater = me");
  EXPECT_EQ(ReadText(file), expected);
  EXPECT_EQ(Get(file, "FILL_OUTPUT_TIMES.ValueNoFillOutputTime"), "3: 0.5, 1.25, 2");
  EXPECT_EQ(Get(file, "FILL_OUTPUT_TIMES.FlagFillMultiOutputType"), "2");
}

TEST_F(NvxParamTest, SetWritesEveryLineOfASharedValueAndRefusesFixedKeys) {
  const std::string file = Path("a.krn");
  WriteText(file,
            "<SHELL_FILL>\nIDSolver = 0\n</SHELL_FILL>\n<SOLID_FILL>\nIDSolver = 0\n"
            "</SOLID_FILL>\n<SUMMARY>\nVersion = 1005\n</SUMMARY>\n");
  const Result set = Run({"set", file, "SHELL_FILL.IDSolver=3"});
  ASSERT_EQ(set.status, 0) << set.err;
  EXPECT_NE(set.out.find(":5: SOLID_FILL.IDSolver = 3"), std::string::npos) << set.out;
  EXPECT_EQ(ReadText(file),
            "<SHELL_FILL>\nIDSolver = 3\n</SHELL_FILL>\n<SOLID_FILL>\nIDSolver = 3\n"
            "</SOLID_FILL>\n<SUMMARY>\nVersion = 1005\n</SUMMARY>\n");
  const std::string before = ReadText(file);
  for (const char* bad :
       {"SUMMARY.Version=1", "SOLID_FILL.ValueGravityX=nan", "SOLID_FILL.ValueGravityX=1e400",
        "SOLID_FILL.IDSolver=0x10", "SOLID_FILL.FlagInertia=1"}) {
    const Result r = Run({"set", file, bad});
    EXPECT_EQ(r.status, 2) << bad;
    EXPECT_FALSE(r.err.empty());
  }
  EXPECT_EQ(ReadText(file), before);

  // add writes a missing key line after its predecessors; unset removes it.
  ASSERT_EQ(Run({"add", file, "SOLID_FILL.FlagInertia=1"}).status, 0);
  EXPECT_EQ(Get(file, "SOLID_FILL.FlagInertia"), "1");
  ASSERT_EQ(Run({"unset", file, "SOLID_FILL.FlagInertia", "SUMMARY"}).status, 0);
  EXPECT_EQ(ReadText(file),
            "<SHELL_FILL>\nIDSolver = 3\n</SHELL_FILL>\n<SOLID_FILL>\n"
            "IDSolver = 3\n</SOLID_FILL>\n");
  EXPECT_EQ(Run({"unset", file, "SUMMARY"}).status, 1);
}

TEST_F(NvxParamTest, EditsKeepTheLineEndsOfACrLfFile) {
  // Lines the edit adds (a key, a whole section) take the file's line end
  // whatever the system writes new files with.
  const std::string file = Path("crlf.krn");
  WriteText(file,
            "<SUMMARY>\r\nFlag3D = 1\r\nCreater = x\r\n</SUMMARY>\r\n<SOLID_FILL>\r\n"
            "IDSolver = 0\r\n</SOLID_FILL>\r\n");
  ASSERT_EQ(Run({"set", file, "SOLID_FILL.IDSolver=2"}).status, 0);
  ASSERT_EQ(Run({"add", file, "SOLID_FILL.FlagInertia=1", "FILL_OUTPUT_TIMES"}).status, 0);
  ASSERT_EQ(Run({"unset", file, "SUMMARY.Creater"}).status, 0);
  const std::string text = ReadText(file);
  ASSERT_FALSE(text.empty());
  EXPECT_EQ(text.back(), '\n');
  EXPECT_EQ(text.find("\r\r"), std::string::npos) << text;
  for (std::size_t i = 0; (i = text.find('\n', i)) != std::string::npos; ++i) {
    ASSERT_TRUE(i > 0 && text[i - 1] == '\r') << "line end without CR at byte " << i << ":\n"
                                              << text;
  }
  EXPECT_EQ(text.find("Creater"), std::string::npos);
  EXPECT_EQ(Get(file, "SOLID_FILL.IDSolver"), "2");
  EXPECT_EQ(Get(file, "SOLID_FILL.FlagInertia"), "1");
  EXPECT_EQ(Run({"get", file, "FILL_OUTPUT_TIMES.ValueNoFillOutputTime"}).status, 0);
}

TEST_F(NvxParamTest, RejectedCommandsNameTheProblemAndLeaveTheFileAsItWas) {
  const std::string file = Path("a.krn");
  ASSERT_EQ(Run({"new", file}).status, 0);
  const std::string before = ReadText(file);
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{"set", file, "SOLID_FIL.FlagInertia=1"}, "SOLID_FILL"},
      {{"set", file, "SOLID_FILL.FlagInertya=1"}, "FlagInertia"},
      {{"set", file, "SOLID_FILL.FlagInertia=2"}, "'2'"},
      {{"set", file, "SOLID_FILL.ValueGravityX=abc"}, "'abc'"},
      {{"set", file, "SUMMARY.Creater=two words"}, "blanks"},
      {{"set", file, "SOLID_FILL.FlagInertia=1", "SUMMARY.Flag3D=x"}, "'x'"},
      {{"set", file, "SUMMARY.Flag3D"}, "SECTION.Key=VALUE"},
      {{"get", file, "SUMMARY.Flag3d"}, "Flag3D"},
      {{"set", Path("missing.krn"), "SUMMARY.Flag3D=1"}, "no such file"},
  };
  for (const auto& [args, named] : cases) {
    const Result r = Run(args);
    EXPECT_EQ(r.status, 2) << args.back();
    EXPECT_EQ(r.err.rfind("nvxparam: ", 0), 0u) << r.err;
    EXPECT_NE(r.err.find(named), std::string::npos) << r.err;
  }
  EXPECT_EQ(ReadText(file), before);
  EXPECT_FALSE(fs::exists(Path("missing.krn")));

  // A section the project-file writer never writes (a viscoelastic curve)
  // is still written back: set falls back to the writer that keeps it.
  ASSERT_NE(before.find("<SOLID_VE_CURING_STRESS>"), std::string::npos);
  EXPECT_EQ(Run({"set", file, "SOLID_VE_STRESS.Version=3"}).status, 0);
  const std::string after = Lf(ReadText(file));
  EXPECT_NE(after.find("<SOLID_VE_STRESS>\nVersion = 3\n"), std::string::npos);
  EXPECT_NE(after.find("<SOLID_VE_CURING_STRESS>"), std::string::npos);
}

TEST_F(NvxParamTest, HelpGoesToStandardOutputAndMisuseToStandardError) {
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {"--help"}, {"-h"}, {"help", "set"}, {"set", "--help"}, {"to-rsv", "-h"}}) {
    const Result r = Run(args);
    EXPECT_EQ(r.status, 0) << args[0];
    EXPECT_EQ(r.out.rfind("usage: nvxparam", 0), 0u) << r.out;
  }
  for (const std::vector<std::string>& args :
       std::vector<std::vector<std::string>>{{}, {"frobnicate"}, {"help", "frobnicate"}}) {
    const Result r = Run(args);
    EXPECT_EQ(r.status, 2);
    EXPECT_TRUE(r.out.empty());
    EXPECT_FALSE(r.err.empty());
  }
}

TEST_F(NvxParamTest, RsvRoundTripKeepsValuesAndOutputTimes) {
  const std::string krn = Path("a.krn"), rsv = Path("a.rsv"), back = Path("back.krn");
  ASSERT_EQ(Run({"new", krn}).status, 0);
  ASSERT_EQ(Run({"set", krn, "SOLID_FILL.FlagInertia=1", "SUMMARY.Creater=me"}).status, 0);
  std::string text = Lf(ReadText(krn));
  const std::string count = "ValueNoFillOutputTime = 0\n";
  ASSERT_NE(text.find(count), std::string::npos);
  text.replace(text.find(count), count.size(), "ValueNoFillOutputTime = 2\n1 = 0.5\n2 = 1.5\n");
  WriteText(krn, text);

  const Result to = Run({"to-rsv", krn, rsv});
  ASSERT_EQ(to.status, 0) << to.err;
  const Result shown = Run({"show", rsv});
  EXPECT_EQ(shown.status, 0) << shown.err;
  EXPECT_NE(shown.out.find("[SOLID_FILL]\n"), std::string::npos);
  EXPECT_NE(shown.out.find("\nFlagInertia = 1\n"), std::string::npos);

  const Result from = Run({"from-rsv", rsv, back});
  ASSERT_EQ(from.status, 0) << from.err;
  EXPECT_EQ(Get(back, "SUMMARY.Creater"), "me");
  EXPECT_EQ(Get(back, "SOLID_FILL.FlagInertia"), "1");
  EXPECT_EQ(Get(back, "FILL_OUTPUT_TIMES.ValueNoFillOutputTime"), "2: 0.5, 1.5");
}

TEST_F(NvxParamTest, ReportPrintsTheComputationReportRows) {
  const std::string krn = Path("a.krn"), rsv = Path("a.rsv");
  ASSERT_EQ(Run({"new", krn}).status, 0);
  ASSERT_EQ(Run({"set", krn, "REMOTE_MACHINES.ValueMachineSetting=1: node%s|/w|2|1"}).status, 0);
  ASSERT_EQ(Run({"to-rsv", krn, rsv}).status, 0);
  const Result text = Run({"report", rsv});
  ASSERT_EQ(text.status, 0) << text.err;
  EXPECT_EQ(text.out.rfind("[Sequence/Result0]\n0\tStandard\n", 0), 0u) << text.out;
  EXPECT_NE(text.out.find("[TaskManager/Result0]\n0\tNo\n1\tlocalhost\n"), std::string::npos);
  EXPECT_NE(text.out.find("[TaskManager/Result1]\n0\tnode%s\n"), std::string::npos);
  const Result json = Run({"report", "--json", rsv});
  ASSERT_EQ(json.status, 0) << json.err;
  EXPECT_NE(json.out.find("\"TaskManager/Result0\": [{\"id\": 0, \"value\": \"No\"}"),
            std::string::npos)
      << json.out;
  // A KRN file, or an HDF5 file without a report, is refused.
  EXPECT_EQ(Run({"report", krn}).status, 2);
}

TEST_F(NvxParamTest, UnusableRsvFilesAreRefusedBeforeAnythingIsWritten) {
  const std::string text = Path("text.rsv"), bare = Path("bare.rsv"), krn = Path("a.krn");
  WriteText(text, "not an HDF5 file\n");
  {
    NVX3DRSVExTool::CRSVTool tool;  // an HDF5 file without the parameter group
    ASSERT_EQ(tool.Create(bare, 4, 1, 0), 0);
  }
  const std::vector<std::pair<std::string, std::string>> cases = {
      {Path("missing.rsv"), "no such file"},
      {text, "not an RSV"},
      {bare, "no computation parameters"},
  };
  for (const auto& [rsv, named] : cases) {
    const Result r = Run({"from-rsv", rsv, krn});
    EXPECT_EQ(r.status, 2) << rsv;
    EXPECT_NE(r.err.find(named), std::string::npos) << r.err;
    EXPECT_FALSE(fs::exists(krn));
  }
  EXPECT_EQ(Run({"show", text}).status, 2);

  ASSERT_EQ(Run({"new", krn}).status, 0);
  EXPECT_EQ(Run({"to-rsv", krn, text}).status, 2);
  EXPECT_EQ(ReadText(text), "not an HDF5 file\n");
}

TEST_F(NvxParamTest, DiffCheckAndJsonAnswerWithTheirExitStatus) {
  const std::string a = Path("a.krn"), b = Path("b.krn");
  ASSERT_EQ(Run({"new", a}).status, 0);
  ASSERT_EQ(Run({"new", b}).status, 0);
  ASSERT_EQ(Run({"set", b, "SOLID_FILL.FlagInertia=1", "SUMMARY.Time=t"}).status, 0);
  ASSERT_EQ(Run({"set", a, "SUMMARY.Time=t"}).status, 0);
  EXPECT_EQ(Run({"diff", a, a}).status, 0);
  Result r = Run({"diff", a, b});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "SOLID_FILL.FlagInertia: 0 -> 1\n");
  r = Run({"diff", "--json", a, b});
  EXPECT_NE(r.out.find("\"equal\": false, \"differences\": [\n  {\"key\": "
                       "\"SOLID_FILL.FlagInertia\", \"a\": \"0\", \"b\": \"1\"}\n]}"),
            std::string::npos)
      << r.out;
  EXPECT_EQ(Run({"diff", a, Path("missing.krn")}).status, 2);

  r = Run({"get", "--json", a, "SOLID_FILL.FlagInertia"});
  EXPECT_EQ(r.out, "{\"key\": \"SOLID_FILL.FlagInertia\", \"value\": \"0\"}\n");
  EXPECT_EQ(Run({"check", a}).status, 0);

  const std::string bad = Path("bad.krn");
  WriteText(bad,
            "<SUMMARY>\nFlag3D = 7\nVersion = 0.5abc\nBogus = 1\n</SUMMARY>\n<FOO>\n"
            "<FILL_OUTPUT_TIMES>\nValueNoFillOutputTime = 3\n1 = 0.5\n</FILL_OUTPUT_TIMES>\n"
            "<SUMMARY>\n</SUMMARY>\n");
  const std::string before = ReadText(bad);
  r = Run({"check", bad});
  EXPECT_EQ(r.status, 1);
  for (const char* line :
       {":2: Flag3D: '7' is not a flag", ":3: Version: '0.5abc'", ":4: unknown key",
        ":6: unknown section <FOO>", ":8: ValueNoFillOutputTime counts 3 but 1",
        ":11: section SUMMARY appears again"}) {
    EXPECT_NE(r.out.find(line), std::string::npos) << line << "\n" << r.out;
  }
  r = Run({"check", "--json", bad});
  EXPECT_EQ(r.out.rfind("{\"file\": ", 0), 0u);
  EXPECT_NE(r.out.find("{\"line\": 6, \"message\": \"unknown section <FOO> (ignored)\"}"),
            std::string::npos);
  EXPECT_EQ(ReadText(bad), before);  // reading verbs never write
}

TEST_F(NvxParamTest, StandardInputVersionAndDirectoriesAreUnderstood) {
  const std::string a = Path("a.krn");
  ASSERT_EQ(Run({"new", a}).status, 0);
  const Result in = Run({"get", "-", "SUMMARY.Flag3D"}, a);
  EXPECT_EQ(in.status, 0) << in.err;
  EXPECT_EQ(in.out, "1\n");
  EXPECT_EQ(Run({"--version"}).out.rfind("nvxparam ", 0), 0u);
  const Result r = Run({"show", dir_.Path()});
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find("is a directory"), std::string::npos) << r.err;
}

TEST_F(NvxParamTest, FromRsvWritesTheFilesModelKindAndNamesWhatItLost) {
  const std::string shell = Path("s.krn"), rsv = Path("s.rsv"), back = Path("back.krn");
  ASSERT_EQ(Run({"new", "--model-kind", "1", shell}).status, 0);
  ASSERT_EQ(Run({"to-rsv", shell, rsv}).status, 0);
  const Result r = Run({"from-rsv", rsv, back});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.err.find("does not hold these KRN keys"), std::string::npos) << r.err;
  const std::string text = ReadText(back);
  EXPECT_NE(text.find("<SHELL_FILL>"), std::string::npos);
  EXPECT_EQ(text.find("<SOLID_FILL>"), std::string::npos);
}

}  // namespace

TEST_F(NvxParamTest, ValuesOutsideAKeysRangeAreRefusedAndKeysShowMeanings) {
  const std::string file = Path("a.krn");
  ASSERT_EQ(Run({"new", file}).status, 0);
  const std::string before = ReadText(file);
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"SOLID_FILL.ValueEOFPercent=-5", "0 to 1"},
      {"SOLID_COOL.ValueConvergeType=4", "1 to 3"},
      {"SOLID_COOL.ValueConvergeUnit=0", "1 to 2"},
  };
  for (const auto& [assignment, named] : cases) {
    const Result r = Run({"set", file, "SOLID_FILL.ValueGravityX=1", assignment});
    EXPECT_EQ(r.status, 2) << assignment;
    EXPECT_NE(r.err.find(named), std::string::npos) << r.err;
  }
  EXPECT_EQ(ReadText(file), before);
  ASSERT_EQ(Run({"unset", file, "SOLID_COOL.ValueConvergeType"}).status, 0);
  EXPECT_EQ(Run({"add", file, "SOLID_COOL.ValueConvergeType=0"}).status, 2);

  // The edges of a range are values like any other.
  ASSERT_EQ(Run({"add", file, "SOLID_COOL.ValueConvergeType=1"}).status, 0);
  ASSERT_EQ(
      Run({"set", file, "SOLID_COOL.ValueConvergeUnit=2", "SOLID_FILL.ValueEOFPercent=1"}).status,
      0);
  EXPECT_EQ(Get(file, "SOLID_COOL.ValueConvergeType"), "1");
  EXPECT_EQ(Get(file, "SOLID_FILL.ValueEOFPercent"), "1");

  const Result text = Run({"keys", "SOLID_COOL"});
  EXPECT_NE(text.out.find("meaning: convergence unit: 1 degree, 2 percentage"), std::string::npos);
  const Result json = Run({"keys", "--json", "SUMMARY"});
  EXPECT_NE(json.out.find("\"key\": \"SUMMARY.FlagFill\", "), std::string::npos);
  EXPECT_NE(json.out.find("\"meaning\": \"run the filling stage\"}"), std::string::npos);
  EXPECT_NE(json.out.find("\"meaning\": \"\"}"), std::string::npos);  // DefaultMode
}
