// The hot-runner steady record (section <FILL_ADVANCED_HRSteady>, KRN only):
// flow rate, convergence criterion and the per-gate list.
#ifndef NVX_SECTIONS_HRSTEADY_H_
#define NVX_SECTIONS_HRSTEADY_H_

#include <array>
#include <cstdint>
#include <vector>

#include "core/SectionDef.h"

// One gate: a leading value no accessor reaches, then value 0 and value 1.
// "ValueHRGateType" chooses which of the last two the gate lines carry.
using CNVX3DHRGate = std::array<double, 3>;

struct CNVX3DHRSteady {
  std::int32_t Version = 1001;
  double ValueFlowRate = 0.0;
  double ValueConvergenceCriteria = 1.0;
  // The number of gate lines the writer emits; it need not match the list.
  std::int32_t ValueNoHRGate = 0;
  std::int32_t ValueHRGateType = 0;
  std::vector<CNVX3DHRGate> Gates;
};

namespace nvx {

extern const SectionDef kHRSteadySection;

void ResetHRSteady(CNVX3DHRSteady& record);

// Value `which` (0 or 1) of gate `gate`, or nullptr outside the list or for
// any other `which`.
double* GateValue(CNVX3DHRSteady& record, int gate, int which);

}  // namespace nvx

#endif  // NVX_SECTIONS_HRSTEADY_H_
