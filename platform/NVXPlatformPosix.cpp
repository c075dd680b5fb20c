// The platform module on POSIX systems: processor and memory queries, the
// per-user directory, host message hooks, local time, file queries and the
// INI lookup (libinih). Narrow paths go to the system unchanged: they are
// UTF-8, and so are the file names of the systems this file serves.
#include "NVXPlatform.h"

#include <ini.h>
#include <strings.h>
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

// Creates every missing directory of `path` (like mkdir -p).
bool MakeDirectories(const std::string& path) {
  for (std::size_t pos = 1; pos <= path.size(); ++pos) {
    if (pos != path.size() && path[pos] != '/') continue;
    std::string prefix = path.substr(0, pos);
    if (::mkdir(prefix.c_str(), 0755) != 0 && errno != EEXIST) return false;
  }
  return nvx::platform::DirectoryExists(path);
}

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

namespace nvx {
namespace platform {

// Without a desktop to show a box in, the text goes to standard error.
void SystemMessageBox(const char* text, const char* caption) {
  std::fprintf(stderr, "%s: %s\n", caption ? caption : "", text ? text : "");
}

void SystemDebugOutput(const char* text) { std::fprintf(stderr, "%s\n", text ? text : ""); }

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

bool LocalTime(std::time_t t, std::tm* out) {
  return out != nullptr && ::localtime_r(&t, out) != nullptr;
}

std::string_view TextLineEnd() { return "\n"; }

bool FileExists(const std::string& path) {
  struct stat st;
  return ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

bool DirectoryExists(const std::string& path) {
  struct stat st;
  return ::stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

bool MakeDirectory(const std::string& path) { return MakeDirectories(path); }

namespace {

// Longest value text a profile lookup returns.
constexpr std::size_t kMaxProfileValue = 255;

// The profile functions' rules on top of libinih's parse: names match without
// regard to case and the first occurrence of a key counts.
struct ProfileQuery {
  const std::string* section;
  const std::string* key;
  std::string value;
  bool found = false;
};

int CollectProfileValue(void* user, const char* section, const char* name, const char* value) {
  auto* query = static_cast<ProfileQuery*>(user);
  if (!query->found && ::strcasecmp(section, query->section->c_str()) == 0 &&
      ::strcasecmp(name, query->key->c_str()) == 0) {
    query->value = value != nullptr ? value : "";
    if (query->value.size() > kMaxProfileValue) query->value.resize(kMaxProfileValue);
    query->found = true;
  }
  return 1;  // keep going: a bad line never stops the read
}

}  // namespace

bool ReadProfileString(const std::string& path, const std::string& section, const std::string& key,
                       const std::string& fallback, std::string* value) {
  ProfileQuery query{&section, &key, {}};
  if (::ini_parse(path.c_str(), CollectProfileValue, &query) == -1) return false;
  *value = query.found ? std::move(query.value) : fallback;
  return true;
}

}  // namespace platform
}  // namespace nvx
