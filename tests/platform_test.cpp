// The platform module: the per-user directory and the UTF-8 conversions.
#include <gtest/gtest.h>

#include "NVXPlatform.h"
#include "TestUtil.h"

using namespace nvx::platform;

TEST(Platform, PerUserDirectoryIsMadeBeneathTheConfigHome) {
  nvxtest::TempDir dir;
  char buffer[260] = {};
  {
    nvxtest::UserDirScope scope(dir.File("cfg"));
    ASSERT_TRUE(NVXGetReleaseVersionCurUserDirectory(buffer, sizeof buffer));
    EXPECT_EQ(std::string(buffer).rfind(dir.File("cfg/NVXComputationEngine/"), 0), 0u);
    EXPECT_TRUE(DirectoryExists(buffer));
  }
  {
    nvxtest::UserDirScope scope(dir.File(std::string(250, 'x')));
    EXPECT_FALSE(NVXGetReleaseVersionCurUserDirectory(buffer, sizeof buffer));
  }
  EXPECT_FALSE(NVXGetReleaseVersionCurUserDirectory(nullptr, 260));
  EXPECT_GE(LogicalProcessorCount(), 1u);
  EXPECT_GT(PhysicalMemoryBytes(), 0u);
}

TEST(Platform, Utf8ConversionsRoundTripAndReplaceBadInput) {
  const std::wstring wide = L"a\u00e9\u4e2d\U0001F600";
  EXPECT_EQ(WideToNarrow(wide), "a\xc3\xa9\xe4\xb8\xad\xf0\x9f\x98\x80");
  EXPECT_EQ(NarrowToWide(WideToNarrow(wide)), wide);
  // A stray continuation byte, a truncated sequence and an overlong form.
  EXPECT_EQ(NarrowToWide("\x80x\xe4\xb8"), L"\uFFFDx\uFFFD\uFFFD");
  EXPECT_EQ(NarrowToWide("\xc0\xaf"), L"\uFFFD\uFFFD");
}
