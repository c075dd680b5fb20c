// nvxparam: creates, shows and edits the computation parameters of a KRN file
// and converts them to and from the parameter tables of an RSV file. Sections
// and keys are reached through the sections' key lists, so a section that gets
// records needs no code here.
#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "GuardedRun.h"
#include "NVX3DComputation.h"
#include "NVXHostHooks.h"
#include "ParamFiles.h"
#include "core/KeyText.h"
#include "krn/KRNDocumentWriter.h"
#include "krn/KRNTags.h"

namespace {

using nvxparam::Fail;
using Args = std::vector<std::string>;

constexpr int kErrorStatus = 2;

struct Verb {
  const char* name;
  const char* synopsis;  // arguments after the verb
  const char* details;
  void (*run)(const Args& args);
  // Reads the RSV files among its arguments (run in a guarded child).
  bool readsRsv = false;
};

const Verb* FindVerb(const std::string& name);

[[noreturn]] void FailUsage(const Verb& verb) {
  Fail(std::string("usage: nvxparam ") + verb.name + " " + verb.synopsis);
}

// ---- new ---------------------------------------------------------------------

int WholeNumber(const std::string& option, const std::string& text, int low, int high) {
  int value = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  if (result.ec != std::errc() || result.ptr != end || value < low || value > high) {
    Fail(option + " takes a whole number from " + std::to_string(low) + " to " +
         std::to_string(high) + ", not '" + text + "'");
  }
  return value;
}

void RunNew(const Args& args) {
  int modelKind = 2;
  int analysisType = 0;
  std::string file;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    const std::size_t eq = arg.find('=');
    const std::string name = arg.substr(0, eq);
    if (name == "--model-kind" || name == "--analysis-type") {
      std::string value;
      if (eq != std::string::npos) {
        value = arg.substr(eq + 1);
      } else if (i + 1 < args.size()) {
        value = args[++i];
      } else {
        Fail(name + " needs a value");
      }
      if (name == "--model-kind") {
        modelKind = WholeNumber(name, value, 1, 3);
      } else {
        analysisType = WholeNumber(name, value, 0, 14);
      }
    } else if (arg.size() > 1 && arg[0] == '-') {
      Fail("unknown option " + arg);
    } else if (file.empty()) {
      file = arg;
    } else {
      FailUsage(*FindVerb("new"));
    }
  }
  if (file.empty()) FailUsage(*FindVerb("new"));
  std::error_code ec;
  if (std::filesystem::exists(std::filesystem::symlink_status(file, ec))) {
    Fail(file + " already exists");
  }

  CNVX3DComputation computation;
  NVXData data;
  data.KRNFilePath = file;
  data.LoadMode = 1;
  data.ModelKind = modelKind;
  data.AnalysisType = analysisType;
  if (!computation.LoadKRNFile(data)) Fail("cannot set up the defaults for " + file);
  nvxparam::ReplaceFile(file, [&](const std::string& temp, std::string* error) {
    const bool written = computation.WriteKRNFile(temp, 0);
    if (!written) *error = "writing " + file + " failed";
    return written;
  });
}

// ---- show, get, set ----------------------------------------------------------

void RunShow(const Args& args) {
  if (args.size() != 1) FailUsage(*FindVerb("show"));
  const nvxparam::Params params = nvxparam::LoadParams(args[0]);
  std::string text;
  for (const nvx::SectionDef* def : params.sections) {
    if (!text.empty()) text += '\n';
    text += std::string("[") + nvx::TagName(def->tag) + "]\n";
    std::vector<std::string> shown;
    for (const nvx::Key& key : def->keys(*params.impl)) {
      // A name listed twice is read and set through its first entry.
      if (!nvx::IsUserKey(key) || std::count(shown.begin(), shown.end(), key.name) != 0) continue;
      shown.push_back(key.name);
      text += std::string(key.name) + " = " + nvx::FormatValue(key) + "\n";
    }
  }
  std::cout << text << std::flush;
}

struct Address {
  std::string section;
  std::string key;
};

Address SplitAddress(const std::string& text) {
  const std::size_t dot = text.find('.');
  if (dot == std::string::npos || dot == 0 || dot + 1 == text.size()) {
    Fail("'" + text + "' is not of the form SECTION.Key");
  }
  return {text.substr(0, dot), text.substr(dot + 1)};
}

void RunGet(const Args& args) {
  if (args.size() != 2) FailUsage(*FindVerb("get"));
  const nvxparam::Params params = nvxparam::LoadParams(args[0]);
  const Address address = SplitAddress(args[1]);
  const nvx::SectionDef& def = nvxparam::FindSectionNamed(address.section);
  const nvx::KeyList keys = def.keys(*params.impl);
  const nvx::Key& key = nvxparam::FindUserKey(def, keys, address.key);
  if (!params.Holds(def)) Fail(args[0] + " has no section " + address.section);
  std::cout << nvx::FormatValue(key) << std::endl;
}

// Applies one "SECTION.Key=VALUE" to `impl`; the message of the first problem,
// or empty.
std::string Assign(CNVX3DComputationImpl& impl, const std::string& assignment) {
  try {
    const std::size_t eq = assignment.find('=');
    if (eq == std::string::npos) Fail("'" + assignment + "' is not of the form SECTION.Key=VALUE");
    const Address address = SplitAddress(assignment.substr(0, eq));
    const std::string value = assignment.substr(eq + 1);
    const nvx::SectionDef& def = nvxparam::FindSectionNamed(address.section);
    const nvx::KeyList keys = def.keys(impl);
    const nvx::Key& key = nvxparam::FindUserKey(def, keys, address.key);
    nvxparam::CheckKrnStorable(key, value);
    std::string error;
    if (!nvx::ParseValue(key, value, &error)) Fail(error);
    // A section the file did not hold is written from now on.
    nvxparam::DocumentOf(impl).SetPresent(def.tag, true);
  } catch (const nvxparam::Failure& failure) {
    return failure.what();
  }
  return {};
}

void RunSet(const Args& args) {
  if (args.size() < 2) FailUsage(*FindVerb("set"));
  const std::string& file = args[0];
  if (nvxparam::IsHdf5File(file)) Fail(file + " is an RSV file; set edits KRN files");
  const nvxparam::Params params = nvxparam::LoadKrn(file);
  const nvx::DocumentWriter writer = nvxparam::WriterKeepingEverySection(file, *params.impl);
  std::string errors;
  for (std::size_t i = 1; i < args.size(); ++i) {
    const std::string error = Assign(*params.impl, args[i]);
    if (!error.empty()) errors += (errors.empty() ? "" : "\nnvxparam: ") + error;
  }
  if (!errors.empty()) Fail(errors);
  nvxparam::WriteKrn(file, *params.impl, writer);
}

// ---- RSV conversions ---------------------------------------------------------

void RunToRsv(const Args& args) {
  if (args.size() != 2) FailUsage(*FindVerb("to-rsv"));
  const std::string& krn = args[0];
  const std::string& rsv = args[1];
  nvxparam::LoadKrn(krn);  // only the checks: missing, unreadable, not a KRN file
  std::error_code ec;
  const bool existed = std::filesystem::exists(rsv, ec);
  if (existed && !nvxparam::IsHdf5File(rsv)) {
    Fail(rsv + " is not an RSV (HDF5) file; not overwriting it");
  }
  CNVX3DComputation computation;
  if (!computation.LoadKRNFile(krn.c_str())) Fail("cannot read " + krn);
  // The tables go into a copy of the file, which replaces it only when every
  // write and the close succeeded.
  nvxparam::ReplaceFile(
      rsv,
      [&](const std::string& fresh, std::string* error) {
        // A new RSV file is created where the empty fresh file stands.
        if (!existed) std::filesystem::remove(fresh, ec);
        computation.SetRSVFilePath(fresh);
        errno = 0;
        if (computation.WriteRSVFile()) return true;
        // The file library leaves the system's reason of a failed write behind.
        const int reason = errno;
        *error = "writing the parameters into " + rsv + " failed";
        if (reason != 0) *error += std::string(": ") + std::strerror(reason);
        return false;
      },
      /*startFromOld=*/true);
}

void RunFromRsv(const Args& args) {
  if (args.size() != 2) FailUsage(*FindVerb("from-rsv"));
  const std::string& rsv = args[0];
  const std::string& krn = args[1];
  if (nvxparam::IsHdf5File(krn)) Fail(krn + " is an HDF5 file; not overwriting it");
  // Every section that has a table is written, whether or not the file held it.
  const nvxparam::Params params = nvxparam::LoadRsv(rsv);
  nvxparam::WriteKrn(krn, *params.impl);
}

// ---- help and dispatch -------------------------------------------------------

void RunHelp(const Args& args);

const Verb kVerbs[] = {
    {"new", "[--model-kind K] [--analysis-type T] FILE.krn",
     "Writes a new KRN file with the defaults of model kind K (1 shell, 2 or 3\n"
     "solid; 2 when not given) and analysis type T (0 to 14; 0 when not given).\n"
     "An existing FILE is never overwritten.\n",
     RunNew},
    {"show", "FILE",
     "Lists every section FILE holds as a [SECTION] line followed by its\n"
     "\"Key = value\" lines. FILE is a KRN file or an RSV file; of an RSV file the\n"
     "sections whose table it holds are listed.\n",
     RunShow, true},
    {"get", "FILE SECTION.Key",
     "Prints the value of one key, e.g. SOLID_FILL.FlagInertia. FILE is a KRN\n"
     "file or an RSV file.\n",
     RunGet, true},
    {"set", "FILE.krn SECTION.Key=VALUE...",
     "Sets one or more keys and writes FILE.krn once. Every assignment is checked\n"
     "first; when any of them is wrong nothing is written. A section FILE.krn did\n"
     "not hold is added. Integers and counts take whole numbers, flags 0, 1,\n"
     "true or false, texts a single word.\n",
     RunSet},
    {"to-rsv", "FILE.krn FILE.rsv",
     "Writes the parameters of FILE.krn into the parameter tables of FILE.rsv,\n"
     "creating FILE.rsv when it does not exist.\n",
     RunToRsv, true},
    {"from-rsv", "FILE.rsv FILE.krn",
     "Writes the parameter tables of FILE.rsv as the KRN file FILE.krn, one\n"
     "section for every table the parameters know. FILE.krn is replaced.\n",
     RunFromRsv, true},
    {"help", "[VERB]", "Shows the usage of nvxparam or of one verb.\n", RunHelp},
};

const Verb* FindVerb(const std::string& name) {
  for (const Verb& verb : kVerbs) {
    if (name == verb.name) return &verb;
  }
  return nullptr;
}

std::string Usage() {
  std::string text = "usage: nvxparam VERB [ARGS]\n\n";
  text += "Creates, shows and edits the computation parameters of a KRN file.\n\n";
  for (const Verb& verb : kVerbs) {
    text += std::string("  ") + verb.name + " " + verb.synopsis + "\n";
  }
  text +=
      "\nKeys are named SECTION.Key, e.g. SOLID_FILL.FlagInertia or SUMMARY.Flag3D.\n"
      "'nvxparam help VERB' or 'nvxparam VERB --help' describes one verb.\n"
      "Exit status: 0 on success, 2 on any error (the files are then unchanged).\n";
  return text;
}

std::string VerbUsage(const Verb& verb) {
  return std::string("usage: nvxparam ") + verb.name + " " + verb.synopsis + "\n\n" + verb.details;
}

void RunHelp(const Args& args) {
  if (args.empty()) {
    std::cout << Usage();
  } else if (const Verb* verb = FindVerb(args[0]); verb != nullptr && args.size() == 1) {
    std::cout << VerbUsage(*verb);
  } else if (args.size() == 1) {
    Fail("unknown verb '" + args[0] + "'");
  } else {
    FailUsage(*FindVerb("help"));
  }
}

bool IsHelpOption(const std::string& arg) { return arg == "-h" || arg == "--help"; }

int Run(const Args& argv) {
  if (argv.empty()) {
    std::cerr << Usage();
    return kErrorStatus;
  }
  if (IsHelpOption(argv[0])) {
    std::cout << Usage();
    return 0;
  }
  const Verb* verb = FindVerb(argv[0]);
  if (verb == nullptr) {
    std::cerr << "nvxparam: unknown verb '" << argv[0] << "'\n\n" << Usage();
    return kErrorStatus;
  }
  const Args args(argv.begin() + 1, argv.end());
  if (std::any_of(args.begin(), args.end(), IsHelpOption)) {
    std::cout << VerbUsage(*verb);
    return 0;
  }
  // An RSV file may be damaged so that the HDF5 library crashes or hangs on it;
  // such a file is read in a child process under time and memory limits.
  if (verb->readsRsv) {
    for (const std::string& arg : args) {
      if (nvxparam::IsHdf5File(arg)) return nvxparam::RunGuarded(arg, [&] { verb->run(args); });
    }
  }
  verb->run(args);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  // A file that cannot be opened for writing fails the command with its cause
  // instead of ending the process inside the library.
  NVXSetCantOpenHandler([](const char*) {});
  try {
    return Run(Args(argv + 1, argv + argc));
  } catch (const std::exception& e) {
    std::cout.flush();
    std::cerr << "nvxparam: " << e.what() << std::endl;
  }
  return kErrorStatus;
}
