// Section lists and orders of the three document writers.
#include "krn/KRNDocumentWriter.h"

#include <string>

#include "NVXPlatform.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNSectionIO.h"
#include "krn/KRNStream.h"

namespace nvx {
namespace {

using T = KrnTag;

const std::vector<KrnTag> kSectionPresentOrder = {
    T::kSummary,
    T::kShellFill,
    T::kSolidFill,
    T::kFillAdvancedLongFiber,
    T::kFillAdvancedHRSteady,
    T::kFillAdvancedMCIM,
    T::kFillAdvancedSlipBC,
    T::kFillOutputTimes,
    T::kShellPack,
    T::kSolidPack,
    T::kPackOutputTimes,
    T::kShellCool,
    T::kSolidCool,
    T::kCoolOutputTimes,
    T::kMoldPreheatOutputTimes,
    T::kOpenOutputTimes,
    T::kShellWarp,
    T::kSolidWarp,
    T::kSolidStress,
    T::kSolidVE,
    T::kSolidOptic,
    T::kOpticOutputDirection,
    T::kOpticOutputToSoftware,
    T::kSolidIC,
    T::kICPaddleShiftOutputTimes,
    T::kICWireSweepOutputTimes,
    T::kSolidMCM,
    T::kTaskManager,
    T::kRemoteMachines,
    T::kComputingManager,
};

const std::vector<KrnTag> kTemplateOrder = {
    T::kSummary,
    T::kShellFill,
    T::kShellPack,
    T::kShellCool,
    T::kShellWarp,
    T::kSolidFill,
    T::kFillAdvancedLongFiber,
    T::kFillAdvancedHRSteady,
    T::kFillAdvancedMCIM,
    T::kFillAdvancedSlipBC,
    T::kFillOutputTimes,
    T::kSolidPack,
    T::kPackOutputTimes,
    T::kSolidCool,
    T::kCoolOutputTimes,
    T::kMoldPreheatOutputTimes,
    T::kOpenOutputTimes,
    T::kSolidWarp,
    T::kSolidStress,
    T::kSolidVE,
    T::kSolidVEStress,
    T::kSolidVECuringStress,
    T::kSolidVEWarp,
    T::kSolidOptic,
    T::kOpticOutputDirection,
    T::kOpticOutputToSoftware,
    T::kSolidIC,
    T::kICPaddleShiftOutputTimes,
    T::kICWireSweepOutputTimes,
    T::kSolidMCM,
    T::kTaskManager,
    T::kRemoteMachines,
    T::kComputingManager,
};

const std::vector<KrnTag> kSolidTail = {
    T::kFillAdvancedMCIM,
    T::kFillAdvancedSlipBC,
    T::kFillOutputTimes,
    T::kSolidPack,
    T::kPackOutputTimes,
    T::kSolidCool,
    T::kCoolOutputTimes,
    T::kMoldPreheatOutputTimes,
    T::kOpenOutputTimes,
    T::kSolidWarp,
    T::kSolidStress,
    T::kSolidVE,
    T::kSolidVEStress,
    T::kSolidVECuringStress,
    T::kSolidVEWarp,
    T::kSolidOptic,
    T::kOpticOutputDirection,
    T::kOpticOutputToSoftware,
    T::kSolidIC,
    T::kICPaddleShiftOutputTimes,
    T::kICWireSweepOutputTimes,
    T::kSolidMCM,
    T::kTaskManager,
    T::kRemoteMachines,
    T::kComputingManager,
};

// The tags of `order` whose section-present flag is set. The hot-runner
// steady section is written even when the file held none, unless
// `hrSteadyByFlag` (the model-kind writer for kind 0) gates it like the rest.
// "Its flag" is the section-present flag of the document: the hot-runner
// record has no flag of its own, and this writer gates every other section of
// the same list by that flag too.
// The section-present writer's list never names the three viscoelastic
// stress, curing and warp sections, so a file read with them loses them.
std::vector<KrnTag> PresentOnly(const std::vector<KrnTag>& order, const CNVX3DKRNDocument* doc,
                                bool hrSteadyByFlag) {
  std::vector<KrnTag> tags;
  for (KrnTag tag : order) {
    const bool always = tag == T::kFillAdvancedHRSteady && !hrSteadyByFlag;
    if (always || (doc != nullptr && doc->IsPresent(tag))) tags.push_back(tag);
  }
  return tags;
}

std::vector<KrnTag> ModelKindSections(const CNVX3DComputationImpl& impl) {
  const CNVX3DKRNDocument* doc = impl.sections.document.get();
  std::vector<KrnTag> tags;
  switch (impl.modelKind) {
    case 0:
      return PresentOnly(kTemplateOrder, doc, /*hrSteadyByFlag=*/true);
    case 1:
      tags = {T::kSummary, T::kShellFill};
      // Shell files carry the two advanced sections only when the project
      // description (the copy of the last load) has both options set.
      if (impl.data.HasLongFiberSettings && impl.data.HasFoamingSettings) {
        tags.insert(tags.end(), {T::kFillAdvancedLongFiber, T::kFillAdvancedMCIM});
      }
      tags.insert(tags.end(), {T::kFillOutputTimes, T::kShellPack, T::kPackOutputTimes,
                               T::kShellCool, T::kCoolOutputTimes, T::kMoldPreheatOutputTimes,
                               T::kOpenOutputTimes, T::kShellWarp});
      return tags;
    case 2:
    case 3:
      tags = {T::kSummary, T::kSolidFill, T::kFillAdvancedLongFiber};
      if (impl.modelKind == 2) tags.push_back(T::kFillAdvancedHRSteady);
      tags.insert(tags.end(), kSolidTail.begin(), kSolidTail.end());
      return tags;
    default:
      return tags;
  }
}

}  // namespace

std::vector<KrnTag> DocumentSections(DocumentWriter writer, const CNVX3DComputationImpl& impl) {
  const CNVX3DKRNDocument* doc = impl.sections.document.get();
  switch (writer) {
    case DocumentWriter::kSectionPresent:
      return PresentOnly(kSectionPresentOrder, doc, false);
    case DocumentWriter::kModelKind:
      return ModelKindSections(impl);
    case DocumentWriter::kTemplate:
      if (doc == nullptr) return {};
      return PresentOnly(kTemplateOrder, doc, false);
  }
  return {};
}

namespace {

void WriteDocument(DocumentWriter writer, KrnStream& out, CNVX3DComputationImpl& impl) {
  out.Line("<?xml version=\"1.0\"?>");
  out.Line("<KRN_FILE>");
  const bool templateWriting = writer == DocumentWriter::kTemplate;
  for (KrnTag tag : DocumentSections(writer, impl)) {
    // Sections whose records do not exist yet are left out.
    if (const SectionDef* def = FindSection(tag)) WriteKrnSection(*def, out, impl, templateWriting);
  }
  out.Line("</KRN_FILE>");
}

}  // namespace

bool WriteKrnDocument(DocumentWriter writer, std::ostream& os, CNVX3DComputationImpl& impl) {
  std::string text;
  KrnStream out(text);
  WriteDocument(writer, out, impl);
  os.write(text.data(), static_cast<std::streamsize>(text.size()));
  os.flush();
  return static_cast<bool>(os);
}

bool WriteKrnDocument(DocumentWriter writer, const std::string& path, CNVX3DComputationImpl& impl) {
  // The document is made in memory first, so that the file is written in one
  // go through a fresh file that replaces the old one only when complete; the
  // one flush of the whole file happens there, before the rename.
  std::string text;
  text.reserve(8192);
  KrnStream out(text);
  WriteDocument(writer, out, impl);
  std::string error;
  switch (platform::ReplaceFileContents(path, text, &error)) {
    case platform::ReplaceStatus::kDone:
      return true;
    case platform::ReplaceStatus::kCantOpen:
      platform::CantOpen(path.c_str());  // by default the process ends here
      return false;
    case platform::ReplaceStatus::kWriteFailed:
      platform::DebugOutput(error.c_str());
      return false;
  }
  return false;
}

}  // namespace nvx
