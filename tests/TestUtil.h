// Helpers shared by the tests: a temporary directory and whole-file I/O.
#ifndef NVX_TESTS_TESTUTIL_H_
#define NVX_TESTS_TESTUTIL_H_

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace nvxtest {

// A fresh directory, removed with everything in it when the object goes.
class TempDir {
 public:
  TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "nvxtest-XXXXXX").string();
    path_ = mkdtemp(pattern.data()) ? pattern : std::string();
  }
  ~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  std::string File(const std::string& name) const { return path_ + "/" + name; }
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

inline std::string ReadText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

inline void WriteText(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

// Points the per-user directory at `dir` for the life of the object.
class UserDirScope {
 public:
  explicit UserDirScope(const std::string& dir) {
    if (const char* old = std::getenv("XDG_CONFIG_HOME")) old_ = old, had_ = true;
    setenv("XDG_CONFIG_HOME", dir.c_str(), 1);
  }
  ~UserDirScope() {
    if (had_) {
      setenv("XDG_CONFIG_HOME", old_.c_str(), 1);
    } else {
      unsetenv("XDG_CONFIG_HOME");
    }
  }

 private:
  std::string old_;
  bool had_ = false;
};

}  // namespace nvxtest

#endif  // NVX_TESTS_TESTUTIL_H_
