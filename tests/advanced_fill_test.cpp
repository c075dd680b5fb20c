// The advanced filling sections: the number format their writers carry into
// later sections, the hot-runner gate list, the fibre values of a load and the
// RSV tables.
#include <gtest/gtest.h>

#include "NVX3DComputation.h"
#include "TestUtil.h"
#include "core/KeyText.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNDocumentWriter.h"

using namespace nvx;
using nvxtest::ReadTextLF;
using nvxtest::TempDir;
using nvxtest::WriteText;

namespace {

class AdvancedFillTest : public ::testing::Test {
 protected:
  TempDir dir_;
  nvxtest::UserDirScope userDir_{dir_.File("config")};

  std::string WriteSolid(CNVX3DComputationImpl& impl, const std::string& name) {
    impl.modelKind = 2;
    WriteKrnDocument(DocumentWriter::kModelKind, dir_.File(name), impl);
    return ReadTextLF(dir_.File(name));
  }
  bool Has(const std::string& text, const std::string& line) {
    return text.find("\n" + line + "\n") != std::string::npos;
  }
  // The text of section `tag` in `text`, closing tag included.
  std::string Section(const std::string& text, const std::string& tag) {
    const std::size_t from = text.find("<" + tag + ">");
    const std::size_t to = text.find("</" + tag + ">");
    return from == std::string::npos ? "" : text.substr(from, to - from);
  }
};

}  // namespace

TEST_F(AdvancedFillTest, EachWriterLeavesItsNotationToTheSectionsAfterIt) {
  CNVX3DComputationImpl impl;
  impl.sections.hrSteady->ValueNoHRGate = 3;  // empty list: all lines repeat
  impl.sections.fillPack->FillTimes.SetCount(1);
  impl.sections.fillPack->FillTimes.At(0) = 0.25;
  impl.sections.fillPack->PackTimes.SetCount(1);
  impl.sections.fillPack->PackTimes.At(0) = 0.25;
  const std::string text = WriteSolid(impl, "solid.krn");
  // Before the long-fiber section: general notation.
  EXPECT_TRUE(Has(text, "ValueEOFPercent = 0.9995"));
  EXPECT_TRUE(Has(text, "ModifiedFactor = 0"));
  // Type 0 writes Cf only, and from Cf on everything is scientific.
  EXPECT_TRUE(Has(text, "Cf = 5.000000e-03"));
  EXPECT_EQ(text.find("Cm = "), std::string::npos);
  EXPECT_TRUE(Has(text, "AspectRatio = 2.000000e+01"));
  EXPECT_TRUE(Has(text, "ValueParticleFrictionIndex = 3.000000e+00"));
  // Hot-runner steady: fixed from its first double; gate lines repeat the
  // convergence criterion.
  EXPECT_NE(text.find("Version = 1001\nValueFlowRate = 0.000000\nValueConvergenceCriteria = "
                      "1.000000\nValueNoHRGate = 3\nValueHRGateType = 0\n1 = 1.000000\n"
                      "2 = 1.000000\n3 = 1.000000\n</FILL_ADVANCED_HRSteady>"),
            std::string::npos);
  // Foaming: the molecular weight inherits fixed, the rest as its keys say.
  EXPECT_TRUE(Has(text, "PolymerMolecularWeight = 28.000000"));
  EXPECT_TRUE(Has(text, "GasDiffusionCoefficient = 8.070000e-05"));
  EXPECT_TRUE(Has(text, "GasSolubilityParameter = 4.000000e-11"));
  EXPECT_TRUE(Has(text, "SurfaceTension = 0.000178"));
  EXPECT_TRUE(Has(text, "ThresholdofBubbleFt = 1.000000e-01"));
  // Slip selects nothing and inherits scientific.
  EXPECT_TRUE(Has(text, "ValueSlipCoeff = 1.000000e+00"));
  EXPECT_TRUE(Has(text, "ValueSlipFrictionForce = 1.000000e-01"));
  // Fill output times reset to general; pack output times keep it.
  EXPECT_NE(Section(text, "FILL_OUTPUT_TIMES").find("\n1 = 0.25\n"), std::string::npos);
  EXPECT_NE(Section(text, "PACK_OUTPUT_TIMES").find("\n1 = 0.25\n"), std::string::npos);
}

TEST_F(AdvancedFillTest, PackOutputTimesKeepTheNotationWithoutFillOutputTimes) {
  CNVX3DComputationImpl impl;
  CNVX3DKRNDocument& doc = *impl.sections.document;
  doc.SetPresent(KrnTag::kFillAdvancedLongFiber, true);
  doc.SetPresent(KrnTag::kPackOutputTimes, true);
  impl.sections.longFiber->DiffusionModelType = 2;
  impl.sections.fillPack->PackTimes.SetCount(1);
  impl.sections.fillPack->PackTimes.At(0) = 0.25;
  WriteKrnDocument(DocumentWriter::kSectionPresent, dir_.File("p.krn"), impl);
  const std::string text = ReadTextLF(dir_.File("p.krn"));
  EXPECT_NE(text.find("DiffusionModelType = 2\nb1 = 1.000000e-02\nb2 = 0.000000e+00\n"
                      "b3 = 0.000000e+00\nb4 = 0.000000e+00\nb5 = 4.000000e-02\nFiberType"),
            std::string::npos);
  EXPECT_EQ(text.find("Cf = "), std::string::npos);
  // The always-written hot-runner section switched to fixed in between.
  EXPECT_NE(Section(text, "PACK_OUTPUT_TIMES").find("\n1 = 0.250000\n"), std::string::npos);
}

TEST_F(AdvancedFillTest, SolidFileWrittenReadAndWrittenAgainIsIdentical) {
  CNVX3DComputationImpl first;
  CNVX3DLongFiber& lf = *first.sections.longFiber;
  lf.DiffusionModelType = 1;
  lf.Cm = 0.0123456789;
  lf.FlagScrewFiberBreakage = true;
  lf.FlagConcertration = 2;
  CNVX3DHRSteady& hr = *first.sections.hrSteady;
  hr.ValueHRGateType = 1;
  hr.Gates = {{9.0, 1.5, 2.5}, {9.0, 3.5, 4.5}};
  hr.ValueNoHRGate = 3;  // the third line repeats the second gate
  first.sections.foaming->FlagEstimateBubble = 0;
  first.sections.slip->FlagSlipBC = 1;
  first.sections.fillPack->FillTimes.SetCount(2);
  first.sections.summary->Time = "Now";  // a time with blanks reads back cut
  const std::string once = WriteSolid(first, "once.krn");
  EXPECT_TRUE(Has(once, "2 = 4.500000\n3 = 4.500000"));

  CNVX3DComputationImpl second;
  second.ReadKrn(dir_.File("once.krn"));
  EXPECT_EQ(second.sections.hrSteady->Gates.size(), 3u);
  EXPECT_TRUE(second.sections.longFiber->FlagScrewFiberBreakage);
  EXPECT_EQ(second.sections.foaming->FlagEstimateBubble, 0);
  EXPECT_EQ(WriteSolid(second, "twice.krn"), once);
}

TEST_F(AdvancedFillTest, MalformedGateCountsStayWithinTheSection) {
  auto read = [&](const std::string& body) {
    WriteText(dir_.File("g.krn"), "<FILL_ADVANCED_HRSteady>\n" + body +
                                      "</FILL_ADVANCED_HRSteady>\n<SUMMARY>\n1 = 7\n");
    auto impl = std::make_unique<CNVX3DComputationImpl>();
    impl->ReadKrn(dir_.File("g.krn"));
    return impl;
  };
  // A huge count is kept, but the gate list stops at its bound; the type
  // decides the value.
  auto impl = read("ValueNoHRGate = 2000000000\nValueHRGateType = 1\n1 = 5\n2 = 6\n");
  CNVX3DHRSteady* hr = impl->sections.hrSteady.get();
  EXPECT_EQ(hr->ValueNoHRGate, 2000000000);
  ASSERT_EQ(hr->Gates.size(), 100000u);
  EXPECT_EQ(hr->Gates[1][2], 6.0);
  EXPECT_EQ(hr->Gates[1][1], 0.0);
  // Negative counts keep no gates; lines past the list or of a type other
  // than 0 and 1 change nothing.
  hr = (impl = read("ValueNoHRGate = -4\n1 = 5\n"))->sections.hrSteady.get();
  EXPECT_EQ(hr->ValueNoHRGate, -4);
  EXPECT_TRUE(hr->Gates.empty());
  hr = (impl = read("ValueNoHRGate = 1\nValueHRGateType = 2\n1 = 5\n99999999999 = 1\n"))
           ->sections.hrSteady.get();
  ASSERT_EQ(hr->Gates.size(), 1u);
  EXPECT_EQ(hr->Gates[0], (CNVX3DHRGate{0.0, 0.0, 0.0}));

  CNVX3DComputation c;
  double v = -1.0;
  c.SetAdvancedHotRunnerSteadyVectorSize(1);
  c.SetAdvancedHotRunnerSteadyGateInfo(0, 1, 3.0);
  EXPECT_EQ(c.GetAdvancedHotRunnerSteadyGateInfo(0, 2, v), 0);
  EXPECT_EQ(c.GetAdvancedHotRunnerSteadyGateInfo(1, 0, v), 0);
  EXPECT_EQ(v, -1.0);
  EXPECT_EQ(c.GetAdvancedHotRunnerSteadyGateInfo(0, 1, v), 1);
  EXPECT_EQ(v, 3.0);
}

TEST_F(AdvancedFillTest, CommandLineTextReachesTheGateListAndCoefficients) {
  CNVX3DComputationImpl impl;
  const KeyList hr = FindSection(KrnTag::kFillAdvancedHRSteady)->keys(impl);
  const Key* gates = FindKey(hr, "Gates", kKrnRead);
  ASSERT_TRUE(gates != nullptr && IsUserKey(*gates));
  std::string error;
  ASSERT_TRUE(ParseValue(*gates, " 1/2.5/3 , 4/5/6e-3", &error)) << error;
  EXPECT_EQ(FormatValue(*gates), "1/2.5/3, 4/5/0.006");
  EXPECT_FALSE(ParseValue(*gates, "1/2", &error));
  EXPECT_FALSE(ParseValue(*FindKey(hr, "ValueNoHRGate", kKrnRead), "-1", &error));
  EXPECT_EQ(impl.sections.hrSteady->Gates.size(), 2u);
  const KeyList lf = FindSection(KrnTag::kFillAdvancedLongFiber)->keys(impl);
  const Key* b3 = FindKey(lf, "b3", kKrnRead);
  ASSERT_TRUE(b3 != nullptr && IsUserKey(*b3));
  EXPECT_EQ(FormatValue(*b3), "0");
}

TEST_F(AdvancedFillTest, LoadModesDecideWhereTheFibreValuesComeFrom) {
  WriteText(dir_.File("f.krn"),
            "<FILL_ADVANCED_LONGFIBER>\nAspectRatio = 33\nWeight = 44\n"
            "OrthotropicClosureMethod = 5\nFlagFiberBreakage = 1\n</FILL_ADVANCED_LONGFIBER>\n");
  auto load = [&](int loadMode, double ratio, double weight) {
    NVXData d{};
    d.KRNFilePath = dir_.File("f.krn");
    d.LoadMode = loadMode;
    d.ModelKind = 2;
    d.FiberAspectRatio = ratio;
    d.FiberWeight = weight;
    auto c = std::make_unique<CNVX3DComputation>();
    EXPECT_TRUE(c->LoadKRNFile(d));
    return c;
  };
  double r = 0.0, w = 0.0;
  auto c = load(0, 7.0, 9.0);
  c->GetFiberRatio(r), c->GetFiberWeight(w);
  EXPECT_EQ(r, 7.0);
  EXPECT_EQ(w, 9.0);
  (c = load(0, 7.0, -1.0))->GetFiberRatio(r), c->GetFiberWeight(w);
  EXPECT_EQ(r, 0.0);
  EXPECT_EQ(w, 0.0);
  (c = load(-1, 7.0, 9.0))->GetFiberRatio(r), c->GetFiberWeight(w);
  EXPECT_EQ(r, 33.0);
  EXPECT_EQ(w, 44.0);
  (c = load(1, 7.0, 9.0))->GetFiberRatio(r);
  EXPECT_EQ(r, 20.0);

  // A write that clears the fibre model keeps the version and fibre values.
  NVXData d{};
  d.KRNFilePath = dir_.File("f.krn");
  d.ClearFiberModelOnWrite = true;
  CNVX3DComputation clearing;
  ASSERT_TRUE(clearing.LoadKRNFile(d));
  ASSERT_TRUE(clearing.WriteKRNFile(dir_.File("f.krn"), 0));
  int method = -1, version = 0;
  bool breakage = true;
  clearing.GetAdvancedFiberOrthotropicClosureMethod(method);
  clearing.GetAdvancedFiberVersion(version);
  clearing.GetFlagFiberBreakage(breakage);
  clearing.GetFiberRatio(r);
  EXPECT_EQ(method, 0);
  EXPECT_FALSE(breakage);
  EXPECT_EQ(version, 1001);
  EXPECT_EQ(r, 0.0);  // the description's fibre value (0) from load mode 0
  EXPECT_TRUE(Has(ReadTextLF(dir_.File("f.krn")), "OrthotropicClosureMethod = 0"));
}

TEST_F(AdvancedFillTest, ModeOneClearsTheBreakageFlagOfATemplateLoad) {
  char dir[260] = {};
  ASSERT_TRUE(NVXGetReleaseVersionCurUserDirectory(dir, sizeof dir));
  WriteText(std::string(dir) + "/KRNTemplate.krn",
            "<FILL_ADVANCED_LONGFIBER>\nFlagFiberBreakage = 1\nFiberType = 3\n"
            "</FILL_ADVANCED_LONGFIBER>\n");
  for (int mode : {0, 1}) {
    CNVX3DComputation c;
    c.SetMode(mode);
    NVXData d{};
    d.KRNFilePath = dir_.File("missing.krn");
    ASSERT_TRUE(c.LoadKRNFile(d));
    bool breakage = false;
    int type = 0;
    c.GetFlagFiberBreakage(breakage);
    c.GetFiberType(type);
    EXPECT_EQ(breakage, mode == 0);
    EXPECT_EQ(type, 3);
  }
}

TEST_F(AdvancedFillTest, RsvTablesCarryTheirItemsOnly) {
  const std::string rsv = dir_.File("p.rsv");
  {
    CNVX3DComputation c;
    c.SetAdvancedFiberDiffusionModelType(0);
    c.SetAdvancedb4(0.25);  // not written to KRN under type 0, but to RSV
    c.SetFlagFiberBreakage(true);
    c.SetFiberBreakage(true);  // the screw flag: KRN only
    c.SetFoamingFlagEstimateBubble(0);
    c.SetFoamingJt(0.5);
    c.SetFoamingBubbleType(3);
    c.SetFlagSlipExcludeRunner(0);
    c.SetValueSlipFrictionForce(0.75);
    c.SetVersion(1009);
    c.SetAdvancedHRVersion(1004);
    c.SetRSVFilePath(rsv);
    ASSERT_TRUE(c.WriteRSVFile());
    c.SetAdvancedHRVersion(1005);
    ASSERT_TRUE(c.ReadRSVFile());
    int v = 0;
    c.GetAdvancedHRVersion(v);  // no RSV table: unchanged
    EXPECT_EQ(v, 1005);
  }
  CNVX3DComputation c;
  c.SetRSVFilePath(rsv);
  ASSERT_TRUE(c.ReadRSVFile());
  double d = 0.0;
  int i = 0;
  bool b = false;
  c.GetAdvancedb4(d);
  EXPECT_EQ(d, 0.25);
  c.GetFlagFiberBreakage(b);
  EXPECT_TRUE(b);
  EXPECT_FALSE(c.GetFiberBreakage());
  c.GetFoamingFlagEstimateBubble(i);
  EXPECT_EQ(i, 1);
  c.GetFoamingJt(d);
  EXPECT_EQ(d, 0.5);
  c.GetFoamingBubbleType(i);
  EXPECT_EQ(i, 3);
  EXPECT_EQ(c.GetFlagSlipExcludeRunner(), 0);
  EXPECT_EQ(c.GetValueSlipFrictionForce(), 0.75);
  EXPECT_EQ(c.GetVersion(), 1009);
}
