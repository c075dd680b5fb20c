// libFuzzer target: a KRN document from memory through the scanner, every
// section reader and the section-present writer. Only the documented
// out-of-range error of a list index may leave the library.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>

#include "core/NVX3DComputationImpl.h"
#include "core/SectionDef.h"
#include "krn/KRNDocument.h"
#include "krn/KRNDocumentWriter.h"
#include "krn/KRNSectionIO.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CNVX3DComputationImpl impl;
  CNVX3DKRNDocument* doc = impl.sections.document.get();
  if (doc == nullptr) return 0;
  std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
  doc->Scan(in);
  try {
    // The second pass of a load: each present section's reader in tag order.
    for (std::size_t i = 0; i < nvx::kKrnTagCount; ++i) {
      const auto tag = static_cast<nvx::KrnTag>(i);
      const nvx::SectionDef* def = nvx::FindSection(tag);
      if (def != nullptr && doc->IsPresent(tag)) nvx::ReadKrnSection(*def, doc->Body(tag), impl);
    }
    std::ostringstream out;
    nvx::WriteKrnDocument(nvx::DocumentWriter::kSectionPresent, out, impl);
  } catch (const std::out_of_range&) {
  }
  return 0;
}
