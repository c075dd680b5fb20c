// Looking keys up in a section's key list.
#include "core/KeyTable.h"

namespace nvx {

const Key* FindKey(const KeyList& keys, std::string_view name, std::uint8_t use) {
  for (const Key& key : keys) {
    if ((key.use & use) == 0) continue;
    const bool custom = key.kind == KeyKind::kCustom && key.custom->matches != nullptr;
    if (custom ? key.custom->matches(key, name) : name == key.name) return &key;
  }
  return nullptr;
}

}  // namespace nvx
