// Which sections have records: the tag-to-section table the document reader,
// the document writers, the RSV tables and the command-line tool share.
#include "core/SectionDef.h"
#include "sections/FillPack.h"
#include "sections/Summary.h"

namespace nvx {

const SectionDef* FindSection(KrnTag tag) {
  switch (tag) {
    case KrnTag::kSummary:
      return &kSummarySection;
    case KrnTag::kShellFill:
      return &kShellFillSection;
    case KrnTag::kShellPack:
      return &kShellPackSection;
    case KrnTag::kSolidFill:
      return &kSolidFillSection;
    case KrnTag::kSolidPack:
      return &kSolidPackSection;
    case KrnTag::kFillOutputTimes:
      return &kFillOutputTimesSection;
    case KrnTag::kPackOutputTimes:
      return &kPackOutputTimesSection;
    default:
      return nullptr;
  }
}

}  // namespace nvx
