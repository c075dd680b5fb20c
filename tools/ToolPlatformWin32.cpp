// nvxparam's system calls on Windows.
#include <fcntl.h>
#include <io.h>
#include <windows.h>
// After windows.h, whose types it uses.
#include <shellapi.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <random>
#include <system_error>

#include "NVXPlatform.h"
#include "ToolPlatform.h"

namespace nvxparam {
namespace sys {
namespace {

namespace fs = std::filesystem;

std::wstring RandomSuffix() {
  static std::mt19937_64 random{std::random_device{}() ^ ::GetCurrentProcessId()};
  wchar_t text[24];
  std::swprintf(text, sizeof text / sizeof text[0], L"%016llx",
                static_cast<unsigned long long>(random()));
  return text;
}

// A new file in `folder` that no one else has opened; INVALID_HANDLE_VALUE
// with GetLastError() set when the folder does not take one.
HANDLE CreateUniqueFile(const fs::path& folder, const std::wstring& stem, DWORD flags,
                        fs::path* made) {
  HANDLE file = INVALID_HANDLE_VALUE;
  for (int attempt = 0; attempt < 100; ++attempt) {
    *made = folder / (stem + RandomSuffix());
    file = ::CreateFileW(made->c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW, flags,
                         nullptr);
    if (file != INVALID_HANDLE_VALUE || ::GetLastError() != ERROR_FILE_EXISTS) break;
  }
  return file;
}

}  // namespace

std::vector<std::string> CommandArguments(int argc, char** argv) {
  // The C runtime's argv is in the ANSI code page; the wide command line has
  // every character.
  int count = 0;
  LPWSTR* wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  if (wide == nullptr) return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
  std::vector<std::string> args;
  for (int i = 1; i < count; ++i) args.push_back(nvx::platform::WideToNarrow(wide[i]));
  ::LocalFree(wide);
  return args;
}

void BinaryStandardInput() { _setmode(_fileno(stdin), _O_BINARY); }

std::string MakePrivateTempFile(const std::string& stem, std::string* error) {
  std::error_code ec;
  const fs::path folder = fs::temp_directory_path(ec);
  if (ec) {
    *error = ec.message();
    return {};
  }
  // The temporary folder is the user's own; the file is not shared.
  fs::path made;
  const HANDLE file =
      CreateUniqueFile(folder, fs::u8path(stem).wstring(), FILE_ATTRIBUTE_TEMPORARY, &made);
  if (file == INVALID_HANDLE_VALUE) {
    *error = std::error_code(static_cast<int>(::GetLastError()), std::system_category()).message();
    return {};
  }
  ::CloseHandle(file);
  return made.u8string();
}

int FolderWriteError(const std::string& folder) {
  // Access bits say little about folders here: try making a file, which goes
  // when its handle closes.
  fs::path made;
  const HANDLE file = CreateUniqueFile(fs::u8path(folder), L".nvxparam-probe-",
                                       FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, &made);
  if (file != INVALID_HANDLE_VALUE) {
    ::CloseHandle(file);
    return 0;
  }
  switch (::GetLastError()) {
    case ERROR_WRITE_PROTECT:
      return EROFS;
    case ERROR_ACCESS_DENIED:
      return EACCES;
    default:
      return 0;  // the write itself will say what is wrong
  }
}

const char* TextNewline() { return "\r\n"; }

FileLock::Result FileLock::TryLock(const std::string& path, std::string* error) {
  Release();
  // Shared for every access, so that holders and waiters open it alike and
  // nothing else is kept from the file; not inherited by child processes.
  const HANDLE file = ::CreateFileW(fs::u8path(path).c_str(), GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    *error = std::error_code(static_cast<int>(::GetLastError()), std::system_category()).message();
    return Result::kFailed;
  }
  OVERLAPPED at{};
  if (!::LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &at)) {
    const DWORD reason = ::GetLastError();
    ::CloseHandle(file);
    if (reason == ERROR_LOCK_VIOLATION || reason == ERROR_IO_PENDING) return Result::kBusy;
    *error = std::error_code(static_cast<int>(reason), std::system_category()).message();
    return Result::kFailed;
  }
  handle_ = reinterpret_cast<std::intptr_t>(file);
  return Result::kHeld;
}

void FileLock::Release() {
  // Closing the handle drops the lock.
  if (handle_ != -1) ::CloseHandle(reinterpret_cast<HANDLE>(handle_));
  handle_ = -1;
}

}  // namespace sys
}  // namespace nvxparam
