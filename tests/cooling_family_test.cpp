// The cooling, warpage and solid stress sections in KRN: shared fields and
// read order, the writers' odd lines and number notation, output-time and
// stress-list semantics, presets and resets, and a full solid file round trip.
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "NVX3DComputation.h"
#include "NVXPlatform.h"
#include "SectionIO.h"
#include "TestUtil.h"
#include "core/KeyText.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNSectionIO.h"

using namespace nvx;
using nvxtest::ReadSection;
using nvxtest::ReadTextLF;
using nvxtest::TempDir;
using nvxtest::WriteSection;
using nvxtest::WriteText;

namespace {

// Writes `tags` in order on one stream, so the number format carries over.
std::string WriteSections(CNVX3DComputationImpl& impl, std::initializer_list<KrnTag> tags,
                          KrnStream* stream = nullptr) {
  std::ostringstream os;
  KrnStream own(os);
  KrnStream& out = stream ? *stream : own;
  for (KrnTag tag : tags) WriteKrnSection(*FindSection(tag), out, impl, false);
  return stream ? std::string() : nvxtest::ToLF(os.str());
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

const Key& KeyNamed(const KeyList& keys, const char* name) {
  return *FindKey(keys, name, kKrnRead);
}

}  // namespace

TEST(CoolingFamilySharing, LaterSectionWinsAndBothViewsWriteTheSameValues) {
  CNVX3DComputationImpl impl;
  ReadSection(impl, KrnTag::kShellCool, "IDSolver = 5\nFlagSolverAcceleration = 2\n");
  ReadSection(impl, KrnTag::kSolidCool, "IDSolver = 7\n");
  EXPECT_EQ(impl.sections.cool->IDSolver, 7);
  EXPECT_TRUE(impl.sections.cool->FlagSolverAcceleration);  // 2 reads as true
  const std::string text = WriteSections(impl, {KrnTag::kShellCool, KrnTag::kSolidCool});
  const std::size_t shellEnd = text.find("</SHELL_COOL>");
  EXPECT_LT(text.find("IDSolver = 7"), shellEnd);
  EXPECT_GT(text.rfind("IDSolver = 7"), shellEnd);
  EXPECT_FALSE(Contains(text, "IDSolver = 5"));

  ReadSection(impl, KrnTag::kShellWarp, "IDSolver = 4\nFlagFiberEffect = 3\n");
  ReadSection(impl, KrnTag::kSolidWarp, "IDSolver = 6\nFlagEnhancedInMoldConstraint = -1\n");
  EXPECT_EQ(impl.sections.warp->IDSolver, 6);
  EXPECT_EQ(impl.sections.warp->FlagFiberEffect, 3);
  EXPECT_TRUE(impl.sections.warp->FlagEnhancedInMoldConstraint);  // any non-zero
  ReadSection(impl, KrnTag::kSolidCool, "FlagAutoSetCoolTime = -1\n");
  EXPECT_FALSE(impl.sections.cool->FlagAutoSetCoolTime);  // cooling flags need > 0

  CNVX3DComputation c;
  c.SetShellCoolIDSolver(9);  // works on the version
  int v = 0;
  EXPECT_EQ(c.GetSolidCoolVersion(v), 9);
  EXPECT_EQ(c.GetSolidCoolIDSolver(v), 0);
  EXPECT_EQ(c.GetShellCoolValueAutoSetCoolTimeTolerance(42.0), 1);
  c.SetAutoCoolingTimeSetting(true);
  EXPECT_FALSE(c.GetAutoCoolingTimeSetting());
  c.SetCanDoCoolPipeline(true);
  c.SetCanDoConformalCooling(true);
  bool f = false;
  EXPECT_EQ(c.GetSolidCoolFlagNetworkAnalysis(f), 1);
  EXPECT_EQ(c.GetCoolRun3DSolidCoolingChannelAnalysis(f), 1);
  EXPECT_TRUE(f);
}

TEST(CoolingFamilyWriters, OddLinesAndSuffixes) {
  CNVX3DComputationImpl impl;
  impl.sections.cool->ShellCoolLines = {"extra line"};
  impl.sections.cool->FlagAutoSetCoolTimeExcludeRunner = 2;
  const std::string text =
      WriteSections(impl, {KrnTag::kShellCool, KrnTag::kSolidCool, KrnTag::kCoolOutputTimes,
                           KrnTag::kOpenOutputTimes, KrnTag::kShellWarp, KrnTag::kSolidWarp});
  EXPECT_TRUE(Contains(text, "<SHELL_COOL>\nVersion= 0\nIDSolver = 0\n"));
  EXPECT_TRUE(Contains(text, "FlagAutoSetCoolTimeExcludeRunner = 2\nextra line\n</SHELL_COOL>"));
  EXPECT_TRUE(Contains(text, "\nValueConvergeType = 3 (1~3)\n"));
  EXPECT_TRUE(Contains(text, "\nValueConvergeUnit = 1(1: degree 2: percentage)\n"));
  EXPECT_TRUE(Contains(text,
                       "<COOL_OUTPUT_TIMES>\nVersion=0\nFlagAutoLoadIntermediateResult=0\n"
                       "ValueCheckIntermediteTimeSpan=0\nValueNoCoolOutputTime=0\n"));
  EXPECT_TRUE(Contains(text, "<OPEN_OUTPUT_TIMES>\nVersion = 0\nValueNoOpenOutputTime=0\n"));
  EXPECT_TRUE(Contains(text, "<SHELL_WARP>\nVersion = 1001\n"));
  EXPECT_TRUE(Contains(text,
                       "ValueMinIterativeError = 5.000000e-05\nValueIMCMedTH = "
                       "1.000000e-03\nValueIMCMedWR = 1.000000e-03\nValueIMCRelST = "
                       "4.000000e-01\n</SHELL_WARP>"));
  EXPECT_TRUE(Contains(text, "FlagEnhancedInMoldConstraint = 1\n"));

  // The suffixes do not disturb reading; the shell reader ignores extra lines.
  ReadSection(impl, KrnTag::kSolidCool,
              "ValueConvergeType = 2 (1~3)\nValueConvergeUnit = 2(1: degree 2: percentage)\n");
  EXPECT_EQ(impl.sections.cool->ValueConvergeType, 2);
  EXPECT_EQ(impl.sections.cool->ValueConvergeUnit, 2);
}

TEST(CoolingFamilyWriters, StressNotationShowsSixDigitsAndCarriesOver) {
  CNVX3DComputationImpl impl;
  impl.sections.stress->TempTime = {0.0, 80.0, 10.5, 60.0};
  SetPartInsertCount(*impl.sections.partInsert, 1);
  impl.sections.partInsert->Inserts[0].Modulus = {20.0, 2.1e5};
  impl.sections.partInsert->Inserts[0].CLTE = {20.0, 1.2e-5};
  impl.sections.stress->ValueOutPutTiming = {5.0};
  std::ostringstream os;
  KrnStream out(os);
  out.Fixed();  // as if an earlier section left fixed notation in force
  WriteSections(impl, {KrnTag::kSolidStress, KrnTag::kSolidCool, KrnTag::kCoolOutputTimes}, &out);
  const std::string text = nvxtest::ToLF(os.str());
  EXPECT_TRUE(Contains(text,
                       "ValueMinIterativeError = 5.000000e-05\nValueGravityX = "
                       "0.000000e+00\n"));
  EXPECT_TRUE(Contains(text,
                       "ReductionRate3 = 1.000000e+00\nFlagVEResidualStress = 0\n"
                       "TransientStressCouplingType = 0\nValueInitialTemperature = "
                       "25.000000\n"));
  EXPECT_TRUE(Contains(text,
                       "TempTime = 2\n1 = 0.000000 80.000000\n2 = 10.500000 60.000000\n"
                       "MatTemp(Part) = 0\n"));
  EXPECT_TRUE(Contains(text,
                       "MatTemp(PartInsert-Modulus-1) = 1\n1 = 20.000000 210000.000000\n"
                       "MatTemp(PartInsert-CLTE-1) = 1\n1 = 2.000000e+01 1.200000e-05\n"
                       "ValueOutPutTiming = 1\n1 = 5.000000\nValueAnnealgingCycleNumber"));
  // Fixed notation carries into the next section until an output-times writer.
  EXPECT_TRUE(Contains(text, "Value3DSolidCoolingTurbulenceRoughness = 0.020000\n"));
  EXPECT_TRUE(Contains(text, "ValueCheckIntermediteTimeSpan=0\n"));
}

TEST(CoolingFamilyLists, OutputTimeCountsGenerationAndReading) {
  CNVX3DComputation c;
  c.SetValueNoCoolOutputTimeSteps(3);
  int n = 0;
  double t = -1.0;
  EXPECT_EQ(c.GetValueNoCoolOutPutTimesteps(n), 3);
  EXPECT_EQ(c.GetValueNoCoolOutputTimeStepValue(2, t), 1);
  EXPECT_EQ(t, 0.0);
  EXPECT_THROW(c.GetValueNoCoolOutputTimeStepValue(3, t), std::out_of_range);
  c.SetValueNoCoolOutputTimeSteps(1);
  EXPECT_THROW(c.GetValueNoCoolOutputTimeStepValue(1, t), std::out_of_range);
  int page = 3;
  c.SetTimeSteps(3, 2);
  EXPECT_EQ(c.GetTimeSteps(page), 2);
  EXPECT_EQ(c.GetValueNoOpenOutPutTimesteps(n), 2);
  EXPECT_THROW(c.GetTimeStepValue(2, 1), std::out_of_range);
  try {
    c.GetMoldPreheatTimeStepsValue(-1, t);
    FAIL();
  } catch (const std::out_of_range& e) {
    EXPECT_STREQ(e.what(), "invalid vector<T> subscript");
  }

  CNVX3DSolidCool r;
  ResetCool(r, 0.005, 20.0, 20.0);
  EXPECT_EQ(r.CoolTimes.Count, 0);
  EXPECT_TRUE(r.CoolTimes.Times.empty());
  ResetCool(r, 20.0, 20.0, 20.0);
  ResetCool(r, 20.0, 20.0, 20.0);
  EXPECT_EQ(r.CoolTimes.Count, 3);
  EXPECT_EQ(r.CoolTimes.Times, (std::vector<double>{5, 10, 15, 5, 10, 15}));
  EXPECT_EQ(r.OpenTimes.Times.size(), 9u);  // three resets, three times each
  CNVX3DComputationImpl impl;
  *impl.sections.cool = r;
  const std::string text = WriteSections(impl, {KrnTag::kCoolOutputTimes});
  EXPECT_TRUE(Contains(text, "ValueNoCoolOutputTime=3\n1 = 5\n2 = 10\n3 = 15\n</COOL"));

  // Item numbers are not looked at; a count of 0 empties the list.
  ReadSection(impl, KrnTag::kCoolOutputTimes, "ValueNoCoolOutputTime=2\n1 = 4.5\n7 = 9\n");
  EXPECT_EQ(impl.sections.cool->CoolTimes.Times, (std::vector<double>{4.5, 9}));
  ReadSection(impl, KrnTag::kOpenOutputTimes, "ValueNoOpenOutputTime=0\n");
  EXPECT_TRUE(impl.sections.cool->OpenTimes.Times.empty());
}

TEST(CoolingFamilyLists, StressListsNeverReadPastTheirRows) {
  CNVX3DComputationImpl impl;
  ReadSection(impl, KrnTag::kSolidStress,
              "TempTime = 2147483647\n1 = 1 2\n2 = 3\nMatTemp(Part) = 5\nValueHTC = 7\n"
              "MatTemp(PartInsert-CLTE-4) = 1\n1 = 9 8\nMatTemp(PartInsert-Modulus-2) = -3\n"
              "MatTemp(PartInsert-Modulus-x) = 1\n1 = 1 1\nValueAnnealgingCycleNumber = 3\n");
  const CNVX3DSolidStress& s = *impl.sections.stress;
  EXPECT_EQ(s.TempTime, (std::vector<double>{1, 2, 3, 0}));  // a missing value is 0
  EXPECT_TRUE(s.MatTempPart.empty());
  EXPECT_EQ(s.ValueHTC, 7.0);  // not taken for a row
  EXPECT_EQ(s.ValueAnnealgingCycleNumber, 3);
  const auto& inserts = impl.sections.partInsert->Inserts;
  ASSERT_EQ(inserts.size(), 2u);  // kept sorted by number
  EXPECT_EQ(inserts[0].Number, 2);
  EXPECT_EQ(inserts[1].Number, 4);
  EXPECT_EQ(inserts[1].CLTE, (std::vector<double>{9, 8}));

  // The text form that nvxparam shows and sets.
  const KeyList keys = FindSection(KrnTag::kSolidStress)->keys(impl);
  const Key& temp = KeyNamed(keys, "TempTime");
  const Key& insertKey = KeyNamed(keys, "PartInsert");
  EXPECT_EQ(FormatValue(temp), "1 2, 3 0");
  EXPECT_EQ(FormatValue(insertKey), "2{}{}; 4{}{9 8}");
  std::string error;
  EXPECT_TRUE(ParseValue(insertKey, "3{20 2e5, 30 1e5}{}; 1{}{1 2}", &error)) << error;
  ASSERT_EQ(inserts.size(), 2u);
  EXPECT_EQ(inserts[0].Number, 1);
  EXPECT_EQ(inserts[1].Modulus, (std::vector<double>{20, 2e5, 30, 1e5}));
  EXPECT_FALSE(ParseValue(insertKey, "1{}{}; 1{}{}", &error));
  EXPECT_FALSE(ParseValue(temp, "1 2, 3", &error));
  EXPECT_EQ(s.TempTime.size(), 4u);  // unchanged on failure
  EXPECT_TRUE(ParseValue(temp, "", &error));
  EXPECT_TRUE(s.TempTime.empty());
}

TEST(CoolingFamilyPresets, FreshAndResetRecordsDifferAsDocumented) {
  CNVX3DSolidCool fresh;
  CNVX3DSolidCool reset;
  reset.FlagSteadyState = true;
  reset.ShellCoolLines = {"kept"};
  ResetCool(reset, 20.0, 10.0, 4.0);
  EXPECT_EQ(fresh.Version, 0);
  EXPECT_EQ(reset.Version, 1004);
  EXPECT_EQ(fresh.IDSolver, 0);
  EXPECT_EQ(reset.IDSolver, 2);
  EXPECT_EQ(fresh.ValueAutoSetCoolTimeTolerance, 0.0);
  EXPECT_EQ(reset.ValueAutoSetCoolTimeTolerance, 0.05);
  EXPECT_EQ(reset.ValuePreheatLowestTempVariation, 4.0);
  EXPECT_EQ(reset.OpenTimes.Times, (std::vector<double>{2.5, 5.0, 7.5}));
  EXPECT_TRUE(reset.FlagSteadyState);
  EXPECT_EQ(reset.ShellCoolLines.size(), 1u);

  ApplyShellCoolPreset(reset);
  EXPECT_EQ(reset.IDSolver, 1);
  EXPECT_FALSE(reset.FlagSolverAcceleration);
  EXPECT_EQ(reset.CoolTimes.Count, 0);
  EXPECT_EQ(reset.CoolTimes.Times.size(), 3u);  // lists are not touched
  EXPECT_EQ(reset.PreheatTimes.Count, 3);

  CNVX3DSolidWrap warp;
  ApplyShellWarpPreset(warp);
  EXPECT_EQ(warp.ValueIMCMedTH, 0.333333);
  EXPECT_FALSE(warp.FlagEnhancedInMoldConstraint);
  ApplySolidWarpPreset(warp, {2, false, false, 0});
  EXPECT_EQ(warp.ValueIMCMedTH, 0.001);
  EXPECT_EQ(warp.IDSolver, 1);
  EXPECT_FALSE(warp.FlagEnhancedInMoldConstraint);
  ApplySolidWarpPreset(warp, {2, false, true, 0});
  EXPECT_EQ(warp.IDSolver, 0);
  ApplySolidWarpPreset(warp, {2, false, false, 9});
  EXPECT_EQ(warp.IDSolver, 0);
  ApplySolidWarpPreset(warp, {2, false, false, 10});
  EXPECT_EQ(warp.IDSolver, 1);

  constexpr std::uint64_t kMiB = 1ull << 20;
  EXPECT_EQ(ResolutionLevelType(32000 * kMiB, false, true), 1);
  EXPECT_EQ(ResolutionLevelType(32000 * kMiB - 1, false, false), 0);
  EXPECT_EQ(ResolutionLevelType(64000 * kMiB, true, true), 0);
  EXPECT_EQ(ResolutionLevelType((1ull << 31) * kMiB, false, false), 0);  // negative as int32
}

TEST(CoolingFamilyPresets, LoadResetsByModelKindAndModeOneClearsTheFibreEffect) {
  TempDir dir;
  CNVX3DComputation c;
  NVXData d;
  d.KRNFilePath = dir.File("missing.krn");
  d.ModelKind = 1;
  nvxtest::UserDirScope user(dir.File("user"));
  c.SetSolidWarpFlagFiberEffect(1);
  c.SetMode(1);
  ASSERT_TRUE(c.LoadKRNFile(d));
  int v = 0;
  double x = 0.0;
  EXPECT_EQ(c.GetShellCoolIDSolver(v), 1004);
  EXPECT_EQ(c.GetSolidCoolIDSolver(v), 1);
  c.GetShellWarpValueIMCMedTH(x);
  EXPECT_EQ(x, 0.333333);
  c.GetShellWarpFlagFiberEffect(v);
  EXPECT_EQ(v, 0);

  d.ModelKind = 2;
  d.CoolingTime = 8.0;
  c.SetMode(0);
  ASSERT_TRUE(c.LoadKRNFile(d));
  EXPECT_EQ(c.GetSolidCoolIDSolver(v), 2);
  EXPECT_EQ(c.GetValueNoCoolOutputTimeStepValue(0, x), 1);
  EXPECT_EQ(x, 2.0);
  EXPECT_EQ(c.GetResLevelType(), ResolutionLevelType(platform::PhysicalMemoryBytes(), 0, 0));
}

TEST(CoolingFamilyRoundTrip, FullSolidFileIsWrittenBackByteIdentical) {
  TempDir dir;
  nvxtest::UserDirScope user(dir.File("user"));
  const std::string first = dir.File("a.krn");
  CNVX3DComputation c;
  NVXData d;
  d.KRNFilePath = first;
  d.ModelKind = 2;
  d.LoadMode = 1;
  d.CoolingTime = 12.0;
  d.MoldOpenTime = 3.0;
  d.MoldPreheatTime = 100.0;
  ASSERT_TRUE(c.LoadKRNFile(d));
  c.SetSolidStressTempTimeCount(2);
  c.SetSolidStressTempTime(1, 30.0, 0.123456789);
  c.SetSolidStressMatTempPartCount(1);
  c.SetSolidStressMatTempPart(0, 25.0, 2.5e9);
  c.SetSolidStressOutPutTimingCount(2);
  c.SetSolidStressOutPutTiming(1, 1e-3);
  c.SetPartInsertCount(2);
  c.SetPartInsertModulusCount(1, 1);
  c.SetPartInsertModulus(1, 0, 40.0, 7e10);
  c.SetPartInsertCLTECount(0, 2);
  c.SetPartInsertCLTE(0, 1, 60.0, 2.3e-5);
  c.SetSolidWarpValueIMCRelST(0.1234567);
  c.SetValuePreheatAverageTempVariation(1.0 / 3.0);
  ASSERT_TRUE(c.WriteKRNFile(first, 0));

  // A plain-file load keeps every section the file holds (the viscoelastic
  // curve sections included) and leaves the fibre values as the file has them.
  CNVX3DComputation back;
  ASSERT_TRUE(back.LoadKRNFile(first.c_str()));
  const std::string second = dir.File("b.krn");
  ASSERT_TRUE(back.WriteKRNFile(second, 0));
  const std::string text = ReadTextLF(first);
  EXPECT_EQ(ReadTextLF(second), text);
  EXPECT_TRUE(Contains(text, "MatTemp(PartInsert-CLTE-1) = 2\n"));
  EXPECT_TRUE(Contains(text, "<MoldPreheat_OUTPUT_TIMES>\nVersion=1001\n"));
  EXPECT_EQ(back.GetPartInsertNumber(1), 2);
}
