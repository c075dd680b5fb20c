// Keys of <SOLID_STRESS> and of the "PartInsert" table, with the list keys'
// KRN, RSV and text operations (layouts in the header).
#include "sections/SolidStress.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstring>
#include <string>

#include "NVX3DRSVExTool.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNLine.h"
#include "krn/KRNStream.h"

namespace nvx {
namespace {

using NVX3DRSVExTool::CRSVTable;
using List = std::vector<double>;

// ---- Rows in KRN ---------------------------------------------------------------

bool IsItemNumber(std::string_view token) {
  return !token.empty() &&
         std::all_of(token.begin(), token.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Reads up to `count` row lines from [next, end) into `list`; returns how many
// lines it took. Stops at the first line that is not an item line.
std::size_t ReadRows(List& list, std::int32_t count, int columns, const std::string* next,
                     const std::string* end) {
  List rows;
  std::size_t taken = 0;
  while (count > 0 && taken < static_cast<std::size_t>(count) && next + taken != end) {
    std::string_view rest = next[taken];
    if (!IsItemNumber(NextToken(rest, " ="))) break;
    for (int c = 0; c < columns; ++c) rows.push_back(ParseDouble(NextToken(rest, " =")));
    ++taken;
  }
  list = std::move(rows);
  return taken;
}

void WriteRows(KrnStream& out, std::string_view name, const List& list, int columns,
               Notation notation) {
  out.Text(name).Text(" = ");
  if (notation == Notation::kFixed) out.Fixed();
  if (notation == Notation::kScientific) out.Scientific();
  const std::size_t rows = list.size() / static_cast<std::size_t>(columns);
  out.Int(static_cast<std::int64_t>(rows)).EndLine();
  for (std::size_t i = 0; i < rows; ++i) {
    out.Int(static_cast<std::int64_t>(i + 1)).Text(" =");
    for (int c = 0; c < columns; ++c) out.Text(" ").Double(list[i * columns + c]);
    out.EndLine();
  }
}

// ---- Rows in RSV ---------------------------------------------------------------

void SetRowsItem(CRSVTable& table, const std::string& name, const List& list) {
  table.SetItem(name, static_cast<std::uint64_t>(list.size() * sizeof(double)), list.data());
}

// A missing item leaves the list; trailing bytes of no whole row are ignored.
bool GetRowsItem(CRSVTable& table, const std::string& name, List& list, int columns) {
  std::uint64_t size = 0;
  const void* bytes = nullptr;
  if (!table.GetItem(name, &size, &bytes)) return false;
  const std::uint64_t rowBytes = sizeof(double) * static_cast<std::uint64_t>(columns);
  List values(static_cast<std::size_t>(size / rowBytes) * columns);
  if (!values.empty()) std::memcpy(values.data(), bytes, values.size() * sizeof(double));
  list = std::move(values);
  return true;
}

// ---- Rows as text: "a b, c d" ------------------------------------------------

void AppendShortest(std::string& text, double v) {
  char buf[64];
  const auto res = std::to_chars(buf, buf + sizeof buf, v);
  text.append(buf, res.ptr);
}

std::string FormatRows(const List& list, int columns) {
  std::string text;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (i != 0) text += i % columns == 0 ? ", " : " ";
    AppendShortest(text, list[i]);
  }
  return text;
}

bool ParseRows(std::string_view text, int columns, List* list, std::string* error) {
  List values;
  std::string_view rest = text;
  while (true) {
    const std::size_t comma = rest.find(',');
    std::string_view row = rest.substr(0, comma);
    int found = 0;
    for (std::string_view tok = NextToken(row, " \t"); !tok.empty();
         tok = NextToken(row, " \t"), ++found) {
      double v = 0.0;
      const auto res = std::from_chars(tok.data(), tok.data() + tok.size(), v);
      if (res.ec != std::errc() || res.ptr != tok.data() + tok.size()) {
        *error = "'" + std::string(tok) + "' is not a number";
        return false;
      }
      values.push_back(v);
    }
    const bool blank = found == 0 && comma == std::string_view::npos && values.empty();
    if (!blank && found != columns) {
      *error = "each row takes " + std::to_string(columns) + " value(s), separated by ', '";
      return false;
    }
    if (comma == std::string_view::npos) break;
    rest.remove_prefix(comma + 1);
  }
  *list = std::move(values);
  return true;
}

// ---- Stress list keys ----------------------------------------------------------

template <int kColumns, Notation kNote>
struct RowListOps {
  static List& Of(const Key& key) { return key.As<List>(); }
  static void WriteKrn(const Key& key, KrnStream& out) {
    WriteRows(out, key.name, Of(key), kColumns, kNote);
  }
  static std::size_t ReadKrn(const Key& key, std::string_view, std::string_view value,
                             const std::string* next, const std::string* end) {
    return ReadRows(Of(key), ParseInt(value), kColumns, next, end);
  }
  static void SetItems(const Key& key, CRSVTable& table) { SetRowsItem(table, key.name, Of(key)); }
  static void GetItems(const Key& key, CRSVTable& table, RsvScratch&) {
    GetRowsItem(table, key.name, Of(key), kColumns);
  }
  static std::string Format(const Key& key) { return FormatRows(Of(key), kColumns); }
  static bool Parse(const Key& key, const std::string& text, std::string* error) {
    return ParseRows(text, kColumns, &Of(key), error);
  }
  static CustomOps Make() {
    CustomOps ops;
    ops.writeKrn = WriteKrn;
    ops.readKrn = ReadKrn;
    ops.setItems = SetItems;
    ops.getItems = GetItems;
    ops.format = Format;
    ops.parse = Parse;
    return ops;
  }
};

const CustomOps kTempTimeOps = RowListOps<kPairColumns, Notation::kFixed>::Make();
const CustomOps kMatTempPartOps = RowListOps<kPairColumns, Notation::kKeep>::Make();
const CustomOps kOutPutTimingOps = RowListOps<1, Notation::kFixed>::Make();

// Named exception of the writer: after the "FlagVEResidualStress" line the
// stream goes back to general notation with precision 6. A key with no line.
const CustomOps kGeneralNotationOps = [] {
  CustomOps ops;
  ops.writeKrn = [](const Key&, KrnStream& out) {
    out.General();
    out.Precision(6);
  };
  return ops;
}();

// ---- Part-insert lists ---------------------------------------------------------

constexpr char kModulusPrefix[] = "MatTemp(PartInsert-Modulus-";
constexpr char kCltePrefix[] = "MatTemp(PartInsert-CLTE-";
// More inserts than any mold holds; keeps a typo in nvxparam from allocating without end.
constexpr std::int32_t kMaxInserts = 100000;

// The insert number and list of a key token such as
// "MatTemp(PartInsert-CLTE-3)"; false for any other token.
bool ParseInsertToken(std::string_view token, std::int32_t* number, bool* clte) {
  std::string_view rest;
  if (token.substr(0, sizeof kModulusPrefix - 1) == kModulusPrefix) {
    rest = token.substr(sizeof kModulusPrefix - 1);
    *clte = false;
  } else if (token.substr(0, sizeof kCltePrefix - 1) == kCltePrefix) {
    rest = token.substr(sizeof kCltePrefix - 1);
    *clte = true;
  } else {
    return false;
  }
  if (rest.size() < 2 || rest.back() != ')') return false;
  rest.remove_suffix(1);
  const auto res = std::from_chars(rest.data(), rest.data() + rest.size(), *number);
  return IsItemNumber(rest) && res.ec == std::errc() && res.ptr == rest.data() + rest.size();
}

CNVX3DPartInsert& Inserts(const Key& key) { return key.As<CNVX3DPartInsert>(); }

bool InsertMatches(const Key& key, std::string_view token) {
  std::int32_t number = 0;
  bool clte = false;
  return token == key.name || ParseInsertToken(token, &number, &clte);
}

std::size_t ReadInsertKrn(const Key& key, std::string_view token, std::string_view value,
                          const std::string* next, const std::string* end) {
  std::int32_t number = 0;
  bool clte = false;
  if (!ParseInsertToken(token, &number, &clte)) return 0;
  CNVX3DPartInsertMaterial& insert = FindOrAddInsert(Inserts(key), number);
  return ReadRows(clte ? insert.CLTE : insert.Modulus, ParseInt(value), kPairColumns, next, end);
}

void WriteInsertKrn(const Key& key, KrnStream& out) {
  for (const CNVX3DPartInsertMaterial& insert : Inserts(key).Inserts) {
    const std::string n = std::to_string(insert.Number) + ")";
    WriteRows(out, kModulusPrefix + n, insert.Modulus, kPairColumns, Notation::kFixed);
    WriteRows(out, kCltePrefix + n, insert.CLTE, kPairColumns, Notation::kScientific);
  }
}

void SetInsertItems(const Key& key, CRSVTable& table) {
  const auto& inserts = Inserts(key).Inserts;
  table.SetItem("NoPartInsert", static_cast<int>(inserts.size()));
  for (std::size_t k = 1; k <= inserts.size(); ++k) {
    const CNVX3DPartInsertMaterial& insert = inserts[k - 1];
    table.SetItem("PartInsertNumber" + std::to_string(k), static_cast<int>(insert.Number));
    SetRowsItem(table, "PartInsertModulus" + std::to_string(k), insert.Modulus);
    SetRowsItem(table, "PartInsertCLTE" + std::to_string(k), insert.CLTE);
  }
}

void GetInsertItems(const Key& key, CRSVTable& table, RsvScratch& scratch) {
  table.GetItem("NoPartInsert", &scratch.i);
  const std::int32_t count = scratch.i;
  std::vector<CNVX3DPartInsertMaterial> read;
  for (std::int32_t k = 1; k <= count; ++k) {
    CNVX3DPartInsertMaterial insert;
    if (!table.GetItem("PartInsertNumber" + std::to_string(k), &insert.Number)) break;
    GetRowsItem(table, "PartInsertModulus" + std::to_string(k), insert.Modulus, kPairColumns);
    GetRowsItem(table, "PartInsertCLTE" + std::to_string(k), insert.CLTE, kPairColumns);
    read.push_back(std::move(insert));
  }
  CNVX3DPartInsert record;
  for (CNVX3DPartInsertMaterial& insert : read) {
    CNVX3DPartInsertMaterial& slot = FindOrAddInsert(record, insert.Number);
    slot = std::move(insert);
  }
  Inserts(key).Inserts = std::move(record.Inserts);
}

// Text form: "<number>{<modulus rows>}{<CLTE rows>}; ...".
std::string FormatInserts(const Key& key) {
  std::string text;
  for (const CNVX3DPartInsertMaterial& insert : Inserts(key).Inserts) {
    if (!text.empty()) text += "; ";
    text += std::to_string(insert.Number) + "{" + FormatRows(insert.Modulus, kPairColumns) + "}{" +
            FormatRows(insert.CLTE, kPairColumns) + "}";
  }
  return text;
}

bool ParseInserts(const Key& key, const std::string& text, std::string* error) {
  CNVX3DPartInsert parsed;
  std::string_view rest = text;
  while (true) {
    // Separators, then "<number>{rows}{rows}".
    while (!rest.empty() && (rest.front() == ' ' || rest.front() == ';')) rest.remove_prefix(1);
    if (rest.empty()) break;
    const std::size_t open1 = rest.find('{');
    const std::size_t close1 = rest.find('}', open1);
    const std::size_t open2 = close1 == std::string_view::npos ? close1 : close1 + 1;
    const std::size_t close2 = rest.find('}', open2);
    std::int32_t number = 0;
    const std::string_view digits = rest.substr(0, open1);
    const auto res = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (open1 == std::string_view::npos || close2 == std::string_view::npos ||
        open2 >= rest.size() || rest[open2] != '{' || !IsItemNumber(digits) ||
        res.ec != std::errc() || res.ptr != digits.data() + digits.size()) {
      *error = "part inserts are written as <number>{t m, ...}{t c, ...}; ...";
      return false;
    }
    for (const CNVX3DPartInsertMaterial& insert : parsed.Inserts) {
      if (insert.Number == number) {
        *error = "part insert " + std::to_string(number) + " is given twice";
        return false;
      }
    }
    if (static_cast<std::int32_t>(parsed.Inserts.size()) >= kMaxInserts) {
      *error = "too many part inserts";
      return false;
    }
    CNVX3DPartInsertMaterial& insert = FindOrAddInsert(parsed, number);
    if (!ParseRows(rest.substr(open1 + 1, close1 - open1 - 1), kPairColumns, &insert.Modulus,
                   error) ||
        !ParseRows(rest.substr(open2 + 1, close2 - open2 - 1), kPairColumns, &insert.CLTE, error)) {
      return false;
    }
    rest.remove_prefix(close2 + 1);
  }
  Inserts(key).Inserts = std::move(parsed.Inserts);
  return true;
}

const CustomOps kPartInsertOps = [] {
  CustomOps ops;
  ops.writeKrn = WriteInsertKrn;
  ops.readKrn = ReadInsertKrn;
  ops.matches = InsertMatches;
  ops.setItems = SetInsertItems;
  ops.getItems = GetInsertItems;
  ops.format = FormatInserts;
  ops.parse = ParseInserts;
  return ops;
}();

// ---- Sections ------------------------------------------------------------------

// The writer sets precision 0 before its opening tag. It shows nowhere: the
// stream prints 6 digits for a precision of 0 unless fixed notation is in
// force, and the first double of the section comes after a switch to
// scientific notation, the first fixed one after the precision is back at 6.
void ZeroPrecision(KrnStream& out) { out.Precision(0); }

KeyList SolidStressKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidStress& r = *impl.sections.stress;
  constexpr Notation kSci = Notation::kScientific;
  constexpr Notation kFix = Notation::kFixed;
  return {
      Field("Version", r.Version),
      Field("IDCompositeModel", r.IDCompositeModel),
      Field("FlagSolverAcceleration", r.FlagSolverAcceleration),
      Field("FlagFiberEffect", r.FlagFiberEffect),
      Field("ValueMaxIteration", r.ValueMaxIteration),
      Field("ValueMinIterativeError", r.ValueMinIterativeError).Note(kSci),
      Field("ValueGravityX", r.ValueGravityX),
      Field("ValueGravityY", r.ValueGravityY),
      Field("ValueGravityZ", r.ValueGravityZ),
      Field("WeldLineEffect", r.WeldLineEffect),
      Field("WeldlineAngle1", r.WeldlineAngle1),
      Field("WeldlineAngle2", r.WeldlineAngle2),
      Field("WeldlineAngle3", r.WeldlineAngle3),
      Field("WeldlineAngle4", r.WeldlineAngle4),
      Field("ReductionRate1", r.ReductionRate1).Note(kSci),
      Field("ReductionRate2", r.ReductionRate2).Note(kSci),
      Field("ReductionRate3", r.ReductionRate3).Note(kSci),
      Field("FlagVEResidualStress", r.FlagVEResidualStress),
      Custom("", nullptr, kGeneralNotationOps).Use(kKrnWrite),
      Field("TransientStressCouplingType", r.TransientStressCouplingType).Note(kFix),
      Field("ValueInitialTemperature", r.ValueInitialTemperature).Note(kFix),
      Field("Valuedt", r.Valuedt).Note(kFix),
      Field("ValueTimePeriod", r.ValueTimePeriod).Note(kFix),
      Field("ValueHTC", r.ValueHTC).Note(kFix),
      Custom("TempTime", &r.TempTime, kTempTimeOps),
      Custom("MatTemp(Part)", &r.MatTempPart, kMatTempPartOps),
      Field("FlagUserDefinedMaterial", r.FlagUserDefinedMaterial),
      // The part-insert lists live in the part-insert record and its own table.
      Custom("PartInsert", impl.sections.partInsert.get(), kPartInsertOps).Use(kKrn),
      Custom("ValueOutPutTiming", &r.ValueOutPutTiming, kOutPutTimingOps),
      Field("ValueAnnealgingCycleNumber", r.ValueAnnealgingCycleNumber),
  };
}

KeyList PartInsertKeys(CNVX3DComputationImpl& impl) {
  CNVX3DPartInsert& r = *impl.sections.partInsert;
  return {
      Field("Version", r.Version),
      Custom("PartInsert", &r, kPartInsertOps).Use(kRsv),
  };
}

}  // namespace

const SectionDef kSolidStressSection{KrnTag::kSolidStress, "SOLID_STRESS", SolidStressKeys,
                                     ZeroPrecision};
const SectionDef kPartInsertTable{KrnTag::kSolidStress, "PartInsert", PartInsertKeys};

void ResetSolidStress(CNVX3DSolidStress& record) { record = CNVX3DSolidStress(); }

void ResetPartInsert(CNVX3DPartInsert& record) { record = CNVX3DPartInsert(); }

void SetPartInsertCount(CNVX3DPartInsert& record, std::int32_t count) {
  const std::size_t n = static_cast<std::size_t>(std::max(count, 0));
  if (n < record.Inserts.size()) record.Inserts.resize(n);
  while (record.Inserts.size() < n) {
    CNVX3DPartInsertMaterial insert;
    // Wraps rather than overflowing after the largest number.
    insert.Number = record.Inserts.empty()
                        ? 1
                        : static_cast<std::int32_t>(
                              static_cast<std::uint32_t>(record.Inserts.back().Number) + 1u);
    record.Inserts.push_back(std::move(insert));
  }
}

CNVX3DPartInsertMaterial& FindOrAddInsert(CNVX3DPartInsert& record, std::int32_t number) {
  auto& list = record.Inserts;
  auto at = list.end();
  // Files list inserts in ascending order, so a new number usually goes last.
  if (!list.empty() && list.back().Number >= number) {
    at = std::lower_bound(
        list.begin(), list.end(), number,
        [](const CNVX3DPartInsertMaterial& m, std::int32_t n) { return m.Number < n; });
  }
  if (at != list.end() && at->Number == number) return *at;
  CNVX3DPartInsertMaterial insert;
  insert.Number = number;
  return *list.insert(at, std::move(insert));
}

void SetRowCount(List& list, std::int32_t rows, int columns) {
  list.resize(static_cast<std::size_t>(std::max(rows, 0)) * static_cast<std::size_t>(columns), 0.0);
}

}  // namespace nvx
