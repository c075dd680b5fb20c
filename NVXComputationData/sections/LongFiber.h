// The long-fiber record (section <FILL_ADVANCED_LONGFIBER>, RSV table
// "FILL_ADVANCED_LONGFIBER"): the fibre-orientation model, fibre geometry and
// content, fibre breakage and the particle-concentration options.
#ifndef NVX_SECTIONS_LONGFIBER_H_
#define NVX_SECTIONS_LONGFIBER_H_

#include <cstdint>
#include <string>
#include <vector>

#include "core/SectionDef.h"

// Fields in declared order. That order matters to ClearFiberModelSettings:
// the five 32-bit settings right after Version and the seven doubles right
// after the two fibre values are the ones a write may clear.
struct CNVX3DLongFiber {
  std::int32_t Version = 1001;
  // The five 32-bit settings after the version. FlagFiberBreakage is a 0/1
  // flag kept as a bool (its RSV item is a bool item).
  std::int32_t OrthotropicClosureMethod = 2;
  std::int32_t DiffusionModelType = 0;  // 0, 1 or 2: which coefficients KRN carries
  std::int32_t FiberType = 1;
  std::int32_t FlagConcertration = 0;  // particle concentration; key spelt so
  bool FlagFiberBreakage = false;
  // Fibre-orientation model: the modification factor and the diffusion
  // coefficients (Cf for types 0 and 1, Cm for type 1, b1 to b5 for type 2).
  double ModifiedFactor = 0.0;
  double Cf = 0.005;
  double Cm = 0.0;
  double b1 = 0.01;
  double b2 = 0.0;
  double b3 = 0.0;
  double b4 = 0.0;
  double b5 = 0.04;
  // The two fibre values a load may take from the project description.
  double AspectRatio = 20.0;
  double Weight = 20.0;
  // The seven doubles after the fibre values.
  double ValueFiberDiameter = 17.0;
  double ValueFiberBreakageCD = 3.0;
  double ValueFiberBreakageCB = 0.02;
  double ValueFiberBreakageS = 0.25;
  double ValueParticleDiameter = 17.0;
  double ValueAverageConcentration = 20.0;
  double ValueParticleFrictionIndex = 3.0;
  // Later settings.
  bool FlagScrewFiberBreakage = false;  // breakage in the screw
  // Free text lines written before the closing tag; never read.
  std::vector<std::string> Lines;
};

namespace nvx {

extern const SectionDef kLongFiberSection;

// Every setting back to its default; the free text lines stay.
void ResetLongFiber(CNVX3DLongFiber& record);

// Zeroes the five 32-bit settings after Version (closure method, diffusion
// model type, fibre type, concentration flag, breakage flag) and the seven
// doubles after the fibre values (fibre diameter, the three breakage
// coefficients, particle diameter, average concentration, friction index).
// Version, the fibre-orientation coefficients, the two fibre values and the
// screw breakage flag stay. Used before a write when the project asks for it.
void ClearFiberModelSettings(CNVX3DLongFiber& record);

// Stores the project's fibre aspect ratio and content; both become 0.0 unless
// both are non-negative.
void TakeFiberValues(CNVX3DLongFiber& record, double aspectRatio, double weight);

}  // namespace nvx

#endif  // NVX_SECTIONS_LONGFIBER_H_
