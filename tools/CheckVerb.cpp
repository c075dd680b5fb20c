// check: lints a hand-edited KRN file line by line: values the reader would
// take otherwise than they read, unknown keys and sections, counts that
// disagree with their item lines, sections and keys given twice.
#include <climits>
#include <cmath>
#include <cstdlib>
#include <iostream>

#include "KrnFile.h"
#include "Verbs.h"
#include "core/KeyText.h"
#include "krn/KRNDocument.h"
#include "krn/KRNLine.h"
#include "krn/KRNSectionIO.h"

namespace nvxparam {
namespace {

struct Finding {
  std::size_t line;  // 1-based
  std::string message;
};

bool CleanWhole(std::string_view text) {
  std::size_t i = (!text.empty() && (text[0] == '-' || text[0] == '+')) ? 1 : 0;
  if (i == text.size()) return false;
  for (; i < text.size(); ++i) {
    if (text[i] < '0' || text[i] > '9') return false;
  }
  return true;
}

bool CleanReal(std::string_view text) {
  const std::string s(text);
  if (s.empty() || s.find_first_of("xX") != std::string::npos) return false;
  char* end = nullptr;
  const double v = std::strtod(s.c_str(), &end);
  return end == s.c_str() + s.size() && std::isfinite(v);
}

// What the reader makes of `value` for `key`, in the file's form.
std::string ReadsAs(const nvx::Key& key, std::string_view value) {
  std::int32_t i = 0;
  double d = 0.0;
  bool b = false;
  nvx::Key copy = key;
  if (key.kind == nvx::KeyKind::kInt) copy.field = &i;
  if (key.kind == nvx::KeyKind::kDouble) copy.field = &d;
  if (key.kind == nvx::KeyKind::kBool) copy.field = &b;
  nvx::StoreKrnValue(copy, value);
  return nvx::FormatFileValue(copy);
}

void CheckValue(const nvx::Key& key, std::string_view value, std::size_t line,
                std::vector<Finding>& found) {
  // The writer puts the key's suffix right after the value: not part of it.
  const std::string_view suffix = key.suffix;
  for (std::size_t p = 0; !suffix.empty() && p < value.size(); ++p) {
    if (suffix.substr(0, value.size() - p) == value.substr(p)) {
      value = value.substr(0, p);
      break;
    }
  }
  bool clean = true;
  if (nvx::IsFlagKey(key)) {
    clean = value == "0" || value == "1";
  } else if (key.kind == nvx::KeyKind::kInt) {
    const long long v = std::strtoll(std::string(value).c_str(), nullptr, 10);
    clean = CleanWhole(value) && v >= INT32_MIN && v <= INT32_MAX;
  } else if (key.kind == nvx::KeyKind::kDouble) {
    clean = CleanReal(value);
  } else {
    return;
  }
  if (!clean) {
    found.push_back({line + 1, std::string(key.name) + ": '" + std::string(value) + "' is not " +
                                   (nvx::IsFlagKey(key) ? "a flag (0 or 1)" : "a clean number") +
                                   "; it reads as " + ReadsAs(key, value)});
  }
}

void CheckSection(const KrnFile& raw, const SectionSpan& span, std::vector<Finding>& found) {
  const nvx::SectionDef* def = nvx::FindSection(span.tag);
  const std::string tag = nvx::TagName(span.tag);
  if (def == nullptr) return;
  const auto scratch = CNVX3DComputationImpl::MakeComplete();
  const nvx::KeyList keys = def->keys(*scratch);
  const SectionWalk walk = raw.Walk(span, keys);
  for (const StrayLine& stray : walk.stray) {
    const bool item = CleanWhole(stray.token);
    found.push_back({stray.line + 1,
                     item ? "item line '" + raw.lines[stray.line].text + "' belongs to no count"
                          : "unknown key '" + stray.token + "' in section " + tag + " (ignored)"});
  }
  std::vector<std::size_t> seen;
  for (const KeyLines& at : walk.keys) {
    const nvx::Key& key = keys[at.key];
    const std::string& text = raw.lines[at.line].text;
    const nvx::KeyValue kv = nvx::SplitKeyValue(text);
    for (std::size_t i = 0; i < seen.size(); ++i) {
      if (walk.keys[seen[i]].key == at.key) {
        found.push_back({at.line + 1, std::string(key.name) + " appears again (first at line " +
                                          std::to_string(walk.keys[seen[i]].line + 1) +
                                          "); the last one counts"});
        break;
      }
    }
    seen.push_back(static_cast<std::size_t>(&at - walk.keys.data()));
    if (key.kind == nvx::KeyKind::kTimes) {
      if (!CleanWhole(kv.value)) {
        found.push_back({at.line + 1, std::string(key.name) + ": count '" + std::string(kv.value) +
                                          "' reads as " + std::to_string(nvx::ParseInt(kv.value))});
      }
      const std::int32_t count = std::max(nvx::ParseInt(kv.value), 0);
      // Item lines: the lines after the count whose key token is a number.
      std::int32_t items = 0;
      for (std::size_t i = at.line + 1; i < span.close; ++i) {
        if (raw.lines[i].text.empty()) continue;
        const nvx::KeyValue item = nvx::SplitKeyValue(raw.lines[i].text);
        if (!CleanWhole(item.key)) break;
        if (items < count && !CleanReal(item.value)) {
          found.push_back({i + 1, "time '" + std::string(item.value) + "' is not a clean number"});
        }
        ++items;
      }
      if (items != count) {
        found.push_back({at.line + 1, std::string(key.name) + " counts " + std::to_string(count) +
                                          " but " + std::to_string(items) + " item lines follow"});
      }
      continue;
    }
    CheckValue(key, kv.value, at.line, found);
  }
}

std::vector<Finding> Check(const KrnFile& raw) {
  std::vector<Finding> found;
  if (raw.scanEnd < raw.lines.size()) {
    found.push_back({raw.scanEnd + 1, "line longer than " +
                                          std::to_string(CNVX3DKRNDocument::kMaxLineLength) +
                                          " characters: the reader stops here"});
  }
  std::size_t next = 0;  // first line not inside a known section
  for (const SectionSpan& span : raw.sections) {
    for (std::size_t i = next; i < span.open; ++i) {
      const std::string& text = raw.lines[i].text;
      if (text.empty() || text == "<?xml version=\"1.0\"?>" || text == "<KRN_FILE>" ||
          text == "</KRN_FILE>") {
        continue;
      }
      found.push_back({i + 1, text.front() == '<' ? "unknown section " + text + " (ignored)"
                                                  : "line outside any section (ignored)"});
    }
    next = span.close + 1;
    const std::string tag = nvx::TagName(span.tag);
    for (const SectionSpan& other : raw.sections) {
      if (&other == &span) break;
      if (other.tag == span.tag) {
        found.push_back({span.open + 1, "section " + tag + " appears again (first at line " +
                                            std::to_string(other.open + 1) +
                                            "); the reader takes the first"});
        break;
      }
    }
    if (!span.closed) {
      found.push_back({span.open + 1, "section " + tag + " has no closing tag </" + tag + ">"});
    }
    CheckSection(raw, span, found);
  }
  for (std::size_t i = next; i < raw.scanEnd; ++i) {
    const std::string& text = raw.lines[i].text;
    if (text.empty() || text == "</KRN_FILE>" || text == "<KRN_FILE>" ||
        text == "<?xml version=\"1.0\"?>") {
      continue;
    }
    found.push_back({i + 1, text.front() == '<' ? "unknown section " + text + " (ignored)"
                                                : "line outside any section (ignored)"});
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const Finding& a, const Finding& b) { return a.line < b.line; });
  return found;
}

}  // namespace

int RunCheck(const Args& given) {
  Args args = given;
  const bool json = TakeFlag(args, "--json");
  RejectOptions(args);
  if (args.size() != 1) Fail("usage: nvxparam check [--json] FILE.krn");
  const std::string& file = args[0];
  if (IsHdf5File(file)) Fail(file + " is an RSV file; check reads KRN files");
  const std::vector<Finding> found = Check(KrnFile::Parse(ReadFileBytes(file)));
  std::string text;
  for (const Finding& f : found) {
    text += json ? std::string(text.empty() ? "" : ",") +
                       "\n  {\"line\": " + std::to_string(f.line) +
                       ", \"message\": " + Json(f.message) + "}"
                 : file + ":" + std::to_string(f.line) + ": " + f.message + "\n";
  }
  if (json) {
    text = "{\"file\": " + Json(file) + ", \"findings\": [" + text + (found.empty() ? "" : "\n") +
           "]}\n";
  }
  std::cout << text << std::flush;
  return found.empty() ? 0 : 1;
}

}  // namespace nvxparam
