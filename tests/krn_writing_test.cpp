// The document writers' section lists and the number format carried over
// from section to section.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "NVX3DComputation.h"
#include "NVXPlatform.h"
#include "TestUtil.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNDocumentWriter.h"
#include "krn/KRNSectionIO.h"

using namespace nvx;

namespace {

std::vector<std::string> Names(const std::vector<KrnTag>& tags) {
  std::vector<std::string> names;
  for (KrnTag t : tags) names.push_back(TagName(t));
  return names;
}

}  // namespace

TEST(KrnStream, PrecisionZeroPrintsSixDigitsUnlessFixed) {
  std::ostringstream os;
  KrnStream out(os);
  out.Double(0.1234567).Text(" ");
  out.Scientific();
  out.Double(20.0).Text(" ");
  out.Precision(0);
  out.Double(20.0).Text(" ");
  out.Fixed();
  out.Double(20.4).Text(" ");
  out.General();
  out.Precision(6);
  out.Double(0.1234567);
  EXPECT_EQ(os.str(), "0.123457 2.000000e+01 2.000000e+01 20 0.123457");
}

TEST(KrnWriters, SectionPresentWriterFollowsFlagsAndAlwaysNamesHRSteady) {
  CNVX3DComputationImpl impl;
  CNVX3DKRNDocument& doc = *impl.sections.document;
  for (KrnTag t : {KrnTag::kSolidPack, KrnTag::kSummary, KrnTag::kSolidVEStress,
                   KrnTag::kSolidVEWarp, KrnTag::kComputingManager, KrnTag::kShellFill}) {
    doc.SetPresent(t, true);
  }
  // The three viscoelastic stress, curing and warp sections are never written
  // by this writer, even when the file held them.
  EXPECT_EQ(Names(DocumentSections(DocumentWriter::kSectionPresent, impl)),
            (std::vector<std::string>{"SUMMARY", "SHELL_FILL", "FILL_ADVANCED_HRSteady",
                                      "SOLID_PACK", "COMPUTING_MANAGER"}));
  EXPECT_EQ(
      Names(DocumentSections(DocumentWriter::kTemplate, impl)),
      (std::vector<std::string>{"SUMMARY", "SHELL_FILL", "FILL_ADVANCED_HRSteady", "SOLID_PACK",
                                "SOLID_VE_STRESS", "SOLID_VE_WARP", "COMPUTING_MANAGER"}));
  // Model kind 0 uses the template order but gates HRSteady by its flag too.
  impl.modelKind = 0;
  EXPECT_EQ(Names(DocumentSections(DocumentWriter::kModelKind, impl)),
            (std::vector<std::string>{"SUMMARY", "SHELL_FILL", "SOLID_PACK", "SOLID_VE_STRESS",
                                      "SOLID_VE_WARP", "COMPUTING_MANAGER"}));
}

TEST(KrnWriters, ModelKindWriterChoosesByKind) {
  CNVX3DComputationImpl impl;
  impl.modelKind = 1;
  const std::vector<std::string> shell = {
      "SUMMARY",           "SHELL_FILL", "FILL_OUTPUT_TIMES", "SHELL_PACK",
      "PACK_OUTPUT_TIMES", "SHELL_COOL", "COOL_OUTPUT_TIMES", "MoldPreheat_OUTPUT_TIMES",
      "OPEN_OUTPUT_TIMES", "SHELL_WARP"};
  EXPECT_EQ(Names(DocumentSections(DocumentWriter::kModelKind, impl)), shell);
  impl.data.HasLongFiberSettings = impl.data.HasFoamingSettings = true;
  std::vector<std::string> shellAdvanced = shell;
  shellAdvanced.insert(shellAdvanced.begin() + 2,
                       {"FILL_ADVANCED_LONGFIBER", "FILL_ADVANCED_MCIM"});
  EXPECT_EQ(Names(DocumentSections(DocumentWriter::kModelKind, impl)), shellAdvanced);

  impl.modelKind = 2;
  std::vector<std::string> solid = Names(DocumentSections(DocumentWriter::kModelKind, impl));
  ASSERT_EQ(solid.size(), 29u);
  EXPECT_EQ(solid[3], "FILL_ADVANCED_HRSteady");
  EXPECT_EQ(solid.back(), "COMPUTING_MANAGER");
  impl.modelKind = 3;
  std::vector<std::string> solid3 = Names(DocumentSections(DocumentWriter::kModelKind, impl));
  solid.erase(solid.begin() + 3);
  EXPECT_EQ(solid3, solid);
  impl.modelKind = 7;
  EXPECT_TRUE(DocumentSections(DocumentWriter::kModelKind, impl).empty());
}

TEST(KrnWriters, NotationCarriesOverUntilAnOutputTimesSectionResetsIt) {
  CNVX3DComputationImpl impl;
  double value = 0.1234567;
  std::ostringstream os;
  KrnStream out(os);
  // An earlier writer switched to scientific notation and left it so.
  out.Text("v = ").Scientific();
  out.Double(value).EndLine();
  impl.sections.fillPack->ValueGravityX = value;
  WriteKrnSection(*FindSection(KrnTag::kSolidFill), out, impl, false);
  impl.sections.fillPack->FillTimes.SetCount(1);
  impl.sections.fillPack->FillTimes.At(0) = value;
  WriteKrnSection(*FindSection(KrnTag::kFillOutputTimes), out, impl, false);
  const std::string text = os.str();
  const std::string nl(platform::TextLineEnd());
  EXPECT_NE(text.find("ValueGravityX = 1.234567e-01" + nl), std::string::npos);
  EXPECT_NE(text.find("IDEfficiencyFactor = 1.000000e+00" + nl), std::string::npos);
  EXPECT_NE(text.find("1 = 0.123457" + nl), std::string::npos);
}

TEST(KrnWriters, NonAsciiFileNameIsWrittenAndReadBack) {
  // Narrow paths are UTF-8 on every system.
  nvxtest::TempDir dir;
  const std::string path = dir.File("t\xc3\xabst-\xe4\xb8\xad.krn");
  NVXData d{};
  d.KRNFilePath = path;
  d.LoadMode = 1;
  d.ModelKind = 2;
  CNVX3DComputation c;
  ASSERT_TRUE(c.LoadKRNFile(d));
  c.SetSummaryFile(L"first");
  ASSERT_TRUE(c.WriteKRNFile(path, 0));
  c.SetSummaryFile(L"s\u00e9cond");
  ASSERT_TRUE(c.WriteKRNFile(path, 0));  // replaces the file just written
  ASSERT_EQ(std::filesystem::directory_iterator(dir.Path())->path().filename(),
            platform::NativePath("t\xc3\xabst-\xe4\xb8\xad.krn"));

  std::ifstream in(platform::NativePath(path), std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  const std::string nl(platform::TextLineEnd());
  EXPECT_EQ(text.rfind("<?xml version=\"1.0\"?>" + nl + "<KRN_FILE>" + nl, 0), 0u);
  EXPECT_NE(text.find("File = " + platform::WideToNarrow(L"s\u00e9cond") + nl), std::string::npos);

  CNVX3DComputation back;
  ASSERT_TRUE(back.LoadKRNFile(path.c_str()));
  std::wstring file;
  back.GetSummaryFile(file);
  EXPECT_EQ(file, L"s\u00e9cond");
}

TEST(KrnWritersDeathTest, UnwritableFileEndsTheProcess) {
  CNVX3DComputationImpl impl;
  EXPECT_EXIT(WriteKrnDocument(DocumentWriter::kModelKind, "/nonexistent/dir/x.krn", impl),
              ::testing::ExitedWithCode(1), "Can't open");
}
