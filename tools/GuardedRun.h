// Running a command on a file of unknown origin in a child process with time
// and memory limits, so that a file that crashes or hangs the HDF5 library
// cannot take nvxparam with it.
#ifndef NVX_TOOLS_GUARDEDRUN_H_
#define NVX_TOOLS_GUARDEDRUN_H_

#include <functional>
#include <string>

namespace nvxparam {

// Runs `work` in a child process limited to 60 s of CPU and wall-clock time
// and 4 GiB of address space, and returns its exit status: what `work`
// returned (0 or 1), or the status of its failure (1 or 2; the child printed
// why). A child that dies of a
// signal, hits a limit or ends any other way fails the command with
// "corrupt or unreadable RSV file: `path`".
int RunGuarded(const std::string& path, const std::function<int()>& work);

}  // namespace nvxparam

#endif  // NVX_TOOLS_GUARDEDRUN_H_
