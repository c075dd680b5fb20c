// Splitting a KRN file into lines and sections, walking a section's keys, and
// the text of single key lines.
#include "KrnFile.h"

#include <algorithm>
#include <charconv>
#include <sstream>

#include "ToolPlatform.h"
#include "core/KeyText.h"
#include "krn/KRNDocument.h"
#include "krn/KRNLine.h"
#include "krn/KRNStream.h"

namespace nvxparam {
namespace {

// The tag whose opening line is exactly `line`, as the scanner tests it.
bool OpeningTag(const std::string& line, nvx::KrnTag* tag) {
  if (line.size() < 3 || line.front() != '<' || line.back() != '>' || line[1] == '/') return false;
  return nvx::TagByName(line.substr(1, line.size() - 2), tag);
}

std::string Shortest(double v) {
  char buf[64];
  const auto result = std::to_chars(buf, buf + sizeof buf, v);
  return std::string(buf, result.ptr);
}

}  // namespace

KrnFile KrnFile::Parse(const std::string& bytes) {
  KrnFile file;
  std::size_t start = 0;
  while (start < bytes.size()) {
    const std::size_t newline = bytes.find('\n', start);
    RawLine line;
    if (newline == std::string::npos) {
      line.text = bytes.substr(start);
      start = bytes.size();
    } else {
      line.text = bytes.substr(start, newline - start);
      line.end = "\n";
      start = newline + 1;
    }
    if (!line.text.empty() && line.text.back() == '\r') {
      line.text.pop_back();
      line.end = "\r" + line.end;
    }
    file.lines.push_back(std::move(line));
  }
  file.lineEnd = sys::TextNewline();
  for (const RawLine& line : file.lines) {
    if (!line.end.empty()) {
      file.lineEnd = line.end;
      break;
    }
  }

  file.scanEnd = file.lines.size();
  for (std::size_t i = 0; i < file.lines.size(); ++i) {
    if (file.lines[i].text.size() > CNVX3DKRNDocument::kMaxLineLength) {
      file.scanEnd = i;
      break;
    }
  }
  for (std::size_t i = 0; i < file.scanEnd; ++i) {
    nvx::KrnTag tag;
    if (!OpeningTag(file.lines[i].text, &tag)) continue;
    SectionSpan span{tag, i, file.scanEnd, false};
    const std::string close = nvx::CloseTag(tag);
    for (std::size_t j = i + 1; j < file.scanEnd; ++j) {
      if (file.lines[j].text == close) {
        span.close = j;
        span.closed = true;
        break;
      }
    }
    file.sections.push_back(span);
    i = span.close;
  }
  return file;
}

std::string KrnFile::Bytes() const {
  std::string bytes;
  for (const RawLine& line : lines) bytes += line.text + line.end;
  return bytes;
}

const SectionSpan* KrnFile::First(nvx::KrnTag tag) const {
  for (const SectionSpan& span : sections) {
    if (span.tag == tag) return &span;
  }
  return nullptr;
}

SectionWalk KrnFile::Walk(const SectionSpan& span, const nvx::KeyList& keys) const {
  // The scanner drops empty lines, so item lines are counted over the others.
  std::vector<std::string> body;
  std::vector<std::size_t> where;
  for (std::size_t i = span.open + 1; i < span.close; ++i) {
    if (lines[i].text.empty()) continue;
    body.push_back(lines[i].text);
    where.push_back(i);
  }
  SectionWalk walk;
  const std::string* end = body.data() + body.size();
  for (std::size_t i = 0; i < body.size(); ++i) {
    const nvx::KeyValue kv = nvx::SplitKeyValue(body[i]);
    if (kv.key.empty()) continue;
    const nvx::Key* key = nvx::FindKey(keys, std::string(kv.key), nvx::kKrnRead);
    if (key == nullptr) {
      walk.stray.push_back({where[i], std::string(kv.key)});
      continue;
    }
    std::size_t taken = 0;
    const std::size_t left = body.size() - i - 1;
    if (key->kind == nvx::KeyKind::kTimes) {
      const std::int32_t count = nvx::ParseInt(kv.value);
      taken = count > 0 ? std::min<std::size_t>(static_cast<std::size_t>(count), left) : 0;
    } else if (key->kind == nvx::KeyKind::kCustom && key->custom->readKrn != nullptr) {
      taken = std::min(left, key->custom->readKrn(*key, kv.key, kv.value, &body[i] + 1, end));
    }
    const std::size_t last = where[i + taken];
    walk.keys.push_back(
        {static_cast<std::size_t>(key - keys.data()), where[i], last - where[i] + 1});
    i += taken;
  }
  return walk;
}

std::vector<std::string> TextLines(const std::string& text) {
  std::vector<std::string> lines;
  for (const RawLine& line : KrnFile::Parse(text).lines) lines.push_back(line.text);
  return lines;
}

std::vector<std::string> KeyText(const nvx::Key& key) {
  std::vector<std::string> out;
  if (key.kind == nvx::KeyKind::kCustom) {
    if (key.custom->writeKrn == nullptr) return out;
    std::ostringstream text;
    nvx::KrnStream stream(text);
    stream.Precision(15);
    key.custom->writeKrn(key, stream);
    return TextLines(text.str());
  }
  std::string value;
  switch (key.kind) {
    case nvx::KeyKind::kDouble:
      value = Shortest(key.As<double>());
      break;
    case nvx::KeyKind::kTimes:
      value = std::to_string(key.As<nvx::OutputTimes>().Count);
      break;
    default:
      value = nvx::FormatFileValue(key);
      break;
  }
  out.push_back(std::string(key.name) + key.separator + value + key.suffix);
  if (key.kind == nvx::KeyKind::kTimes) {
    const nvx::OutputTimes& block = key.As<nvx::OutputTimes>();
    for (std::int32_t i = 1; i <= block.Count; ++i) {
      out.push_back(std::to_string(i) + " = " + Shortest(block.At(i - 1)));
    }
  }
  return out;
}

std::string WithValue(const std::string& line, const std::string& value) {
  std::string_view rest = line;
  nvx::NextToken(rest, " =");
  const std::string_view token = nvx::NextToken(rest, " =");
  if (token.empty()) return line + " = " + value;
  const std::size_t at = static_cast<std::size_t>(token.data() - line.data());
  return line.substr(0, at) + value + line.substr(at + token.size());
}

}  // namespace nvxparam
