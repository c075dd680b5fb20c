// What nvxparam knows about keys beyond their type: a one-line meaning for
// the keys whose meaning is known, and the allowed range of the numeric keys
// that have one. Both are tables sorted by "SECTION.Key"; a test checks that
// every entry names an existing key.
#ifndef NVX_TOOLS_KEYMEANINGS_H_
#define NVX_TOOLS_KEYMEANINGS_H_

#include <cstddef>
#include <string>

namespace nvxparam {

struct KeyMeaning {
  const char* key;  // "SECTION.Key"
  const char* meaning;
};

struct KeyRange {
  const char* key;  // "SECTION.Key"
  double min;       // inclusive, in the file's form of the value
  double max;
  const char* reason;  // what the values stand for
};

// The meaning of "SECTION.Key", or "" when none is known.
const char* MeaningOf(const std::string& key);
// The allowed range of "SECTION.Key", or nullptr when any value of its type
// is allowed.
const KeyRange* RangeOf(const std::string& key);
// Why `value`, already known to be a number of the key's type, is refused
// for "SECTION.Key" (it lies outside the key's range), or "" when it is not.
std::string RangeError(const std::string& key, const std::string& value);

// The whole tables, for the consistency test.
const KeyMeaning* AllMeanings(std::size_t* count);
const KeyRange* AllRanges(std::size_t* count);

}  // namespace nvxparam

#endif  // NVX_TOOLS_KEYMEANINGS_H_
