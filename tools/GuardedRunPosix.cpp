// The child process of RunGuarded on POSIX systems: a forked copy of nvxparam
// that runs the verb itself, under the limits of LimitedChild.
#include <iostream>
#include <system_error>

#include "GuardedRun.h"
#include "LimitedChild.h"
#include "ParamFiles.h"

namespace nvxparam {

int RunGuarded(const std::string& path, const std::vector<std::string>& /*command*/,
               const std::function<int()>& work, unsigned seconds) {
  std::cout.flush();
  std::cerr.flush();
  nvxchild::Outcome outcome;
  try {
    nvxchild::LimitedChild child({seconds, guarded::kMemoryBytes},
                                 [&](int /*output*/) { return guarded::ChildStatus(work); });
    outcome = child.Wait();
  } catch (const std::system_error& e) {
    Fail(std::string("cannot start a process: ") + e.code().message());
  }
  if (outcome.finished && outcome.status <= guarded::kFailed) return outcome.status;
  Fail("corrupt or unreadable RSV file: " + path);
}

// A forked child runs `work` itself; nvxparam never starts a fresh child.
void RunIfGuardedChild(const std::vector<std::string>& /*args*/,
                       const std::function<int(const std::vector<std::string>&)>& /*run*/) {}

}  // namespace nvxparam
