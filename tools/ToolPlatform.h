// The few things nvxparam asks of the operating system outside the library:
// its arguments as UTF-8, standard input as bytes, a private temporary file,
// whether a folder takes new files and an exclusive lock between processes.
// One implementation per system
// (ToolPlatformPosix.cpp, ToolPlatformWin32.cpp).
#ifndef NVX_TOOLS_TOOLPLATFORM_H_
#define NVX_TOOLS_TOOLPLATFORM_H_

#include <cstdint>
#include <string>
#include <vector>

namespace nvxparam {
namespace sys {

// The arguments after the program name, UTF-8 encoded.
std::vector<std::string> CommandArguments(int argc, char** argv);

// Makes standard input deliver its bytes untranslated.
void BinaryStandardInput();

// Creates a new empty file that only this user can read, in the temporary
// folder, its name starting with `stem`. Returns its UTF-8 path, or an empty
// string with the reason in `*error`.
std::string MakePrivateTempFile(const std::string& stem, std::string* error);

// 0 when this process may create files in `folder`, else the errno value of
// why not (EROFS for a read-only file system, EACCES when not permitted).
int FolderWriteError(const std::string& folder);

// The line ending of text files on this system.
const char* TextNewline();

// An exclusive lock on a file, held between processes (flock on POSIX
// systems, LockFileEx on Windows). The system drops it when its holder
// releases it or ends in any way, killed included, so a lock never outlives
// its process. The file itself is only opened, never written.
class FileLock {
 public:
  enum class Result { kHeld, kBusy, kFailed };

  FileLock() = default;
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock() { Release(); }

  // Opens `path` (created empty when missing) and takes the lock unless
  // another holder has it: kBusy then. kFailed when the file cannot be opened
  // or locked, with the reason in `*error`.
  Result TryLock(const std::string& path, std::string* error);
  void Release();

 private:
  std::intptr_t handle_ = -1;  // a descriptor or a HANDLE
};

}  // namespace sys
}  // namespace nvxparam

#endif  // NVX_TOOLS_TOOLPLATFORM_H_
