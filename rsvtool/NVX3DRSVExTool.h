// NVX3DRSVExTool: the project's RSV file, an HDF5 file of numbered and named
// groups, key/value tables, typed arrays and compound record types.
//
// Layout decisions (fixed; the parameter library and outside readers rely on them):
//
//  * Numbered groups. A group number maps to an HDF5 group path:
//        group 1            -> "/Project"
//        group 1, child 4   -> "/Project/Computation"        (the parameter group)
//        group 1, child 7   -> "/Project/ComputationReport"  (the report's top group)
//    Any other number has no group. Create() makes "/Project" and
//    "/Project/ComputationReport"; it does not create "Computation", so a writer
//    that finds no OpenGroup(1, 4) opens group 1 and creates "Computation" in it,
//    landing on the very group OpenGroup(1, 4) opens afterwards.
//  * Create(path, a, b, c) fails (non-zero) when the file exists; otherwise it makes
//    a new file and stores a, b and c as the unsigned attributes "RSVFormatA",
//    "RSVFormatB" and "RSVFormatC" of the root group.
//  * A table is an HDF5 dataset with a null dataspace and the attribute
//    "NVXObject" = "TABLE"; its items are the dataset's attributes. Item types:
//    int -> 32-bit signed int, double -> IEEE double, bool -> the HDF5 enum
//    {FALSE=0, TRUE=1} over int8 (read by h5py as numpy bool), string ->
//    variable-length UTF-8 string, byte block -> one-dimensional uint8 array
//    (an empty block is stored as a null-dataspace uint8 attribute). Opening
//    takes any dataset with a null dataspace for a table (arrays never have
//    one). A number or bool item holding one value as a one-element array, as
//    other programs may store it, is read as that value and overwritten in
//    place.
//  * Objects are reached through links inside the file only: an external
//    link is never followed (it would open another file).
//  * An array is a chunked dataset with unlimited maximum dimensions (rows, cols)
//    and the attribute "NVXObject" = "ARRAY". Element type codes: 3 = 32-bit
//    signed int, 8 = double; any id returned by BeginCreateCompoundDataType whose
//    definition has been ended is accepted as well (a compound element type).
//  * Open() opens an HDF5 file read-write and falls back to read-only;
//    OpenReadOnly() never opens for writing. Neither touches a file that is not
//    HDF5 (opening an empty file read-write would write a superblock into it).
//    HDF5's automatic error printing is switched off while the tool is in use:
//    an expected miss prints nothing.
//  * Failures of writes, flushes and closes are counted from Create/Open on;
//    Close() reports them, so a caller learns that a file is incomplete even
//    when it did not check every item.
//  * HDF5 libraries are often built without thread-safety: every call into
//    it is serialised by one process-wide lock, so tools may be used from
//    several threads (one tool per thread). HDF5's own clean-up at process exit is switched off
//    (files are closed by the tools), because it would touch a file whose close
//    failed and crash.
//  * Objects returned by Open*/Create* belong to the tool and stay valid until the
//    matching Close* call or until the tool is closed or destroyed, which releases
//    everything still open. Close* of a null pointer is a no-op.
//
// Results: int results are 0 on success and non-zero on failure unless stated.
#ifndef NVX3DRSVEXTOOL_H_
#define NVX3DRSVEXTOOL_H_

#include <cstdint>
#include <memory>
#include <string>

#include "NVX3DRSVExToolExport.h"

namespace NVX3DRSVExTool {

// Element type codes of arrays.
constexpr int kRSVTypeInt32 = 3;
constexpr int kRSVTypeDouble = 8;

class CRSVTool;

// Anything that can carry attributes (groups, tables, arrays).
class NVX_RSV_API CRSVObject {
 public:
  CRSVObject(const CRSVObject&) = delete;
  CRSVObject& operator=(const CRSVObject&) = delete;
  virtual ~CRSVObject();

  // The HDF5 identifier (hid_t) of the object; for the tool's own use.
  std::int64_t Handle() const { return m_id; }

 protected:
  explicit CRSVObject(std::int64_t id) : m_id(id) {}
  // Counts a non-zero result `rc` as a failure of the tool that owns the object.
  int Note(int rc) {
    if (rc != 0 && m_failures != nullptr) ++*m_failures;
    return rc;
  }
  std::int64_t m_id;

 private:
  friend class CRSVTool;
  // Closes the identifier now; 0 on success.
  int CloseId();
  int* m_failures = nullptr;
};

class NVX_RSV_API CRSVGroup : public CRSVObject {
 public:
  explicit CRSVGroup(std::int64_t id) : CRSVObject(id) {}
  ~CRSVGroup() override;
};

// A key/value table of typed items.
class NVX_RSV_API CRSVTable : public CRSVObject {
 public:
  explicit CRSVTable(std::int64_t id) : CRSVObject(id) {}
  ~CRSVTable() override;

  // Store or replace the item `name`; an item of the same name is replaced even
  // when its type differs. Return 0 on success.
  int SetItem(const std::string& name, int value);
  int SetItem(const std::string& name, double value);
  int SetItem(const std::string& name, bool value);
  int SetItem(const std::string& name, const std::string& value);
  // A string literal is text, never a bool.
  int SetItem(const std::string& name, const char* value) {
    return SetItem(name, std::string(value ? value : ""));
  }
  int SetItem(const std::string& name, std::uint64_t size, const void* bytes);

  // Fill the target when the item exists and return whether it did. Numeric
  // items convert between int and double as HDF5 converts them; a string item
  // is not read into a number and a number not into a string.
  bool GetItem(const std::string& name, int* value);
  bool GetItem(const std::string& name, double* value);
  bool GetItem(const std::string& name, bool* value);
  bool GetItem(const std::string& name, std::string* value);
  // A byte block: *bytes receives a buffer owned by the table, valid until the
  // next byte-block GetItem on this table or until the table is closed.
  bool GetItem(const std::string& name, std::uint64_t* size, const void** bytes);

  // Commit the items to the file: they are written out when the file is
  // closed; 0 unless the table is no longer open.
  int Flush();

 private:
  std::unique_ptr<unsigned char[]> m_bytes;  // buffer of the last byte-block read
};

// A two-dimensional typed array.
class NVX_RSV_API CRSVArray : public CRSVObject {
 public:
  CRSVArray(std::int64_t id, int elementType) : CRSVObject(id), m_elementType(elementType) {}
  ~CRSVArray() override;

  int GetDimension(std::uint64_t* rows, std::uint64_t* cols);
  // kRSVTypeInt32, kRSVTypeDouble, or the compound type id the array was made with
  // (a compound array opened from a file reports -1).
  int GetElementType() const { return m_elementType; }
  int ResetDimension(std::uint64_t rows, std::uint64_t cols);
  // `dst` holds rows * cols * element size bytes.
  int ReadArray(void* dst);
  // `src` holds rows * cols * element size bytes.
  int WriteArray(const void* src);
  // The first `rows` rows (all columns) only; `dst`/`src` holds rows * cols *
  // element size bytes. Fails when the array has fewer rows. They let a caller
  // size its buffer from what it expects rather than from what a file claims.
  int ReadRows(std::uint64_t rows, void* dst);
  int WriteRows(std::uint64_t rows, const void* src);

 private:
  int m_elementType;
};

class NVX_RSV_API CRSVTool {
 public:
  CRSVTool();
  ~CRSVTool();
  CRSVTool(const CRSVTool&) = delete;
  CRSVTool& operator=(const CRSVTool&) = delete;

  // New file with group 1 and its child 7; fails (non-zero) if the file exists.
  // Create and Open first close a file the tool still has open.
  int Create(const std::string& path, unsigned a, unsigned b, unsigned c);
  // Existing HDF5 file, read-write or else read-only.
  int Open(const std::string& path);
  // Existing HDF5 file, read-only.
  int OpenReadOnly(const std::string& path);
  // Releases every object still open and closes the file. Non-zero when a
  // write, flush or close failed since the file was created or opened: the
  // file on disk may then be incomplete.
  int Close();
  bool IsReadOnly() const { return m_readOnly; }
  // Failed writes, flushes and closes since Create/Open, as Close will report
  // them; a caller can stop early without closing first.
  int FailureCount() const;
  // Whether `path` is an HDF5 file; reads its signature and changes nothing.
  static bool IsHdf5File(const std::string& path);

  // Open* return null when the object is missing or of another kind; Create*
  // return null when the name is already taken. A group name may end in one
  // "/" ("Sequence/" names the group "Sequence").
  CRSVGroup* OpenGroup(int group);
  CRSVGroup* OpenGroup(int group, int child);
  CRSVGroup* OpenGroup(CRSVGroup* parent, std::string name);
  CRSVGroup* CreateGroup(CRSVGroup* parent, std::string name);
  // The Close* calls return non-zero when HDF5 fails to close the object.
  int CloseGroup(CRSVGroup* group);

  CRSVTable* OpenTable(CRSVGroup* group, const std::string& name);
  CRSVTable* CreateTable(CRSVGroup* group, const std::string& name);
  int CloseTable(CRSVTable* table);

  CRSVArray* OpenArray(CRSVGroup* group, const std::string& name);
  CRSVArray* CreateArray(CRSVGroup* group, const std::string& name, int elementType,
                         std::uint64_t rows, std::uint64_t cols);
  int CloseArray(CRSVArray* array);

  // Compound record types, built one at a time: Begin returns the new type's id
  // (negative on failure); the Add calls extend the type being built; End closes
  // the definition and returns 0 on success. The id stays valid until the tool
  // is closed. Member type codes as for arrays (3 int32, 8 double).
  int BeginCreateCompoundDataType(std::uint64_t size);
  int AddCompoundDataTypeMember(const std::string& name, int typeCode, std::uint64_t offset);
  int AddCompoundDataTypeFixedLengthStringMember(const std::string& name, std::uint64_t offset,
                                                 std::uint64_t length);
  int EndCreateCompoundDataType();

  // A string attribute on a group, table or array; replaces one of the same name.
  int WriteAttribute(CRSVObject* object, const std::string& name, const std::string& text);
  // Reads a string attribute; false when missing.
  bool ReadAttribute(CRSVObject* object, const std::string& name, std::string* text);

 private:
  struct State;
  int OpenFile(const std::string& path, bool writable);

  std::unique_ptr<State> m_state;
  bool m_readOnly = false;
};

}  // namespace NVX3DRSVExTool

#endif  // NVX3DRSVEXTOOL_H_
