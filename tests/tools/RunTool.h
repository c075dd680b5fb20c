// Running a program through the shell std::system uses (/bin/sh, or cmd.exe
// on Windows) with its standard streams redirected to files, and its exit
// status read the same way on every system.
#ifndef NVX_TESTS_TOOLS_RUNTOOL_H_
#define NVX_TESTS_TOOLS_RUNTOOL_H_

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "TestUtil.h"

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace nvxtest {

// `arg` as one word for the shell: in single quotes for /bin/sh; for cmd.exe
// in double quotes, which keep its special characters (| & < > ^ %), with
// the backslashes the program's C runtime halves before a closing quote. A
// double quote inside an argument does not pass through cmd.exe intact.
inline std::string ShellWord(const std::string& arg) {
#ifdef _WIN32
  std::string word = "\"";
  std::size_t backslashes = 0;
  for (const char c : arg) {
    if (c == '\\') {
      ++backslashes;
      continue;
    }
    word.append(backslashes, '\\');
    backslashes = 0;
    word += c;
  }
  word.append(2 * backslashes, '\\');
  return word + "\"";
#else
  std::string word = "'";
  for (const char c : arg) word += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return word + "'";
#endif
}

// The exit status of what std::system ran: its exit code, 128 + the signal
// that ended it (POSIX), or -1.
inline int ExitStatus(int raw) {
#ifdef _WIN32
  return raw;  // the exit code itself
#else
  if (WIFEXITED(raw)) return WEXITSTATUS(raw);
  if (WIFSIGNALED(raw)) return 128 + WTERMSIG(raw);
  return -1;
#endif
}

// Runs `program` with `args`, standard input from the file `in` (inherited
// when empty), standard output and error into the files `out` and `err`
// (discarded when empty), and returns its exit status.
inline int RunProgram(const std::string& program, const std::vector<std::string>& args,
                      const std::string& in, const std::string& out, const std::string& err) {
#ifdef _WIN32
  const char* const nowhere = "NUL";
  const std::string name = std::filesystem::path(program).make_preferred().string();
#else
  const char* const nowhere = "/dev/null";
  const std::string& name = program;
#endif
  std::string command = ShellWord(name);
  for (const std::string& arg : args) command += " " + ShellWord(arg);
  if (!in.empty()) command += " <" + ShellWord(in);
  command += " >" + (out.empty() ? nowhere : ShellWord(out));
  command += " 2>" + (err.empty() ? nowhere : ShellWord(err));
#ifdef _WIN32
  // cmd /c takes away the first and the last quote of a command that starts
  // with one.
  command = "\"" + command + "\"";
#endif
  return ExitStatus(std::system(command.c_str()));
}

// What a program wrote to standard output or error, read from the file it
// went to; Windows writes text streams with CR LF line ends, read here as LF.
inline std::string ReadOutput(const std::string& path) {
  std::string text = ReadText(path);
#ifdef _WIN32
  std::string lf;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!(text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')) lf += text[i];
  }
  text = lf;
#endif
  return text;
}

}  // namespace nvxtest

#endif  // NVX_TESTS_TOOLS_RUNTOOL_H_
