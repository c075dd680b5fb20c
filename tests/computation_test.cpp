// The parameter object: loading, writing, the Summary section and the
// generic members.
#include <gtest/gtest.h>

#include "NVX3DComputation.h"
#include "TestUtil.h"

using nvxtest::ReadTextLF;
using nvxtest::TempDir;
using nvxtest::WriteText;

namespace {

std::string g_debugText;
void CaptureDebug(const char* text) { g_debugText += text; }

class ComputationTest : public ::testing::Test {
 protected:
  TempDir dir_;
  nvxtest::UserDirScope userDir_{dir_.File("config")};
  CNVX3DComputation c_;

  NVXData Data(const std::string& file, int loadMode, int modelKind = 2) {
    NVXData d{};
    d.KRNFilePath = dir_.File(file);
    d.LoadMode = loadMode;
    d.ModelKind = modelKind;
    return d;
  }
};

}  // namespace

TEST_F(ComputationTest, SummaryValuesReadAsOneTokenAndFlagsWhenPositive) {
  WriteText(dir_.File("a.krn"),
            "<SUMMARY>\nFile = C:\\My Projects\\a.krn\nVersion = 1003\nCreater = My Engine\n"
            "Flag3D = 2\nFlagFill = -1\nFlagPack=1\nDefaultMode = 7\nUnknown = 3\n</SUMMARY>\n");
  c_.SetSummaryFlagMCM(true);
  ASSERT_TRUE(c_.LoadKRNFile(dir_.File("a.krn").c_str()));
  std::wstring file;
  std::string creater;
  bool flag = false;
  int version = 0;
  c_.GetSummaryFile(file);
  EXPECT_EQ(file, L"C:\\My");
  EXPECT_EQ(c_.GetSummaryVersion(version), 1003);
  EXPECT_EQ(version, 1003);
  EXPECT_EQ(c_.GetSummaryCreater(creater), 1);
  EXPECT_EQ(creater, "My");
  c_.GetSummaryFlag3D(flag);
  EXPECT_TRUE(flag);
  c_.GetSummaryFlagFill(flag);
  EXPECT_FALSE(flag);
  c_.GetSummaryFlagPack(flag);
  EXPECT_TRUE(flag);
  c_.GetSummaryFlagMCM(flag);  // absent: keeps the earlier value
  EXPECT_TRUE(flag);
  EXPECT_EQ(c_.GetDefaultMode(), 1);
}

TEST_F(ComputationTest, SummaryIsWrittenWithVersion1005AndWideFileInUtf8) {
  ASSERT_TRUE(c_.LoadKRNFile(Data("new.krn", 1)));
  c_.SetSummaryVersion(7);
  c_.SetSummaryFile(L"d\u00e9j\u00e0.krn");
  c_.SetSummaryCreater("Me");
  ASSERT_TRUE(c_.WriteKRNFile(dir_.File("new.krn"), 0));
  const std::string text = ReadTextLF(dir_.File("new.krn"));
  EXPECT_EQ(text.rfind("<?xml version=\"1.0\"?>\n<KRN_FILE>\n<SUMMARY>\n", 0), 0u);
  EXPECT_NE(text.find("File = d\xc3\xa9j\xc3\xa0.krn\nVersion = 1005\nCreater = Me\nTime = "),
            std::string::npos);
  EXPECT_NE(text.find("FlagTaskManager = 1\nDefaultMode = 0\n</SUMMARY>\n"), std::string::npos);
  EXPECT_EQ(text.substr(text.size() - 12), "</KRN_FILE>\n");

  CNVX3DComputation back;
  ASSERT_TRUE(back.LoadKRNFile(dir_.File("new.krn").c_str()));
  std::wstring file;
  back.GetSummaryFile(file);
  EXPECT_EQ(file, L"d\u00e9j\u00e0.krn");
}

TEST_F(ComputationTest, LoadValidatesOnlyWhenTheFileExists) {
  WriteText(dir_.File("p.krn"), "<SUMMARY>\nVersion = 3\n</SUMMARY>\n");
  NVXData d = Data("p.krn", 4);
  EXPECT_FALSE(c_.LoadKRNFile(d));
  d = Data("p.krn", 0, 4);
  EXPECT_FALSE(c_.LoadKRNFile(d));
  d = Data("p.krn", 0);
  d.AnalysisType = -1;
  EXPECT_FALSE(c_.LoadKRNFile(d));
  // Missing file: the result is true whatever the description says.
  EXPECT_TRUE(c_.LoadKRNFile(Data("missing.krn", 7)));
  EXPECT_TRUE(c_.LoadKRNFile(NVXData{}));
  EXPECT_FALSE(c_.LoadKRNFile("/nonexistent/x.krn"));
}

TEST_F(ComputationTest, LoadModeDecidesWhetherTheFileIsRead) {
  WriteText(dir_.File("p.krn"),
            "<SUMMARY>\nVersion = 3\n</SUMMARY>\n<SHELL_FILL>\n</SHELL_FILL>\n");
  int version = 0;
  ASSERT_TRUE(c_.LoadKRNFile(Data("p.krn", 0)));
  EXPECT_TRUE(c_.IsFileExists());
  EXPECT_EQ(c_.GetSummaryVersion(version), 3);

  ASSERT_TRUE(c_.LoadKRNFile(Data("p.krn", 1)));  // defaults of the model kind
  EXPECT_EQ(c_.GetSummaryVersion(version), 1005);

  c_.SetSummaryVersion(11);
  ASSERT_TRUE(c_.LoadKRNFile(Data("p.krn", 3)));  // mode 3 reads nothing
  EXPECT_EQ(c_.GetSummaryVersion(version), 1005);
  bool flag = true;
  c_.GetSummaryFlag3D(flag);
  EXPECT_TRUE(flag);  // solid preset
  ASSERT_TRUE(c_.LoadKRNFile(Data("p.krn", 2, 1)));
  c_.GetSummaryFlag3D(flag);
  EXPECT_FALSE(flag);  // shell preset
}

TEST_F(ComputationTest, MissingProjectFileStartsFromThePerUserTemplate) {
  // The template carries the sections the object's document held.
  WriteText(dir_.File("a.krn"), "<SUMMARY>\n</SUMMARY>\n");
  ASSERT_TRUE(c_.LoadKRNFile(Data("a.krn", 0)));
  c_.SetSummaryCreater("FromTemplate");
  ASSERT_TRUE(c_.WriteKRNFile(dir_.File("a.krn"), 1));  // also writes the template

  CNVX3DComputation fresh;
  ASSERT_TRUE(fresh.LoadKRNFile(Data("missing.krn", 0)));
  std::string creater;
  fresh.GetSummaryCreater(creater);
  EXPECT_EQ(creater, "FromTemplate");
}

// Runs in a child process that ends without destructors: after a shallow
// assignment two objects share one implementation, and one of them is never
// destroyed.
TEST(ComputationDeathTest, AssignmentSharesTheImplementation) {
  EXPECT_EXIT(
      {
        CNVX3DComputation a;
        auto* b = new CNVX3DComputation;
        *b = a;
        b->SetSummaryCreater("Shared");
        std::string creater;
        a.GetSummaryCreater(creater);
        std::_Exit(creater == "Shared" ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "");
}

TEST_F(ComputationTest, GenericMembersKeepTheirOddities) {
  c_.SetCriterionForStoppingCalculation(5);
  EXPECT_EQ(c_.GetCriterionForStoppingCalculation(), 0);
  EXPECT_EQ(c_.GetCriterionForStoppingCalculation(), 0);

  c_.SetTimeSteps(0, 2);
  int page = 0;
  EXPECT_EQ(c_.GetTimeSteps(page), 2);
  c_.SetTimeStepValue(0, 1, 2.5);
  EXPECT_DOUBLE_EQ(c_.GetTimeStepValue(0, 1), 2.5);
  EXPECT_DOUBLE_EQ(c_.GetTimeStepValue(4, 0), 0.0);
  c_.SetTimeSteps(4, 9);
  try {
    c_.GetTimeStepValue(0, 2);
    FAIL() << "no exception";
  } catch (const std::out_of_range& e) {
    EXPECT_STREQ(e.what(), "invalid vector<T> subscript");
  }
  EXPECT_THROW(c_.SetTimeStepValue(1, -1, 1.0), std::out_of_range);
}

TEST_F(ComputationTest, LoadModeThreeWritesNothingAndTellsTheDebugger) {
  NVXSetDebugOutputHandler(CaptureDebug);
  g_debugText.clear();
  ASSERT_TRUE(c_.LoadKRNFile(Data("missing.krn", 3)));
  EXPECT_FALSE(c_.WriteKRNFile(dir_.File("out.krn"), 0));
  NVXSetDebugOutputHandler(nullptr);
  EXPECT_EQ(g_debugText, "Can't find KRN file");
  EXPECT_FALSE(std::filesystem::exists(dir_.File("out.krn")));
}

TEST(NVXDataTest, ValueInitialisedHoldsZeros) {
  NVXData d{};
  EXPECT_EQ(d.LoadMode, 0);
  EXPECT_TRUE(d.KRNFilePath.empty());
  EXPECT_FALSE(d.MaterialHasFiller);
  EXPECT_EQ(d.FiberWeight, 0.0);
  EXPECT_EQ(d.MoldPreheatTime, 0.0);
}
