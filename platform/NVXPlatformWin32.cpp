// The platform module on Windows: processor and memory queries, the per-user
// directory, host message hooks, local time, file queries and the INI lookup.
// Narrow paths are UTF-8: they are converted to UTF-16 and given to the wide
// functions, which can name every file.
// This file defines exported functions of the engine library.
#ifndef NVX_BUILDING_ENGINE
#define NVX_BUILDING_ENGINE
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// After windows.h:
#include <knownfolders.h>
#include <objbase.h>
#include <shlobj.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <vector>

#include "NVXPlatform.h"

#ifndef NVX_RELEASE
#define NVX_RELEASE "1.0"
#endif

namespace {

using nvx::platform::NarrowToWide;
using nvx::platform::WideToNarrow;

// Longest value text a profile lookup returns, and its buffer with the NUL.
constexpr DWORD kProfileBuffer = 256;

}  // namespace

namespace nvx {
namespace platform {

// The library's texts are UTF-8 and may carry file names: the wide functions
// show them as written.
void SystemMessageBox(const char* text, const char* caption) {
  ::MessageBoxW(nullptr, NarrowToWide(text ? text : "").c_str(),
                NarrowToWide(caption ? caption : "").c_str(), MB_OK);
}

void SystemDebugOutput(const char* text) {
  const std::string line = std::string(text ? text : "") + "\n";
  ::OutputDebugStringW(NarrowToWide(line).c_str());
  std::fputs(line.c_str(), stderr);
}

}  // namespace platform
}  // namespace nvx

namespace {

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

// Attributes and size of what `path` names, following a link.
bool Query(const std::string& path, DWORD* attributes, std::int64_t* size) {
  const std::wstring wide = NarrowToWide(path);
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!::GetFileAttributesExW(wide.c_str(), GetFileExInfoStandard, &data)) return false;
  if ((data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    *attributes = data.dwFileAttributes;
    *size = (static_cast<std::int64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    return true;
  }
  // A link: ask the file it names.
  const HANDLE h = ::CreateFileW(wide.c_str(), FILE_READ_ATTRIBUTES,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                 OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (h == INVALID_HANDLE_VALUE) return false;
  BY_HANDLE_FILE_INFORMATION info;
  const bool ok = ::GetFileInformationByHandle(h, &info) != 0;
  ::CloseHandle(h);
  if (!ok) return false;
  *attributes = info.dwFileAttributes;
  *size = (static_cast<std::int64_t>(info.nFileSizeHigh) << 32) | info.nFileSizeLow;
  return true;
}

// Creates every missing directory of `path`. Prefixes that cannot be created
// ("C:", a server name, a directory that exists) are passed over: whether
// the whole path exists afterwards is what counts.
bool MakeDirectories(const std::string& path) {
  for (std::size_t pos = 1; pos <= path.size(); ++pos) {
    if (pos != path.size() && !IsSeparator(path[pos])) continue;
    if (IsSeparator(path[pos - 1])) continue;
    ::CreateDirectoryW(NarrowToWide(path.substr(0, pos)).c_str(), nullptr);
  }
  return nvx::platform::DirectoryExists(path);
}

// The value of the environment variable `name`; empty when it is not set.
std::wstring Environment(const wchar_t* name) {
  std::vector<wchar_t> buffer(MAX_PATH);
  for (;;) {
    const DWORD n =
        ::GetEnvironmentVariableW(name, buffer.data(), static_cast<DWORD>(buffer.size()));
    if (n == 0) return {};
    if (n < buffer.size()) return std::wstring(buffer.data(), n);
    buffer.resize(n);
  }
}

// The roaming application data folder of the current user.
std::wstring RoamingAppData() {
  PWSTR folder = nullptr;
  std::wstring result;
  if (SUCCEEDED(::SHGetKnownFolderPath(FOLDERID_RoamingAppData, 0, nullptr, &folder))) {
    result = folder;
  }
  ::CoTaskMemFree(folder);
  return result;
}

// The absolute form of `path`: the profile functions look a bare file name up
// in the Windows directory, not in the current one.
std::wstring FullPath(const std::wstring& path) {
  const DWORD n = ::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  if (n == 0) return path;
  std::vector<wchar_t> buffer(n);
  const DWORD m = ::GetFullPathNameW(path.c_str(), n, buffer.data(), nullptr);
  return m > 0 && m < n ? std::wstring(buffer.data(), m) : path;
}

}  // namespace

bool NVXGetReleaseVersionCurUserDirectory(char* buffer, int size) {
  if (buffer == nullptr || size <= 0) return false;
  std::wstring base = Environment(L"APPDATA");
  if (base.empty()) base = RoamingAppData();
  if (base.empty()) return false;
  std::string dir = WideToNarrow(base);
  if (!IsSeparator(dir.back())) dir += '\\';
  dir += "NVXComputationEngine\\" NVX_RELEASE;
  if (dir.size() + 1 > static_cast<std::size_t>(size)) return false;
  if (!MakeDirectories(dir)) return false;
  std::memcpy(buffer, dir.c_str(), dir.size() + 1);
  return true;
}

namespace nvx {
namespace platform {

// Both are asked of the system once per process: the answers do not change
// while the process runs, and every parameter object needs them on
// construction.
std::uint32_t LogicalProcessorCount() {
  static const std::uint32_t count = [] {
    SYSTEM_INFO info;
    ::GetSystemInfo(&info);
    return info.dwNumberOfProcessors > 0 ? static_cast<std::uint32_t>(info.dwNumberOfProcessors)
                                         : 1u;
  }();
  return count;
}

std::uint64_t PhysicalMemoryBytes() {
  static const std::uint64_t bytes = []() -> std::uint64_t {
    MEMORYSTATUSEX status;
    status.dwLength = sizeof status;
    if (!::GlobalMemoryStatusEx(&status)) return 0;
    return static_cast<std::uint64_t>(status.ullTotalPhys);
  }();
  return bytes;
}

bool LocalTime(std::time_t t, std::tm* out) {
  return out != nullptr && ::localtime_s(out, &t) == 0;
}

std::string_view TextLineEnd() { return "\r\n"; }

bool FileExists(const std::string& path) {
  DWORD attributes = 0;
  std::int64_t size = 0;
  return Query(path, &attributes, &size) && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool DirectoryExists(const std::string& path) {
  DWORD attributes = 0;
  std::int64_t size = 0;
  return Query(path, &attributes, &size) && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool MakeDirectory(const std::string& path) { return MakeDirectories(path); }

std::int64_t FileSize(const std::string& path) {
  DWORD attributes = 0;
  std::int64_t size = 0;
  if (!Query(path, &attributes, &size) || (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return -1;
  return size;
}

bool ReadProfileString(const std::string& path, const std::string& section, const std::string& key,
                       const std::string& fallback, std::string* value) {
  // The profile functions give the default for a file they cannot read; the
  // caller is told apart from a missing key.
  const std::wstring file = FullPath(NarrowToWide(path));
  const HANDLE h = ::CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                 nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (h == INVALID_HANDLE_VALUE) return false;
  ::CloseHandle(h);
  wchar_t buffer[kProfileBuffer] = {};
  const DWORD n = ::GetPrivateProfileStringW(
      NarrowToWide(section).c_str(), NarrowToWide(key).c_str(), NarrowToWide(fallback).c_str(),
      buffer, kProfileBuffer, file.c_str());
  *value = WideToNarrow(std::wstring(buffer, n));
  return true;
}

}  // namespace platform
}  // namespace nvx
