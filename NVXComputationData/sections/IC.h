// The IC packaging record (sections <SOLID_IC>, <IC_PADDLE_SHIFT_OUTPUT_TIMES>,
// <IC_WIRE_SWEEP_OUTPUT_TIMES>): the external stress solver and its folders,
// the wire-sweep and paddle-shift models, the wire cross-over tolerance and
// two output-time lists. The wire-sweep times live only in KRN files.
//
// "FlagWireSweepNLGEOMOption" has no field of its own: it shares the field of
// "FlagWireSweepNonLinearOption" in both files (see IC.cpp).
//
// Decision of this library where the format is silent: reading the paddle
// times from RSV keeps the stored count item and fills the list from the
// stored array, 0.0 for each time the array does not hold.
#ifndef NVX_SECTIONS_IC_H_
#define NVX_SECTIONS_IC_H_

#include <cstdint>
#include <string>

#include "core/OutputTimes.h"
#include "core/SectionDef.h"

struct CNVX3DSolidIC {
  // <SOLID_IC>
  std::int32_t Version = 0;
  std::int32_t FlagStressSolverType = 0;  // 1 ANSYS, 2 ABAQUS, 3 the suite's own solver
  std::int32_t FlagANSYSStressSolverAnalysisType = 0;
  std::int32_t FlagDragForceModel = 0;
  std::int32_t FlagWireSweepNonLinearOption = 0;  // also "FlagWireSweepNLGEOMOption"
  std::int32_t FlagWireSweepNLMatOption = 0;
  std::int32_t FlagPaddleShiftNonLinearOption = 0;
  std::string ANSYSStressSolverDirectory;
  std::string ABAQUSStressSolverDirectory;
  std::string OutputBatchFileDirectory;
  double WireTolerance = 0.0;
  // <IC_PADDLE_SHIFT_OUTPUT_TIMES>
  std::int32_t PaddleVersion = 0;
  std::int32_t PaddleFlagAutoLoadIntermediateResult = 0;
  double PaddleValueCheckIntermediteTimeSpan = 0.0;
  nvx::OutputTimes PaddleTimes;
  // <IC_WIRE_SWEEP_OUTPUT_TIMES>
  std::int32_t WireSweepVersion = 0;
  std::int32_t WireSweepFlagAutoLoadIntermediateResult = 0;
  double WireSweepValueCheckIntermediteTimeSpan = 0.0;
  nvx::OutputTimes WireSweepTimes;
};

namespace nvx {

extern const SectionDef kSolidICSection;
extern const SectionDef kICPaddleShiftOutputTimesSection;
extern const SectionDef kICWireSweepOutputTimesSection;

// The load-mode-3 settings: the suite's own stress solver (3) and ANSYS
// analysis type 0.
void ApplyICModeThree(CNVX3DSolidIC& r);

}  // namespace nvx

#endif  // NVX_SECTIONS_IC_H_
