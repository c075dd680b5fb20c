// nvxparam's system calls on POSIX systems.
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

}  // namespace sys
}  // namespace nvxparam
