// The fast number paths give exactly the text and values of the stream and C
// conversions they replace: every notation and precision the writers use, and
// documents longer than one read block.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <string>

#include "krn/KRNDocument.h"
#include "krn/KRNLine.h"
#include "krn/KRNStream.h"

namespace {

using nvx::KrnStream;

// What an ostream prints with the same settings (the precision <= 0 rule
// applied first, as the document stream does).
std::string StreamText(double v, bool fixed, bool scientific, int precision) {
  if (precision <= 0 && !fixed) precision = 6;
  if (precision < 0) precision = 0;
  std::ostringstream os;
  if (fixed) {
    os.setf(std::ios_base::fixed, std::ios_base::floatfield);
  } else if (scientific) {
    os.setf(std::ios_base::scientific, std::ios_base::floatfield);
  }
  os.precision(precision);
  os << v;
  return os.str();
}

const double kValues[] = {0.0,
                          -0.0,
                          0.1234567,
                          1e-5,
                          -1.5e-3,
                          123456789.0,
                          999999.5,
                          9.9999996,
                          0.5,
                          2.5,
                          0.125,
                          1e20,
                          3e100,
                          7e-100,
                          1e300,
                          -1e-300,
                          4.9e-324,
                          1.0 / 3,
                          65535.0,
                          1e15,
                          1e16,
                          123456.5,
                          0.000125,
                          1e-4,
                          1e6,
                          -42.0,
                          std::numeric_limits<double>::max(),
                          std::numeric_limits<double>::infinity(),
                          -std::numeric_limits<double>::infinity(),
                          std::numeric_limits<double>::quiet_NaN()};

TEST(NumberFormat, DoublesPrintAsTheStreamPrintsThem) {
  for (double v : kValues) {
    for (int precision : {-1, 0, 1, 5, 6, 10, 17}) {
      for (int notation = 0; notation < 4; ++notation) {
        const bool fixed = notation & 1;
        const bool scientific = notation == 2;  // both flags: fixed wins
        std::string text;
        KrnStream out(text);
        if (notation == 3) {
          out.Scientific();
          out.FixedKeepScientific();
        } else if (fixed) {
          out.Fixed();
        } else if (scientific) {
          out.Scientific();
        }
        out.Precision(precision);
        out.Double(v);
        EXPECT_EQ(text, StreamText(v, fixed, scientific, precision))
            << v << " precision " << precision << " notation " << notation;
      }
    }
  }
  // The two-digit exponent and the 6-digit rule for precision 0.
  std::string text;
  KrnStream out(text);
  out.Precision(0);
  out.Double(1e-5).Text(" ");
  out.Scientific();
  out.Double(0.1234567).Text(" ");
  out.Fixed();
  out.Double(2.5).Text(" ");
  out.Int(-2147483648LL);
  EXPECT_EQ(text, "1e-05 1.234567e-01 2 -2147483648");
}

TEST(NumberFormat, ConversionsReadAsStrtodAndStrtoll) {
  const char* tokens[] = {
      "0",     "1.5",    "-2.25e-3", "\t7",        " 8e+05",      "+3.5",
      "0x1p3", "-0x10",  "1e400",    "-1e400",     "1e-400",      "4.9e-324",
      "inf",   "-nan",   "abc",      "",           "-",           ".",
      "1e",    "1.5abc", "12,5",     "2147483648", "-2147483649", "99999999999999999999",
      "007",   "1 2"};
  for (const char* t : tokens) {
    const double want = std::strtod(t, nullptr);
    const double got = nvx::ParseDouble(t);
    if (std::isnan(want)) {
      EXPECT_TRUE(std::isnan(got)) << t;
    } else {
      EXPECT_EQ(std::signbit(got), std::signbit(want)) << t;
      EXPECT_EQ(got, want) << t;
    }
    long long wide = std::strtoll(t, nullptr, 10);
    wide = std::max<long long>(INT32_MIN, std::min<long long>(INT32_MAX, wide));
    EXPECT_EQ(nvx::ParseInt(t), wide) << t;
  }
}

TEST(NumberFormat, LinesAcrossReadBlocksScanWhole) {
  // About 200 KB: lines cross the reader's block boundaries, the last line
  // has no end-of-line, and "\r\n" endings are taken off.
  std::string text = "<?xml version=\"1.0\"?>\r\n<KRN_FILE>\n<FILL_OUTPUT_TIMES>\n";
  for (int i = 1; i <= 20000; ++i)
    text += std::to_string(i) + " = " + std::to_string(i * 0.5) + "\r\n";
  text += "</FILL_OUTPUT_TIMES>\n<SUMMARY>\nVersion = 7";
  std::istringstream in(text);
  CNVX3DKRNDocument doc;
  doc.Scan(in);
  const nvx::LineSpan body = doc.Body(nvx::KrnTag::kFillOutputTimes);
  ASSERT_EQ(body.size(), 20000u);
  EXPECT_EQ(body.first[0], "1 = 0.500000");
  EXPECT_EQ(body.first[19999], "20000 = 10000.000000");
  ASSERT_EQ(doc.Body(nvx::KrnTag::kSummary).size(), 1u);
  EXPECT_EQ(doc.Body(nvx::KrnTag::kSummary).first[0], "Version = 7");

  // A line of 512 characters or more ends the scan there.
  std::istringstream longLine("<SUMMARY>\nA = 1\n" + std::string(600, 'x') +
                              "\nB = 2\n</SUMMARY>\n");
  doc.Scan(longLine);
  EXPECT_EQ(doc.Body(nvx::KrnTag::kSummary).size(), 1u);
}

}  // namespace
