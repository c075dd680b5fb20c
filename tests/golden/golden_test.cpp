// The serialisers' output has not changed: the saved set under
// tests/data/golden is written again from the same parameters and compared,
// KRN files byte for byte (after turning the platform's line ends into "\n")
// and RSV files item by item (types and values).
#include <gtest/gtest.h>

#include <filesystem>

#include "GoldenSet.h"
#include "TestUtil.h"

namespace {

TEST(GoldenFiles, EveryOutputIsUnchanged) {
  nvxtest::TempDir out;
  nvxtest::TempDir scratch;
  const std::vector<std::string> names = nvxgolden::WriteGoldenSet(out.Path(), scratch.Path());
  ASSERT_GE(names.size(), 30u);
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    const std::string saved = std::string(GOLDEN_DIR) + "/" + name;
    ASSERT_TRUE(std::filesystem::exists(saved));
    if (name.size() > 4 && name.compare(name.size() - 4, 4, ".rsv") == 0) {
      const std::string want = nvxgolden::DescribeHdf5(saved);
      EXPECT_NE(want.find("SOLID_FILL"), std::string::npos);
      EXPECT_EQ(nvxgolden::DescribeHdf5(out.File(name)), want);
    } else {
      // The saved files end lines with "\n"; written here, with the platform's.
      EXPECT_EQ(nvxtest::ReadTextLF(out.File(name)), nvxtest::ReadText(saved));
    }
  }
}

}  // namespace
