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

// Variable-length texts are not kept in their attribute but in the file's
// global heap, one heap object per text, which the attribute refers to.
// Neither deleting an attribute nor (with older libraries) overwriting it
// frees that object, and a text left behind stays in the file for good.
// FreeStoredTexts frees them: it reads the attribute through a conversion of
// our own, into an opaque type carrying kReferenceTag, which receives the
// stored references unchanged together with the datatype they are stored in,
// and has HDF5 overwrite them with null texts of that datatype, which frees
// the heap objects they name. It must happen within the conversion: the
// stored datatype is not handed out otherwise.
constexpr const char* kReferenceTag = "NVX variable-length text reference";

// Set while FreeStoredTexts reads an attribute: what the conversion freed
// (HDF5 may convert the attribute's elements in several pieces). Reads run
// under the HDF5 lock, so one slot serves the process.
struct FreedTexts {
  bool some = false;
  bool failed = false;
};
FreedTexts* g_freedTexts = nullptr;

// Frees the heap objects named by `count` stored references of `size` bytes
// each at `references`, which are of the stored datatype `stored`.
bool FreeReferences(hid_t stored, std::size_t count, std::size_t size, const void* references) {
  // A copy of the stored type is a memory type of the same character set;
  // its null texts convert into null references, and the conversion frees
  // the objects named by the references it overwrites (the background).
  Hid memoryType = TypeId(H5Tcopy(stored));
  if (!memoryType.valid()) return false;
  const std::size_t element = std::max(size, H5Tget_size(memoryType.get()));
  std::vector<unsigned char> nulls(count * element, 0);
  const auto* first = static_cast<const unsigned char*>(references);
  std::vector<unsigned char> background(first, first + count * size);
  return H5Tconvert(memoryType.get(), stored, count, nulls.data(), background.data(),
                    H5P_DEFAULT) >= 0;
}

// Converts stored variable-length strings into our opaque type of the same
// size, leaving the bytes as they are, and frees the texts they name. Any
// other pair of types is refused, so that the conversion never takes part in
// the conversions of anybody else.
herr_t ReferenceConversion(hid_t source, hid_t destination, H5T_cdata_t* cdata, size_t count,
                           size_t stride, size_t, void* buffer, void*, hid_t) {
  switch (cdata->command) {
    case H5T_CONV_INIT: {
      if (H5Tget_class(destination) != H5T_OPAQUE || H5Tis_variable_str(source) <= 0 ||
          H5Tget_size(source) != H5Tget_size(destination)) {
        return -1;
      }
      char* tag = H5Tget_tag(destination);
      const bool ours = tag != nullptr && std::strcmp(tag, kReferenceTag) == 0;
      H5free_memory(tag);
      if (!ours) return -1;
      cdata->need_bkg = H5T_BKG_NO;
      return 0;
    }
    case H5T_CONV_CONV: {
      const std::size_t size = H5Tget_size(source);
      if (g_freedTexts == nullptr || count == 0) return 0;
      if (size > 0 && (stride == 0 || stride == size) &&
          FreeReferences(source, count, size, buffer)) {
        g_freedTexts->some = true;
      } else {
        g_freedTexts->failed = true;
      }
      return 0;
    }
    default:
      return 0;
  }
}

// The conversion is registered only while it is used: the library may be
// unloaded before HDF5 is, which must then hold no pointer into it.
class ReferenceConversionScope {
 public:
  ReferenceConversionScope(hid_t source, hid_t destination)
      : m_source(source), m_destination(destination) {
    m_registered =
        H5Tregister(H5T_PERS_SOFT, kReferenceTag, source, destination, ReferenceConversion) >= 0;
  }
  ~ReferenceConversionScope() {
    if (m_registered) {
      H5Tunregister(H5T_PERS_SOFT, kReferenceTag, m_source, m_destination, ReferenceConversion);
    }
  }
  ReferenceConversionScope(const ReferenceConversionScope&) = delete;
  ReferenceConversionScope& operator=(const ReferenceConversionScope&) = delete;
  bool registered() const { return m_registered; }

 private:
  hid_t m_source;
  hid_t m_destination;
  bool m_registered = false;
};

// Frees the texts of `attr` when it holds variable-length strings, after
// which it must be deleted or written before anything reads it. True when
// texts were freed; false when there were none (other types keep their
// values in the attribute, and an attribute never written holds none) or
// not all of them could be freed.
bool FreeStoredTexts(hid_t attr) {
  Hid type = TypeId(H5Aget_type(attr));
  Hid space = SpaceId(H5Aget_space(attr));
  if (!type.valid() || !space.valid() || H5Tis_variable_str(type.get()) <= 0) return false;
  const hssize_t count = H5Sget_simple_extent_npoints(space.get());
  const hsize_t bytes = H5Aget_storage_size(attr);
  if (count <= 0 || bytes == 0 || bytes % static_cast<hsize_t>(count) != 0) return false;

  Hid raw = TypeId(
      H5Tcreate(H5T_OPAQUE, static_cast<std::size_t>(bytes) / static_cast<std::size_t>(count)));
  if (!raw.valid() || H5Tset_tag(raw.get(), kReferenceTag) < 0) return false;
  ReferenceConversionScope scope(type.get(), raw.get());
  if (!scope.registered()) return false;
  std::vector<unsigned char> references(static_cast<std::size_t>(bytes));
  FreedTexts freed;
  g_freedTexts = &freed;
  H5Aread(attr, raw.get(), references.data());
  g_freedTexts = nullptr;
  return freed.some && !freed.failed;
}

// Whether a text of `bytes` bytes (with its NUL), written into an attribute
// of a new file held in memory and then replaced by four others of that size,
// by overwriting the attribute or by deleting and recreating it, stays in the
// file: the file then grows by the room of at least two more texts. Where the
// library frees the texts, they take the room of those they replace (give or
// take one new heap collection). Nothing of the file reaches the disk.
bool RewritesKeepTexts(std::size_t bytes, bool recreate) {
  Hid fapl = PlistId(H5Pcreate(H5P_FILE_ACCESS));
  if (!fapl.valid() || H5Pset_fapl_core(fapl.get(), 4096, false) < 0) return false;
  Hid file(H5Fcreate("nvx-text-rewrite-probe.h5", H5F_ACC_TRUNC, H5P_DEFAULT, fapl.get()),
           H5Fclose);
  const char* const kName = "text";
  const hid_t type = Utf8StringType();
  const hid_t space = ScalarSpace();
  if (!file.valid() || type < 0 || space < 0) return false;
  Hid attr = AttrId(H5Acreate2(file.get(), kName, type, space, H5P_DEFAULT, H5P_DEFAULT));
  std::string text(bytes - 1, 'a');
  const char* data = text.c_str();
  // The size of the file's image is where its allocated space ends.
  const ssize_t before = attr.valid() && H5Awrite(attr.get(), type, &data) >= 0
                             ? H5Fget_file_image(file.get(), nullptr, 0)
                             : -1;
  if (before < 0) return false;
  for (char c : {'b', 'c', 'd', 'e'}) {
    if (recreate) {
      attr.Reset();
      if (H5Adelete(file.get(), kName) < 0) return false;
      attr = AttrId(H5Acreate2(file.get(), kName, type, space, H5P_DEFAULT, H5P_DEFAULT));
    }
    text.assign(bytes - 1, c);
    data = text.c_str();
    if (!attr.valid() || H5Awrite(attr.get(), type, &data) < 0) return false;
  }
  const ssize_t after = H5Fget_file_image(file.get(), nullptr, 0);
  return after >= before && static_cast<std::size_t>(after - before) >= 2 * bytes;
}

// What this HDF5 library does with the old text of a variable-length string
// attribute that is overwritten or deleted: older libraries keep it in the
// file in both cases, newer ones free it on overwriting, and freeing a text
// twice would corrupt the heap. Found out once; where that fails, texts are
// taken to be freed by the library. Callers hold the HDF5 lock.
struct KeptTexts {
  bool onOverwrite = false;
  bool onDelete = false;
};
const KeptTexts& LibraryKeepsTexts() {
  static KeptTexts kept;
  static bool probed = false;
  if (!probed) {
    probed = true;
    constexpr std::size_t kTextBytes = 3000;
    kept.onOverwrite = RewritesKeepTexts(kTextBytes, false);
    kept.onDelete = RewritesKeepTexts(kTextBytes, true);
  }
  return kept;
}

// A new attribute `name`; one of that name that could not be used (another
// type or extent, or one that would not open) is deleted first, together
// with the texts it held.
Hid ReplaceAttribute(hid_t object, const std::string& name, hid_t type, hid_t space) {
  if (H5Aexists(object, name.c_str()) > 0) {
    Hid old = OpenAttribute(object, name);
    if (old.valid() && LibraryKeepsTexts().onDelete) FreeStoredTexts(old.get());
    old.Reset();
    if (H5Adelete(object, name.c_str()) < 0) return {};
  }
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
  // One look at the stored item. An unchanged text of this very type is not
  // written again and a changed one is written in place; any other item is
  // replaced.
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
      // Where the library keeps the old text, it is freed first, so that the
      // new one can take its room.
      const bool freed = LibraryKeepsTexts().onOverwrite && FreeStoredTexts(attr.get());
      if (H5Awrite(attr.get(), type, &data) >= 0) return 0;
      // The item must not name a text that is gone.
      if (freed) {
        attr.Reset();
        H5Adelete(object, name.c_str());
      }
      return -1;
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
