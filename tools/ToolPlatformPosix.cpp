// nvxparam's system calls on POSIX systems.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "ToolPlatform.h"

namespace nvxparam {
namespace sys {

std::vector<std::string> CommandArguments(int argc, char** argv) {
  return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
}

void BinaryStandardInput() {}  // there is no text mode

std::string MakePrivateTempFile(const std::string& stem, std::string* error) {
  std::string pattern = (std::filesystem::temp_directory_path() / (stem + "XXXXXX")).string();
  const int fd = ::mkstemp(pattern.data());
  if (fd < 0) {
    *error = std::strerror(errno);
    return {};
  }
  ::close(fd);
  return pattern;
}

int FolderWriteError(const std::string& folder) {
  return ::access(folder.c_str(), W_OK) == 0 ? 0 : errno;
}

const char* TextNewline() { return "\n"; }

FileLock::Result FileLock::TryLock(const std::string& path, std::string* error) {
  Release();
  int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  // Another user's lock file may be read-only to us; flock needs no write.
  if (fd < 0 && errno == EACCES) fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    *error = std::strerror(errno);
    return Result::kFailed;
  }
  int locked = 0;
  while ((locked = ::flock(fd, LOCK_EX | LOCK_NB)) != 0 && errno == EINTR) {
  }
  if (locked != 0) {
    const int reason = errno;
    ::close(fd);
    if (reason == EWOULDBLOCK) return Result::kBusy;
    *error = std::strerror(reason);
    return Result::kFailed;
  }
  handle_ = fd;
  return Result::kHeld;
}

void FileLock::Release() {
  // Closing the descriptor drops the lock.
  if (handle_ >= 0) ::close(static_cast<int>(handle_));
  handle_ = -1;
}

}  // namespace sys
}  // namespace nvxparam
