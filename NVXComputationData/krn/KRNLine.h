// Splitting a KRN parameter line into its key and value tokens, and the numeric
// conversions the readers apply to a value token.
#ifndef NVX_KRN_KRNLINE_H_
#define NVX_KRN_KRNLINE_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace nvx {

// The next token of `rest` split at `delimiters` (runs of delimiters count as
// one); `rest` is advanced past it. Empty when no token is left.
std::string_view NextToken(std::string_view& rest, std::string_view delimiters);

// Key and value of a parameter line. The delimiters are blank and "=", so
// "Key = v", "Key=v" and "Key   =   v" read alike; a tab is not a delimiter and
// stays at the front of the value, where the numeric conversions skip it.
struct KeyValue {
  std::string_view key;
  std::string_view value;
};
KeyValue SplitKeyValue(std::string_view line);

// Integer conversion of a token: leading white space skipped, digits up to the
// first other character, 0 when there are none; out-of-range values clamp.
std::int32_t ParseInt(std::string_view token);
// Floating conversion of a token in any notation; 0.0 when it is not a number.
double ParseDouble(std::string_view token);

}  // namespace nvx

#endif  // NVX_KRN_KRNLINE_H_
