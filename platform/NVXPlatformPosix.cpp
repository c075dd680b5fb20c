// The platform module on POSIX systems: processor and memory queries, the
// per-user directory, host message hooks, local time, UTF-8 conversion and
// file queries.
#include "NVXPlatform.h"

#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#ifndef NVX_RELEASE
#define NVX_RELEASE "1.0"
#endif

namespace {

void DefaultMessageBox(const char* text, const char* caption) {
  std::fprintf(stderr, "%s: %s\n", caption ? caption : "", text ? text : "");
}

void DefaultDebugOutput(const char* text) { std::fprintf(stderr, "%s\n", text ? text : ""); }

void DefaultCantOpen(const char* /*path*/) {
  std::fputs("Can't open\n", stderr);
  std::fflush(stderr);
  std::exit(1);
}

NVXMessageBoxHandler g_messageBox = DefaultMessageBox;
NVXDebugOutputHandler g_debugOutput = DefaultDebugOutput;
NVXCantOpenHandler g_cantOpen = DefaultCantOpen;

// Creates every missing directory of `path` (like mkdir -p).
bool MakeDirectories(const std::string& path) {
  for (std::size_t pos = 1; pos <= path.size(); ++pos) {
    if (pos != path.size() && path[pos] != '/') continue;
    std::string prefix = path.substr(0, pos);
    if (::mkdir(prefix.c_str(), 0755) != 0 && errno != EEXIST) return false;
  }
  return nvx::platform::DirectoryExists(path);
}

void AppendUtf8(std::string& out, char32_t c) {
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

constexpr char32_t kReplacement = 0xFFFD;

}  // namespace

bool NVXGetReleaseVersionCurUserDirectory(char* buffer, int size) {
  if (buffer == nullptr || size <= 0) return false;
  std::string base;
  if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && *xdg) {
    base = xdg;
  } else if (const char* home = std::getenv("HOME"); home && *home) {
    base = std::string(home) + "/.config";
  } else {
    return false;
  }
  std::string dir = base + "/NVXComputationEngine/" NVX_RELEASE;
  if (dir.size() + 1 > static_cast<std::size_t>(size)) return false;
  if (!MakeDirectories(dir)) return false;
  std::memcpy(buffer, dir.c_str(), dir.size() + 1);
  return true;
}

void NVXSetMessageBoxHandler(NVXMessageBoxHandler handler) {
  g_messageBox = handler ? handler : DefaultMessageBox;
}

void NVXSetDebugOutputHandler(NVXDebugOutputHandler handler) {
  g_debugOutput = handler ? handler : DefaultDebugOutput;
}

void NVXSetCantOpenHandler(NVXCantOpenHandler handler) {
  g_cantOpen = handler ? handler : DefaultCantOpen;
}

namespace nvx {
namespace platform {

// Both are asked of the system once per process: the answers do not change
// while the process runs, and every parameter object needs them on
// construction (the system calls read /proc and /sys each time).
std::uint32_t LogicalProcessorCount() {
  static const std::uint32_t count = [] {
    const long n = ::sysconf(_SC_NPROCESSORS_ONLN);
    return n > 0 ? static_cast<std::uint32_t>(n) : 1u;
  }();
  return count;
}

std::uint64_t PhysicalMemoryBytes() {
  static const std::uint64_t bytes = []() -> std::uint64_t {
    const long pages = ::sysconf(_SC_PHYS_PAGES);
    const long pageSize = ::sysconf(_SC_PAGE_SIZE);
    if (pages <= 0 || pageSize <= 0) return 0;
    return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(pageSize);
  }();
  return bytes;
}

void ShowMessageBox(const char* text, const char* caption) { g_messageBox(text, caption); }

void DebugOutput(const char* text) { g_debugOutput(text); }

void CantOpen(const char* path) { g_cantOpen(path ? path : ""); }

bool LocalTime(std::time_t t, std::tm* out) {
  return out != nullptr && ::localtime_r(&t, out) != nullptr;
}

std::string WideToNarrow(const std::wstring& wide) {
  std::string out;
  out.reserve(wide.size());
  for (wchar_t w : wide) {
    auto c = static_cast<char32_t>(w);
    if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) c = kReplacement;
    AppendUtf8(out, c);
  }
  return out;
}

std::wstring NarrowToWide(const std::string& narrow) {
  static const char32_t kMin[] = {0, 0x80, 0x800, 0x10000};
  std::wstring out;
  out.reserve(narrow.size());
  const auto* s = reinterpret_cast<const unsigned char*>(narrow.data());
  const std::size_t n = narrow.size();
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
    ok = ok && c >= kMin[extra] && c <= 0x10FFFF && !(c >= 0xD800 && c <= 0xDFFF);
    out += static_cast<wchar_t>(ok ? c : kReplacement);
    i += ok ? extra + 1 : 1;
  }
  return out;
}

bool FileExists(const std::string& path) {
  struct stat st;
  return ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

bool DirectoryExists(const std::string& path) {
  struct stat st;
  return ::stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

bool MakeDirectory(const std::string& path) { return MakeDirectories(path); }

}  // namespace platform
}  // namespace nvx
