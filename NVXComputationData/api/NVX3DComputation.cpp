// The facade's lifecycle, loading and writing members and its generic members.
#include "NVX3DComputation.h"

#include <cstring>
#include <new>

#include "NVXPlatform.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNDocumentWriter.h"

using nvx::DocumentWriter;
using nvx::KrnTag;

// The page flags and the default-template path start cleared, so that a copy
// or a page reset before any load reads defined values.
CNVX3DComputation::CNVX3DComputation()
    : m_bPageAvailable(),
      m_bSolidFillRead(false),
      m_bShellFillRead(false),
      m_bTemplateMode(false),
      m_pImpl(new (std::nothrow) CNVX3DComputationImpl()),
      m_szDefaultTemplate() {}

CNVX3DComputation::~CNVX3DComputation() {
  delete m_pImpl;
  m_pImpl = nullptr;
}

CNVX3DComputation& CNVX3DComputation::operator=(const CNVX3DComputation& other) {
  // Deliberately shallow: both objects share one implementation object.
  std::memcpy(m_bPageAvailable, other.m_bPageAvailable, sizeof m_bPageAvailable);
  m_bSolidFillRead = other.m_bSolidFillRead;
  m_bShellFillRead = other.m_bShellFillRead;
  m_bTemplateMode = other.m_bTemplateMode;
  m_pImpl = other.m_pImpl;
  std::memcpy(m_szDefaultTemplate, other.m_szDefaultTemplate, sizeof m_szDefaultTemplate);
  return *this;
}

bool CNVX3DComputation::LoadKRNFile(NVXData data) {
  if (m_pImpl == nullptr) return false;
  if (!m_pImpl->Load(data)) return false;
  CanAddPage();
  if (const CNVX3DKRNDocument* doc = m_pImpl->sections.document.get()) {
    m_bSolidFillRead |= doc->IsPresent(KrnTag::kSolidFill);
    m_bShellFillRead |= doc->IsPresent(KrnTag::kShellFill);
  }
  return true;
}

bool CNVX3DComputation::LoadKRNFile(const char* path) {
  if (m_pImpl == nullptr || path == nullptr) return false;
  const CNVX3DKRNDocument* doc = m_pImpl->sections.document.get();
  if (doc == nullptr || !nvx::platform::FileExists(path)) return false;
  m_pImpl->ReadKrn(path);
  m_bSolidFillRead |= doc->IsPresent(KrnTag::kSolidFill);
  m_bShellFillRead |= doc->IsPresent(KrnTag::kShellFill);
  return true;
}

bool CNVX3DComputation::IsFileExists() { return m_pImpl != nullptr && m_pImpl->fileExists; }

bool CNVX3DComputation::WriteKRNFile(std::string path, int asTemplate) {
  if (m_pImpl == nullptr) return false;
  if (m_pImpl->data.ClearFiberModelOnWrite && m_pImpl->sections.longFiber) {
    nvx::ClearFiberModelSettings(*m_pImpl->sections.longFiber);
  }
  const int effective = m_bTemplateMode ? 1 : asTemplate;
  bool result = false;
  switch (m_pImpl->loadMode) {
    case 0:
      result = nvx::WriteKrnDocument(DocumentWriter::kSectionPresent, path, *m_pImpl);
      break;
    case 1:
    case 2:
    case -1:
      result = nvx::WriteKrnDocument(DocumentWriter::kModelKind, path, *m_pImpl);
      break;
    default:
      break;  // load mode 3 leaves the file alone
  }
  if (effective == 1) result = WriteKrnAsTemplate();
  if (!result) nvx::platform::DebugOutput("Can't find KRN file");
  return result;
}

bool CNVX3DComputation::WriteKrnAsTemplate() {
  if (m_pImpl == nullptr) return false;
  m_pImpl->templateWriting = 1;
  const std::string path = m_pImpl->UserTemplatePath();
  if (path.empty()) return false;
  return nvx::WriteKrnDocument(DocumentWriter::kTemplate, path, *m_pImpl);
}

void CNVX3DComputation::CanAddPage() {
  if (m_pImpl == nullptr) return;
  for (int i = 0; i < 11; ++i) m_bPageAvailable[i] = m_pImpl->pages[i];
}

void CNVX3DComputation::SetHasTemplateMode(bool templateMode) { m_bTemplateMode = templateMode; }
bool CNVX3DComputation::GetIsTemplateMode() { return m_bTemplateMode; }

void CNVX3DComputation::SetRSVFilePath(std::string path) {
  if (m_pImpl) m_pImpl->rsvPath = path;
}

// ---- Generic members ---------------------------------------------------------

int CNVX3DComputation::GetMode() { return m_pImpl ? m_pImpl->mode : 0; }
void CNVX3DComputation::SetMode(int mode) {
  if (m_pImpl) m_pImpl->mode = mode;
}
int CNVX3DComputation::GetDefaultMode() {
  return m_pImpl ? m_pImpl->sections.summary->DefaultMode : 0;
}
void CNVX3DComputation::SetDefaultMode(int mode) {
  if (m_pImpl) m_pImpl->sections.summary->DefaultMode = mode;
}
int CNVX3DComputation::GetFlowSolver() {
  return m_pImpl ? m_pImpl->sections.fillPack->FlowSolver : 0;
}
void CNVX3DComputation::SetFlowSolver(int solver) {
  if (m_pImpl) m_pImpl->sections.fillPack->FlowSolver = solver;
}
double CNVX3DComputation::GetAccurencyPerferenceFlowSolver() {
  return m_pImpl ? m_pImpl->sections.fillPack->AccurencyPerferenceFlowSolver : 0.0;
}
void CNVX3DComputation::SetAccurencyPerferenceFlowSolver(double accuracy) {
  if (m_pImpl) m_pImpl->sections.fillPack->AccurencyPerferenceFlowSolver = accuracy;
}
// A getter that clears: it resets the stored criterion and always answers 0.
// Hosts call it to consume the criterion; kept that way on purpose.
int CNVX3DComputation::GetCriterionForStoppingCalculation() {
  if (m_pImpl) m_pImpl->sections.fillPack->CriterionForStoppingCalculation = 0;
  return 0;
}
void CNVX3DComputation::SetCriterionForStoppingCalculation(int criterion) {
  if (m_pImpl) m_pImpl->sections.fillPack->CriterionForStoppingCalculation = criterion;
}
// Both percentage fields receive the same value.
void CNVX3DComputation::SetCriterionForStoppingCalculationByFillPercentage(double percentage,
                                                                           int option) {
  if (m_pImpl == nullptr) return;
  CNVX3DFillPackTimeSteps& fp = *m_pImpl->sections.fillPack;
  fp.StopFillPercentage = fp.StopFillPercentageShown = percentage;
  fp.StopFillPercentageOption = option;
}
void CNVX3DComputation::GetCriterionForStoppingCalculationByFillPercentage(double& percentage,
                                                                           int& option) {
  if (m_pImpl == nullptr) return;
  percentage = m_pImpl->sections.fillPack->StopFillPercentage;
  option = m_pImpl->sections.fillPack->StopFillPercentageOption;
}
void CNVX3DComputation::SetCriterionForStoppingCalculationByUnFilledElementCount(int count) {
  if (m_pImpl) m_pImpl->sections.fillPack->ValueUnFilledElement = count;
}
void CNVX3DComputation::GetCriterionForStoppingCalculationByUnFilledElementCount(int& count) {
  if (m_pImpl) count = m_pImpl->sections.fillPack->ValueUnFilledElement;
}
int CNVX3DComputation::GetEstimateRequireCoolingTime() {
  return m_pImpl ? m_pImpl->sections.fillPack->EstimateRequireCoolingTime : 0;
}
void CNVX3DComputation::SetEstimateRequireCoolingTime(int estimate) {
  if (m_pImpl) m_pImpl->sections.fillPack->EstimateRequireCoolingTime = estimate;
}

// ---- Output-time pages ---------------------------------------------------------

namespace {

// The output-time block of a page, or nullptr for a page without one.
nvx::OutputTimes* TimePage(CNVX3DComputationImpl* impl, int page) {
  if (impl == nullptr) return nullptr;
  switch (page) {
    case 0:
      return &impl->sections.fillPack->FillTimes;
    case 1:
      return &impl->sections.fillPack->PackTimes;
    case 2:
      return &impl->sections.cool->CoolTimes;
    case 3:
      return &impl->sections.cool->OpenTimes;
    default:
      return nullptr;
  }
}

}  // namespace

void CNVX3DComputation::SetTimeSteps(int page, int count) {
  if (nvx::OutputTimes* block = TimePage(m_pImpl, page)) block->SetCount(count);
}
int CNVX3DComputation::GetTimeSteps(int& page) {
  const nvx::OutputTimes* block = TimePage(m_pImpl, page);
  return block ? block->Count : 0;
}
void CNVX3DComputation::SetTimeStepValue(int page, int index, double value) {
  if (nvx::OutputTimes* block = TimePage(m_pImpl, page)) block->At(index) = value;
}
double CNVX3DComputation::GetTimeStepValue(int page, int index) {
  const nvx::OutputTimes* block = TimePage(m_pImpl, page);
  return block ? block->At(index) : 0.0;
}
