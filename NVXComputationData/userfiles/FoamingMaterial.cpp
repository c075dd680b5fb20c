// Creating and reading the per-user foaming material table.
#include "userfiles/FoamingMaterial.h"

#include <ini.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>

#include "NVXPlatform.h"
#include "core/NVX3DComputationImpl.h"

namespace nvx {
namespace {

constexpr char kSection[] = "FOAMING_MAT_N2";
constexpr char kFillerSuffix[] = "_Filler";
constexpr char kDefaultKey[] = "Default";
// Size of the buffer the per-user directory and the file path must fit in.
constexpr std::size_t kPathBuffer = 260;
// Longest value text a lookup returns.
constexpr std::size_t kMaxValue = 255;

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

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

// The keys of the material section, lower-cased, with the first value given
// for each.
using MaterialSection = std::map<std::string, std::string>;

int CollectMaterialKey(void* user, const char* section, const char* name, const char* value) {
  if (Lower(section) == Lower(kSection)) {
    std::string text = value != nullptr ? value : "";
    if (text.size() > kMaxValue) text.resize(kMaxValue);
    static_cast<MaterialSection*>(user)->emplace(Lower(name), std::move(text));
  }
  return 1;  // keep going: a bad line never stops the read
}

// The value of `key`, or "0" when it is absent; "" and "0" read as missing.
std::string Read(const MaterialSection& keys, const std::string& key) {
  const auto it = keys.find(Lower(key));
  return it != keys.end() ? it->second : "0";
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
  std::string path = std::string(dir) + "/" + kFoamingMaterialFileName;
  if (path.size() >= kPathBuffer) return {};
  if (!platform::FileExists(path)) {
    std::ofstream file(path);
    if (!file) return {};
    file << DefaultFoamingMaterialText();
  }
  return platform::FileExists(path) ? path : std::string();
}

bool LookUpGasSolubility(const std::string& path, const std::string& material, bool filled,
                         double* solubility) {
  MaterialSection keys;
  if (ini_parse(path.c_str(), CollectMaterialKey, &keys) == -1) return false;
  std::string text = "0";
  if (filled) text = Read(keys, material + kFillerSuffix);
  if (Missing(text)) text = Read(keys, material);
  if (Missing(text)) text = Read(keys, kDefaultKey);
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
