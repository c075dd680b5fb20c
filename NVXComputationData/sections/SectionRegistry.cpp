// Which sections have records: the tag-to-section table the document reader,
// the document writers, the RSV tables and the command-line tool share, and
// the RSV tables that belong to no KRN section of their own.
#include "core/SectionDef.h"
#include "sections/Cool.h"
#include "sections/FillPack.h"
#include "sections/SolidStress.h"
#include "sections/Summary.h"
#include "sections/Warp.h"

namespace nvx {
namespace {

// One entry per tag, in the order of KrnTag; nullptr while a section has no
// records yet.
const SectionDef* const kSections[kKrnTagCount] = {
    &kSummarySection,                 // SUMMARY
    &kShellFillSection,               // SHELL_FILL
    &kShellPackSection,               // SHELL_PACK
    &kFillOutputTimesSection,         // FILL_OUTPUT_TIMES
    nullptr,                          // FILL_ADVANCED_MCIM
    nullptr,                          // FILL_ADVANCED_SlipBC
    &kPackOutputTimesSection,         // PACK_OUTPUT_TIMES
    &kShellCoolSection,               // SHELL_COOL
    &kCoolOutputTimesSection,         // COOL_OUTPUT_TIMES
    &kMoldPreheatOutputTimesSection,  // MoldPreheat_OUTPUT_TIMES
    &kOpenOutputTimesSection,         // OPEN_OUTPUT_TIMES
    &kShellWarpSection,               // SHELL_WARP
    &kSolidFillSection,               // SOLID_FILL
    &kSolidPackSection,               // SOLID_PACK
    &kSolidCoolSection,               // SOLID_COOL
    &kSolidWarpSection,               // SOLID_WARP
    &kSolidStressSection,             // SOLID_STRESS
    nullptr,                          // SOLID_VE
    nullptr,                          // SOLID_VE_STRESS
    nullptr,                          // SOLID_VE_CURING_STRESS
    nullptr,                          // SOLID_VE_WARP
    nullptr,                          // SOLID_OPTIC
    nullptr,                          // OPTIC_OUTPUT_DIRECTION
    nullptr,                          // OPTIC_OUTPUT_TO_SOFTWARE
    nullptr,                          // SOLID_IC
    nullptr,                          // IC_PADDLE_SHIFT_OUTPUT_TIMES
    nullptr,                          // IC_WIRE_SWEEP_OUTPUT_TIMES
    nullptr,                          // SOLID_MCM
    nullptr,                          // TASKMANAGER
    nullptr,                          // REMOTE_MACHINES
    nullptr,                          // COMPUTING_MANAGER
    nullptr,                          // FILL_ADVANCED_LONGFIBER
    nullptr,                          // FILL_ADVANCED_HRSteady
};

}  // namespace

const SectionDef* FindSection(KrnTag tag) {
  const std::size_t i = Index(tag);
  return i < kKrnTagCount ? kSections[i] : nullptr;
}

const std::vector<const SectionDef*>& RsvOnlyTables() {
  static const std::vector<const SectionDef*> tables = {
      &kPartInsertTable,  // travels with SOLID_STRESS
                          // ValueMachineSetting (travels with REMOTE_MACHINES)
  };
  return tables;
}

}  // namespace nvx
