// SectionDef: what the generic readers and writers need to know about one KRN
// section: its tag, its RSV table, its keys and the few hooks of its quirks.
#ifndef NVX_CORE_SECTIONDEF_H_
#define NVX_CORE_SECTIONDEF_H_

#include <vector>

#include "core/KeyTable.h"
#include "krn/KRNTags.h"

namespace nvx {

class KrnStream;

struct SectionDef;
using KrnSectionWriter = void (*)(const SectionDef& def, KrnStream& out,
                                  CNVX3DComputationImpl& impl, bool templateWriting);

using RsvTableWriter = void (*)(NVX3DRSVExTool::CRSVTool& tool, NVX3DRSVExTool::CRSVGroup* group,
                                CNVX3DComputationImpl& impl);

struct SectionDef {
  KrnTag tag;
  // The section's RSV table, or nullptr for a section that lives only in KRN.
  const char* rsvTable;
  // The keys bound to the fields of `impl`'s records, in KRN writer order.
  KeyList (*keys)(CNVX3DComputationImpl& impl);
  // Stream settings the writer applies before the opening tag.
  void (*beforeOpenTag)(KrnStream& out) = nullptr;
  // A table whose layout the generic table writer and reader cannot follow
  // (a group of tables, say) replaces them with these.
  RsvTableWriter writeRsv = nullptr;
  RsvTableWriter readRsv = nullptr;
  // A section whose lines go beyond what its keys describe (an empty line
  // after the closing tag, say) replaces the generic section writer with this;
  // it may call WriteKrnKeys for the lines the keys describe.
  KrnSectionWriter writeKrn = nullptr;
};

// The section of `tag`, or nullptr while the section has no records yet.
const SectionDef* FindSection(KrnTag tag);

// Tables of the RSV file that belong to no KRN section of their own (their
// `tag` names the section they travel with).
const std::vector<const SectionDef*>& RsvOnlyTables();

}  // namespace nvx

#endif  // NVX_CORE_SECTIONDEF_H_
