// nvxparam: creates, shows, edits, checks and compares the computation
// parameters of KRN files and converts them to and from the parameter tables of
// an RSV file. Sections and keys are reached through the sections' key lists,
// so a section that gets records needs no code here. The verbs live in
// EditVerbs.cpp, InspectVerbs.cpp and CheckVerb.cpp.
#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "GuardedRun.h"
#include "NVXHostHooks.h"
#include "ToolPlatform.h"
#include "Verbs.h"

#ifndef NVXPARAM_VERSION
#define NVXPARAM_VERSION "unknown"
#endif

namespace nvxparam {

Address SplitAddress(const std::string& text) {
  const std::size_t dot = text.find('.');
  if (dot == std::string::npos || dot == 0 || dot + 1 == text.size()) {
    Fail("'" + text + "' is not of the form SECTION.Key");
  }
  return {text.substr(0, dot), text.substr(dot + 1)};
}

bool TakeFlag(Args& args, const std::string& flag) {
  const auto end = std::remove(args.begin(), args.end(), flag);
  const bool found = end != args.end();
  args.erase(end, args.end());
  return found;
}

bool TakeOption(Args& args, const std::string& name, std::string* value) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (args[i] == name) {
      if (i + 1 == args.size()) Fail(name + " needs a value");
      *value = args[i + 1];
      args.erase(args.begin() + static_cast<std::ptrdiff_t>(i),
                 args.begin() + static_cast<std::ptrdiff_t>(i + 2));
      return true;
    }
    if (args[i].rfind(name + "=", 0) == 0) {
      *value = args[i].substr(name.size() + 1);
      args.erase(args.begin() + static_cast<std::ptrdiff_t>(i));
      return true;
    }
  }
  return false;
}

void RejectOptions(const Args& args) {
  for (const std::string& arg : args) {
    if (arg.size() > 1 && arg[0] == '-') Fail("unknown option " + arg);
  }
}

std::string Json(const std::string& text) {
  std::string out = "\"";
  for (const char c : text) {
    const auto u = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (c == '\n') {
      out += "\\n";
    } else if (c == '\t') {
      out += "\\t";
    } else if (u < 0x20) {
      char buf[8];
      std::snprintf(buf, sizeof buf, "\\u%04x", u);
      out += buf;
    } else {
      out += c;
    }
  }
  return out + "\"";
}

}  // namespace nvxparam

namespace {

using nvxparam::Args;
using nvxparam::Fail;

constexpr int kErrorStatus = 2;

struct Verb {
  const char* name;
  const char* synopsis;  // arguments after the verb
  const char* details;
  int (*run)(const Args& args);
  // Reads the RSV files among its arguments (run in a guarded child).
  bool readsRsv = false;
  // How many leading arguments may be "-" for standard input.
  int stdinArgs = 0;
  // The file the verb changes, found in its arguments (empty when they name
  // none); the verb runs holding its edit lock.
  std::string (*edits)(const Args& args) = nullptr;
};

// ---- the file an editing verb changes ----------------------------------------

// The file set, add and unset edit in place. A file that does not exist is
// not locked (which would leave a lock file for a mistyped name): the verb
// itself reports it.
std::string EditedInPlace(const Args& args) {
  std::error_code ec;
  if (args.empty() || !std::filesystem::exists(std::filesystem::u8path(args[0]), ec)) return {};
  return args[0];
}

// The file to-rsv and from-rsv write: their second argument.
std::string ConversionTarget(const Args& args) { return args.size() == 2 ? args[1] : ""; }

// The file new creates: what is left after its options.
std::string NewFile(const Args& given) {
  Args args = given;
  std::string value;
  nvxparam::TakeOption(args, "--model-kind", &value);
  nvxparam::TakeOption(args, "--analysis-type", &value);
  nvxparam::TakeFlag(args, "--from-template");
  return args.size() == 1 ? args[0] : "";
}

// The --time-limit of a verb that reads RSV files, in whole seconds.
unsigned TimeLimit(const std::string& text) {
  using nvxparam::guarded::kMaxSeconds;
  const char* end = text.data() + text.size();
  unsigned seconds = 0;
  const auto result = std::from_chars(text.data(), end, seconds);
  if (result.ec != std::errc() || result.ptr != end || seconds < 1 || seconds > kMaxSeconds) {
    Fail("--time-limit takes a whole number of seconds from 1 to " + std::to_string(kMaxSeconds) +
         ", not '" + text + "'");
  }
  return seconds;
}

// ---- help and dispatch -------------------------------------------------------

int RunHelp(const Args& args);

const Verb kVerbs[] = {
    {"new", "[--model-kind K] [--analysis-type T] [--from-template] FILE.krn",
     "Writes a new KRN file with the defaults of model kind K (1 shell, 2 or 3\n"
     "solid; 2 when not given) and analysis type T (0 to 14; 0 when not given).\n"
     "With --from-template it starts from the per-user template instead.\n"
     "An existing FILE is never overwritten.\n",
     nvxparam::RunNew, false, 0, NewFile},
    {"show", "[--json] FILE",
     "Lists every section FILE holds as a [SECTION] line followed by its\n"
     "\"Key = value\" lines, values in the file's own form. FILE is a KRN file\n"
     "or an RSV file; of an RSV file only the keys its tables hold are listed.\n",
     nvxparam::RunShow, true, 1},
    {"get", "[--json] FILE SECTION.Key",
     "Prints the value of one key in the file's form, e.g. SOLID_FILL.FlagInertia.\n"
     "Exit status 1 when FILE does not hold the key.\n",
     nvxparam::RunGet, true, 1},
    {"set", "FILE.krn SECTION.Key=VALUE...",
     "Changes the lines of the keys named in place; every other byte of FILE.krn\n"
     "stays as it was. Values are given in the file's form. Where several lines\n"
     "feed one value (keys shared between sections) every line the file holds is\n"
     "written; each line changed is printed as FILE:LINE: SECTION.Key = VALUE.\n"
     "Every assignment is checked first (type, 32-bit range, no NaN or infinity,\n"
     "the key's allowed range where it has one, e.g. 1 to 3, output times as show\n"
     "prints them, e.g. \"3: 0.5, 1.25, 2\"); when any is wrong nothing is\n"
     "written. Keys the writers fix (SUMMARY.Version) are refused.\n",
     nvxparam::RunSet, false, 0, EditedInPlace},
    {"add", "FILE.krn SECTION[.Key[=VALUE]]...",
     "Adds a key line the section lacks (with VALUE or the value the library\n"
     "reads now) or a whole section, as the library writes them. VALUE is\n"
     "checked as set checks it.\n",
     nvxparam::RunAdd, false, 0, EditedInPlace},
    {"unset", "FILE.krn SECTION[.Key]...",
     "Removes the lines of a key (with its item lines) or a whole section.\n"
     "Exit status 1, and nothing changed, when FILE.krn does not hold one.\n",
     nvxparam::RunUnset, false, 0, EditedInPlace},
    {"keys", "[--json|--markdown] [--model-kind K] [SECTION]",
     "Lists every key: its type, fresh default, reset default (load mode 1 of\n"
     "model kind K, 2 when not given), whether KRN and RSV files hold it and\n"
     "the keys that share its value, and what the key means where that is known.\n",
     nvxparam::RunKeys},
    {"diff", "[--json] A B",
     "Prints the SECTION.Key values that differ between A and B, each a KRN or\n"
     "RSV file or \"--defaults MODELKIND\". Exit status 0 equal, 1 different.\n",
     nvxparam::RunDiff, true, 2},
    {"check", "[--json] FILE.krn",
     "Lints a KRN file: values that do not read cleanly, unknown keys and\n"
     "sections, counts that disagree with their item lines, sections and keys\n"
     "given twice; each finding as FILE:LINE: message. Exit status 1 on findings.\n",
     nvxparam::RunCheck, false, 1},
    {"report", "[--json] FILE.rsv",
     "Prints the computation report of FILE.rsv: the analysis sequence\n"
     "(Sequence/Result0), the computing resources (TaskManager/Result0) and one\n"
     "row per remote machine (TaskManager/Result1...), as ID and text.\n",
     nvxparam::RunReport, true, 0},
    {"to-rsv", "FILE.krn FILE.rsv",
     "Writes the parameters of FILE.krn into the parameter tables of FILE.rsv,\n"
     "creating FILE.rsv when it does not exist.\n",
     nvxparam::RunToRsv, true, 1, ConversionTarget},
    {"from-rsv", "FILE.rsv FILE.krn",
     "Writes the parameter tables of FILE.rsv as the KRN file FILE.krn with the\n"
     "sections of the file's model kind, and names the KRN-only keys it could\n"
     "not restore. FILE.krn is replaced.\n",
     nvxparam::RunFromRsv, true, 1, ConversionTarget},
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
      "\"-\" names standard input where a verb reads a file. --version prints the\n"
      "version.\n"
      "\n"
      "RSV files are read in a child process that is stopped after " +
      std::to_string(nvxparam::guarded::kDefaultSeconds) +
      " seconds;\n"
      "--time-limit SECONDS (1 to " +
      std::to_string(nvxparam::guarded::kMaxSeconds) +
      "), given after a verb that reads RSV files,\n"
      "changes that. A verb that writes a file holds a lock on it (the file\n"
      "FILE.lock beside it, left in place) and waits up to " +
      std::to_string(nvxparam::kLockWaitSeconds) +
      " seconds for another\n"
      "process's edit of the same file, then fails.\n"
      "\n"
      "Exit status: 0 on success; 1 when a key or section is not there, files\n"
      "differ or check finds something; 2 on any error (files are then unchanged),\n"
      "a file that cannot be read in time included, and a file another process\n"
      "keeps locked.\n";
  return text;
}

std::string VerbUsage(const Verb& verb) {
  std::string text =
      std::string("usage: nvxparam ") + verb.name + " " + verb.synopsis + "\n\n" + verb.details;
  if (verb.readsRsv) {
    text += "--time-limit SECONDS stops reading an RSV file after SECONDS\n(1 to " +
            std::to_string(nvxparam::guarded::kMaxSeconds) + "; " +
            std::to_string(nvxparam::guarded::kDefaultSeconds) + " when not given).\n";
  }
  return text;
}

int RunHelp(const Args& args) {
  if (args.empty()) {
    std::cout << Usage();
  } else if (const Verb* verb = FindVerb(args[0]); verb != nullptr && args.size() == 1) {
    std::cout << VerbUsage(*verb);
  } else if (args.size() == 1) {
    Fail("unknown verb '" + args[0] + "'");
  } else {
    Fail("usage: nvxparam help [VERB]");
  }
  return 0;
}

// Standard input copied into a private file, removed when the command ends.
class StdinFile {
 public:
  StdinFile() = default;
  StdinFile(const StdinFile&) = delete;
  StdinFile& operator=(const StdinFile&) = delete;
  ~StdinFile() {
    std::error_code ec;
    if (!path_.empty()) std::filesystem::remove(std::filesystem::u8path(path_), ec);
  }
  const std::string& Take() {
    if (!path_.empty()) Fail("standard input can be read only once");
    std::string error;
    path_ = nvxparam::sys::MakePrivateTempFile("nvxparam-stdin-", &error);
    if (path_.empty()) Fail("cannot keep standard input: " + error);
    nvxparam::sys::BinaryStandardInput();
    std::ofstream out(std::filesystem::u8path(path_), std::ios::binary);
    out << std::cin.rdbuf();
    if (!out.flush()) Fail("cannot keep standard input: " + std::string(std::strerror(errno)));
    return path_;
  }

 private:
  std::string path_;
};

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
  if (argv[0] == "--version" || argv[0] == "version") {
    std::cout << "nvxparam " NVXPARAM_VERSION << std::endl;
    return 0;
  }
  const Verb* verb = FindVerb(argv[0]);
  if (verb == nullptr) {
    std::cerr << "nvxparam: unknown verb '" << argv[0] << "'\n\n" << Usage();
    return kErrorStatus;
  }
  Args args(argv.begin() + 1, argv.end());
  if (std::any_of(args.begin(), args.end(), IsHelpOption)) {
    std::cout << VerbUsage(*verb);
    return 0;
  }
  // Taken before the file names are counted: its value is no file.
  unsigned seconds = nvxparam::guarded::kDefaultSeconds;
  if (std::string limit; verb->readsRsv && nvxparam::TakeOption(args, "--time-limit", &limit)) {
    seconds = TimeLimit(limit);
  }
  StdinFile stdinFile;
  int files = 0;
  for (std::string& arg : args) {
    if (arg.size() > 1 && arg[0] == '-' && arg != "--defaults") continue;
    if (files++ < verb->stdinArgs && arg == "-") arg = stdinFile.Take();
  }
  // Held from before the file is read until after it is replaced, across the
  // guarded child that does both.
  // A directory is refused by the verb; its lock file would land inside it.
  std::optional<nvxparam::EditLock> lock;
  if (verb->edits != nullptr) {
    std::error_code ec;
    const std::string edited = verb->edits(args);
    if (!edited.empty() && !std::filesystem::is_directory(std::filesystem::u8path(edited), ec)) {
      lock.emplace(edited);
    }
  }
  // An RSV file may be damaged so that the HDF5 library crashes or hangs on it;
  // such a file is read in a child process under time and memory limits.
  if (verb->readsRsv) {
    Args command = args;
    command.insert(command.begin(), verb->name);
    for (const std::string& arg : args) {
      if (nvxparam::IsHdf5File(arg))
        return nvxparam::RunGuarded(
            arg, command, [&] { return verb->run(args); }, seconds);
    }
  }
  return verb->run(args);
}

// The command of a guarded child started afresh: a verb and its arguments as
// the parent prepared them, run without a further guard.
int RunGuardedCommand(const Args& command) {
  const Verb* verb = command.empty() ? nullptr : FindVerb(command[0]);
  if (verb == nullptr) Fail("a guarded command without a verb");
  return verb->run(Args(command.begin() + 1, command.end()));
}

}  // namespace

int main(int argc, char** argv) {
  // A file that cannot be opened for writing fails the command with its cause
  // instead of ending the process inside the library.
  NVXSetCantOpenHandler([](const char*) {});
  try {
    const Args args = nvxparam::sys::CommandArguments(argc, argv);
    nvxparam::RunIfGuardedChild(args, RunGuardedCommand);
    return Run(args);
  } catch (const nvxparam::Failure& e) {
    std::cout.flush();
    std::cerr << "nvxparam: " << e.what() << std::endl;
    return e.status;
  } catch (const std::exception& e) {
    std::cout.flush();
    std::cerr << "nvxparam: " << e.what() << std::endl;
  }
  return kErrorStatus;
}
