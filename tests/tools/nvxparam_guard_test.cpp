// nvxparam's edit lock between processes and the time limit of its guarded
// RSV reads, run as a program on real files.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "GuardedRun.h"
#include "ParamFiles.h"
#include "TestUtil.h"
#include "ToolPlatform.h"
#include "tools/RunTool.h"

#ifndef _WIN32
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

using Clock = std::chrono::steady_clock;
using nvxtest::ReadText;

struct Result {
  int status;
  std::string out;
  std::string err;
};

class NvxParamGuardTest : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return dir_.File(name); }

  // nvxparam with `args`; `tag` keeps the output files of concurrent runs apart.
  Result Run(const std::vector<std::string>& args, const std::string& tag = "") const {
    const std::string out = Path("out" + tag), err = Path("err" + tag);
    const int status = nvxtest::RunProgram(NVXPARAM_PATH, args, "", out, err);
    return {status, nvxtest::ReadOutput(out), nvxtest::ReadOutput(err)};
  }

  nvxtest::TempDir dir_;
  nvxtest::UserDirScope user_{dir_.File("config")};
};

double Seconds(Clock::duration d) { return std::chrono::duration<double>(d).count(); }

TEST_F(NvxParamGuardTest, ConcurrentEditsOfOneFileAreAllKeptAndReadersSeeAWholeFile) {
  const std::string krn = Path("p.krn");
  ASSERT_EQ(Run({"new", krn}).status, 0);
  // Each writer counts its own key up, one read and one edit at a time: an
  // edit lost to the other writer's replacement would leave its count short.
  // A third process reads the file all the while, without a lock.
#ifdef _WIN32
  // Every program start is slow under emulation.
  constexpr int kEdits = 40;
#else
  constexpr int kEdits = 200;
#endif
  const std::vector<std::string> keys = {"SOLID_FILL.ValueGateFreezeByTemperature",
                                         "SOLID_COOL.ValueMaxCycleNumber"};
  std::atomic<int> writing{2};
  std::vector<std::string> failures(3);
  std::vector<std::thread> threads;
  for (int w = 0; w < 2; ++w) {
    threads.emplace_back([&, w] {
      const std::string tag = std::to_string(w);
      if (Run({"set", krn, keys[w] + "=0"}, tag).status != 0) failures[w] = "the first edit";
      for (int i = 1; i <= kEdits && failures[w].empty(); ++i) {
        const Result got = Run({"get", krn, keys[w]}, tag);
        const Result set = Run({"set", krn, keys[w] + "=" + std::to_string(i)}, tag);
        if (got.status != 0 || got.out != std::to_string(i - 1) + "\n" || set.status != 0) {
          failures[w] =
              "edit " + std::to_string(i) + ": read '" + got.out + "' " + got.err + set.err;
        }
      }
      --writing;
    });
  }
  threads.emplace_back([&] {
    int reads = 0;
    while (writing > 0 && failures[2].empty()) {
      const Result check = Run({"check", krn}, "r");
      if (check.status != 0) failures[2] = "check: " + check.out + check.err;
      ++reads;
    }
    EXPECT_GT(reads, 0);
  });
  for (std::thread& t : threads) t.join();
  for (const std::string& failure : failures) EXPECT_EQ(failure, "");
  for (const std::string& key : keys) {
    EXPECT_EQ(Run({"get", krn, key}).out, std::to_string(kEdits) + "\n") << key;
  }
  EXPECT_EQ(Run({"check", krn}).status, 0);
}

TEST_F(NvxParamGuardTest, AHeldLockFailsAnEditAfterTheWaitAndLeavesTheFile) {
  const std::string krn = Path("p.krn"), rsv = Path("p.rsv");
  ASSERT_EQ(Run({"new", krn}).status, 0);
  ASSERT_EQ(Run({"to-rsv", krn, rsv}).status, 0);
  const std::string krnBefore = ReadText(krn), rsvBefore = ReadText(rsv);
  {
    nvxparam::sys::FileLock krnLock, rsvLock;
    std::string error;
    ASSERT_EQ(krnLock.TryLock(krn + ".lock", &error), nvxparam::sys::FileLock::Result::kHeld);
    ASSERT_EQ(rsvLock.TryLock(rsv + ".lock", &error), nvxparam::sys::FileLock::Result::kHeld);
    // Both waits run at once; a conversion locks the file it writes.
    Result set, toRsv;
    const Clock::time_point start = Clock::now();
    std::thread other([&] { toRsv = Run({"to-rsv", krn, rsv}, "t"); });
    set = Run({"set", krn, "SOLID_FILL.FlagInertia=1"});
    other.join();
    const double waited = Seconds(Clock::now() - start);
    EXPECT_GE(waited, nvxparam::kLockWaitSeconds - 0.5);
    EXPECT_LT(waited, nvxparam::kLockWaitSeconds + 20);
    EXPECT_EQ(set.status, 2);
    EXPECT_EQ(set.err, "nvxparam: " + krn + " is locked by another process\n");
    EXPECT_EQ(toRsv.status, 2);
    EXPECT_EQ(toRsv.err, "nvxparam: " + rsv + " is locked by another process\n");
    EXPECT_EQ(ReadText(krn), krnBefore);
    EXPECT_EQ(ReadText(rsv), rsvBefore);
    // Readers take no lock.
    EXPECT_EQ(Run({"get", krn, "SOLID_FILL.FlagInertia"}).status, 0);
  }
  // Released: the lock file stays and blocks nobody.
  EXPECT_EQ(Run({"set", krn, "SOLID_FILL.FlagInertia=1"}).status, 0);
  EXPECT_TRUE(std::filesystem::exists(std::filesystem::u8path(krn + ".lock")));
}

#ifndef _WIN32
TEST_F(NvxParamGuardTest, TheLockOfAKilledHolderIsGone) {
  const std::string krn = Path("p.krn");
  ASSERT_EQ(Run({"new", krn}).status, 0);
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t holder = ::fork();
  ASSERT_GE(holder, 0);
  if (holder == 0) {
    nvxparam::sys::FileLock lock;
    std::string error;
    const char held = lock.TryLock(krn + ".lock", &error) == nvxparam::sys::FileLock::Result::kHeld;
    if (::write(ready[1], &held, 1) != 1) ::_exit(1);
    ::pause();
    ::_exit(0);
  }
  ::close(ready[1]);
  char held = 0;
  ASSERT_EQ(::read(ready[0], &held, 1), 1);
  ::close(ready[0]);
  ASSERT_TRUE(held);
  ::kill(holder, SIGKILL);
  ::waitpid(holder, nullptr, 0);
  const Clock::time_point start = Clock::now();
  EXPECT_EQ(Run({"set", krn, "SOLID_FILL.FlagInertia=1"}).status, 0);
  EXPECT_LT(Seconds(Clock::now() - start), nvxparam::kLockWaitSeconds - 1);
}
#endif

TEST_F(NvxParamGuardTest, TimeLimitTakesWholeSecondsAfterAnRsvVerb) {
  const std::string krn = Path("p.krn"), rsv = Path("p.rsv");
  ASSERT_EQ(Run({"new", krn}).status, 0);
  ASSERT_EQ(Run({"to-rsv", "--time-limit", "1", krn, rsv}).status, 0);
  for (const std::vector<std::string>& args :
       std::vector<std::vector<std::string>>{{"get", "--time-limit", "1", rsv, "SUMMARY.Flag3D"},
                                             {"get", rsv, "SUMMARY.Flag3D", "--time-limit=3600"},
                                             {"show", "--time-limit", "5", krn}}) {
    const Result r = Run(args);
    EXPECT_EQ(r.status, 0) << args[1] << " " << args[2] << ": " << r.err;
  }
  for (const char* bad : {"0", "-1", "3601", "1.5", "ten", "", "99999999999"}) {
    const Result r = Run({"show", "--time-limit", bad, rsv});
    EXPECT_EQ(r.status, 2) << bad;
    EXPECT_EQ(r.err, "nvxparam: --time-limit takes a whole number of seconds from 1 to " +
                         std::to_string(nvxparam::guarded::kMaxSeconds) + ", not '" + bad + "'\n");
  }
  EXPECT_EQ(Run({"show", rsv, "--time-limit"}).status, 2);
  // Verbs that read no RSV file take no time limit.
  EXPECT_EQ(Run({"check", "--time-limit", "5", krn}).status, 2);
}

}  // namespace
