// Label rules and the bounded record-text formatter of the computation report.
#include "rsv/ReportText.h"

#include <cstdio>
#include <cstring>

namespace nvx {
namespace {

// Length of the printf directive starting at text[at] == '%': flags, width,
// precision, length modifiers and the conversion character. A directive cut
// short by the end of the text runs to the end.
std::size_t DirectiveLength(const std::string& text, std::size_t at) {
  std::size_t i = at + 1;
  const auto skip = [&](const char* set) {
    while (i < text.size() && std::strchr(set, text[i]) != nullptr) ++i;
  };
  skip("-+ #0'");
  skip("0123456789*");
  if (i < text.size() && text[i] == '.') {
    ++i;
    skip("0123456789*");
  }
  skip("hlLqjzt");
  if (i < text.size()) ++i;  // the conversion character
  return i - at;
}

}  // namespace

const char* YesNo(int value) { return value == 1 ? "Yes" : "No"; }

const char* EnhancedStandard(int value) { return value == 1 ? "Enhanced" : "Standard"; }

std::string ThreeWay(int value, const char* first, const char* second, const char* third,
                     const std::string& previous) {
  switch (value) {
    case 0:
      return first;
    case 1:
      return second;
    case 2:
      return third;
    default:
      return previous;
  }
}

std::string Decimal(int value) { return std::to_string(value); }

std::string Decimal(double value) {
  char buffer[kReportTextSize];
  const int n = std::snprintf(buffer, sizeof buffer, "%lg", value);
  return n > 0 && static_cast<std::size_t>(n) < sizeof buffer ? std::string(buffer, n) : "";
}

std::string FormatRecordText(const std::string& record) {
  // The formatter sees a C string: an embedded NUL ends the text.
  const std::string text = record.substr(0, record.find('\0'));
  std::string out;
  for (std::size_t i = 0; i < text.size();) {
    if (text[i] != '%') {
      out += text[i++];
    } else if (i + 1 < text.size() && text[i + 1] == '%') {
      out += '%';
      i += 2;
    } else {
      const std::size_t n = DirectiveLength(text, i);
      out.append(text, i, n);
      i += n;
    }
    if (out.size() >= kReportTextSize) return {};
  }
  return out;
}

}  // namespace nvx
