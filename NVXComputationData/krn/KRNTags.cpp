// Names of the KRN section tags.
#include "krn/KRNTags.h"

namespace nvx {
namespace {

constexpr const char* kNames[kKrnTagCount] = {
    "SUMMARY",
    "SHELL_FILL",
    "SHELL_PACK",
    "FILL_OUTPUT_TIMES",
    "FILL_ADVANCED_MCIM",
    "FILL_ADVANCED_SlipBC",
    "PACK_OUTPUT_TIMES",
    "SHELL_COOL",
    "COOL_OUTPUT_TIMES",
    "MoldPreheat_OUTPUT_TIMES",
    "OPEN_OUTPUT_TIMES",
    "SHELL_WARP",
    "SOLID_FILL",
    "SOLID_PACK",
    "SOLID_COOL",
    "SOLID_WARP",
    "SOLID_STRESS",
    "SOLID_VE",
    "SOLID_VE_STRESS",
    "SOLID_VE_CURING_STRESS",
    "SOLID_VE_WARP",
    "SOLID_OPTIC",
    "OPTIC_OUTPUT_DIRECTION",
    "OPTIC_OUTPUT_TO_SOFTWARE",
    "SOLID_IC",
    "IC_PADDLE_SHIFT_OUTPUT_TIMES",
    "IC_WIRE_SWEEP_OUTPUT_TIMES",
    "SOLID_MCM",
    "TASKMANAGER",
    "REMOTE_MACHINES",
    "COMPUTING_MANAGER",
    "FILL_ADVANCED_LONGFIBER",
    "FILL_ADVANCED_HRSteady",
};

}  // namespace

const char* TagName(KrnTag tag) { return kNames[Index(tag)]; }

std::string OpenTag(KrnTag tag) { return std::string("<") + TagName(tag) + ">"; }

std::string CloseTag(KrnTag tag) { return std::string("</") + TagName(tag) + ">"; }

bool TagByName(const std::string& name, KrnTag* tag) {
  for (std::size_t i = 0; i < kKrnTagCount; ++i) {
    if (name == kNames[i]) {
      *tag = static_cast<KrnTag>(i);
      return true;
    }
  }
  return false;
}

}  // namespace nvx
