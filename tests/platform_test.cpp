// The platform module: the per-user directory and the UTF-8 conversions.
#include <gtest/gtest.h>

#include <filesystem>

#include "NVXPlatform.h"
#include "TestUtil.h"

using namespace nvx::platform;

TEST(Platform, PerUserDirectoryIsMadeBeneathTheConfigHome) {
  nvxtest::TempDir dir;
  char buffer[260] = {};
  {
    nvxtest::UserDirScope scope(dir.File("cfg"));
    ASSERT_TRUE(NVXGetReleaseVersionCurUserDirectory(buffer, sizeof buffer));
    EXPECT_EQ(NativePath(buffer).parent_path(),
              NativePath(dir.File("cfg")) / "NVXComputationEngine");
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

TEST(Platform, Utf16AndUtf32ConversionsAgree) {
  // A 16-bit and a 32-bit wchar_t see the same text: the same replacements,
  // counted alike, and the same UTF-8 back.
  const std::string u8Text[] = {
      "a\xc3\xa9\xe4\xb8\xad\xf0\x9f\x98\x80",  // one to four bytes
      "\xf0\x9f\x98",                           // truncated four-byte sequence
      "\xed\xa0\x80\xed\xb8\x80",               // surrogates encoded in UTF-8
      "\xf4\x90\x80\x80x",                      // beyond U+10FFFF
  };
  for (const std::string& text : u8Text) {
    const std::string viaUtf16 = Utf16ToUtf8(Utf8ToUtf16(text));
    EXPECT_EQ(viaUtf16, Utf32ToUtf8(Utf8ToUtf32(text))) << text;
    EXPECT_EQ(viaUtf16, WideToNarrow(NarrowToWide(text))) << text;
  }
  EXPECT_EQ(Utf8ToUtf16("\xf0\x9f\x98\x80"), u"\xD83D\xDE00");
  EXPECT_EQ(Utf8ToUtf32("\xf0\x9f\x98"), U"\uFFFD\uFFFD\uFFFD");
  // Unpaired or reversed surrogates are one U+FFFD each.
  const std::string bad = "\xef\xbf\xbd";
  EXPECT_EQ(Utf16ToUtf8(u"\xD83Dx\xDE00\xDE00\xD83D"), bad + "x" + bad + bad + bad);
  EXPECT_EQ(Utf32ToUtf8(U"\xD83D\xDE00"), bad + bad);
  EXPECT_EQ(Utf32ToUtf8(U"\x110000"), bad);
}
