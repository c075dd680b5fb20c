// A forked child under resource limits: fork, limits, the two pipes back to
// the parent and the exit status.
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "LimitedChild.h"

#if defined(__SANITIZE_ADDRESS__)
#define NVX_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define NVX_ADDRESS_SANITIZER 1
#endif
#endif

namespace nvxchild {
namespace {

void CloseQuietly(int& fd) {
  if (fd >= 0) ::close(fd);
  fd = -1;
}

void ApplyLimits(const Limits& limits) {
  // The parent may have caught, ignored or blocked the signals the limits
  // send (an interpreter catches SIGALRM): here they end the process.
  ::signal(SIGALRM, SIG_DFL);
  ::signal(SIGXCPU, SIG_DFL);
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGALRM);
  sigaddset(&set, SIGXCPU);
  ::sigprocmask(SIG_UNBLOCK, &set, nullptr);
  if (limits.bareCrashes) {
    for (const int crash : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) ::signal(crash, SIG_DFL);
  }

  const rlim_t seconds = limits.seconds;
  const rlimit cpu{seconds, seconds + 5};
  ::setrlimit(RLIMIT_CPU, &cpu);
#ifndef NVX_ADDRESS_SANITIZER
  // The address sanitizer reserves terabytes of shadow memory up front.
  const rlimit memory{static_cast<rlim_t>(limits.memoryBytes),
                      static_cast<rlim_t>(limits.memoryBytes)};
  ::setrlimit(RLIMIT_AS, &memory);
#endif
  // A child blocked without using CPU time ends at the alarm.
  ::alarm(limits.seconds);
}

}  // namespace

bool WriteAll(int fd, const void* data, std::size_t size) {
  const char* p = static_cast<const char*>(data);
  while (size > 0) {
    const ssize_t n = ::write(fd, p, size);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    p += n;
    size -= static_cast<std::size_t>(n);
  }
  return true;
}

LimitedChild::LimitedChild(const Limits& limits, const std::function<int(int output)>& work) {
  int output[2];
  int report[2];
  if (::pipe(output) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
  if (::pipe(report) != 0) {
    const int error = errno;
    ::close(output[0]);
    ::close(output[1]);
    throw std::system_error(error, std::generic_category(), "pipe");
  }
  pid_ = ::fork();
  if (pid_ < 0) {
    const int error = errno;
    for (const int fd : {output[0], output[1], report[0], report[1]}) ::close(fd);
    throw std::system_error(error, std::generic_category(), "fork");
  }
  if (pid_ == 0) {
    ::close(output[0]);
    ::close(report[0]);
    ApplyLimits(limits);
    const int status = work(output[1]) & 0xff;
    // The status also goes through its own pipe, so that an exit the work did
    // not choose (a sanitizer's report, a library that calls exit) is told
    // apart from the status the work returned.
    const unsigned char byte = static_cast<unsigned char>(status);
    WriteAll(report[1], &byte, 1);
    std::_Exit(status);
  }
  ::close(output[1]);
  ::close(report[1]);
  output_ = output[0];
  report_ = report[0];
}

LimitedChild::~LimitedChild() {
  CloseQuietly(output_);
  CloseQuietly(report_);
  if (pid_ > 0) {
    ::kill(pid_, SIGKILL);
    while (::waitpid(pid_, nullptr, 0) < 0 && errno == EINTR) {
    }
  }
}

Outcome LimitedChild::Wait() {
  Outcome outcome;
  // Read to the end first: a child whose output fills the pipe waits for it.
  char buffer[4096];
  for (;;) {
    const ssize_t n = ::read(output_, buffer, sizeof buffer);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) break;
    outcome.output.append(buffer, static_cast<std::size_t>(n));
  }
  unsigned char reported = 0;
  ssize_t got = 0;
  while ((got = ::read(report_, &reported, 1)) < 0 && errno == EINTR) {
  }
  CloseQuietly(output_);
  CloseQuietly(report_);
  int raw = 0;
  pid_t ended = 0;
  while ((ended = ::waitpid(pid_, &raw, 0)) < 0 && errno == EINTR) {
  }
  pid_ = -1;
  outcome.finished =
      ended > 0 && got == 1 && WIFEXITED(raw) && WEXITSTATUS(raw) == static_cast<int>(reported);
  outcome.status = outcome.finished ? reported : 0;
  return outcome;
}

std::string MakePrivateDirectory(const std::string& stem, std::string* error) {
  std::error_code ec;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(ec);
  if (ec) {
    *error = ec.message();
    return {};
  }
  std::string pattern = (folder / (stem + "XXXXXX")).string();
  if (::mkdtemp(pattern.data()) == nullptr) {  // made with mode 0700
    *error = std::generic_category().message(errno);
    return {};
  }
  return pattern;
}

}  // namespace nvxchild
