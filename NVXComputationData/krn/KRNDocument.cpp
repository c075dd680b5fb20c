// Scanning a KRN file into the document object.
#include "krn/KRNDocument.h"

#include <fstream>

namespace {

enum class LineResult { kLine, kEnd, kTooLong };

// Reads one line without its end-of-line ("\n" or "\r\n"), never holding more
// than a line's worth of characters in memory.
LineResult ReadLine(std::streambuf* in, std::string& line) {
  line.clear();
  for (;;) {
    const int c = in->sbumpc();
    if (c == std::char_traits<char>::eof()) {
      return line.empty() ? LineResult::kEnd : LineResult::kLine;
    }
    if (c == '\n') break;
    // One character of slack for the '\r' of a "\r\n" ending.
    if (line.size() > CNVX3DKRNDocument::kMaxLineLength) return LineResult::kTooLong;
    line.push_back(static_cast<char>(c));
  }
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line.size() > CNVX3DKRNDocument::kMaxLineLength ? LineResult::kTooLong : LineResult::kLine;
}

// The tag whose opening line is exactly `line` (no trimming, case-sensitive).
bool OpeningTag(const std::string& line, nvx::KrnTag* tag) {
  if (line.size() < 3 || line.front() != '<' || line.back() != '>' || line[1] == '/') return false;
  return nvx::TagByName(line.substr(1, line.size() - 2), tag);
}

}  // namespace

bool CNVX3DKRNDocument::Scan(const std::string& path) {
  std::ifstream in(path);
  if (!in.is_open()) return false;
  Scan(in);
  return true;
}

void CNVX3DKRNDocument::Scan(std::istream& in) {
  m_lines.clear();
  m_first.fill(Range{});
  m_present.fill(false);
  std::streambuf* buf = in.rdbuf();
  if (buf == nullptr) return;

  std::string line;
  LineResult r;
  while ((r = ReadLine(buf, line)) == LineResult::kLine) {
    nvx::KrnTag tag;
    if (line.empty() || line == "<?xml version=\"1.0\"?>" || line == "<KRN_FILE>" ||
        line == "</KRN_FILE>" || !OpeningTag(line, &tag)) {
      continue;  // framing, blank lines and anything outside a known section
    }
    const bool first = !IsPresent(tag);
    SetPresent(tag, true);
    m_lines.push_back(line);
    const std::size_t begin = m_lines.size();
    const std::string close = nvx::CloseTag(tag);
    bool closed = false;
    while ((r = ReadLine(buf, line)) == LineResult::kLine) {
      if (line == close) {
        closed = true;
        break;
      }
      if (!line.empty()) m_lines.push_back(line);
    }
    if (first) m_first[nvx::Index(tag)] = Range{begin, m_lines.size()};
    if (closed) m_lines.push_back(line);
    if (r != LineResult::kLine) break;
  }
}

nvx::LineSpan CNVX3DKRNDocument::Body(nvx::KrnTag tag) const {
  const Range& range = m_first[nvx::Index(tag)];
  if (!IsPresent(tag)) return {};
  return {m_lines.data() + range.begin, m_lines.data() + range.end};
}
