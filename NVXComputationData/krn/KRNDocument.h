// CNVX3DKRNDocument: the first pass over a KRN file. It stores the lines of
// every recognised section and remembers which sections the file held.
#ifndef NVX_KRN_KRNDOCUMENT_H_
#define NVX_KRN_KRNDOCUMENT_H_

#include <array>
#include <cstddef>
#include <istream>
#include <string>
#include <vector>

#include "krn/KRNTags.h"

namespace nvx {

// A run of stored lines.
struct LineSpan {
  const std::string* first = nullptr;
  const std::string* last = nullptr;
  const std::string* begin() const { return first; }
  const std::string* end() const { return last; }
  std::size_t size() const { return static_cast<std::size_t>(last - first); }
  bool empty() const { return first == last; }
};

}  // namespace nvx

class CNVX3DKRNDocument {
 public:
  // Longest line the scanner accepts; a longer line ends the scan.
  static constexpr std::size_t kMaxLineLength = 511;

  // Scans the file (a UTF-8 path). False when it cannot be opened: then
  // nothing changes.
  // Otherwise the line store and the section-present flags are replaced by
  // what this file holds.
  bool Scan(const std::string& path);
  void Scan(std::istream& in);

  bool IsPresent(nvx::KrnTag tag) const { return m_present[nvx::Index(tag)]; }
  void SetPresent(nvx::KrnTag tag, bool present) { m_present[nvx::Index(tag)] = present; }

  // The lines between the opening and the closing tag of the section's first
  // occurrence (empty lines were dropped by the scan). A section whose closing
  // tag is missing runs to the end of the file.
  nvx::LineSpan Body(nvx::KrnTag tag) const;

  // Every stored line, sections in file order, tags included.
  const std::vector<std::string>& Lines() const { return m_lines; }

 private:
  struct Range {
    std::size_t begin = 0;  // index of the first body line
    std::size_t end = 0;    // one past the last body line
  };

  std::vector<std::string> m_lines;
  std::array<Range, nvx::kKrnTagCount> m_first{};
  std::array<bool, nvx::kKrnTagCount> m_present{};
};

#endif  // NVX_KRN_KRNDOCUMENT_H_
