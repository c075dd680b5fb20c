// Optics, IC packaging and multi-component molding: the light-direction list
// in KRN and RSV, the shared IC field, values read past the first token, the
// paddle and wire-sweep times, the mode-3 settings, and whole files.
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "NVX3DComputation.h"
#include "NVX3DRSVExTool.h"
#include "SectionIO.h"
#include "TestUtil.h"
#include "core/KeyText.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNSectionIO.h"
#include "sections/ValueText.h"

using namespace nvx;
using nvxtest::ReadSection;
using nvxtest::ReadTextLF;
using nvxtest::TempDir;
using nvxtest::WriteSection;
using nvxtest::WriteText;

namespace {

// Writes the section and reads it back into `back`.
void RoundTrip(CNVX3DComputationImpl& impl, KrnTag tag, CNVX3DComputationImpl& back) {
  const std::string text = WriteSection(impl, tag);
  const std::size_t body = text.find('\n') + 1;
  ReadSection(back, tag, text.substr(body, text.rfind("</") - body));
}

void RsvRoundTrip(const std::string& path, CNVX3DComputation& from, CNVX3DComputation& to) {
  from.SetRSVFilePath(path);
  ASSERT_TRUE(from.WriteRSVFile());
  to.SetRSVFilePath(path);
  ASSERT_TRUE(to.ReadRSVFile());
}

NVXData Data(const std::string& file, int loadMode, int modelKind) {
  NVXData d{};
  d.KRNFilePath = file;
  d.LoadMode = loadMode;
  d.ModelKind = modelKind;
  return d;
}

}  // namespace

TEST(OpticDirections, ListOperationsLeaveTheCountAlone) {
  CNVX3DComputation c;
  double x = 7, y = 7, z = 7;
  EXPECT_EQ(c.GetOpticDirectionValueOpticLightDirectionValue(3, x, y, z), 1);
  EXPECT_EQ(x, 7);                                               // empty list: untouched
  c.SetOpticDirectionValueOpticLightDirectionValue(5, 1, 2, 3);  // appends at 0
  c.SetOpticDirectionValueOpticLightDirectionValue(1, 4, 5, 6);
  c.SetOpticDirectionValueOpticLightDirectionValue(0, 1, 2, 9);  // replaces
  c.GetOpticDirectionValueOpticLightDirectionValue(0, x, y, z);
  EXPECT_EQ(z, 9);
  EXPECT_THROW(c.GetOpticDirectionValueOpticLightDirectionValue(2, x, y, z), std::out_of_range);
  int count = 0;
  EXPECT_EQ(c.GetSolidOpticDirectionValueOpticLightDirection(count), 0);

  // A count above the list writes the rows the list holds; an empty list
  // writes no rows.
  c.SetSolidOpticDirectionValueOpticLightDirection(2);
  EXPECT_EQ(c.DeleteOpticDirectionValueOpticLightDirectionItem(0), 1);
  EXPECT_EQ(c.DeleteOpticDirectionValueOpticLightDirectionItem(9), 1);  // nothing to remove
  EXPECT_EQ(c.GetSolidOpticDirectionValueOpticLightDirection(count), 2);
  CNVX3DComputationImpl impl;
  impl.sections.optic->ValueOpticLightDirection = 2;
  impl.sections.optic->Directions.resize(1);
  EXPECT_EQ(WriteSection(impl, KrnTag::kOpticOutputDirection),
            "<OPTIC_OUTPUT_DIRECTION>\nVersion = 0\nValueOpticLightDirection = 2\n"
            "1= 0 0 0\n</OPTIC_OUTPUT_DIRECTION>\n");
  impl.sections.optic->Directions.clear();
  EXPECT_EQ(WriteSection(impl, KrnTag::kOpticOutputDirection),
            "<OPTIC_OUTPUT_DIRECTION>\nVersion = 0\nValueOpticLightDirection = 2\n"
            "</OPTIC_OUTPUT_DIRECTION>\n");
}

TEST(OpticDirections, KrnRowsRsvBlockAndTextForm) {
  CNVX3DComputationImpl impl;
  CNVX3DSolidOptic& r = *impl.sections.optic;
  r.ValueOpticLightDirection = 2;
  r.Directions = {{0.5, -1, 2}, {3, 4, 0.1234567}};
  EXPECT_EQ(WriteSection(impl, KrnTag::kOpticOutputDirection),
            "<OPTIC_OUTPUT_DIRECTION>\nVersion = 0\nValueOpticLightDirection = 2\n"
            "1= 0.5 -1 2\n2= 3 4 0.123457\n</OPTIC_OUTPUT_DIRECTION>\n");

  // Rows set by index over what the list holds; a count past the section's
  // lines takes only the lines there, and the list is filled up to the count
  // (within its bound) with zero directions.
  CNVX3DComputationImpl back;
  back.sections.optic->Directions = {{9, 9, 9}, {8, 8, 8}, {7, 7, 7}};
  ReadSection(back, KrnTag::kOpticOutputDirection,
              "ValueOpticLightDirection = 99999999\n1= 1 2 3\n2=4 5 6\n");
  EXPECT_EQ(back.sections.optic->ValueOpticLightDirection, 99999999);
  ASSERT_EQ(back.sections.optic->Directions.size(), kMaxTuples);
  EXPECT_EQ(back.sections.optic->Directions[1].Z, 6);
  EXPECT_EQ(back.sections.optic->Directions[2].X, 7);
  EXPECT_EQ(back.sections.optic->Directions[3].X, 0);

  const KeyList keys = kOpticOutputDirectionSection.keys(impl);
  const Key* key = FindKey(keys, "ValueOpticLightDirection", kKrnRead);
  EXPECT_EQ(FormatValue(*key), "2: (0.5,-1,2), (3,4,0.1234567)");
  std::string error;
  EXPECT_FALSE(ParseValue(*key, "1: (1,2)", &error));
  ASSERT_TRUE(ParseValue(*key, "1: (1,2,3)", &error)) << error;
  EXPECT_EQ(r.ValueOpticLightDirection, 1);
  ASSERT_EQ(r.Directions.size(), 1u);

  TempDir dir;
  CNVX3DComputation c, fresh;
  c.SetOpticDirectionValueOpticLightDirectionValue(0, 1, 2, 3);
  c.SetOpticDirectionValueOpticLightDirectionValue(1, 4, 5, 6);
  c.SetSolidOpticDirectionValueOpticLightDirection(2);
  RsvRoundTrip(dir.File("p.rsv"), c, fresh);
  double x = 0, y = 0, z = 0;
  fresh.GetOpticDirectionValueOpticLightDirectionValue(1, x, y, z);
  EXPECT_EQ(x + y + z, 15);
  int count = 0;
  EXPECT_EQ(fresh.GetSolidOpticDirectionValueOpticLightDirection(count), 2);
}

TEST(ICSharedField, NonLinearAndGeometricOptionsShareOneField) {
  CNVX3DComputationImpl impl;
  impl.sections.ic->FlagWireSweepNonLinearOption = 1;
  const std::string text = WriteSection(impl, KrnTag::kSolidIC);
  EXPECT_NE(text.find("FlagDragForceModel = 0\nFlagWireSweepNonLinearOption =1\n"
                      "FlagWireSweepNLMatOption =0\nFlagWireSweepNLGEOMOption =1\n"),
            std::string::npos)
      << text;
  CNVX3DComputationImpl back;
  ReadSection(back, KrnTag::kSolidIC,
              "FlagWireSweepNonLinearOption = 0\nFlagWireSweepNLGEOMOption=1\n");
  EXPECT_EQ(back.sections.ic->FlagWireSweepNonLinearOption, 1);
}

TEST(LongTextValues, FoldersKeepBlanksAndMultiShotTextsAreJoined) {
  CNVX3DComputationImpl impl;
  impl.sections.ic->ABAQUSStressSolverDirectory = "C:\\Program Files\\ABAQUS 6 ";
  impl.sections.optic->OutputDirectory = "D:\\my  out";
  impl.sections.optic->OpticalSoftware = "Velmara two";
  impl.sections.mcm->ValueShotProjectPath = " D:\\a  b=c\td ";
  CNVX3DComputationImpl back;
  for (KrnTag t : {KrnTag::kSolidIC, KrnTag::kOpticOutputToSoftware, KrnTag::kSolidMCM}) {
    RoundTrip(impl, t, back);
  }
  EXPECT_EQ(back.sections.ic->ABAQUSStressSolverDirectory, "C:\\Program Files\\ABAQUS 6 ");
  EXPECT_EQ(back.sections.optic->OutputDirectory, "D:\\my  out");
  EXPECT_EQ(back.sections.optic->OpticalSoftware, "Velmara");  // one token
  EXPECT_EQ(back.sections.mcm->ValueShotProjectPath, "D:\\a b=c\td");

  ReadSection(back, KrnTag::kSolidMCM,
              "FlagPrevShot = 5\nFlagPrevShotProject = -1\nValueShotProjectName =\n"
              "OutputDirectory = x = y\n");
  EXPECT_TRUE(back.sections.mcm->FlagPrevShot);
  EXPECT_FALSE(back.sections.mcm->FlagPrevShotProject);
  EXPECT_EQ(back.sections.mcm->ValueShotProjectName, "");
  EXPECT_NE(WriteSection(back, KrnTag::kSolidMCM).find("FlagPrevShot = 1\n"), std::string::npos);
  ReadSection(back, KrnTag::kOpticOutputToSoftware, "OutputDirectory = x y = z\n");
  EXPECT_EQ(back.sections.optic->OutputDirectory, "x y ");

  // The RSV string items keep the text as it stands.
  TempDir dir;
  CNVX3DComputation c, fresh;
  c.SetSolidMCMValueShotProjectPath(" D:\\a  b ");
  RsvRoundTrip(dir.File("p.rsv"), c, fresh);
  std::string path;
  fresh.GetSolidMCMValueShotProjectPath(path);
  EXPECT_EQ(path, " D:\\a  b ");
}

TEST(ICTimes, PaddleTimesInRsvAndWireSweepTimesOnlyInKrn) {
  CNVX3DComputation c;
  c.SetSolidICICPaddleVersion(5);
  int v = 42;
  EXPECT_EQ(c.GetSolidICICPaddleVersion(v), 1);
  EXPECT_EQ(v, 42);
  c.SetSolidICICPaddleValueNoPaddleShiftTime(2);
  c.SetSolidIICPaddleValueNoPaddleShiftTimeValue(1, 0.75);
  c.SetSolidICValueNoWireSweepTime(1);
  c.SetSolidICValueNoWireSweepTimeValue(0, 3.0);
  c.SetSolidICFlagStressSolverType(2);
  EXPECT_THROW(c.SetSolidIICPaddleValueNoPaddleShiftTimeValue(2, 1.0), std::out_of_range);

  TempDir dir;
  CNVX3DComputation fresh;
  RsvRoundTrip(dir.File("p.rsv"), c, fresh);
  double t = 0;
  EXPECT_EQ(fresh.GetSolidICICPaddleValueNoPaddleShiftTime(v), 2);
  fresh.GetSolidIICPaddleValueNoPaddleShiftTimeValue(1, t);
  EXPECT_EQ(t, 0.75);
  EXPECT_EQ(fresh.GetSolidICValueNoWireSweepTime(v), 0);
  EXPECT_EQ(fresh.GetSolidICFlagStressSolverType(v), 2);

  // The array keeps its two rows when the count later says five: the count is
  // read back as stored, and the times the array does not hold are 0.0.
  c.SetSolidICICPaddleValueNoPaddleShiftTime(1);
  ASSERT_TRUE(c.WriteRSVFile());
  {
    NVX3DRSVExTool::CRSVTool tool;
    ASSERT_EQ(tool.Open(dir.File("p.rsv")), 0);
    NVX3DRSVExTool::CRSVTable* table =
        tool.OpenTable(tool.OpenGroup(1, 4), "IC_PADDLE_SHIFT_OUTPUT_TIMES");
    table->SetItem("ValueNoPaddleShiftTime", 5);
    table->Flush();
    tool.CloseTable(table);
    tool.Close();
  }
  ASSERT_TRUE(fresh.ReadRSVFile());
  EXPECT_EQ(fresh.GetSolidICICPaddleValueNoPaddleShiftTime(v), 5);
  fresh.GetSolidIICPaddleValueNoPaddleShiftTimeValue(1, t);
  EXPECT_EQ(t, 0.0);  // rows past the count were written as zeros
  fresh.GetSolidIICPaddleValueNoPaddleShiftTimeValue(4, t);
  EXPECT_EQ(t, 0.0);
}

TEST(ModeThree, DescriptionAdjustmentsSetTheICSolver) {
  TempDir dir;
  nvxtest::UserDirScope user(dir.Path());
  CNVX3DComputation c;
  c.SetMode(3);
  ASSERT_TRUE(c.LoadKRNFile(Data(dir.File("missing.krn"), 0, 2)));
  int v = 0;
  EXPECT_EQ(c.GetSolidICFlagStressSolverType(v), 3);
  EXPECT_EQ(c.GetSolidICFlagANSYSStressSolverAnalysisType(v), 0);

  // An existing file skips the adjustments.
  WriteText(dir.File("p.krn"), "<SOLID_IC>\nFlagStressSolverType = 1\n</SOLID_IC>\n");
  ASSERT_TRUE(c.LoadKRNFile(Data(dir.File("p.krn"), 0, 2)));
  EXPECT_EQ(c.GetSolidICFlagStressSolverType(v), 1);
}

TEST(WholeFile, WritersPlaceEverySectionAndSolidFilesRoundTripByteForByte) {
  TempDir dir;
  nvxtest::UserDirScope user(dir.Path());
  const std::string a = dir.File("a.krn"), b = dir.File("b.krn"), c3 = dir.File("c.krn");
  CNVX3DComputation c;
  ASSERT_TRUE(c.LoadKRNFile(Data(a, 1, 2)));
  c.SetSolidOpticDirectionValueOpticLightDirection(1);
  c.SetOpticDirectionValueOpticLightDirectionValue(0, 0.5, 0.25, 1);
  c.SetSolidOpticOutputDirectory("out dir");
  c.SetVEWarpE0Time(2);
  c.SetSolidICICPaddleValueNoPaddleShiftTime(1);
  c.SetSolidMCMValueShotProjectName("shot one");
  ASSERT_TRUE(c.WriteKRNFile(a, 0));
  const std::string first = ReadTextLF(a);
  const char* const mine[] = {"SOLID_VE",
                              "SOLID_VE_STRESS",
                              "SOLID_VE_CURING_STRESS",
                              "SOLID_VE_WARP",
                              "SOLID_OPTIC",
                              "OPTIC_OUTPUT_DIRECTION",
                              "OPTIC_OUTPUT_TO_SOFTWARE",
                              "SOLID_IC",
                              "IC_PADDLE_SHIFT_OUTPUT_TIMES",
                              "IC_WIRE_SWEEP_OUTPUT_TIMES",
                              "SOLID_MCM"};
  std::size_t at = 0;
  for (const char* tag : mine) {  // all present, in this order
    const std::size_t found = first.find(std::string("<") + tag + ">\n", at);
    ASSERT_NE(found, std::string::npos) << tag;
    at = found;
  }

  // Read with the model-kind writer's load mode and written again: the same bytes.
  CNVX3DComputation again;
  ASSERT_TRUE(again.LoadKRNFile(Data(a, 0, 2)));
  CNVX3DComputation kind;
  ASSERT_TRUE(kind.LoadKRNFile(Data(b, 1, 2)));
  ASSERT_TRUE(kind.LoadKRNFile(a.c_str()));
  ASSERT_TRUE(kind.WriteKRNFile(b, 0));
  EXPECT_EQ(ReadTextLF(b), first);

  // The section-present writer (load mode 0) keeps all but the three curve
  // sections; a shell project writes none of these sections.
  ASSERT_TRUE(again.WriteKRNFile(c3, 0));
  const std::string present = ReadTextLF(c3);
  for (const char* tag : mine) {
    const bool curve = std::string(tag).find("SOLID_VE_") == 0;
    EXPECT_EQ(present.find(std::string("<") + tag + ">") == std::string::npos, curve) << tag;
  }
  CNVX3DComputation shell;
  ASSERT_TRUE(shell.LoadKRNFile(Data(c3, 1, 1)));
  ASSERT_TRUE(shell.WriteKRNFile(c3, 0));
  EXPECT_EQ(ReadTextLF(c3).find("<SOLID_VE>"), std::string::npos);

  // Through RSV: what the tables carry comes back to the same KRN bytes.
  CNVX3DComputation viaRsv;
  ASSERT_TRUE(viaRsv.LoadKRNFile(Data(b, 1, 2)));
  RsvRoundTrip(dir.File("p.rsv"), kind, viaRsv);
  ASSERT_TRUE(viaRsv.WriteKRNFile(b, 0));
  EXPECT_EQ(ReadTextLF(b), first);
}
