// What the verbs of nvxparam share: reading a parameter file into an
// implementation object, finding sections and keys by name, and replacing a
// file only once its new contents are complete.
#ifndef NVX_TOOLS_PARAMFILES_H_
#define NVX_TOOLS_PARAMFILES_H_

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "ToolPlatform.h"
#include "core/KeyTable.h"
#include "core/NVX3DComputationImpl.h"
#include "core/SectionDef.h"
#include "krn/KRNDocumentWriter.h"

namespace nvxparam {

// Ends the command: main prints the message and exits with `status`: 2 for
// an error, 1 for "not there".
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& message, int status = 2)
      : std::runtime_error(message), status(status) {}
  int status;
};

[[noreturn]] void Fail(const std::string& message);
// Ends the command with status 1: what was asked for is not in the file.
[[noreturn]] void NotThere(const std::string& message);

// A parameter file read into memory: the implementation object and the
// sections the file holds, in the order of the tag table.
struct Params {
  std::unique_ptr<CNVX3DComputationImpl> impl;
  std::vector<const nvx::SectionDef*> sections;
  // Of an RSV file: the "SECTION.Key" names whose items its tables hold.
  bool rsv = false;
  std::vector<std::string> rsvKeys;

  bool Holds(const nvx::SectionDef& def) const;
  // Whether the file holds `key` of `def`: its section for a KRN file, its
  // items for an RSV file.
  bool HoldsKey(const nvx::SectionDef& def, const nvx::Key& key) const;
};

// The values a load with load mode 1 gives a project of `modelKind` (1 shell,
// 2 or 3 solid) without a per-user template, and the sections a new file of
// that kind holds.
Params DefaultParams(int modelKind, int analysisType = 0);
// The whole file as bytes; fails naming the cause (missing, a directory,
// permission denied).
std::string ReadFileBytes(const std::string& path);
// Fails naming the cause when `path` cannot be replaced: a directory, a folder
// that is read-only or on a read-only file system.
void RequireWritable(const std::string& path);
// Whether two keys feed one value: the same field, of the same kind.
bool SharesValue(const nvx::Key& a, const nvx::Key& b);

// The document of `impl` (present flags and scanned lines).
CNVX3DKRNDocument& DocumentOf(CNVX3DComputationImpl& impl);

// Reads a KRN file; fails when it is missing, unreadable or holds no section.
Params LoadKrn(const std::string& path);
// Reads the parameter tables of an RSV file; fails when it is missing, not an
// HDF5 file or without the parameter group. Every section that has a table
// gets its present flag; `sections` lists those whose table the file holds.
Params LoadRsv(const std::string& path);
// True when `path` is an existing HDF5 file (of any layout).
bool IsHdf5File(const std::string& path);
// LoadRsv for an HDF5 file, LoadKrn for anything else.
Params LoadParams(const std::string& path);

// The section whose tag is named `name` (e.g. "SOLID_FILL"); fails with the
// nearest section names.
const nvx::SectionDef& FindSectionNamed(const std::string& name);
// The key `name` a person can read and set; fails with the nearest key names.
const nvx::Key& FindUserKey(const nvx::SectionDef& def, const nvx::KeyList& keys,
                            const std::string& name);
// Fails for a text value the KRN reader would not read back as it is.
void CheckKrnStorable(const nvx::Key& key, const std::string& value);

// Tags the file held that `writer` would leave out.
std::vector<std::string> SectionsLostByWriter(CNVX3DComputationImpl& impl,
                                              nvx::DocumentWriter writer);
// The document writer that writes back every section the file at `path`
// held (the section-present writer when it does); fails when none does.
nvx::DocumentWriter WriterKeepingEverySection(const std::string& path, CNVX3DComputationImpl& impl);

// Writes `path` through `write`, which receives the name of a fresh file in
// the same directory (a copy of the old file when `startFromOld`) and returns
// whether it wrote it, with the reason when not. The fresh file replaces
// `path` (keeping its permissions) only when it is complete and on disk, so a
// failure leaves the old file as it was; the failure ends the command with
// its cause.
void ReplaceFile(const std::string& path,
                 const std::function<bool(const std::string&, std::string*)>& write,
                 bool startFromOld = false);
// How long an edit waits for another process to finish its edit of the
// same file: edits take milliseconds, so a lock held longer than this
// belongs to something stuck.
constexpr int kLockWaitSeconds = 5;

// The lock an edit holds on its file from before it reads the file until
// after it replaced it, so that two processes editing one file at once do
// not lose either edit. It is a system lock on the file "`path`.lock" beside
// it, which the system drops when its holder ends in any way. Waits up to
// kLockWaitSeconds for another holder, then fails with "`path` is locked by
// another process".
//
// The lock file is left in place afterwards: removing it would let a waiter
// that had already opened it lock the removed file while a newcomer creates
// and locks a new one, and both would edit at once. Left alone it holds no
// lock, only the name.
class EditLock {
 public:
  explicit EditLock(const std::string& path);

 private:
  sys::FileLock lock_;
};

// Writes the KRN document of `impl` as `path` with `writer`, the same way.
void WriteKrn(const std::string& path, CNVX3DComputationImpl& impl,
              nvx::DocumentWriter writer = nvx::DocumentWriter::kSectionPresent);

}  // namespace nvxparam

#endif  // NVX_TOOLS_PARAMFILES_H_
