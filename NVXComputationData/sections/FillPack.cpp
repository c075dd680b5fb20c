// Keys of the six fill and pack sections, and the couplings between their
// fields. Shell and solid sections bind the same fields where they share them.
#include "sections/FillPack.h"

#include "core/NVX3DComputationImpl.h"
#include "krn/KRNStream.h"

namespace nvx {
namespace {

// Quirk hooks of the RSV reader: it couples and mirrors as the setters do;
// the KRN reader does neither.
void CoupleAnalysisModeAfterRead(CNVX3DComputationImpl& impl) {
  SetAnalysisMode(*impl.sections.fillPack, impl.sections.fillPack->IDAnalysisMode);
}

void MirrorFiberAfterRead(CNVX3DComputationImpl& impl) {
  SetEstimateFiber(impl, impl.sections.fillPack->FlagEstimateFiber);
}

// The fill output-time section starts from the default number format.
void ResetNumberFormat(KrnStream& out) {
  out.General();
  out.Precision(6);
}

KeyList SolidFillKeys(CNVX3DComputationImpl& impl) {
  CNVX3DFillPackTimeSteps& r = *impl.sections.fillPack;
  // Four keys travel only in KRN files: the RSV table has no items for them,
  // so an RSV read leaves what memory holds.
  constexpr std::uint8_t kKrnOnly = kKrn;
  return {
      Field("Version", r.Version),
      Field("IDSolver", r.IDSolver),
      Field("IDAnalysisMode", r.IDAnalysisMode).AfterRsvRead(CoupleAnalysisModeAfterRead),
      Field("IDEfficiencyFactor", r.IDEfficiencyFactor),
      Field("IDFiberEfficiencyFactor", r.IDFiberEfficiencyFactor),
      Field("FlagSolverAcceleration", r.FlagSolverAcceleration),
      Field("FlagInertia", r.FlagInertia),  // true when greater than 0
      Field("FlagNonIsothermal", r.FlagNonIsothermal),
      Field("FlagNonNewtonian", r.FlagNonNewtonian),
      Field("FlagViscousHeating", r.FlagViscousHeating),
      Field("FlagStabilizer", r.FlagStabilizer),
      Field("FlagCompressibleFlow", r.FlagCompressibleFlow),
      Field("FlagEstimateCoolTime", r.FlagEstimateCoolTime),
      Field("FlagEstimateFiber", r.FlagEstimateFiber).AfterRsvRead(MirrorFiberAfterRead),
      Field("FlagEstimateCrystall", r.FlagEstimateCrystall),
      Field("FlagStopPackingAfterGateFreeze", r.FlagStopPackingAfterGateFreeze),
      Field("FlagGateFreezeByTemperature", r.FlagGateFreezeByTemperature),
      Field("ValueGateFreezeByTemperature", r.ValueGateFreezeByTemperature),
      Field("FlagGateFreezeByFlowRate", r.FlagGateFreezeByFlowRate),
      Field("ValueGateFreezeByFlowRate", r.ValueGateFreezeByFlowRate),
      Field("FlagGateFreezeByWeightDeviation", r.FlagGateFreezeByWeightDeviation),
      Field("ValueGateFreezeByWeightDeviation", r.ValueGateFreezeByWeightDeviation),
      Field("FlagOutputTecplot", r.FlagOutputTecplot),
      Field("FlagOutputFEMAP", r.FlagOutputFEMAP),
      Field("FlagOutputHyperMesh", r.FlagOutputHyperMesh),
      Field("FlagOutputHyperMeshAvi", r.FlagOutputHyperMeshAvi),
      Field("UseTemperatureDLL", r.UseTemperatureDLL),
      Field("ValueGravityX", r.ValueGravityX),
      Field("ValueGravityY", r.ValueGravityY),
      Field("ValueGravityZ", r.ValueGravityZ),
      Field("ValueEOFPercent", r.ValueEOFPercent),
      Field("ValueUIEOFPercent", r.ValueUIEOFPercent),
      Field("FlagExcludeRunnerEOFPercent", r.FlagExcludeRunnerEOFPercent),
      Field("ValueUnFilledElement", r.ValueUnFilledElement),
      Field("IDStopCalculateCriterionType", r.IDStopCalculateCriterionType),
      Field("FlagVentingAnalysis", r.FlagVentingAnalysis),
      Field("VentingTemperature", r.VentingTemperature),
      Field("VentingPressure", r.VentingPressure),
      Field("FlagCoreShiftMethod", r.FlagCoreShiftMethod),
      Field("FlagStressSolverVolume", r.FlagStressSolverVolume),
      // The one line of the section written with no blank around the sign.
      Field("FlagParticleTracer", r.FlagParticleTracer).Sep("="),
      Field("ValueParticleGroup", r.ValueParticleGroup),
      Field("FlagFlowVEcoupling", r.FlagFlowVEcoupling).Use(kKrnOnly),
      Field("FlagWeldingLineParticleTracer", r.FlagWeldingLineParticleTracer),
      Field("FlagFlowEfficiencyFactor", r.FlagFlowEfficiencyFactor).Use(kKrnOnly),
      Field("Flag2WayPaddleShiftMethod", r.Flag2WayPaddleShiftMethod).Use(kKrnOnly),
      // Unlike FlagInertia, any non-zero value reads as true.
      Field("FlagConsiderIMDBC", r.FlagConsiderIMDBC).TrueWhen(Truth::kNonZero).Use(kKrnOnly),
  };
}

KeyList ShellFillKeys(CNVX3DComputationImpl& impl) {
  CNVX3DFillPackTimeSteps& r = *impl.sections.fillPack;
  return {
      Field("Version", r.Version),
      // The RSV table "SHELL_FILL" stores the solver choice in the pack trio,
      // the very fields "SHELL_PACK" uses; KRN and the accessors use the fill
      // trio. Reading the table therefore overwrites the pack's values.
      Field("IDSolver", r.IDSolver).Use(kKrn),
      Field("IDSolver", r.PackIDSolver).Use(kRsv),
      Field("FlagSolverAcceleration", r.FlagSolverAcceleration).Use(kKrn),
      Field("FlagSolverAcceleration", r.PackFlagSolverAcceleration).Use(kRsv),
      // Written with a tab, not a blank, after the sign.
      Field("FlagEstimateFiber", r.FlagEstimateFiber)
          .Sep(" =\t")
          .AfterRsvRead(MirrorFiberAfterRead),
      Field("ValueNoFlowLayer", r.ValueNoFlowLayer),
      Lines(r.ShellFillLines),
  };
}

KeyList ShellPackKeys(CNVX3DComputationImpl& impl) {
  CNVX3DFillPackTimeSteps& r = *impl.sections.fillPack;
  return {
      Field("Version", r.PackVersion),
      Field("IDSolver", r.PackIDSolver),
      Field("FlagSolverAcceleration", r.PackFlagSolverAcceleration),
      Lines(r.ShellPackLines),
  };
}

KeyList SolidPackKeys(CNVX3DComputationImpl& impl) {
  CNVX3DFillPackTimeSteps& r = *impl.sections.fillPack;
  // The two extended-packing values reach KRN only through the per-user
  // template: a parameter file leaves them as they are, a template restores
  // them. RSV always carries them.
  constexpr std::uint8_t kTemplateValue = kEverywhere | kTemplateOnly;
  return {
      Field("Version", r.PackVersion),
      Field("IDSolver", r.PackIDSolver),
      Field("FlagSolverAcceleration", r.PackFlagSolverAcceleration),
      Field("FlagexPackingCalculation", r.FlagexPackingCalculation),
      Field("FlagexPackingType", r.FlagexPackingType),
      Field("ValueexPackingCrystal", r.ValueexPackingCrystal).Use(kTemplateValue),
      Field("ValueexPackingNoCrystal", r.ValueexPackingNoCrystal).Use(kTemplateValue),
  };
}

KeyList FillOutputTimesKeys(CNVX3DComputationImpl& impl) {
  CNVX3DFillPackTimeSteps& r = *impl.sections.fillPack;
  // The time span and the count go into RSV but are never read back from it;
  // the RSV reader takes the number of times from the count in memory.
  constexpr std::uint8_t kRsvWriteOnly = kKrn | kRsvWrite;
  return {
      Field("Version", r.FillTimesVersion),
      Field("FlagAutoLoadIntermediateResult", r.FlagAutoLoadIntermediateResult),
      // 0-based in memory, 1-based in both files.
      Field("FlagFillMultiOutputType", r.FlagFillMultiOutputType).Bias(1),
      Field("ValueCheckIntermediteTimeSpan", r.ValueCheckIntermediteTimeSpan).Use(kRsvWriteOnly),
      Times("ValueNoFillOutputTime", r.FillTimes).Use(kRsvWriteOnly),
      TimeArray("FILLOUTPUTTIME_TimeSteps", r.FillTimes),
      Lines(r.FillOutputTimesLines),
  };
}

KeyList PackOutputTimesKeys(CNVX3DComputationImpl& impl) {
  CNVX3DFillPackTimeSteps& r = *impl.sections.fillPack;
  return {
      Field("Version", r.PackTimesVersion),
      Times("ValueNoPackOutputTime", r.PackTimes).Use(kKrn | kRsvWrite),
      TimeArray("PACK_OUTPUT_TIMES_TimeSteps", r.PackTimes),
      Lines(r.PackOutputTimesLines),
  };
}

}  // namespace

const SectionDef kSolidFillSection{KrnTag::kSolidFill, "SOLID_FILL", SolidFillKeys};
const SectionDef kSolidPackSection{KrnTag::kSolidPack, "SOLID_PACK", SolidPackKeys};
const SectionDef kShellFillSection{KrnTag::kShellFill, "SHELL_FILL", ShellFillKeys};
const SectionDef kShellPackSection{KrnTag::kShellPack, "SHELL_PACK", ShellPackKeys};
const SectionDef kFillOutputTimesSection{KrnTag::kFillOutputTimes, "FILL_OUTPUT_TIMES",
                                         FillOutputTimesKeys, ResetNumberFormat};
// Unlike the fill output times, the pack output times leave the number
// format as the section before them left it.
const SectionDef kPackOutputTimesSection{KrnTag::kPackOutputTimes, "PACK_OUTPUT_TIMES",
                                         PackOutputTimesKeys};

void ResetFillPack(CNVX3DFillPackTimeSteps& record) {
  static const CNVX3DFillPackTimeSteps kDefaults;
  std::vector<std::string> lines[] = {record.ShellFillLines, record.ShellPackLines,
                                      record.FillOutputTimesLines, record.PackOutputTimesLines};
  record = kDefaults;
  record.ShellFillLines = std::move(lines[0]);
  record.ShellPackLines = std::move(lines[1]);
  record.FillOutputTimesLines = std::move(lines[2]);
  record.PackOutputTimesLines = std::move(lines[3]);
}

void SetAnalysisMode(CNVX3DFillPackTimeSteps& r, std::int32_t mode) {
  r.IDAnalysisMode = mode;
  if (mode == 0) {
    r.FlagNonIsothermal = r.FlagViscousHeating = r.FlagNonNewtonian = r.FlagStabilizer = 1;
  } else if (mode == 1) {
    r.FlagNonIsothermal = r.FlagViscousHeating = 0;
  }
}

void SetEstimateFiber(CNVX3DComputationImpl& impl, std::int32_t value) {
  impl.sections.fillPack->FlagEstimateFiber = value;
  if (impl.sections.warp) impl.sections.warp->FlagFiberEffect = value;
  if (impl.sections.stress) impl.sections.stress->FlagFiberEffect = value;
}

}  // namespace nvx
