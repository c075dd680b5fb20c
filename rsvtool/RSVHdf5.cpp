// Owned identifiers, the HDF5 lock, attribute reads and writes.
#include "RSVHdf5.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <vector>

namespace NVX3DRSVExTool {
namespace detail {
namespace {

struct SilencerState {
  int users = 0;
  H5E_auto2_t savedFunc = nullptr;
  void* savedData = nullptr;
};

// A thread-safe HDF5 library keeps the error printing per thread, so the
// silencer does too; otherwise it is one setting for the process.
SilencerState& Silencer() {
#ifdef H5_HAVE_THREADSAFE
  thread_local SilencerState state;
#else
  static SilencerState state;
#endif
  return state;
}

Hid VariableStringType(H5T_cset_t cset) {
  Hid type = TypeId(H5Tcopy(H5T_C_S1));
  if (!type.valid() || H5Tset_size(type.get(), H5T_VARIABLE) < 0 ||
      H5Tset_cset(type.get(), cset) < 0) {
    return {};
  }
  return type;
}

}  // namespace

std::recursive_mutex& Hdf5Mutex() {
  static std::recursive_mutex mutex;
  return mutex;
}

void StartLibrary() {
  static std::once_flag once;
  std::call_once(once, [] {
    Hdf5Lock lock(Hdf5Mutex());
    // Fails harmlessly when the host started the library already.
    H5dont_atexit();
    H5open();
  });
}

ErrorSilencer::ErrorSilencer() {
  StartLibrary();
  SilencerState& s = Silencer();
  Hdf5Lock lock(Hdf5Mutex());
  if (s.users++ == 0) {
    if (H5Eget_auto2(H5E_DEFAULT, &s.savedFunc, &s.savedData) < 0) {
      s.savedFunc = nullptr;
      s.savedData = nullptr;
    }
    H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr);
  }
}

ErrorSilencer::~ErrorSilencer() {
  SilencerState& s = Silencer();
  Hdf5Lock lock(Hdf5Mutex());
  if (--s.users == 0) H5Eset_auto2(H5E_DEFAULT, s.savedFunc, s.savedData);
}

bool IsLinkName(const std::string& name) {
  return !name.empty() && name != "." && name.find('/') == std::string::npos;
}

namespace {

herr_t RefuseExternalLink(const char*, const char*, const char*, const char*, unsigned*, hid_t,
                          void*) {
  return -1;
}

}  // namespace

Hid InFileLinkAccess() {
  Hid lapl = PlistId(H5Pcreate(H5P_LINK_ACCESS));
  if (!lapl.valid() || H5Pset_elink_cb(lapl.get(), RefuseExternalLink, nullptr) < 0) return {};
  return lapl;
}

// Opening is the existence check (it fails for a missing name); `lapl` keeps
// it inside this file, where a separate look at the link would cost as much
// as the opening itself.
Hid OpenChild(hid_t loc, const std::string& name, H5I_type_t kind, hid_t lapl) {
  if (loc < 0 || lapl < 0 || !IsLinkName(name)) return {};
  Hid object = ObjectId(H5Oopen(loc, name.c_str(), lapl));
  if (!object.valid() || H5Iget_type(object.get()) != kind) return {};
  return object;
}

// Opening is the existence check: it fails for a missing attribute, and a
// separate H5Aexists would search the object's attributes a second time.
Hid OpenAttribute(hid_t object, const std::string& name) {
  if (object < 0 || name.empty()) return {};
  return AttrId(H5Aopen(object, name.c_str(), H5P_DEFAULT));
}

namespace {

// A new attribute `name`; one of that name that could not be used (another
// type or extent, or one that would not open) is deleted first.
Hid ReplaceAttribute(hid_t object, const std::string& name, hid_t type, hid_t space) {
  if (H5Aexists(object, name.c_str()) > 0 && H5Adelete(object, name.c_str()) < 0) return {};
  return AttrId(H5Acreate2(object, name.c_str(), type, space, H5P_DEFAULT, H5P_DEFAULT));
}

}  // namespace

int PutAttribute(hid_t object, const std::string& name, hid_t fileType, hid_t space, hid_t memType,
                 const void* buffer) {
  if (object < 0 || name.empty() || fileType < 0 || space < 0 || memType < 0) return -1;
  const bool nullSpace = buffer == nullptr;

  Hid attr = OpenAttribute(object, name);
  if (attr.valid()) {
    Hid oldType = TypeId(H5Aget_type(attr.get()));
    Hid oldSpace = SpaceId(H5Aget_space(attr.get()));
    if (oldType.valid() && oldSpace.valid() && H5Tequal(oldType.get(), fileType) > 0 &&
        H5Sextent_equal(oldSpace.get(), space) > 0) {
      if (nullSpace) return 0;
      return H5Awrite(attr.get(), memType, buffer) < 0 ? -1 : 0;
    }
    attr.Reset();
  }
  attr = ReplaceAttribute(object, name, fileType, space);
  if (!attr.valid()) return -1;
  if (nullSpace) return 0;
  return H5Awrite(attr.get(), memType, buffer) < 0 ? -1 : 0;
}

namespace {

// Whether the open attribute `attr`, of a fixed-size type of `size` bytes,
// holds exactly one value. Its stored size tells that without a copy of its
// dataspace, which costs as much as the write of the value itself.
bool HoldsOneValue(hid_t attr, std::size_t size) {
  return size > 0 && H5Aget_storage_size(attr) == size;
}

}  // namespace

int PutScalarAttribute(hid_t object, const std::string& name, hid_t fileType, hid_t memType,
                       std::size_t size, const void* value) {
  const hid_t space = ScalarSpace();
  if (object < 0 || name.empty() || fileType < 0 || memType < 0 || space < 0 || value == nullptr) {
    return -1;
  }
  Hid attr = OpenAttribute(object, name);
  if (attr.valid()) {
    Hid oldType = TypeId(H5Aget_type(attr.get()));
    if (oldType.valid() && H5Tequal(oldType.get(), fileType) > 0 &&
        HoldsOneValue(attr.get(), size)) {
      return H5Awrite(attr.get(), memType, value) < 0 ? -1 : 0;
    }
    attr.Reset();
  }
  attr = ReplaceAttribute(object, name, fileType, space);
  if (!attr.valid()) return -1;
  return H5Awrite(attr.get(), memType, value) < 0 ? -1 : 0;
}

bool GetScalarAttribute(hid_t object, const std::string& name, hid_t memType,
                        std::initializer_list<H5T_class_t> classes, std::size_t size, void* out) {
  if (out == nullptr || memType < 0 || size == 0 || size > kMaxScalarSize) return false;
  Hid attr = OpenAttribute(object, name);
  if (!attr.valid()) return false;
  Hid type = TypeId(H5Aget_type(attr.get()));
  if (!type.valid()) return false;
  // Numbers and enums are of fixed size; one value of them fills exactly one
  // element of `out`.
  const H5T_class_t cls = H5Tget_class(type.get());
  if (std::find(classes.begin(), classes.end(), cls) == classes.end()) return false;
  if (!HoldsOneValue(attr.get(), H5Tget_size(type.get()))) return false;

  // Read into a staging buffer so `out` stays untouched when the read fails.
  unsigned char staging[kMaxScalarSize];
  if (H5Aread(attr.get(), memType, staging) < 0) return false;
  std::memcpy(out, staging, size);
  return true;
}

int PutStringAttribute(hid_t object, const std::string& name, const std::string& text) {
  const hid_t type = Utf8StringType();
  const hid_t space = ScalarSpace();
  if (object < 0 || name.empty() || type < 0 || space < 0) return -1;
  const char* data = text.c_str();
  // One look at the stored item. Every rewrite of a variable-length string
  // leaves its old text behind in the file's heap, so an unchanged text of
  // this very type is not written again and a changed one is written in
  // place; any other item is replaced.
  Hid attr = OpenAttribute(object, name);
  if (attr.valid()) {
    Hid oldType = TypeId(H5Aget_type(attr.get()));
    Hid oldSpace = SpaceId(H5Aget_space(attr.get()));
    if (oldType.valid() && oldSpace.valid() && H5Tequal(oldType.get(), type) > 0 &&
        H5Sget_simple_extent_type(oldSpace.get()) == H5S_SCALAR) {
      char* stored = nullptr;
      if (H5Aread(attr.get(), type, &stored) >= 0) {
        const bool same = text == (stored ? stored : "");
        H5free_memory(stored);
        if (same) return 0;
      }
      return H5Awrite(attr.get(), type, &data) < 0 ? -1 : 0;
    }
    attr.Reset();
  }
  attr = ReplaceAttribute(object, name, type, space);
  if (!attr.valid()) return -1;
  return H5Awrite(attr.get(), type, &data) < 0 ? -1 : 0;
}

bool GetStringAttribute(hid_t object, const std::string& name, std::string* text) {
  if (text == nullptr) return false;
  Hid attr = OpenAttribute(object, name);
  if (!attr.valid()) return false;
  Hid type = TypeId(H5Aget_type(attr.get()));
  Hid space = SpaceId(H5Aget_space(attr.get()));
  if (!type.valid() || !space.valid() || H5Tget_class(type.get()) != H5T_STRING ||
      H5Sget_simple_extent_type(space.get()) != H5S_SCALAR) {
    return false;
  }
  // The memory type keeps the stored character set so HDF5 needs no conversion.
  const H5T_cset_t cset = H5Tget_cset(type.get());
  const htri_t variable = H5Tis_variable_str(type.get());
  if (cset < 0 || variable < 0) return false;

  if (variable > 0) {
    Hid own = cset == H5T_CSET_UTF8 ? Hid() : VariableStringType(cset);
    const hid_t memType = cset == H5T_CSET_UTF8 ? Utf8StringType() : own.get();
    char* data = nullptr;
    if (memType < 0 || H5Aread(attr.get(), memType, &data) < 0) return false;
    std::string value = data ? data : "";
    H5free_memory(data);
    *text = std::move(value);
    return true;
  }

  const size_t size = H5Tget_size(type.get());
  const H5T_str_t pad = H5Tget_strpad(type.get());
  if (size == 0 || pad < 0) return false;
  Hid memType = TypeId(H5Tcopy(type.get()));
  std::vector<char> buffer(size + 1, '\0');
  if (!memType.valid() || H5Aread(attr.get(), memType.get(), buffer.data()) < 0) return false;
  std::string value(buffer.begin(), std::find(buffer.begin(), buffer.begin() + size, '\0'));
  if (pad == H5T_STR_SPACEPAD) value.erase(value.find_last_not_of(' ') + 1);
  *text = std::move(value);
  return true;
}

bool IsTable(hid_t dataset) {
  Hid space = SpaceId(H5Dget_space(dataset));
  return space.valid() && H5Sget_simple_extent_type(space.get()) == H5S_NULL;
}

namespace {

// bool items: the enum {FALSE = 0, TRUE = 1} over int8, which is how numpy
// bools are commonly stored and read back.
Hid MakeBoolType() {
  Hid type = TypeId(H5Tenum_create(H5T_NATIVE_INT8));
  if (!type.valid()) return {};
  const signed char no = 0;
  const signed char yes = 1;
  if (H5Tenum_insert(type.get(), "FALSE", &no) < 0 ||
      H5Tenum_insert(type.get(), "TRUE", &yes) < 0) {
    return {};
  }
  return type;
}

struct SharedIds {
  hid_t scalarSpace = H5I_INVALID_HID;
  hid_t boolType = H5I_INVALID_HID;
  hid_t utf8Type = H5I_INVALID_HID;
  ItemTypes predefined;
};
SharedIds g_shared;

void Renew(hid_t* id, Hid (*make)()) {
  if (*id < 0 || H5Iis_valid(*id) <= 0) *id = make().Release();
}

// A locked datatype is read-only, as HDF5's predefined ones are: it cannot
// be changed or closed, and it is not counted among the open objects a host
// may look at to find leaks. The library frees it when it closes.
Hid Locked(Hid type) {
  if (!type.valid() || H5Tlock(type.get()) < 0) return {};
  return Hid(type.Release(), nullptr);
}

}  // namespace

hid_t ScalarSpace() { return g_shared.scalarSpace; }
hid_t BoolType() { return g_shared.boolType; }
hid_t Utf8StringType() { return g_shared.utf8Type; }
const ItemTypes& PredefinedItemTypes() { return g_shared.predefined; }

void CheckSharedIds() {
  Renew(&g_shared.scalarSpace, [] { return SpaceId(H5Screate(H5S_SCALAR)); });
  Renew(&g_shared.boolType, [] { return Locked(MakeBoolType()); });
  Renew(&g_shared.utf8Type, [] { return Locked(VariableStringType(H5T_CSET_UTF8)); });
  g_shared.predefined = {H5T_STD_I32LE,     H5T_NATIVE_INT, H5T_IEEE_F64LE,
                         H5T_NATIVE_DOUBLE, H5T_STD_U8LE,   H5T_NATIVE_UINT8};
}

}  // namespace detail
}  // namespace NVX3DRSVExTool
