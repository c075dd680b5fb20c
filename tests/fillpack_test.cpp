// The fill and pack sections: defaults, shared fields, odd lines, reader
// conversions and the output-time lists.
#include <gtest/gtest.h>

#include <sstream>

#include "NVX3DComputation.h"
#include "SectionIO.h"
#include "TestUtil.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNSectionIO.h"

using namespace nvx;
using nvxtest::ReadSection;
using nvxtest::TempDir;
using nvxtest::WriteSection;
using nvxtest::WriteText;

namespace {

// Loads `text` as a KRN file through the facade.
void Load(CNVX3DComputation& c, const std::string& text) {
  TempDir dir;
  WriteText(dir.File("p.krn"), text);
  ASSERT_TRUE(c.LoadKRNFile(dir.File("p.krn").c_str()));
}

}  // namespace

TEST(FillPackDefaults, FreshRecordWritesTheDocumentedSections) {
  CNVX3DComputationImpl impl;
  EXPECT_EQ(WriteSection(impl, KrnTag::kSolidFill),
            "<SOLID_FILL>\nVersion = 0\nIDSolver = 0\nIDAnalysisMode = 0\nIDEfficiencyFactor = 1\n"
            "IDFiberEfficiencyFactor = 1\nFlagSolverAcceleration = 0\nFlagInertia = 0\n"
            "FlagNonIsothermal = 1\nFlagNonNewtonian = 1\nFlagViscousHeating = 1\n"
            "FlagStabilizer = 0\nFlagCompressibleFlow = 0\nFlagEstimateCoolTime = 0\n"
            "FlagEstimateFiber = 0\nFlagEstimateCrystall = 0\nFlagStopPackingAfterGateFreeze = 0\n"
            "FlagGateFreezeByTemperature = 0\nValueGateFreezeByTemperature = 120\n"
            "FlagGateFreezeByFlowRate = 0\nValueGateFreezeByFlowRate = 0.1\n"
            "FlagGateFreezeByWeightDeviation = 0\nValueGateFreezeByWeightDeviation = 0.1\n"
            "FlagOutputTecplot = 0\nFlagOutputFEMAP = 0\nFlagOutputHyperMesh = 0\n"
            "FlagOutputHyperMeshAvi = 0\nUseTemperatureDLL = 0\nValueGravityX = 0\n"
            "ValueGravityY = 0\nValueGravityZ = 0\nValueEOFPercent = 0.9995\n"
            "ValueUIEOFPercent = 0.9995\nFlagExcludeRunnerEOFPercent = 1\n"
            "ValueUnFilledElement = 10\nIDStopCalculateCriterionType = 1\n"
            "FlagVentingAnalysis = 0\nVentingTemperature = 30\nVentingPressure = 0.1\n"
            "FlagCoreShiftMethod = 0\nFlagStressSolverVolume = 0.05\nFlagParticleTracer=0\n"
            "ValueParticleGroup = 10\nFlagFlowVEcoupling = 0\nFlagWeldingLineParticleTracer = 0\n"
            "FlagFlowEfficiencyFactor = 0\nFlag2WayPaddleShiftMethod = 0\nFlagConsiderIMDBC = 0\n"
            "</SOLID_FILL>\n");
  EXPECT_EQ(WriteSection(impl, KrnTag::kShellFill),
            "<SHELL_FILL>\nVersion = 0\nIDSolver = 0\nFlagSolverAcceleration = 0\n"
            "FlagEstimateFiber =\t0\nValueNoFlowLayer = 12\n</SHELL_FILL>\n");
  EXPECT_EQ(WriteSection(impl, KrnTag::kShellPack),
            "<SHELL_PACK>\nVersion = 0\nIDSolver = 0\nFlagSolverAcceleration = 0\n</SHELL_PACK>\n");
  const std::string pack =
      "<SOLID_PACK>\nVersion = 0\nIDSolver = 0\nFlagSolverAcceleration = 0\n"
      "FlagexPackingCalculation = 0\nFlagexPackingType = 0\n";
  EXPECT_EQ(WriteSection(impl, KrnTag::kSolidPack), pack + "</SOLID_PACK>\n");
  EXPECT_EQ(WriteSection(impl, KrnTag::kSolidPack, /*templateWriting=*/true),
            pack + "ValueexPackingCrystal = -20\nValueexPackingNoCrystal = -20\n</SOLID_PACK>\n");
  EXPECT_EQ(WriteSection(impl, KrnTag::kFillOutputTimes),
            "<FILL_OUTPUT_TIMES>\nVersion = 0\nFlagAutoLoadIntermediateResult = 0\n"
            "FlagFillMultiOutputType = 1\nValueCheckIntermediteTimeSpan = 0\n"
            "ValueNoFillOutputTime = 0\n</FILL_OUTPUT_TIMES>\n");
  EXPECT_EQ(WriteSection(impl, KrnTag::kPackOutputTimes),
            "<PACK_OUTPUT_TIMES>\nVersion = 0\nValueNoPackOutputTime = 0\n</PACK_OUTPUT_TIMES>\n");

  CNVX3DComputation c;
  double v = 0;
  c.GetBalance_Tm0(v);
  EXPECT_DOUBLE_EQ(v, 172.0);
  c.GetShift_C2(v);
  EXPECT_DOUBLE_EQ(v, 5500.0);
}

TEST(FillPackSharing, ShellAndSolidSectionsShareTheirTrios) {
  CNVX3DComputation c;
  c.SetShellPackVersion(5);
  c.SetShellPackidSolver(4);
  c.SetShellFillVersion(6);
  int v = 0;
  c.GetSolidPackVersion(v);
  EXPECT_EQ(v, 5);
  c.GetSolidPackidSolver(v);
  EXPECT_EQ(v, 4);
  c.GetSolidFillVersion(v);
  EXPECT_EQ(v, 6);

  // One document: SOLID_FILL is read after SHELL_FILL and wins.
  Load(c, "<SOLID_FILL>\nVersion = 2\n</SOLID_FILL>\n<SHELL_FILL>\nVersion = 3\n</SHELL_FILL>\n");
  c.GetShellFillVersion(v);
  EXPECT_EQ(v, 2);
  // A later load of SHELL_FILL changes the solid view; pack sections do not.
  Load(c, "<SHELL_FILL>\nVersion = 8\n</SHELL_FILL>\n<SOLID_PACK>\nVersion = 9\n</SOLID_PACK>\n");
  c.GetSolidFillVersion(v);
  EXPECT_EQ(v, 8);
  c.GetShellPackVersion(v);
  EXPECT_EQ(v, 9);
}

TEST(FillPackReading, BoolsAndTheTabbedFiberLine) {
  CNVX3DComputation c;
  Load(c,
       "<SOLID_FILL>\nFlagInertia = 2\nFlagConsiderIMDBC = -5\nFlagParticleTracer=4\n"
       "IDEfficiencyFactor = 2.5e+00\n</SOLID_FILL>\n<SHELL_FILL>\nFlagEstimateFiber =\t1\n"
       "</SHELL_FILL>\n");
  bool inertia = false;
  c.GetSolidFillFlagInertia(inertia);
  EXPECT_TRUE(inertia);
  EXPECT_TRUE(c.GetSolidFillFlagConsiderIMDBC());
  int tracer = 0;
  c.GetFlowParticleTracer(tracer);
  EXPECT_EQ(tracer, 4);
  double factor = 0;
  c.GetSolidFillIDEfficiencyFactor(factor);
  EXPECT_DOUBLE_EQ(factor, 2.5);
  int fiber = 0;
  c.GetShellFillEstimateFiber(fiber);
  EXPECT_EQ(fiber, 1);

  Load(c, "<SOLID_FILL>\nFlagInertia = -5\nFlagConsiderIMDBC = 0\n</SOLID_FILL>\n");
  c.GetSolidFillFlagInertia(inertia);
  EXPECT_FALSE(inertia);
  EXPECT_FALSE(c.GetSolidFillFlagConsiderIMDBC());
}

TEST(FillPackCouplings, SettersCoupleButTheKrnReaderDoesNot) {
  CNVX3DComputationImpl impl;
  CNVX3DFillPackTimeSteps& r = *impl.sections.fillPack;
  r.FlagNonIsothermal = r.FlagViscousHeating = r.FlagNonNewtonian = r.FlagStabilizer = 0;
  SetAnalysisMode(r, 0);
  EXPECT_EQ(r.FlagNonIsothermal + r.FlagViscousHeating + r.FlagNonNewtonian + r.FlagStabilizer, 4);
  SetAnalysisMode(r, 1);
  EXPECT_EQ(r.FlagNonIsothermal + r.FlagViscousHeating, 0);
  EXPECT_EQ(r.FlagNonNewtonian + r.FlagStabilizer, 2);
  SetAnalysisMode(r, 2);
  EXPECT_EQ(r.FlagNonNewtonian + r.FlagStabilizer, 2);

  ReadSection(impl, KrnTag::kSolidFill, "IDAnalysisMode = 0\nFlagEstimateFiber = 1\n");
  EXPECT_EQ(r.FlagNonIsothermal, 0);
  EXPECT_EQ(r.FlagEstimateFiber, 1);
  EXPECT_EQ(impl.sections.warp->FlagFiberEffect, 0);
  EXPECT_EQ(impl.sections.stress->FlagFiberEffect, 0);

  SetEstimateFiber(impl, 1);
  EXPECT_EQ(impl.sections.warp->FlagFiberEffect, 1);
  EXPECT_EQ(impl.sections.stress->FlagFiberEffect, 1);
}

TEST(FillPackReading, ParameterFilesLeaveTheTemplateOnlyValues) {
  CNVX3DComputationImpl impl;
  CNVX3DFillPackTimeSteps& r = *impl.sections.fillPack;
  r.ValueexPackingCrystal = 5.0;
  ReadSection(impl, KrnTag::kSolidPack, WriteSection(impl, KrnTag::kSolidPack));
  EXPECT_DOUBLE_EQ(r.ValueexPackingCrystal, 5.0);
  ReadSection(impl, KrnTag::kSolidPack, "ValueexPackingCrystal = -7\n");
  EXPECT_DOUBLE_EQ(r.ValueexPackingCrystal, -7.0);
}

TEST(FillPackTimes, CountSettersWorkFromTheStoredCount) {
  CNVX3DComputation c;
  c.SetFillOutputTimesSectionFillTimeSteps(3);
  c.SetFillOutputTimesSectionFillTimeStepsValue(1, 2.5);
  c.SetFillOutputTimesSectionFillTimeSteps(2);
  double t = -1;
  c.GetFillOutputTimesSectionFillTimeStepsValue(0, t);
  EXPECT_DOUBLE_EQ(t, 0.0);
  c.GetFillOutputTimesSectionFillTimeStepsValue(1, t);
  EXPECT_DOUBLE_EQ(t, 2.5);
  EXPECT_THROW(c.GetFillOutputTimesSectionFillTimeStepsValue(2, t), std::out_of_range);
  EXPECT_THROW(c.SetPackOutputTimesSectionFillTimeStepsValue(-1, 1.0), std::out_of_range);

  c.SetFillOutputTimesSectionValueCheckIntermediteTimeSpan(2);
  c.GetFillOutputTimesSectionValueCheckIntermediteTimeSpan(t);
  EXPECT_DOUBLE_EQ(t, 2.0);

  // A list longer than its count stays longer by as much.
  OutputTimes block;
  block.Times = {1, 2, 3, 4};
  block.Count = 2;
  block.SetCount(3);
  EXPECT_EQ(block.Times.size(), 5u);
  block.SetCount(0);
  EXPECT_EQ(block.Times.size(), 2u);
}

TEST(FillPackTimes, KrnItemLinesAreTakenByPosition) {
  CNVX3DComputationImpl impl;
  CNVX3DFillPackTimeSteps& r = *impl.sections.fillPack;
  ReadSection(impl, KrnTag::kFillOutputTimes,
              "FlagFillMultiOutputType = 1\nValueNoFillOutputTime = 2\n5 = 1.0\n2 = 2.0\n"
              "Version = 3\n");
  EXPECT_EQ(r.FlagFillMultiOutputType, 0);
  EXPECT_EQ(r.FillTimes.Count, 2);
  EXPECT_EQ(r.FillTimes.Times, (std::vector<double>{1.0, 2.0}));
  EXPECT_EQ(r.FillTimesVersion, 3);
  EXPECT_NE(WriteSection(impl, KrnTag::kFillOutputTimes)
                .find("FlagFillMultiOutputType = 1\nValueCheckIntermediteTimeSpan = 0\n"
                      "ValueNoFillOutputTime = 2\n1 = 1\n2 = 2\n</FILL"),
            std::string::npos);

  ReadSection(impl, KrnTag::kPackOutputTimes, "ValueNoPackOutputTime = -3\n1 = 4\n");
  EXPECT_EQ(r.PackTimes.Count, -3);
  EXPECT_TRUE(r.PackTimes.Times.empty());
}

TEST(FillPackTimes, MalformedCountsNeverReadPastTheSection) {
  CNVX3DComputationImpl impl;
  CNVX3DFillPackTimeSteps& r = *impl.sections.fillPack;
  // More items asked for than lines left: the lines there are, the count as
  // the file gives it, and a list that stops at its bound.
  ReadSection(impl, KrnTag::kPackOutputTimes, "ValueNoPackOutputTime = 2000000000\n1 = 4\n2 = 5\n");
  EXPECT_EQ(r.PackTimes.Count, 2000000000);
  ASSERT_EQ(r.PackTimes.Times.size(), static_cast<std::size_t>(kMaxOutputTimes));
  EXPECT_EQ(r.PackTimes.Times[1], 5.0);
  EXPECT_EQ(r.PackTimes.Times[2], 0.0);
  // Nothing past the section is read.
  ReadSection(impl, KrnTag::kPackOutputTimes, "ValueNoPackOutputTime = 9\n");
  EXPECT_EQ(r.PackTimes.Count, 9);
  EXPECT_EQ(r.PackTimes.Times, std::vector<double>(9, 0.0));
}

TEST(FillPackPairs, PairAccessorsReachFlagAndValue) {
  CNVX3DComputation c;
  c.SetFreezeTemperature(1, 150.0);
  c.SetFlowRate(1, 0.5);
  c.SetPartWeightDeviation(1, 0.2);
  c.SetCriterionForStoppingCalculationByUnFilledElementCount(33);
  int flag = 0;
  double value = 0;
  c.GetFreezeTemperature(flag, value);
  EXPECT_EQ(flag, 1);
  EXPECT_DOUBLE_EQ(value, 150.0);
  c.GetSolidFillValueGateFreezeByFlowRate(value);
  EXPECT_DOUBLE_EQ(value, 0.5);
  c.GetPartWeightDeviation(flag, value);
  EXPECT_DOUBLE_EQ(value, 0.2);
  c.GetSolidFillValueUnFilledElement(flag);
  EXPECT_EQ(flag, 33);
}
