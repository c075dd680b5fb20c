// Replacing a file on Windows only once its new contents are on disk: a fresh
// file beside the old one, FlushFileBuffers, the old file's attributes, and a
// write-through rename over the old name. A failure at any step removes the
// fresh file and leaves the old one whole.
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// <windows.h> maps ReplaceFile to ReplaceFileW; the name here is this
// module's own function.
#undef ReplaceFile

#include <atomic>
#include <string>
#include <vector>

#include "NVXPlatform.h"

namespace nvx {
namespace platform {
namespace {

// The system's text for the error `err`, without its line end.
std::string Reason(const std::string& what, DWORD err) {
  wchar_t* text = nullptr;
  const DWORD n = ::FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, err, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::wstring message = n > 0 && text != nullptr ? std::wstring(text, n) : std::wstring();
  ::LocalFree(text);
  while (!message.empty() && (message.back() == L'\n' || message.back() == L'\r' ||
                              message.back() == L' ' || message.back() == L'.')) {
    message.pop_back();
  }
  if (message.empty()) message = L"error " + std::to_wstring(err);
  return what + ": " + WideToNarrow(message);
}

// Errors that mean the disk, not the place, refuses the file.
bool IsSpaceError(DWORD err) { return err == ERROR_DISK_FULL || err == ERROR_HANDLE_DISK_FULL; }

bool IsSeparator(wchar_t c) { return c == L'\\' || c == L'/'; }

// Writes all of `size` bytes.
bool WriteAll(HANDLE h, const char* data, std::size_t size) {
  while (size > 0) {
    const DWORD chunk = size > (1u << 30) ? (1u << 30) : static_cast<DWORD>(size);
    DWORD written = 0;
    if (!::WriteFile(h, data, chunk, &written, nullptr)) return false;
    if (written == 0) {
      ::SetLastError(ERROR_WRITE_FAULT);
      return false;
    }
    data += written;
    size -= written;
  }
  return true;
}

// Copies the file `from` into the open handle `to`.
bool CopyInto(const std::wstring& from, HANDLE to, const std::string& path, std::string* error) {
  const HANDLE in = ::CreateFileW(from.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
  if (in == INVALID_HANDLE_VALUE) {
    *error = Reason("cannot read " + path, ::GetLastError());
    return false;
  }
  std::vector<char> buffer(64 * 1024);
  bool ok = true;
  for (;;) {
    DWORD n = 0;
    if (!::ReadFile(in, buffer.data(), static_cast<DWORD>(buffer.size()), &n, nullptr)) {
      *error = Reason("cannot read " + path, ::GetLastError());
      ok = false;
      break;
    }
    if (n == 0) break;
    if (!WriteAll(to, buffer.data(), n)) {
      *error = Reason("cannot copy " + path, ::GetLastError());
      ok = false;
      break;
    }
  }
  ::CloseHandle(in);
  return ok;
}

// Flushes the file `fresh` to disk.
bool SyncPath(const std::wstring& fresh, const std::string& path, std::string* error) {
  const HANDLE h = ::CreateFileW(fresh.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                 OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (h == INVALID_HANDLE_VALUE || !::FlushFileBuffers(h)) {
    *error = Reason("cannot flush " + path, ::GetLastError());
    if (h != INVALID_HANDLE_VALUE) ::CloseHandle(h);
    return false;
  }
  ::CloseHandle(h);
  return true;
}

std::wstring DirectoryOf(const std::wstring& path) {
  std::size_t cut = path.size();
  while (cut > 0 && !IsSeparator(path[cut - 1]) && path[cut - 1] != L':') --cut;
  return path.substr(0, cut);  // with its separator; empty for a bare name
}

// The file a link names (the link itself stays); `path` for anything else.
std::wstring FollowLink(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    return path;
  }
  const HANDLE h = ::CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                 OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (h == INVALID_HANDLE_VALUE) return path;
  std::wstring target;
  const DWORD n = ::GetFinalPathNameByHandleW(h, nullptr, 0, FILE_NAME_NORMALIZED);
  if (n > 0) {
    std::vector<wchar_t> buffer(n + 1);
    const DWORD m = ::GetFinalPathNameByHandleW(h, buffer.data(), n + 1, FILE_NAME_NORMALIZED);
    if (m > 0 && m <= n) target.assign(buffer.data(), m);
  }
  ::CloseHandle(h);
  return target.empty() ? path : target;
}

// A name for the fresh file that no other writer picks: the process, a
// counter and the clock.
std::wstring FreshName(const std::wstring& target, unsigned attempt) {
  static std::atomic<unsigned> counter{0};
  const std::wstring dir = DirectoryOf(target);
  const std::wstring base = target.substr(dir.size());
  const unsigned long long stamp = ::GetTickCount64();
  return dir + L"." + base + L"." + std::to_wstring(::GetCurrentProcessId()) + L"-" +
         std::to_wstring(counter++) + L"-" + std::to_wstring((stamp + attempt) % 100000) + L".tmp";
}

// Windows refuses to replace a file that another process holds open without
// delete sharing, as most readers open files, and only for as long as it
// reads. The replacement is tried again for a short, bounded time before it
// counts as failed; GetLastError() then tells why.
bool MoveIntoPlace(const std::wstring& fresh, const std::wstring& target) {
  constexpr unsigned kAttempts = 100;
  constexpr DWORD kPauseMs = 10;
  for (unsigned attempt = 1;; ++attempt) {
    if (::MoveFileExW(fresh.c_str(), target.c_str(),
                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
      return true;
    }
    const DWORD err = ::GetLastError();
    if (attempt == kAttempts || (err != ERROR_ACCESS_DENIED && err != ERROR_SHARING_VIOLATION)) {
      ::SetLastError(err);
      return false;
    }
    ::Sleep(kPauseMs);
  }
}

}  // namespace

ReplaceStatus ReplaceFile(
    const std::string& path,
    const std::function<bool(const std::string& fresh, std::string* error)>& write,
    bool startFromOld, std::string* error) {
  std::string scratch;
  if (error == nullptr) error = &scratch;
  error->clear();
  if (path.empty()) {
    *error = "no file name";
    return ReplaceStatus::kCantOpen;
  }
  const std::wstring target = FollowLink(NarrowToWide(path));

  // The attributes of the old file, which must itself be writable.
  WIN32_FILE_ATTRIBUTE_DATA data;
  const bool exists = ::GetFileAttributesExW(target.c_str(), GetFileExInfoStandard, &data) != 0;
  DWORD attributes = FILE_ATTRIBUTE_NORMAL;
  if (exists) {
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      *error = path + " is not a regular file";
      return ReplaceStatus::kCantOpen;
    }
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) {
      *error = Reason("cannot write " + path, ERROR_ACCESS_DENIED);
      return ReplaceStatus::kCantOpen;
    }
    const HANDLE probe =
        ::CreateFileW(target.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (probe == INVALID_HANDLE_VALUE) {
      *error = Reason("cannot write " + path, ::GetLastError());
      return ReplaceStatus::kCantOpen;
    }
    ::CloseHandle(probe);
    attributes =
        data.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                 FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED);
    if (attributes == 0) attributes = FILE_ATTRIBUTE_NORMAL;
  }

  std::wstring fresh;
  HANDLE h = INVALID_HANDLE_VALUE;
  DWORD err = ERROR_FILE_EXISTS;
  for (unsigned attempt = 0; attempt < 100 && h == INVALID_HANDLE_VALUE; ++attempt) {
    fresh = FreshName(target, attempt);
    h = ::CreateFileW(fresh.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                      nullptr);
    err = h == INVALID_HANDLE_VALUE ? ::GetLastError() : ERROR_SUCCESS;
    if (err != ERROR_FILE_EXISTS && err != ERROR_ALREADY_EXISTS) break;
  }
  if (h == INVALID_HANDLE_VALUE) {
    *error = Reason("cannot write " + path, err);
    return IsSpaceError(err) ? ReplaceStatus::kWriteFailed : ReplaceStatus::kCantOpen;
  }
  bool ok = !startFromOld || !exists || CopyInto(target, h, path, error);
  if (!::CloseHandle(h) && ok) {
    *error = Reason("cannot write " + path, ::GetLastError());
    ok = false;
  }
  if (ok && !write(WideToNarrow(fresh), error)) {
    if (error->empty()) *error = "writing " + path + " failed";
    ok = false;
  }
  ok = ok && SyncPath(fresh, path, error);
  if (ok && !::SetFileAttributesW(fresh.c_str(), attributes)) {
    *error = Reason("cannot set the attributes of " + path, ::GetLastError());
    ok = false;
  }
  if (ok && !MoveIntoPlace(fresh, target)) {
    *error = Reason("cannot replace " + path, ::GetLastError());
    ok = false;
  }
  if (!ok) {
    ::SetFileAttributesW(fresh.c_str(), FILE_ATTRIBUTE_NORMAL);
    ::DeleteFileW(fresh.c_str());
    return ReplaceStatus::kWriteFailed;
  }
  return ReplaceStatus::kDone;
}

ReplaceStatus ReplaceFileContents(const std::string& path, const std::string& contents,
                                  std::string* error) {
  return ReplaceFile(
      path,
      [&](const std::string& fresh, std::string* why) {
        const HANDLE h = ::CreateFileW(NarrowToWide(fresh).c_str(), GENERIC_WRITE, 0, nullptr,
                                       TRUNCATE_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (h == INVALID_HANDLE_VALUE) {
          *why = Reason("cannot write " + path, ::GetLastError());
          return false;
        }
        bool ok = WriteAll(h, contents.data(), contents.size());
        if (!ok) *why = Reason("cannot write " + path, ::GetLastError());
        if (!::CloseHandle(h) && ok) {
          *why = Reason("cannot write " + path, ::GetLastError());
          ok = false;
        }
        return ok;
      },
      false, error);
}

}  // namespace platform
}  // namespace nvx
