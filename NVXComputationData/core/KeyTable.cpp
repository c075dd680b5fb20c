// Looking keys up in a section's key list.
#include "core/KeyTable.h"

namespace nvx {

const Key* FindKey(const KeyList& keys, const std::string& name, std::uint8_t use) {
  for (const Key& key : keys) {
    if ((key.use & use) != 0 && name == key.name) return &key;
  }
  return nullptr;
}

}  // namespace nvx
