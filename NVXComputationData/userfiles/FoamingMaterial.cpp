// Creating and reading the per-user foaming material table.
#include "userfiles/FoamingMaterial.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "NVXPlatform.h"
#include "core/NVX3DComputationImpl.h"

namespace nvx {
namespace {

constexpr char kSection[] = "FOAMING_MAT_N2";
constexpr char kFillerSuffix[] = "_Filler";
constexpr char kDefaultKey[] = "Default";
// Size of the buffer the per-user directory and the file path must fit in.
constexpr std::size_t kPathBuffer = 260;

struct MaterialRow {
  const char* key;
  double value;
};

// The built-in table, in file order, after "Version=1001". "Default" equals
// the foaming record's built-in gas solubility. Only five families have a
// filled grade; a filled PBT, PS, PC, PC_ABS, HIPS or ABS falls back to the
// unfilled value.
constexpr MaterialRow kDefaultRows[] = {
    {"Default", 4e-11},      {"PP", 4e-11},   {"PP_Filler", 3e-11},     {"PA", 2.4e-11},
    {"PA_Filler", 1.2e-11},  {"PEEK", 3e-11}, {"PEEK_Filler", 1.5e-11}, {"PEI", 3e-11},
    {"PEI_Filler", 1.5e-11}, {"PPA", 3e-11},  {"PPA_Filler", 1.5e-11},  {"PBT", 1.2e-11},
    {"PS", 2e-11},           {"PC", 2e-11},   {"PC_ABS", 2e-11},        {"HIPS", 1.6e-11},
    {"ABS", 1.6e-11},
};

// The value of `key`, or "0" when it is absent; "" and "0" read as missing.
bool Read(const std::string& path, const std::string& key, std::string* text) {
  return platform::ReadProfileString(path, kSection, key, "0", text);
}

bool Missing(const std::string& text) { return text.empty() || text == "0"; }

}  // namespace

std::string DefaultFoamingMaterialText() {
  std::string text = "[FOAMING_MAT_N2]\n";
  char line[64];
  std::snprintf(line, sizeof line, "Version=%d\n", 1001);
  text += line;
  for (const MaterialRow& row : kDefaultRows) {
    std::snprintf(line, sizeof line, "%s=%lg\n", row.key, row.value);
    text += line;
  }
  return text;
}

std::string EnsureFoamingMaterialFile() {
  char dir[kPathBuffer] = {};
  if (!NVXGetReleaseVersionCurUserDirectory(dir, static_cast<int>(sizeof dir))) return {};
  if (!platform::DirectoryExists(dir)) platform::MakeDirectory(dir);  // result not needed
  std::string path = platform::JoinPath(dir, kFoamingMaterialFileName);
  if (path.size() >= kPathBuffer) return {};
  if (!platform::FileExists(path)) {
    // Text mode: the file has the line ends of the system's own INI files.
    std::ofstream file(platform::NativePath(path));
    if (!file) return {};
    file << DefaultFoamingMaterialText();
  }
  return platform::FileExists(path) ? path : std::string();
}

bool LookUpGasSolubility(const std::string& path, const std::string& material, bool filled,
                         double* solubility) {
  // Each key is one lookup, as the system's profile functions do it; a file
  // that cannot be read fails the first one.
  std::string text = "0";
  if (filled && !Read(path, material + kFillerSuffix, &text)) return false;
  if (Missing(text) && !Read(path, material, &text)) return false;
  if (Missing(text) && !Read(path, kDefaultKey, &text)) return false;
  *solubility = std::atof(text.c_str());
  return true;
}

void ApplyFoamingMaterial(CNVX3DComputationImpl& impl) {
  if (!impl.sections.foaming) return;
  const std::string path = EnsureFoamingMaterialFile();
  if (path.empty()) return;
  const NVXData& d = impl.data;
  const bool filled = d.MaterialHasFiller || d.MaterialHasFiber || d.MaterialHasMineral;
  double solubility = 0.0;
  if (LookUpGasSolubility(path, d.MaterialName, filled, &solubility)) {
    impl.sections.foaming->GasSolubilityParameter = solubility;
  }
}

}  // namespace nvx
