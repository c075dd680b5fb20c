// The multi-component molding record (section <SOLID_MCM>): whether the
// analysis continues from a previous shot, which run of it, and where that
// shot's project is.
#ifndef NVX_SECTIONS_MCM_H_
#define NVX_SECTIONS_MCM_H_

#include <cstdint>
#include <string>
#include <vector>

#include "core/SectionDef.h"

struct CNVX3DSolidMCM {
  std::int32_t Version = 0;
  bool FlagPrevShot = false;
  std::int32_t ValueShotRunID = 0;
  bool FlagPrevShotProject = false;  // accessors: ...ValueShotProject
  std::string ValueShotProjectPath;
  std::string ValueShotProjectName;
  // Carried by the record but read and written by no routine.
  std::vector<std::string> Unused;
};

namespace nvx {

extern const SectionDef kSolidMCMSection;

}  // namespace nvx

#endif  // NVX_SECTIONS_MCM_H_
