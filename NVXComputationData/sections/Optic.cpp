// Keys of the three optics sections and the light-direction list.
#include "sections/Optic.h"

#include <algorithm>
#include <cstring>

#include "NVX3DRSVExTool.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNLine.h"
#include "krn/KRNStream.h"
#include "sections/ValueText.h"

namespace nvx {

void SetLightDirection(CNVX3DSolidOptic& r, int i, const CNVX3DLightDirection& d) {
  if (i < 0) return;  // no entry to replace, and not past the end
  if (static_cast<std::size_t>(i) >= r.Directions.size()) {
    r.Directions.push_back(d);
  } else {
    r.Directions[static_cast<std::size_t>(i)] = d;
  }
}

namespace {

// ---- The direction list ------------------------------------------------------
//
// KRN: "ValueOpticLightDirection = n", then for i from 1 to n the row
// "i= x y z" (no blank before the sign: the rows are written so). The rows
// follow the stored count as far as the list holds directions: a list shorter
// than the count writes the rows it has and no more, so a count a host or a
// file left above the list never makes a write fail.
//
// Reading stores the count and, when it is positive, takes that many of the
// following lines (never more than the section holds): for line k, everything
// up to the first "=" is dropped and x, y, z are the next three tokens split at
// blanks; the direction is set at index k, so an empty list grows by appending.
//
// RSV: the int item "ValueOpticLightDirection" (through the table's scratch
// int), then the raw-bytes item "XYZ", 24 bytes a direction (x, y, z as
// doubles). No block is written for a count below 1. On reading, each whole
// 24 bytes of the block is set at its index; trailing bytes are ignored, and a
// missing block sets nothing.
//
// After either reader the list holds at least as many directions as the count
// asks for, (0, 0, 0) standing for those the file does not give; neither
// reader lets the list grow past kMaxLightDirections.

constexpr char kXyzItem[] = "XYZ";
constexpr std::size_t kDirectionBytes = 3 * sizeof(double);

// More light directions than any optical evaluation uses; the text form takes
// no more either.
constexpr std::size_t kMaxLightDirections = kMaxTuples;

CNVX3DSolidOptic& OpticOf(const Key& key) { return key.As<CNVX3DSolidOptic>(); }

void WriteDirectionsKrn(const Key& key, KrnStream& out) {
  const CNVX3DSolidOptic& r = OpticOf(key);
  out.Text(key.name).Text(" = ").Int(r.ValueOpticLightDirection).EndLine();
  const std::size_t rows = std::min(
      r.Directions.size(), static_cast<std::size_t>(std::max(r.ValueOpticLightDirection, 0)));
  for (std::size_t i = 0; i < rows; ++i) {
    const CNVX3DLightDirection& d = r.Directions[i];
    out.Int(static_cast<std::int64_t>(i) + 1).Text("= ").Double(d.X).Text(" ").Double(d.Y);
    out.Text(" ").Double(d.Z).EndLine();
  }
}

// Pads the list with (0, 0, 0) up to the stored count, within the bound.
void FillToCount(CNVX3DSolidOptic& r) {
  const std::size_t wanted = std::min(
      static_cast<std::size_t>(std::max(r.ValueOpticLightDirection, 0)), kMaxLightDirections);
  if (r.Directions.size() < wanted) r.Directions.resize(wanted);
}

std::size_t ReadDirectionsKrn(const Key& key, std::string_view, std::string_view value,
                              const std::string* next, const std::string* end) {
  CNVX3DSolidOptic& r = OpticOf(key);
  r.ValueOpticLightDirection = ParseInt(value);
  if (r.ValueOpticLightDirection <= 0) return 0;
  const std::size_t taken = std::min(static_cast<std::size_t>(r.ValueOpticLightDirection),
                                     static_cast<std::size_t>(end - next));
  for (std::size_t k = 0; k < std::min(taken, kMaxLightDirections); ++k) {
    std::string_view rest = next[k];
    const std::size_t eq = rest.find('=');
    rest = eq == std::string_view::npos ? std::string_view() : rest.substr(eq + 1);
    CNVX3DLightDirection d;
    d.X = ParseDouble(NextToken(rest, " "));
    d.Y = ParseDouble(NextToken(rest, " "));
    d.Z = ParseDouble(NextToken(rest, " "));
    SetLightDirection(r, static_cast<int>(k), d);
  }
  FillToCount(r);
  return taken;
}

void SetDirectionItems(const Key& key, NVX3DRSVExTool::CRSVTable& table) {
  const CNVX3DSolidOptic& r = OpticOf(key);
  table.SetItem(key.name, static_cast<int>(r.ValueOpticLightDirection));
  if (r.ValueOpticLightDirection < 1) return;
  const std::size_t n =
      std::min(static_cast<std::size_t>(r.ValueOpticLightDirection), r.Directions.size());
  std::vector<double> flat;
  for (std::size_t i = 0; i < n; ++i) {
    flat.insert(flat.end(), {r.Directions[i].X, r.Directions[i].Y, r.Directions[i].Z});
  }
  table.SetItem(kXyzItem, static_cast<std::uint64_t>(flat.size() * sizeof(double)), flat.data());
}

void GetDirectionItems(const Key& key, NVX3DRSVExTool::CRSVTable& table, RsvScratch& scratch) {
  CNVX3DSolidOptic& r = OpticOf(key);
  table.GetItem(key.name, &scratch.i);
  r.ValueOpticLightDirection = scratch.i;
  std::uint64_t size = 0;
  const void* bytes = nullptr;
  if (table.GetItem(kXyzItem, &size, &bytes) && bytes != nullptr) {
    const auto* p = static_cast<const unsigned char*>(bytes);
    const std::uint64_t n = std::min<std::uint64_t>(size / kDirectionBytes, kMaxLightDirections);
    for (std::uint64_t k = 0; k < n; ++k) {
      double xyz[3];
      std::memcpy(xyz, p + k * kDirectionBytes, kDirectionBytes);
      SetLightDirection(r, static_cast<int>(k), CNVX3DLightDirection{xyz[0], xyz[1], xyz[2]});
    }
  }
  FillToCount(r);
}

// Shown as "n: (x,y,z), ...": the stored count, then every direction of the
// list (the two may differ). Set with a count equal to the directions given;
// both the count and the list are replaced.
std::string FormatDirections(const Key& key) {
  const CNVX3DSolidOptic& r = OpticOf(key);
  std::vector<double> flat;
  for (const CNVX3DLightDirection& d : r.Directions) flat.insert(flat.end(), {d.X, d.Y, d.Z});
  return FormatTuples(r.ValueOpticLightDirection, flat, 3);
}

bool ParseDirections(const Key& key, const std::string& text, std::string* error) {
  std::vector<double> flat;
  if (!ParseTuples(text, 3, &flat, error)) return false;
  CNVX3DSolidOptic& r = OpticOf(key);
  r.Directions.clear();
  for (std::size_t i = 0; i + 3 <= flat.size(); i += 3) {
    r.Directions.push_back(CNVX3DLightDirection{flat[i], flat[i + 1], flat[i + 2]});
  }
  r.ValueOpticLightDirection = static_cast<std::int32_t>(r.Directions.size());
  return true;
}

const CustomOps kDirectionOps = [] {
  CustomOps ops;
  ops.writeKrn = WriteDirectionsKrn;
  ops.readKrn = ReadDirectionsKrn;
  ops.setItems = SetDirectionItems;
  ops.getItems = GetDirectionItems;
  ops.format = FormatDirections;
  ops.parse = ParseDirections;
  return ops;
}();

// ---- Key tables ------------------------------------------------------------------

KeyList SolidOpticKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidOptic& r = *impl.sections.optic;
  return {
      Field("Version", r.Version),
      Field("FlagEstimateOpticProperty", r.FlagEstimateOpticProperty),
      Field("FlagDarkField", r.FlagDarkField),
      Field("FlagLightField", r.FlagLightField),
      Field("FlagWhiteLight", r.FlagWhiteLight),
      Field("FlagRemoveRunner", r.FlagRemoveRunner),
      Field("FlagMonochromaticWaveLength", r.FlagMonochromaticWaveLength),
      Field("ValueMonochromaticWaveLength", r.ValueMonochromaticWaveLength),
      // A bool: any value above 0 reads as true and is written back as 1.
      Field("FlagOutputToOpticalSoftware", r.FlagOutputToOpticalSoftware),
  };
}

// The direction rows start at precision 6, whatever a section before set.
void PrecisionSix(KrnStream& out) { out.Precision(6); }

KeyList OpticDirectionKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidOptic& r = *impl.sections.optic;
  return {
      Field("Version", r.DirectionVersion),
      Custom("ValueOpticLightDirection", &r, kDirectionOps),
  };
}

KeyList OpticSoftwareKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidOptic& r = *impl.sections.optic;
  return {
      // One token: a blank ends the program name.
      Field("OpticalSoftware", r.OpticalSoftware),
      Field("OutputBC", r.OutputBC),
      Field("FlagDeformedShape", r.FlagDeformedShape),
      // The lower-case "index" is part of the key.
      Field("FlagRefractiveindex", r.FlagRefractiveindex),
      Field("FlagBirefringence", r.FlagBirefringence),
      // The rest of the line up to the next "=": blanks in the folder survive.
      Custom("OutputDirectory", &r.OutputDirectory, kTextUpToEqualsOps),
  };
}

}  // namespace

const SectionDef kSolidOpticSection{KrnTag::kSolidOptic, "SOLID_OPTIC", SolidOpticKeys};
const SectionDef kOpticOutputDirectionSection{
    KrnTag::kOpticOutputDirection, "OPTIC_OUTPUT_DIRECTION", OpticDirectionKeys, PrecisionSix};
const SectionDef kOpticOutputToSoftwareSection{KrnTag::kOpticOutputToSoftware,
                                               "OPTIC_OUTPUT_TO_SOFTWARE", OpticSoftwareKeys};

}  // namespace nvx
