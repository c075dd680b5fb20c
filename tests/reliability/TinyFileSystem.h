// A tiny file system for fault tests: a 1 MiB tmpfs mounted in a temporary
// directory (only as root), which a filler file can make completely full.
// Where it cannot be mounted (and always on Windows), Reason() says why, and
// the tests skip.
#ifndef NVX_TESTS_RELIABILITY_TINYFILESYSTEM_H_
#define NVX_TESTS_RELIABILITY_TINYFILESYSTEM_H_

#ifndef _WIN32
#include <unistd.h>
#endif

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "TestUtil.h"

namespace nvxtest {

class TinyFileSystem {
 public:
  TinyFileSystem() {
#ifdef _WIN32
    reason_ = "no tiny file system can be mounted on Windows";
#else
    if (::geteuid() != 0) {
      reason_ = "mounting a tiny tmpfs needs root";
      return;
    }
    const std::string mount = "mount -t tmpfs -o size=1m tmpfs '" + dir_.Path() + "' 2>/dev/null";
    if (std::system(mount.c_str()) != 0) {
      reason_ = "mount -t tmpfs failed (no privilege in this container?)";
      return;
    }
    mounted_ = true;
#endif
  }
  ~TinyFileSystem() {
    if (mounted_) std::system(("umount '" + dir_.Path() + "'").c_str());
  }
  TinyFileSystem(const TinyFileSystem&) = delete;
  TinyFileSystem& operator=(const TinyFileSystem&) = delete;

  bool Ready() const { return mounted_; }
  const std::string& Reason() const { return reason_; }
  std::string File(const std::string& name) const { return dir_.File(name); }

  // Fills the file system up to the last byte.
  void Fill() {
    std::ofstream filler(File("filler"), std::ios::binary | std::ios::app);
    const std::vector<char> block(512, 'f');
    while (filler.write(block.data(), static_cast<std::streamsize>(block.size())) &&
           filler.flush()) {
    }
    std::ofstream last(File("filler2"), std::ios::binary);
    while (last.put('f') && last.flush()) {
    }
  }
  // Makes the mount read-only (files stay readable).
  bool MakeReadOnly() {
    return mounted_ &&
           std::system(("mount -o remount,ro '" + dir_.Path() + "' 2>/dev/null").c_str()) == 0;
  }

 private:
  TempDir dir_;
  bool mounted_ = false;
  std::string reason_;
};

}  // namespace nvxtest

#endif  // NVX_TESTS_RELIABILITY_TINYFILESYSTEM_H_
