// The warpage record: one CNVX3DSolidWrap holds the settings of <SHELL_WARP>
// and <SOLID_WARP>. The shell section is a subset of the solid one; both bind
// the same fields, and the section read later wins (the document reader takes
// <SHELL_WARP> before <SOLID_WARP>).
//
// Most "Flag" fields are plain integers, read and written as such, so any
// integer survives a file; only FlagEnhancedInMoldConstraint is a bool, true
// for any non-zero value. The shell preset's ValueIMCMedTH (0.333333) differs
// from the constructor's and the solid preset's (0.001) on purpose.
#ifndef NVX_SECTIONS_WARP_H_
#define NVX_SECTIONS_WARP_H_

#include <cstdint>
#include <string>
#include <vector>

#include "core/SectionDef.h"

class CNVX3DWrap {
 public:
  virtual ~CNVX3DWrap() = default;

  std::int32_t Version = 1001;
  std::int32_t IDSolver = 0;
  std::int32_t IDCompositeModel = 2;
  std::int32_t FlagSolverAcceleration = 1;
  std::int32_t FlagRemoveRunner = 1;
  std::int32_t FlagFiberEffect = 0;  // mirrors the fill fibre flag when that is set
  std::int32_t FlagHighOrderElement = 0;
  std::int32_t FlagInMoldConstraint = 0;
  bool FlagEnhancedInMoldConstraint = true;
  std::int32_t FlagMoldThermalDeformation = 0;
  std::int32_t ValueMaxIteration = 50000;
  double ValueMinIterativeError = 5e-05;
  double ValueIMCMedTH = 0.001;
  double ValueIMCMedWR = 0.001;
  double ValueIMCRelST = 0.4;
  // Free text lines written at the end of <SHELL_WARP>; never read.
  std::vector<std::string> ShellWarpLines;
  // Solid-only settings; they start at their solid-preset values.
  std::int32_t FlagVEResidualStress = 0;
  std::int32_t FlagRIMShrinkageType = 1;
  std::int32_t FlagDifferentialEffect = 0;
  std::int32_t FlagThermalDisplacement = 0;
};

class CNVX3DSolidWrap : public CNVX3DWrap {
 public:
  ~CNVX3DSolidWrap() override = default;
};

namespace nvx {

extern const SectionDef kShellWarpSection;
extern const SectionDef kSolidWarpSection;

// The project values the solid preset looks at.
struct WarpProjectValues {
  std::int32_t solverSelector = 0;  // 2 selects solver 1 without the enhanced constraint
  bool optionA = false;             // either option set: solver 0
  bool optionB = false;
  std::int32_t typeNumber = 0;  // types 3, 9, 13 and 14: solver 0
};

void ApplySolidWarpPreset(CNVX3DSolidWrap& record, const WarpProjectValues& project);
// Version through ValueIMCRelST to the shell values; the solid-only settings
// and the text lines stay.
void ApplyShellWarpPreset(CNVX3DSolidWrap& record);

}  // namespace nvx

#endif  // NVX_SECTIONS_WARP_H_
