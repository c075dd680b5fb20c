// The remote machine list: KRN rows and weights, the per-machine RSV tables,
// and the list's text form.
#include "sections/RemoteMachineList.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string>
#include <vector>

#include "NVX3DRSVExTool.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNLine.h"
#include "krn/KRNStream.h"

using NVX3DRSVExTool::CRSVGroup;
using NVX3DRSVExTool::CRSVTable;
using NVX3DRSVExTool::CRSVTool;

namespace nvx {
namespace {

// ---- Deliberate oddities of the machine rows ---------------------------------
//
// MachineRow: " i = name<TAB>job<TAB> path", numbered from 1. The reader takes
//   exactly N lines after the header (N the machine count at that moment), so
//   the count must come first. A row numbered k gives the name from after the
//   first "= " up to the tab (blanks kept), the job up to the next tab, the
//   path as one token (cut at a blank) and weight 1.0. A row whose number is
//   not k is not parsed: its entry receives the last row that was parsed.
//
// WeightRow: " i = weight" in the stream's current notation; a row whose
//   number is not k is skipped.

constexpr char kRowSeparator = '\t';

CNVX3DRemoteMachines& RecordOf(const Key& key) { return key.As<CNVX3DRemoteMachines>(); }

// The lines a list key may take: the machine count, but never more than the
// lines left before the closing tag.
std::size_t RowsToRead(const CNVX3DRemoteMachines& r, const std::string* next,
                       const std::string* end) {
  const std::size_t left = static_cast<std::size_t>(end - next);
  return std::min(left, static_cast<std::size_t>(std::max<std::int32_t>(r.ValueNoMachine, 0)));
}

// The machines a writer emits: the count, as far as the list holds machines
// (it stops at kMaxRemoteMachines after a larger count read from a file).
std::size_t MachinesWritten(const CNVX3DRemoteMachines& r) {
  return std::min(r.ValueMachineSetting.size(),
                  static_cast<std::size_t>(std::max<std::int32_t>(r.ValueNoMachine, 0)));
}

bool RowNumberIs(std::string_view line, std::size_t k, std::string_view* rest) {
  *rest = line;
  return ParseInt(NextToken(*rest, " =")) == static_cast<std::int64_t>(k);
}

// ---- Machine count --------------------------------------------------------------

void WriteCountKrn(const Key& key, KrnStream& out) {
  out.Text(key.name).Text("=").Int(RecordOf(key).ValueNoMachine).EndLine();
}

// The count is kept as the file gives it; machines the rows do not give keep
// the defaults of a new entry.
std::size_t ReadCountKrn(const Key& key, std::string_view, std::string_view value,
                         const std::string*, const std::string*) {
  SetMachineCountFromFile(RecordOf(key), ParseInt(value));
  return 0;
}

void SetCountItem(const Key& key, CRSVTable& table) {
  table.SetItem(key.name, static_cast<int>(RecordOf(key).ValueNoMachine));
}

void GetCountItem(const Key& key, CRSVTable& table, RsvScratch& scratch) {
  table.GetItem(key.name, &scratch.i);
  SetMachineCountFromFile(RecordOf(key), scratch.i);
}

std::string FormatCount(const Key& key) { return std::to_string(RecordOf(key).ValueNoMachine); }

bool ParseWholeNumber(std::string_view text, std::int32_t* out) {
  const char* end = text.data() + text.size();
  auto res = std::from_chars(text.data(), end, *out);
  return res.ec == std::errc() && res.ptr == end && !text.empty();
}

bool ParseCount(const Key& key, const std::string& text, std::string* error) {
  std::int32_t n = 0;
  if (!ParseWholeNumber(text, &n) || n < 0 || n > kMaxRemoteMachines) {
    *error =
        "ValueNoMachine must be a whole number from 0 to " + std::to_string(kMaxRemoteMachines);
    return false;
  }
  SetMachineCount(RecordOf(key), n);
  return true;
}

// ---- MachineRow ---------------------------------------------------------------

void WriteRowsKrn(const Key& key, KrnStream& out) {
  const CNVX3DRemoteMachines& r = RecordOf(key);
  out.Text(key.name).Text("=").EndLine();
  const std::size_t n = MachinesWritten(r);
  for (std::size_t i = 0; i < n; ++i) {
    const RemoteParm& m = r.ValueMachineSetting[i];
    out.Text(" ")
        .Int(static_cast<std::int64_t>(i) + 1)
        .Text(" = ")
        .Text(m.ValueMachineName)
        .Text("\t");
    out.Int(m.ValueMachineJob).Text("\t ").Text(m.ValueMachinePath).EndLine();
  }
}

RemoteParm ParseRow(std::string_view line) {
  RemoteParm m;
  const std::size_t sign = line.find("= ");
  std::string_view rest =
      sign == std::string_view::npos ? std::string_view() : line.substr(sign + 2);
  std::size_t tab = rest.find(kRowSeparator);
  m.ValueMachineName = std::string(rest.substr(0, tab));
  rest = tab == std::string_view::npos ? std::string_view() : rest.substr(tab + 1);
  tab = rest.find(kRowSeparator);
  m.ValueMachineJob = ParseInt(rest.substr(0, tab));
  rest = tab == std::string_view::npos ? std::string_view() : rest.substr(tab + 1);
  m.ValueMachinePath = std::string(NextToken(rest, " ="));
  m.ValueMachineWeighting = 1.0;
  return m;
}

std::size_t ReadRowsKrn(const Key& key, std::string_view, std::string_view, const std::string* next,
                        const std::string* end) {
  CNVX3DRemoteMachines& r = RecordOf(key);
  const std::size_t n = RowsToRead(r, next, end);
  RemoteParm last;
  for (std::size_t k = 1; k <= n; ++k) {
    std::string_view rest;
    if (RowNumberIs(next[k - 1], k, &rest)) last = ParseRow(next[k - 1]);
    // Rows past the list's bound are consumed but not kept.
    if (k <= r.ValueMachineSetting.size()) r.ValueMachineSetting[k - 1] = last;
  }
  return n;
}

// ---- WeightRow ----------------------------------------------------------------

void WriteWeightsKrn(const Key& key, KrnStream& out) {
  const CNVX3DRemoteMachines& r = RecordOf(key);
  out.Text(key.name).Text(" = ").EndLine();
  const std::size_t n = MachinesWritten(r);
  for (std::size_t i = 0; i < n; ++i) {
    out.Text(" ").Int(static_cast<std::int64_t>(i) + 1).Text(" = ");
    out.Double(r.ValueMachineSetting[i].ValueMachineWeighting).EndLine();
  }
}

std::size_t ReadWeightsKrn(const Key& key, std::string_view, std::string_view,
                           const std::string* next, const std::string* end) {
  CNVX3DRemoteMachines& r = RecordOf(key);
  const std::size_t n = RowsToRead(r, next, end);
  for (std::size_t k = 1; k <= n; ++k) {
    std::string_view rest;
    if (!RowNumberIs(next[k - 1], k, &rest) || k > r.ValueMachineSetting.size()) continue;
    r.ValueMachineSetting[k - 1].ValueMachineWeighting = ParseDouble(NextToken(rest, " ="));
  }
  return n;
}

// ---- Text form of the list ------------------------------------------------------

std::string ShortestDouble(double v) {
  char buf[64];
  auto res = std::to_chars(buf, buf + sizeof buf, v);
  return std::string(buf, res.ptr);
}

std::string FormatRows(const Key& key) {
  const CNVX3DRemoteMachines& r = RecordOf(key);
  std::string text = std::to_string(r.ValueNoMachine);
  const std::size_t n = MachinesWritten(r);
  for (std::size_t i = 0; i < n; ++i) {
    const RemoteParm& m = r.ValueMachineSetting[i];
    text += (i == 0 ? ": " : "; ") + m.ValueMachineName + "|" + m.ValueMachinePath + "|" +
            std::to_string(m.ValueMachineJob) + "|" + ShortestDouble(m.ValueMachineWeighting);
  }
  return text;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t at = text.find(separator);
    parts.push_back(text.substr(0, at));
    if (at == std::string_view::npos) return parts;
    text.remove_prefix(at + 1);
  }
}

std::string_view Trim(std::string_view s) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  return s;
}

bool HasControl(std::string_view s) {
  return std::any_of(s.begin(), s.end(), [](char c) {
    const auto u = static_cast<unsigned char>(c);
    return u < 0x20 || u == 0x7f;
  });
}

// One "name|path|job|weight" entry; the reason it is not one, or empty.
std::string ParseEntry(std::string_view text, RemoteParm* m) {
  const std::vector<std::string_view> f = Split(text, '|');
  if (f.size() != 4) return "'" + std::string(text) + "' is not name|path|job|weight";
  const std::string_view name = Trim(f[0]), path = Trim(f[1]);
  if (HasControl(name)) return "a machine name holds no tab or control characters";
  if (HasControl(path) || path.find_first_of(" =") != std::string_view::npos) {
    return "a machine path holds no blank, '=' or control characters";
  }
  const std::string weight(Trim(f[3]));
  char* end = nullptr;
  m->ValueMachineWeighting = std::strtod(weight.c_str(), &end);
  if (!ParseWholeNumber(Trim(f[2]), &m->ValueMachineJob)) {
    return "'" + std::string(Trim(f[2])) + "' is not a whole number of jobs";
  }
  if (weight.empty() || end != weight.c_str() + weight.size()) {
    return "'" + weight + "' is not a weight";
  }
  // The row must stay within one KRN line.
  if (name.size() + path.size() + 32 > CNVX3DKRNDocument::kMaxLineLength) {
    return "a machine name and path together are too long for a KRN line";
  }
  m->ValueMachineName = std::string(name);
  m->ValueMachinePath = std::string(path);
  return {};
}

bool ParseRows(const Key& key, const std::string& text, std::string* error) {
  const std::size_t colon = text.find(':');
  std::int32_t n = 0;
  if (!ParseWholeNumber(Trim(std::string_view(text).substr(0, colon)), &n) || n < 0 ||
      n > kMaxRemoteMachines) {
    *error = "ValueMachineSetting is \"0\" or \"N: name|path|job|weight; ...\" with N from 1 to " +
             std::to_string(kMaxRemoteMachines);
    return false;
  }
  std::vector<RemoteParm> machines;
  if (colon != std::string::npos) {
    for (std::string_view entry : Split(std::string_view(text).substr(colon + 1), ';')) {
      RemoteParm m;
      const std::string why = ParseEntry(entry, &m);
      if (!why.empty()) {
        *error = why;
        return false;
      }
      machines.push_back(std::move(m));
    }
  }
  if (machines.size() != static_cast<std::size_t>(n)) {
    *error = "ValueMachineSetting says " + std::to_string(n) + " machines but lists " +
             std::to_string(machines.size());
    return false;
  }
  CNVX3DRemoteMachines& r = RecordOf(key);
  r.ValueMachineSetting = std::move(machines);
  r.ValueNoMachine = n;
  return true;
}

// ---- ValueParallelWorkingFolder -----------------------------------------------

std::string& FolderOf(const Key& key) { return key.As<std::string>(); }

void WriteFolderKrn(const Key& key, KrnStream& out) {
  out.Text(key.name).Text("=").Text(FolderOf(key)).EndLine();
}

// The key token is a view into the line, which ends with a NUL: the folder runs
// from after the character that ended the key, past any "=", to the next "=".
std::size_t ReadFolderKrn(const Key& key, std::string_view keyToken, std::string_view,
                          const std::string*, const std::string*) {
  const char* p = keyToken.data() + keyToken.size();
  if (*p != '\0') ++p;
  while (*p == '=') ++p;
  const char* q = p;
  while (*q != '\0' && *q != '=') ++q;
  FolderOf(key).assign(p, q);
  return 0;
}

void SetFolderItem(const Key& key, CRSVTable& table) { table.SetItem(key.name, FolderOf(key)); }

void GetFolderItem(const Key& key, CRSVTable& table, RsvScratch& scratch) {
  table.GetItem(key.name, &scratch.s);
  FolderOf(key) = scratch.s;
}

std::string FormatFolder(const Key& key) { return FolderOf(key); }

bool ParseFolder(const Key& key, const std::string& text, std::string* error) {
  if (HasControl(text) || text.find('=') != std::string::npos) {
    *error = "ValueParallelWorkingFolder holds no '=' or control characters";
    return false;
  }
  if (text.size() + std::string_view(key.name).size() + 1 > CNVX3DKRNDocument::kMaxLineLength) {
    *error = "ValueParallelWorkingFolder is too long for a KRN line";
    return false;
  }
  FolderOf(key) = text;
  return true;
}

// ---- Operation tables -----------------------------------------------------------

constexpr CustomOps CountOps() {
  CustomOps ops;
  ops.writeKrn = WriteCountKrn;
  ops.readKrn = ReadCountKrn;
  ops.setItems = SetCountItem;
  ops.getItems = GetCountItem;
  ops.format = FormatCount;
  ops.parse = ParseCount;
  return ops;
}

constexpr CustomOps RowsOps() {
  CustomOps ops;
  ops.writeKrn = WriteRowsKrn;
  ops.readKrn = ReadRowsKrn;
  ops.format = FormatRows;
  ops.parse = ParseRows;
  return ops;
}

constexpr CustomOps WeightsOps() {
  CustomOps ops;
  ops.writeKrn = WriteWeightsKrn;
  ops.readKrn = ReadWeightsKrn;
  return ops;
}

constexpr CustomOps FolderOps() {
  CustomOps ops;
  ops.writeKrn = WriteFolderKrn;
  ops.readKrn = ReadFolderKrn;
  ops.setItems = SetFolderItem;
  ops.getItems = GetFolderItem;
  ops.format = FormatFolder;
  ops.parse = ParseFolder;
  return ops;
}

constexpr char kMachineGroup[] = "ValueMachineSetting";

std::string MachineTableName(std::int32_t index) { return "ValueMachine-" + std::to_string(index); }

}  // namespace

constexpr CustomOps kMachineCountOps = CountOps();
constexpr CustomOps kMachineRowsOps = RowsOps();
constexpr CustomOps kMachineWeightsOps = WeightsOps();
constexpr CustomOps kParallelFolderOps = FolderOps();

void WriteMachineTables(CRSVTool& tool, CRSVGroup* group, CNVX3DComputationImpl& impl) {
  const CNVX3DRemoteMachines* r = impl.sections.remoteMachines.get();
  if (r == nullptr) return;
  CRSVGroup* machines = tool.OpenGroup(group, kMachineGroup);
  if (machines == nullptr) machines = tool.CreateGroup(group, kMachineGroup);
  if (machines == nullptr) return;
  const auto n = static_cast<std::int32_t>(MachinesWritten(*r));
  for (std::int32_t i = 0; i < n; ++i) {
    const RemoteParm& m = r->ValueMachineSetting[static_cast<std::size_t>(i)];
    const std::string name = MachineTableName(i);
    CRSVTable* table = tool.OpenTable(machines, name);
    if (table == nullptr) table = tool.CreateTable(machines, name);
    if (table == nullptr) continue;
    table->SetItem("ValueMachineName", m.ValueMachineName);
    table->SetItem("ValueMachinePath", m.ValueMachinePath);
    table->SetItem("ValueMachineJob", static_cast<int>(m.ValueMachineJob));
    table->SetItem("ValueMachineWeighting", m.ValueMachineWeighting);
    table->Flush();
    tool.CloseTable(table);
  }
  tool.CloseGroup(machines);
}

void ReadMachineTables(CRSVTool& tool, CRSVGroup* group, CNVX3DComputationImpl& impl) {
  CNVX3DRemoteMachines* r = impl.sections.remoteMachines.get();
  if (r == nullptr) return;
  CRSVGroup* machines = tool.OpenGroup(group, kMachineGroup);
  if (machines == nullptr) return;
  const auto count = static_cast<std::int32_t>(std::min<std::size_t>(
      static_cast<std::size_t>(std::max(r->ValueNoMachine, 0)), r->ValueMachineSetting.size()));
  for (std::int32_t i = 0; i < count; ++i) {
    CRSVTable* table = tool.OpenTable(machines, MachineTableName(i));
    if (table == nullptr) continue;
    // Scratch values per machine table, stored whether or not an item exists.
    RsvScratch scratch;
    RemoteParm& m = r->ValueMachineSetting[static_cast<std::size_t>(i)];
    table->GetItem("ValueMachineName", &scratch.s);
    m.ValueMachineName = scratch.s;
    table->GetItem("ValueMachinePath", &scratch.s);
    m.ValueMachinePath = scratch.s;
    table->GetItem("ValueMachineJob", &scratch.i);
    m.ValueMachineJob = scratch.i;
    table->GetItem("ValueMachineWeighting", &scratch.d);
    m.ValueMachineWeighting = scratch.d;
    tool.CloseTable(table);
  }
  tool.CloseGroup(machines);
}

}  // namespace nvx
