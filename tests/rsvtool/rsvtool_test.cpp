// Behaviour of the RSV tool on real files, checked through the tool itself, through
// HDF5 directly (read-only sharing, open identifiers) and through h5dump.
#include <gtest/gtest.h>
#include <hdf5.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "NVX3DRSVExTool.h"
#include "TestUtil.h"

namespace {

namespace fs = std::filesystem;
using namespace NVX3DRSVExTool;

struct Record {
  std::int32_t id;
  char value[128];
};
static_assert(sizeof(Record) == 132, "record layout of the report writer");

class RsvToolTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    dir_ = std::make_unique<nvxtest::TempDir>();
    ASSERT_FALSE(dir_->Path().empty()) << info->name() << ": no temporary folder";
  }
  void TearDown() override { dir_.reset(); }

  std::string PathOf(const std::string& name) const { return dir_->File(name); }

  // A file with every kind of object and item, written the way the library and the
  // report writer use the tool.
  std::string WriteSample(CRSVTool& tool) {
    const std::string path = PathOf("sample.rsv");
    EXPECT_EQ(tool.Create(path, 4, 1, 0), 0);
    CRSVTable* table = tool.CreateTable(tool.CreateGroup(tool.OpenGroup(1), "Computation"), "Set");
    const unsigned char blob[4] = {1, 2, 3, 250};
    EXPECT_EQ(table->SetItem("Count", 41) + table->SetItem("Ratio", 0.25) +
                  table->SetItem("Enabled", true) + table->SetItem("Name", "Mold A") +
                  table->SetItem("Blob", sizeof blob, blob),
              0);
    const int id = tool.BeginCreateCompoundDataType(sizeof(Record));
    EXPECT_GE(id, 0);
    EXPECT_EQ(tool.AddCompoundDataTypeMember("ID", kRSVTypeInt32, 0), 0);
    EXPECT_EQ(tool.AddCompoundDataTypeFixedLengthStringMember("Value", 4, 128), 0);
    EXPECT_EQ(tool.EndCreateCompoundDataType(), 0);
    CRSVArray* result = tool.CreateArray(tool.OpenGroup(1, 7), "Result0", id, 41, 1);
    std::vector<Record> rows(41);
    for (int i = 0; i < 41; ++i) {
      rows[i].id = i;
      std::snprintf(rows[i].value, sizeof rows[i].value, "row %d", i);
    }
    EXPECT_EQ(result->WriteArray(rows.data()), 0);
    return path;
  }

  std::unique_ptr<nvxtest::TempDir> dir_;
};

TEST_F(RsvToolTest, CreateMakesNumberedGroupsAndRefusesExistingFiles) {
  const std::string path = PathOf("a.rsv");
  {
    CRSVTool tool;
    ASSERT_EQ(tool.Create(path, 4, 1, 0), 0);
    EXPECT_NE(tool.OpenGroup(1), nullptr);
    EXPECT_NE(tool.OpenGroup(1, 7), nullptr);
    EXPECT_EQ(tool.OpenGroup(1, 4), nullptr);
    EXPECT_EQ(tool.OpenGroup(2), nullptr);
    ASSERT_NE(tool.CreateGroup(tool.OpenGroup(1), "Computation"), nullptr);
    EXPECT_NE(tool.OpenGroup(1, 4), nullptr);
  }
  CRSVTool tool;
  EXPECT_NE(tool.Create(path, 4, 1, 0), 0);
  ASSERT_EQ(tool.Open(path), 0);
  EXPECT_FALSE(tool.IsReadOnly());
  EXPECT_NE(tool.OpenGroup(1, 4), nullptr);
}

TEST_F(RsvToolTest, OtherFilesFailSilentlyAndAreNeverOverwritten) {
  const std::string text = PathOf("notes.txt");
  nvxtest::WriteText(text, std::string(4096, 'x'));
  std::string truncated;
  {
    CRSVTool writer;
    truncated = WriteSample(writer);
  }
  fs::resize_file(fs::u8path(truncated), fs::file_size(fs::u8path(truncated)) / 2);

  H5E_auto2_t handler = nullptr, handlerAfter = nullptr;
  void *data = nullptr, *dataAfter = nullptr;
  H5Eget_auto2(H5E_DEFAULT, &handler, &data);
  {
    CRSVTool tool;
    ::testing::internal::CaptureStderr();
    EXPECT_NE(tool.Open(text), 0);
    EXPECT_NE(tool.Open(PathOf("missing.rsv")), 0);
    EXPECT_NE(tool.Open(truncated), 0);
    EXPECT_EQ(tool.OpenGroup(1), nullptr);
    EXPECT_NE(tool.Create(text, 4, 1, 0), 0);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(fs::file_size(fs::u8path(text)), 4096u);
  }
  // The application's own error handler is back once the tool is gone.
  H5Eget_auto2(H5E_DEFAULT, &handlerAfter, &dataAfter);
  EXPECT_TRUE(handler != nullptr && handlerAfter == handler && dataAfter == data);
}

TEST_F(RsvToolTest, OpenFallsBackToReadOnly) {
  CRSVTool writer;
  const std::string path = WriteSample(writer);
  writer.Close();
  // HDF5 refuses a read-write open of a file this process holds read-only.
  const hid_t held = H5Fopen(path.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
  ASSERT_GE(held, 0);
  {
    CRSVTool tool;
    ASSERT_EQ(tool.Open(path), 0);
    EXPECT_TRUE(tool.IsReadOnly());
    CRSVTable* table = tool.OpenTable(tool.OpenGroup(1, 4), "Set");
    ASSERT_NE(table, nullptr);
    int count = 0;
    EXPECT_TRUE(table->GetItem("Count", &count) && count == 41);
    EXPECT_NE(table->SetItem("Count", 1), 0);
    EXPECT_EQ(table->Flush(), 0);
  }
  H5Fclose(held);
}

TEST_F(RsvToolTest, GroupsTablesAndArraysAreNotConfused) {
  CRSVTool tool;
  ASSERT_EQ(tool.Create(PathOf("a.rsv"), 4, 1, 0), 0);
  CRSVGroup* group = tool.OpenGroup(1);
  ASSERT_NE(tool.CreateTable(group, "Set"), nullptr);
  ASSERT_NE(tool.CreateGroup(group, "Sub"), nullptr);
  ASSERT_NE(tool.CreateArray(group, "Values", kRSVTypeDouble, 1, 1), nullptr);

  EXPECT_EQ(tool.OpenGroup(group, "Set"), nullptr);
  EXPECT_EQ(tool.OpenTable(group, "Sub"), nullptr);
  EXPECT_EQ(tool.OpenTable(group, "Values"), nullptr);
  EXPECT_EQ(tool.OpenArray(group, "Set"), nullptr);
  EXPECT_NE(tool.OpenTable(group, "Set"), nullptr);
  EXPECT_NE(tool.OpenGroup(group, "Sub"), nullptr);
  EXPECT_EQ(tool.CreateTable(group, "Sub"), nullptr);
  EXPECT_EQ(tool.CreateGroup(group, "Sub/Deeper"), nullptr);
  EXPECT_EQ(tool.OpenTable(nullptr, "Set"), nullptr);
  tool.CloseTable(nullptr);
  tool.CloseGroup(group);
  // A closed group is no longer the tool's and is refused, not used.
  EXPECT_EQ(tool.OpenTable(group, "Set"), nullptr);
}

TEST_F(RsvToolTest, ItemsConvertBetweenNumbersAndReplaceAcrossTypes) {
  CRSVTool tool;
  ASSERT_EQ(tool.Create(PathOf("a.rsv"), 4, 1, 0), 0);
  CRSVTable* table = tool.CreateTable(tool.OpenGroup(1), "Items");
  ASSERT_EQ(table->SetItem("i", 42) + table->SetItem("d", 3.75) + table->SetItem("b", true) +
                table->SetItem("s", "h\xC3\xA9llo"),
            0);
  int i = 0;
  double d = 0;
  bool b = false;
  std::string s;
  EXPECT_TRUE(table->GetItem("b", &b) && b);
  EXPECT_TRUE(table->GetItem("s", &s) && s == "h\xC3\xA9llo");
  EXPECT_TRUE(table->GetItem("i", &d) && d == 42.0);
  EXPECT_TRUE(table->GetItem("d", &i) && i == 3);

  // Text is no number, a number neither text nor bool; the target is left alone.
  i = -1;
  s = "kept";
  EXPECT_FALSE(table->GetItem("s", &i) || table->GetItem("i", &s) || table->GetItem("i", &b) ||
               table->GetItem("missing", &i));
  EXPECT_TRUE(i == -1 && s == "kept" && b);

  EXPECT_EQ(table->SetItem("i", std::string("now text")), 0);
  EXPECT_FALSE(table->GetItem("i", &i));
  EXPECT_TRUE(table->GetItem("i", &s) && s == "now text");
  EXPECT_EQ(table->SetItem("s", false) + table->SetItem("d", 1.5), 0);
  EXPECT_NE(table->SetItem("NVXObject", 1), 0);
  EXPECT_TRUE(table->GetItem("s", &b) && !b);
  EXPECT_TRUE(table->GetItem("d", &d) && d == 1.5);
  EXPECT_EQ(table->Flush(), 0);
}

TEST_F(RsvToolTest, ByteBlocksOfAnySize) {
  std::vector<unsigned char> large(1 << 20);
  for (std::size_t k = 0; k < large.size(); ++k) large[k] = static_cast<unsigned char>(k * 31 + 7);
  CRSVTool tool;
  ASSERT_EQ(tool.Create(PathOf("a.rsv"), 4, 1, 0), 0);
  CRSVTable* table = tool.CreateTable(tool.OpenGroup(1), "Blocks");
  ASSERT_EQ(table->SetItem("large", large.size(), large.data()), 0);
  ASSERT_EQ(table->SetItem("empty", 0, nullptr), 0);
  EXPECT_NE(table->SetItem("broken", 5, nullptr), 0);

  std::uint64_t size = 0;
  const void* bytes = nullptr;
  ASSERT_TRUE(table->GetItem("large", &size, &bytes));
  ASSERT_EQ(size, large.size());
  EXPECT_EQ(std::memcmp(bytes, large.data(), large.size()), 0);
  EXPECT_TRUE(table->GetItem("empty", &size, &bytes) && size == 0 && bytes != nullptr);
  int number = 0;
  EXPECT_FALSE(table->GetItem("large", &number));
}

TEST_F(RsvToolTest, ArraysResizeAndKeepTheirElementType) {
  const std::string path = PathOf("a.rsv");
  CRSVTool tool;
  ASSERT_EQ(tool.Create(path, 4, 1, 0), 0);
  CRSVArray* ints = tool.CreateArray(tool.OpenGroup(1), "Ints", kRSVTypeInt32, 2, 3);
  CRSVArray* reals = tool.CreateArray(tool.OpenGroup(1), "Reals", kRSVTypeDouble, 0, 5);
  ASSERT_TRUE(ints && reals);
  EXPECT_EQ(tool.CreateArray(tool.OpenGroup(1), "Bad", 5, 1, 1), nullptr);

  const std::int32_t values[6] = {1, 2, 3, 4, 5, 6};
  ASSERT_EQ(ints->WriteArray(values), 0);
  EXPECT_NE(ints->ReadArray(nullptr), 0);
  ASSERT_EQ(ints->ResetDimension(4, 3), 0);
  std::uint64_t rows = 0, cols = 0;
  EXPECT_TRUE(ints->GetDimension(&rows, &cols) == 0 && rows == 4 && cols == 3);
  std::int32_t grown[12];
  ASSERT_EQ(ints->ReadArray(grown), 0);
  EXPECT_EQ(std::memcmp(grown, values, sizeof values), 0);
  EXPECT_EQ(grown[11], 0);

  // Zero rows: nothing to transfer, yet the array can grow later.
  EXPECT_EQ(reals->WriteArray(nullptr) + reals->ReadArray(nullptr), 0);
  ASSERT_EQ(reals->ResetDimension(2, 5), 0);
  double doubles[10];
  for (int k = 0; k < 10; ++k) doubles[k] = k * 0.5;
  ASSERT_EQ(reals->WriteArray(doubles), 0);
  tool.Close();

  // Reopened, the arrays tell their element type from the stored data type.
  ASSERT_EQ(tool.Open(path), 0);
  ints = tool.OpenArray(tool.OpenGroup(1), "Ints");
  reals = tool.OpenArray(tool.OpenGroup(1), "Reals");
  ASSERT_TRUE(ints && reals);
  EXPECT_EQ(ints->GetElementType(), kRSVTypeInt32);
  EXPECT_EQ(reals->GetElementType(), kRSVTypeDouble);
  double back[10] = {};
  ASSERT_EQ(reals->ReadArray(back), 0);
  EXPECT_EQ(std::memcmp(back, doubles, sizeof doubles), 0);
}

TEST_F(RsvToolTest, CompoundRecordsRoundTripAndBadDefinitionsFail) {
  CRSVTool tool;
  EXPECT_NE(tool.AddCompoundDataTypeMember("ID", kRSVTypeInt32, 0), 0);
  const std::string path = WriteSample(tool);
  const int id = tool.BeginCreateCompoundDataType(8);
  EXPECT_TRUE(id >= 0 && id != kRSVTypeInt32 && id != kRSVTypeDouble);
  EXPECT_NE(tool.AddCompoundDataTypeMember("Past", kRSVTypeDouble, 4), 0);
  EXPECT_NE(tool.AddCompoundDataTypeMember("Odd", 5, 0), 0);
  EXPECT_NE(tool.EndCreateCompoundDataType(), 0);
  EXPECT_EQ(tool.CreateArray(tool.OpenGroup(1), "Open", id, 1, 1), nullptr);
  tool.Close();

  ASSERT_EQ(tool.Open(path), 0);
  CRSVArray* result = tool.OpenArray(tool.OpenGroup(1, 7), "Result0");
  ASSERT_NE(result, nullptr);
  EXPECT_EQ(result->GetElementType(), -1);
  std::vector<Record> rows(41);
  ASSERT_EQ(result->ReadArray(rows.data()), 0);
  EXPECT_EQ(rows[40].id, 40);
  EXPECT_STREQ(rows[40].value, "row 40");
}

// Files other programs made: links are followed inside the file only, and an
// item stored as a one-element array counts as one value.
TEST_F(RsvToolTest, ForeignLinksAndOneElementItems) {
  CRSVTool tool;
  const std::string other = PathOf("other.rsv");
  ASSERT_EQ(tool.Create(other, 4, 1, 0), 0);
  ASSERT_NE(tool.CreateTable(tool.CreateGroup(tool.OpenGroup(1), "Computation"), "Set"), nullptr);
  tool.Close();
  const std::string path = PathOf("linked.rsv");
  ASSERT_EQ(tool.Create(path, 4, 1, 0), 0);
  ASSERT_NE(tool.CreateTable(tool.OpenGroup(1), "Set"), nullptr);
  tool.Close();

  const hid_t file = H5Fopen(path.c_str(), H5F_ACC_RDWR, H5P_DEFAULT);
  ASSERT_GE(file, 0);
  ASSERT_GE(H5Lcreate_external(other.c_str(), "/Project/Computation", file, "/Project/Computation",
                               H5P_DEFAULT, H5P_DEFAULT),
            0);
  ASSERT_GE(H5Lcreate_soft("/Project/Set", file, "/Project/Alias", H5P_DEFAULT, H5P_DEFAULT), 0);
  const hid_t set = H5Oopen(file, "/Project/Set", H5P_DEFAULT);
  const hsize_t one = 1;
  const hid_t space = H5Screate_simple(1, &one, nullptr);
  const hid_t attr = H5Acreate2(set, "Count", H5T_STD_I32LE, space, H5P_DEFAULT, H5P_DEFAULT);
  const int seven = 7;
  ASSERT_GE(H5Awrite(attr, H5T_NATIVE_INT, &seven), 0);
  H5Aclose(attr);
  H5Sclose(space);
  H5Oclose(set);
  H5Fclose(file);

  ASSERT_EQ(tool.Open(path), 0);
  EXPECT_EQ(tool.OpenGroup(1, 4), nullptr);
  CRSVTable* alias = tool.OpenTable(tool.OpenGroup(1), "Alias");
  ASSERT_NE(alias, nullptr);
  int count = 0;
  EXPECT_TRUE(alias->GetItem("Count", &count) && count == 7);
  EXPECT_EQ(alias->SetItem("Count", 8), 0);
  tool.Close();

  // Written in place: still a one-element array, now holding 8.
  const hid_t again = H5Fopen(path.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
  const hid_t stored = H5Aopen_by_name(again, "/Project/Set", "Count", H5P_DEFAULT, H5P_DEFAULT);
  const hid_t storedSpace = H5Aget_space(stored);
  int value = 0;
  EXPECT_EQ(H5Sget_simple_extent_type(storedSpace), H5S_SIMPLE);
  EXPECT_TRUE(H5Aread(stored, H5T_NATIVE_INT, &value) >= 0 && value == 8);
  H5Sclose(storedSpace);
  H5Aclose(stored);
  H5Fclose(again);
}

// The identifiers the tool keeps for every item end with the library; a
// host that closes and restarts HDF5 between files still gets working items.
TEST_F(RsvToolTest, ItemsWorkAfterTheLibraryRestarts) {
  for (int round = 0; round < 2; ++round) {
    CRSVTool tool;
    const std::string path = PathOf("round" + std::to_string(round) + ".rsv");
    ASSERT_EQ(tool.Create(path, 4, 1, 0), 0);
    CRSVTable* table = tool.CreateTable(tool.OpenGroup(1), "Set");
    ASSERT_EQ(table->SetItem("b", true) + table->SetItem("s", "text") + table->SetItem("i", 3), 0);
    bool b = false;
    std::string text;
    EXPECT_TRUE(table->GetItem("b", &b) && b && table->GetItem("s", &text) && text == "text");
    EXPECT_EQ(tool.Close(), 0);
    H5close();
    H5open();
  }
}

TEST_F(RsvToolTest, StringAttributesOnEveryKindOfObject) {
  CRSVTool tool;
  ASSERT_EQ(tool.Create(PathOf("a.rsv"), 4, 1, 0), 0);
  CRSVGroup* group = tool.OpenGroup(1);
  CRSVObject* objects[] = {group, tool.CreateTable(group, "T"),
                           tool.CreateArray(group, "A", kRSVTypeInt32, 1, 1)};
  for (CRSVObject* object : objects) {
    ASSERT_EQ(tool.WriteAttribute(object, "Note", "first"), 0);
    ASSERT_EQ(tool.WriteAttribute(object, "Note", "second"), 0);
    std::string text;
    EXPECT_TRUE(tool.ReadAttribute(object, "Note", &text) && text == "second");
    EXPECT_FALSE(tool.ReadAttribute(object, "Other", &text));
  }
  EXPECT_NE(tool.WriteAttribute(objects[1], "NVXObject", "ARRAY"), 0);
  EXPECT_NE(tool.WriteAttribute(nullptr, "Note", "x"), 0);
}

// Texts live in the file's heap, apart from their items: the texts that
// rewritten items (in place, or replaced by another type) leave behind are
// freed, and the texts still in use are untouched by that.
TEST_F(RsvToolTest, RewrittenTextsLeaveNothingBehind) {
  const std::string path = PathOf("a.rsv");
  constexpr int kItems = 8;
  std::vector<std::string> expected(kItems);
  const auto save = [&](int round) {
    CRSVTool tool;
    ASSERT_EQ(round == 0 ? tool.Create(path, 4, 1, 0) : tool.Open(path), 0);
    CRSVTable* table = round == 0 ? tool.CreateTable(tool.OpenGroup(1), "Set")
                                  : tool.OpenTable(tool.OpenGroup(1), "Set");
    ASSERT_NE(table, nullptr);
    // Each round changes a third of the items, to texts of other lengths.
    for (int k = 0; k < kItems; ++k) {
      if (round > 0 && k % 3 != round % 3) continue;
      expected[k] = std::to_string(round) + std::string((round * 37 + k * 301) % 2500, 'a' + k);
      ASSERT_EQ(table->SetItem("t" + std::to_string(k), expected[k]), 0);
    }
    // One item turns from text into a number and back.
    ASSERT_EQ(round % 2 ? table->SetItem("swap", round)
                        : table->SetItem("swap", std::string(2000, 's') + std::to_string(round)),
              0);
    for (int k = 0; k < kItems; ++k) {
      std::string text;
      EXPECT_TRUE(table->GetItem("t" + std::to_string(k), &text) && text == expected[k])
          << "round " << round << ", item " << k;
    }
    ASSERT_EQ(tool.Close(), 0);
  };
  save(0);
  const std::uintmax_t first = fs::file_size(fs::u8path(path));
  for (int round = 1; round < 300 && !HasFatalFailure(); ++round) save(round);
  EXPECT_LE(fs::file_size(fs::u8path(path)), 2 * first);
}

// The part of `dump` from `start` up to the next object or attribute.
std::string Section(const std::string& dump, const std::string& start) {
  const std::size_t from = dump.find(start);
  if (from == std::string::npos) return "";
  std::size_t to = dump.size();
  for (const char* next : {"ATTRIBUTE \"", "DATASET \"", "GROUP \""}) {
    to = std::min(to, dump.find(next, from + start.size()));
  }
  return dump.substr(from, to - from);
}

TEST_F(RsvToolTest, H5dumpReadsTheLayoutAndNoIdentifierIsLeftOpen) {
  CRSVTool tool;
  const std::string path = WriteSample(tool);
  std::string name;
  EXPECT_TRUE(tool.OpenTable(tool.OpenGroup(1, 4), "Set")->GetItem("Name", &name));
  // Open now: the file, four groups, the table twice, the array and the compound
  // type (HDF5 counts every modifiable datatype); attributes read are all closed.
  // Newer HDF5 releases also count the two locked datatypes the tool keeps for
  // the life of the process; those are what may stay open after the close.
  const ssize_t open = H5Fget_obj_count(H5F_OBJ_ALL, H5F_OBJ_ALL);
  tool.Close();
  const ssize_t kept = H5Fget_obj_count(H5F_OBJ_ALL, H5F_OBJ_DATATYPE);
  EXPECT_LE(kept, 2);
  EXPECT_EQ(open, 1 + 4 + 3 + 1 + kept);
  EXPECT_EQ(H5Fget_obj_count(H5F_OBJ_ALL, H5F_OBJ_ALL), kept);

  const nvxtest::H5dumpResult result =
      nvxtest::H5dump(H5DUMP_EXECUTABLE, "", path, PathOf("dump.txt"));
  if (!result.ran) GTEST_SKIP() << result.why;
  ASSERT_EQ(result.status, 0) << result.text;
  const std::string& dump = result.text;

  const std::pair<const char*, std::vector<const char*>> expected[] = {
      {"ATTRIBUTE \"RSVFormatA\"", {"H5T_STD_U32LE", "(0): 4"}},
      {"DATASET \"Set\"", {"DATASPACE  NULL"}},
      {"ATTRIBUTE \"Count\"", {"H5T_STD_I32LE", "41"}},
      {"ATTRIBUTE \"Ratio\"", {"H5T_IEEE_F64LE", "0.25"}},
      {"ATTRIBUTE \"Enabled\"", {"H5T_ENUM", "H5T_STD_I8LE", "\"FALSE\"", "\"TRUE\""}},
      {"ATTRIBUTE \"Name\"", {"STRSIZE H5T_VARIABLE", "H5T_CSET_UTF8", "\"Mold A\""}},
      {"ATTRIBUTE \"Blob\"", {"H5T_STD_U8LE", "( 4 )", "250"}},
      {"DATASET \"Result0\"",
       {"H5T_COMPOUND", "H5T_STD_I32LE \"ID\"", "STRSIZE 128", "H5T_STR_NULLTERM", "\"row 40\""}},
  };
  for (const auto& [start, needles] : expected) {
    const std::string section = Section(dump, start);
    EXPECT_FALSE(section.empty()) << start;
    for (const char* needle : needles) {
      EXPECT_NE(section.find(needle), std::string::npos) << start << ": " << needle;
    }
  }
}

}  // namespace
