// Bounds-tested list indexing with the library's out-of-range error text.
#ifndef NVX_CORE_SUBSCRIPT_H_
#define NVX_CORE_SUBSCRIPT_H_

#include <cstddef>
#include <stdexcept>
#include <vector>

namespace nvx {

// The text every out-of-range list index reports; hosts match on it.
inline constexpr const char kSubscriptError[] = "invalid vector<T> subscript";

[[noreturn]] inline void ThrowSubscript() { throw std::out_of_range(kSubscriptError); }

// list[index], throwing std::out_of_range for an index outside the list. A
// negative index is outside: it is widened and compared unsigned.
template <typename T>
T& At(std::vector<T>& list, long long index) {
  if (static_cast<unsigned long long>(index) >= list.size()) ThrowSubscript();
  return list[static_cast<std::size_t>(index)];
}

template <typename T>
const T& At(const std::vector<T>& list, long long index) {
  if (static_cast<unsigned long long>(index) >= list.size()) ThrowSubscript();
  return list[static_cast<std::size_t>(index)];
}

}  // namespace nvx

#endif  // NVX_CORE_SUBSCRIPT_H_
