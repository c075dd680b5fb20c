// The verbs of nvxparam and what they share: key addresses, options and JSON
// text. Every verb returns its exit status (0 ok, 1 "not there", "different"
// or "findings") and fails through nvxparam::Fail with status 2.
#ifndef NVX_TOOLS_VERBS_H_
#define NVX_TOOLS_VERBS_H_

#include <string>
#include <vector>

#include "ParamFiles.h"

namespace nvxparam {

using Args = std::vector<std::string>;

struct Address {
  std::string section;
  std::string key;
};

// "SECTION.Key" split; fails for anything else.
Address SplitAddress(const std::string& text);
// Removes every `flag` from `args`; true when there was one.
bool TakeFlag(Args& args, const std::string& flag);
// Removes "NAME VALUE" or "NAME=VALUE" from `args`; true with `value` set
// when there was one.
bool TakeOption(Args& args, const std::string& name, std::string* value);
// Fails for an argument left in `args` that looks like an option.
void RejectOptions(const Args& args);
// `text` as a JSON string, quotes included.
std::string Json(const std::string& text);
// The key of `def` named `name` that a person reads and sets, and fails when
// the writers fix its value.
const nvx::Key& SettableKey(const nvx::SectionDef& def, const nvx::KeyList& keys,
                            const std::string& name);

int RunNew(const Args& args);
int RunShow(const Args& args);
int RunGet(const Args& args);
int RunSet(const Args& args);
int RunAdd(const Args& args);
int RunUnset(const Args& args);
int RunKeys(const Args& args);
int RunDiff(const Args& args);
int RunCheck(const Args& args);
int RunReport(const Args& args);
int RunToRsv(const Args& args);
int RunFromRsv(const Args& args);

}  // namespace nvxparam

#endif  // NVX_TOOLS_VERBS_H_
