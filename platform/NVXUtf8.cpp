// UTF-8 conversions and UTF-8 paths, shared by every system: portable code
// that gives the same result whether wchar_t holds UTF-16 or UTF-32.
#include <type_traits>

#include "NVXPlatform.h"

namespace nvx {
namespace platform {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDFFF; }
bool IsHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

void AppendUtf8(std::string& out, char32_t c) {
  if (c > 0x10FFFF || IsSurrogate(c)) c = kReplacement;
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// Calls `emit` with each code point of the UTF-8 text. A byte that does not
// start a complete, shortest-form sequence of a scalar value gives one U+FFFD
// and the decoding goes on with the next byte.
template <typename Emit>
void DecodeUtf8(std::string_view text, Emit emit) {
  static const char32_t kMin[] = {0, 0x80, 0x800, 0x10000};
  const auto* s = reinterpret_cast<const unsigned char*>(text.data());
  const std::size_t n = text.size();
  std::size_t i = 0;
  while (i < n) {
    const unsigned char b = s[i];
    std::size_t extra = 0;
    char32_t c = b;
    if (b >= 0x80) {
      if ((b & 0xE0) == 0xC0) {
        extra = 1, c = b & 0x1F;
      } else if ((b & 0xF0) == 0xE0) {
        extra = 2, c = b & 0x0F;
      } else if ((b & 0xF8) == 0xF0) {
        extra = 3, c = b & 0x07;
      } else {
        extra = 4;  // not a lead byte
      }
    }
    bool ok = extra < 4 && i + extra < n;
    for (std::size_t k = 1; ok && k <= extra; ++k) {
      ok = (s[i + k] & 0xC0) == 0x80;
      c = (c << 6) | (s[i + k] & 0x3F);
    }
    ok = ok && c >= kMin[extra] && c <= 0x10FFFF && !IsSurrogate(c);
    emit(ok ? c : kReplacement);
    i += ok ? extra + 1 : 1;
  }
}

// The code units, read as unsigned values of their width.
template <typename Unit>
char32_t UnitValue(Unit u) {
  return static_cast<char32_t>(static_cast<std::make_unsigned_t<Unit>>(u));
}

template <typename String>
String Utf8ToUtf16Units(std::string_view text) {
  using Unit = typename String::value_type;
  String out;
  out.reserve(text.size());
  DecodeUtf8(text, [&out](char32_t c) {
    if (c < 0x10000) {
      out += static_cast<Unit>(c);
    } else {
      c -= 0x10000;
      out += static_cast<Unit>(0xD800 + (c >> 10));
      out += static_cast<Unit>(0xDC00 + (c & 0x3FF));
    }
  });
  return out;
}

template <typename String>
String Utf8ToUtf32Units(std::string_view text) {
  using Unit = typename String::value_type;
  String out;
  out.reserve(text.size());
  DecodeUtf8(text, [&out](char32_t c) { out += static_cast<Unit>(c); });
  return out;
}

// A surrogate pair makes one code point; a surrogate alone is U+FFFD.
template <typename Unit>
std::string Utf16UnitsToUtf8(const Unit* p, std::size_t n) {
  std::string out;
  out.reserve(n);
  for (std::size_t i = 0; i < n; ++i) {
    char32_t c = UnitValue(p[i]);
    if (IsHighSurrogate(c) && i + 1 < n && IsLowSurrogate(UnitValue(p[i + 1]))) {
      c = 0x10000 + ((c - 0xD800) << 10) + (UnitValue(p[i + 1]) - 0xDC00);
      ++i;
    }
    AppendUtf8(out, c);
  }
  return out;
}

template <typename Unit>
std::string Utf32UnitsToUtf8(const Unit* p, std::size_t n) {
  std::string out;
  out.reserve(n);
  for (std::size_t i = 0; i < n; ++i) AppendUtf8(out, UnitValue(p[i]));
  return out;
}

}  // namespace

std::string Utf16ToUtf8(std::u16string_view text) {
  return Utf16UnitsToUtf8(text.data(), text.size());
}

std::u16string Utf8ToUtf16(std::string_view text) { return Utf8ToUtf16Units<std::u16string>(text); }

std::string Utf32ToUtf8(std::u32string_view text) {
  return Utf32UnitsToUtf8(text.data(), text.size());
}

std::u32string Utf8ToUtf32(std::string_view text) { return Utf8ToUtf32Units<std::u32string>(text); }

std::string WideToNarrow(const std::wstring& wide) {
  if constexpr (sizeof(wchar_t) == 2) {
    return Utf16UnitsToUtf8(wide.data(), wide.size());
  } else {
    return Utf32UnitsToUtf8(wide.data(), wide.size());
  }
}

std::wstring NarrowToWide(const std::string& narrow) {
  if constexpr (sizeof(wchar_t) == 2) {
    return Utf8ToUtf16Units<std::wstring>(narrow);
  } else {
    return Utf8ToUtf32Units<std::wstring>(narrow);
  }
}

std::filesystem::path NativePath(const std::string& utf8) { return std::filesystem::u8path(utf8); }

std::string JoinPath(const std::string& dir, const std::string& name) {
  if (dir.empty()) return name;
  std::string joined = dir;
  const char last = joined.back();
  if (last != '/' && last != static_cast<char>(std::filesystem::path::preferred_separator)) {
    joined += static_cast<char>(std::filesystem::path::preferred_separator);
  }
  return joined + name;
}

}  // namespace platform
}  // namespace nvx
