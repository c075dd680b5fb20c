// The facade's template members: the per-user template, the default template
// and the page reset from it.
#include <cstring>
#include <memory>
#include <new>
#include <string>

#include "NVX3DComputation.h"
#include "core/NVX3DComputationImpl.h"
#include "core/PageDefaults.h"

bool CNVX3DComputation::IsUsetDefinedExists() {
  return m_pImpl != nullptr && m_pImpl->UserTemplateExists();
}

bool CNVX3DComputation::LoadUserDefineKRN() {
  if (m_pImpl == nullptr) return false;
  if (m_pImpl->UserTemplateExists() && m_pImpl->sections.document) {
    m_pImpl->ReadKrn(m_pImpl->userTemplatePath);
    return true;
  }
  m_pImpl->ResetToDefaults();
  return false;
}

void CNVX3DComputation::LoadGPDefaultTemplete(std::string path) {
  // A path of up to 512 characters is kept; a longer one changes nothing. A
  // path that fills the buffer is kept without a terminator (DefaultTemplate).
  if (path.size() > sizeof m_szDefaultTemplate) return;
  std::memset(m_szDefaultTemplate, 0, sizeof m_szDefaultTemplate);
  std::memcpy(m_szDefaultTemplate, path.data(), path.size());
  if (m_pImpl == nullptr) return;
  std::unique_ptr<CNVX3DComputationImpl> defaults(new (std::nothrow) CNVX3DComputationImpl());
  if (defaults == nullptr) return;
  // A missing file leaves the defaults.
  defaults->ReadKrn(path);
  CNVX3DLongFiber* to = m_pImpl->sections.longFiber.get();
  const CNVX3DLongFiber* from = defaults->sections.longFiber.get();
  if (to != nullptr && from != nullptr) {
    to->AspectRatio = from->AspectRatio;
    to->Weight = from->Weight;
  }
}

bool CNVX3DComputation::ReSetPageToDefaultValue(int page) {
  if (m_pImpl == nullptr) return false;
  CNVX3DComputation defaults;
  nvx::TemplateKind kind = nvx::TemplateKind::kNone;
  // The buffer holds a path only once LoadGPDefaultTemplete has given one: it
  // starts zeroed, and a path of the buffer's full length has no terminator.
  const void* end = std::memchr(m_szDefaultTemplate, '\0', sizeof m_szDefaultTemplate);
  const std::string path(
      m_szDefaultTemplate,
      end != nullptr ? static_cast<std::size_t>(static_cast<const char*>(end) - m_szDefaultTemplate)
                     : sizeof m_szDefaultTemplate);
  if (!path.empty() && defaults.m_pImpl != nullptr && defaults.LoadKRNFile(path.c_str())) {
    const CNVX3DKRNDocument& doc = *defaults.m_pImpl->sections.document;
    // A template that holds both kinds counts as a shell template.
    if (doc.IsPresent(nvx::KrnTag::kShellFill)) {
      kind = nvx::TemplateKind::kShell;
    } else if (doc.IsPresent(nvx::KrnTag::kSolidFill)) {
      kind = nvx::TemplateKind::kSolid;
    }
  }
  if (defaults.m_pImpl != nullptr) nvx::CopyPage(page, kind, *defaults.m_pImpl, *m_pImpl);
  return true;
}
