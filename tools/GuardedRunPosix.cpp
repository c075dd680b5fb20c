// The child process of RunGuarded on POSIX systems: fork, resource limits,
// exit status.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "GuardedRun.h"
#include "ParamFiles.h"

#if defined(__SANITIZE_ADDRESS__)
#define NVX_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define NVX_ADDRESS_SANITIZER 1
#endif
#endif

namespace nvxparam {
namespace {

using guarded::kFailed;
using guarded::kSeconds;

void LimitChild() {
  const rlimit cpu{kSeconds, kSeconds + 5};
  ::setrlimit(RLIMIT_CPU, &cpu);
#ifndef NVX_ADDRESS_SANITIZER
  // The address sanitizer reserves terabytes of shadow memory up front.
  const rlimit memory{guarded::kMemoryBytes, guarded::kMemoryBytes};
  ::setrlimit(RLIMIT_AS, &memory);
#endif
  // A child blocked without using CPU time ends at the alarm.
  ::alarm(kSeconds);
}

// The child reports its status through `report` before it exits, so that an
// exit the child did not choose (a sanitizer's report, a library that calls
// exit) is told apart from the statuses of the verb.
[[noreturn]] void RunChild(const std::function<int()>& work, int report) {
  LimitChild();
  const int status = guarded::ChildStatus(work);
  const unsigned char byte = static_cast<unsigned char>(status);
  while (::write(report, &byte, 1) < 0 && errno == EINTR) {
  }
  std::_Exit(status);
}

}  // namespace

int RunGuarded(const std::string& path, const std::vector<std::string>& /*command*/,
               const std::function<int()>& work) {
  std::cout.flush();
  std::cerr.flush();
  int channel[2];
  if (::pipe(channel) != 0) Fail(std::string("cannot start a process: ") + std::strerror(errno));
  const pid_t child = ::fork();
  if (child < 0) {
    ::close(channel[0]);
    ::close(channel[1]);
    Fail(std::string("cannot start a process: ") + std::strerror(errno));
  }
  if (child == 0) {
    ::close(channel[0]);
    RunChild(work, channel[1]);
  }
  ::close(channel[1]);
  unsigned char reported = 0;
  ssize_t got = 0;
  while ((got = ::read(channel[0], &reported, 1)) < 0 && errno == EINTR) {
  }
  ::close(channel[0]);
  int raw = 0;
  while (::waitpid(child, &raw, 0) < 0) {
    if (errno != EINTR) Fail(std::string("lost the reading process: ") + std::strerror(errno));
  }
  if (got == 1 && reported <= kFailed && WIFEXITED(raw) && WEXITSTATUS(raw) == reported) {
    return reported;
  }
  Fail("corrupt or unreadable RSV file: " + path);
}

// A forked child runs `work` itself; nvxparam never starts a fresh child.
void RunIfGuardedChild(const std::vector<std::string>& /*args*/,
                       const std::function<int(const std::vector<std::string>&)>& /*run*/) {}

}  // namespace nvxparam
