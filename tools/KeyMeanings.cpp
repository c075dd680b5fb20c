// The meanings and allowed ranges of keys that nvxparam shows with `keys`
// and enforces in `set` and `add`. Meanings are short and plain; a key
// without a known meaning has no entry. Both tables are sorted by
// "SECTION.Key" in byte order and looked up by binary search.
#include "KeyMeanings.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <sstream>

namespace nvxparam {
namespace {

const KeyMeaning kMeanings[] = {
    {"COMPUTING_MANAGER.ValueComputingManagerNoTask",
     "number of tasks when the computing manager runs the analysis"},
    {"COMPUTING_MANAGER.Version", "record version"},
    {"COOL_OUTPUT_TIMES.FlagAutoLoadIntermediateResult", "load intermediate results automatically"},
    {"COOL_OUTPUT_TIMES.ValueNoCoolOutputTime",
     "times at which results are written during cooling"},
    {"FILL_ADVANCED_HRSteady.Gates", "one value per hot-runner gate, numbered from 1"},
    {"FILL_ADVANCED_HRSteady.ValueHRGateType",
     "which of a gate's two values the gate lines carry (0 or 1)"},
    {"FILL_ADVANCED_HRSteady.ValueNoHRGate", "number of hot-runner gate lines"},
    {"FILL_ADVANCED_LONGFIBER.AspectRatio", "fiber aspect ratio"},
    {"FILL_ADVANCED_LONGFIBER.Cf", "coefficient written for diffusion model 0 or 1"},
    {"FILL_ADVANCED_LONGFIBER.Cm", "coefficient written for diffusion model 1"},
    {"FILL_ADVANCED_LONGFIBER.DiffusionModelType",
     "diffusion model 0, 1 or 2; picks the coefficients written"},
    {"FILL_ADVANCED_LONGFIBER.FlagConcertration", "particle-concentration option"},
    {"FILL_ADVANCED_LONGFIBER.FlagFiberBreakage", "fiber breakage switch"},
    {"FILL_ADVANCED_LONGFIBER.FlagScrewFiberBreakage", "fiber breakage in the screw"},
    {"FILL_ADVANCED_LONGFIBER.OrthotropicClosureMethod", "which closure approximation is used"},
    {"FILL_ADVANCED_LONGFIBER.ValueFiberBreakageCB", "fiber breakage model coefficient"},
    {"FILL_ADVANCED_LONGFIBER.ValueFiberBreakageCD", "fiber breakage model coefficient"},
    {"FILL_ADVANCED_LONGFIBER.ValueFiberBreakageS", "fiber breakage model coefficient"},
    {"FILL_ADVANCED_LONGFIBER.Version", "section version"},
    {"FILL_ADVANCED_LONGFIBER.Weight", "fiber content"},
    {"FILL_ADVANCED_LONGFIBER.b1", "coefficient written for diffusion model 2"},
    {"FILL_ADVANCED_LONGFIBER.b2", "coefficient written for diffusion model 2"},
    {"FILL_ADVANCED_LONGFIBER.b3", "coefficient written for diffusion model 2"},
    {"FILL_ADVANCED_LONGFIBER.b4", "coefficient written for diffusion model 2"},
    {"FILL_ADVANCED_LONGFIBER.b5", "coefficient written for diffusion model 2"},
    {"FILL_ADVANCED_MCIM.GasSolubilityParameter",
     "gas (nitrogen) solubility; replaced from the foaming material table at each load"},
    {"FILL_ADVANCED_SlipBC.FlagSlipBC", "wall-slip boundary condition switch"},
    {"FILL_OUTPUT_TIMES.ValueNoFillOutputTime", "times at which filling results are written"},
    {"IC_PADDLE_SHIFT_OUTPUT_TIMES.FlagAutoLoadIntermediateResult",
     "load intermediate results automatically"},
    {"IC_PADDLE_SHIFT_OUTPUT_TIMES.ValueCheckIntermediteTimeSpan", "check interval"},
    {"IC_PADDLE_SHIFT_OUTPUT_TIMES.ValueNoPaddleShiftTime", "output times of the paddle shift"},
    {"IC_PADDLE_SHIFT_OUTPUT_TIMES.Version", "version of the list"},
    {"IC_WIRE_SWEEP_OUTPUT_TIMES.FlagAutoLoadIntermediateResult",
     "load intermediate results automatically"},
    {"IC_WIRE_SWEEP_OUTPUT_TIMES.ValueCheckIntermediteTimeSpan", "check interval"},
    {"IC_WIRE_SWEEP_OUTPUT_TIMES.ValueNoWireSweepTime", "output times of the wire sweep"},
    {"IC_WIRE_SWEEP_OUTPUT_TIMES.Version", "version of the list"},
    {"MoldPreheat_OUTPUT_TIMES.FlagAutoLoadIntermediateResult",
     "load intermediate results automatically"},
    {"MoldPreheat_OUTPUT_TIMES.ValueNoPreheatOutputTime",
     "times at which results are written during mold preheating"},
    {"OPEN_OUTPUT_TIMES.ValueNoOpenOutputTime",
     "times at which results are written at mold opening"},
    {"OPTIC_OUTPUT_DIRECTION.ValueOpticLightDirection", "light directions (x y z), one per line"},
    {"OPTIC_OUTPUT_DIRECTION.Version", "section version"},
    {"OPTIC_OUTPUT_TO_SOFTWARE.FlagBirefringence", "output birefringence"},
    {"OPTIC_OUTPUT_TO_SOFTWARE.FlagDeformedShape", "use the deformed (warped) shape"},
    {"OPTIC_OUTPUT_TO_SOFTWARE.FlagRefractiveindex", "output the refractive index"},
    {"OPTIC_OUTPUT_TO_SOFTWARE.OpticalSoftware",
     "name of the optical program that receives the results"},
    {"OPTIC_OUTPUT_TO_SOFTWARE.OutputBC", "output of boundary conditions"},
    {"OPTIC_OUTPUT_TO_SOFTWARE.OutputDirectory", "folder for the output; may hold blanks"},
    {"PACK_OUTPUT_TIMES.ValueNoPackOutputTime", "times at which packing results are written"},
    {"REMOTE_MACHINES.ValueLocalHost", "host name of the machine that starts the run"},
    {"REMOTE_MACHINES.ValueMachineSetting",
     "one row per remote machine: host name, job count, path"},
    {"REMOTE_MACHINES.ValueMap", "mapping text of the remote run"},
    {"REMOTE_MACHINES.ValueNoMachine", "number of remote machines"},
    {"REMOTE_MACHINES.ValueParallelWorkingFolder",
     "working folder of the parallel run; may hold blanks"},
    {"REMOTE_MACHINES.ValueRemoteNoTask", "number of tasks on remote machines"},
    {"REMOTE_MACHINES.ValueShareFolderName", "name of the shared folder"},
    {"REMOTE_MACHINES.ValueSharedVelmaraName",
     "shared name of the solver installation on the remote machines"},
    {"REMOTE_MACHINES.Version", "record version"},
    {"SHELL_COOL.FlagAutoSetCoolTime", "set the cooling time automatically"},
    {"SHELL_FILL.ValueNoFlowLayer", "number of layers"},
    {"SOLID_COOL.Flag3DSolidCoolingChannel", "run the 3D solid cooling-channel analysis"},
    {"SOLID_COOL.FlagAutoSetCoolTime", "set the cooling time automatically"},
    {"SOLID_COOL.ValueConvergeType", "convergence type, 1 to 3"},
    {"SOLID_COOL.ValueConvergeUnit", "convergence unit: 1 degree, 2 percentage"},
    {"SOLID_FILL.Flag2WayPaddleShiftMethod", "two-way paddle-shift coupling"},
    {"SOLID_FILL.FlagCompressibleFlow", "flow model: compressible flow"},
    {"SOLID_FILL.FlagEstimateCrystall", "turn crystallization on for the flow solver"},
    {"SOLID_FILL.FlagFlowVEcoupling", "couple flow and viscoelastic analysis"},
    {"SOLID_FILL.FlagGateFreezeByFlowRate", "gate-freeze criterion: flow rate"},
    {"SOLID_FILL.FlagGateFreezeByTemperature", "gate-freeze criterion: temperature"},
    {"SOLID_FILL.FlagGateFreezeByWeightDeviation", "gate-freeze criterion: part-weight deviation"},
    {"SOLID_FILL.FlagInertia", "flow model: include inertia"},
    {"SOLID_FILL.FlagNonIsothermal", "flow model: non-isothermal"},
    {"SOLID_FILL.FlagNonNewtonian", "flow model: non-Newtonian"},
    {"SOLID_FILL.FlagOutputFEMAP", "export results for FEMAP"},
    {"SOLID_FILL.FlagOutputHyperMesh", "export results for HyperMesh"},
    {"SOLID_FILL.FlagOutputHyperMeshAvi", "export results for HyperMesh as a video"},
    {"SOLID_FILL.FlagOutputTecplot", "export results for Tecplot"},
    {"SOLID_FILL.FlagParticleTracer", "trace flow particles"},
    {"SOLID_FILL.FlagStopPackingAfterGateFreeze", "end packing once the gate freezes"},
    {"SOLID_FILL.FlagVentingAnalysis", "venting analysis switch"},
    {"SOLID_FILL.FlagViscousHeating", "flow model: viscous heating"},
    {"SOLID_FILL.ValueEOFPercent", "end-of-fill point as a fraction (0 to 1), not a percentage"},
    {"SOLID_FILL.ValueGateFreezeByFlowRate", "flow rate of the gate-freeze criterion"},
    {"SOLID_FILL.ValueGateFreezeByTemperature", "temperature of the gate-freeze criterion"},
    {"SOLID_FILL.ValueGateFreezeByWeightDeviation",
     "part-weight deviation of the gate-freeze criterion"},
    {"SOLID_FILL.ValueGravityX", "gravity vector, x"},
    {"SOLID_FILL.ValueGravityY", "gravity vector, y"},
    {"SOLID_FILL.ValueGravityZ", "gravity vector, z"},
    {"SOLID_FILL.ValueParticleGroup", "number of tracer particle groups"},
    {"SOLID_FILL.ValueUIEOFPercent",
     "end-of-fill value the user interface shows, kept apart from ValueEOFPercent"},
    {"SOLID_FILL.ValueUnFilledElement", "stop criterion: count of unfilled elements"},
    {"SOLID_IC.ABAQUSStressSolverDirectory", "installation folder of ABAQUS"},
    {"SOLID_IC.ANSYSStressSolverDirectory", "installation folder of ANSYS"},
    {"SOLID_IC.FlagANSYSStressSolverAnalysisType", "analysis type passed to ANSYS"},
    {"SOLID_IC.FlagDragForceModel", "drag force model on wires"},
    {"SOLID_IC.FlagPaddleShiftNonLinearOption", "non-linear paddle shift"},
    {"SOLID_IC.FlagStressSolverType",
     "external stress solver: 1 ANSYS, 2 ABAQUS, 3 the suite's own"},
    {"SOLID_IC.FlagWireSweepNLGEOMOption",
     "geometric non-linearity of the wire sweep; shares FlagWireSweepNonLinearOption's value"},
    {"SOLID_IC.FlagWireSweepNLMatOption", "material non-linearity of the wire sweep"},
    {"SOLID_IC.FlagWireSweepNonLinearOption", "non-linear wire sweep"},
    {"SOLID_IC.OutputBatchFileDirectory", "folder for the generated batch file"},
    {"SOLID_IC.Version", "record version"},
    {"SOLID_IC.WireTolerance", "wire cross-over tolerance"},
    {"SOLID_MCM.FlagPrevShot", "the analysis continues from a previous shot"},
    {"SOLID_MCM.FlagPrevShotProject", "the previous shot belongs to another project"},
    {"SOLID_MCM.ValueShotProjectName", "name of the previous shot's project"},
    {"SOLID_MCM.ValueShotProjectPath", "folder of the previous shot's project"},
    {"SOLID_MCM.ValueShotRunID", "run number of the previous shot"},
    {"SOLID_MCM.Version", "record version"},
    {"SOLID_OPTIC.FlagDarkField", "dark-field view"},
    {"SOLID_OPTIC.FlagEstimateOpticProperty", "estimate optical properties"},
    {"SOLID_OPTIC.FlagLightField", "light-field view"},
    {"SOLID_OPTIC.FlagMonochromaticWaveLength", "use a single wavelength"},
    {"SOLID_OPTIC.FlagOutputToOpticalSoftware", "hand results to an optical program"},
    {"SOLID_OPTIC.FlagRemoveRunner", "leave the runner out of the optical analysis"},
    {"SOLID_OPTIC.FlagWhiteLight", "white light"},
    {"SOLID_OPTIC.ValueMonochromaticWaveLength", "that single wavelength, a whole number"},
    {"SOLID_OPTIC.Version", "record version"},
    {"SOLID_PACK.FlagexPackingCalculation", "extended-packing calculation switch"},
    {"SOLID_PACK.ValueexPackingCrystal",
     "extended-packing value for crystalline materials; written to templates only"},
    {"SOLID_PACK.ValueexPackingNoCrystal",
     "extended-packing value for non-crystalline materials; written to templates only"},
    {"SOLID_VE_STRESS.MTCount", "points of the relaxation curve: E0 and time"},
    {"SOLID_VE_STRESS.ValueEaslticRatio", "elastic modulus ratio"},
    {"SOLID_VE_STRESS.Version", "section version"},
    {"SOLID_VE_WARP.MTCount", "points of the relaxation curve: E0 and time"},
    {"SOLID_VE_WARP.ValueEaslticRatio", "elastic modulus ratio"},
    {"SOLID_VE_WARP.Version", "section version"},
    {"SUMMARY.Creater", "program that wrote the parameters"},
    {"SUMMARY.File", "project file the parameters belong to"},
    {"SUMMARY.Flag3D", "solid (3D) model"},
    {"SUMMARY.FlagCool", "run the cooling stage"},
    {"SUMMARY.FlagFill", "run the filling stage"},
    {"SUMMARY.FlagHRSteady", "run the hot-runner steady stage"},
    {"SUMMARY.FlagICPackage", "run the IC packaging stage"},
    {"SUMMARY.FlagMCM", "run the multi-component molding stage"},
    {"SUMMARY.FlagOptic", "run the optics stage"},
    {"SUMMARY.FlagPack", "run the packing stage"},
    {"SUMMARY.FlagStress", "run the stress stage"},
    {"SUMMARY.FlagTaskManager", "use the task manager"},
    {"SUMMARY.FlagWarp", "run the warpage stage"},
    {"SUMMARY.Time", "when the parameters were written"},
    {"SUMMARY.Version", "format version; the KRN writer always writes 1005"},
    {"TASKMANAGER.IDTaskMode",
     "way of running: 0 local machine, 1 remote machines, 2 computing manager"},
    {"TASKMANAGER.ValueConsoleRedirection", "console redirection, 0 or 1"},
    {"TASKMANAGER.ValueLocalNoTask", "number of tasks (processors) on the local machine"},
    {"TASKMANAGER.ValueNoTask",
     "task count; files get the task count of the chosen way of running"},
    {"TASKMANAGER.Version", "record version"},
    {"TASKMANAGER.flagAccelerationType", "acceleration type"},
};

// Only keys whose values outside the range mean nothing to the solvers;
// bounds are inclusive and apply to the value as the file holds it.
const KeyRange kRanges[] = {
    {"FILL_ADVANCED_HRSteady.ValueHRGateType", 0, 1, "which of a gate's two values"},
    {"FILL_ADVANCED_LONGFIBER.DiffusionModelType", 0, 2, "diffusion model 0, 1 or 2"},
    {"SOLID_COOL.ValueConvergeType", 1, 3, "convergence type 1, 2 or 3"},
    {"SOLID_COOL.ValueConvergeUnit", 1, 2, "1 degree, 2 percentage"},
    {"SOLID_FILL.ValueEOFPercent", 0.0, 1.0, "a fraction of the fill, not a percentage"},
    {"SOLID_IC.FlagStressSolverType", 1, 3, "1 ANSYS, 2 ABAQUS, 3 the suite's own solver"},
    {"TASKMANAGER.IDTaskMode", 0, 2, "0 local machine, 1 remote machines, 2 computing manager"},
    {"TASKMANAGER.ValueConsoleRedirection", 0, 1, "console redirection off or on"},
};

template <typename Entry, std::size_t N>
const Entry* Find(const Entry (&table)[N], const std::string& key) {
  const Entry* end = table + N;
  const Entry* it = std::lower_bound(table, end, key, [](const Entry& e, const std::string& k) {
    return std::strcmp(e.key, k.c_str()) < 0;
  });
  return it != end && key == it->key ? it : nullptr;
}

std::string Number(double value) {
  std::ostringstream out;
  out << value;
  return out.str();
}

}  // namespace

const char* MeaningOf(const std::string& key) {
  const KeyMeaning* entry = Find(kMeanings, key);
  return entry != nullptr ? entry->meaning : "";
}

const KeyRange* RangeOf(const std::string& key) { return Find(kRanges, key); }

std::string RangeError(const std::string& key, const std::string& value) {
  const KeyRange* range = RangeOf(key);
  if (range == nullptr) return "";
  const double number = std::strtod(value.c_str(), nullptr);
  if (number >= range->min && number <= range->max) return "";
  return "'" + value + "' is outside " + Number(range->min) + " to " + Number(range->max) +
         " for " + key + " (" + range->reason + ")";
}

const KeyMeaning* AllMeanings(std::size_t* count) {
  *count = std::size(kMeanings);
  return kMeanings;
}

const KeyRange* AllRanges(std::size_t* count) {
  *count = std::size(kRanges);
  return kRanges;
}

}  // namespace nvxparam
