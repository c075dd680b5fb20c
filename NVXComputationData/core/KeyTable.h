// A section's keys declared as data: one Key per line of the section, in the
// order the KRN writer writes them. The generic KRN and RSV readers and writers
// and the command-line tool walk these lists; quirks of a single key are flags
// or small hooks on its Key.
#ifndef NVX_CORE_KEYTABLE_H_
#define NVX_CORE_KEYTABLE_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/CustomKey.h"
#include "core/OutputTimes.h"

class CNVX3DComputationImpl;

namespace nvx {

enum class KeyKind : std::uint8_t {
  kInt,        // int32: KRN decimal, RSV int item
  kDouble,     // double: KRN in the stream's notation, RSV double item
  kBool,       // bool: KRN "0"/"1", RSV bool item
  kText,       // narrow string: KRN value token, RSV string item
  kWideText,   // wide string, narrow code page in both files
  kFixedInt,   // a constant written in place of a field (never read)
  kLines,      // free text lines, written verbatim, never read
  kTimes,      // count key followed by "i = time" item lines; RSV: the count item
  kTimeArray,  // RSV only: the times of a block as a (count, 1) double array
  kCustom,     // lines and items handled by the key's CustomOps
};

// Notation the KRN writer switches the stream to just before the value; the
// setting stays in force for everything written after it.
enum class Notation : std::uint8_t { kKeep, kFixed, kScientific };

// Where a key takes part.
enum KeyUse : std::uint8_t {
  kKrnRead = 1,
  kKrnWrite = 2,
  kRsvRead = 4,
  kRsvWrite = 8,
  kTemplateOnly = 16,  // written to KRN only by the per-user template writer
  kKrn = kKrnRead | kKrnWrite,
  kRsv = kRsvRead | kRsvWrite,
  kEverywhere = kKrn | kRsv,
};

// How an integer token becomes a bool (or a 0/1 int).
enum class Truth : std::uint8_t {
  kNone,      // plain value (ints)
  kPositive,  // true when greater than 0
  kNonZero,   // true when not 0
};

using ImplHook = void (*)(CNVX3DComputationImpl&);

struct Key {
  const char* name = "";
  KeyKind kind = KeyKind::kInt;
  void* field = nullptr;
  const char* separator = " = ";  // text between key and value
  const char* suffix = "";        // text written right after the value
  Notation notation = Notation::kKeep;
  std::uint8_t use = kEverywhere;
  Truth truth = Truth::kNone;
  std::int32_t bias = 0;        // files hold the stored value plus bias
  std::int32_t fixedValue = 0;  // kFixedInt
  ImplHook afterRsvRead = nullptr;
  const CustomOps* custom = nullptr;  // kCustom

  Key Sep(const char* s) const {
    Key k = *this;
    k.separator = s;
    return k;
  }
  Key Suffix(const char* s) const {
    Key k = *this;
    k.suffix = s;
    return k;
  }
  Key Use(std::uint8_t u) const {
    Key k = *this;
    k.use = u;
    return k;
  }
  Key Note(Notation n) const {
    Key k = *this;
    k.notation = n;
    return k;
  }
  Key TrueWhen(Truth t) const {
    Key k = *this;
    k.truth = t;
    return k;
  }
  Key Bias(std::int32_t b) const {
    Key k = *this;
    k.bias = b;
    return k;
  }
  Key AfterRsvRead(ImplHook h) const {
    Key k = *this;
    k.afterRsvRead = h;
    return k;
  }

  template <typename T>
  T& As() const {
    return *static_cast<T*>(field);
  }
};

using KeyList = std::vector<Key>;

inline Key Field(const char* name, std::int32_t& f) { return Key{name, KeyKind::kInt, &f}; }
inline Key Field(const char* name, double& f) { return Key{name, KeyKind::kDouble, &f}; }
inline Key Field(const char* name, bool& f) {
  Key k{name, KeyKind::kBool, &f};
  k.truth = Truth::kPositive;
  return k;
}
inline Key Field(const char* name, std::string& f) { return Key{name, KeyKind::kText, &f}; }
inline Key Field(const char* name, std::wstring& f) { return Key{name, KeyKind::kWideText, &f}; }
inline Key FixedInt(const char* name, std::int32_t value) {
  Key k{name, KeyKind::kFixedInt, nullptr};
  k.fixedValue = value;
  return k;
}
inline Key Lines(std::vector<std::string>& lines) {
  Key k{"", KeyKind::kLines, &lines};
  k.use = kKrnWrite;
  return k;
}
inline Key Times(const char* countKey, OutputTimes& block) {
  return Key{countKey, KeyKind::kTimes, &block};
}
inline Key TimeArray(const char* arrayName, OutputTimes& block) {
  Key k{arrayName, KeyKind::kTimeArray, &block};
  k.use = kRsv;
  return k;
}

// A key handled by `ops`; `field` is whatever the operations work on.
inline Key Custom(const char* name, void* field, const CustomOps& ops) {
  Key k{name, KeyKind::kCustom, field};
  k.custom = &ops;
  return k;
}

// The first key named `name` that takes part in `use`, or nullptr.
const Key* FindKey(const KeyList& keys, std::string_view name, std::uint8_t use);

}  // namespace nvx

#endif  // NVX_CORE_KEYTABLE_H_
