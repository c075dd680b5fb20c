// The verbs that write files: new, set, add, unset, to-rsv, from-rsv. set,
// add and unset edit a KRN file in place: they change the lines of the keys
// named and leave every other byte of the file as it was.
#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <map>
#include <sstream>

#include "KeyMeanings.h"
#include "KrnFile.h"
#include "NVX3DComputation.h"
#include "NVXPlatform.h"
#include "Verbs.h"
#include "core/KeyText.h"
#include "krn/KRNDocumentWriter.h"
#include "krn/KRNSectionIO.h"
#include "krn/KRNStream.h"
#include "sections/Summary.h"

namespace nvxparam {
namespace {

int WholeNumber(const std::string& option, const std::string& text, int low, int high) {
  int value = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  if (result.ec != std::errc() || result.ptr != end || value < low || value > high) {
    Fail(option + " takes a whole number from " + std::to_string(low) + " to " +
         std::to_string(high) + ", not '" + text + "'");
  }
  return value;
}

// A KRN file being edited: its bytes, its values as the library reads them,
// and the key lines of every section it holds (walked once, before any
// value changes).
struct Edit {
  std::string path;
  KrnFile raw;
  Params params;
  struct Walked {
    const nvx::SectionDef* def;
    const SectionSpan* span;
    nvx::KeyList keys;
    SectionWalk walk;
  };
  std::vector<Walked> sections;
  // Replacements: first line -> (lines replaced, new lines).
  std::map<std::size_t, std::pair<std::size_t, std::vector<std::string>>> changes;

  const Walked* Find(const nvx::SectionDef& def) const {
    for (const Walked& w : sections) {
      if (w.def == &def) return &w;
    }
    return nullptr;
  }
};

Edit OpenEdit(const std::string& path) {
  if (IsHdf5File(path)) Fail(path + " is an RSV file; this verb edits KRN files");
  Edit edit{path, KrnFile::Parse(ReadFileBytes(path)), LoadKrn(path), {}, {}};
  for (const SectionSpan& span : edit.raw.sections) {
    const nvx::SectionDef* def = nvx::FindSection(span.tag);
    // The reader takes a section's first occurrence only.
    if (def == nullptr || edit.Find(*def) != nullptr) continue;
    nvx::KeyList keys = def->keys(*edit.params.impl);
    SectionWalk walk = edit.raw.Walk(span, keys);
    edit.sections.push_back({def, &span, std::move(keys), std::move(walk)});
  }
  return edit;
}

// Applies the replacements, last line first, and writes the file once.
void Commit(Edit& edit) {
  std::vector<RawLine>& lines = edit.raw.lines;
  for (auto it = edit.changes.rbegin(); it != edit.changes.rend(); ++it) {
    const std::size_t first = it->first;
    const std::size_t count = it->second.first;
    const std::vector<std::string>& text = it->second.second;
    // The last new line keeps the ending of the last line it replaces.
    std::string lastEnd = edit.raw.lineEnd;
    if (count > 0) lastEnd = lines[first + count - 1].end;
    if (count == 0 && first > 0 && lines[first - 1].end.empty()) lines[first - 1].end = lastEnd;
    std::vector<RawLine> fresh;
    for (std::size_t i = 0; i < text.size(); ++i) {
      fresh.push_back({text[i], i + 1 == text.size() ? lastEnd : edit.raw.lineEnd});
    }
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(first),
                lines.begin() + static_cast<std::ptrdiff_t>(first + count));
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(first), fresh.begin(), fresh.end());
  }
  RequireWritable(edit.path);
  std::string error;
  if (nvx::platform::ReplaceFileContents(edit.path, edit.raw.Bytes(), &error) !=
      nvx::platform::ReplaceStatus::kDone) {
    Fail(error);
  }
}

// The new lines of a key whose lines [line, line + count) the file holds.
std::vector<std::string> Rewritten(const Edit& edit, const nvx::Key& key, const KeyLines& at) {
  std::vector<std::string> text = KeyText(key);
  if (text.empty()) return text;
  if (key.kind != nvx::KeyKind::kCustom) {
    // Keep the file's spelling of the line; only the value token changes.
    std::string_view rest = text[0];
    rest.remove_prefix(std::strlen(key.name) + std::strlen(key.separator));
    std::string value(rest.substr(0, rest.size() - std::strlen(key.suffix)));
    text[0] = WithValue(edit.raw.lines[at.line].text, value);
  }
  return text;
}

std::string Name(const nvx::SectionDef& def, const nvx::Key& key) {
  return std::string(nvx::TagName(def.tag)) + "." + key.name;
}

// "SECTION.Key=VALUE" split.
std::pair<Address, std::string> SplitAssignment(const std::string& text) {
  const std::size_t eq = text.find('=');
  if (eq == std::string::npos) Fail("'" + text + "' is not of the form SECTION.Key=VALUE");
  return {SplitAddress(text.substr(0, eq)), text.substr(eq + 1)};
}

// Checks `value` for `key` of `def` (type, then the key's allowed range) and
// stores it in memory; the file changes only once every value passed.
void Store(const nvx::SectionDef& def, const nvx::Key& key, const std::string& value) {
  CheckKrnStorable(key, value);
  std::string error;
  if (!nvx::ParseFileValue(key, value, &error)) Fail(error);
  error = RangeError(Name(def, key), value);
  if (!error.empty()) Fail(error);
}

}  // namespace

int RunNew(const Args& given) {
  Args args = given;
  std::string kind = "2", analysis = "0";
  TakeOption(args, "--model-kind", &kind);
  TakeOption(args, "--analysis-type", &analysis);
  const bool fromTemplate = TakeFlag(args, "--from-template");
  RejectOptions(args);
  if (args.size() != 1) Fail("usage: nvxparam new [--model-kind K] [--analysis-type T] FILE.krn");
  const int modelKind = WholeNumber("--model-kind", kind, 1, 3);
  const int analysisType = WholeNumber("--analysis-type", analysis, 0, 14);
  const std::string& file = args[0];
  std::error_code ec;
  if (std::filesystem::exists(std::filesystem::symlink_status(std::filesystem::u8path(file), ec))) {
    Fail(file + " already exists");
  }
  Params params = DefaultParams(modelKind, analysisType);
  if (fromTemplate) {
    auto impl = CNVX3DComputationImpl::MakeComplete();
    if (!impl->UserTemplateExists()) {
      Fail("there is no per-user template (" + impl->UserTemplatePath() + ")");
    }
    NVXData data;
    data.KRNFilePath = file;
    data.LoadMode = 1;
    data.ModelKind = modelKind;
    data.AnalysisType = analysisType;
    if (!impl->Load(data)) Fail("cannot read the per-user template " + impl->userTemplatePath);
    params.impl = std::move(impl);
  }
  WriteKrn(file, *params.impl, nvx::DocumentWriter::kModelKind);
  return 0;
}

const nvx::Key& SettableKey(const nvx::SectionDef& def, const nvx::KeyList& keys,
                            const std::string& name) {
  const nvx::Key& key = FindUserKey(def, keys, name);
  for (const nvx::Key& other : keys) {
    // Deliberate: a key the writers replace by a constant (the Summary's
    // Version) cannot be set: the next write of the file would undo it.
    if (other.kind == nvx::KeyKind::kFixedInt && (other.use & nvx::kKrnWrite) != 0 &&
        name == other.name) {
      Fail(Name(def, key) + " cannot be set: the library always writes " + other.name + " = " +
           std::to_string(other.fixedValue));
    }
  }
  return key;
}

int RunSet(const Args& args) {
  if (args.size() < 2) Fail("usage: nvxparam set FILE.krn SECTION.Key=VALUE...");
  Edit edit = OpenEdit(args[0]);
  // Every line the values feed, by line; rendered once all values are in.
  std::map<std::size_t, std::pair<const Edit::Walked*, const KeyLines*>> targets;
  std::string errors;
  for (std::size_t i = 1; i < args.size(); ++i) {
    try {
      const auto [address, value] = SplitAssignment(args[i]);
      const nvx::SectionDef& def = FindSectionNamed(address.section);
      const nvx::KeyList keys = def.keys(*edit.params.impl);
      const nvx::Key& key = SettableKey(def, keys, address.key);
      Store(def, key, value);
      bool any = false;
      for (const Edit::Walked& w : edit.sections) {
        for (const KeyLines& at : w.walk.keys) {
          if (!SharesValue(w.keys[at.key], key)) continue;
          targets[at.line] = {&w, &at};
          any = true;
        }
      }
      if (!any) {
        Fail(edit.path + " has no line for " + Name(def, key) + "; 'nvxparam add " + edit.path +
             " " + Name(def, key) + "=" + value + "' adds one");
      }
    } catch (const Failure& failure) {
      errors += (errors.empty() ? "" : "\nnvxparam: ") + std::string(failure.what());
    }
  }
  if (!errors.empty()) Fail(errors);
  std::string said;
  for (const auto& [line, target] : targets) {
    const nvx::Key& key = target.first->keys[target.second->key];
    edit.changes[line] = {target.second->count, Rewritten(edit, key, *target.second)};
    said += edit.path + ":" + std::to_string(line + 1) + ": " + Name(*target.first->def, key) +
            " = " + nvx::FormatFileValue(key) + "\n";
  }
  Commit(edit);
  std::cout << said;
  return 0;
}

int RunAdd(const Args& args) {
  if (args.size() < 2) Fail("usage: nvxparam add FILE.krn SECTION[.Key[=VALUE]]...");
  Edit edit = OpenEdit(args[0]);
  std::vector<const nvx::SectionDef*> newSections;
  for (std::size_t i = 1; i < args.size(); ++i) {
    const std::string& arg = args[i];
    if (arg.find('.') == std::string::npos) {
      const nvx::SectionDef& def = FindSectionNamed(arg);
      if (edit.raw.First(def.tag) != nullptr) Fail(edit.path + " already holds section " + arg);
      if (std::find(newSections.begin(), newSections.end(), &def) == newSections.end()) {
        newSections.push_back(&def);
      }
      continue;
    }
    const std::size_t eq = arg.find('=');
    const Address address = SplitAddress(arg.substr(0, eq));
    const nvx::SectionDef& def = FindSectionNamed(address.section);
    const Edit::Walked* w = edit.Find(def);
    if (w == nullptr) {
      Fail(edit.path + " has no section " + address.section + "; 'nvxparam add " + edit.path + " " +
           address.section + "' adds it");
    }
    const nvx::Key& key = eq == std::string::npos ? FindUserKey(def, w->keys, address.key)
                                                  : SettableKey(def, w->keys, address.key);
    const std::size_t index = static_cast<std::size_t>(&key - w->keys.data());
    // After the lines of the nearest key the writer puts before it.
    std::size_t at = w->span->open + 1;
    for (const KeyLines& lines : w->walk.keys) {
      if (lines.key == index) Fail(edit.path + " already has a line for " + Name(def, key));
      if (lines.key < index) at = std::max(at, lines.line + lines.count);
    }
    if (eq != std::string::npos) Store(def, key, arg.substr(eq + 1));
    std::vector<std::string>& text = edit.changes[at].second;
    const std::vector<std::string> lines = KeyText(key);
    text.insert(text.end(), lines.begin(), lines.end());
  }
  for (const nvx::SectionDef* def : newSections) {
    // Before the closing root tag, else at the end, as the library writes it.
    std::size_t at = edit.raw.lines.size();
    for (std::size_t i = edit.raw.lines.size(); i-- > 0;) {
      if (edit.raw.lines[i].text == "</KRN_FILE>") {
        at = i;
        break;
      }
    }
    std::ostringstream out;
    nvx::KrnStream stream(out);
    nvx::WriteKrnSection(*def, stream, *edit.params.impl, false);
    const std::vector<std::string> lines = TextLines(out.str());
    std::vector<std::string>& text = edit.changes[at].second;
    text.insert(text.end(), lines.begin(), lines.end());
  }
  Commit(edit);
  return 0;
}

int RunUnset(const Args& args) {
  if (args.size() < 2) Fail("usage: nvxparam unset FILE.krn SECTION[.Key]...");
  Edit edit = OpenEdit(args[0]);
  for (std::size_t i = 1; i < args.size(); ++i) {
    const std::string& arg = args[i];
    if (arg.find('.') == std::string::npos) {
      const nvx::SectionDef& def = FindSectionNamed(arg);
      bool any = false;
      for (const SectionSpan& span : edit.raw.sections) {
        if (span.tag != def.tag) continue;
        const std::size_t last = span.closed ? span.close : span.close - 1;
        edit.changes[span.open] = {last - span.open + 1, {}};
        any = true;
      }
      if (!any) NotThere(edit.path + " has no section " + arg);
      continue;
    }
    const Address address = SplitAddress(arg);
    const nvx::SectionDef& def = FindSectionNamed(address.section);
    const Edit::Walked* w = edit.Find(def);
    if (w == nullptr) NotThere(edit.path + " has no section " + address.section);
    const nvx::Key& key = FindUserKey(def, w->keys, address.key);
    const std::size_t index = static_cast<std::size_t>(&key - w->keys.data());
    bool any = false;
    for (const KeyLines& lines : w->walk.keys) {
      if (lines.key != index) continue;
      edit.changes[lines.line] = {lines.count, {}};
      any = true;
    }
    if (!any) NotThere(edit.path + " has no line for " + arg);
  }
  Commit(edit);
  return 0;
}

int RunToRsv(const Args& args) {
  if (args.size() != 2) Fail("usage: nvxparam to-rsv FILE.krn FILE.rsv");
  const std::string& krn = args[0];
  const std::string& rsv = args[1];
  LoadKrn(krn);  // only the checks: missing, unreadable, not a KRN file
  std::error_code ec;
  const bool existed = std::filesystem::exists(std::filesystem::u8path(rsv), ec);
  if (existed && !IsHdf5File(rsv)) Fail(rsv + " is not an RSV (HDF5) file; not overwriting it");
  CNVX3DComputation computation;
  if (!computation.LoadKRNFile(krn.c_str())) Fail("cannot read " + krn);
  // The tables go into a copy of the file, which replaces it only when every
  // write and the close succeeded.
  ReplaceFile(
      rsv,
      [&](const std::string& fresh, std::string* error) {
        // A new RSV file is created where the empty fresh file stands.
        if (!existed) std::filesystem::remove(std::filesystem::u8path(fresh), ec);
        computation.SetRSVFilePath(fresh);
        errno = 0;
        if (computation.WriteRSVFile()) return true;
        // The file library leaves the system's reason of a failed write behind.
        const int reason = errno;
        *error = "writing the parameters into " + rsv + " failed";
        if (reason != 0) *error += std::string(": ") + std::strerror(reason);
        return false;
      },
      /*startFromOld=*/true);
  return 0;
}

int RunFromRsv(const Args& args) {
  if (args.size() != 2) Fail("usage: nvxparam from-rsv FILE.rsv FILE.krn");
  const std::string& rsv = args[0];
  const std::string& krn = args[1];
  if (IsHdf5File(krn)) Fail(krn + " is an HDF5 file; not overwriting it");
  const Params params = LoadRsv(rsv);
  // The sections of the file's model kind: the Summary's 3D flag tells.
  params.impl->modelKind = params.impl->sections.summary->Flag3D ? 2 : 1;
  const nvx::DocumentWriter writer = nvx::DocumentWriter::kModelKind;
  // Values only KRN files hold cannot come back; they keep their defaults.
  std::vector<nvx::Key> restored;
  for (const nvx::SectionDef* def : nvx::AllSections()) {
    for (const nvx::Key& key : def->keys(*params.impl)) {
      if ((key.use & nvx::kRsvRead) != 0 && params.HoldsKey(*def, key)) restored.push_back(key);
    }
  }
  std::string lost;
  for (const nvx::KrnTag tag : nvx::DocumentSections(writer, *params.impl)) {
    const nvx::SectionDef* def = nvx::FindSection(tag);
    if (def == nullptr) continue;
    for (const nvx::Key& key : def->keys(*params.impl)) {
      if (!nvx::IsUserKey(key) || (key.use & nvx::kKrnWrite) == 0) continue;
      const bool back = std::any_of(restored.begin(), restored.end(),
                                    [&](const nvx::Key& r) { return r.field == key.field; });
      if (!back) lost += (lost.empty() ? "" : ", ") + Name(*def, key);
    }
  }
  WriteKrn(krn, *params.impl, writer);
  if (!lost.empty()) {
    std::cerr << "nvxparam: " << rsv << " does not hold these KRN keys; " << krn
              << " has their defaults: " << lost << std::endl;
  }
  return 0;
}

}  // namespace nvxparam
