// Scanning a KRN file into the document object.
#include "krn/KRNDocument.h"

#include <cstring>
#include <fstream>
#include <memory>

#include "NVXPlatform.h"

namespace {

enum class LineResult { kLine, kEnd, kTooLong };

// Reads a stream in blocks and hands out its lines without their end-of-line:
// "\n" or "\r\n", whichever system wrote the file, and any further carriage
// returns before it (a CR LF file that went through a text-mode copy on
// Windows ends its lines with "\r\r\n"), so that no tag or value keeps a CR.
// At most a block and one line are held in memory.
class LineReader {
 public:
  explicit LineReader(std::streambuf* in) : m_in(in) {}

  LineResult Next(std::string& line) {
    line.clear();
    for (;;) {
      if (m_pos == m_size && !Fill()) {
        // A last line without an end-of-line is taken like any other.
        return line.empty() ? LineResult::kEnd : Finish(line);
      }
      const char* start = m_block + m_pos;
      const std::size_t left = m_size - m_pos;
      const void* nl = std::memchr(start, '\n', left);
      const std::size_t take =
          nl ? static_cast<std::size_t>(static_cast<const char*>(nl) - start) : left;
      // Slack for the carriage returns of the line end.
      if (line.size() + take > CNVX3DKRNDocument::kMaxLineLength + kCarriageReturnSlack) {
        return LineResult::kTooLong;
      }
      line.append(start, take);
      m_pos += take;
      if (nl != nullptr) {
        ++m_pos;  // the '\n'
        return Finish(line);
      }
    }
  }

 private:
  static constexpr std::size_t kCarriageReturnSlack = 8;

  static LineResult Finish(std::string& line) {
    while (!line.empty() && line.back() == '\r') line.pop_back();
    return line.size() > CNVX3DKRNDocument::kMaxLineLength ? LineResult::kTooLong
                                                           : LineResult::kLine;
  }

  bool Fill() {
    const std::streamsize n = m_in->sgetn(m_block, sizeof m_block);
    m_pos = 0;
    m_size = n > 0 ? static_cast<std::size_t>(n) : 0;
    return m_size > 0;
  }

  std::streambuf* m_in;
  char m_block[64 * 1024];
  std::size_t m_pos = 0;
  std::size_t m_size = 0;
};

// The tag whose opening line is exactly `line` (no trimming, case-sensitive).
bool OpeningTag(const std::string& line, nvx::KrnTag* tag) {
  if (line.size() < 3 || line.front() != '<' || line.back() != '>' || line[1] == '/') return false;
  return nvx::TagByName(line.substr(1, line.size() - 2), tag);
}

}  // namespace

bool CNVX3DKRNDocument::Scan(const std::string& path) {
  // Binary: the line ends are taken off by the reader, alike on every system.
  std::ifstream in(nvx::platform::NativePath(path), std::ios::binary);
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

  auto reader = std::make_unique<LineReader>(buf);
  std::string line;
  LineResult r;
  while ((r = reader->Next(line)) == LineResult::kLine) {
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
    while ((r = reader->Next(line)) == LineResult::kLine) {
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
