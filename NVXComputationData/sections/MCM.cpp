// Keys of the multi-component molding section.
#include "sections/MCM.h"

#include "core/NVX3DComputationImpl.h"
#include "krn/KRNSectionIO.h"
#include "sections/ValueText.h"

namespace nvx {
namespace {

KeyList SolidMCMKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidMCM& r = *impl.sections.mcm;
  return {
      Field("Version", r.Version),
      // Bools: any value above 0 reads as true ("2" is true, "-1" false) and
      // is written back as 1.
      Field("FlagPrevShot", r.FlagPrevShot),
      Field("ValueShotRunID", r.ValueShotRunID),
      Field("FlagPrevShotProject", r.FlagPrevShotProject),
      // Multi-shot texts joined from tokens: the value token, then every
      // further token of the line split at blanks only, joined with one blank.
      // Runs of blanks shrink to one and leading and trailing blanks are lost
      // in KRN (the RSV string item keeps the text as it is); an "=" inside the
      // value survives except directly after the key.
      Custom("ValueShotProjectPath", &r.ValueShotProjectPath, kTextJoinedOps),
      Custom("ValueShotProjectName", &r.ValueShotProjectName, kTextJoinedOps),
  };
}

}  // namespace

// The section ends with an empty line after its closing tag.
const SectionDef kSolidMCMSection{
    KrnTag::kSolidMCM,        "SOLID_MCM", SolidMCMKeys, nullptr, nullptr, nullptr,
    WriteKrnKeysThenEmptyLine};

}  // namespace nvx
