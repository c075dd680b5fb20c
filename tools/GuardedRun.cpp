// The child process of RunGuarded: fork, resource limits, exit status.
#include "GuardedRun.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>

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

constexpr unsigned kSeconds = 60;
constexpr rlim_t kAddressSpace = rlim_t(4) << 30;
constexpr int kFailed = 2;

void LimitChild() {
  const rlimit cpu{kSeconds, kSeconds + 5};
  ::setrlimit(RLIMIT_CPU, &cpu);
#ifndef NVX_ADDRESS_SANITIZER
  // The address sanitizer reserves terabytes of shadow memory up front.
  const rlimit memory{kAddressSpace, kAddressSpace};
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
  int status = 0;
  try {
    status = work();
  } catch (const std::bad_alloc&) {
    status = 3;  // the memory limit: reported by the parent
  } catch (const Failure& e) {
    std::cout.flush();
    std::cerr << "nvxparam: " << e.what() << std::endl;
    status = e.status;
  } catch (const std::exception& e) {
    std::cout.flush();
    std::cerr << "nvxparam: " << e.what() << std::endl;
    status = kFailed;
  }
  std::cout.flush();
  std::cerr.flush();
  const unsigned char byte = static_cast<unsigned char>(status);
  while (::write(report, &byte, 1) < 0 && errno == EINTR) {
  }
  std::_Exit(status);
}

}  // namespace

int RunGuarded(const std::string& path, const std::function<int()>& work) {
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

}  // namespace nvxparam
