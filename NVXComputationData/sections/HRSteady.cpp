// Keys of <FILL_ADVANCED_HRSteady>: a count line, the gate type and one line
// per gate ("1 = v", "2 = v", ...), each carrying the value of its gate that
// the gate type selects.
#include "sections/HRSteady.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "core/KeyText.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNLine.h"
#include "krn/KRNStream.h"

namespace nvx {
namespace {

// More gates than any hot-runner system has: bounds what a command line sets,
// the gate list a count read from a file allocates and the gate lines written.
constexpr std::int32_t kMaxGateLines = 100000;

bool IsGateNumber(std::string_view token) {
  return !token.empty() && std::all_of(token.begin(), token.end(), [](char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
  });
}

// ---- "ValueNoHRGate": the number of gate lines -----------------------------

void WriteGateCount(const Key& key, KrnStream& out) {
  out.Text(key.name).Text(" = ").Int(key.As<CNVX3DHRSteady>().ValueNoHRGate).EndLine();
}

// The count is kept as the file gives it and sizes the gate list (never past
// kMaxGateLines entries); the gate lines that follow fill it, and a gate the
// section gives no line for keeps zeros.
std::size_t ReadGateCount(const Key& key, std::string_view, std::string_view value,
                          const std::string*, const std::string*) {
  CNVX3DHRSteady& r = key.As<CNVX3DHRSteady>();
  r.ValueNoHRGate = ParseInt(value);
  r.Gates.resize(static_cast<std::size_t>(std::clamp(r.ValueNoHRGate, 0, kMaxGateLines)),
                 CNVX3DHRGate{});
  return 0;
}

std::string FormatGateCount(const Key& key) {
  return std::to_string(key.As<CNVX3DHRSteady>().ValueNoHRGate);
}

bool ParseGateCount(const Key& key, const std::string& text, std::string* error) {
  std::int32_t count = 0;
  if (!ParseValue(Field(key.name, count), text, error)) return false;
  if (count < 0 || count > kMaxGateLines) {
    *error = "a number of gates must lie between 0 and " + std::to_string(kMaxGateLines);
    return false;
  }
  key.As<CNVX3DHRSteady>().ValueNoHRGate = count;
  return true;
}

const CustomOps kGateCountOps = {WriteGateCount, ReadGateCount,   nullptr,
                                 nullptr,        nullptr,         nullptr,
                                 nullptr,        FormatGateCount, ParseGateCount};

// ---- The gate lines ----------------------------------------------------------

// Line i carries the selected value of gate i-1. A gate missing from the list,
// or a gate type other than 0 and 1, repeats the value written last, which for
// the first line is ValueConvergenceCriteria. Kept as it is: solvers read the
// lines so. A count past kMaxGateLines writes no more lines than that, so a
// damaged count cannot make a write run without end.
void WriteGateLines(const Key& key, KrnStream& out) {
  CNVX3DHRSteady& r = key.As<CNVX3DHRSteady>();
  double last = r.ValueConvergenceCriteria;
  const std::int32_t lines = std::min(r.ValueNoHRGate, kMaxGateLines);
  for (std::int32_t i = 1; i <= lines; ++i) {
    if (const double* v = GateValue(r, i - 1, r.ValueHRGateType)) last = *v;
    out.Int(i).Text(" = ").Double(last).EndLine();
  }
}

// A gate line fills the value the gate type selects in the gate it numbers;
// lines outside the list (sized by the count) or under another type are
// skipped.
std::size_t ReadGateLine(const Key& key, std::string_view keyToken, std::string_view value,
                         const std::string*, const std::string*) {
  CNVX3DHRSteady& r = key.As<CNVX3DHRSteady>();
  if (!IsGateNumber(keyToken)) return 0;
  if (double* v = GateValue(r, ParseInt(keyToken) - 1, r.ValueHRGateType)) {
    *v = ParseDouble(value);
  }
  return 0;
}

bool MatchesGateLine(const Key& key, std::string_view keyToken) {
  return keyToken == key.name || IsGateNumber(keyToken);
}

// The list as "a/b/c, a/b/c": each gate's leading value, value 0 and value 1.
// Setting it replaces the list; "ValueNoHRGate" still decides how many lines
// the writer emits.
std::string FormatGates(const Key& key) {
  std::string text;
  for (CNVX3DHRGate gate : key.As<CNVX3DHRSteady>().Gates) {
    if (!text.empty()) text += ", ";
    for (std::size_t i = 0; i < gate.size(); ++i) {
      text += (i == 0 ? "" : "/") + FormatValue(Field("", gate[i]));
    }
  }
  return text;
}

std::string_view Trim(std::string_view s) {
  while (!s.empty() && std::isspace(static_cast<unsigned char>(s.front()))) s.remove_prefix(1);
  while (!s.empty() && std::isspace(static_cast<unsigned char>(s.back()))) s.remove_suffix(1);
  return s;
}

bool ParseGates(const Key& key, const std::string& text, std::string* error) {
  std::vector<CNVX3DHRGate> gates;
  std::string_view rest = Trim(text);
  while (!rest.empty()) {
    const std::size_t comma = rest.find(',');
    std::string_view entry = Trim(rest.substr(0, comma));
    rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
    CNVX3DHRGate gate{};
    for (std::size_t i = 0; i < gate.size(); ++i) {
      const std::size_t slash = entry.find('/');
      const bool last = i + 1 == gate.size();
      if ((slash == std::string_view::npos) != last) {
        *error = "a gate is three numbers a/b/c, not '" + std::string(entry) + "'";
        return false;
      }
      if (!ParseValue(Field(key.name, gate[i]), std::string(Trim(entry.substr(0, slash))), error)) {
        return false;
      }
      if (!last) entry.remove_prefix(slash + 1);
    }
    gates.push_back(gate);
  }
  key.As<CNVX3DHRSteady>().Gates = std::move(gates);
  return true;
}

const CustomOps kGateLineOps = {WriteGateLines, ReadGateLine, MatchesGateLine, nullptr,   nullptr,
                                nullptr,        nullptr,      FormatGates,     ParseGates};

KeyList HRSteadyKeys(CNVX3DComputationImpl& impl) {
  CNVX3DHRSteady& r = *impl.sections.hrSteady;
  return {
      Field("Version", r.Version),
      // Fixed notation from the first double on; it stays in force for the
      // gate lines and for every later section until another writer changes it.
      Field("ValueFlowRate", r.ValueFlowRate).Note(Notation::kFixed),
      Field("ValueConvergenceCriteria", r.ValueConvergenceCriteria),
      Custom("ValueNoHRGate", &r, kGateCountOps),
      Field("ValueHRGateType", r.ValueHRGateType),
      Custom("Gates", &r, kGateLineOps),
  };
}

}  // namespace

const SectionDef kHRSteadySection{KrnTag::kFillAdvancedHRSteady, nullptr, HRSteadyKeys};

void ResetHRSteady(CNVX3DHRSteady& record) { record = CNVX3DHRSteady(); }

double* GateValue(CNVX3DHRSteady& record, int gate, int which) {
  if (gate < 0 || static_cast<std::size_t>(gate) >= record.Gates.size()) return nullptr;
  if (which != 0 && which != 1) return nullptr;
  return &record.Gates[static_cast<std::size_t>(gate)][static_cast<std::size_t>(which) + 1];
}

}  // namespace nvx
