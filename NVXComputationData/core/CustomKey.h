// Custom keys: the few keys a section cannot describe by a plain kind, such as
// a list of composite entries, a curve block, or a key whose name carries a
// number. A section declares such a key with Custom() in its key list and
// supplies these operations beside its key table; the generic KRN and RSV
// readers and writers and the command-line tool call them in the key's place.
#ifndef NVX_CORE_CUSTOMKEY_H_
#define NVX_CORE_CUSTOMKEY_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace NVX3DRSVExTool {
class CRSVTool;
class CRSVGroup;
class CRSVTable;
}  // namespace NVX3DRSVExTool

namespace nvx {

struct Key;
class KrnStream;

// Scratch values of one RSV table read: one per item type, zeroed when the
// table is opened and never reset between items.
struct RsvScratch {
  int i = 0;
  double d = 0.0;
  bool b = false;
  std::string s;
};

struct CustomOps {
  // KRN writing: every line of the key, ends of line included. Nothing of the
  // key has been written before the call.
  void (*writeKrn)(const Key& key, KrnStream& out) = nullptr;
  // KRN reading of the line whose key token matched: `value` is its value
  // token, [next, end) the lines after it up to the closing tag. Returns how
  // many of those lines the key consumed (its item lines); it must never
  // consume more than end - next.
  std::size_t (*readKrn)(const Key& key, std::string_view keyToken, std::string_view value,
                         const std::string* next, const std::string* end) = nullptr;
  // Whether a line's key token belongs to this key; nullptr compares it with
  // the key's name exactly.
  bool (*matches)(const Key& key, std::string_view keyToken) = nullptr;
  // RSV items of the key in the section's open table (nullptr: none).
  void (*setItems)(const Key& key, NVX3DRSVExTool::CRSVTable& table) = nullptr;
  void (*getItems)(const Key& key, NVX3DRSVExTool::CRSVTable& table, RsvScratch& scratch) = nullptr;
  // RSV objects of the key beside the section's table (arrays, child groups),
  // after the table is closed (nullptr: none).
  void (*writeBeside)(const Key& key, NVX3DRSVExTool::CRSVTool& tool,
                      NVX3DRSVExTool::CRSVGroup* group) = nullptr;
  void (*readBeside)(const Key& key, NVX3DRSVExTool::CRSVTool& tool,
                     NVX3DRSVExTool::CRSVGroup* group) = nullptr;
  // The value as people read and type it (nullptr: not shown, not settable).
  std::string (*format)(const Key& key) = nullptr;
  bool (*parse)(const Key& key, const std::string& text, std::string* error) = nullptr;
};

}  // namespace nvx

#endif  // NVX_CORE_CUSTOMKEY_H_
