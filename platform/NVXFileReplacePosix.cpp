// Replacing a file on POSIX systems only once its new contents are on disk:
// a fresh file beside the old one, fsync, the old permission bits, rename.
// A failure at any step removes the fresh file and leaves the old one whole.
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

#include "NVXPlatform.h"

namespace nvx {
namespace platform {
namespace {

std::string Reason(const std::string& what, int err) { return what + ": " + std::strerror(err); }

// Errors that mean the disk, not the place, refuses the file.
bool IsSpaceError(int err) { return err == ENOSPC || err == EDQUOT || err == EIO || err == EFBIG; }

// The process's umask, read without changing it where the system allows.
mode_t CurrentUmask() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.rfind("Umask:", 0) == 0)
      return static_cast<mode_t>(std::strtoul(line.c_str() + 6, nullptr, 8));
  }
  const mode_t mask = ::umask(022);
  ::umask(mask);
  return mask;
}

// Writes all of `size` bytes, retrying short writes and interruptions.
bool WriteAll(int fd, const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t n = ::write(fd, data, size);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      if (n == 0) errno = EIO;
      return false;
    }
    data += n;
    size -= static_cast<std::size_t>(n);
  }
  return true;
}

// Copies the file `from` into the open descriptor `to`.
bool CopyInto(const std::string& from, int to, std::string* error) {
  const int in = ::open(from.c_str(), O_RDONLY | O_CLOEXEC);
  if (in < 0) {
    *error = Reason("cannot read " + from, errno);
    return false;
  }
  char buffer[64 * 1024];
  bool ok = true;
  for (;;) {
    const ssize_t n = ::read(in, buffer, sizeof buffer);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) {
      *error = Reason("cannot read " + from, errno);
      ok = false;
      break;
    }
    if (n == 0) break;
    if (!WriteAll(to, buffer, static_cast<std::size_t>(n))) {
      *error = Reason("cannot copy " + from, errno);
      ok = false;
      break;
    }
  }
  ::close(in);
  return ok;
}

// Flushes the file `path` to disk.
bool SyncPath(const std::string& path, std::string* error) {
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0 || ::fsync(fd) != 0) {
    *error = Reason("cannot flush " + path, errno);
    if (fd >= 0) ::close(fd);
    return false;
  }
  if (::close(fd) != 0) {
    *error = Reason("cannot flush " + path, errno);
    return false;
  }
  return true;
}

// Flushes the directory entry of a rename; file systems that cannot sync a
// directory have nothing to flush, so a failure here is not reported.
void SyncDirectory(const std::string& dir) {
  const int fd = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

std::string DirectoryOf(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  if (slash == std::string::npos) return ".";
  if (slash == 0) return "/";
  return path.substr(0, slash);
}

std::string BaseName(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

// The file a link names (the link itself stays); `path` for anything else.
std::string FollowLink(const std::string& path) {
  struct stat st;
  if (::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return path;
  char* resolved = ::realpath(path.c_str(), nullptr);
  if (resolved == nullptr) return path;
  std::string target = resolved;
  std::free(resolved);
  return target;
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
  const std::string target = FollowLink(path);

  // The permission bits of the old file, which must itself be writable.
  struct stat st;
  const bool exists = ::stat(target.c_str(), &st) == 0;
  mode_t mode = 0;
  if (exists) {
    if (!S_ISREG(st.st_mode)) {
      *error = path + " is not a regular file";
      return ReplaceStatus::kCantOpen;
    }
    if (::access(target.c_str(), W_OK) != 0) {
      *error = Reason("cannot write " + path, errno);
      return ReplaceStatus::kCantOpen;
    }
    mode = st.st_mode & 07777;
  } else {
    mode = 0666 & ~CurrentUmask();
  }

  const std::string dir = DirectoryOf(target);
  std::string fresh = dir + "/." + BaseName(target) + ".XXXXXX";
  const int fd = ::mkstemp(fresh.data());
  if (fd < 0) {
    const int err = errno;
    *error = Reason("cannot write " + path, err);
    return IsSpaceError(err) ? ReplaceStatus::kWriteFailed : ReplaceStatus::kCantOpen;
  }
  bool ok = !startFromOld || !exists || CopyInto(target, fd, error);
  if (::close(fd) != 0 && ok) {
    *error = Reason("cannot write " + path, errno);
    ok = false;
  }
  if (ok && !write(fresh, error)) {
    if (error->empty()) *error = "writing " + path + " failed";
    ok = false;
  }
  ok = ok && SyncPath(fresh, error);
  if (ok && ::chmod(fresh.c_str(), mode) != 0) {
    *error = Reason("cannot set the permissions of " + path, errno);
    ok = false;
  }
  if (ok && ::rename(fresh.c_str(), target.c_str()) != 0) {
    *error = Reason("cannot replace " + path, errno);
    ok = false;
  }
  if (!ok) {
    ::unlink(fresh.c_str());
    return ReplaceStatus::kWriteFailed;
  }
  SyncDirectory(dir);
  return ReplaceStatus::kDone;
}

ReplaceStatus ReplaceFileContents(const std::string& path, const std::string& contents,
                                  std::string* error) {
  return ReplaceFile(
      path,
      [&](const std::string& fresh, std::string* why) {
        const int fd = ::open(fresh.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
        if (fd < 0) {
          *why = Reason("cannot write " + path, errno);
          return false;
        }
        bool ok = WriteAll(fd, contents.data(), contents.size());
        if (!ok) *why = Reason("cannot write " + path, errno);
        if (::close(fd) != 0 && ok) {
          *why = Reason("cannot write " + path, errno);
          ok = false;
        }
        return ok;
      },
      false, error);
}

std::int64_t FileSize(const std::string& path) {
  struct stat st;
  if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return -1;
  return static_cast<std::int64_t>(st.st_size);
}

}  // namespace platform
}  // namespace nvx
