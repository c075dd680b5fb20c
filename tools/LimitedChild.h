// Running a piece of work in a forked child process under CPU-time,
// wall-clock and memory limits, on POSIX systems. Whatever the work does to
// its own process (a crash inside a library, a hang, memory exhausted, an exit
// from deep inside a library), the caller survives and learns only that the
// work did not finish. nvxparam reads RSV files it did not write this way, and
// so does the Python module's load_rsv.
#ifndef NVX_TOOLS_LIMITEDCHILD_H_
#define NVX_TOOLS_LIMITEDCHILD_H_

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace nvxchild {

struct Limits {
  unsigned seconds = 10;  // CPU time and wall-clock time, each
  std::uint64_t memoryBytes = std::uint64_t(4) << 30;
  // A crash ends the child at once, past any handler it inherited: an
  // interpreter's fault handler would report the child's crash as a crash of
  // the interpreter itself.
  bool bareCrashes = false;
};

struct Outcome {
  // The work returned and the child ended with the status it returned; false
  // for a crash, a limit reached, or an exit the work did not choose.
  bool finished = false;
  int status = 0;      // what the work returned (0 to 255), when finished
  std::string output;  // every byte the work wrote to its output descriptor
};

// A child process running `work`. The child applies the limits, runs
// work(output) (bytes written to `output` reach Wait), and ends with _exit:
// no destructors, atexit handlers or buffers of the parent's state run twice.
// The work must not touch anything that another thread of the parent might
// have held at the fork (an interpreter's lock, say).
class LimitedChild {
 public:
  // Forks; throws std::system_error when no process can be started.
  LimitedChild(const Limits& limits, const std::function<int(int output)>& work);
  LimitedChild(const LimitedChild&) = delete;
  LimitedChild& operator=(const LimitedChild&) = delete;
  // A child not waited for is killed and reaped.
  ~LimitedChild();

  // Collects the child's output until it ends, then its status. Once only.
  Outcome Wait();

 private:
  pid_t pid_ = -1;
  int output_ = -1;  // read ends of the output and the status pipes
  int report_ = -1;
};

// Writes every byte, retrying after signals; false on an error.
bool WriteAll(int fd, const void* data, std::size_t size);

// Creates a new folder that only this user can enter, in the temporary folder,
// its name starting with `stem`. Returns its path, or an empty string with the
// reason in `*error`.
std::string MakePrivateDirectory(const std::string& stem, std::string* error);

}  // namespace nvxchild

#endif  // NVX_TOOLS_LIMITEDCHILD_H_
