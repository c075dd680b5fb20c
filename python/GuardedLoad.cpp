// The child reads the file with the module's own reader and writes what it
// read into a fresh RSV file made by the library's writer in a private
// folder, which the parent then reads: the parent never opens the untrusted
// file, and every value crosses in the form the library already round-trips.
// The output pipe carries the rest: which sections the file held (the fresh
// file holds every table), or the error the read raised.
#include "GuardedLoad.h"

#include <pybind11/pybind11.h>

#include <exception>
#include <filesystem>
#include <new>
#include <sstream>
#include <system_error>
#include <vector>

#include "GuardedRun.h"
#include "LimitedChild.h"

namespace nvxpy {
namespace {

namespace fs = std::filesystem;

// The child's status: how the read ended, each error as its own status so
// that the parent raises the same exception. Anything else is a corrupt file.
enum Status : int {
  kRead = 0,
  kMissing,      // FileError, missing
  kFileError,    // FileError
  kBadValue,     // BadValue
  kUnknownName,  // UnknownName
  kOtherError,   // any other exception
  kLast = kOtherError
};

// A private folder, removed with everything in it.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string error;
    path_ = nvxchild::MakePrivateDirectory("nvxcomputation-", &error);
    if (path_.empty()) throw FileError("cannot make a temporary folder: " + error, false);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code ec;
    fs::remove_all(path_, ec);
  }
  std::string File(const std::string& name) const { return (fs::path(path_) / name).string(); }

 private:
  std::string path_;
};

// Runs in the child: only C++ objects of its own, no Python object, and the
// interpreter lock is never taken.
int ReadIntoCopy(const std::string& path, const std::string& copy, int output) {
  int status = kRead;
  std::string text;
  try {
    ParamFile file = ParamFile::LoadRsv(path);
    file.WriteRsv(copy);
    for (const std::string& section : file.Sections()) text += section + "\n";
  } catch (const std::bad_alloc&) {
    return kLast + 1;  // the memory limit: a corrupt file
  } catch (const FileError& e) {
    status = e.missing() ? kMissing : kFileError;
    text = e.what();
  } catch (const BadValue& e) {
    status = kBadValue;
    text = e.what();
  } catch (const UnknownName& e) {
    status = kUnknownName;
    text = e.what();
  } catch (const std::exception& e) {
    status = kOtherError;
    text = e.what();
  }
  if (!nvxchild::WriteAll(output, text.data(), text.size())) return kLast + 1;
  return status;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

}  // namespace

ParamFile LoadRsvGuarded(const std::string& path, unsigned seconds) {
  const ScratchFolder scratch;
  const std::string copy = scratch.File("copy.rsv");
  nvxchild::Outcome outcome;
  try {
    // Forked with the interpreter lock held: no other thread of the
    // interpreter is inside the library (its calls all hold the lock), so the
    // child inherits no half-taken lock of the library or of HDF5.
    nvxchild::LimitedChild child({seconds, nvxparam::guarded::kMemoryBytes, true},
                                 [&](int output) { return ReadIntoCopy(path, copy, output); });
    const pybind11::gil_scoped_release unlocked;
    outcome = child.Wait();
  } catch (const std::system_error& e) {
    throw FileError(
        std::string("cannot start a process to read ") + path + ": " + e.code().message(), false);
  }
  if (!outcome.finished || outcome.status > kLast) {
    throw FileError("corrupt or unreadable RSV file: " + path, false);
  }
  switch (outcome.status) {
    case kMissing:
      throw FileError(outcome.output, true);
    case kFileError:
    case kOtherError:
      throw FileError(outcome.output, false);
    case kBadValue:
      throw BadValue(outcome.output);
    case kUnknownName:
      throw UnknownName(outcome.output);
    default:
      break;
  }
  ParamFile file = ParamFile::LoadRsv(copy);
  file.KeepSections(Lines(outcome.output));
  return file;
}

}  // namespace nvxpy
