// Test helpers: one KRN section written to text (with "\n" line ends), or
// read from the text of its body, through the generic section writer and reader.
#ifndef NVX_TESTS_SECTIONIO_H_
#define NVX_TESTS_SECTIONIO_H_

#include <sstream>
#include <string>

#include "TestUtil.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNSectionIO.h"

namespace nvxtest {

inline std::string WriteSection(CNVX3DComputationImpl& impl, nvx::KrnTag tag,
                                bool templateWriting = false) {
  std::ostringstream os;
  nvx::KrnStream out(os);
  nvx::WriteKrnSection(*nvx::FindSection(tag), out, impl, templateWriting);
  return ToLF(os.str());
}

// Reads `body` (the lines between the tags, each ended by "\n") as section `tag`.
inline void ReadSection(CNVX3DComputationImpl& impl, nvx::KrnTag tag, const std::string& body) {
  CNVX3DKRNDocument doc;
  std::istringstream in(nvx::OpenTag(tag) + "\n" + body + nvx::CloseTag(tag) + "\n");
  doc.Scan(in);
  nvx::ReadKrnSection(*nvx::FindSection(tag), doc.Body(tag), impl);
}

}  // namespace nvxtest

#endif  // NVX_TESTS_SECTIONIO_H_
