// Helpers shared by the tests: a temporary directory and whole-file I/O.
#ifndef NVX_TESTS_TESTUTIL_H_
#define NVX_TESTS_TESTUTIL_H_

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

namespace nvxtest {

// Sets (or, with an empty value, removes) an environment variable of this
// process; children started afterwards inherit it.
inline void SetEnv(const char* name, const std::string& value) {
#ifdef _WIN32
  _putenv_s(name, value.c_str());
#else
  if (value.empty()) {
    unsetenv(name);
  } else {
    setenv(name, value.c_str(), 1);
  }
#endif
}

// The variable that names the base of the per-user directory.
#ifdef _WIN32
constexpr const char* kUserConfigVar = "APPDATA";
#else
constexpr const char* kUserConfigVar = "XDG_CONFIG_HOME";
#endif

// A fresh directory, removed with everything in it when the object goes.
class TempDir {
 public:
  TempDir() {
    static std::mt19937_64 random{std::random_device{}()};
    const auto base = std::filesystem::temp_directory_path();
    for (int attempt = 0; attempt < 100 && path_.empty(); ++attempt) {
      const auto candidate = base / ("nvxtest-" + std::to_string(random()));
      std::error_code ec;
      if (std::filesystem::create_directory(candidate, ec)) path_ = candidate.generic_string();
    }
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
    if (const char* old = std::getenv(kUserConfigVar)) old_ = old;
    SetEnv(kUserConfigVar, dir);
  }
  ~UserDirScope() { SetEnv(kUserConfigVar, old_); }

 private:
  std::string old_;
};

}  // namespace nvxtest

#endif  // NVX_TESTS_TESTUTIL_H_
