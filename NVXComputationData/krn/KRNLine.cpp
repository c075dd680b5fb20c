// Tokens and numeric conversions of KRN parameter lines.
#include "krn/KRNLine.h"

#include <charconv>
#include <climits>
#include <cstdlib>
#include <string>

namespace nvx {
namespace {

bool IsDelimiter(char c, std::string_view delimiters) {
  for (char d : delimiters) {
    if (c == d) return true;
  }
  return false;
}

// The white space the C conversions skip before a number.
bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

}  // namespace

std::string_view NextToken(std::string_view& rest, std::string_view delimiters) {
  // One pass: skip delimiters, then take characters up to the next one.
  const char* p = rest.data();
  const char* const end = p + rest.size();
  while (p != end && IsDelimiter(*p, delimiters)) ++p;
  const char* const start = p;
  while (p != end && !IsDelimiter(*p, delimiters)) ++p;
  rest = std::string_view(p, static_cast<std::size_t>(end - p));
  return std::string_view(start, static_cast<std::size_t>(p - start));
}

KeyValue SplitKeyValue(std::string_view line) {
  // NextToken with the delimiters blank and "=", written out: this runs for
  // every line of a document.
  const auto delimiter = [](char c) { return c == ' ' || c == '='; };
  const char* p = line.data();
  const char* const end = p + line.size();
  KeyValue kv;
  std::string_view* tokens[2] = {&kv.key, &kv.value};
  for (std::string_view* token : tokens) {
    while (p != end && delimiter(*p)) ++p;
    const char* const start = p;
    while (p != end && !delimiter(*p)) ++p;
    *token = std::string_view(start, static_cast<std::size_t>(p - start));
  }
  return kv;
}

std::int32_t ParseInt(std::string_view token) {
  // strtoll's reading of a token (white space, sign, decimal digits), clamped
  // to 32 bits.
  const char* p = token.data();
  const char* const end = p + token.size();
  while (p != end && IsSpace(*p)) ++p;
  bool negative = false;
  if (p != end && (*p == '+' || *p == '-')) negative = *p++ == '-';
  long long v = 0;
  for (; p != end && *p >= '0' && *p <= '9'; ++p) {
    if (v <= static_cast<long long>(INT32_MAX) + 1) v = v * 10 + (*p - '0');
  }
  if (negative) v = -v;
  if (v > INT32_MAX) return INT32_MAX;
  if (v < INT32_MIN) return INT32_MIN;
  return static_cast<std::int32_t>(v);
}

double ParseDouble(std::string_view token) {
  const char* p = token.data();
  const char* const end = p + token.size();
  while (p != end && IsSpace(*p)) ++p;
  // from_chars reads decimal numbers exactly as strtod does. strtod alone
  // takes a '+' sign and hexadecimal numbers, and saturates where from_chars
  // reports a range error: those few go to strtod.
  const char* digits = p != end && *p == '-' ? p + 1 : p;
  const bool hex = end - digits >= 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X');
  if (p != end && *p != '+' && !hex) {
    double v = 0.0;
    const std::from_chars_result r = std::from_chars(p, end, v);
    if (r.ec == std::errc()) return v;
    if (r.ec == std::errc::invalid_argument) return 0.0;
  }
  const std::string text(token);
  return std::strtod(text.c_str(), nullptr);
}

}  // namespace nvx
