// The platform module: everything the library asks of the operating system.
// This is the only part of the library that includes system headers, so that a
// port to another system replaces the per-system files (NVXPlatform<System>.cpp
// and NVXFileReplace<System>.cpp) and nothing else; NVXUtf8.cpp is shared.
//
// Narrow paths (std::string, const char*) are UTF-8 on every system. On POSIX
// systems they go to the system calls unchanged. On Windows they are converted
// to UTF-16 and given to the wide ("W") functions: the narrow ("A") functions
// would read them in the ANSI code page, which cannot name every file and
// disagrees with the RSV file's library, which takes UTF-8 names. Code outside
// this module that opens a file by a narrow path goes through NativePath.
#ifndef NVX_PLATFORM_NVXPLATFORM_H_
#define NVX_PLATFORM_NVXPLATFORM_H_

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "NVXHostHooks.h"

namespace nvx {
namespace platform {

// Number of logical processors (at least 1), asked once per process.
std::uint32_t LogicalProcessorCount();
// Physical memory in bytes (0 when unknown), asked once per process.
std::uint64_t PhysicalMemoryBytes();

// A message box without an owner, plain OK style: the host's handler, by
// default SystemMessageBox.
void ShowMessageBox(const char* text, const char* caption);
// What the system does with a message box and a debugger text when the host
// installed no handler (one definition per system).
void SystemMessageBox(const char* text, const char* caption);
void SystemDebugOutput(const char* text);
// Text for an attached debugger.
void DebugOutput(const char* text);
// A file that cannot be opened for writing: the host's handler, by default
// "Can't open" on standard error and the end of the process (status 1).
void CantOpen(const char* path);

// The local time of `t`; safe to call from several threads at once. False
// when the time cannot be converted.
bool LocalTime(std::time_t t, std::tm* out);

// The end of a line in the system's text files: "\r\n" on Windows, "\n"
// elsewhere. Readers accept either.
std::string_view TextLineEnd();

// UTF-8 to and from wide strings, whatever the width of wchar_t: UTF-16 with
// surrogate pairs where it has 16 bits (Windows), UTF-32 where it has 32. The
// same text gives the same result on both. Invalid input (a malformed or
// truncated UTF-8 sequence, counted one U+FFFD per byte; an unpaired
// surrogate; a value beyond U+10FFFF) becomes U+FFFD; nothing throws.
std::string WideToNarrow(const std::wstring& wide);
std::wstring NarrowToWide(const std::string& narrow);
// The same conversions with a fixed width; the wide ones above use one pair.
std::string Utf16ToUtf8(std::u16string_view text);
std::u16string Utf8ToUtf16(std::string_view text);
std::string Utf32ToUtf8(std::u32string_view text);
std::u32string Utf8ToUtf32(std::string_view text);

// The file system path a UTF-8 narrow path names, for std::fstream and
// std::filesystem.
std::filesystem::path NativePath(const std::string& utf8);
// `dir` and `name` joined with the system's separator, as UTF-8.
std::string JoinPath(const std::string& dir, const std::string& name);

// Plain file system queries.
bool FileExists(const std::string& path);
bool DirectoryExists(const std::string& path);
// Creates the directory and any missing parents; true when it exists after.
bool MakeDirectory(const std::string& path);
// Size of a regular file in bytes, or -1.
std::int64_t FileSize(const std::string& path);

// The value of `key` in `section` of the INI file `path`, as the system's
// profile functions read it: section and key names match without regard to
// letter case, the first occurrence of a key counts, blanks around the value
// are dropped, and the value is cut to 255 characters. A missing section or
// key gives `fallback`. False, with `*value` untouched, when the file cannot
// be opened for reading.
bool ReadProfileString(const std::string& path, const std::string& section, const std::string& key,
                       const std::string& fallback, std::string* value);

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
// The fresh file is then flushed to disk, given the permission bits (POSIX) or
// the attributes (Windows) of the old file, or those of a new file, and renamed
// over `path`. On failure the fresh file is removed, the old file stays as it
// was, and `*error` says why. A full disk is kWriteFailed, even when it
// already refuses the fresh file.
ReplaceStatus ReplaceFile(
    const std::string& path,
    const std::function<bool(const std::string& fresh, std::string* error)>& write,
    bool startFromOld, std::string* error);
// ReplaceFile with `contents` as the whole new file, written byte for byte.
ReplaceStatus ReplaceFileContents(const std::string& path, const std::string& contents,
                                  std::string* error);

}  // namespace platform
}  // namespace nvx

#endif  // NVX_PLATFORM_NVXPLATFORM_H_
