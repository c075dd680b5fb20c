// The optics record (sections <SOLID_OPTIC>, <OPTIC_OUTPUT_DIRECTION>,
// <OPTIC_OUTPUT_TO_SOFTWARE>): which optical properties to estimate, the
// light settings, the light directions and the hand-over to an optical
// program.
//
// The direction count "ValueOpticLightDirection" is stored apart from the
// direction list and the list operations never update it; hosts keep the two
// in step. Decisions of this library where the format is silent: a list
// shorter than a positive count writes only the direction rows (KRN) or the
// directions (RSV) the list holds; a file's count larger than the directions it
// gives fills the list with (0, 0, 0) up to the count; deleting an index
// outside the list removes nothing.
#ifndef NVX_SECTIONS_OPTIC_H_
#define NVX_SECTIONS_OPTIC_H_

#include <cstdint>
#include <string>
#include <vector>

#include "core/SectionDef.h"

struct CNVX3DLightDirection {
  double X = 0.0;
  double Y = 0.0;
  double Z = 0.0;
};

struct CNVX3DSolidOptic {
  // <SOLID_OPTIC>
  std::int32_t Version = 0;
  std::int32_t FlagEstimateOpticProperty = 0;
  std::int32_t FlagDarkField = 0;
  std::int32_t FlagLightField = 0;
  std::int32_t FlagWhiteLight = 0;
  std::int32_t FlagRemoveRunner = 0;
  std::int32_t FlagMonochromaticWaveLength = 0;
  std::int32_t ValueMonochromaticWaveLength = 0;
  bool FlagOutputToOpticalSoftware = false;
  // <OPTIC_OUTPUT_DIRECTION>
  std::int32_t DirectionVersion = 0;
  std::int32_t ValueOpticLightDirection = 0;  // the count, kept apart from the list
  std::vector<CNVX3DLightDirection> Directions;
  // <OPTIC_OUTPUT_TO_SOFTWARE>
  std::string OpticalSoftware;
  std::int32_t OutputBC = 0;
  std::int32_t FlagDeformedShape = 0;
  std::int32_t FlagRefractiveindex = 0;
  std::int32_t FlagBirefringence = 0;
  std::string OutputDirectory;
};

namespace nvx {

extern const SectionDef kSolidOpticSection;
extern const SectionDef kOpticOutputDirectionSection;
extern const SectionDef kOpticOutputToSoftwareSection;

// Replaces direction i, or appends the direction when i is at or past the end
// of the list (whatever i is).
void SetLightDirection(CNVX3DSolidOptic& r, int i, const CNVX3DLightDirection& d);

}  // namespace nvx

#endif  // NVX_SECTIONS_OPTIC_H_
