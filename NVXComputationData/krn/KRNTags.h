// The 33 section tags of a KRN document, in the order their section readers run
// after a document has been scanned.
#ifndef NVX_KRN_KRNTAGS_H_
#define NVX_KRN_KRNTAGS_H_

#include <cstddef>
#include <string>

namespace nvx {

enum class KrnTag : int {
  kSummary,
  kShellFill,
  kShellPack,
  kFillOutputTimes,
  kFillAdvancedMCIM,
  kFillAdvancedSlipBC,
  kPackOutputTimes,
  kShellCool,
  kCoolOutputTimes,
  kMoldPreheatOutputTimes,
  kOpenOutputTimes,
  kShellWarp,
  kSolidFill,
  kSolidPack,
  kSolidCool,
  kSolidWarp,
  kSolidStress,
  kSolidVE,
  kSolidVEStress,
  kSolidVECuringStress,
  kSolidVEWarp,
  kSolidOptic,
  kOpticOutputDirection,
  kOpticOutputToSoftware,
  kSolidIC,
  kICPaddleShiftOutputTimes,
  kICWireSweepOutputTimes,
  kSolidMCM,
  kTaskManager,
  kRemoteMachines,
  kComputingManager,
  kFillAdvancedLongFiber,
  kFillAdvancedHRSteady,
};

constexpr std::size_t kKrnTagCount = 33;

// The tag's name without brackets, e.g. "SUMMARY"; also the RSV table name of
// most sections.
const char* TagName(KrnTag tag);
std::string OpenTag(KrnTag tag);   // "<SUMMARY>"
std::string CloseTag(KrnTag tag);  // "</SUMMARY>"
// The tag named `name` (without brackets); false when there is none.
bool TagByName(const std::string& name, KrnTag* tag);

constexpr std::size_t Index(KrnTag tag) { return static_cast<std::size_t>(tag); }

}  // namespace nvx

#endif  // NVX_KRN_KRNTAGS_H_
