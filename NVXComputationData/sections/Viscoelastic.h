// The viscoelastic records: the VE stage record (<SOLID_VE>) and the three
// curve records of <SOLID_VE_STRESS>, <SOLID_VE_WARP> and
// <SOLID_VE_CURING_STRESS>, which share one layout and carry a material curve
// in a CNVXPROProfile.
//
// Curve 0 of a profile is the point list of its section ("MT" points of the
// stress and warp sections, "PARA" points of the curing section). Decisions
// of this library where the format is silent: points added by raising a count
// are (0.0, 0.0); a negative count empties the curve; a curve whose lists
// differ in length goes to RSV as an empty "MT" block.
#ifndef NVX_SECTIONS_VISCOELASTIC_H_
#define NVX_SECTIONS_VISCOELASTIC_H_

#include <cstdint>
#include <vector>

#include "core/SectionDef.h"

// An ordered list of curves; each curve is two lists of doubles (first and
// second values) that normally have the same length.
class CNVXPROProfile {
 public:
  struct Curve {
    std::vector<double> First;
    std::vector<double> Second;
  };

  virtual ~CNVXPROProfile() = default;

  // The point count of curve k: its length when both lists agree, -1 when they
  // differ, 0 when there is no curve k.
  int PointCount(int k) const;
  // Sets the point count of curve k to n (n < 0 empties it). Curves up to k
  // are added when missing, each holding one point (0.0, 0.0).
  void SetPointCount(int k, int n);
  // Sets point i of curve k; false when there is no curve k, ignored when i is
  // negative or not below the point count.
  bool SetPoint(int k, int i, double first, double second);
  // Point i of curve k; false (outputs untouched) when it does not exist.
  bool GetPoint(int k, int i, double& first, double& second) const;

  std::vector<Curve> Curves;
};

// The VE stage record: which stages the VE analysis estimates.
struct CNVX3DSolidVE {
  std::int32_t Version = 0;
  std::int32_t FlagEstimateFlowPackStage = 0;
  std::int32_t FlagEstimateCoolStage = 0;
  std::int32_t FlagEstimateEjection = 0;
};

// The layout shared by the three curve records. FlagRunVEMat is in no file.
// In the curing record ValueEaslticRatio is the constant "PARAConst".
struct CNVX3DVECurve {
  CNVX3DVECurve();

  std::int32_t Version = 1001;
  std::int32_t FlagRunVEMat = 0;
  std::int32_t FlagConsiderWarp = 0;
  std::int32_t FlagConsiderStress = 0;
  std::int32_t FlagTempSetting = 1;
  double C1 = 40.16;
  double C2 = 51.6;
  double Tref = 1.0;
  double ValueEaslticRatio = 70300.0;
  CNVXPROProfile Profile;
  std::int32_t ModelType = 0;  // curing record only

 protected:
  // A record whose curve 0 is `curve0`.
  explicit CNVX3DVECurve(CNVXPROProfile::Curve curve0);
};

struct CNVX3DVEStress : CNVX3DVECurve {};
struct CNVX3DVEWarp : CNVX3DVECurve {};
struct CNVX3DVECuringStress : CNVX3DVECurve {
  CNVX3DVECuringStress();
};

namespace nvx {

extern const SectionDef kSolidVESection;
extern const SectionDef kSolidVEStressSection;
extern const SectionDef kSolidVEWarpSection;
extern const SectionDef kSolidVECuringStressSection;

// Resets of the page reset and of the model-kind reset: the stress and warp
// records go back to their defaults; the curing record gets back only its
// version, its constant and its five-point curve.
void ResetVECurve(CNVX3DVECurve& record);
void ResetVECuring(CNVX3DVECuringStress& record);

// The cool-stage setter: a value of exactly 1 also sets the flow/pack stage
// flag to 1 (it never clears it).
void SetEstimateCoolStage(CNVX3DSolidVE& r, std::int32_t value);

}  // namespace nvx

#endif  // NVX_SECTIONS_VISCOELASTIC_H_
