// Keys, presets and time stamp of the Summary section.
#include "sections/Summary.h"

#include <ctime>

#include "NVXPlatform.h"
#include "core/NVX3DComputationImpl.h"

namespace nvx {
namespace {

KeyList SummaryKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSummary& r = *impl.sections.summary;
  return {
      Field("File", r.File),
      // The stored Version is read from KRN and kept in RSV, but KRN files
      // always say 1005.
      Field("Version", r.Version).Use(kKrnRead | kRsv),
      FixedInt("Version", kSummaryKrnVersion).Use(kKrnWrite),
      Field("Creater", r.Creater),
      Field("Time", r.Time),
      Field("Flag3D", r.Flag3D),
      Field("FlagFill", r.FlagFill),
      // Not stored in the RSV table.
      Field("FlagHRSteady", r.FlagHRSteady).Use(kKrn),
      Field("FlagPack", r.FlagPack),
      Field("FlagCool", r.FlagCool),
      Field("FlagWarp", r.FlagWarp),
      Field("FlagOptic", r.FlagOptic),
      Field("FlagICPackage", r.FlagICPackage),
      Field("FlagMCM", r.FlagMCM),
      Field("FlagStress", r.FlagStress),
      Field("FlagTaskManager", r.FlagTaskManager),
      // An int read as 0/1; not stored in the RSV table.
      Field("DefaultMode", r.DefaultMode).TrueWhen(Truth::kPositive).Use(kKrn),
      Lines(r.Lines),
  };
}

}  // namespace

const SectionDef kSummarySection{KrnTag::kSummary, "Summary", SummaryKeys};

void ApplySummaryPreset(CNVX3DSummary& s, bool shell) {
  s.File.clear();
  s.Version = kSummaryKrnVersion;
  s.Creater = "Velmara-Project-Engine";
  s.Time = SummaryTimeStamp();
  s.Flag3D = !shell;
  s.FlagFill = true;
  s.FlagHRSteady = !shell;
  s.FlagPack = true;
  s.FlagCool = true;
  s.FlagWarp = true;
  s.FlagOptic = !shell;
  s.FlagICPackage = !shell;
  s.FlagMCM = !shell;
  s.FlagStress = !shell;
  s.FlagTaskManager = true;
  s.DefaultMode = 0;
}

std::string SummaryTimeStamp() {
  // The re-entrant conversion: parameter objects may live in several threads.
  std::tm t{};
  if (!platform::LocalTime(std::time(nullptr), &t)) return "0:0:0-1-1-1970";
  return std::to_string(t.tm_hour) + ":" + std::to_string(t.tm_min) + ":" +
         std::to_string(t.tm_sec) + "-" + std::to_string(t.tm_mon + 1) + "-" +
         std::to_string(t.tm_mday) + "-" + std::to_string(t.tm_year + 1900);
}

}  // namespace nvx
