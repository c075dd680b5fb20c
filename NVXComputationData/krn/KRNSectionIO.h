// The generic section reader and writer: they walk a section's key list.
#ifndef NVX_KRN_KRNSECTIONIO_H_
#define NVX_KRN_KRNSECTIONIO_H_

#include "core/SectionDef.h"
#include "krn/KRNDocument.h"
#include "krn/KRNStream.h"

namespace nvx {

// Reads the section's stored lines into its record. Keys are matched exactly;
// unknown keys and free lines are skipped; a missing key leaves its field.
//
// A count key (kTimes) takes the next N lines as its item lines, whatever
// they hold, ignores the number before the "=" and converts the one after it.
// The count is stored as it stands. A count larger than the lines left before
// the closing tag takes the lines there are, and 0.0 stands for each time the
// section does not give; the list never grows past kMaxOutputTimes, whatever
// the count says. A count of 0 or less takes no line and empties the list.
//
// The writers emit the stored count and one item line per time, as far as the
// list holds times: a count the list cannot back never makes a write fail.
void ReadKrnSection(const SectionDef& def, LineSpan body, CNVX3DComputationImpl& impl);

// Writes the section through its own writer when it has one, else as
// WriteKrnKeys does.
void WriteKrnSection(const SectionDef& def, KrnStream& out, CNVX3DComputationImpl& impl,
                     bool templateWriting);

// Writes the opening tag, the key lines in list order, the closing tag.
// `templateWriting` adds the keys that only the per-user template carries.
void WriteKrnKeys(const SectionDef& def, KrnStream& out, CNVX3DComputationImpl& impl,
                  bool templateWriting);

// WriteKrnKeys followed by an empty line: the writer of the sections that end
// with one (multi-component molding and the computing-resource sections).
void WriteKrnKeysThenEmptyLine(const SectionDef& def, KrnStream& out, CNVX3DComputationImpl& impl,
                               bool templateWriting);

// Converts one value token into the key's field, as the KRN reader does.
void StoreKrnValue(const Key& key, std::string_view value);

}  // namespace nvx

#endif  // NVX_KRN_KRNSECTIONIO_H_
