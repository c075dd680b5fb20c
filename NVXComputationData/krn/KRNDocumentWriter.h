// The three whole-document writers: section-present (load mode 0), model-kind
// (load modes 1, 2 and -1) and template (the per-user template).
#ifndef NVX_KRN_KRNDOCUMENTWRITER_H_
#define NVX_KRN_KRNDOCUMENTWRITER_H_

#include <ostream>
#include <string>
#include <vector>

#include "krn/KRNTags.h"

class CNVX3DComputationImpl;

namespace nvx {

enum class DocumentWriter { kSectionPresent, kModelKind, kTemplate };

// The sections `writer` puts into the document of `impl`, in order.
std::vector<KrnTag> DocumentSections(DocumentWriter writer, const CNVX3DComputationImpl& impl);

// Writes the declaration, the root tag, the sections and the closing root tag
// to `os`; true when the stream took all of it.
bool WriteKrnDocument(DocumentWriter writer, std::ostream& os, CNVX3DComputationImpl& impl);

// Writes the document as the file `path`. The old file is replaced only once
// the new one is completely on disk (keeping its permission bits, or its
// attributes on Windows); lines end with the system's text line end; a failed
// write returns false and leaves the old file whole. A file that cannot be
// opened for writing at all goes to the "Can't open" handler, which by default
// prints "Can't open" on standard error and ends the process with status 1:
// the solvers must never start on a stale parameter file.
bool WriteKrnDocument(DocumentWriter writer, const std::string& path, CNVX3DComputationImpl& impl);

}  // namespace nvx

#endif  // NVX_KRN_KRNDOCUMENTWRITER_H_
