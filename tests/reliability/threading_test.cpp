// One parameter object per thread, all at once: defaults (with their time
// stamp), KRN writing and reading, RSV writing and reading. Run under
// ThreadSanitizer by scripts/tsan.sh.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "NVX3DComputation.h"
#include "TestUtil.h"

namespace {

// Returns an empty text when every step worked, else the first that did not.
std::string Work(const std::string& dir, int id) {
  const std::string krn = dir + "/p" + std::to_string(id) + ".krn";
  const std::string rsv = dir + "/p" + std::to_string(id) + ".rsv";
  for (int round = 0; round < 5; ++round) {
    CNVX3DComputation c;
    NVXData data;
    data.KRNFilePath = krn;
    data.LoadMode = 1;
    data.ModelKind = 1 + id % 3;
    if (!c.LoadKRNFile(data)) return "defaults";
    c.SetSummaryCreater("thread" + std::to_string(id));
    if (!c.WriteKRNFile(krn, 0)) return "KRN write";
    c.SetRSVFilePath(rsv);
    if (!c.WriteRSVFile()) return "RSV write";

    CNVX3DComputation back;
    if (!back.LoadKRNFile(krn.c_str())) return "KRN read";
    back.SetSummaryCreater("");
    back.SetRSVFilePath(rsv);
    if (!back.ReadRSVFile()) return "RSV read";
    std::string creater;
    back.GetSummaryCreater(creater);
    if (creater != "thread" + std::to_string(id)) return "RSV value " + creater;
  }
  return {};
}

TEST(Threads, OneObjectPerThreadLoadsAndWritesAtTheSameTime) {
  nvxtest::TempDir dir;
  nvxtest::UserDirScope user(dir.File("config"));
  constexpr int kThreads = 4;
  std::vector<std::string> results(kThreads);
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, i] { results[i] = Work(dir.Path(), i); });
  }
  for (std::thread& t : threads) t.join();
  for (int i = 0; i < kThreads; ++i) EXPECT_EQ(results[i], "") << "thread " << i;
}

}  // namespace
