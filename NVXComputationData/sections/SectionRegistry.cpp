// Which sections have records: the tag-to-section table the document reader,
// the document writers, the RSV tables and the command-line tool share, and
// the RSV tables that belong to no KRN section of their own.
#include "core/SectionDef.h"
#include "sections/Computing.h"
#include "sections/Cool.h"
#include "sections/FillPack.h"
#include "sections/Foaming.h"
#include "sections/HRSteady.h"
#include "sections/IC.h"
#include "sections/LongFiber.h"
#include "sections/MCM.h"
#include "sections/Optic.h"
#include "sections/SlipBC.h"
#include "sections/SolidStress.h"
#include "sections/Summary.h"
#include "sections/Viscoelastic.h"
#include "sections/Warp.h"

namespace nvx {
namespace {

// One entry per tag, in the order of KrnTag; nullptr while a section has no
// records yet.
// clang-format off
const SectionDef* const kSections[kKrnTagCount] = {
    &kSummarySection,                    // SUMMARY
    &kShellFillSection,                  // SHELL_FILL
    &kShellPackSection,                  // SHELL_PACK
    &kFillOutputTimesSection,            // FILL_OUTPUT_TIMES
    &kFoamingSection,                    // FILL_ADVANCED_MCIM
    &kSlipBCSection,                     // FILL_ADVANCED_SlipBC
    &kPackOutputTimesSection,            // PACK_OUTPUT_TIMES
    &kShellCoolSection,                  // SHELL_COOL
    &kCoolOutputTimesSection,            // COOL_OUTPUT_TIMES
    &kMoldPreheatOutputTimesSection,     // MoldPreheat_OUTPUT_TIMES
    &kOpenOutputTimesSection,            // OPEN_OUTPUT_TIMES
    &kShellWarpSection,                  // SHELL_WARP
    &kSolidFillSection,                  // SOLID_FILL
    &kSolidPackSection,                  // SOLID_PACK
    &kSolidCoolSection,                  // SOLID_COOL
    &kSolidWarpSection,                  // SOLID_WARP
    &kSolidStressSection,                // SOLID_STRESS
    &kSolidVESection,                    // SOLID_VE
    &kSolidVEStressSection,              // SOLID_VE_STRESS
    &kSolidVECuringStressSection,        // SOLID_VE_CURING_STRESS
    &kSolidVEWarpSection,                // SOLID_VE_WARP
    &kSolidOpticSection,                 // SOLID_OPTIC
    &kOpticOutputDirectionSection,       // OPTIC_OUTPUT_DIRECTION
    &kOpticOutputToSoftwareSection,      // OPTIC_OUTPUT_TO_SOFTWARE
    &kSolidICSection,                    // SOLID_IC
    &kICPaddleShiftOutputTimesSection,   // IC_PADDLE_SHIFT_OUTPUT_TIMES
    &kICWireSweepOutputTimesSection,     // IC_WIRE_SWEEP_OUTPUT_TIMES
    &kSolidMCMSection,                   // SOLID_MCM
    &kTaskManagerSection,                // TASKMANAGER
    &kRemoteMachinesSection,             // REMOTE_MACHINES
    &kCompManagerSection,                // COMPUTING_MANAGER
    &kLongFiberSection,                  // FILL_ADVANCED_LONGFIBER
    &kHRSteadySection,                   // FILL_ADVANCED_HRSteady
};
// clang-format on

}  // namespace

const SectionDef* FindSection(KrnTag tag) {
  const std::size_t i = Index(tag);
  return i < kKrnTagCount ? kSections[i] : nullptr;
}

const std::vector<const SectionDef*>& RsvOnlyTables() {
  static const std::vector<const SectionDef*> tables = {
      &kPartInsertTable,       // PartInsert (travels with SOLID_STRESS)
      &kMachineSettingTables,  // ValueMachineSetting (travels with REMOTE_MACHINES)
  };
  return tables;
}

}  // namespace nvx
