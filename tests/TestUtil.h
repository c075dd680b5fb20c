// Helpers shared by the tests: a temporary directory, whole-file I/O and
// environment variables, the same on every system.
#ifndef NVX_TESTS_TESTUTIL_H_
#define NVX_TESTS_TESTUTIL_H_

#include <cstdlib>
#include <cstring>
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

#ifdef _WIN32
// Under the emulator that runs the Windows tests, APPDATA is set afresh from
// its own settings when a program starts, whatever the caller passed. The test
// scripts therefore also pass the per-user directory as NVX_TEST_APPDATA, which
// every test program takes over before its first test.
inline const bool kUserDirFromTestScript = [] {
  const char* dir = std::getenv("NVX_TEST_APPDATA");
  if (dir != nullptr && *dir != '\0') SetEnv(kUserConfigVar, dir);
  return true;
}();
#endif

// The platform's text line end: what the library ends KRN lines with.
#ifdef _WIN32
constexpr const char* kNewline = "\r\n";
#else
constexpr const char* kNewline = "\n";
#endif

// `text` with the platform's line ends turned into "\n", so one expected text
// serves every system. On Linux the text is returned as it is: a stray "\r"
// there is a fault the comparison must still see.
inline std::string ToLF(std::string text) {
  const std::size_t width = std::strlen(kNewline);
  if (width == 1) return text;
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    if (text.compare(at, width, kNewline) == 0) {
      out += '\n';
      at += width;
    } else {
      out += text[at++];
    }
  }
  return out;
}

// A fresh directory, removed with everything in it when the object goes.
class TempDir {
 public:
  TempDir() {
    static std::mt19937_64 random{std::random_device{}()};
    const auto base = std::filesystem::temp_directory_path();
    for (int attempt = 0; attempt < 100 && path_.empty(); ++attempt) {
      const auto candidate = base / ("nvxtest-" + std::to_string(random()));
      std::error_code ec;
      if (std::filesystem::create_directory(candidate, ec)) path_ = candidate.generic_u8string();
    }
  }
  ~TempDir() {
    std::error_code ec;
    if (!path_.empty()) std::filesystem::remove_all(std::filesystem::u8path(path_), ec);
  }
  std::string File(const std::string& name) const { return path_ + "/" + name; }
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

// Paths are UTF-8 (TempDir makes them so) on every system.
inline std::string ReadText(const std::string& path) {
  std::ifstream in(std::filesystem::u8path(path), std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

// A text file the library wrote (a KRN file), with "\n" line ends.
inline std::string ReadTextLF(const std::string& path) { return ToLF(ReadText(path)); }

inline void WriteText(const std::string& path, const std::string& text) {
  std::ofstream(std::filesystem::u8path(path), std::ios::binary) << text;
}

// What h5dump printed for an HDF5 file, or why there is no output to check.
struct H5dumpResult {
  bool ran = false;  // false: nothing to check, `why` says why
  int status = 0;    // h5dump's exit status when it ran
  std::string text;  // its output (standard output and errors)
  std::string why;
};

// Runs `program` (h5dump) with `options` on `file`, its output going to `out`.
// A Windows test program cannot start the build machine's h5dump; there
// `program` is empty and a CTest test (tests/h5dump_test.cmake) runs the test
// twice: first with NVX_H5DUMP_EXPORT naming where to leave a copy of `file`,
// then with NVX_H5DUMP_TEXT naming h5dump's output for that copy.
inline H5dumpResult H5dump(const std::string& program, const std::string& options,
                           const std::string& file, const std::string& out) {
  H5dumpResult result;
  const char* text = std::getenv("NVX_H5DUMP_TEXT");
  const char* keep = std::getenv("NVX_H5DUMP_EXPORT");
  if (text != nullptr && *text != '\0') {
    result.ran = true;
    result.text = ReadText(text);
  } else if (keep != nullptr && *keep != '\0') {
    std::error_code ec;
    std::filesystem::copy_file(std::filesystem::u8path(file), std::filesystem::u8path(keep),
                               std::filesystem::copy_options::overwrite_existing, ec);
    result.why = ec ? "cannot leave the file for h5dump: " + ec.message()
                    : "file left for h5dump as " + std::string(keep);
  } else if (program.empty()) {
    result.why = "this test program cannot run h5dump (the CTest test *_h5dump_* runs it)";
  } else {
    const std::string command =
        "\"" + program + "\" " + options + " \"" + file + "\" > \"" + out + "\" 2>&1";
    result.ran = true;
    result.status = std::system(command.c_str());
    result.text = ReadText(out);
  }
  return result;
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
