// Loading, addressing and writing parameter files for the Python module. The
// loading follows nvxparam's: the same reader passes, the same RSV count
// preparation, the same choice of document writer.
#include "ParamFile.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>
#include <sstream>

#include "NVX3DRSVExTool.h"
#include "NVXPlatform.h"
#include "core/KeyText.h"
#include "krn/KRNDocument.h"
#include "krn/KRNDocumentWriter.h"
#include "krn/KRNTags.h"
#include "rsv/ComputationReport.h"
#include "rsv/RSVTables.h"

namespace nvxpy {
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
  std::error_code ec;
  if (!fs::exists(path, ec)) throw FileError(path + ": no such file", true);
  if (fs::is_directory(path, ec)) throw FileError(path + " is a directory", false);
  if (!std::ifstream(path)) {
    throw FileError("cannot read " + path + ": " + std::strerror(errno), false);
  }
}

const nvx::SectionDef& SectionNamed(const std::string& name) {
  std::vector<std::string> names;
  for (const nvx::SectionDef* def : nvx::AllSections()) {
    if (name == nvx::TagName(def->tag)) return *def;
    names.push_back(nvx::TagName(def->tag));
  }
  throw UnknownName("unknown section " + Quoted(name) + Nearest(name, names));
}

std::vector<std::string> UserKeyNames(const nvx::KeyList& keys) {
  std::vector<std::string> names;
  for (const nvx::Key& key : keys) {
    // A name listed twice is read and set through its first entry.
    if (nvx::IsUserKey(key) && std::find(names.begin(), names.end(), key.name) == names.end()) {
      names.push_back(key.name);
    }
  }
  return names;
}

struct Address {
  const nvx::SectionDef* def;
  std::string key;
};

Address Split(const std::string& address) {
  const std::size_t dot = address.find('.');
  if (dot == std::string::npos || dot == 0 || dot + 1 == address.size()) {
    throw UnknownName(Quoted(address) + " is not of the form SECTION.Key");
  }
  return {&SectionNamed(address.substr(0, dot)), address.substr(dot + 1)};
}

nvx::Key UserKey(const nvx::SectionDef& def, CNVX3DComputationImpl& impl, const std::string& name) {
  const nvx::KeyList keys = def.keys(impl);
  const nvx::Key* key = nvx::FindKey(keys, name, nvx::kKrnRead);
  if (key != nullptr && nvx::IsUserKey(*key)) return *key;
  throw UnknownName(std::string("section ") + nvx::TagName(def.tag) + " has no key " +
                    Quoted(name) + Nearest(name, UserKeyNames(keys)));
}

// Parses `text` into `key`, refusing what the KRN file could not carry back:
// numbers that are not finite, texts the reader would split or cut.
void Store(const nvx::Key& key, const std::string& text) {
  if (key.kind == nvx::KeyKind::kDouble) {
    char* end = nullptr;
    const double v = std::strtod(text.c_str(), &end);
    if (!text.empty() && end == text.c_str() + text.size() && !std::isfinite(v)) {
      throw BadValue(Quoted(text) + " is not a finite number for " + key.name);
    }
  }
  if (key.kind == nvx::KeyKind::kText || key.kind == nvx::KeyKind::kWideText) {
    // The reader takes one token split at blanks and "=", and stops the whole
    // scan at an over-long line.
    const bool token = std::none_of(text.begin(), text.end(), [](char c) {
      const auto u = static_cast<unsigned char>(c);
      return u == ' ' || u == '=' || u < 0x20 || u == 0x7f;
    });
    if (!token) {
      throw BadValue(Quoted(text) + " cannot be kept in a KRN file: text values hold no " +
                     "blanks, '=' or control characters");
    }
    const std::size_t line =
        std::strlen(key.name) + std::strlen(key.separator) + text.size() + std::strlen(key.suffix);
    if (line > CNVX3DKRNDocument::kMaxLineLength) {
      throw BadValue("the value of " + std::string(key.name) + " is too long for a KRN line");
    }
  }
  std::string error;
  if (!nvx::ParseValue(key, text, &error)) throw BadValue(error);
}

}  // namespace

ParamFile::ParamFile() : impl_(CNVX3DComputationImpl::MakeComplete()) {}

bool ParamFile::Holds(nvx::KrnTag tag) const { return impl_->sections.document->IsPresent(tag); }

void ParamFile::Hold(nvx::KrnTag tag) { impl_->sections.document->SetPresent(tag, true); }

void ParamFile::KeepSections(const std::vector<std::string>& sections) {
  for (std::size_t i = 0; i < nvx::kKrnTagCount; ++i) {
    const auto tag = static_cast<nvx::KrnTag>(i);
    const bool kept =
        std::find(sections.begin(), sections.end(), nvx::TagName(tag)) != sections.end();
    impl_->sections.document->SetPresent(tag, kept);
  }
}

ParamFile ParamFile::LoadKrn(const std::string& path) {
  RequireReadableFile(path);
  ParamFile file;
  file.impl_->ReadKrn(path);
  if (file.Sections().empty()) throw BadValue(path + " holds no KRN parameter sections");
  return file;
}

ParamFile ParamFile::LoadRsv(const std::string& path) {
  RequireReadableFile(path);
  ParamFile file;
  CNVX3DComputationImpl& impl = *file.impl_;
  CRSVTool tool;
  if (!CRSVTool::IsHdf5File(path) || tool.OpenReadOnly(path) != 0) {
    throw FileError(path + " is not an RSV (HDF5) file", false);
  }
  CRSVGroup* group = tool.OpenGroup(1, 4);
  if (group == nullptr) throw FileError(path + " holds no computation parameters", false);
  for (const nvx::SectionDef* def : nvx::AllSections()) {
    if (def->rsvTable == nullptr) continue;
    CRSVTable* table = tool.OpenTable(group, def->rsvTable);
    if (table == nullptr) continue;
    file.Hold(def->tag);
    nvx::SizeTimesFromTable(*def, *table, impl);
    tool.CloseTable(table);
  }
  try {
    nvx::ReadParameterTables(tool, group, impl);
  } catch (const std::out_of_range&) {
    throw BadValue(path + ": an output-time array is longer than its count");
  }
  tool.CloseGroup(group);
  tool.Close();
  if (file.Sections().empty()) throw FileError(path + " holds no parameter tables", false);
  return file;
}

ParamFile ParamFile::New(int modelKind, int analysisType) {
  if (modelKind < 1 || modelKind > 3) {
    throw BadValue("model_kind is 1 (shell), 2 or 3 (solid), not " + std::to_string(modelKind));
  }
  if (analysisType < 0 || analysisType > 14) {
    throw BadValue("analysis_type is 0 to 14, not " + std::to_string(analysisType));
  }
  ParamFile file;
  NVXData data;
  // A path that can never name a file (/dev/null is no directory), so the
  // load takes its no-project-file path: the per-user template or defaults.
  data.KRNFilePath = "/dev/null/new.krn";
  data.LoadMode = 1;
  data.ModelKind = modelKind;
  data.AnalysisType = analysisType;
  file.impl_->Load(data);
  file.fresh_ = true;
  for (nvx::KrnTag tag : nvx::DocumentSections(nvx::DocumentWriter::kModelKind, *file.impl_)) {
    if (nvx::FindSection(tag) != nullptr) file.Hold(tag);
  }
  return file;
}

std::vector<std::string> ParamFile::Sections() const {
  std::vector<std::string> names;
  for (const nvx::SectionDef* def : nvx::AllSections()) {
    if (Holds(def->tag)) names.push_back(nvx::TagName(def->tag));
  }
  return names;
}

std::vector<std::string> ParamFile::Keys(const std::string& section) const {
  const nvx::SectionDef& def = SectionNamed(section);
  return UserKeyNames(def.keys(*impl_));
}

nvx::Key ParamFile::Lookup(const std::string& address) const {
  const Address a = Split(address);
  return UserKey(*a.def, *impl_, a.key);
}

nvx::Key ParamFile::Find(const std::string& address) const {
  const Address a = Split(address);
  nvx::Key key = UserKey(*a.def, *impl_, a.key);
  if (!Holds(a.def->tag)) {
    throw UnknownName(std::string("the parameters hold no section ") + nvx::TagName(a.def->tag));
  }
  return key;
}

std::string ParamFile::Get(const std::string& address) const {
  return nvx::FormatValue(Find(address));
}

void ParamFile::Set(const std::string& address, const std::string& text) {
  Update({{address, text}});
}

void ParamFile::Update(const std::vector<std::pair<std::string, std::string>>& values) {
  // Every value is tried on scratch records first, so that a bad one leaves
  // these parameters as they were.
  CNVX3DComputationImpl scratch;
  for (const auto& [address, text] : values) {
    const Address a = Split(address);
    Store(UserKey(*a.def, scratch, a.key), text);
  }
  for (const auto& [address, text] : values) {
    const Address a = Split(address);
    Store(UserKey(*a.def, *impl_, a.key), text);
    Hold(a.def->tag);
  }
}

void ParamFile::WriteKrn(const std::string& path) {
  // The first writer that writes every section held: the model-kind writer
  // for fresh defaults, else the section-present writer (which keeps the
  // file's order but never writes the viscoelastic curve sections), else the
  // model-kind writer of kind 0 (exactly the sections held, in solid order).
  const std::int32_t modelKind = impl_->modelKind;
  auto covers = [&](nvx::DocumentWriter writer, std::vector<std::string>* lost) {
    const std::vector<nvx::KrnTag> written = nvx::DocumentSections(writer, *impl_);
    lost->clear();
    for (const nvx::SectionDef* def : nvx::AllSections()) {
      if (Holds(def->tag) && std::find(written.begin(), written.end(), def->tag) == written.end()) {
        lost->push_back(nvx::TagName(def->tag));
      }
    }
    return lost->empty();
  };
  std::vector<std::string> lost;
  nvx::DocumentWriter writer = nvx::DocumentWriter::kModelKind;
  if (!(fresh_ && covers(writer, &lost))) {
    writer = nvx::DocumentWriter::kSectionPresent;
    if (!covers(writer, &lost)) {
      writer = nvx::DocumentWriter::kModelKind;
      impl_->modelKind = 0;
      if (!covers(writer, &lost)) {
        impl_->modelKind = modelKind;
        std::string names;
        for (const std::string& name : lost) names += (names.empty() ? "" : ", ") + name;
        throw BadValue("no KRN writer writes the sections " + names + "; " + path + " not written");
      }
    }
  }
  std::ostringstream text;
  const bool made = nvx::WriteKrnDocument(writer, text, *impl_);
  impl_->modelKind = modelKind;
  if (!made) throw BadValue("cannot make the KRN document for " + path);
  std::string error;
  if (nvx::platform::ReplaceFileContents(path, text.str(), &error) !=
      nvx::platform::ReplaceStatus::kDone) {
    throw FileError(error, false);
  }
}

void ParamFile::WriteRsv(const std::string& path) {
  std::error_code ec;
  const bool existed = fs::exists(path, ec);
  if (existed && !CRSVTool::IsHdf5File(path)) {
    throw FileError(path + " is not an RSV (HDF5) file; not overwriting it", false);
  }
  const auto write = [&](const std::string& fresh, std::string* error) {
    // A new RSV file is created where the empty fresh file stands.
    if (!existed) fs::remove(fresh, ec);
    errno = 0;
    bool written = false;
    try {
      written = nvx::WriteRsvFile(fresh, *impl_);
    } catch (const std::exception& e) {
      *error = "writing the parameters into " + path + " failed: " + e.what();
      return false;
    }
    if (!written) {
      const int reason = errno;
      *error = "writing the parameters into " + path + " failed";
      if (reason != 0) *error += std::string(": ") + std::strerror(reason);
    }
    return written;
  };
  std::string error;
  if (nvx::platform::ReplaceFile(path, write, /*startFromOld=*/true, &error) !=
      nvx::platform::ReplaceStatus::kDone) {
    throw FileError(error, false);
  }
}

}  // namespace nvxpy
