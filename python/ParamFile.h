// ParamFile: the computation parameters of one KRN or RSV file (or fresh
// defaults) held in an implementation object, reached as "SECTION.Key" in the
// text form of the key text functions, and written back through the
// library's safe file replacement. The Python module is a thin shell over it.
#ifndef NVX_PYTHON_PARAMFILE_H_
#define NVX_PYTHON_PARAMFILE_H_

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "core/KeyTable.h"
#include "core/NVX3DComputationImpl.h"
#include "core/SectionDef.h"

namespace nvxpy {

// A section or key name that does not exist or that the parameters do not
// hold; the message lists the nearest names.
class UnknownName : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};
// A value the key cannot take, or parameters that cannot be written as asked.
class BadValue : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};
// A file that is missing, unreadable, not of the expected kind or not writable.
class FileError : public std::runtime_error {
 public:
  FileError(const std::string& message, bool missing)
      : std::runtime_error(message), missing_(missing) {}
  bool missing() const { return missing_; }

 private:
  bool missing_;
};

class ParamFile {
 public:
  // Reads a KRN file; fails when it is missing, unreadable or holds no section.
  static ParamFile LoadKrn(const std::string& path);
  // Reads the parameter tables of an RSV file; the sections held are those
  // whose table the file holds. KRN-only keys keep their fresh defaults.
  static ParamFile LoadRsv(const std::string& path);
  // The defaults of a new project of `modelKind` (1 shell, 2 or 3 solid) and
  // `analysisType` (0 to 14), holding the sections its KRN file has. Like a
  // new project of the host application, it starts from the per-user template
  // when there is one.
  static ParamFile New(int modelKind, int analysisType);

  // Tag names of the sections held, in the order of the tag table.
  std::vector<std::string> Sections() const;
  // Holds exactly the sections named (tag names), and no other.
  void KeepSections(const std::vector<std::string>& sections);
  // Names of the keys of `section` a person can read and set, in file order.
  std::vector<std::string> Keys(const std::string& section) const;

  // The key at "SECTION.Key", bound to this object's fields.
  nvx::Key Lookup(const std::string& address) const;
  // Lookup for a key of a section held.
  nvx::Key Find(const std::string& address) const;
  // The key's value in the form of nvx::FormatValue.
  std::string Get(const std::string& address) const;
  // Sets "SECTION.Key" from text; a section not held is held from now on.
  void Set(const std::string& address, const std::string& text);
  // Sets every pair, or none: on the first failure the earlier ones are undone.
  void Update(const std::vector<std::pair<std::string, std::string>>& values);

  // Writes the KRN file with every section held; the old file is replaced
  // only once the new one is complete.
  void WriteKrn(const std::string& path);
  // Writes the parameter tables and the computation report into the RSV file
  // `path` (created when missing; an existing HDF5 file keeps its other
  // contents). The tables go into a copy that replaces the file only when
  // every write succeeded.
  void WriteRsv(const std::string& path);

 private:
  ParamFile();

  bool Holds(nvx::KrnTag tag) const;
  void Hold(nvx::KrnTag tag);

  std::unique_ptr<CNVX3DComputationImpl> impl_;
  // Made by New: written by the model-kind writer while its sections suffice.
  bool fresh_ = false;
};

}  // namespace nvxpy

#endif  // NVX_PYTHON_PARAMFILE_H_
