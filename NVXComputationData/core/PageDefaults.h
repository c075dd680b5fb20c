// Page defaults: copying the settings of one page of the host's parameter
// dialog (fill/pack, cooling, warpage) from an object loaded with the default
// template into the project's object.
#ifndef NVX_CORE_PAGEDEFAULTS_H_
#define NVX_CORE_PAGEDEFAULTS_H_

class CNVX3DComputationImpl;

namespace nvx {

// What kind of sections the default template held.
enum class TemplateKind { kNone, kSolid, kShell };

// Copies page `page` (0 fill/pack, 1 cooling, 2 warpage) of `from` into `to`
// as a template of kind `kind` dictates; other pages copy nothing.
void CopyPage(int page, TemplateKind kind, CNVX3DComputationImpl& from, CNVX3DComputationImpl& to);

}  // namespace nvx

#endif  // NVX_CORE_PAGEDEFAULTS_H_
