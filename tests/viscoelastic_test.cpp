// The viscoelastic sections: curve lists, the curve block in KRN (notation,
// order of point lines, malformed counts) and as the "MT" raw item in RSV,
// and curves as text.
#include <gtest/gtest.h>

#include <sstream>

#include "NVX3DComputation.h"
#include "NVX3DRSVExTool.h"
#include "SectionIO.h"
#include "TestUtil.h"
#include "core/KeyText.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNSectionIO.h"
#include "sections/ValueText.h"

using namespace nvx;
using NVX3DRSVExTool::CRSVGroup;
using NVX3DRSVExTool::CRSVTable;
using NVX3DRSVExTool::CRSVTool;
using nvxtest::ReadSection;
using nvxtest::TempDir;
using nvxtest::WriteSection;

namespace {

std::vector<std::pair<double, double>> Curve0(const CNVXPROProfile& p) {
  std::vector<std::pair<double, double>> points;
  for (int i = 0; i < p.PointCount(0); ++i) {
    double a = 0, b = 0;
    p.GetPoint(0, i, a, b);
    points.emplace_back(a, b);
  }
  return points;
}

using Points = std::vector<std::pair<double, double>>;

}  // namespace

TEST(VECurve, CountsAndPointAccessRules) {
  CNVX3DComputation c;
  int n = 0;
  c.GetE0Time(n);
  EXPECT_EQ(n, 8);
  double e0 = 5, t = 6;
  c.SetE0T(8, 1.0, 2.0);  // past the end: nothing changes
  c.GetE0T(8, e0, t);     // nor are the outputs touched
  EXPECT_EQ(e0, 5);
  c.GetE0T(7, e0, t);
  EXPECT_EQ(e0, 1.74e5);
  EXPECT_EQ(t, 40000);
  c.SetE0Time(10);
  c.GetE0T(9, e0, t);
  EXPECT_EQ(e0, 0.0);
  c.SetVEWarpE0Time(-3);
  c.GetVEWarpE0Time(n);
  EXPECT_EQ(n, 0);

  CNVXPROProfile p;
  EXPECT_EQ(p.PointCount(0), 0);
  EXPECT_FALSE(p.SetPoint(1, 0, 1, 1));
  p.SetPointCount(2, 3);  // curves 0 and 1 are added with one (0, 0) point
  EXPECT_EQ(p.PointCount(0), 1);
  EXPECT_EQ(p.PointCount(2), 3);
  p.Curves[2].Second.pop_back();
  EXPECT_EQ(p.PointCount(2), -1);
  EXPECT_TRUE(p.SetPoint(2, 0, 1, 1));  // ignored: the lists differ

  int v = 0;
  c.SetSolidVEFlagEstimateCoolStage(2);
  EXPECT_EQ(c.GetSolidVEFlagEstimateFlowPackStage(v), 0);
  c.SetSolidVEFlagEstimateCoolStage(1);
  EXPECT_EQ(c.GetSolidVEFlagEstimateFlowPackStage(v), 1);
  c.SetSolidVEFlagEstimateCoolStage(0);
  EXPECT_EQ(c.GetSolidVEFlagEstimateFlowPackStage(v), 1);  // never cleared
}

TEST(VECurve, CuringDefaultsAndPartialReset) {
  CNVX3DComputation c;
  EXPECT_EQ(c.GetVEStressCuringParaConst(), -16765.45);
  double a = 0, b = 1;
  c.GetVEStressCuringPara(4, a, b);
  EXPECT_EQ(a, 100561.5854);
  EXPECT_EQ(b, 0.0);
  CNVX3DVECuringStress r;
  r.ModelType = 4;
  r.C1 = 9;
  r.Version = 7;
  r.Profile.SetPointCount(0, 1);
  ResetVECuring(r);
  EXPECT_EQ(r.Version, 1001);
  EXPECT_EQ(r.ModelType, 4);  // left as it was
  EXPECT_EQ(r.C1, 9);
  EXPECT_EQ(r.Profile.PointCount(0), 5);
}

TEST(VECurveKrn, DefaultStressWritesEightScientificPointsAndTheNotationCarriesOver) {
  CNVX3DComputationImpl impl;
  std::ostringstream os;
  KrnStream out(os);
  out.Precision(2);
  WriteKrnSection(kSolidVEStressSection, out, impl, false);
  WriteKrnSection(kSolidICSection, out, impl, false);
  const std::string text = nvxtest::ToLF(os.str());
  EXPECT_NE(text.find("C1 = 40.16\nC2 = 51.6\nTref = 1\nValueEaslticRatio = 7.030000e+04\n"
                      "MTCount = 8\nMT1 = 1.160000e+09\t 2.000000e-03\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("MT8 = 1.740000e+05\t 4.000000e+04\n</SOLID_VE_STRESS>"), std::string::npos);
  EXPECT_NE(text.find("WireTolerance =0.000000e+00\n"), std::string::npos);  // carried over

  impl.sections.veCuring->Profile.Curves[0].First.pop_back();
  EXPECT_EQ(WriteSection(impl, KrnTag::kSolidVECuringStress),
            "<SOLID_VE_CURING_STRESS>\nVersion = 1001\nModelType = 0\n"
            "PARAConst = -1.676545e+04\nPARACount = -1\n</SOLID_VE_CURING_STRESS>\n");
}

TEST(VECurveKrn, PointLinesAreTakenInFileOrderAndNeverPastTheSection) {
  CNVX3DComputationImpl impl;
  CNVXPROProfile& p = impl.sections.veStress->Profile;
  ReadSection(impl, KrnTag::kSolidVEStress, "MTCount = 2\nMT7 = 1 2\nMT1 = 3\t4\nC1 = 5\n");
  EXPECT_EQ(Curve0(p), (Points{{1, 2}, {3, 4}}));
  EXPECT_EQ(impl.sections.veStress->C1, 5);

  // A count beyond the lines left takes those lines, whatever they hold; the
  // points they do not give are (0, 0), up to the bound of the curve.
  ReadSection(impl, KrnTag::kSolidVEStress, "MTCount = 2000000000\nMT1 = 7 8\nno sign here\n");
  EXPECT_EQ(p.PointCount(0), static_cast<int>(kMaxTuples));
  EXPECT_EQ(Curve0(p).back(), (std::pair<double, double>{0, 0}));
  EXPECT_EQ(Curve0(p)[0], (std::pair<double, double>{7, 8}));
  ReadSection(impl, KrnTag::kSolidVEStress, "MTCount = -4\nC1 = 6\n");
  EXPECT_EQ(p.PointCount(0), 0);
  EXPECT_EQ(impl.sections.veStress->C1, 6);

  // Curing points, and a round trip of the warp record through its writer.
  ReadSection(impl, KrnTag::kSolidVECuringStress, "PARACount = 1\nPARA1 = -2.5e+01\t 1\n");
  EXPECT_EQ(Curve0(impl.sections.veCuring->Profile), (Points{{-25, 1}}));
  impl.sections.veWarp->Profile.SetPointCount(0, 2);
  impl.sections.veWarp->Profile.SetPoint(0, 1, 0.125, 3e-9);
  const std::string warp = WriteSection(impl, KrnTag::kSolidVEWarp);
  CNVX3DComputationImpl back;
  ReadSection(back, KrnTag::kSolidVEWarp, warp.substr(warp.find('\n') + 1));
  EXPECT_EQ(Curve0(back.sections.veWarp->Profile), Curve0(impl.sections.veWarp->Profile));
}

TEST(VECurveRsv, MtItemRoundTripsAndOddOrMissingBlocksAreSafe) {
  TempDir dir;
  const std::string path = dir.File("p.rsv");
  CNVX3DComputation c;
  c.SetE0Time(3);
  c.SetE0T(2, 9.5, 0.25);
  c.SetC2(3.5);
  c.SetVEWarpE0Time(1);
  c.SetRSVFilePath(path);
  ASSERT_TRUE(c.WriteRSVFile());
  CNVX3DComputation back;
  back.SetE0Time(0);
  back.SetRSVFilePath(path);
  ASSERT_TRUE(back.ReadRSVFile());
  int n = 0;
  back.GetE0Time(n);
  EXPECT_EQ(n, 3);
  double a = 0, b = 0;
  back.GetE0T(2, a, b);
  EXPECT_EQ(a, 9.5);
  EXPECT_EQ(b, 0.25);
  EXPECT_EQ(back.GetC2(), 3.5);
  back.GetVEWarpE0Time(n);
  EXPECT_EQ(n, 1);

  // 40 bytes hold two points and 8 bytes more; an empty block and a missing
  // item both leave no points; a missing table leaves the warp curve alone.
  const double raw[5] = {1, 2, 3, 4, 5};
  {
    CRSVTool tool;
    ASSERT_EQ(tool.Create(dir.File("odd.rsv"), 4, 1, 0), 0);
    CRSVGroup* group = tool.CreateGroup(tool.OpenGroup(1), "Computation");
    CRSVTable* t = tool.CreateTable(group, "SOLID_VE_STRESS");
    t->SetItem("MT", std::uint64_t{40}, raw);
    tool.CloseTable(t);
    tool.Close();
  }
  CNVX3DComputation odd;
  odd.SetRSVFilePath(dir.File("odd.rsv"));
  ASSERT_TRUE(odd.ReadRSVFile());
  odd.GetE0Time(n);
  EXPECT_EQ(n, 2);
  odd.GetE0T(1, a, b);
  EXPECT_EQ(a, 3);
  EXPECT_EQ(b, 4);
  EXPECT_EQ(odd.GetVESTrerssVersion(), 0);  // scratch int: the item is missing
  odd.GetVEWarpE0Time(n);
  EXPECT_EQ(n, 8);
}

TEST(VECurveText, CurvesAreShownAndSetAsTuples) {
  CNVX3DComputationImpl impl;
  const KeyList keys = kSolidVEWarpSection.keys(impl);
  const Key* key = FindKey(keys, "MTCount", kKrnRead);
  ASSERT_NE(key, nullptr);
  ASSERT_TRUE(IsUserKey(*key));
  std::string error;
  ASSERT_TRUE(ParseValue(*key, "2: (1.5,2), ( -3e2 , 4 )", &error)) << error;
  EXPECT_EQ(FormatValue(*key), "2: (1.5,2), (-300,4)");
  for (const char* bad : {"3: (1,2)", "1: (1,2), (3,4)", "1: (1)", "x", "1: (1,a)", "2000000: "}) {
    EXPECT_FALSE(ParseValue(*key, bad, &error)) << bad;
    EXPECT_FALSE(error.empty());
  }
  EXPECT_EQ(FormatValue(*key), "2: (1.5,2), (-300,4)");  // unchanged by failures
  ASSERT_TRUE(ParseValue(*key, "0", &error));
  EXPECT_EQ(FormatValue(*key), "0");
}
