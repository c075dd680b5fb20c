// The foaming material table: the per-user INI file "FoamingMaterial.ini" that
// maps a polymer family (and its filled grade, "<name>_Filler") to the gas
// solubility of the foaming settings. It is created once with built-in values
// when missing, never rewritten, and consulted on every load.
//
// Lookup rules, as a user editing the file sees them:
// - section "FOAMING_MAT_N2" and the material keys are matched without regard
//   to letter case; the material name is used exactly as the project holds it;
// - a filled material tries "<name>_Filler", then "<name>"; an unfilled one
//   "<name>"; when that reads as missing, "Default" is used;
// - a value reads as missing when the key is absent, empty or exactly "0"
//   (so a user's 0 falls through to the next key, while "0.0" is a value);
// - the final text is converted like atof: text that is not a number gives
//   0.0, and so does a file with no usable "Default" at all;
// - a value is cut to 255 characters; the first occurrence of a key counts.
// Failures are silent: no per-user directory, a file that cannot be created or
// one that cannot be opened for reading leave the gas solubility unchanged.
// A file that is not valid INI is read as far as it goes and never replaced.
#ifndef NVX_USERFILES_FOAMINGMATERIAL_H_
#define NVX_USERFILES_FOAMINGMATERIAL_H_

#include <string>

class CNVX3DComputationImpl;

namespace nvx {

// The file's name in the per-user directory.
inline constexpr char kFoamingMaterialFileName[] = "FoamingMaterial.ini";

// The file the system writes when there is none.
std::string DefaultFoamingMaterialText();

// The file's path, creating the per-user directory and the file with the
// built-in values when missing; empty when either cannot be had.
std::string EnsureFoamingMaterialFile();

// The gas solubility the file at `path` gives for `material`; false when the
// file cannot be opened for reading.
bool LookUpGasSolubility(const std::string& path, const std::string& material, bool filled,
                         double* solubility);

// Takes the material of `impl`'s project description and stores the looked-up
// value as the foaming record's gas solubility. Reports no failure.
void ApplyFoamingMaterial(CNVX3DComputationImpl& impl);

}  // namespace nvx

#endif  // NVX_USERFILES_FOAMINGMATERIAL_H_
