// Loading KRN and RSV parameter files, name lookup with suggestions, and safe
// replacement of the files nvxparam writes.
#include "ParamFiles.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>
#include <sstream>
#include <thread>

#include "NVX3DRSVExTool.h"
#include "NVXPlatform.h"
#include "ToolPlatform.h"
#include "core/KeyText.h"
#include "krn/KRNDocument.h"
#include "krn/KRNDocumentWriter.h"
#include "krn/KRNTags.h"
#include "rsv/RSVTables.h"

namespace nvxparam {
namespace {

namespace fs = std::filesystem;
using NVX3DRSVExTool::CRSVGroup;
using NVX3DRSVExTool::CRSVTable;
using NVX3DRSVExTool::CRSVTool;

constexpr std::size_t kSuggestions = 3;

std::string Quoted(const std::string& text) { return "'" + text + "'"; }

std::string Nearest(const std::string& name, const std::vector<std::string>& candidates) {
  return nvx::NearestNamesNote(name, candidates, kSuggestions);
}

void RequireReadableFile(const std::string& path) {
  const fs::path file = fs::u8path(path);
  std::error_code ec;
  if (!fs::exists(file, ec)) Fail(path + ": no such file");
  if (fs::is_directory(file, ec)) Fail(path + " is a directory");
  if (!fs::is_regular_file(file, ec)) Fail(path + " is not a regular file");
  if (!std::ifstream(file)) Fail("cannot read " + path + ": " + std::strerror(errno));
}

// Whether `table` holds an item of `key` (of the key's own type).
bool TableHolds(CRSVTable& table, const nvx::Key& key) {
  int i = 0;
  double d = 0.0;
  bool b = false;
  std::string s;
  switch (key.kind) {
    case nvx::KeyKind::kInt:
    case nvx::KeyKind::kTimes:
      return table.GetItem(key.name, &i);
    case nvx::KeyKind::kDouble:
      return table.GetItem(key.name, &d);
    case nvx::KeyKind::kBool:
      return table.GetItem(key.name, &b);
    case nvx::KeyKind::kText:
    case nvx::KeyKind::kWideText:
      return table.GetItem(key.name, &s);
    default:
      return true;  // a custom key's items: held with its table
  }
}

}  // namespace

void Fail(const std::string& message) { throw Failure(message); }
void NotThere(const std::string& message) { throw Failure(message, 1); }

bool SharesValue(const nvx::Key& a, const nvx::Key& b) {
  return a.field == b.field && a.kind == b.kind && a.custom == b.custom && nvx::IsUserKey(a) &&
         nvx::IsUserKey(b);
}

bool Params::HoldsKey(const nvx::SectionDef& def, const nvx::Key& key) const {
  if (!Holds(def)) return false;
  if (!rsv) return true;
  const std::string name = std::string(nvx::TagName(def.tag)) + "." + key.name;
  return std::find(rsvKeys.begin(), rsvKeys.end(), name) != rsvKeys.end();
}

Params DefaultParams(int modelKind, int analysisType) {
  Params params{CNVX3DComputationImpl::MakeComplete(), {}, false, {}};
  NVXData data;
  data.KRNFilePath = "defaults.krn";
  data.LoadMode = 1;
  data.ModelKind = modelKind;
  data.AnalysisType = analysisType;
  params.impl->TakeOver(data);
  params.impl->ResetToDefaults();
  params.impl->ApplyDataAdjustments();
  for (const nvx::KrnTag tag :
       nvx::DocumentSections(nvx::DocumentWriter::kModelKind, *params.impl)) {
    if (const nvx::SectionDef* def = nvx::FindSection(tag)) params.sections.push_back(def);
  }
  return params;
}

std::string ReadFileBytes(const std::string& path) {
  RequireReadableFile(path);
  std::ifstream in(fs::u8path(path), std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  if (in.bad()) Fail("cannot read " + path + ": " + std::strerror(errno));
  return bytes.str();
}

void RequireWritable(const std::string& path) {
  std::error_code ec;
  if (fs::is_directory(fs::u8path(path), ec)) Fail(path + " is a directory");
  fs::path folder = fs::u8path(path).parent_path();
  if (folder.empty()) folder = ".";
  const std::string name = folder.u8string();
  if (!fs::is_directory(folder, ec)) Fail("cannot write " + path + ": no folder " + name);
  if (const int reason = sys::FolderWriteError(name); reason != 0) {
    if (reason == EROFS) {
      Fail("cannot write " + path + ": the folder " + name + " is on a read-only file system (" +
           std::strerror(reason) + ")");
    }
    Fail("cannot write " + path + ": the folder " + name + " is read-only (" +
         std::strerror(reason) + ")");
  }
}

bool Params::Holds(const nvx::SectionDef& def) const {
  return std::find(sections.begin(), sections.end(), &def) != sections.end();
}

CNVX3DKRNDocument& DocumentOf(CNVX3DComputationImpl& impl) { return *impl.sections.document; }

Params LoadKrn(const std::string& path) {
  RequireReadableFile(path);
  Params params{CNVX3DComputationImpl::MakeComplete(), {}, false, {}};
  params.impl->ReadKrn(path);
  const CNVX3DKRNDocument& doc = DocumentOf(*params.impl);
  bool any = false;
  for (std::size_t i = 0; i < nvx::kKrnTagCount; ++i) any |= doc.IsPresent(nvx::KrnTag(i));
  if (!any) Fail(path + " holds no KRN parameter sections");
  for (const nvx::SectionDef* def : nvx::AllSections()) {
    if (doc.IsPresent(def->tag)) params.sections.push_back(def);
  }
  return params;
}

bool IsHdf5File(const std::string& path) {
  return nvx::platform::FileExists(path) && CRSVTool::IsHdf5File(path);
}

Params LoadRsv(const std::string& path) {
  // The library's reader passes over a missing file or group in silence.
  if (!nvx::platform::FileExists(path)) Fail(path + ": no such file");
  CRSVTool tool;
  if (tool.OpenReadOnly(path) != 0) Fail(path + " is not an RSV (HDF5) file");
  CRSVGroup* group = tool.OpenGroup(1, 4);
  if (group == nullptr) Fail(path + " holds no computation parameters");

  Params params{CNVX3DComputationImpl::MakeComplete(), {}, false, {}};
  for (const nvx::SectionDef* def : nvx::AllSections()) {
    if (def->rsvTable == nullptr) continue;
    DocumentOf(*params.impl).SetPresent(def->tag, true);
    CRSVTable* table = tool.OpenTable(group, def->rsvTable);
    if (table == nullptr) continue;
    params.sections.push_back(def);
    nvx::SizeTimesFromTable(*def, *table, *params.impl);
    for (const nvx::Key& key : def->keys(*params.impl)) {
      if (nvx::IsUserKey(key) && (key.use & nvx::kRsvRead) != 0 && TableHolds(*table, key)) {
        params.rsvKeys.push_back(std::string(nvx::TagName(def->tag)) + "." + key.name);
      }
    }
    tool.CloseTable(table);
  }
  params.rsv = true;
  nvx::ReadParameterTables(tool, group, *params.impl);
  return params;
}

Params LoadParams(const std::string& path) {
  return IsHdf5File(path) ? LoadRsv(path) : LoadKrn(path);
}

const nvx::SectionDef& FindSectionNamed(const std::string& name) {
  std::vector<std::string> names;
  for (const nvx::SectionDef* def : nvx::AllSections()) {
    if (name == nvx::TagName(def->tag)) return *def;
    names.push_back(nvx::TagName(def->tag));
  }
  nvx::KrnTag tag;
  if (nvx::TagByName(name, &tag)) Fail("section " + name + " has no keys that can be reached yet");
  Fail("unknown section " + Quoted(name) + Nearest(name, names));
}

const nvx::Key& FindUserKey(const nvx::SectionDef& def, const nvx::KeyList& keys,
                            const std::string& name) {
  const nvx::Key* key = nvx::FindKey(keys, name, nvx::kKrnRead);
  if (key != nullptr && nvx::IsUserKey(*key)) return *key;
  std::vector<std::string> names;
  for (const nvx::Key& k : keys) {
    if (nvx::IsUserKey(k) && std::find(names.begin(), names.end(), k.name) == names.end()) {
      names.push_back(k.name);
    }
  }
  Fail(std::string("section ") + nvx::TagName(def.tag) + " has no key " + Quoted(name) +
       Nearest(name, names));
}

void CheckKrnStorable(const nvx::Key& key, const std::string& value) {
  if (key.kind != nvx::KeyKind::kText && key.kind != nvx::KeyKind::kWideText) return;
  // The reader takes one token split at blanks and "=", and stops the whole
  // scan at an over-long line.
  const bool token = std::none_of(value.begin(), value.end(), [](char c) {
    const auto u = static_cast<unsigned char>(c);
    return u == ' ' || u == '=' || u < 0x20 || u == 0x7f;
  });
  if (!token) {
    Fail(Quoted(value) + " cannot be kept in a KRN file: text values hold no blanks, '=' or " +
         "control characters");
  }
  const std::size_t line =
      std::strlen(key.name) + std::strlen(key.separator) + value.size() + std::strlen(key.suffix);
  if (line > CNVX3DKRNDocument::kMaxLineLength) {
    Fail("the value of " + std::string(key.name) + " is too long for a KRN line");
  }
}

std::vector<std::string> SectionsLostByWriter(CNVX3DComputationImpl& impl,
                                              nvx::DocumentWriter writer) {
  const std::vector<nvx::KrnTag> written = nvx::DocumentSections(writer, impl);
  std::vector<std::string> lost;
  for (std::size_t i = 0; i < nvx::kKrnTagCount; ++i) {
    const auto tag = static_cast<nvx::KrnTag>(i);
    if (!DocumentOf(impl).IsPresent(tag)) continue;
    const bool writes = nvx::FindSection(tag) != nullptr &&
                        std::find(written.begin(), written.end(), tag) != written.end();
    if (!writes) lost.push_back(nvx::TagName(tag));
  }
  return lost;
}

void ReplaceFile(const std::string& path,
                 const std::function<bool(const std::string&, std::string*)>& write,
                 bool startFromOld) {
  RequireWritable(path);
  std::string error;
  if (nvx::platform::ReplaceFile(path, write, startFromOld, &error) !=
      nvx::platform::ReplaceStatus::kDone) {
    Fail(error);
  }
}

EditLock::EditLock(const std::string& path) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point deadline = Clock::now() + std::chrono::seconds(kLockWaitSeconds);
  const std::string lockPath = path + ".lock";
  for (;;) {
    std::string error;
    switch (lock_.TryLock(lockPath, &error)) {
      case sys::FileLock::Result::kHeld:
        return;
      case sys::FileLock::Result::kFailed:
        // A folder that takes no files says so in the words of every write.
        RequireWritable(path);
        Fail("cannot lock " + path + ": " + lockPath + ": " + error);
      case sys::FileLock::Result::kBusy:
        break;
    }
    if (Clock::now() >= deadline) Fail(path + " is locked by another process");
    // Polled: a holder's edit ends within milliseconds.
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
}

nvx::DocumentWriter WriterKeepingEverySection(const std::string& path,
                                              CNVX3DComputationImpl& impl) {
  // The section-present writer keeps the file's order but never writes the
  // viscoelastic curve sections; the model-kind writer of kind 0 writes
  // exactly the sections the file held, in the solid order.
  if (SectionsLostByWriter(impl, nvx::DocumentWriter::kSectionPresent).empty()) {
    return nvx::DocumentWriter::kSectionPresent;
  }
  impl.modelKind = 0;
  const std::vector<std::string> lost = SectionsLostByWriter(impl, nvx::DocumentWriter::kModelKind);
  if (!lost.empty()) {
    std::string names;
    for (const std::string& name : lost) names += (names.empty() ? "" : ", ") + name;
    Fail(path + " holds sections that cannot be written back (" + names + "); not changed");
  }
  return nvx::DocumentWriter::kModelKind;
}

void WriteKrn(const std::string& path, CNVX3DComputationImpl& impl, nvx::DocumentWriter writer) {
  std::ostringstream text;
  if (!nvx::WriteKrnDocument(writer, text, impl)) {
    Fail("cannot make the KRN document for " + path);
  }
  RequireWritable(path);
  std::string error;
  if (nvx::platform::ReplaceFileContents(path, text.str(), &error) !=
      nvx::platform::ReplaceStatus::kDone) {
    Fail(error);
  }
}

}  // namespace nvxparam
