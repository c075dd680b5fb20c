// The report's label rules and its bounded formatter for record texts.
#include <gtest/gtest.h>

#include <string>

#include "rsv/ReportText.h"

using namespace nvx;

TEST(ReportLabels, FollowTheirRules) {
  EXPECT_STREQ(YesNo(1), "Yes");
  EXPECT_STREQ(YesNo(2), "No");  // only 1 is "Yes"
  EXPECT_STREQ(YesNo(-1), "No");
  EXPECT_STREQ(EnhancedStandard(1), "Enhanced");
  EXPECT_STREQ(EnhancedStandard(0), "Standard");
  EXPECT_EQ(ThreeWay(2, "Off", "One-Way", "Two-Way", "before"), "Two-Way");
  // An unknown value keeps the text of the row before.
  EXPECT_EQ(ThreeWay(3, "Off", "One-Way", "Two-Way", "before"), "before");
  EXPECT_EQ(ThreeWay(-1, "a", "b", "c", "12"), "12");
  EXPECT_EQ(Decimal(0.0005), "0.0005");
  EXPECT_EQ(Decimal(5e-05), "5e-05");
  EXPECT_EQ(Decimal(-7), "-7");
}

TEST(ReportRecordText, PercentDirectivesNeverReadArguments) {
  EXPECT_EQ(FormatRecordText("node-01"), "node-01");
  EXPECT_EQ(FormatRecordText("100%% busy"), "100% busy");
  // Directives that would take an argument are shown as written.
  EXPECT_EQ(FormatRecordText("%s%s%n"), "%s%s%n");
  EXPECT_EQ(FormatRecordText("a%-08.3lfb%*d%"), "a%-08.3lfb%*d%");
  EXPECT_EQ(FormatRecordText("50%"), "50%");
  // The formatter sees a C string.
  EXPECT_EQ(FormatRecordText(std::string("ab\0cd", 5)), "ab");
}

TEST(ReportRecordText, TextsThatDoNotFitTheFieldAreEmpty) {
  EXPECT_EQ(FormatRecordText(std::string(127, 'x')).size(), 127u);
  EXPECT_EQ(FormatRecordText(std::string(128, 'x')), "");
  // "%%" shrinks, so a long source can still fit.
  EXPECT_EQ(FormatRecordText(std::string(200, '%')).size(), 100u);
}
