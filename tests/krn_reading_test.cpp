// Tokenising, scanning and generic section reading of KRN files.
#include <gtest/gtest.h>

#include <sstream>

#include "NVX3DComputation.h"
#include "TestUtil.h"
#include "krn/KRNDocument.h"
#include "krn/KRNLine.h"

using namespace nvx;

namespace {

CNVX3DKRNDocument ScanText(const std::string& text) {
  CNVX3DKRNDocument doc;
  std::istringstream in(text);
  doc.Scan(in);
  return doc;
}

std::vector<std::string> BodyOf(const CNVX3DKRNDocument& doc, KrnTag tag) {
  LineSpan body = doc.Body(tag);
  return {body.begin(), body.end()};
}

}  // namespace

TEST(KrnLine, BlankAndEqualsSeparateKeyFromValue) {
  for (const char* line : {"Key=value", "Key = value", "Key   =   value", "  Key= =value x"}) {
    KeyValue kv = SplitKeyValue(line);
    EXPECT_EQ(kv.key, "Key") << line;
    EXPECT_EQ(kv.value, "value") << line;
  }
  // A value never holds a blank: a path is cut at the first one.
  EXPECT_EQ(SplitKeyValue("File = C:\\My Projects\\a.krn").value, "C:\\My");
  // A tab is no separator; it stays in front of the value and the numeric
  // conversions skip it.
  KeyValue tab = SplitKeyValue("FlagEstimateFiber =\t1");
  EXPECT_EQ(tab.value, "\t1");
  EXPECT_EQ(ParseInt(tab.value), 1);
  EXPECT_TRUE(SplitKeyValue("Key =").value.empty());
}

TEST(KrnLine, ConversionsBehaveLikeTheCLibrary) {
  EXPECT_EQ(ParseInt("42abc"), 42);
  EXPECT_EQ(ParseInt("x"), 0);
  EXPECT_EQ(ParseInt(""), 0);
  EXPECT_EQ(ParseInt("1(1:"), 1);
  EXPECT_EQ(ParseInt("99999999999"), INT32_MAX);
  EXPECT_EQ(ParseInt("-99999999999"), INT32_MIN);
  EXPECT_DOUBLE_EQ(ParseDouble("2.000000e+001"), 20.0);
  EXPECT_DOUBLE_EQ(ParseDouble("20.000000"), 20.0);
  EXPECT_DOUBLE_EQ(ParseDouble("junk"), 0.0);
}

TEST(KrnScan, FramingIsOptionalAndUnknownSectionsAreSkipped) {
  CNVX3DKRNDocument doc = ScanText(
      "<SUMMARY>\nFlag3D = 1\n\nFlagFill = 0\n</SUMMARY>\n"
      "<UNKNOWN>\nFlag3D = 5\n</UNKNOWN>\nstray = 1\n<SOLID_FILL>\nVersion = 3\n");
  EXPECT_TRUE(doc.IsPresent(KrnTag::kSummary));
  EXPECT_EQ(BodyOf(doc, KrnTag::kSummary),
            (std::vector<std::string>{"Flag3D = 1", "FlagFill = 0"}));
  // A section without its closing tag runs to the end of the file.
  EXPECT_EQ(BodyOf(doc, KrnTag::kSolidFill), (std::vector<std::string>{"Version = 3"}));
  EXPECT_FALSE(doc.IsPresent(KrnTag::kShellFill));
}

TEST(KrnScan, TagsAreExactAndCaseSensitive) {
  CNVX3DKRNDocument doc = ScanText(
      "<?xml version=\"1.0\"?>\n<KRN_FILE>\n <SUMMARY>\n</SUMMARY>\n<SUMMARY> \n<solid_fill>\n"
      "<SHELL_FILL>\r\nVersion = 1\r\n</SHELL_FILL>\r\n</KRN_FILE>\n");
  EXPECT_FALSE(doc.IsPresent(KrnTag::kSummary));
  EXPECT_FALSE(doc.IsPresent(KrnTag::kSolidFill));
  // A "\r\n" line end is a line end, as on the files' home platform.
  EXPECT_EQ(BodyOf(doc, KrnTag::kShellFill), (std::vector<std::string>{"Version = 1"}));
}

TEST(KrnScan, LinesOfMoreThan511CharactersEndTheScan) {
  const std::string longest(511, 'x');
  CNVX3DKRNDocument ok = ScanText("<SUMMARY>\n" + longest + "\n</SUMMARY>\n<SOLID_FILL>\n");
  EXPECT_EQ(BodyOf(ok, KrnTag::kSummary), (std::vector<std::string>{longest}));
  EXPECT_TRUE(ok.IsPresent(KrnTag::kSolidFill));

  CNVX3DKRNDocument cut =
      ScanText("<SUMMARY>\nA = 1\n" + longest + "y\n</SUMMARY>\n<SOLID_FILL>\n");
  EXPECT_EQ(BodyOf(cut, KrnTag::kSummary), (std::vector<std::string>{"A = 1"}));
  EXPECT_FALSE(cut.IsPresent(KrnTag::kSolidFill));
}

TEST(KrnScan, RepeatedSectionKeepsBothButReadsTheFirst) {
  CNVX3DKRNDocument doc = ScanText("<SUMMARY>\nA = 1\n</SUMMARY>\n<SUMMARY>\nA = 2\n</SUMMARY>\n");
  EXPECT_EQ(BodyOf(doc, KrnTag::kSummary), (std::vector<std::string>{"A = 1"}));
  EXPECT_EQ(doc.Lines().size(), 6u);
}

TEST(KrnScan, UnreadableFileChangesNothing) {
  CNVX3DKRNDocument doc = ScanText("<SUMMARY>\n</SUMMARY>\n");
  EXPECT_FALSE(doc.Scan("/nonexistent/dir/file.krn"));
  EXPECT_TRUE(doc.IsPresent(KrnTag::kSummary));
}

TEST(KrnScan, EitherSystemsLineEndsReadAlike) {
  // The same file with LF, CR LF and CR CR LF line ends: the same lines, none
  // with a CR, and the same values.
  const std::string lf =
      "<?xml version=\"1.0\"?>\n<KRN_FILE>\n<SUMMARY>\nCreater = Me\nFlag3D = 1\n"
      "</SUMMARY>\n</KRN_FILE>\n";
  nvxtest::TempDir dir;
  std::vector<std::string> lfLines;
  for (const std::string end : {"\n", "\r\n", "\r\r\n"}) {
    std::string text;
    for (char c : lf) text += c == '\n' ? end : std::string(1, c);
    const std::string path = dir.File("f.krn");
    nvxtest::WriteText(path, text);

    CNVX3DKRNDocument doc;
    ASSERT_TRUE(doc.Scan(path));
    if (lfLines.empty()) lfLines = doc.Lines();
    EXPECT_EQ(doc.Lines(), lfLines) << end.size();

    CNVX3DComputation c;
    ASSERT_TRUE(c.LoadKRNFile(path.c_str()));
    std::string creater;
    c.GetSummaryCreater(creater);
    EXPECT_EQ(creater, "Me") << end.size();
    bool flag3D = false;
    c.GetSummaryFlag3D(flag3D);
    EXPECT_TRUE(flag3D) << end.size();
  }
  EXPECT_EQ(lfLines,
            (std::vector<std::string>{"<SUMMARY>", "Creater = Me", "Flag3D = 1", "</SUMMARY>"}));
}
