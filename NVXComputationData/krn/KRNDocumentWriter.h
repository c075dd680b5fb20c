// The three whole-document writers: section-present (load mode 0), model-kind
// (load modes 1, 2 and -1) and template (the per-user template).
#ifndef NVX_KRN_KRNDOCUMENTWRITER_H_
#define NVX_KRN_KRNDOCUMENTWRITER_H_

#include <string>
#include <vector>

#include "krn/KRNTags.h"

class CNVX3DComputationImpl;

namespace nvx {

enum class DocumentWriter { kSectionPresent, kModelKind, kTemplate };

// The sections `writer` puts into the document of `impl`, in order.
std::vector<KrnTag> DocumentSections(DocumentWriter writer, const CNVX3DComputationImpl& impl);

// Writes the declaration, the root tag, the sections and the closing root tag.
// A file that cannot be opened for writing prints "Can't open" on standard
// error and ends the process with status 1: the solvers must never start on a
// stale parameter file. Returns true once the document is written.
bool WriteKrnDocument(DocumentWriter writer, const std::string& path, CNVX3DComputationImpl& impl);

}  // namespace nvx

#endif  // NVX_KRN_KRNDOCUMENTWRITER_H_
