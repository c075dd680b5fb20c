// The Summary record (section <SUMMARY>, RSV table "Summary"): which project the
// parameters belong to, who wrote them and when, and which stages run.
#ifndef NVX_SECTIONS_SUMMARY_H_
#define NVX_SECTIONS_SUMMARY_H_

#include <cstdint>
#include <string>
#include <vector>

#include "core/SectionDef.h"

struct CNVX3DSummary {
  std::wstring File;
  std::int32_t Version = 0;
  std::string Creater = "Velmara-Project-ComputationData-engine";  // key spelt so
  std::string Time = "Now Time (Default)";
  bool Flag3D = false;
  bool FlagFill = false;
  bool FlagHRSteady = false;
  bool FlagPack = false;
  bool FlagCool = false;
  bool FlagWarp = false;
  bool FlagOptic = false;
  bool FlagICPackage = false;
  bool FlagMCM = false;
  bool FlagStress = false;
  bool FlagTaskManager = false;
  std::int32_t DefaultMode = 0;
  std::vector<std::string> Lines;  // free lines, written after DefaultMode
};

namespace nvx {

extern const SectionDef kSummarySection;

// The Summary version every KRN writer writes, whatever the record holds.
constexpr std::int32_t kSummaryKrnVersion = 1005;

// Overwrites the record with the preset of a shell (model kind 1) or a solid
// project; File becomes empty and the free lines stay.
void ApplySummaryPreset(CNVX3DSummary& summary, bool shell);

// The current local time as "h:m:s-month-day-year", no leading zeros.
std::string SummaryTimeStamp();

}  // namespace nvx

#endif  // NVX_SECTIONS_SUMMARY_H_
