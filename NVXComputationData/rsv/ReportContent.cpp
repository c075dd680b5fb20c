// The texts of the computation report, taken from the section records.
//
// Rows the viewer labels but the records leave open are filled from the
// solid fill/pack part: 0 filling solver, 2 inertia, 3 filling acceleration,
// 6 stress solver volume, 8 packing solver, 9 packing acceleration, 10 fibre
// efficiency factor; row 7 is the host's flow-solver choice; rows 33, 35, 36
// and 37 are the object's file-exists flag, its two advanced-filling state
// bytes and its template-writing flag.
#include <algorithm>
#include <cstddef>

#include "NVXPlatform.h"
#include "core/NVX3DComputationImpl.h"
#include "core/Subscript.h"
#include "rsv/ComputationReport.h"
#include "rsv/ReportText.h"

namespace nvx {
namespace {

std::vector<std::string> Sequence(const CNVX3DComputationImpl& impl) {
  const CNVX3DSectionTable& s = impl.sections;
  const CNVX3DFillPackTimeSteps& fp = *s.fillPack;
  const CNVX3DSolidCool& cool = *s.cool;
  const CNVX3DSolidWrap& warp = *s.warp;
  const CNVX3DSolidStress& stress = *s.stress;
  const CNVX3DSolidVE& ve = *s.ve;
  const CNVX3DSolidOptic& optic = *s.optic;
  const CNVX3DSolidIC& ic = *s.ic;
  const CNVX3DSolidMCM& mcm = *s.mcm;

  std::vector<std::string> rows;
  const auto add = [&rows](std::string text) { rows.push_back(std::move(text)); };
  // A three-way label keeps the row before for an unknown value.
  const auto three = [&rows](int v, const char* a, const char* b, const char* c) {
    rows.push_back(ThreeWay(v, a, b, c, rows.empty() ? std::string() : rows.back()));
  };
  add(EnhancedStandard(fp.IDSolver));                                  // 0
  add(Decimal(fp.IDEfficiencyFactor));                                 // 1
  add(YesNo(fp.FlagInertia));                                          // 2
  add(YesNo(fp.FlagSolverAcceleration));                               // 3
  add(YesNo(fp.FlagEstimateCoolTime));                                 // 4
  add(YesNo(ic.FlagStressSolverType));                                 // 5
  add(Decimal(fp.FlagStressSolverVolume));                             // 6
  three(fp.FlowSolver, "Standard", "Fast", "Customize");               // 7
  add(EnhancedStandard(fp.PackIDSolver));                              // 8
  add(YesNo(fp.PackFlagSolverAcceleration));                           // 9
  add(Decimal(fp.IDFiberEfficiencyFactor));                            // 10
  three(cool.IDSolver, "Standard", "Standard Fast", "Enhanced Fast");  // 11
  add(YesNo(cool.FlagSolverAcceleration));                             // 12
  three(warp.IDSolver, "Standard", "Standard Fast", "Enhanced Fast");  // 13
  add(YesNo(warp.FlagSolverAcceleration));                             // 14
  add(rows.back());                                                    // 15: repeats 14
  add(YesNo(ve.FlagEstimateFlowPackStage));                            // 16
  add(YesNo(ve.FlagEstimateCoolStage));                                // 17
  add(Decimal(optic.ValueMonochromaticWaveLength));                    // 18
  add(YesNo(ve.FlagEstimateFlowPackStage));                            // 19: 16 again
  add(YesNo(optic.FlagRemoveRunner));                                  // 20
  add(YesNo(optic.FlagLightField));                                    // 21
  add(YesNo(optic.FlagWhiteLight));                                    // 22
  add(YesNo(mcm.FlagPrevShot));                                        // 23
  add(Decimal(mcm.ValueShotRunID));                                    // 24
  three(fp.FlagCoreShiftMethod, "Off", "One-Way", "Two-Way");          // 25
  add(YesNo(stress.FlagSolverAcceleration));                           // 26
  add(Decimal(stress.ValueMaxIteration));                              // 27
  add(Decimal(stress.ValueMinIterativeError));                         // 28
  switch (ic.FlagStressSolverType) {                                   // 29
    case 2:
      add("ABAQUS");
      break;
    case 3:
      add("Velmara");
      break;
    default:
      add("ANSYS");
      break;
  }
  add(YesNo(ic.FlagDragForceModel));              // 30
  add(YesNo(ic.FlagWireSweepNonLinearOption));    // 31
  add(YesNo(ic.FlagPaddleShiftNonLinearOption));  // 32
  add(YesNo(impl.fileExists));                    // 33
  add(Decimal(cool.PreheatTimes.Count));          // 34
  add(YesNo(impl.stateLongFiber));                // 35
  add(YesNo(impl.stateFoaming));                  // 36
  add(YesNo(impl.templateWriting));               // 37
  return rows;
}

std::vector<std::string> TaskManager(const CNVX3DComputationImpl& impl) {
  const CNVX3DSectionTable& s = impl.sections;
  const std::string processors = Decimal(static_cast<int>(impl.processorCount));
  std::string tasks;
  switch (s.taskManager->IDTaskMode) {
    case 0:
      tasks = "0";
      break;
    case 1:
      tasks = Decimal(s.remoteMachines->ValueNoMachine);
      break;
    case 2:
      tasks = Decimal(s.computingManager->ValueComputingManagerNoTask);
      break;
    default:
      tasks = processors;  // any other mode repeats the processor count
      break;
  }
  return {s.computingManager->ValueComputingManagerNoTask >= 2 ? "Yes" : "No",
          s.remoteMachines->ValueLocalHost, processors, tasks};
}

}  // namespace

ReportContent GatherReport(const CNVX3DComputationImpl& impl) {
  ReportContent content;
  content.sequence = Sequence(impl);
  content.taskManager = TaskManager(impl);
  const CNVX3DRemoteMachines& machines = *impl.sections.remoteMachines;
  // One row per machine the list holds: a count read from a file may exceed
  // the list's bound, and a report must never fail for it.
  content.machineCount = static_cast<int>(
      std::min<std::size_t>(static_cast<std::size_t>(std::max(machines.ValueNoMachine, 0)),
                            machines.ValueMachineSetting.size()));
  content.machineName = [&machines](int i) {
    return At(machines.ValueMachineSetting, static_cast<long long>(i) - 1).ValueMachineName;
  };
  content.computation = platform::WideToNarrow(impl.sections.summary->File);
  return content;
}

}  // namespace nvx
