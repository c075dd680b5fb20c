// Objects handed out by the tool and the items of tables (attributes of a
// null-dataspace dataset).
#include "NVX3DRSVExTool.h"
#include "RSVHdf5.h"

namespace NVX3DRSVExTool {

using detail::Hdf5Lock;
using detail::Hdf5Mutex;
using detail::Hid;

static_assert(sizeof(int) == 4, "int items are stored as 32-bit integers");

CRSVObject::~CRSVObject() { CloseId(); }

int CRSVObject::CloseId() {
  Hdf5Lock lock(Hdf5Mutex());
  const hid_t id = m_id;
  m_id = H5I_INVALID_HID;
  return id >= 0 && H5Oclose(id) < 0 ? -1 : 0;
}

CRSVGroup::~CRSVGroup() = default;
CRSVTable::~CRSVTable() = default;

namespace {

const detail::ItemTypes& Types() { return detail::PredefinedItemTypes(); }

// The marker belongs to the table itself and is never an item.
bool IsItemName(const std::string& name) { return !name.empty() && name != detail::kMarkerName; }

template <class T>
int PutScalar(hid_t table, const std::string& name, hid_t fileType, hid_t memType, const T& value) {
  if (!IsItemName(name)) return -1;
  return detail::PutScalarAttribute(table, name, fileType, memType, &value);
}

}  // namespace

// Every failed write is counted by the tool as well as returned (Note).
int CRSVTable::SetItem(const std::string& name, int value) {
  Hdf5Lock lock(Hdf5Mutex());
  return Note(PutScalar(m_id, name, Types().intFile, Types().intMemory, value));
}

int CRSVTable::SetItem(const std::string& name, double value) {
  Hdf5Lock lock(Hdf5Mutex());
  return Note(PutScalar(m_id, name, Types().doubleFile, Types().doubleMemory, value));
}

int CRSVTable::SetItem(const std::string& name, bool value) {
  Hdf5Lock lock(Hdf5Mutex());
  const hid_t type = detail::BoolType();
  if (type < 0) return Note(-1);
  const signed char stored = value ? 1 : 0;
  return Note(PutScalar(m_id, name, type, type, stored));
}

int CRSVTable::SetItem(const std::string& name, const std::string& value) {
  Hdf5Lock lock(Hdf5Mutex());
  if (!IsItemName(name)) return Note(-1);
  return Note(detail::PutStringAttribute(m_id, name, value));
}

int CRSVTable::SetItem(const std::string& name, std::uint64_t size, const void* bytes) {
  Hdf5Lock lock(Hdf5Mutex());
  if (!IsItemName(name) || (size > 0 && bytes == nullptr)) return Note(-1);
  const hsize_t dims[1] = {static_cast<hsize_t>(size)};
  Hid space = detail::SpaceId(size == 0 ? H5Screate(H5S_NULL) : H5Screate_simple(1, dims, nullptr));
  if (!space.valid()) return Note(-1);
  return Note(detail::PutAttribute(m_id, name, Types().byteFile, space.get(), Types().byteMemory,
                                   size == 0 ? nullptr : bytes));
}

bool CRSVTable::GetItem(const std::string& name, int* value) {
  Hdf5Lock lock(Hdf5Mutex());
  if (value == nullptr || !IsItemName(name)) return false;
  return detail::GetScalarAttribute(m_id, name, Types().intMemory, {H5T_INTEGER, H5T_FLOAT}, value);
}

bool CRSVTable::GetItem(const std::string& name, double* value) {
  Hdf5Lock lock(Hdf5Mutex());
  if (value == nullptr || !IsItemName(name)) return false;
  return detail::GetScalarAttribute(m_id, name, Types().doubleMemory, {H5T_INTEGER, H5T_FLOAT},
                                    value);
}

bool CRSVTable::GetItem(const std::string& name, bool* value) {
  Hdf5Lock lock(Hdf5Mutex());
  if (value == nullptr || !IsItemName(name)) return false;
  const hid_t type = detail::BoolType();
  signed char stored = -1;
  if (type < 0 || !detail::GetScalarAttribute(m_id, name, type, {H5T_ENUM}, &stored)) {
    return false;
  }
  // An enum with other member names converts to an unmatched value; that is no bool.
  if (stored != 0 && stored != 1) return false;
  *value = stored == 1;
  return true;
}

bool CRSVTable::GetItem(const std::string& name, std::string* value) {
  Hdf5Lock lock(Hdf5Mutex());
  if (value == nullptr || !IsItemName(name)) return false;
  return detail::GetStringAttribute(m_id, name, value);
}

bool CRSVTable::GetItem(const std::string& name, std::uint64_t* size, const void** bytes) {
  Hdf5Lock lock(Hdf5Mutex());
  if (size == nullptr || bytes == nullptr || !IsItemName(name)) return false;
  Hid attr = detail::OpenAttribute(m_id, name);
  if (!attr.valid()) return false;
  Hid type = detail::TypeId(H5Aget_type(attr.get()));
  Hid space = detail::SpaceId(H5Aget_space(attr.get()));
  if (!type.valid() || !space.valid() || H5Tget_class(type.get()) != H5T_INTEGER ||
      H5Tget_size(type.get()) != 1) {
    return false;
  }
  const H5S_class_t shape = H5Sget_simple_extent_type(space.get());
  if (shape != H5S_NULL && !(shape == H5S_SIMPLE && H5Sget_simple_extent_ndims(space.get()) == 1)) {
    return false;
  }
  const hssize_t count = shape == H5S_NULL ? 0 : H5Sget_simple_extent_npoints(space.get());
  if (count < 0) return false;

  // Always a real buffer, so callers may hand *bytes to memcpy even for an empty block.
  const std::size_t length = static_cast<std::size_t>(count);
  std::unique_ptr<unsigned char[]> buffer(new unsigned char[length > 0 ? length : 1]);
  // Bytes are copied as stored; a signed byte type must not be clamped to unsigned.
  const hid_t memType = H5Tget_sign(type.get()) == H5T_SGN_2 ? H5T_NATIVE_SCHAR : H5T_NATIVE_UCHAR;
  if (length > 0 && H5Aread(attr.get(), memType, buffer.get()) < 0) return false;
  m_bytes = std::move(buffer);
  *size = length;
  *bytes = m_bytes.get();
  return true;
}

int CRSVTable::Flush() {
  Hdf5Lock lock(Hdf5Mutex());
  if (m_id < 0) return Note(-1);
  // The items are in the file's cache once set, and the file is flushed when
  // it is closed (a failure there is reported by the tool's Close). Flushing
  // the whole file after every table made every table wait for the disk.
  return 0;
}

}  // namespace NVX3DRSVExTool
