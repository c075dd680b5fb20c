// CNVX3DComputation: the exported parameter object of a 3D injection-molding
// project. A host creates one per project, loads it from the project's KRN file
// (LoadKRNFile), reads and changes parameters through the accessors below, and
// writes them back as a KRN file (WriteKRNFile) and into the project's RSV file
// (WriteRSVFile).
//
// Conventions: setters store any value and never validate. Getters come in
// three shapes: the value as the result; the value through a reference plus an
// int or bool result (which is not a status in general: each block says what
// it is); the value through a reference with no result. A list index outside
// the list throws std::out_of_range("invalid vector<T> subscript").
//
// Accessors are grouped by KRN section, one block per tag.
#ifndef NVX_API_NVX3DCOMPUTATION_H_
#define NVX_API_NVX3DCOMPUTATION_H_

#include <string>

#include "NVXData.h"
#include "NVXHostHooks.h"

class CNVX3DComputationImpl;

class NVX_API CNVX3DComputation {
 public:
  // ---- Lifecycle, loading and writing -------------------------------------
  CNVX3DComputation();
  ~CNVX3DComputation();
  // Copies every member as it stands, the implementation pointer included: the
  // two objects then share one implementation object, and only one of them may
  // be destroyed. This shallow copy is what hosts rely on.
  CNVX3DComputation& operator=(const CNVX3DComputation& other);
  CNVX3DComputation(const CNVX3DComputation&) = delete;

  // The main load: takes over the description, resets every section to the
  // defaults of the model kind, then reads the project's KRN file (or the
  // per-user template when the file is missing). False only when the file
  // exists and the description is invalid.
  bool LoadKRNFile(NVXData data);
  // Reads a plain KRN file into the sections; false when it does not exist.
  bool LoadKRNFile(const char* path);
  bool IsFileExists();
  // Writes the KRN file with the writer of the load mode; with asTemplate 1 (or
  // in template mode) also the per-user template, whose result is returned.
  // A file that cannot be opened for writing ends the process with status 1.
  bool WriteKRNFile(std::string path, int asTemplate);
  bool WriteKrnAsTemplate();
  void CanAddPage();
  void SetHasTemplateMode(bool templateMode);
  bool GetIsTemplateMode();
  void SetRSVFilePath(std::string path);
  bool ReadRSVFile();
  bool WriteRSVFile();

  // ---- Generic members -----------------------------------------------------
  int GetMode();
  void SetMode(int mode);
  int GetDefaultMode();
  void SetDefaultMode(int mode);
  int GetFlowSolver();
  void SetFlowSolver(int solver);
  double GetAccurencyPerferenceFlowSolver();
  void SetAccurencyPerferenceFlowSolver(double accuracy);
  // Returns 0 and resets the stored criterion to 0: a getter that clears.
  int GetCriterionForStoppingCalculation();
  void SetCriterionForStoppingCalculation(int criterion);
  void SetCriterionForStoppingCalculationByFillPercentage(double percentage, int option);
  void GetCriterionForStoppingCalculationByFillPercentage(double& percentage, int& option);
  void SetCriterionForStoppingCalculationByUnFilledElementCount(int count);
  void GetCriterionForStoppingCalculationByUnFilledElementCount(int& count);
  int GetEstimateRequireCoolingTime();
  void SetEstimateRequireCoolingTime(int estimate);
  // Output-time pages: 0 fill, 1 pack, 2 cool, 3 open (other pages: setters do nothing,
  // getters return 0). GetTimeSteps returns the count.
  void SetTimeSteps(int page, int count);
  int GetTimeSteps(int& page);
  void SetTimeStepValue(int page, int index, double value);
  double GetTimeStepValue(int page, int index);
  // Generic members reaching the cooling, warpage and stress records.
  // Without an implementation object these getters return 0 or false and the
  // setters do nothing. SetAutoCoolingTimeSetting does nothing at all, on
  // purpose. The resolution level type is memory only: the reset sets it from
  // the machine's physical memory.
  int GetResLevelType();
  void SetResLevelType(int type);
  bool GetAutoCoolingTimeSetting();
  void SetAutoCoolingTimeSetting(bool flag);
  bool GetMultiTimeStepsForAllCycle();
  void SetMultiTimeStepsForAllCycle(bool flag);
  int GetRemoveRunnerInCaclulation();
  void SetRemoveRunnerInCaclulation(int flag);
  int GetConsiderInMoldConstraintEffect();
  void SetConsiderInMoldConstraintEffect(int flag);
  int GetAnnealingCycleNumber();
  void SetAnnealingCycleNumer(int count);

  // Generic members reaching the advanced filling records.
  // The version of the slip boundary record (0 without an implementation).
  int GetVersion();
  void SetVersion(int version);

  // Generic members reaching the viscoelastic, optics, IC and multi-component
  // records.

  // Generic members reaching the computing-resource records. Unlike the
  // section accessors they do nothing and return 0 without an implementation
  // object. Second names for IDTaskMode ("Molde" as the interface spells it),
  // ValueLocalNoTask and ValueComputingManagerNoTask.
  int GetComputationMolde();
  void SetComputationMolde(int mode);
  int GetLocalHostModeCPUNumber();
  void SetLocalHostModeCPUNumber(int count);
  int GetComputingManagerCPUNumber();
  void SetComputingManagerModeCPUNumber(int count);

  // ---- <SUMMARY> -------------------------------------------------------------
  // Getters return 1, except GetSummaryVersion, which returns the version.
  int GetSummaryFile(std::wstring& file);
  void SetSummaryFile(std::wstring file);
  int GetSummaryVersion(int& version);
  void SetSummaryVersion(int version);
  int GetSummaryCreater(std::string& creater);
  void SetSummaryCreater(std::string creater);
  int GetSummaryTime(std::string& time);
  void SetSummaryTime(std::string time);
  int GetSummaryFlag3D(bool& flag);
  void SetSummaryFlag3D(bool flag);
  int GetSummaryFlagFill(bool& flag);
  void SetSummaryFlagFill(bool flag);
  int GetSummaryFlagHRSteady(bool& flag);
  void SetSummaryFlagHRSteady(bool flag);
  int GetSummaryFlagPack(bool& flag);
  void SetSummaryFlagPack(bool flag);
  int GetSummaryFlagCool(bool& flag);
  void SetSummaryFlagCool(bool flag);
  int GetSummaryFlagWarp(bool& flag);
  void SetSummaryFlagWarp(bool flag);
  int GetSummaryFlagOptic(bool& flag);
  void SetSummaryFlagOptic(bool flag);
  int GetSummaryFlagICPackage(bool& flag);
  void SetSummaryFlagICPackage(bool flag);
  int GetSummaryFlagMCM(bool& flag);
  void SetSummaryFlagMCM(bool flag);
  int GetSummaryFlagStress(bool& flag);
  void SetSummaryFlagStress(bool flag);
  int GetSummaryFlagTaskManager(bool& flag);
  void SetSummaryFlagTaskManager(bool flag);

  // ---- <SHELL_FILL> ----------------------------------------------------------
  // Rows 1 to 4 share their fields (and their getters) with <SOLID_FILL>.
  // Getters return true.
  bool GetShellFillVersion(int& version);
  void SetShellFillVersion(int version);
  bool GetShellFillIDSolver(int& solver);
  void SetShellFillIDSolver(int solver);
  bool GetShellFillSolverAcceleration(int& flag);
  void SetShellFillSolverAcceleration(int flag);
  bool GetShellFillEstimateFiber(int& flag);
  // Also sets the warpage and stress fiber-effect flags.
  void SetShellFillEstimateFiber(int flag);
  bool GetShellFillValueNoFlowLayer(int& layers);
  void SetShellFillValueNoFlowLayer(int layers);

  // ---- <SHELL_PACK> ----------------------------------------------------------
  // The pack trio, shared with <SOLID_PACK>. Getters return 1.
  int GetShellPackVersion(int& version);
  void SetShellPackVersion(int version);
  int GetShellPackidSolver(int& solver);
  void SetShellPackidSolver(int solver);
  int GetShellPackFlagAcceleration(int& flag);
  void SetShellPackFlagAcceleration(int flag);

  // ---- <SOLID_FILL> ----------------------------------------------------------
  // Getters with a reference return 1, except the four fill-trio getters (true).
  bool GetSolidFillVersion(int& version);
  void SetSolidFillVersion(int version);
  bool GetSolidFillIDSolver(int& solver);
  void SetSolidFillIDSolver(int solver);
  int GetSolidFillIDAnalysisMode(int& mode);
  // Mode 0 sets the non-isothermal, viscous-heating, non-Newtonian and
  // stabilizer flags to 1; mode 1 clears the first two.
  void SetSolidFillIDAnalysisMode(int mode);
  int GetSolidFillIDEfficiencyFactor(double& factor);
  void SetSolidFillIDEfficiencyFactor(double factor);
  int GetSolidFillIDFiberEfficiencyFactor(int& factor);
  void SetSolidFillIDFiberEfficiencyFactor(int factor);
  bool GetSolidFillSolverAcceleration(int& flag);
  void SetSolidFillSolverAcceleration(int flag);
  int GetSolidFillFlagInertia(bool& flag);
  void SetSolidFillFlagInertia(bool flag);
  int GetSolidFillFlagNonIsothermal(int& flag);
  void SetSolidFillFlagNonIsothermal(int flag);
  int GetSolidFillFlagNonNewtonian(int& flag);
  void SetSolidFillFlagNonNewtonian(int flag);
  int GetSolidFillFlagViscousHeating(int& flag);
  void SetSolidFillFlagViscousHeating(int flag);
  int GetSolidFillFlagStabilizer(int& flag);
  void SetSolidFillFlagStabilizer(int flag);
  int GetSolidFillFlagCompressibleFlow(int& flag);
  void SetSolidFillFlagCompressibleFlow(int flag);
  int GetSolidFillFlagEstimateCoolTime(int& flag);
  void SetSolidFillFlagEstimateCoolTime(int flag);
  bool GetSolidFillEstimateFiber(int& flag);
  // Both also set the warpage and stress fiber-effect flags.
  void SetSolidFillEstimateFiber(int flag);
  void SetMaterialHasFiber(int flag);
  int GetFlagEstimateCrystall();
  void SetFlagEstimateCrystall(int flag);
  void SetMaterialCrystall(int flag);
  int GetSolidFillFlagStopPackingAfterGateFreeze(int& flag);
  void SetSolidFillFlagStopPackingAfterGateFreeze(int flag);
  int GetSolidFillFlagGateFreezeByTemperature(int& flag);
  void SetSolidFillFlagGateFreezeByTemperature(int flag);
  int GetSolidFillValueGateFreezeByTemperature(double& value);
  void SetSolidFillValueGateFreezeByTemperature(double value);
  int GetSolidFillFlagGateFreezeByFlowRate(int& flag);
  void SetSolidFillFlagGateFreezeByFlowRate(int flag);
  int GetSolidFillValueGateFreezeByFlowRate(double& value);
  void SetSolidFillValueGateFreezeByFlowRate(double value);
  int GetSolidFillFlagGateFreezeByWeightDeviation(int& flag);
  void SetSolidFillFlagGateFreezeByWeightDeviation(int flag);
  int GetSolidFillValueGateFreezeByWeightDeviation(double& value);
  void SetSolidFillValueGateFreezeByWeightDeviation(double value);
  // Flag/value pairs of the three gate-freeze criteria; without an
  // implementation object they do nothing.
  void GetFreezeTemperature(int& flag, double& value);
  void SetFreezeTemperature(int flag, double value);
  void GetFlowRate(int& flag, double& value);
  void SetFlowRate(int flag, double value);
  void GetPartWeightDeviation(int& flag, double& value);
  void SetPartWeightDeviation(int flag, double value);
  int GetSolidFillFlagOutputTecplot(int& flag);
  void SetSolidFillFlagOutputTecplot(int flag);
  int GetSolidFillFlagOutputFEMAP(int& flag);
  void SetSolidFillFlagOutputFEMAP(int flag);
  int GetSolidFillFlagOutputHyperMesh(int& flag);
  void SetSolidFillFlagOutputHyperMesh(int flag);
  int GetSolidFillFlagOutputHyperMeshAvi(int& flag);
  void SetSolidFillFlagOutputHyperMeshAvi(int flag);
  int GetSolidFillUseTemperatureDLL(int& flag);
  void SetSolidFillUseTemperatureDLL(int flag);
  int GetSolidFillValueGravityX(double& value);
  void SetSolidFillValueGravityX(double value);
  int GetSolidFillValueGravityY(double& value);
  void SetSolidFillValueGravityY(double value);
  int GetSolidFillValueGravityZ(double& value);
  void SetSolidFillValueGravityZ(double value);
  int GetSolidFillValueEOFPercent(double& fraction);
  void SetSolidFillValueEOFPercent(double fraction);
  int GetSolidFillValueUIEOFPercent(double& fraction);
  void SetSolidFillValueUIEOFPercent(double fraction);
  int GetSolidFillFlagExcludeRunnerEOFPercent(int& flag);
  void SetSolidFillFlagExcludeRunnerEOFPercent(int flag);
  int GetSolidFillValueUnFilledElement(int& count);
  void SetSolidFillValueUnFilledElement(int count);
  int GetSolidFillIDStopCalculateCriterionType(int& type);
  void SetSolidFillIDStopCalculateCriterionType(int type);
  int GetSolidFillFlagVentingAnalysis(int& flag);
  void SetSolidFillFlagVentingAnalysis(int flag);
  int GetSolidFIllVentingTemperature(double& temperature);
  void SetSolidFillVentingTemperature(double temperature);
  int GetSolidFIllVentingPressure(double& pressure);
  void SetSolidFIllVentingPressure(double pressure);
  int GetSolidFIllFlagCoreShiftMethod(int& method);
  void SetSolidFIllFlagCoreShiftMethod(int method);
  void GetStressSolverVolume(double& volume);
  void SetStressSolverVolume(double volume);
  int GetFlowParticleTracer(int& flag);
  void SetFlowParticleTracer(int flag);
  int GetFlowParticleTracerGroupCount(int& groups);
  void SetFlowParticleTracerGroupCount(int groups);
  int GetSolidFillFlagFlowVECoupling(int& flag);
  void SetSolidFillFlagFlowVECoupling(int flag);
  int GetWeldLineParticle();
  void SetWeldLineParticle(int flag);
  int GetFlagFlowEfficiencyFactor();
  void SetFlagFlowEfficiencyFactor(int flag);
  int GetFlag2WayPaddleShiftMethod();
  void SetFlag2WayPaddleShiftMethod(int flag);
  bool GetSolidFillFlagConsiderIMDBC();
  void SetSolidFillFlagConsiderIMDBC(bool flag);

  // Crystallization parameters (memory only, in no file).
  void GetCrystalLineVersion(int& version);
  void SetCrystalLineVersion(int version);
  void GetFlagCrystalline(int& flag);
  void SetFlagCrystalline(int flag);
  void GetCrystalLineFlafModeling(int& flag);
  void SetCrystalLineFlafModeling(int flag);
  void GetdInduction_TimeM(double& value);
  void SetdInduction_TimeM(double value);
  void GetInduction_Alpha(double& value);
  void SetInduction_Alpha(double value);
  void GetHalfCrystall_Time_0(double& value);
  void SetHalfCrystall_Time_0(double value);
  void GetCrystallPara_n(double& value);
  void SetCrystallPara_n(double value);
  void GetSpherulite_GrowthRate(double& value);
  void SetSpherulite_GrowthRate(double value);
  void GetBalance_Tm0(double& value);
  void SetBalance_Tm0(double value);
  void GetDTg(double& value);
  void SetDTg(double value);
  void GetShift_C1(double& value);
  void SetShift_C1(double value);
  void GetShift_C2(double& value);
  void SetShift_C2(double value);

  // ---- <SOLID_PACK> ----------------------------------------------------------
  // Rows 1 to 3 are the pack trio shared with <SHELL_PACK>. Getters return 1.
  int GetSolidPackVersion(int& version);
  void SetSolidPackVersion(int version);
  int GetSolidPackidSolver(int& solver);
  void SetSolidPackidSolver(int solver);
  int GetSoliodPackFlagSovlerAcceleration(int& flag);
  void SetSoliodPackFlagSovlerAcceleration(int flag);
  void GetPackFlagExPackingCalculation(int& flag);
  void SetPackFlagExPackingCalculation(int flag);
  int GetFlagexPackingType();
  void SetFlagexPackingType(int type);

  // ---- <FILL_OUTPUT_TIMES> ---------------------------------------------------
  // Getters return 1. Indices are 0-based and bounds-tested.
  int GetFillOutputTimesSectionVersion(int& version);
  void SetFillOutputTimesSectionVersion(int version);
  int GetFillOutputTimesSectionFlagAutoLoadIntermediateResult(int& flag);
  void SetFillOutputTimesSectionFlagAutoLoadIntermediateResult(int flag);
  int GetFillOutputTimesSectionFillMultiOutputType(int& type);
  void SetFillOutputTimesSectionFillMultiOutputType(int type);
  int GetFillOutputTimesSectionValueCheckIntermediteTimeSpan(double& span);
  void SetFillOutputTimesSectionValueCheckIntermediteTimeSpan(int span);
  int GetFillOutputTimesSectionFillTimeSteps(int& count);
  // Appends zeros or drops times from the end by the difference to the
  // stored count, then stores the count.
  void SetFillOutputTimesSectionFillTimeSteps(int count);
  int GetFillOutputTimesSectionFillTimeStepsValue(int index, double& time);
  void SetFillOutputTimesSectionFillTimeStepsValue(int index, double time);

  // ---- <PACK_OUTPUT_TIMES> ---------------------------------------------------
  int GetPackOutputTimeVersion(int& version);
  void SetPackOutputTimeVersion(int version);
  // Fills the count; its result means nothing.
  int GetPackOutputTimesSectionFillTimeSteps(int& count);
  void SetPackOutputTimesSectionFillTimeSteps(int count);
  int GetPackOutputTimesSectionFillTimeStepsValue(int index, double& time);
  void SetPackOutputTimesSectionFillTimeStepsValue(int index, double time);

  // ---- <SHELL_COOL> ---------------------------------------------------------
  // One record behind <SHELL_COOL> and <SOLID_COOL>: shell and solid names
  // reach the same fields. Getters return the value just fetched (a flag as 0
  // or 1) unless noted. Deliberate: the IDSolver pair works on the version;
  // GetShellCoolValueAutoSetCoolTimeTolerance takes the double by value,
  // changes nothing and returns 1; SetCanDoCoolPipeline sets the network flag.
  int GetShellCoolVersion(int& version);
  void SetShellCoolVersion(int version);
  int GetShellCoolIDSolver(int& version);
  void SetShellCoolIDSolver(int version);
  int GetShellCoolFlagSolverAcceleration(bool& flag);
  void SetShellCoolFlagSolverAcceleration(bool flag);
  int GetShellCoolFlagParallelCompute(bool& flag);
  void SetShellCoolFlagParallelCompute(bool flag);
  int GetShellCoolFlagNetworkAnalysis(bool& flag);
  void SetShellCoolFlagNetworkAnalysis(bool flag);
  void SetCanDoCoolPipeline(bool flag);
  int GetShellCoolFlagAutoSetCoolTime(bool& flag);
  void SetShellCoolFlagAutoSetCoolTime(bool flag);
  int GetShellCoolValueAutoSetCoolTimeMaxIteration(int& iterations);
  void SetShellCoolValueAutoSetCoolTimeMaxIteration(int iterations);
  int GetShellCoolValueAutoSetCoolTimeTolerance(double tolerance);
  void SetShellCoolValueAutoSetCoolTimeTolerance(double tolerance);
  int GetShellCoolFlagAutoSetCoolTimeExcludeRunner(int& flag);
  void SetShellCoolFlagAutoSetCoolTimeExcludeRunner(int flag);

  // ---- <SOLID_COOL> ---------------------------------------------------------
  // Getters with a reference return the value, except those of the tolerances,
  // the cooling-channel flag and the hot-runner flag, which return 1; the
  // turbulence pair returns nothing. SetCanDoConformalCooling sets the
  // cooling-channel flag. The preheat settings are in KRN only.
  int GetSolidCoolVersion(int& version);
  void SetSolidCoolVersion(int version);
  int GetSolidCoolIDSolver(int& solver);
  void SetSolidCoolIDSolver(int solver);
  int GetSolidCoolFlagSolverAcceleration(bool& flag);
  void SetSolidCoolFlagSolverAcceleration(bool flag);
  int GetSolidCoolFlagParallelCompute(bool& flag);
  void SetSolidCoolFlagParallelCompute(bool flag);
  int GetSolidCoolFlagNetworkAnalysis(bool& flag);
  void SetSolidCoolFlagNetworkAnalysis(bool flag);
  int GetSolidCoolFlagAutoSetCoolTime(bool& flag);
  void SetSolidCoolFlagAutoSetCoolTime(bool flag);
  int GetSolidCoolValueAutoSetCoolTimeMaxIteration(int& iterations);
  void SetSolidCoolValueAutoSetCoolTimeMaxIteration(int iterations);
  int GetSolidCoolValueAutoSetCoolTimeTolerance(double& tolerance);
  void SetSolidCoolValueAutoSetCoolTimeTolerance(double tolerance);
  int GetSolidCoolFlagAutoSetCoolTimeExcludeRunner(int& flag);
  void SetSolidCoolFlagAutoSetCoolTimeExcludeRunner(int flag);
  int GetCoolRun3DSolidCoolingChannelAnalysis(bool& flag);
  void SetCoolRun3DSolidCoolingChannelAnalysis(bool flag);
  void SetCanDoConformalCooling(bool flag);
  void Get3DSolidCoolingTurbulence(int& turbulence);
  void Set3DSolidCoolingTurbulence(int turbulence);
  void GetValue3DSolidCoolingTurbulenceRoughness(double& roughness);
  void SetValue3DSolidCoolingTurbulenceRoughness(double roughness);
  int GetSolidCoolFlagAdvancedHotRunner(bool& flag);
  void SetSolidCoolFlagAdvancedHotRunner(bool flag);
  bool GetFlagSteadyState();
  void SetFlagSteadyState(bool flag);
  int GetSolidCoolFlagMultipleTimeForAllProc(bool& flag);
  void SetSolidCoolFlagMultipleTimeForAllProc(bool flag);
  int GetSolidCoolValueMaxCycleNumber(int& cycles);
  void SetSolidCoolValueMaxCycleNumber(int cycles);
  int GetSolidCoolValueConvergeType(int& type);
  void SetSolidCoolValueConvergeType(int type);
  int GetSolidCoolValueConvergeUnit(int& unit);
  void SetSolidCoolValueConvergeUnit(int unit);
  int GetSolidCoolValueMaxTempVariationTolerance(double& tolerance);
  void SetSolidCoolValueMaxTempVariationTolerance(double tolerance);
  int GetSolidCoolValueMaxPartSurfTempVariationTolerance(double& tolerance);
  void SetSolidCoolValueMaxPartSurfTempVariationTolerance(double tolerance);
  int GetSolidCoolValueMaxMBInnerTempVariationTolerance(double& tolerance);
  void SetSolidCoolValueMaxMBInnerTempVariationTolerance(double tolerance);
  bool GetFlagAutoAdiabaticLayer();
  void SetFlagAutoAdiabaticLayer(bool flag);
  bool GetFlagPreheatAverageTemp();
  void SetFlagPreheatAverageTemp(bool flag);
  bool GetFlagPreheatHighestTemp();
  void SetFlagPreheatHighestTemp(bool flag);
  bool GetFlagPreheatLowestTemp();
  void SetFlagPreheatLowestTemp(bool flag);
  double GetValuePreheatAverageTempVariation();
  void SetValuePreheatAverageTempVariation(double variation);
  double GetValuePreheatHighestTempVariation();
  void SetValuePreheatHighestTempVariation(double variation);
  double GetValuePreheatLowestTempVariation();
  void SetValuePreheatLowestTempVariation(double variation);

  // ---- <COOL_OUTPUT_TIMES> --------------------------------------------------
  // Getters return the value, except the time span and time getters (1).
  // Count setters append zeros or drop times from the end by the difference
  // to the stored count. Indices are 0-based and tested against the list.
  int GetCoolOutPutTimeVersion(int& version);
  void SetCoolOutPutTimeVersion(int version);
  int GetCoolOutPutTimeFlagAutoLoadIntermediateResult(bool& flag);
  void SetCoolOutPutTimeFlagAutoLoadIntermediateResult(bool flag);
  int GetCoolOutPutTimeValueCheckIntermediteTimeSpan(double& span);
  void SetCoolOutPutTimeValueCheckIntermediteTimeSpan(double span);
  int GetValueNoCoolOutPutTimesteps(int& count);
  void SetValueNoCoolOutputTimeSteps(int count);
  int GetValueNoCoolOutputTimeStepValue(int index, double& time);
  void SetValueNoCoolOutputTimeStepValue(int index, double time);

  // ---- <MoldPreheat_OUTPUT_TIMES> -------------------------------------------
  // Unlike the cool and open getters these return their values directly; the
  // time getter fills its reference and returns nothing.
  int GetMoldPreheatOutputTimeVersion();
  void SetMoldPreheatOutputTimeVersion(int version);
  bool GetMoldPreheatOutputTimeFlagAutoLoadIntermediateResult();
  void SetMoldPreheatOutputTimeFlagAutoLoadIntermediateResult(bool flag);
  double GetMoldPreheatOutputTimeValueCheckIntermediteTimeSpan();
  void SetMoldPreheatOutputTimeValueCheckIntermediteTimeSpan(double span);
  int GetMoldPreheatTimeSteps();
  void SetMoldPreheatTimeSteps(int count);
  void GetMoldPreheatTimeStepsValue(int index, double& time);
  void SetMoldPreheatTimeStepsValue(int index, double time);

  // ---- <OPEN_OUTPUT_TIMES> --------------------------------------------------
  // As the cool output times: the version and count getters return the value,
  // the time getter 1.
  int GetOpenOutPutTimeVersion(int& version);
  void SetOpenOutPutTimeVersion(int version);
  int GetValueNoOpenOutPutTimesteps(int& count);
  void SetValueNoOpenOutputTimeSteps(int count);
  int GetValueNoOpenOutputTimeStepValue(int index, double& time);
  void SetValueNoOpenOutputTimeStepValue(int index, double time);

  // ---- <SHELL_WARP> ---------------------------------------------------------
  // One record behind <SHELL_WARP> and <SOLID_WARP>: shell and solid names
  // reach the same fields. Getters return 1.
  int GetShellWarpVersion(int& value);
  void SetShellWarpVersion(int value);
  int GetShellWarpIDSolver(int& value);
  void SetShellWarpIDSolver(int value);
  int GetShellWarpIDCompositeModel(int& value);
  void SetShellWarpIDCompositeModel(int value);
  int GetShellWarpFlagSolverAcceleration(int& value);
  void SetShellWarpFlagSolverAcceleration(int value);
  int GetShellWarpFlagRemoveRunner(int& value);
  void SetShellWarpFlagRemoveRunner(int value);
  int GetShellWarpFlagFiberEffect(int& value);
  void SetShellWarpFlagFiberEffect(int value);
  int GetShellWarpFlagHighOrderElement(int& value);
  void SetShellWarpFlagHighOrderElement(int value);
  int GetShellWarpFlagInMoldConstraint(int& value);
  void SetShellWarpFlagInMoldConstraint(int value);
  int GetShellWarpFlagMoldThermalDeformation(int& value);
  void SetShellWarpFlagMoldThermalDeformation(int value);
  int GetShellWarpValueMaxIteration(int& value);
  void SetShellWarpValueMaxIteration(int value);
  int GetShellWarpValueMinIterativeError(double& value);
  void SetShellWarpValueMinIterativeError(double value);
  int GetShellWarpValueIMCMedTH(double& value);
  void SetShellWarpValueIMCMedTH(double value);
  int GetShellWarpValueIMCMedWR(double& value);
  void SetShellWarpValueIMCMedWR(double value);
  int GetShellWarpValueIMCRelST(double& value);
  void SetShellWarpValueIMCRelST(double value);

  // ---- <SOLID_WARP> ---------------------------------------------------------
  // Getters return 1, except the residual-stress and shrinkage-type getters,
  // which return the value.
  int GetSolidWarpVersion(int& value);
  void SetSolidWarpVersion(int value);
  int GetSolidWarpIDSolver(int& value);
  void SetSolidWarpIDSolver(int value);
  int GetSolidWarpIDCompositeModel(int& value);
  void SetSolidWarpIDCompositeModel(int value);
  int GetSolidWarpFlagSolverAcceleration(int& value);
  void SetSolidWarpFlagSolverAcceleration(int value);
  int GetSolidWarpFlagRemoveRunner(int& value);
  void SetSolidWarpFlagRemoveRunner(int value);
  int GetSolidWarpFlagFiberEffect(int& value);
  void SetSolidWarpFlagFiberEffect(int value);
  int GetSolidWarpFlagHighOrderElement(int& value);
  void SetSolidWarpFlagHighOrderElement(int value);
  int GetSolidWarpFlagInMoldConstraint(int& value);
  void SetSolidWarpFlagInMoldConstraint(int value);
  int GetSolidWarpFlagMoldThermalDeformation(int& value);
  void SetSolidWarpFlagMoldThermalDeformation(int value);
  int GetSolidWarpValueMaxIteration(int& value);
  void SetSolidWarpValueMaxIteration(int value);
  int GetSolidWarpValueMinIterativeError(double& value);
  void SetSolidWarpValueMinIterativeError(double value);
  int GetSolidWarpValueIMCMedTH(double& value);
  void SetSolidWarpValueIMCMedTH(double value);
  int GetSolidWarpValueIMCMedWR(double& value);
  void SetSolidWarpValueIMCMedWR(double value);
  int GetSolidWarpValueIMCRelST(double& value);
  void SetSolidWarpValueIMCRelST(double value);
  int GetSolidWarpFlagEnhancedInMoldConstraint(bool& flag);
  void SetSolidWarpFlagEnhancedInMoldConstraint(bool flag);
  int GetSolidWarpFlagVEResidualStress(int& flag);
  void SetSolidWarpFlagVEResidualStress(int flag);
  int GetSolidWarpFlagRIMShrinkageType(int& type);
  void SetSolidWarpFlagRIMShrinkageType(int type);
  int GetFlagDifferentialEffect();
  void SetFlagDifferentialEffect(int flag);
  int GetFlagThermalDisplacement();
  void SetFlagThermalDisplacement(int flag);

  // ---- <SOLID_STRESS> -------------------------------------------------------
  // Getters with a reference return 1. The fibre flag's getter and setter are
  // spelt "FiberEffec". Weld-line angles are numbered 1 to 4 and reduction
  // rates 1 to 3; list rows and inserts are 0-based. Any number or index
  // outside throws std::out_of_range("invalid vector<T> subscript").
  int GetSolidStressVersion(int& value);
  void SetSolidStressVersion(int value);
  int GetSolidStressIDCompositeModel(int& value);
  void SetSolidStressIDCompositeModel(int value);
  int GetSolidStressFlagSolverAcceleration(int& value);
  void SetSolidStressFlagSolverAcceleration(int value);
  int GetSolidStressValueMaxIteration(int& value);
  void SetSolidStressValueMaxIteration(int value);
  int GetSolidStressFlagVEResidualStress(int& value);
  void SetSolidStressFlagVEResidualStress(int value);
  int GetSolidStressTransientStressCouplingType(int& value);
  void SetSolidStressTransientStressCouplingType(int value);
  int GetSolidStressFlagUserDefinedMaterial(int& value);
  void SetSolidStressFlagUserDefinedMaterial(int value);
  int GetSolidStressValueMinIterativeError(double& value);
  void SetSolidStressValueMinIterativeError(double value);
  int GetSolidStressValueGravityX(double& value);
  void SetSolidStressValueGravityX(double value);
  int GetSolidStressValueGravityY(double& value);
  void SetSolidStressValueGravityY(double value);
  int GetSolidStressValueGravityZ(double& value);
  void SetSolidStressValueGravityZ(double value);
  int GetSolidStressValueInitialTemperature(double& value);
  void SetSolidStressValueInitialTemperature(double value);
  int GetSolidStressValuedt(double& value);
  void SetSolidStressValuedt(double value);
  int GetSolidStressValueTimePeriod(double& value);
  void SetSolidStressValueTimePeriod(double value);
  int GetSolidStressValueHTC(double& value);
  void SetSolidStressValueHTC(double value);
  int GetSolidStressFlagFiberEffec(int& flag);
  void SetSolidStressFlagFiberEffec(int flag);
  int GetFlagWeldlineAnalysis(int& flag);
  void SetFlagWeldlineAnalysis(int flag);
  int GetSolidStressWeldlineAngle(int number, double& angle);
  void SetSolidStressWeldlineAngle(int number, double angle);
  int GetSolidStressReductionRate(int number, double& rate);
  void SetSolidStressReductionRate(int number, double rate);
  // The annealing profile: (time, temperature) rows.
  int GetSolidStressTempTimeCount();
  void SetSolidStressTempTimeCount(int rows);
  void GetSolidStressTempTime(int row, double& time, double& temperature);
  void SetSolidStressTempTime(int row, double time, double temperature);
  // The part's modulus over temperature: (temperature, modulus) rows.
  int GetSolidStressMatTempPartCount();
  void SetSolidStressMatTempPartCount(int rows);
  void GetSolidStressMatTempPart(int row, double& temperature, double& modulus);
  void SetSolidStressMatTempPart(int row, double temperature, double modulus);
  // Times at which stress results are written.
  int GetSolidStressOutPutTimingCount();
  void SetSolidStressOutPutTimingCount(int count);
  double GetSolidStressOutPutTiming(int index);
  void SetSolidStressOutPutTiming(int index, double time);
  // Part inserts (the part-insert material record): new inserts are numbered
  // on from the last one; each has (temperature, modulus) and (temperature,
  // expansion coefficient) rows.
  int GetPartInsertVersion();
  void SetPartInsertVersion(int version);
  int GetPartInsertCount();
  void SetPartInsertCount(int count);
  int GetPartInsertNumber(int insert);
  int GetPartInsertModulusCount(int insert);
  void SetPartInsertModulusCount(int insert, int rows);
  void GetPartInsertModulus(int insert, int row, double& temperature, double& modulus);
  void SetPartInsertModulus(int insert, int row, double temperature, double modulus);
  int GetPartInsertCLTECount(int insert);
  void SetPartInsertCLTECount(int insert, int rows);
  void GetPartInsertCLTE(int insert, int row, double& temperature, double& clte);
  void SetPartInsertCLTE(int insert, int row, double temperature, double clte);

  // ---- <FILL_ADVANCED_LONGFIBER> --------------------------------------------
  // Getters with an int result return 1 (0 without an implementation).
  // GetFiberBreakage/SetFiberBreakage reach "FlagScrewFiberBreakage", not
  // "FlagFiberBreakage" (deliberate), and the particle-diameter setter is
  // spelt with a small "d".
  int GetAdvancedFiberVersion(int& version);
  void SetAdvancedFiberVersion(int version);
  int GetAdvancedFiberOrthotropicClosureMethod(int& method);
  void SetAdvancedFiberOrthotropicClosureMethod(int method);
  int GetAdvancedFiberModifiedFactor(double& factor);
  void SetAdvancedFiberModifiedFactor(double factor);
  int GetAdvancedFiberDiffusionModelType(int& type);
  void SetAdvancedFiberDiffusionModelType(int type);
  int GetAdvancedFiberCf(double& cf);
  void SetAdvancedFiberCf(double cf);
  int GetAdvancedFiberCm(double& cm);
  void SetAdvancedFiberCm(double cm);
  int GetAdvancedb1(double& b1);
  void SetAdvancedb1(double b1);
  int GetAdvancedb2(double& b2);
  void SetAdvancedb2(double b2);
  int GetAdvancedb3(double& b3);
  void SetAdvancedb3(double b3);
  int GetAdvancedb4(double& b4);
  void SetAdvancedb4(double b4);
  int GetAdvancedb5(double& b5);
  void SetAdvancedb5(double b5);
  int GetFiberType(int& type);
  void SetFiberType(int type);
  int GetFiberRatio(double& ratio);
  void SetFiberRatio(double ratio);
  int GetFiberWeight(double& weight);
  void SetFiberWeight(double weight);
  void GetFlagFiberBreakage(bool& flag);
  void SetFlagFiberBreakage(bool flag);
  void GetValueFiberDiameter(double& diameter);
  void SetValueFiberDiameter(double diameter);
  void GetValueFiberBreakageCD(double& cd);
  void SetValueFiberBreakageCD(double cd);
  void GetValueFiberBreakageCB(double& cb);
  void SetValueFiberBreakageCB(double cb);
  void GetValueFiberBreakageS(double& s);
  void SetValueFiberBreakageS(double s);
  bool GetFiberBreakage();
  void SetFiberBreakage(bool flag);
  int GetHasConcertration();
  void SetHasConcertration(int flag);
  double GetParticleDiameter();
  void SetParticlediameter(double diameter);
  double GetAverageConcentration();
  void SetAverageConcentration(double concentration);
  double GetParticleFrictionIndex();
  void SetParticleFrictionIndex(double index);

  // ---- <FILL_ADVANCED_HRSteady> ---------------------------------------------
  // Getters with an int result return 1 (0 without an implementation), except
  // GetAdvancedHotRunnerSteadyGateInfo: 1 when `gate` is in the list and
  // `which` is 0 or 1, else 0 with `value` untouched. The gate count is the
  // number of gate lines written; it does not resize the list, and
  // SetAdvancedHotRunnerSteadyVectorSize does not change it.
  int GetAdvancedHRVersion(int& version);
  void SetAdvancedHRVersion(int version);
  int GetAdvancedHotRunnerSteadyFlowRate(double& rate);
  void SetAdvancedHotRunnerSteadyFlowRate(double rate);
  int GetAdvancedHotRunnerSteadyConvergenceCriteria(double& criteria);
  void SetAdvancedHotRunnerSteadyConvergenceCriteria(double criteria);
  int GetAdvancedHotRunnerSteadyNumberOfHotRunnerGate(int& count);
  void SetAdvancedHotRunnerSteadyNumberOfHotRunnerGate(int count);
  int GetAdvancedHotRunnerSteadyGateType(int& type);
  void SetAdvancedHotRunnerSteadyGateType(int type);
  // Resizes the gate list to `size` entries (new ones zero; negative: empty).
  void SetAdvancedHotRunnerSteadyVectorSize(int size);
  int GetAdvancedHotRunnerSteadyGateInfo(int gate, int which, double& value);
  void SetAdvancedHotRunnerSteadyGateInfo(int gate, int which, double value);

  // ---- <FILL_ADVANCED_MCIM> -------------------------------------------------
  // Getters return 1 (0 without an implementation). The gas solubility is
  // replaced on every LoadKRNFile(NVXData) from the per-user foaming material
  // table; its getter is spelt with a small "s", and ThresholdofBubbleFt is
  // reached as "Jt". FlagEstimateBubble has no RSV item: it survives only in
  // KRN files.
  int GetFoamingVersion(int& version);
  void SetFoamingVersion(int version);
  int GetFoamingFlagEstimateBubble(int& flag);
  void SetFoamingFlagEstimateBubble(int flag);
  int GetFoamingGasType(int& type);
  void SetFoamingGasType(int type);
  int GetFoamingBubbleType(int& model);
  void SetFoamingBubbleType(int model);
  int GetFoamingPolyMolecularWeight(double& weight);
  void SetFoamingPolyMolecularWeight(double weight);
  int GetFoamingDiffusionCoef(double& coefficient);
  void SetFoamingDiffusionCoef(double coefficient);
  int GetFoamingsolubilityParm(double& solubility);
  void SetFoamingSolubilityParm(double solubility);
  int GetFoamingSurfaceTension(double& tension);
  void SetFoamingSurfaceTension(double tension);
  int GetFoamingF0(double& f0);
  void SetFoamingF0(double f0);
  int GetFoamingF(double& f);
  void SetFoamingF(double f);
  int GetFoamingJt(double& threshold);
  void SetFoamingJt(double threshold);

  // ---- <FILL_ADVANCED_SlipBC> -----------------------------------------------
  // Getters return the value (0 or 0.0 without an implementation), unlike the
  // foaming getters. The version has no accessor here: GetVersion/SetVersion.
  int GetFlagSlipBC();
  void SetFlagSlipBC(int flag);
  int GetFlagSlipExcludeRunner();
  void SetFlagSlipExcludeRunner(int flag);
  double GetValueSlipCoeff();
  void SetValueSlipCoeff(double coefficient);
  double GetValueSlipFrictionForce();
  void SetValueSlipFrictionForce(double force);

  // ---- <SOLID_VE> -----------------------------------------------------------
  // Getters return the value. Setting the cool stage to exactly 1 also sets
  // the flow/pack stage flag to 1; other values leave it.
  void SetSolidVEVersion(int version);
  int GetSolidVEVersion(int& version);
  void SetSolidVEFlagEstimateFlowPackStage(int flag);
  int GetSolidVEFlagEstimateFlowPackStage(int& flag);
  void SetSolidVEFlagEstimateCoolStage(int flag);
  int GetSolidVEFlagEstimateCoolStage(int& flag);
  void SetSolidVEFlagEstimateEjection(int flag);
  int GetSolidVEFlagEstimateEjection(int& flag);

  // ---- <SOLID_VE_STRESS> ----------------------------------------------------
  // The VE stress record; getters return the value. "Trerss" and "Rnu" are
  // the interface's spelling. GetFlagConsiderWarp reaches the stress record's
  // own consider-warp field (in no file). The E0/time curve: SetE0Time sets
  // its point count (added points are (0, 0)); GetE0Time gives the count, 0
  // without a curve and -1 when its two lists differ; SetE0T ignores an index
  // outside the curve and GetE0T then leaves its outputs untouched.
  void SetVESTrerssVersion(int version);
  int GetVESTrerssVersion();
  void SetFlagRunVEMat(int flag);
  int GetFlagRunVEMat();
  void SetFlagConsiderStress(int flag);
  int GetFlagConsiderStress();
  void SetFlagConsiderWarp(int flag);
  int GetFlagConsiderWarp();
  void SetFlagRnuTimeTempSetting(int flag);
  int GetFlagRnuTimeTempSetting();
  void SetC1(double c1);
  double GetC1();
  void SetC2(double c2);
  double GetC2();
  void SetTref(double tref);
  double GetTref();
  void SetElasticModulusRatio(double ratio);
  double GetElasticModulusRatio();
  void SetE0Time(int count);
  void GetE0Time(int& count);
  void SetE0T(int index, double e0, double time);
  void GetE0T(int index, double& e0, double& time);

  // ---- <SOLID_VE_CURING_STRESS> ---------------------------------------------
  // The VE curing record; getters return the value. The curve is the "PARA"
  // point list and behaves as the E0/time curve of <SOLID_VE_STRESS>.
  void SetVEStressCuringVersion(int version);
  int GetVEStressCuringVersion();
  void SetVEStressModelType(int type);
  int GetVEStressModelType();
  void SetVEStressCuringParaConst(double value);
  double GetVEStressCuringParaConst();
  void SetVEStressCuringParaCount(int count);
  void GetVEStressCuringParacount(int& count);
  void SetVEStressCuringPara(int index, double first, double second);
  void GetVEStressCuringPara(int index, double& first, double& second);

  // ---- <SOLID_VE_WARP> ------------------------------------------------------
  // The VE warp record, as <SOLID_VE_STRESS>; getters return the value.
  void SetVEWarpVersion(int version);
  int GetVEWarpVersion();
  void SetFlagConsiderVEWarp(int flag);
  int GetFlagConsiderVEWarp();
  void SetVEWarpFlagRnuTimeTempSetting(int flag);
  int GetVEWarpFlagRnuTimeTempSetting();
  void SetVEWarpC1(double c1);
  double GetVEWarpC1();
  void SetVEWarpC2(double c2);
  double GetVEWarpC2();
  void SetVEWarpTref(double tref);
  double GetVEWarpTref();
  void SetVEWarpElasticModulusRatio(double ratio);
  double GetVEWarpElasticModulusRatio();
  void SetVEWarpE0Time(int count);
  void GetVEWarpE0Time(int& count);
  void SetVEWarpE0T(int index, double e0, double time);
  void GetVEWarpE0T(int index, double& e0, double& time);

  // ---- <SOLID_OPTIC> --------------------------------------------------------
  // Integer getters return the value; the bool getter returns 1.
  void SetSolidOpticVersion(int version);
  int GetSolidOpticVersion(int& version);
  void SetSolidOpticFlagEstimateOpticProperty(int flag);
  int GetSolidOpticFlagEstimateOpticProperty(int& flag);
  void SetSolidOpticFlagDarkField(int flag);
  int GetSolidOpticFlagDarkField(int& flag);
  void SetSolidOpticFlagLightField(int flag);
  int GetSolidOpticFlagLightField(int& flag);
  void SetSolidOpticFlagWhiteLight(int flag);
  int GetSolidOpticFlagWhiteLight(int& flag);
  void SetSolidOpticFlagRemoveRunner(int flag);
  int GetSolidOpticFlagRemoveRunner(int& flag);
  void SetSolidOpticFlagMonochromaticWaveLength(int flag);
  int GetSolidOpticFlagMonochromaticWaveLength(int& flag);
  void SetSolidOpticValueMonochromaticWaveLength(int waveLength);
  int GetSolidOpticValueMonochromaticWaveLength(int& waveLength);
  void SetSolidOpticFlagOutputToOpticalSoftware(bool flag);
  int GetSolidOpticFlagOutputToOpticalSoftware(bool& flag);

  // ---- <OPTIC_OUTPUT_DIRECTION> ---------------------------------------------
  // The direction count is kept apart from the direction list: the list
  // operations never change it, and a KRN write with a count larger than a
  // non-empty list throws "invalid vector<T> subscript". Count getters return
  // the value. SetOpticDirectionValueOpticLightDirectionValue replaces entry
  // i, or appends when i is at or past the end (a negative i does nothing).
  // GetOpticDirectionValueOpticLightDirectionValue returns 1; it leaves its
  // outputs untouched on an empty list and throws "invalid vector<T>
  // subscript" for an index outside a non-empty one. The delete returns 1 and
  // removes nothing for an index outside the list.
  void SetSolidOpticDirectionVersion(int version);
  int GetSolidOpticDirectionVersion(int& version);
  void SetSolidOpticDirectionValueOpticLightDirection(int count);
  int GetSolidOpticDirectionValueOpticLightDirection(int& count);
  void SetOpticDirectionValueOpticLightDirectionValue(int index, double x, double y, double z);
  int GetOpticDirectionValueOpticLightDirectionValue(int index, double& x, double& y, double& z);
  int DeleteOpticDirectionValueOpticLightDirectionItem(int index);

  // ---- <OPTIC_OUTPUT_TO_SOFTWARE> -------------------------------------------
  // Integer getters return the value; text getters return 1. "Refractiveindex"
  // is the interface's spelling.
  void SetSolidOpticOpticalSoftware(std::string software);
  int GetSolidOpticOpticalSoftware(std::string& software);
  void SetSolidOpticOutputBC(int outputBC);
  int GetSolidOpticOutputBC(int& outputBC);
  void SetSolidOpticFlagDeformedShape(int flag);
  int GetSolidOpticFlagDeformedShape(int& flag);
  void SetSolidOpticFlagRefractiveindex(int flag);
  int GetSolidOpticFlagRefractiveindex(int& flag);
  void SetSolidOpticFlagBirefringence(int flag);
  int GetSolidOpticFlagBirefringence(int& flag);
  void SetSolidOpticOutputDirectory(std::string directory);
  int GetSolidOpticOutputDirectory(std::string& directory);

  // ---- <SOLID_IC> -----------------------------------------------------------
  // Integer getters return the value; the others return 1. The geometric
  // non-linearity of the wire sweep has no accessor: it shares the field of
  // SetSolidICFlagWireSweepNonLinearOption.
  void SetSolidICVersion(int version);
  int GetSolidICVersion(int& version);
  void SetSolidICFlagStressSolverType(int type);
  int GetSolidICFlagStressSolverType(int& type);
  void SetSolidICFlagANSYSStressSolverAnalysisType(int type);
  int GetSolidICFlagANSYSStressSolverAnalysisType(int& type);
  void SetSolidICFlagDragForceModel(int model);
  int GetSolidICFlagDragForceModel(int& model);
  void SetSolidICFlagWireSweepNonLinearOption(int option);
  int GetSolidICFlagWireSweepNonLinearOption(int& option);
  void SetFlagWireSweepNLMatOption(int option);
  int GetFlagWireSweepNLMatOption(int& option);
  void SetSolidICFlagPaddleShiftNonLinearOption(int option);
  int GetSolidICFlagPaddleShiftNonLinearOption(int& option);
  void SetSolidICANSYSStressSolverDirectory(std::string directory);
  int GetSolidICANSYSStressSolverDirectory(std::string& directory);
  void SetSolidICABAQUSStressSolverDirectory(std::string directory);
  int GetSolidICABAQUSStressSolverDirectory(std::string& directory);
  void SetSolidICOutputBatchFileDirectory(std::string directory);
  int GetSolidICOutputBatchFileDirectory(std::string& directory);
  void SetWireCrossOverTolerance(double tolerance);
  int GetWireCrossOverTolerance(double& tolerance);

  // ---- <IC_PADDLE_SHIFT_OUTPUT_TIMES> ---------------------------------------
  // Integer getters return the value, the others 1, except
  // GetSolidICICPaddleVersion, which leaves its argument untouched and returns
  // 1 whatever version is stored. The count setter appends zeros or drops
  // times by the difference to the stored count; time indices are 0-based and
  // bounds-tested. "SolidIIC" is the interface's spelling.
  void SetSolidICICPaddleVersion(int version);
  int GetSolidICICPaddleVersion(int& version);
  void SetSolidICICPaddleFlagAutoLoadIntermediateResult(int flag);
  int GetSolidICICPaddleFlagAutoLoadIntermediateResult(int& flag);
  void SetSolidICICPaddleValueCheckIntermediteTimeSpan(double span);
  int GetSolidICICPaddleValueCheckIntermediteTimeSpan(double& span);
  void SetSolidICICPaddleValueNoPaddleShiftTime(int count);
  int GetSolidICICPaddleValueNoPaddleShiftTime(int& count);
  void SetSolidIICPaddleValueNoPaddleShiftTimeValue(int index, double time);
  int GetSolidIICPaddleValueNoPaddleShiftTimeValue(int index, double& time);

  // ---- <IC_WIRE_SWEEP_OUTPUT_TIMES> -----------------------------------------
  // As <IC_PADDLE_SHIFT_OUTPUT_TIMES>: GetSolidICICWireSweepVersion too leaves
  // its argument untouched and returns 1. These times live only in KRN files.
  void SetSolidICICWireSweepVersion(int version);
  int GetSolidICICWireSweepVersion(int& version);
  void SetSolidICICWireSweepFlagAutoLoadIntermediateResult(int flag);
  int GetSolidICICWireSweepFlagAutoLoadIntermediateResult(int& flag);
  void SetSolidICICWireSweepValueCheckIntermediteTimeSpan(double span);
  int GetSolidICICWireSweepValueCheckIntermediteTimeSpan(double& span);
  void SetSolidICValueNoWireSweepTime(int count);
  int GetSolidICValueNoWireSweepTime(int& count);
  void SetSolidICValueNoWireSweepTimeValue(int index, double time);
  int GetSolidICValueNoWireSweepTimeValue(int index, double& time);

  // ---- <SOLID_MCM> ----------------------------------------------------------
  // Getters fill the reference; their result (the value for ints, 1 for the
  // rest) is not a status. The ...ValueShotProject pair reaches the key
  // "FlagPrevShotProject".
  void SetSolidMCMVersion(int version);
  int GetSolidMCMVersion(int& version);
  void SetSolidMCMFlagPrevShot(bool flag);
  int GetSolidMCMFlagPrevShot(bool& flag);
  void SetSolidMCMValueShotRunID(int runID);
  int GetSolidMCMValueShotRunID(int& runID);
  void SetSolidMCMValueShotProject(bool flag);
  int GetSolidMCMValueShotProject(bool& flag);
  void SetSolidMCMValueShotProjectPath(std::string path);
  int GetSolidMCMValueShotProjectPath(std::string& path);
  void SetSolidMCMValueShotProjectName(std::string name);
  int GetSolidMCMValueShotProjectName(std::string& name);

  // ---- <TASKMANAGER> --------------------------------------------------------
  // Getters return the value they store, except GetTaskValueAccelerType, which
  // returns 1. GetTaskValueNoTask reports ValueLocalNoTask, not the field that
  // SetTaskValueNoTask sets; files never carry that field either, but the task
  // count of the way of running IDTaskMode chooses.
  int GetTaskVersion(int& version);
  void SetTaskVersion(int version);
  int GetTaskIDTaskMode(int& mode);
  void SetTaskIDTaskMode(int mode);
  int GetTaskValueAccelerType(int& type);
  void SetTaskValueAccelerType(int type);
  int GetTaskValueNoTask(int& count);
  void SetTaskValueNoTask(int count);
  int GetTaskValueLocalNoTask(int& count);
  void SetTaskValueLocalNoTask(int count);
  int GetTaskValueConsoleRedirection(int& flag);
  void SetTaskValueConsoleRedirection(int flag);

  // ---- <REMOTE_MACHINES> ----------------------------------------------------
  // Integer getters return the value they store; text getters and the machine
  // getters return 1. SetRemoteValueNoMachine resizes the machine list first
  // (new entries: empty name and path, job 0, weight 1.0; a negative count
  // empties it and stores 0). The indexed members throw std::out_of_range for
  // an index outside the list.
  int GetRemoteVersion(int& version);
  void SetRemoteVersion(int version);
  int GetRemoteValueNoMachine(int& count);
  void SetRemoteValueNoMachine(int count);
  int GetRemoteValueRemoteNoTask(int& count);
  void SetRemoteValueRemoteNoTask(int count);
  int GetRemoteValueMap(std::string& map);
  void SetRemoteValueMap(std::string map);
  int GetRemoteValueShareFolderName(std::string& name);
  void SetRemoteValueShareFolderName(std::string name);
  int GetRemoteValueSharedVelmaraName(std::string& name);
  void SetRemoteValueSharedVelmaraName(std::string name);
  int GetRemoteValueParallelWorkingFolder(std::string& folder);
  void SetRemoteValueParallelWorkingFolder(std::string folder);
  int GetRemoteValueLocalHost(std::string& host);
  void SetRemoteValueLocalHost(std::string host);
  int GetRemoteValueMachineSetting(int index, RemoteParm& machine);
  void SetRemoteValueMachineSetting(int index, RemoteParm machine);
  int GetRemoteValueMachineWeighting(int index, double& weighting);
  void SetRemoteValueMachineWeighting(int index, double weighting);

  // ---- <COMPUTING_MANAGER> --------------------------------------------------
  // Getters return the value they store. "Cpmouting" is the interface's
  // spelling.
  int GetCpmoutingVersion(int& version);
  void SetCpmoutingVersion(int version);
  int GetCpmoutingValueComputingManagerNoTask(int& count);
  void SetCpmoutingValueComputingManagerNoTask(int count);

  // ---- Templates, page defaults and user-defined parameters -----------------
  // The per-user template "KRNTemplate.krn" in the per-user directory: whether
  // it exists, and loading it (without one: every section back to the
  // defaults of the model kind, and false).
  bool IsUsetDefinedExists();
  bool LoadUserDefineKRN();
  // Remembers the default template (a path of more than 512 characters is
  // ignored) and takes its two fibre values.
  void LoadGPDefaultTemplete(std::string path);
  // Page 0 fill/pack, 1 cooling, 2 warpage back to the default template's
  // values; any other page changes nothing. True with an implementation object.
  bool ReSetPageToDefaultValue(int page);

 private:
  // Page-availability flags, copied from the implementation object.
  bool m_bPageAvailable[11];
  bool m_bSolidFillRead;
  bool m_bShellFillRead;
  bool m_bTemplateMode;
  CNVX3DComputationImpl* m_pImpl;
  char m_szDefaultTemplate[512];
};

#endif  // NVX_API_NVX3DCOMPUTATION_H_
