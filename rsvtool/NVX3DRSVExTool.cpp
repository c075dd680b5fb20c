// The tool: the file, its numbered groups, creation and opening of groups, tables
// and arrays, compound record types and string attributes.
#include "NVX3DRSVExTool.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <map>
#include <vector>

#include "RSVHdf5.h"
#include "RSVMemoryFiles.h"

namespace NVX3DRSVExTool {

using detail::Hdf5Lock;
using detail::Hdf5Mutex;
using detail::Hid;

namespace {

// Compound type ids start well above the element type codes so the two never meet.
constexpr int kFirstCompoundId = 100;

struct NumberedGroup {
  int group;
  int child;  // 0: the group itself
  std::vector<const char*> path;
};

const std::vector<NumberedGroup>& NumberedGroups() {
  static const std::vector<NumberedGroup> groups = {
      {1, 0, {"Project"}},
      {1, 4, {"Project", "Computation"}},
      {1, 7, {"Project", "ComputationReport"}},
  };
  return groups;
}

// Objects of the 1.8 format at the least: their headers can move attributes to
// dense storage, which large byte blocks and many items need. Invalid when
// in-memory files are on and `path` cannot be created (exists) or opened
// (does not) in memory.
Hid FileAccess(const std::string& path, bool create) {
  Hid fapl = detail::PlistId(H5Pcreate(H5P_FILE_ACCESS));
  if (!fapl.valid() || H5Pset_libver_bounds(fapl.get(), H5F_LIBVER_V18, H5F_LIBVER_LATEST) < 0) {
    return {};
  }
  if (memory_files::Enabled()) {
    if (!memory_files::SetFileAccess(fapl.get(), path, create)) return {};
    return fapl;
  }
#if (H5_VERS_MAJOR == 1 && H5_VERS_MINOR == 10 && H5_VERS_RELEASE >= 7) || \
    (H5_VERS_MAJOR == 1 && H5_VERS_MINOR == 12 && H5_VERS_RELEASE >= 1) || H5_VERSION_GE(1, 13, 0)
  // Lock where the file system supports it, but do not refuse files where it does not.
  H5Pset_file_locking(fapl.get(), true, true);
#endif
  return fapl;
}

int PutUnsignedAttribute(hid_t object, const char* name, unsigned value) {
  return detail::PutScalarAttribute(object, name, H5T_STD_U32LE, H5T_NATIVE_UINT, &value);
}

bool MakeGroup(hid_t parent, const char* name) {
  Hid group(H5Gcreate2(parent, name, H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT), H5Gclose);
  return group.valid();
}

// Chunks of up to 64 KiB; every chunk dimension is at least 1, also for empty arrays.
void ChunkDims(std::uint64_t rows, std::uint64_t cols, std::size_t elementSize, hsize_t chunk[2]) {
  constexpr hsize_t kChunkBytes = 64 * 1024;
  constexpr hsize_t kRowsOfEmptyArray = 64;
  const hsize_t perChunk =
      std::max<hsize_t>(kChunkBytes / std::max<std::size_t>(elementSize, 1), 1);
  chunk[1] = std::clamp<hsize_t>(cols, 1, perChunk);
  chunk[0] = std::clamp<hsize_t>(perChunk / chunk[1], 1, rows > 0 ? rows : kRowsOfEmptyArray);
}

template <class T>
T* Find(const std::vector<std::unique_ptr<T>>& owned, const void* object) {
  for (const auto& entry : owned) {
    if (entry.get() == object) return entry.get();
  }
  return nullptr;
}

// Hands `id` to a new object kept in `owned`; the id is closed if that fails.
template <class T, class... Args>
T* Adopt(std::vector<std::unique_ptr<T>>& owned, Hid& id, Args... args) {
  auto object = std::make_unique<T>(id.get(), args...);
  id.Release();
  owned.push_back(std::move(object));
  return owned.back().get();
}

template <class T>
void Erase(std::vector<std::unique_ptr<T>>& owned, const void* object) {
  owned.erase(std::remove_if(owned.begin(), owned.end(),
                             [object](const std::unique_ptr<T>& e) { return e.get() == object; }),
              owned.end());
}

}  // namespace

struct CRSVTool::State {
  struct Compound {
    Hid type;
    bool complete = false;
  };

  // Declared first so that it is restored after everything else is released.
  detail::ErrorSilencer silencer;
  Hid file;
  Hid linkAccess;  // made with the file: links are followed inside it only
  std::vector<std::unique_ptr<CRSVGroup>> groups;
  std::vector<std::unique_ptr<CRSVTable>> tables;
  std::vector<std::unique_ptr<CRSVArray>> arrays;
  std::map<int, Compound> compounds;
  int building = -1;  // id of the compound type being defined, -1 if none
  int nextCompoundId = kFirstCompoundId;
  int failures = 0;  // failed writes, flushes and closes since Create/Open

  template <class T, class... Args>
  T* Own(std::vector<std::unique_ptr<T>>& owned, Hid& id, Args... args) {
    T* object = Adopt(owned, id, args...);
    object->m_failures = &failures;
    return object;
  }
  // Closes and forgets one object of `owned`; non-zero when HDF5 failed to
  // close it (counted as a failure as well).
  template <class T>
  int CloseOne(std::vector<std::unique_ptr<T>>& owned, const void* object) {
    T* found = Find(owned, object);
    if (found == nullptr) return 0;
    const int rc = found->CloseId();
    if (rc != 0) ++failures;
    Erase(owned, object);
    return rc;
  }
  template <class T>
  void CloseAll(std::vector<std::unique_ptr<T>>& owned) {
    for (auto& object : owned) {
      if (object->CloseId() != 0) ++failures;
    }
    owned.clear();
  }

  // Pointers are compared, never dereferenced, until they are known to be ours.
  hid_t GroupHandle(const CRSVGroup* group) const {
    const CRSVGroup* owned = Find(groups, group);
    return owned ? owned->Handle() : H5I_INVALID_HID;
  }
  hid_t ObjectHandle(const CRSVObject* object) const {
    if (const CRSVObject* o = Find(groups, object)) return o->Handle();
    if (const CRSVObject* o = Find(tables, object)) return o->Handle();
    if (const CRSVObject* o = Find(arrays, object)) return o->Handle();
    return H5I_INVALID_HID;
  }
  CRSVGroup* AddGroup(Hid id) { return Own(groups, id); }
  CRSVGroup* OpenPath(const std::vector<const char*>& path) {
    if (!file.valid()) return nullptr;
    Hid current = detail::ObjectId(H5Oopen(file.get(), "/", H5P_DEFAULT));
    for (const char* name : path) {
      if (!current.valid()) return nullptr;
      current = detail::OpenChild(current.get(), name, H5I_GROUP, linkAccess.get());
    }
    return current.valid() ? AddGroup(std::move(current)) : nullptr;
  }
};

CRSVTool::CRSVTool() : m_state(std::make_unique<State>()) {}

CRSVTool::~CRSVTool() {
  Hdf5Lock lock(Hdf5Mutex());
  Close();
  m_state.reset();
}

bool CRSVTool::IsHdf5File(const std::string& path) {
  detail::StartLibrary();
  Hdf5Lock lock(Hdf5Mutex());
  detail::ErrorSilencer silencer;
  // Reads the signature only; the file is opened read-only, if at all.
  return !path.empty() && H5Fis_hdf5(path.c_str()) > 0;
}

int CRSVTool::Create(const std::string& path, unsigned a, unsigned b, unsigned c) {
  Hdf5Lock lock(Hdf5Mutex());
  if (m_state->file.valid()) Close();
  if (path.empty()) return -1;
  detail::CheckSharedIds();
  // Exclusive creation: an existing file, RSV or not, is never overwritten.
  // Callers try Create before Open on every write, so a name already taken
  // is refused here without starting HDF5's create (which would fail too).
  std::error_code ec;
  if (std::filesystem::exists(std::filesystem::symlink_status(std::filesystem::u8path(path), ec)))
    return -1;
  Hid fapl = FileAccess(path, true);
  Hid lapl = detail::InFileLinkAccess();
  if (!fapl.valid() || !lapl.valid()) return -1;
  Hid file(H5Fcreate(path.c_str(), H5F_ACC_EXCL, H5P_DEFAULT, fapl.get()), H5Fclose);
  if (!file.valid()) return -1;

  bool ok = false;
  {
    Hid root = detail::ObjectId(H5Oopen(file.get(), "/", H5P_DEFAULT));
    ok = root.valid() && PutUnsignedAttribute(root.get(), "RSVFormatA", a) == 0 &&
         PutUnsignedAttribute(root.get(), "RSVFormatB", b) == 0 &&
         PutUnsignedAttribute(root.get(), "RSVFormatC", c) == 0 &&
         MakeGroup(root.get(), "Project") && MakeGroup(root.get(), "Project/ComputationReport");
  }
  if (!ok) {
    // The file is ours (exclusive creation); do not leave a half-made one behind.
    file.Close();
    std::remove(path.c_str());
    return -1;
  }
  m_state->file = std::move(file);
  m_state->linkAccess = std::move(lapl);
  m_state->failures = 0;
  m_readOnly = false;
  return 0;
}

int CRSVTool::Open(const std::string& path) { return OpenFile(path, true); }

int CRSVTool::OpenReadOnly(const std::string& path) { return OpenFile(path, false); }

int CRSVTool::OpenFile(const std::string& path, bool writable) {
  Hdf5Lock lock(Hdf5Mutex());
  if (m_state->file.valid()) Close();
  // Opening anything but an HDF5 file for writing would make it one (an empty
  // file gets a superblock), so the signature is checked first.
  if (path.empty()) return -1;
  if (memory_files::Enabled() ? !memory_files::IsHdf5Image(path) : H5Fis_hdf5(path.c_str()) <= 0)
    return -1;
  detail::CheckSharedIds();
  Hid fapl = FileAccess(path, false);
  Hid lapl = detail::InFileLinkAccess();
  if (!fapl.valid() || !lapl.valid()) return -1;
  Hid file;
  if (writable) file = Hid(H5Fopen(path.c_str(), H5F_ACC_RDWR, fapl.get()), H5Fclose);
  const bool readOnly = !file.valid();
  if (readOnly) file = Hid(H5Fopen(path.c_str(), H5F_ACC_RDONLY, fapl.get()), H5Fclose);
  if (!file.valid()) return -1;
  m_state->file = std::move(file);
  m_state->linkAccess = std::move(lapl);
  m_state->failures = 0;
  m_readOnly = readOnly;
  return 0;
}

int CRSVTool::Close() {
  Hdf5Lock lock(Hdf5Mutex());
  State& s = *m_state;
  s.CloseAll(s.arrays);
  s.CloseAll(s.tables);
  s.CloseAll(s.groups);
  for (auto& entry : s.compounds) {
    if (entry.second.type.Close() != 0) ++s.failures;
  }
  s.compounds.clear();
  s.building = -1;
  s.linkAccess.Reset();
  if (s.file.valid()) {
    const hid_t file = s.file.Release();
    // An in-memory file's image is all there is of it: kept before closing.
    if (memory_files::Enabled() && !memory_files::KeepImage(file)) ++s.failures;
    // A failed close (a full disk while flushing) leaves HDF5 with a file it
    // has half taken apart; any further call on that identifier crashes, so
    // it is given up rather than closed again.
    if (H5Fclose(file) < 0) ++s.failures;
  }
  const int failures = s.failures;
  s.failures = 0;
  m_readOnly = false;
  return failures == 0 ? 0 : -1;
}

int CRSVTool::FailureCount() const {
  Hdf5Lock lock(Hdf5Mutex());
  return m_state->failures;
}

CRSVGroup* CRSVTool::OpenGroup(int group) { return OpenGroup(group, 0); }

CRSVGroup* CRSVTool::OpenGroup(int group, int child) {
  Hdf5Lock lock(Hdf5Mutex());
  for (const NumberedGroup& entry : NumberedGroups()) {
    if (entry.group == group && entry.child == child) return m_state->OpenPath(entry.path);
  }
  return nullptr;
}

// A group name may end in one separator ("Sequence/"); it names the same group.
static std::string GroupName(std::string name) {
  if (name.size() > 1 && name.back() == '/') name.pop_back();
  return name;
}

CRSVGroup* CRSVTool::OpenGroup(CRSVGroup* parent, std::string name) {
  Hdf5Lock lock(Hdf5Mutex());
  name = GroupName(std::move(name));
  Hid group =
      detail::OpenChild(m_state->GroupHandle(parent), name, H5I_GROUP, m_state->linkAccess.get());
  return group.valid() ? m_state->AddGroup(std::move(group)) : nullptr;
}

CRSVGroup* CRSVTool::CreateGroup(CRSVGroup* parent, std::string name) {
  Hdf5Lock lock(Hdf5Mutex());
  name = GroupName(std::move(name));
  const hid_t parentId = m_state->GroupHandle(parent);
  if (parentId < 0 || !detail::IsLinkName(name)) return nullptr;
  Hid group =
      detail::ObjectId(H5Gcreate2(parentId, name.c_str(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
  return group.valid() ? m_state->AddGroup(std::move(group)) : nullptr;
}

int CRSVTool::CloseGroup(CRSVGroup* group) {
  Hdf5Lock lock(Hdf5Mutex());
  return m_state->CloseOne(m_state->groups, group);
}

CRSVTable* CRSVTool::OpenTable(CRSVGroup* group, const std::string& name) {
  Hdf5Lock lock(Hdf5Mutex());
  Hid dataset =
      detail::OpenChild(m_state->GroupHandle(group), name, H5I_DATASET, m_state->linkAccess.get());
  if (!dataset.valid() || !detail::IsTable(dataset.get())) return nullptr;
  return m_state->Own(m_state->tables, dataset);
}

CRSVTable* CRSVTool::CreateTable(CRSVGroup* group, const std::string& name) {
  Hdf5Lock lock(Hdf5Mutex());
  const hid_t groupId = m_state->GroupHandle(group);
  if (groupId < 0 || !detail::IsLinkName(name)) return nullptr;
  Hid space = detail::SpaceId(H5Screate(H5S_NULL));
  if (!space.valid()) return nullptr;
  Hid dataset = detail::ObjectId(H5Dcreate2(groupId, name.c_str(), H5T_STD_U8LE, space.get(),
                                            H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
  if (!dataset.valid()) return nullptr;
  if (detail::PutStringAttribute(dataset.get(), detail::kMarkerName, detail::kTableMarker) != 0) {
    dataset.Reset();
    H5Ldelete(groupId, name.c_str(), H5P_DEFAULT);
    return nullptr;
  }
  return m_state->Own(m_state->tables, dataset);
}

int CRSVTool::CloseTable(CRSVTable* table) {
  Hdf5Lock lock(Hdf5Mutex());
  return m_state->CloseOne(m_state->tables, table);
}

CRSVArray* CRSVTool::OpenArray(CRSVGroup* group, const std::string& name) {
  Hdf5Lock lock(Hdf5Mutex());
  Hid dataset =
      detail::OpenChild(m_state->GroupHandle(group), name, H5I_DATASET, m_state->linkAccess.get());
  if (!dataset.valid()) return nullptr;
  // Tables and other marked datasets are not arrays; unmarked two-dimensional
  // datasets written by other programs are read as arrays as well.
  std::string marker;
  if (detail::GetStringAttribute(dataset.get(), detail::kMarkerName, &marker) &&
      marker != detail::kArrayMarker) {
    return nullptr;
  }
  Hid space = detail::SpaceId(H5Dget_space(dataset.get()));
  Hid type = detail::TypeId(H5Dget_type(dataset.get()));
  if (!space.valid() || !type.valid() || H5Sget_simple_extent_ndims(space.get()) != 2) {
    return nullptr;
  }
  int elementType = 0;
  switch (H5Tget_class(type.get())) {
    case H5T_INTEGER:
      elementType = kRSVTypeInt32;
      break;
    case H5T_FLOAT:
      elementType = kRSVTypeDouble;
      break;
    case H5T_COMPOUND:
      elementType = -1;
      break;
    default:
      return nullptr;
  }
  return m_state->Own(m_state->arrays, dataset, elementType);
}

CRSVArray* CRSVTool::CreateArray(CRSVGroup* group, const std::string& name, int elementType,
                                 std::uint64_t rows, std::uint64_t cols) {
  Hdf5Lock lock(Hdf5Mutex());
  const hid_t groupId = m_state->GroupHandle(group);
  if (groupId < 0 || !detail::IsLinkName(name)) return nullptr;
  hid_t fileType = H5I_INVALID_HID;
  if (elementType == kRSVTypeInt32) {
    fileType = H5T_STD_I32LE;
  } else if (elementType == kRSVTypeDouble) {
    fileType = H5T_IEEE_F64LE;
  } else {
    const auto found = m_state->compounds.find(elementType);
    if (found == m_state->compounds.end() || !found->second.complete) return nullptr;
    fileType = found->second.type.get();
  }
  const std::size_t elementSize = H5Tget_size(fileType);
  if (elementSize == 0) return nullptr;

  const hsize_t dims[2] = {rows, cols};
  const hsize_t maxDims[2] = {H5S_UNLIMITED, H5S_UNLIMITED};
  hsize_t chunk[2];
  ChunkDims(rows, cols, elementSize, chunk);
  Hid space = detail::SpaceId(H5Screate_simple(2, dims, maxDims));
  Hid dcpl = detail::PlistId(H5Pcreate(H5P_DATASET_CREATE));
  if (!space.valid() || !dcpl.valid() || H5Pset_chunk(dcpl.get(), 2, chunk) < 0) return nullptr;
  Hid dataset = detail::ObjectId(H5Dcreate2(groupId, name.c_str(), fileType, space.get(),
                                            H5P_DEFAULT, dcpl.get(), H5P_DEFAULT));
  if (!dataset.valid()) return nullptr;
  if (detail::PutStringAttribute(dataset.get(), detail::kMarkerName, detail::kArrayMarker) != 0) {
    dataset.Reset();
    H5Ldelete(groupId, name.c_str(), H5P_DEFAULT);
    return nullptr;
  }
  return m_state->Own(m_state->arrays, dataset, elementType);
}

int CRSVTool::CloseArray(CRSVArray* array) {
  Hdf5Lock lock(Hdf5Mutex());
  return m_state->CloseOne(m_state->arrays, array);
}

int CRSVTool::BeginCreateCompoundDataType(std::uint64_t size) {
  Hdf5Lock lock(Hdf5Mutex());
  State& s = *m_state;
  // A definition that was never ended is dropped.
  if (s.building >= 0) s.compounds.erase(s.building);
  s.building = -1;
  if (size == 0 || s.nextCompoundId == INT_MAX) return -1;
  Hid type = detail::TypeId(H5Tcreate(H5T_COMPOUND, static_cast<std::size_t>(size)));
  if (!type.valid()) return -1;
  const int id = s.nextCompoundId++;
  s.compounds[id] = State::Compound{std::move(type), false};
  s.building = id;
  return id;
}

int CRSVTool::AddCompoundDataTypeMember(const std::string& name, int typeCode,
                                        std::uint64_t offset) {
  Hdf5Lock lock(Hdf5Mutex());
  State& s = *m_state;
  if (s.building < 0 || name.empty()) return -1;
  hid_t memberType = H5I_INVALID_HID;
  if (typeCode == kRSVTypeInt32) {
    memberType = H5T_NATIVE_INT32;
  } else if (typeCode == kRSVTypeDouble) {
    memberType = H5T_NATIVE_DOUBLE;
  } else {
    return -1;
  }
  // HDF5 refuses members that overlap or reach past the end of the record.
  const hid_t type = s.compounds[s.building].type.get();
  return H5Tinsert(type, name.c_str(), static_cast<std::size_t>(offset), memberType) < 0 ? -1 : 0;
}

int CRSVTool::AddCompoundDataTypeFixedLengthStringMember(const std::string& name,
                                                         std::uint64_t offset,
                                                         std::uint64_t length) {
  Hdf5Lock lock(Hdf5Mutex());
  State& s = *m_state;
  if (s.building < 0 || name.empty() || length == 0) return -1;
  Hid text = detail::TypeId(H5Tcopy(H5T_C_S1));
  if (!text.valid() || H5Tset_size(text.get(), static_cast<std::size_t>(length)) < 0 ||
      H5Tset_strpad(text.get(), H5T_STR_NULLTERM) < 0 ||
      H5Tset_cset(text.get(), H5T_CSET_UTF8) < 0) {
    return -1;
  }
  const hid_t type = s.compounds[s.building].type.get();
  return H5Tinsert(type, name.c_str(), static_cast<std::size_t>(offset), text.get()) < 0 ? -1 : 0;
}

int CRSVTool::EndCreateCompoundDataType() {
  Hdf5Lock lock(Hdf5Mutex());
  State& s = *m_state;
  if (s.building < 0) return -1;
  State::Compound& compound = s.compounds[s.building];
  // A record without members cannot be stored; the definition stays open.
  if (H5Tget_nmembers(compound.type.get()) <= 0) return -1;
  compound.complete = true;
  s.building = -1;
  return 0;
}

int CRSVTool::WriteAttribute(CRSVObject* object, const std::string& name, const std::string& text) {
  Hdf5Lock lock(Hdf5Mutex());
  const hid_t id = m_state->ObjectHandle(object);
  if (id < 0 || name == detail::kMarkerName) return -1;
  const int rc = detail::PutStringAttribute(id, name, text);
  if (rc != 0) ++m_state->failures;
  return rc;
}

bool CRSVTool::ReadAttribute(CRSVObject* object, const std::string& name, std::string* text) {
  Hdf5Lock lock(Hdf5Mutex());
  return detail::GetStringAttribute(m_state->ObjectHandle(object), name, text);
}

}  // namespace NVX3DRSVExTool
