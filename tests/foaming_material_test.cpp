// The per-user foaming material table: created once, never rewritten, and
// consulted on every load.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "NVX3DComputation.h"
#include "TestUtil.h"
#include "userfiles/FoamingMaterial.h"

using nvxtest::ReadText;
using nvxtest::TempDir;
using nvxtest::WriteText;

namespace {

class FoamingMaterialTest : public ::testing::Test {
 protected:
  TempDir dir_;
  nvxtest::UserDirScope userDir_{dir_.File("config")};

  std::string IniPath() {
    char dir[260] = {};
    EXPECT_TRUE(NVXGetReleaseVersionCurUserDirectory(dir, sizeof dir));
    return std::string(dir) + "/FoamingMaterial.ini";
  }
  // The gas solubility after a load of a project without a KRN file.
  double Load(const std::string& material, bool filled = false, bool fiber = false) {
    NVXData d{};
    d.KRNFilePath = dir_.File("none.krn");
    d.MaterialName = material;
    d.MaterialHasFiller = filled;
    d.MaterialHasFiber = fiber;
    CNVX3DComputation c;
    c.SetFoamingSolubilityParm(-1.0);
    EXPECT_TRUE(c.LoadKRNFile(d));
    double v = 0.0;
    c.GetFoamingsolubilityParm(v);
    return v;
  }
};

}  // namespace

TEST_F(FoamingMaterialTest, FirstLoadCreatesTheTableAndLooksMaterialsUp) {
  EXPECT_EQ(Load("PP"), 4e-11);
  // Written in text mode: CR LF line ends on Windows.
  std::string created = ReadText(IniPath());
  created.erase(std::remove(created.begin(), created.end(), '\r'), created.end());
  EXPECT_EQ(created,
            "[FOAMING_MAT_N2]\nVersion=1001\nDefault=4e-11\nPP=4e-11\nPP_Filler=3e-11\n"
            "PA=2.4e-11\nPA_Filler=1.2e-11\nPEEK=3e-11\nPEEK_Filler=1.5e-11\nPEI=3e-11\n"
            "PEI_Filler=1.5e-11\nPPA=3e-11\nPPA_Filler=1.5e-11\nPBT=1.2e-11\nPS=2e-11\n"
            "PC=2e-11\nPC_ABS=2e-11\nHIPS=1.6e-11\nABS=1.6e-11\n");
  EXPECT_EQ(Load("PP", true), 3e-11);
  EXPECT_EQ(Load("pEeK", false, true), 1.5e-11);  // any filler flag; any case
  EXPECT_EQ(Load("PBT", true), 1.2e-11);          // no filled grade: plain value
  EXPECT_EQ(Load("XYZ"), 4e-11);
  EXPECT_EQ(Load(" PP"), 4e-11);  // names are not trimmed: Default
}

TEST_F(FoamingMaterialTest, UserFileIsConsultedAsWrittenAndNeverRewritten) {
  const std::string broken =
      "garbage line\n[foaming_mat_n2]\npa = 0\nPS=\nPC=0.0\nabs = 7e-11 ; note\n"
      "ABS=9e-11\nDEFAULT=5e-11\n[OTHER]\nPBT=1\n";
  std::filesystem::create_directories(std::filesystem::path(IniPath()).parent_path());
  WriteText(IniPath(), broken);
  EXPECT_EQ(Load("PA"), 5e-11);   // 0 reads as missing
  EXPECT_EQ(Load("PS"), 5e-11);   // so does an empty value
  EXPECT_EQ(Load("PC"), 0.0);     // "0.0" is a value
  EXPECT_EQ(Load("ABS"), 7e-11);  // first occurrence, comment cut off
  EXPECT_EQ(Load("PBT"), 5e-11);  // other sections do not count
  EXPECT_EQ(ReadText(IniPath()), broken);

  // Without a usable Default the text "0" converts to 0.0.
  WriteText(IniPath(), "[FOAMING_MAT_N2]\nPP=abc\n");
  EXPECT_EQ(Load("PP"), 0.0);
  EXPECT_EQ(Load("PA"), 0.0);
}

TEST_F(FoamingMaterialTest, UnusableFilesLeaveTheValueUnchanged) {
  // A directory where the file should be: it can be neither created nor read.
  std::filesystem::create_directories(IniPath());
  EXPECT_EQ(Load("PP"), 4e-11);  // the reset's built-in value, untouched
  double v = 1.0;
  EXPECT_FALSE(nvx::LookUpGasSolubility(dir_.File("absent.ini"), "PP", false, &v));
  EXPECT_EQ(v, 1.0);
}

TEST_F(FoamingMaterialTest, ProjectFileValueWinsOverTheTable) {
  WriteText(dir_.File("p.krn"),
            "<FILL_ADVANCED_MCIM>\nGasSolubilityParameter = 6.5e-11\n</FILL_ADVANCED_MCIM>\n");
  NVXData d{};
  d.KRNFilePath = dir_.File("p.krn");
  d.MaterialName = "PA";
  CNVX3DComputation c;
  ASSERT_TRUE(c.LoadKRNFile(d));
  double v = 0.0;
  c.GetFoamingsolubilityParm(v);
  EXPECT_EQ(v, 6.5e-11);
  d.LoadMode = 1;  // defaults: the table's value
  ASSERT_TRUE(c.LoadKRNFile(d));
  c.GetFoamingsolubilityParm(v);
  EXPECT_EQ(v, 2.4e-11);
}
