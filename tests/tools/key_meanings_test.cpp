// The meanings and ranges nvxparam keeps beside the key tables name keys that
// exist, so that renaming or dropping a key cannot leave a stale entry.
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

#include "KeyMeanings.h"
#include "core/KeyText.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNTags.h"

namespace {

TEST(KeyMeaningsTest, EveryEntryNamesAnExistingKeyInSortedOrder) {
  CNVX3DComputationImpl impl;
  std::set<std::string> names;
  std::set<std::string> numeric;
  for (const nvx::SectionDef* def : nvx::AllSections()) {
    for (const nvx::Key& key : def->keys(impl)) {
      if (!nvx::IsUserKey(key)) continue;
      const std::string name = std::string(nvx::TagName(def->tag)) + "." + key.name;
      names.insert(name);
      if (key.kind == nvx::KeyKind::kInt || key.kind == nvx::KeyKind::kDouble) numeric.insert(name);
    }
  }
  std::size_t count = 0;
  const nvxparam::KeyMeaning* meanings = nvxparam::AllMeanings(&count);
  ASSERT_GT(count, 0u);
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_EQ(names.count(meanings[i].key), 1u) << meanings[i].key;
    EXPECT_GT(std::strlen(meanings[i].meaning), 0u) << meanings[i].key;
    EXPECT_EQ(std::strchr(meanings[i].meaning, '|'), nullptr) << meanings[i].key;
    if (i > 0) {
      EXPECT_LT(std::strcmp(meanings[i - 1].key, meanings[i].key), 0) << meanings[i].key;
    }
  }
  const nvxparam::KeyRange* ranges = nvxparam::AllRanges(&count);
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_EQ(numeric.count(ranges[i].key), 1u) << ranges[i].key << " is no numeric key";
    EXPECT_LE(ranges[i].min, ranges[i].max) << ranges[i].key;
    if (i > 0) {
      EXPECT_LT(std::strcmp(ranges[i - 1].key, ranges[i].key), 0) << ranges[i].key;
    }
  }
}

TEST(KeyMeaningsTest, LookupsFindEntriesAndRangesNameTheirBounds) {
  EXPECT_STREQ(nvxparam::MeaningOf("SOLID_COOL.ValueConvergeUnit"),
               "convergence unit: 1 degree, 2 percentage");
  EXPECT_STREQ(nvxparam::MeaningOf("SOLID_COOL.NoSuchKey"), "");
  EXPECT_EQ(nvxparam::RangeOf("SOLID_FILL.ValueGravityX"), nullptr);
  EXPECT_EQ(nvxparam::RangeError("SOLID_COOL.ValueConvergeType", "3"), "");
  EXPECT_NE(nvxparam::RangeError("SOLID_COOL.ValueConvergeType", "0").find("1 to 3"),
            std::string::npos);
  EXPECT_EQ(nvxparam::RangeError("SOLID_FILL.ValueEOFPercent", "1"), "");
  EXPECT_NE(nvxparam::RangeError("SOLID_FILL.ValueEOFPercent", "1.0001"), "");
}

}  // namespace
