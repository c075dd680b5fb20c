// libFuzzer target: nvxparam's value parsing. The first byte picks one of the
// keys a person can set, the rest is the text given for it; a parsed value
// must format again without trouble.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/KeyText.h"
#include "core/NVX3DComputationImpl.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // One object for all inputs: the keys stay bound to its fields.
  static CNVX3DComputationImpl impl;
  static const std::vector<nvx::Key> keys = [] {
    std::vector<nvx::Key> list;
    for (const nvx::SectionDef* def : nvx::AllSections()) {
      for (const nvx::Key& key : def->keys(impl)) {
        if (nvx::IsUserKey(key)) list.push_back(key);
      }
    }
    return list;
  }();
  if (size == 0 || keys.empty()) return 0;
  const nvx::Key& key = keys[data[0] % keys.size()];
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  std::string error;
  if (nvx::ParseValue(key, text, &error)) {
    volatile std::size_t length = nvx::FormatValue(key).size();
    (void)length;
  }
  return 0;
}
