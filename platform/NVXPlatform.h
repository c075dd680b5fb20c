// The platform module: everything the library asks of the operating system.
// This is the only part of the library that includes system headers, so that a
// port to another system replaces these two files and nothing else.
#ifndef NVX_PLATFORM_NVXPLATFORM_H_
#define NVX_PLATFORM_NVXPLATFORM_H_

#include <cstdint>
#include <ctime>
#include <functional>
#include <string>

#include "NVXHostHooks.h"

namespace nvx {
namespace platform {

// Number of logical processors (at least 1), asked once per process.
std::uint32_t LogicalProcessorCount();
// Physical memory in bytes (0 when unknown), asked once per process.
std::uint64_t PhysicalMemoryBytes();

// A message box without an owner, plain OK style.
void ShowMessageBox(const char* text, const char* caption);
// Text for an attached debugger.
void DebugOutput(const char* text);
// A file that cannot be opened for writing: the host's handler, by default
// "Can't open" on standard error and the end of the process (status 1).
void CantOpen(const char* path);

// The local time of `t`; safe to call from several threads at once. False
// when the time cannot be converted.
bool LocalTime(std::time_t t, std::tm* out);

// Narrow code page (UTF-8 here) to and from wide strings. Invalid input
// sequences become U+FFFD; nothing throws.
std::string WideToNarrow(const std::wstring& wide);
std::wstring NarrowToWide(const std::string& narrow);

// Plain file system queries.
bool FileExists(const std::string& path);
bool DirectoryExists(const std::string& path);
bool MakeDirectory(const std::string& path);
// Size of a regular file in bytes, or -1.
std::int64_t FileSize(const std::string& path);

// Replacing a file only once its new contents are complete on disk.
enum class ReplaceStatus {
  kDone,
  kCantOpen,     // the file or its directory cannot be written at all
  kWriteFailed,  // writing, flushing or renaming failed; the old file is whole
};

// Writes the file `path` through a fresh file beside it (a link is followed and
// stays a link). `write` gets the fresh file's name and returns whether it
// wrote everything, with a reason in `*error` when it did not. When
// `startFromOld` is set the fresh file starts as a copy of the existing file.
// The fresh file is then flushed to disk, given the permission bits of the old
// file (or of a new file under the process's umask) and renamed over `path`.
// On failure the fresh file is removed, the old file stays as it was, and
// `*error` says why.
ReplaceStatus ReplaceFile(
    const std::string& path,
    const std::function<bool(const std::string& fresh, std::string* error)>& write,
    bool startFromOld, std::string* error);
// ReplaceFile with `contents` as the whole new file.
ReplaceStatus ReplaceFileContents(const std::string& path, const std::string& contents,
                                  std::string* error);

}  // namespace platform
}  // namespace nvx

#endif  // NVX_PLATFORM_NVXPLATFORM_H_
