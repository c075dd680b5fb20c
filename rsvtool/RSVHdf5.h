// Internal helpers of the RSV tool: owned HDF5 identifiers and the attribute
// reads and writes shared by tables, arrays and the tool. Not installed.
#ifndef RSVTOOL_RSVHDF5_H_
#define RSVTOOL_RSVHDF5_H_

#include <hdf5.h>

#include <cstddef>
#include <initializer_list>
#include <mutex>
#include <string>

namespace NVX3DRSVExTool {
namespace detail {

// Attribute that tells tables and arrays apart from other datasets.
constexpr const char* kMarkerName = "NVXObject";
constexpr const char* kTableMarker = "TABLE";
constexpr const char* kArrayMarker = "ARRAY";

// An HDF5 identifier closed by the matching close function when it goes out of scope.
class Hid {
 public:
  using Closer = herr_t (*)(hid_t);

  Hid() = default;
  Hid(hid_t id, Closer closer) : m_id(id), m_closer(closer) {}
  Hid(Hid&& other) noexcept : m_id(other.m_id), m_closer(other.m_closer) {
    other.m_id = H5I_INVALID_HID;
  }
  Hid& operator=(Hid&& other) noexcept {
    if (this != &other) {
      Reset();
      m_id = other.m_id;
      m_closer = other.m_closer;
      other.m_id = H5I_INVALID_HID;
    }
    return *this;
  }
  Hid(const Hid&) = delete;
  Hid& operator=(const Hid&) = delete;
  ~Hid() { Reset(); }

  hid_t get() const { return m_id; }
  bool valid() const { return m_id >= 0; }
  // Hands the identifier over to the caller, who closes it from then on.
  hid_t Release() {
    hid_t id = m_id;
    m_id = H5I_INVALID_HID;
    return id;
  }
  void Reset() { Close(); }
  // Closes the identifier; 0 on success (also when there was none).
  int Close() {
    const hid_t id = Release();
    if (id < 0 || !m_closer) return 0;
    return m_closer(id) < 0 ? -1 : 0;
  }

 private:
  hid_t m_id = H5I_INVALID_HID;
  Closer m_closer = nullptr;
};

inline Hid TypeId(hid_t id) { return Hid(id, H5Tclose); }
inline Hid SpaceId(hid_t id) { return Hid(id, H5Sclose); }
inline Hid AttrId(hid_t id) { return Hid(id, H5Aclose); }
inline Hid PlistId(hid_t id) { return Hid(id, H5Pclose); }
inline Hid ObjectId(hid_t id) { return Hid(id, H5Oclose); }

// HDF5 libraries built without thread-safety must never be entered from two
// threads at once: every call into it is made under this one process-wide
// lock (redundant, and harmless, where the library has its own). It is
// recursive because public calls of the tool use each other.
std::recursive_mutex& Hdf5Mutex();
using Hdf5Lock = std::lock_guard<std::recursive_mutex>;

// Starts the HDF5 library once, without its clean-up at process exit: that
// clean-up closes again a file whose close failed and crashes.
void StartLibrary();

// Keeps HDF5's automatic error printing off while at least one instance lives
// (in this thread, where HDF5 keeps the setting per thread); the handler found
// by the first instance is restored when the last one goes.
class ErrorSilencer {
 public:
  ErrorSilencer();
  ~ErrorSilencer();
  ErrorSilencer(const ErrorSilencer&) = delete;
  ErrorSilencer& operator=(const ErrorSilencer&) = delete;
};

// A single link name: not empty, no path separator, not ".".
bool IsLinkName(const std::string& name);

// A link access property list that refuses to follow external links, which
// would silently open other files; links inside the file are followed.
Hid InFileLinkAccess();

// Opens the object `name` directly below `loc` when it exists, is reached
// through links inside this file (`lapl` from InFileLinkAccess) and is of HDF5
// kind `kind`; invalid otherwise.
Hid OpenChild(hid_t loc, const std::string& name, H5I_type_t kind, hid_t lapl);

// Opens attribute `name` of `object` when it exists; invalid otherwise.
Hid OpenAttribute(hid_t object, const std::string& name);

// Writes attribute `name` of `object` with the given file type and dataspace from
// `buffer` in `memType`; a null `buffer` stands for a null dataspace, of which
// nothing is written. An attribute of the same name is overwritten in place
// when its type and extent match, and deleted and recreated otherwise.
// Returns 0 on success.
int PutAttribute(hid_t object, const std::string& name, hid_t fileType, hid_t space, hid_t memType,
                 const void* buffer);

// Writes attribute `name` of `object` as one value: `value` in `memType`, stored
// as `fileType` (both of `size` bytes) with a scalar dataspace. An attribute
// of that type holding one value is overwritten in place (its dataspace kept:
// scalar, or one element as h5py stores a one-element array), any other is
// deleted and recreated. Returns 0 on success. The typed form passes the
// size of its value.
int PutScalarAttribute(hid_t object, const std::string& name, hid_t fileType, hid_t memType,
                       std::size_t size, const void* value);
template <class T>
int PutScalarAttribute(hid_t object, const std::string& name, hid_t fileType, hid_t memType,
                       const T* value) {
  return PutScalarAttribute(object, name, fileType, memType, sizeof(T), value);
}

// Reads an attribute holding one value (scalar, or an array of one element)
// into `out` through `memType`, a memory type of `size` bytes (at most
// kMaxScalarSize), when its type class is one of `classes`; `out` is untouched
// on failure. The typed form passes the size of its target.
constexpr std::size_t kMaxScalarSize = 16;
bool GetScalarAttribute(hid_t object, const std::string& name, hid_t memType,
                        std::initializer_list<H5T_class_t> classes, std::size_t size, void* out);
template <class T>
bool GetScalarAttribute(hid_t object, const std::string& name, hid_t memType,
                        std::initializer_list<H5T_class_t> classes, T* out) {
  static_assert(sizeof(T) <= kMaxScalarSize, "a scalar item of at most 16 bytes");
  return GetScalarAttribute(object, name, memType, classes, sizeof(T), out);
}

// Scalar string attributes; written as variable-length UTF-8, read from fixed
// or variable-length strings. The text lives in the file's heap: an attribute
// that already holds `text` is left alone, and the text that a changed one
// replaces is freed (also with HDF5 libraries that keep it on overwriting),
// as are the texts of any attribute deleted to make room for another type.
// So a file rewritten any number of times keeps its size.
int PutStringAttribute(hid_t object, const std::string& name, const std::string& text);
bool GetStringAttribute(hid_t object, const std::string& name, std::string* text);

// Whether the dataset `dataset` is a table, which is the only kind of dataset
// stored with a null dataspace (arrays never are). The marker is not looked
// up: finding an attribute by name costs as much as the rest of the opening.
bool IsTable(hid_t dataset);

// Identifiers every item uses, made once for the process (a dataspace or a
// transient datatype belongs to no file): the scalar dataspace, the bool
// enum {FALSE = 0, TRUE = 1} over int8 and the variable-length UTF-8 string
// type. CheckSharedIds makes them again should the library have been closed
// and reopened since, which ends every identifier; the tool calls it once per
// file it opens, so items need no check of their own. Invalid (negative) when
// they could not be made. Callers hold the HDF5 lock.
hid_t ScalarSpace();
hid_t BoolType();
hid_t Utf8StringType();
void CheckSharedIds();

// The predefined types of int, double and byte-block items, in the file and
// in memory. HDF5's names for them call H5open() on every use; these are
// read once by CheckSharedIds.
struct ItemTypes {
  hid_t intFile = H5I_INVALID_HID;
  hid_t intMemory = H5I_INVALID_HID;
  hid_t doubleFile = H5I_INVALID_HID;
  hid_t doubleMemory = H5I_INVALID_HID;
  hid_t byteFile = H5I_INVALID_HID;
  hid_t byteMemory = H5I_INVALID_HID;
};
const ItemTypes& PredefinedItemTypes();

}  // namespace detail
}  // namespace NVX3DRSVExTool

#endif  // RSVTOOL_RSVHDF5_H_
