// Tokens and numeric conversions of KRN parameter lines.
#include "krn/KRNLine.h"

#include <climits>
#include <cstdlib>

namespace nvx {

std::string_view NextToken(std::string_view& rest, std::string_view delimiters) {
  const std::size_t start = rest.find_first_not_of(delimiters);
  if (start == std::string_view::npos) {
    rest = {};
    return {};
  }
  std::size_t stop = rest.find_first_of(delimiters, start);
  if (stop == std::string_view::npos) stop = rest.size();
  std::string_view token = rest.substr(start, stop - start);
  rest.remove_prefix(stop);
  return token;
}

KeyValue SplitKeyValue(std::string_view line) {
  KeyValue kv;
  kv.key = NextToken(line, " =");
  kv.value = NextToken(line, " =");
  return kv;
}

std::int32_t ParseInt(std::string_view token) {
  const std::string text(token);
  const long long v = std::strtoll(text.c_str(), nullptr, 10);
  if (v > INT32_MAX) return INT32_MAX;
  if (v < INT32_MIN) return INT32_MIN;
  return static_cast<std::int32_t>(v);
}

double ParseDouble(std::string_view token) {
  const std::string text(token);
  return std::strtod(text.c_str(), nullptr);
}

}  // namespace nvx
