// Accessors of the warpage and solid stress sections (<SHELL_WARP>,
// <SOLID_WARP>, <SOLID_STRESS>), of the part-insert material record, and the
// generic members that reach those records. Shell and solid warpage names
// reach the same field. Section accessors do not test for a missing
// implementation object; the generic members do.
#include "NVX3DComputation.h"
#include "core/NVX3DComputationImpl.h"
#include "core/Subscript.h"

namespace {
CNVX3DSolidWrap& Warp(CNVX3DComputationImpl* impl) { return *impl->sections.warp; }
CNVX3DSolidStress& Stress(CNVX3DComputationImpl* impl) { return *impl->sections.stress; }
CNVX3DPartInsert& Inserts(CNVX3DComputationImpl* impl) { return *impl->sections.partInsert; }

template <typename T>
int One(T& out, const T& field) {
  out = field;
  return 1;
}

// Row `row` of a flat list of (first, second) rows, bounds-tested.
double& Cell(std::vector<double>& list, long long row, int column) {
  if (row < 0) nvx::ThrowSubscript();
  return nvx::At(list, row * nvx::kPairColumns + column);
}
int Rows(const std::vector<double>& list, int columns) {
  return static_cast<int>(list.size() / static_cast<std::size_t>(columns));
}
CNVX3DPartInsertMaterial& Insert(CNVX3DComputationImpl* impl, int index) {
  return nvx::At(Inserts(impl).Inserts, index);
}
// Weld-line angles 1 to 4 and reduction rates 1 to 3.
double& Angle(CNVX3DComputationImpl* impl, int number) {
  CNVX3DSolidStress& s = Stress(impl);
  double* angles[] = {&s.WeldlineAngle1, &s.WeldlineAngle2, &s.WeldlineAngle3, &s.WeldlineAngle4};
  if (number < 1 || number > 4) nvx::ThrowSubscript();
  return *angles[number - 1];
}
double& Rate(CNVX3DComputationImpl* impl, int number) {
  CNVX3DSolidStress& s = Stress(impl);
  double* rates[] = {&s.ReductionRate1, &s.ReductionRate2, &s.ReductionRate3};
  if (number < 1 || number > 3) nvx::ThrowSubscript();
  return *rates[number - 1];
}
}  // namespace

// ---- Generic members -----------------------------------------------------------

int CNVX3DComputation::GetRemoveRunnerInCaclulation() {
  return m_pImpl ? Warp(m_pImpl).FlagRemoveRunner : 0;
}
void CNVX3DComputation::SetRemoveRunnerInCaclulation(int flag) {
  if (m_pImpl) Warp(m_pImpl).FlagRemoveRunner = flag;
}
int CNVX3DComputation::GetConsiderInMoldConstraintEffect() {
  return m_pImpl ? Warp(m_pImpl).FlagInMoldConstraint : 0;
}
void CNVX3DComputation::SetConsiderInMoldConstraintEffect(int flag) {
  if (m_pImpl) Warp(m_pImpl).FlagInMoldConstraint = flag;
}
int CNVX3DComputation::GetAnnealingCycleNumber() {
  return m_pImpl ? Stress(m_pImpl).ValueAnnealgingCycleNumber : 0;
}
void CNVX3DComputation::SetAnnealingCycleNumer(int count) {
  if (m_pImpl) Stress(m_pImpl).ValueAnnealgingCycleNumber = count;
}

// ---- <SHELL_WARP> and <SOLID_WARP> ---------------------------------------------------

int CNVX3DComputation::GetShellWarpVersion(int& v) { return One(v, Warp(m_pImpl).Version); }
void CNVX3DComputation::SetShellWarpVersion(int v) { Warp(m_pImpl).Version = v; }
int CNVX3DComputation::GetSolidWarpVersion(int& v) { return One(v, Warp(m_pImpl).Version); }
void CNVX3DComputation::SetSolidWarpVersion(int v) { Warp(m_pImpl).Version = v; }
int CNVX3DComputation::GetShellWarpIDSolver(int& v) { return One(v, Warp(m_pImpl).IDSolver); }
void CNVX3DComputation::SetShellWarpIDSolver(int v) { Warp(m_pImpl).IDSolver = v; }
int CNVX3DComputation::GetSolidWarpIDSolver(int& v) { return One(v, Warp(m_pImpl).IDSolver); }
void CNVX3DComputation::SetSolidWarpIDSolver(int v) { Warp(m_pImpl).IDSolver = v; }
int CNVX3DComputation::GetShellWarpIDCompositeModel(int& v) {
  return One(v, Warp(m_pImpl).IDCompositeModel);
}
void CNVX3DComputation::SetShellWarpIDCompositeModel(int v) { Warp(m_pImpl).IDCompositeModel = v; }
int CNVX3DComputation::GetSolidWarpIDCompositeModel(int& v) {
  return One(v, Warp(m_pImpl).IDCompositeModel);
}
void CNVX3DComputation::SetSolidWarpIDCompositeModel(int v) { Warp(m_pImpl).IDCompositeModel = v; }
int CNVX3DComputation::GetShellWarpFlagSolverAcceleration(int& v) {
  return One(v, Warp(m_pImpl).FlagSolverAcceleration);
}
void CNVX3DComputation::SetShellWarpFlagSolverAcceleration(int v) {
  Warp(m_pImpl).FlagSolverAcceleration = v;
}
int CNVX3DComputation::GetSolidWarpFlagSolverAcceleration(int& v) {
  return One(v, Warp(m_pImpl).FlagSolverAcceleration);
}
void CNVX3DComputation::SetSolidWarpFlagSolverAcceleration(int v) {
  Warp(m_pImpl).FlagSolverAcceleration = v;
}
int CNVX3DComputation::GetShellWarpFlagRemoveRunner(int& v) {
  return One(v, Warp(m_pImpl).FlagRemoveRunner);
}
void CNVX3DComputation::SetShellWarpFlagRemoveRunner(int v) { Warp(m_pImpl).FlagRemoveRunner = v; }
int CNVX3DComputation::GetSolidWarpFlagRemoveRunner(int& v) {
  return One(v, Warp(m_pImpl).FlagRemoveRunner);
}
void CNVX3DComputation::SetSolidWarpFlagRemoveRunner(int v) { Warp(m_pImpl).FlagRemoveRunner = v; }
int CNVX3DComputation::GetShellWarpFlagFiberEffect(int& v) {
  return One(v, Warp(m_pImpl).FlagFiberEffect);
}
void CNVX3DComputation::SetShellWarpFlagFiberEffect(int v) { Warp(m_pImpl).FlagFiberEffect = v; }
int CNVX3DComputation::GetSolidWarpFlagFiberEffect(int& v) {
  return One(v, Warp(m_pImpl).FlagFiberEffect);
}
void CNVX3DComputation::SetSolidWarpFlagFiberEffect(int v) { Warp(m_pImpl).FlagFiberEffect = v; }
int CNVX3DComputation::GetShellWarpFlagHighOrderElement(int& v) {
  return One(v, Warp(m_pImpl).FlagHighOrderElement);
}
void CNVX3DComputation::SetShellWarpFlagHighOrderElement(int v) {
  Warp(m_pImpl).FlagHighOrderElement = v;
}
int CNVX3DComputation::GetSolidWarpFlagHighOrderElement(int& v) {
  return One(v, Warp(m_pImpl).FlagHighOrderElement);
}
void CNVX3DComputation::SetSolidWarpFlagHighOrderElement(int v) {
  Warp(m_pImpl).FlagHighOrderElement = v;
}
int CNVX3DComputation::GetShellWarpFlagInMoldConstraint(int& v) {
  return One(v, Warp(m_pImpl).FlagInMoldConstraint);
}
void CNVX3DComputation::SetShellWarpFlagInMoldConstraint(int v) {
  Warp(m_pImpl).FlagInMoldConstraint = v;
}
int CNVX3DComputation::GetSolidWarpFlagInMoldConstraint(int& v) {
  return One(v, Warp(m_pImpl).FlagInMoldConstraint);
}
void CNVX3DComputation::SetSolidWarpFlagInMoldConstraint(int v) {
  Warp(m_pImpl).FlagInMoldConstraint = v;
}
int CNVX3DComputation::GetShellWarpFlagMoldThermalDeformation(int& v) {
  return One(v, Warp(m_pImpl).FlagMoldThermalDeformation);
}
void CNVX3DComputation::SetShellWarpFlagMoldThermalDeformation(int v) {
  Warp(m_pImpl).FlagMoldThermalDeformation = v;
}
int CNVX3DComputation::GetSolidWarpFlagMoldThermalDeformation(int& v) {
  return One(v, Warp(m_pImpl).FlagMoldThermalDeformation);
}
void CNVX3DComputation::SetSolidWarpFlagMoldThermalDeformation(int v) {
  Warp(m_pImpl).FlagMoldThermalDeformation = v;
}
int CNVX3DComputation::GetShellWarpValueMaxIteration(int& v) {
  return One(v, Warp(m_pImpl).ValueMaxIteration);
}
void CNVX3DComputation::SetShellWarpValueMaxIteration(int v) {
  Warp(m_pImpl).ValueMaxIteration = v;
}
int CNVX3DComputation::GetSolidWarpValueMaxIteration(int& v) {
  return One(v, Warp(m_pImpl).ValueMaxIteration);
}
void CNVX3DComputation::SetSolidWarpValueMaxIteration(int v) {
  Warp(m_pImpl).ValueMaxIteration = v;
}
int CNVX3DComputation::GetShellWarpValueMinIterativeError(double& v) {
  return One(v, Warp(m_pImpl).ValueMinIterativeError);
}
void CNVX3DComputation::SetShellWarpValueMinIterativeError(double v) {
  Warp(m_pImpl).ValueMinIterativeError = v;
}
int CNVX3DComputation::GetSolidWarpValueMinIterativeError(double& v) {
  return One(v, Warp(m_pImpl).ValueMinIterativeError);
}
void CNVX3DComputation::SetSolidWarpValueMinIterativeError(double v) {
  Warp(m_pImpl).ValueMinIterativeError = v;
}
int CNVX3DComputation::GetShellWarpValueIMCMedTH(double& v) {
  return One(v, Warp(m_pImpl).ValueIMCMedTH);
}
void CNVX3DComputation::SetShellWarpValueIMCMedTH(double v) { Warp(m_pImpl).ValueIMCMedTH = v; }
int CNVX3DComputation::GetSolidWarpValueIMCMedTH(double& v) {
  return One(v, Warp(m_pImpl).ValueIMCMedTH);
}
void CNVX3DComputation::SetSolidWarpValueIMCMedTH(double v) { Warp(m_pImpl).ValueIMCMedTH = v; }
int CNVX3DComputation::GetShellWarpValueIMCMedWR(double& v) {
  return One(v, Warp(m_pImpl).ValueIMCMedWR);
}
void CNVX3DComputation::SetShellWarpValueIMCMedWR(double v) { Warp(m_pImpl).ValueIMCMedWR = v; }
int CNVX3DComputation::GetSolidWarpValueIMCMedWR(double& v) {
  return One(v, Warp(m_pImpl).ValueIMCMedWR);
}
void CNVX3DComputation::SetSolidWarpValueIMCMedWR(double v) { Warp(m_pImpl).ValueIMCMedWR = v; }
int CNVX3DComputation::GetShellWarpValueIMCRelST(double& v) {
  return One(v, Warp(m_pImpl).ValueIMCRelST);
}
void CNVX3DComputation::SetShellWarpValueIMCRelST(double v) { Warp(m_pImpl).ValueIMCRelST = v; }
int CNVX3DComputation::GetSolidWarpValueIMCRelST(double& v) {
  return One(v, Warp(m_pImpl).ValueIMCRelST);
}
void CNVX3DComputation::SetSolidWarpValueIMCRelST(double v) { Warp(m_pImpl).ValueIMCRelST = v; }
int CNVX3DComputation::GetSolidWarpFlagEnhancedInMoldConstraint(bool& f) {
  return One(f, Warp(m_pImpl).FlagEnhancedInMoldConstraint);
}
void CNVX3DComputation::SetSolidWarpFlagEnhancedInMoldConstraint(bool f) {
  Warp(m_pImpl).FlagEnhancedInMoldConstraint = f;
}
int CNVX3DComputation::GetSolidWarpFlagVEResidualStress(int& v) {
  return v = Warp(m_pImpl).FlagVEResidualStress;
}
void CNVX3DComputation::SetSolidWarpFlagVEResidualStress(int v) {
  Warp(m_pImpl).FlagVEResidualStress = v;
}
int CNVX3DComputation::GetSolidWarpFlagRIMShrinkageType(int& v) {
  return v = Warp(m_pImpl).FlagRIMShrinkageType;
}
void CNVX3DComputation::SetSolidWarpFlagRIMShrinkageType(int v) {
  Warp(m_pImpl).FlagRIMShrinkageType = v;
}
int CNVX3DComputation::GetFlagDifferentialEffect() { return Warp(m_pImpl).FlagDifferentialEffect; }
void CNVX3DComputation::SetFlagDifferentialEffect(int v) {
  Warp(m_pImpl).FlagDifferentialEffect = v;
}
int CNVX3DComputation::GetFlagThermalDisplacement() {
  return Warp(m_pImpl).FlagThermalDisplacement;
}
void CNVX3DComputation::SetFlagThermalDisplacement(int v) {
  Warp(m_pImpl).FlagThermalDisplacement = v;
}

// ---- <SOLID_STRESS> ----------------------------------------------------------------

int CNVX3DComputation::GetSolidStressVersion(int& v) { return One(v, Stress(m_pImpl).Version); }
void CNVX3DComputation::SetSolidStressVersion(int v) { Stress(m_pImpl).Version = v; }
int CNVX3DComputation::GetSolidStressIDCompositeModel(int& v) {
  return One(v, Stress(m_pImpl).IDCompositeModel);
}
void CNVX3DComputation::SetSolidStressIDCompositeModel(int v) {
  Stress(m_pImpl).IDCompositeModel = v;
}
int CNVX3DComputation::GetSolidStressFlagSolverAcceleration(int& v) {
  return One(v, Stress(m_pImpl).FlagSolverAcceleration);
}
void CNVX3DComputation::SetSolidStressFlagSolverAcceleration(int v) {
  Stress(m_pImpl).FlagSolverAcceleration = v;
}
int CNVX3DComputation::GetSolidStressValueMaxIteration(int& v) {
  return One(v, Stress(m_pImpl).ValueMaxIteration);
}
void CNVX3DComputation::SetSolidStressValueMaxIteration(int v) {
  Stress(m_pImpl).ValueMaxIteration = v;
}
int CNVX3DComputation::GetSolidStressFlagVEResidualStress(int& v) {
  return One(v, Stress(m_pImpl).FlagVEResidualStress);
}
void CNVX3DComputation::SetSolidStressFlagVEResidualStress(int v) {
  Stress(m_pImpl).FlagVEResidualStress = v;
}
int CNVX3DComputation::GetSolidStressTransientStressCouplingType(int& v) {
  return One(v, Stress(m_pImpl).TransientStressCouplingType);
}
void CNVX3DComputation::SetSolidStressTransientStressCouplingType(int v) {
  Stress(m_pImpl).TransientStressCouplingType = v;
}
int CNVX3DComputation::GetSolidStressFlagUserDefinedMaterial(int& v) {
  return One(v, Stress(m_pImpl).FlagUserDefinedMaterial);
}
void CNVX3DComputation::SetSolidStressFlagUserDefinedMaterial(int v) {
  Stress(m_pImpl).FlagUserDefinedMaterial = v;
}
int CNVX3DComputation::GetSolidStressValueMinIterativeError(double& v) {
  return One(v, Stress(m_pImpl).ValueMinIterativeError);
}
void CNVX3DComputation::SetSolidStressValueMinIterativeError(double v) {
  Stress(m_pImpl).ValueMinIterativeError = v;
}
int CNVX3DComputation::GetSolidStressValueGravityX(double& v) {
  return One(v, Stress(m_pImpl).ValueGravityX);
}
void CNVX3DComputation::SetSolidStressValueGravityX(double v) { Stress(m_pImpl).ValueGravityX = v; }
int CNVX3DComputation::GetSolidStressValueGravityY(double& v) {
  return One(v, Stress(m_pImpl).ValueGravityY);
}
void CNVX3DComputation::SetSolidStressValueGravityY(double v) { Stress(m_pImpl).ValueGravityY = v; }
int CNVX3DComputation::GetSolidStressValueGravityZ(double& v) {
  return One(v, Stress(m_pImpl).ValueGravityZ);
}
void CNVX3DComputation::SetSolidStressValueGravityZ(double v) { Stress(m_pImpl).ValueGravityZ = v; }
int CNVX3DComputation::GetSolidStressValueInitialTemperature(double& v) {
  return One(v, Stress(m_pImpl).ValueInitialTemperature);
}
void CNVX3DComputation::SetSolidStressValueInitialTemperature(double v) {
  Stress(m_pImpl).ValueInitialTemperature = v;
}
int CNVX3DComputation::GetSolidStressValuedt(double& v) { return One(v, Stress(m_pImpl).Valuedt); }
void CNVX3DComputation::SetSolidStressValuedt(double v) { Stress(m_pImpl).Valuedt = v; }
int CNVX3DComputation::GetSolidStressValueTimePeriod(double& v) {
  return One(v, Stress(m_pImpl).ValueTimePeriod);
}
void CNVX3DComputation::SetSolidStressValueTimePeriod(double v) {
  Stress(m_pImpl).ValueTimePeriod = v;
}
int CNVX3DComputation::GetSolidStressValueHTC(double& v) {
  return One(v, Stress(m_pImpl).ValueHTC);
}
void CNVX3DComputation::SetSolidStressValueHTC(double v) { Stress(m_pImpl).ValueHTC = v; }
int CNVX3DComputation::GetSolidStressFlagFiberEffec(int& f) {
  return One(f, Stress(m_pImpl).FlagFiberEffect);
}
void CNVX3DComputation::SetSolidStressFlagFiberEffec(int f) { Stress(m_pImpl).FlagFiberEffect = f; }
int CNVX3DComputation::GetFlagWeldlineAnalysis(int& f) {
  return One(f, Stress(m_pImpl).WeldLineEffect);
}
void CNVX3DComputation::SetFlagWeldlineAnalysis(int f) { Stress(m_pImpl).WeldLineEffect = f; }
int CNVX3DComputation::GetSolidStressWeldlineAngle(int n, double& v) {
  return One(v, Angle(m_pImpl, n));
}
void CNVX3DComputation::SetSolidStressWeldlineAngle(int n, double v) { Angle(m_pImpl, n) = v; }
int CNVX3DComputation::GetSolidStressReductionRate(int n, double& v) {
  return One(v, Rate(m_pImpl, n));
}
void CNVX3DComputation::SetSolidStressReductionRate(int n, double v) { Rate(m_pImpl, n) = v; }

int CNVX3DComputation::GetSolidStressTempTimeCount() {
  return Rows(Stress(m_pImpl).TempTime, nvx::kPairColumns);
}
void CNVX3DComputation::SetSolidStressTempTimeCount(int rows) {
  nvx::SetRowCount(Stress(m_pImpl).TempTime, rows, nvx::kPairColumns);
}
void CNVX3DComputation::GetSolidStressTempTime(int row, double& time, double& temperature) {
  time = Cell(Stress(m_pImpl).TempTime, row, 0);
  temperature = Cell(Stress(m_pImpl).TempTime, row, 1);
}
void CNVX3DComputation::SetSolidStressTempTime(int row, double time, double temperature) {
  Cell(Stress(m_pImpl).TempTime, row, 0) = time;
  Cell(Stress(m_pImpl).TempTime, row, 1) = temperature;
}
int CNVX3DComputation::GetSolidStressMatTempPartCount() {
  return Rows(Stress(m_pImpl).MatTempPart, nvx::kPairColumns);
}
void CNVX3DComputation::SetSolidStressMatTempPartCount(int rows) {
  nvx::SetRowCount(Stress(m_pImpl).MatTempPart, rows, nvx::kPairColumns);
}
void CNVX3DComputation::GetSolidStressMatTempPart(int row, double& temperature, double& modulus) {
  temperature = Cell(Stress(m_pImpl).MatTempPart, row, 0);
  modulus = Cell(Stress(m_pImpl).MatTempPart, row, 1);
}
void CNVX3DComputation::SetSolidStressMatTempPart(int row, double temperature, double modulus) {
  Cell(Stress(m_pImpl).MatTempPart, row, 0) = temperature;
  Cell(Stress(m_pImpl).MatTempPart, row, 1) = modulus;
}
int CNVX3DComputation::GetSolidStressOutPutTimingCount() {
  return Rows(Stress(m_pImpl).ValueOutPutTiming, 1);
}
void CNVX3DComputation::SetSolidStressOutPutTimingCount(int count) {
  nvx::SetRowCount(Stress(m_pImpl).ValueOutPutTiming, count, 1);
}
double CNVX3DComputation::GetSolidStressOutPutTiming(int i) {
  return nvx::At(Stress(m_pImpl).ValueOutPutTiming, i);
}
void CNVX3DComputation::SetSolidStressOutPutTiming(int i, double time) {
  nvx::At(Stress(m_pImpl).ValueOutPutTiming, i) = time;
}

// ---- Part inserts --------------------------------------------------------------------

int CNVX3DComputation::GetPartInsertVersion() { return Inserts(m_pImpl).Version; }
void CNVX3DComputation::SetPartInsertVersion(int v) { Inserts(m_pImpl).Version = v; }
int CNVX3DComputation::GetPartInsertCount() {
  return static_cast<int>(Inserts(m_pImpl).Inserts.size());
}
void CNVX3DComputation::SetPartInsertCount(int count) {
  nvx::SetPartInsertCount(Inserts(m_pImpl), count);
}
int CNVX3DComputation::GetPartInsertNumber(int insert) { return Insert(m_pImpl, insert).Number; }
int CNVX3DComputation::GetPartInsertModulusCount(int insert) {
  return Rows(Insert(m_pImpl, insert).Modulus, nvx::kPairColumns);
}
void CNVX3DComputation::SetPartInsertModulusCount(int insert, int rows) {
  nvx::SetRowCount(Insert(m_pImpl, insert).Modulus, rows, nvx::kPairColumns);
}
void CNVX3DComputation::GetPartInsertModulus(int insert, int row, double& temperature,
                                             double& modulus) {
  temperature = Cell(Insert(m_pImpl, insert).Modulus, row, 0);
  modulus = Cell(Insert(m_pImpl, insert).Modulus, row, 1);
}
void CNVX3DComputation::SetPartInsertModulus(int insert, int row, double temperature,
                                             double modulus) {
  Cell(Insert(m_pImpl, insert).Modulus, row, 0) = temperature;
  Cell(Insert(m_pImpl, insert).Modulus, row, 1) = modulus;
}
int CNVX3DComputation::GetPartInsertCLTECount(int insert) {
  return Rows(Insert(m_pImpl, insert).CLTE, nvx::kPairColumns);
}
void CNVX3DComputation::SetPartInsertCLTECount(int insert, int rows) {
  nvx::SetRowCount(Insert(m_pImpl, insert).CLTE, rows, nvx::kPairColumns);
}
void CNVX3DComputation::GetPartInsertCLTE(int insert, int row, double& temperature, double& clte) {
  temperature = Cell(Insert(m_pImpl, insert).CLTE, row, 0);
  clte = Cell(Insert(m_pImpl, insert).CLTE, row, 1);
}
void CNVX3DComputation::SetPartInsertCLTE(int insert, int row, double temperature, double clte) {
  Cell(Insert(m_pImpl, insert).CLTE, row, 0) = temperature;
  Cell(Insert(m_pImpl, insert).CLTE, row, 1) = clte;
}
