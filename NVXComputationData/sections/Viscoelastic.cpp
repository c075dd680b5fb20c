// Curve lists, defaults and keys of the four viscoelastic sections, with the
// curve block ("MTCount"/"PARACount" and its point lines, the "MT" raw item).
#include "sections/Viscoelastic.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include "NVX3DRSVExTool.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNLine.h"
#include "krn/KRNStream.h"
#include "sections/ValueText.h"

// ---- CNVXPROProfile --------------------------------------------------------

int CNVXPROProfile::PointCount(int k) const {
  if (k < 0 || static_cast<std::size_t>(k) >= Curves.size()) return 0;
  const Curve& c = Curves[static_cast<std::size_t>(k)];
  return c.First.size() == c.Second.size() ? static_cast<int>(c.First.size()) : -1;
}

void CNVXPROProfile::SetPointCount(int k, int n) {
  if (k < 0) return;
  while (Curves.size() <= static_cast<std::size_t>(k)) Curves.push_back(Curve{{0.0}, {0.0}});
  Curve& c = Curves[static_cast<std::size_t>(k)];
  const std::size_t size = static_cast<std::size_t>(std::max(n, 0));
  c.First.resize(size, 0.0);
  c.Second.resize(size, 0.0);
}

bool CNVXPROProfile::SetPoint(int k, int i, double first, double second) {
  if (k < 0 || static_cast<std::size_t>(k) >= Curves.size()) return false;
  if (i < 0 || i >= PointCount(k)) return true;
  Curve& c = Curves[static_cast<std::size_t>(k)];
  c.First[static_cast<std::size_t>(i)] = first;
  c.Second[static_cast<std::size_t>(i)] = second;
  return true;
}

bool CNVXPROProfile::GetPoint(int k, int i, double& first, double& second) const {
  if (i < 0 || i >= PointCount(k)) return false;
  const Curve& c = Curves[static_cast<std::size_t>(k)];
  first = c.First[static_cast<std::size_t>(i)];
  second = c.Second[static_cast<std::size_t>(i)];
  return true;
}

// ---- Defaults -----------------------------------------------------------------

namespace {

// Default curve 0 of the stress and warp records: (E0, time) points.
constexpr double kStressCurve[][2] = {{1.16e9, 0.002}, {8.68e8, 0.05}, {1.16e8, 0.35},
                                      {1.45e7, 1.5},   {2.89e6, 10},   {8.68e5, 150},
                                      {3.61e5, 3000},  {1.74e5, 40000}};
// Default curve 0 of the curing record: first values; the second are all 0.
constexpr double kCuringCurve[] = {40404.2645, -170404.5539, 286722.691, -240518.5375, 100561.5854};
constexpr double kCuringParaConst = -16765.45;

CNVXPROProfile::Curve StressCurve() {
  CNVXPROProfile::Curve c;
  c.First.reserve(std::size(kStressCurve));
  c.Second.reserve(std::size(kStressCurve));
  for (const auto& point : kStressCurve) c.First.push_back(point[0]), c.Second.push_back(point[1]);
  return c;
}

CNVXPROProfile::Curve CuringCurve() {
  return {std::vector<double>(std::begin(kCuringCurve), std::end(kCuringCurve)),
          std::vector<double>(std::size(kCuringCurve), 0.0)};
}

void SetCurve0(CNVXPROProfile& p, CNVXPROProfile::Curve curve) {
  p.Curves.clear();
  p.Curves.push_back(std::move(curve));
}

}  // namespace

CNVX3DVECurve::CNVX3DVECurve() : CNVX3DVECurve(StressCurve()) {}

CNVX3DVECurve::CNVX3DVECurve(CNVXPROProfile::Curve curve0) {
  SetCurve0(Profile, std::move(curve0));
}

// Built with its own curve from the start: building the stress curve first
// and replacing it made every new object allocate and free three lists more.
CNVX3DVECuringStress::CNVX3DVECuringStress() : CNVX3DVECurve(CuringCurve()) {
  ValueEaslticRatio = kCuringParaConst;
}

namespace nvx {

void ResetVECurve(CNVX3DVECurve& record) { record = CNVX3DVECurve(); }

void ResetVECuring(CNVX3DVECuringStress& record) {
  record.Version = 1001;
  record.ValueEaslticRatio = kCuringParaConst;
  SetCurve0(record.Profile, CuringCurve());
}

void SetEstimateCoolStage(CNVX3DSolidVE& r, std::int32_t value) {
  r.FlagEstimateCoolStage = value;
  if (value == 1) r.FlagEstimateFlowPackStage = 1;
}

namespace {

// ---- The curve block ---------------------------------------------------------
//
// KRN: "<prefix>Count = n", then per point "<prefix>i = first\t second" with
// the stream switched to scientific notation before the values (never switched
// back: later doubles of the document inherit it). A curve whose lists differ
// writes the count -1 and no point lines. The prefix is the key's name less
// "Count".
//
// Reading sets the point count first, then takes the next n lines whatever
// they hold: everything up to the first "=" is dropped (the point number is
// not looked at, the order of the lines decides) and the next two tokens split
// at blanks or tabs are the values; a line without "=" gives (0, 0). A count
// larger than the lines left in the section takes only those lines, and the
// points they do not give are (0, 0); a count of 0 or less empties the curve.
//
// RSV: the raw-bytes item "MT", 16 bytes a point (first, second as doubles).
// On reading, the length divided by 16 is the number of points and trailing
// bytes of an odd-length block are ignored. The block goes through the table's
// scratch: an item missing from the table reads as an empty block, emptying
// the curve, just as a missing int item reads as the scratch int.
//
// Both readers give a curve at most kMaxCurvePoints points, whatever the count
// or the block says.

constexpr char kMtItem[] = "MT";

// More points than any measured material curve has; the text form takes no
// more either.
constexpr std::size_t kMaxCurvePoints = kMaxTuples;

std::string Prefix(const Key& key) {
  const std::string name = key.name;
  return name.substr(0, name.size() - std::strlen("Count"));
}

CNVXPROProfile& ProfileOf(const Key& key) { return key.As<CNVXPROProfile>(); }

// Curve 0 as consecutive (first, second) numbers; empty when its lists differ.
std::vector<double> Points(const CNVXPROProfile& p) {
  std::vector<double> flat;
  for (int i = 0; i < p.PointCount(0); ++i) {
    double a = 0.0, b = 0.0;
    p.GetPoint(0, i, a, b);
    flat.push_back(a);
    flat.push_back(b);
  }
  return flat;
}

void SetPoints(CNVXPROProfile& p, const std::vector<double>& flat) {
  const int n = static_cast<int>(flat.size() / 2);
  p.SetPointCount(0, n);
  for (int i = 0; i < n; ++i) p.SetPoint(0, i, flat[2 * i], flat[2 * i + 1]);
}

void WriteCurveKrn(const Key& key, KrnStream& out) {
  const CNVXPROProfile& p = ProfileOf(key);
  const int count = p.PointCount(0);
  out.Text(key.name).Text(" = ").Int(count).EndLine();
  const std::string prefix = Prefix(key);
  for (int i = 0; i < count; ++i) {
    double a = 0.0, b = 0.0;
    p.GetPoint(0, i, a, b);
    out.Text(prefix).Int(i + 1).Text(" = ");
    out.Scientific();
    out.Double(a).Text("\t ").Double(b).EndLine();
  }
}

std::size_t ReadCurveKrn(const Key& key, std::string_view, std::string_view value,
                         const std::string* next, const std::string* end) {
  const std::int32_t count = ParseInt(value);
  const std::size_t wanted = count > 0 ? static_cast<std::size_t>(count) : 0;
  const std::size_t taken = std::min(wanted, static_cast<std::size_t>(end - next));
  const std::size_t points = std::min(wanted, kMaxCurvePoints);
  std::vector<double> flat(2 * points, 0.0);
  for (std::size_t i = 0; i < std::min(taken, points); ++i) {
    std::string_view rest = next[i];
    const std::size_t eq = rest.find('=');
    rest = eq == std::string_view::npos ? std::string_view() : rest.substr(eq + 1);
    flat[2 * i] = ParseDouble(NextToken(rest, " \t"));
    flat[2 * i + 1] = ParseDouble(NextToken(rest, " \t"));
  }
  SetPoints(ProfileOf(key), flat);
  return taken;
}

void SetCurveItem(const Key& key, NVX3DRSVExTool::CRSVTable& table) {
  const std::vector<double> flat = Points(ProfileOf(key));
  table.SetItem(kMtItem, static_cast<std::uint64_t>(flat.size() * sizeof(double)), flat.data());
}

void GetCurveItem(const Key& key, NVX3DRSVExTool::CRSVTable& table, RsvScratch&) {
  std::uint64_t size = 0;
  const void* bytes = nullptr;
  table.GetItem(kMtItem, &size, &bytes);
  const std::uint64_t points =
      bytes != nullptr ? std::min<std::uint64_t>(size / 16, kMaxCurvePoints) : 0;
  std::vector<double> flat(static_cast<std::size_t>(points * 2));
  if (!flat.empty()) std::memcpy(flat.data(), bytes, flat.size() * sizeof(double));
  SetPoints(ProfileOf(key), flat);
}

// Shown as "n: (first,second), ..."; a curve whose lists differ shows "-1".
std::string FormatCurve(const Key& key) {
  const CNVXPROProfile& p = ProfileOf(key);
  return FormatTuples(p.PointCount(0), Points(p), 2);
}

bool ParseCurve(const Key& key, const std::string& text, std::string* error) {
  std::vector<double> flat;
  if (!ParseTuples(text, 2, &flat, error)) return false;
  SetPoints(ProfileOf(key), flat);
  return true;
}

CustomOps CurveOps(bool rsv) {
  CustomOps ops;
  ops.writeKrn = WriteCurveKrn;
  ops.readKrn = ReadCurveKrn;
  if (rsv) {
    ops.setItems = SetCurveItem;
    ops.getItems = GetCurveItem;
  }
  ops.format = FormatCurve;
  ops.parse = ParseCurve;
  return ops;
}

const CustomOps kMtCurveOps = CurveOps(true);
const CustomOps kParaCurveOps = CurveOps(false);

// ---- Key tables ------------------------------------------------------------------

// The curve sections start at precision 6, whatever a section before set.
void PrecisionSix(KrnStream& out) { out.Precision(6); }

KeyList SolidVEKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidVE& r = *impl.sections.ve;
  return {
      Field("Version", r.Version),
      Field("FlagEstimateFlowPackStage", r.FlagEstimateFlowPackStage),
      // Unlike its setter, the readers store the value as it stands.
      Field("FlagEstimateCoolStage", r.FlagEstimateCoolStage),
      Field("FlagEstimateEjection", r.FlagEstimateEjection),
  };
}

// Stress and warp differ only in their consider flag. "ValueEaslticRatio" is
// spelt so in both files. Scientific notation switched on before it stays on
// for the rest of the document until another section sets a notation.
KeyList CurveKeys(CNVX3DVECurve& r, const char* considerKey, std::int32_t& consider) {
  return {
      Field("Version", r.Version),
      Field(considerKey, consider),
      Field("FlagTempSetting", r.FlagTempSetting),
      Field("C1", r.C1),
      Field("C2", r.C2),
      Field("Tref", r.Tref),
      Field("ValueEaslticRatio", r.ValueEaslticRatio).Note(Notation::kScientific),
      Custom("MTCount", &r.Profile, kMtCurveOps),
  };
}

KeyList VEStressKeys(CNVX3DComputationImpl& impl) {
  CNVX3DVEStress& r = *impl.sections.veStress;
  return CurveKeys(r, "FlagConsiderStress", r.FlagConsiderStress);
}

KeyList VEWarpKeys(CNVX3DComputationImpl& impl) {
  CNVX3DVEWarp& r = *impl.sections.veWarp;
  return CurveKeys(r, "FlagConsiderWarp", r.FlagConsiderWarp);
}

KeyList VECuringKeys(CNVX3DComputationImpl& impl) {
  CNVX3DVECuringStress& r = *impl.sections.veCuring;
  return {
      Field("Version", r.Version),
      Field("ModelType", r.ModelType),
      // The curing constant lives in the field the other two call
      // ValueEaslticRatio.
      Field("PARAConst", r.ValueEaslticRatio).Note(Notation::kScientific),
      Custom("PARACount", &r.Profile, kParaCurveOps),
  };
}

}  // namespace

const SectionDef kSolidVESection{KrnTag::kSolidVE, "SOLID_VE", SolidVEKeys};
const SectionDef kSolidVEStressSection{KrnTag::kSolidVEStress, "SOLID_VE_STRESS", VEStressKeys,
                                       PrecisionSix};
const SectionDef kSolidVEWarpSection{KrnTag::kSolidVEWarp, "SOLID_VE_WARP", VEWarpKeys,
                                     PrecisionSix};
// The curing record lives only in KRN files: it has no RSV table.
const SectionDef kSolidVECuringStressSection{KrnTag::kSolidVECuringStress, nullptr, VECuringKeys,
                                             PrecisionSix};

}  // namespace nvx
