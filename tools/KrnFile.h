// A KRN file kept as its bytes: every line with its own line ending, the
// sections found the way the library's scanner finds them, and the lines of
// each key found the way the section reader walks a section. The editing verbs
// change single lines of it and leave every other byte as it was.
#ifndef NVX_TOOLS_KRNFILE_H_
#define NVX_TOOLS_KRNFILE_H_

#include <cstddef>
#include <string>
#include <vector>

#include "core/KeyTable.h"
#include "krn/KRNTags.h"

namespace nvxparam {

struct RawLine {
  std::string text;  // without its ending
  std::string end;   // "\n", "\r\n", or "" for a last line without one
};

// One occurrence of a known section: the indices of its opening tag line and
// of its closing tag line (lines.size() when the section runs to the end).
struct SectionSpan {
  nvx::KrnTag tag;
  std::size_t open = 0;
  std::size_t close = 0;
  bool closed = false;
};

// A line the reader takes for a key: the key's index in the section's key
// list, the line, and how many lines the key takes (its item lines included).
struct KeyLines {
  std::size_t key = 0;
  std::size_t line = 0;
  std::size_t count = 1;
};

// A line of a section body whose key token no key of the section reads.
struct StrayLine {
  std::size_t line = 0;
  std::string token;
};

struct SectionWalk {
  std::vector<KeyLines> keys;  // in file order; a key may appear more than once
  std::vector<StrayLine> stray;
};

class KrnFile {
 public:
  static KrnFile Parse(const std::string& bytes);
  std::string Bytes() const;

  // The first occurrence of `tag`, or nullptr.
  const SectionSpan* First(nvx::KrnTag tag) const;

  // Walks the body of `span` as the section reader does with `keys` (bound to
  // a scratch object: custom keys read their lines into it).
  SectionWalk Walk(const SectionSpan& span, const nvx::KeyList& keys) const;

  std::vector<RawLine> lines;
  std::vector<SectionSpan> sections;  // file order, repeated sections included
  // The line the scanner stops at (a line too long for it), or lines.size().
  std::size_t scanEnd = 0;
  // The ending new lines get: the file's first ending, the system's text line
  // ending when it has none.
  std::string lineEnd;
};

// The lines of `text` without their endings ("\n" or "\r\n"), as the library
// writes them on either system.
std::vector<std::string> TextLines(const std::string& text);

// The KRN lines of `key` as the library writes them, values from its field;
// doubles are written in their shortest exact form, ints with their bias.
std::vector<std::string> KeyText(const nvx::Key& key);

// The line `line` with its value token replaced by `value` (appended after
// " = " when the line has none); every other character stays.
std::string WithValue(const std::string& line, const std::string& value);

}  // namespace nvxparam

#endif  // NVX_TOOLS_KRNFILE_H_
