// The verbs that only read: show, get, keys and diff, as text and as JSON.
#include <algorithm>
#include <iostream>
#include <optional>

#include "KeyMeanings.h"
#include "Verbs.h"
#include "core/KeyText.h"
#include "krn/KRNTags.h"

namespace nvxparam {
namespace {

// The keys of a section a person reads, each name once (a name listed twice
// is read and set through its first entry).
std::vector<const nvx::Key*> UserKeys(const nvx::KeyList& keys) {
  std::vector<const nvx::Key*> shown;
  for (const nvx::Key& key : keys) {
    if (!nvx::IsUserKey(key)) continue;
    const bool seen = std::any_of(shown.begin(), shown.end(), [&](const nvx::Key* k) {
      return std::string(k->name) == key.name;
    });
    if (!seen) shown.push_back(&key);
  }
  return shown;
}

// Deliberate: a reset stamps the Summary's time with the clock, so the key
// list names that instead of a value that changes every second.
std::string StableReset(const std::string& name, const std::string& value) {
  return name == "SUMMARY.Time" ? "(the time of the load)" : value;
}

std::string JsonOrNull(const std::optional<std::string>& value) {
  return value ? Json(*value) : "null";
}

// One side of a diff: a file or the defaults of a model kind.
Params LoadSide(Args& args, std::string* name) {
  if (args.empty()) Fail("usage: nvxparam diff A B (A or B may be --defaults MODELKIND)");
  std::string first = args.front();
  args.erase(args.begin());
  if (first == "--defaults" || first.rfind("--defaults=", 0) == 0) {
    std::string kind;
    if (first.size() > 10) {
      kind = first.substr(11);
    } else if (!args.empty()) {
      kind = args.front();
      args.erase(args.begin());
    }
    if (kind != "1" && kind != "2" && kind != "3") Fail("--defaults takes a model kind 1, 2 or 3");
    *name = "defaults of model kind " + kind;
    return DefaultParams(kind[0] - '0');
  }
  *name = first;
  return LoadParams(first);
}

std::optional<std::string> ValueIn(const Params& params, const nvx::SectionDef& def,
                                   const std::string& name) {
  const nvx::KeyList keys = def.keys(*params.impl);
  const nvx::Key* key = nvx::FindKey(keys, name, nvx::kKrnRead);
  if (key == nullptr || !params.HoldsKey(def, *key)) return std::nullopt;
  return nvx::FormatFileValue(*key);
}

}  // namespace

int RunShow(const Args& given) {
  Args args = given;
  const bool json = TakeFlag(args, "--json");
  RejectOptions(args);
  if (args.size() != 1) Fail("usage: nvxparam show [--json] FILE");
  const Params params = LoadParams(args[0]);
  std::string text = json ? "{\"file\": " + Json(args[0]) + ", \"sections\": {" : "";
  bool firstSection = true;
  for (const nvx::SectionDef* def : params.sections) {
    const nvx::KeyList keys = def->keys(*params.impl);
    const std::string tag = nvx::TagName(def->tag);
    text += json ? std::string(firstSection ? "" : ", ") + Json(tag) + ": {"
                 : std::string(firstSection ? "" : "\n") + "[" + tag + "]\n";
    firstSection = false;
    bool firstKey = true;
    for (const nvx::Key* key : UserKeys(keys)) {
      if (!params.HoldsKey(*def, *key)) continue;
      const std::string value = nvx::FormatFileValue(*key);
      text += json ? std::string(firstKey ? "" : ", ") + Json(key->name) + ": " + Json(value)
                   : std::string(key->name) + " = " + value + "\n";
      firstKey = false;
    }
    if (json) text += "}";
  }
  if (json) text += "}}\n";
  std::cout << text << std::flush;
  return 0;
}

int RunGet(const Args& given) {
  Args args = given;
  const bool json = TakeFlag(args, "--json");
  RejectOptions(args);
  if (args.size() != 2) Fail("usage: nvxparam get [--json] FILE SECTION.Key");
  const Params params = LoadParams(args[0]);
  const Address address = SplitAddress(args[1]);
  const nvx::SectionDef& def = FindSectionNamed(address.section);
  const nvx::KeyList keys = def.keys(*params.impl);
  const nvx::Key& key = FindUserKey(def, keys, address.key);
  if (!params.Holds(def)) NotThere(args[0] + " has no section " + address.section);
  if (!params.HoldsKey(def, key)) NotThere(args[0] + " holds no " + args[1]);
  const std::string value = nvx::FormatFileValue(key);
  if (json) {
    std::cout << "{\"key\": " << Json(args[1]) << ", \"value\": " << Json(value) << "}"
              << std::endl;
  } else {
    std::cout << value << std::endl;
  }
  return 0;
}

int RunKeys(const Args& given) {
  Args args = given;
  const bool json = TakeFlag(args, "--json");
  const bool markdown = TakeFlag(args, "--markdown");
  std::string kind = "2";
  TakeOption(args, "--model-kind", &kind);
  RejectOptions(args);
  if (args.size() > 1 || (kind != "1" && kind != "2" && kind != "3")) {
    Fail("usage: nvxparam keys [--json|--markdown] [--model-kind K] [SECTION]");
  }
  const nvx::SectionDef* only = args.empty() ? nullptr : &FindSectionNamed(args[0]);
  const auto fresh = CNVX3DComputationImpl::MakeComplete();
  const Params reset = DefaultParams(kind[0] - '0');
  const std::string kindName = kind == "1" ? "shell" : "solid";

  std::string text;
  if (json) {
    text = "[";
  } else if (markdown) {
    text =
        "# Keys of the KRN and RSV parameter files\n\n"
        "Generated by scripts/gen-keys.sh from the key tables; do not edit.\n\n"
        "Values are in the form the KRN file holds them. *fresh* is the value of a\n"
        "new parameter object, *reset* the value a load with load mode 1 gives a\n"
        "project of model kind " +
        kind + " (" + kindName +
        "). *files* says whether KRN\n"
        "and RSV files hold the key; *shares* names the keys that feed the same\n"
        "value (`nvxparam set` writes all of them); *meaning* says what the key\n"
        "is where that is known.\n";
  } else {
    text = "# SECTION.Key  type  fresh  reset(model kind " + kind + ", " + kindName +
           ")  files  [shares]  [meaning]\n";
  }
  bool first = true;
  for (const nvx::SectionDef* def : nvx::AllSections()) {
    if (only != nullptr && only != def) continue;
    const std::string tag = nvx::TagName(def->tag);
    const nvx::KeyList freshKeys = def->keys(*fresh);
    const nvx::KeyList resetKeys = def->keys(*reset.impl);
    if (markdown) {
      text += "\n## " + tag + "\n\n| Key | Type | Fresh | Reset | Files | Shares | Meaning |\n" +
              "|---|---|---|---|---|---|---|\n";
    }
    for (const nvx::Key* key : UserKeys(freshKeys)) {
      const nvx::Key* resetKey = nvx::FindKey(resetKeys, key->name, nvx::kKrnRead);
      const std::string freshValue = nvx::FormatFileValue(*key);
      std::string resetValue = resetKey ? nvx::FormatFileValue(*resetKey) : freshValue;
      const bool krn = (key->use & nvx::kKrn) != 0;
      bool rsv = def->rsvTable != nullptr && (key->use & nvx::kRsv) != 0;
      std::vector<std::string> shares;
      for (const nvx::SectionDef* other : nvx::AllSections()) {
        for (const nvx::Key& k : other->keys(*fresh)) {
          if (&k == key || !SharesValue(k, *key)) continue;
          if (other == def && std::string(k.name) == key->name) continue;
          rsv |= other->rsvTable != nullptr && (k.use & nvx::kRsv) != 0 && other != def;
          shares.push_back(std::string(nvx::TagName(other->tag)) + "." + k.name);
        }
      }
      const std::string files =
          std::string(krn ? "KRN" : "") + (krn && rsv ? "," : "") + (rsv ? "RSV" : "");
      const std::string name = tag + "." + key->name;
      resetValue = StableReset(name, resetValue);
      const std::string meaning = MeaningOf(name);
      std::string shared;
      for (const std::string& s : shares) shared += (shared.empty() ? "" : ", ") + s;
      if (json) {
        std::string list;
        for (const std::string& s : shares) list += (list.empty() ? "" : ", ") + Json(s);
        text += std::string(first ? "" : ",") + "\n  {\"key\": " + Json(name) +
                ", \"type\": " + Json(nvx::KindName(*key)) + ", \"fresh\": " + Json(freshValue) +
                ", \"reset\": " + Json(resetValue) + ", \"krn\": " + (krn ? "true" : "false") +
                ", \"rsv\": " + (rsv ? "true" : "false") + ", \"shares\": [" + list +
                "], \"meaning\": " + Json(meaning) + "}";
      } else if (markdown) {
        text += "| " + std::string(key->name) + " | " + nvx::KindName(*key) + " | `" + freshValue +
                "` | `" + resetValue + "` | " + files + " | " + shared + " | " + meaning + " |\n";
      } else {
        text += name + "  " + nvx::KindName(*key) + "  " + freshValue + "  " + resetValue + "  " +
                files + (shared.empty() ? "" : "  shares: " + shared) +
                (meaning.empty() ? "" : "  meaning: " + meaning) + "\n";
      }
      first = false;
    }
  }
  if (json) text += "\n]\n";
  std::cout << text << std::flush;
  return 0;
}

int RunDiff(const Args& given) {
  Args args = given;
  const bool json = TakeFlag(args, "--json");
  std::string nameA, nameB;
  const Params a = LoadSide(args, &nameA);
  const Params b = LoadSide(args, &nameB);
  RejectOptions(args);
  if (!args.empty()) Fail("usage: nvxparam diff [--json] A B (A or B may be --defaults MODELKIND)");
  std::string text;
  bool equal = true;
  for (const nvx::SectionDef* def : nvx::AllSections()) {
    if (!a.Holds(*def) && !b.Holds(*def)) continue;
    const nvx::KeyList keys = def->keys(*a.impl);
    for (const nvx::Key* key : UserKeys(keys)) {
      const std::optional<std::string> va = ValueIn(a, *def, key->name);
      const std::optional<std::string> vb = ValueIn(b, *def, key->name);
      if (va == vb) continue;
      const std::string name = std::string(nvx::TagName(def->tag)) + "." + key->name;
      if (json) {
        text += std::string(equal ? "" : ",") + "\n  {\"key\": " + Json(name) +
                ", \"a\": " + JsonOrNull(va) + ", \"b\": " + JsonOrNull(vb) + "}";
      } else {
        text += name + ": " + va.value_or("(absent)") + " -> " + vb.value_or("(absent)") + "\n";
      }
      equal = false;
    }
  }
  if (json) {
    text = "{\"a\": " + Json(nameA) + ", \"b\": " + Json(nameB) +
           ", \"equal\": " + (equal ? "true" : "false") + ", \"differences\": [" + text +
           (equal ? "" : "\n") + "]}\n";
  }
  std::cout << text << std::flush;
  return equal ? 0 : 1;
}

}  // namespace nvxparam
