// Running a command on a file of unknown origin in a child process with time
// and memory limits, so that a file that crashes or hangs the HDF5 library
// cannot take nvxparam with it. GuardedRun.cpp holds what the child does on
// every system; GuardedRunPosix.cpp and GuardedRunWin32.cpp start and watch
// it.
#ifndef NVX_TOOLS_GUARDEDRUN_H_
#define NVX_TOOLS_GUARDEDRUN_H_

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace nvxparam {

// Runs `work` in a child process limited to `seconds` of CPU and of
// wall-clock time and 4 GiB of memory, and returns its exit status: what `work` returned (0
// or 1), or the status of its failure (1 or 2; the child printed why). A child
// that crashes, is killed, hits a limit or ends any other way fails the
// command with "corrupt or unreadable RSV file: `path`".
// `command` is the verb and its arguments as `work` runs them: where the
// system cannot copy a running process, the child is a fresh nvxparam that
// runs `command` through RunIfGuardedChild.
int RunGuarded(const std::string& path, const std::vector<std::string>& command,
               const std::function<int()>& work, unsigned seconds);

// When `args` are the arguments RunGuarded gives a fresh child, runs `run` on
// the command they carry, reports its status to the parent and ends the
// process; for any other arguments it returns at once.
void RunIfGuardedChild(const std::vector<std::string>& args,
                       const std::function<int(const std::vector<std::string>&)>& run);

namespace guarded {

// A parameter file parses in milliseconds: a read still running after the
// default limit is stuck. --time-limit takes 1 to kMaxSeconds.
constexpr unsigned kDefaultSeconds = 10;
constexpr unsigned kMaxSeconds = 3600;
constexpr std::uint64_t kMemoryBytes = std::uint64_t(4) << 30;
// The highest status of the verbs themselves; above it the parent reports
// the file as corrupt.
constexpr int kFailed = 2;

// The child's whole task: the status `work` returns, the status of the
// failure it throws (printed to standard error), or kFailed + 1 when memory
// ran out. Standard output and error are flushed.
int ChildStatus(const std::function<int()>& work);

}  // namespace guarded
}  // namespace nvxparam

#endif  // NVX_TOOLS_GUARDEDRUN_H_
