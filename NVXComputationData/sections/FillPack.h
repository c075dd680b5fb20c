// The fill-and-pack record: one CNVX3DFillPackTimeSteps holds every filling and
// packing setting of shell and solid projects (sections <SOLID_FILL>,
// <SOLID_PACK>, <SHELL_FILL>, <SHELL_PACK>, <FILL_OUTPUT_TIMES>,
// <PACK_OUTPUT_TIMES>), plus the memory-only crystallization record.
#ifndef NVX_SECTIONS_FILLPACK_H_
#define NVX_SECTIONS_FILLPACK_H_

#include <cstdint>
#include <string>
#include <vector>

#include "core/OutputTimes.h"
#include "core/SectionDef.h"

// Fields shared by all fill and pack sections. Because the solid and shell
// parts derive from it virtually, it exists once in the record: SOLID_FILL and
// SHELL_FILL share the fill trio, SOLID_PACK and SHELL_PACK the pack trio, and
// whichever section is read later wins.
class CNVX3DFillPackBase {
 public:
  virtual ~CNVX3DFillPackBase() = default;

  // Fill trio and the two estimate flags.
  std::int32_t Version = 0;
  std::int32_t IDSolver = 0;
  std::int32_t FlagSolverAcceleration = 0;
  std::int32_t FlagEstimateFiber = 0;
  std::int32_t FlagEstimateCrystall = 0;  // SOLID_FILL only

  // Pack trio (declared in this order) and the solid-pack fields.
  std::int32_t PackIDSolver = 0;
  std::int32_t PackVersion = 0;
  std::int32_t PackFlagSolverAcceleration = 0;
  std::int32_t FlagexPackingCalculation = 0;
  std::int32_t FlagexPackingType = 0;
  double ValueexPackingCrystal = -20.0;
  double ValueexPackingNoCrystal = -20.0;

  // Fill output times. FlagFillMultiOutputType is 0-based here, 1-based in files.
  std::int32_t FillTimesVersion = 0;
  std::int32_t FlagAutoLoadIntermediateResult = 0;
  std::int32_t FlagFillMultiOutputType = 0;
  double ValueCheckIntermediteTimeSpan = 0.0;
  nvx::OutputTimes FillTimes;
  // Pack output times.
  std::int32_t PackTimesVersion = 0;
  nvx::OutputTimes PackTimes;

  // Free text lines written at the end of their sections; never read.
  std::vector<std::string> ShellFillLines;
  std::vector<std::string> ShellPackLines;
  std::vector<std::string> FillOutputTimesLines;
  std::vector<std::string> PackOutputTimesLines;

  // Memory-only settings of the host's solver dialog.
  std::int32_t FlowSolver = 0;
  double AccurencyPerferenceFlowSolver = 0.0;
  std::int32_t CriterionForStoppingCalculation = 0;
  double StopFillPercentage = 0.0;
  double StopFillPercentageShown = 0.0;
  std::int32_t StopFillPercentageOption = 0;
  std::int32_t EstimateRequireCoolingTime = 0;
};

class CNVX3DSolidFillPack : public virtual CNVX3DFillPackBase {
 public:
  ~CNVX3DSolidFillPack() override = default;

  std::int32_t IDAnalysisMode = 0;
  double IDEfficiencyFactor = 1.0;  // a double despite its "ID" prefix
  std::int32_t IDFiberEfficiencyFactor = 1;
  bool FlagInertia = false;
  std::int32_t FlagNonIsothermal = 1;
  std::int32_t FlagNonNewtonian = 1;
  std::int32_t FlagViscousHeating = 1;
  std::int32_t FlagStabilizer = 0;
  std::int32_t FlagCompressibleFlow = 0;
  std::int32_t FlagFlowVEcoupling = 0;
  std::int32_t FlagEstimateCoolTime = 0;
  std::int32_t FlagStopPackingAfterGateFreeze = 0;
  std::int32_t FlagGateFreezeByTemperature = 0;
  double ValueGateFreezeByTemperature = 120.0;
  std::int32_t FlagGateFreezeByFlowRate = 0;
  double ValueGateFreezeByFlowRate = 0.1;
  std::int32_t FlagGateFreezeByWeightDeviation = 0;
  double ValueGateFreezeByWeightDeviation = 0.1;
  std::int32_t FlagOutputTecplot = 0;
  std::int32_t FlagOutputFEMAP = 0;
  std::int32_t FlagOutputHyperMesh = 0;
  std::int32_t FlagOutputHyperMeshAvi = 0;
  std::int32_t UseTemperatureDLL = 0;
  double ValueGravityX = 0.0;
  double ValueGravityY = 0.0;
  double ValueGravityZ = 0.0;
  double ValueEOFPercent = 0.9995;  // a fraction, not a percentage
  double ValueUIEOFPercent = 0.9995;
  std::int32_t FlagExcludeRunnerEOFPercent = 1;
  std::int32_t ValueUnFilledElement = 10;
  std::int32_t IDStopCalculateCriterionType = 1;
  std::int32_t FlagVentingAnalysis = 0;
  double VentingTemperature = 30.0;
  double VentingPressure = 0.1;
  std::int32_t FlagCoreShiftMethod = 0;
  std::int32_t FlagParticleTracer = 0;
  std::int32_t ValueParticleGroup = 10;
  std::int32_t FlagWeldingLineParticleTracer = 0;
  double FlagStressSolverVolume = 0.05;  // a double despite its "Flag" prefix
  std::int32_t FlagFlowEfficiencyFactor = 0;
  std::int32_t Flag2WayPaddleShiftMethod = 0;
  bool FlagConsiderIMDBC = false;
};

class CNVX3DShellFillPack : public virtual CNVX3DFillPackBase {
 public:
  ~CNVX3DShellFillPack() override = default;

  std::int32_t ValueNoFlowLayer = 12;
};

class CNVX3DFillPackTimeSteps : public CNVX3DSolidFillPack, public CNVX3DShellFillPack {
 public:
  ~CNVX3DFillPackTimeSteps() override = default;
};

// Crystallization parameters: memory only, in no file.
struct CNVX3DCrystalLine {
  std::int32_t Version = 1001;
  std::int32_t FlagCrystalline = 0;
  std::int32_t FlagModeling = 0;
  double InductionTimeM = 5.99e18;
  double InductionAlpha = 10.0;
  double HalfCrystallTime0 = 2070000.0;
  double CrystallParaN = 3.0;
  double SpheruliteGrowthRate = 299000.0;
  double BalanceTm0 = 172.0;
  double DTg = -10.0;
  double ShiftC1 = 10.0;
  double ShiftC2 = 5500.0;
  std::vector<double> List;
};

namespace nvx {

extern const SectionDef kSolidFillSection;
extern const SectionDef kSolidPackSection;
extern const SectionDef kShellFillSection;
extern const SectionDef kShellPackSection;
extern const SectionDef kFillOutputTimesSection;
extern const SectionDef kPackOutputTimesSection;

// Puts every setting back to its default; the free text lines stay.
void ResetFillPack(CNVX3DFillPackTimeSteps& record);

// Stores the analysis mode and resets the flow-model flags it implies.
void SetAnalysisMode(CNVX3DFillPackTimeSteps& record, std::int32_t mode);
// Stores the fibre flag and mirrors it into the warpage and stress records.
void SetEstimateFiber(CNVX3DComputationImpl& impl, std::int32_t value);

}  // namespace nvx

#endif  // NVX_SECTIONS_FILLPACK_H_
