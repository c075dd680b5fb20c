// Two-dimensional arrays: chunked datasets whose extent can change.
#include "NVX3DRSVExTool.h"
#include "RSVHdf5.h"

namespace NVX3DRSVExTool {

using detail::Hdf5Lock;
using detail::Hdf5Mutex;
using detail::Hid;

CRSVArray::~CRSVArray() = default;

namespace {

// The in-memory element type: native int32 or double for those codes; otherwise
// the stored compound type itself, so the caller's records keep the layout the
// array was created with.
Hid MemoryType(hid_t dataset, int elementType) {
  if (elementType == kRSVTypeInt32) return detail::TypeId(H5Tcopy(H5T_NATIVE_INT32));
  if (elementType == kRSVTypeDouble) return detail::TypeId(H5Tcopy(H5T_NATIVE_DOUBLE));
  return detail::TypeId(H5Dget_type(dataset));
}

// Number of elements, or -1 when the dataset is not two-dimensional.
hssize_t ElementCount(hid_t dataset) {
  Hid space = detail::SpaceId(H5Dget_space(dataset));
  if (!space.valid() || H5Sget_simple_extent_ndims(space.get()) != 2) return -1;
  return H5Sget_simple_extent_npoints(space.get());
}

// Reads or writes the whole array from or to `buffer`. An empty array
// transfers nothing and succeeds.
int Transfer(hid_t id, int elementType, void* buffer, bool write) {
  if (id < 0) return -1;
  const hssize_t count = ElementCount(id);
  if (count < 0) return -1;
  if (count == 0) return 0;
  Hid memType = MemoryType(id, elementType);
  if (buffer == nullptr || !memType.valid()) return -1;
  const herr_t rc = write ? H5Dwrite(id, memType.get(), H5S_ALL, H5S_ALL, H5P_DEFAULT, buffer)
                          : H5Dread(id, memType.get(), H5S_ALL, H5S_ALL, H5P_DEFAULT, buffer);
  return rc < 0 ? -1 : 0;
}

// Reads or writes the first `rows` rows of the array, every column, from or to
// `buffer`. No rows transfers nothing and succeeds.
int TransferRows(hid_t id, int elementType, std::uint64_t rows, void* buffer, bool write) {
  if (id < 0) return -1;
  Hid fileSpace = detail::SpaceId(H5Dget_space(id));
  hsize_t dims[2] = {0, 0};
  if (!fileSpace.valid() || H5Sget_simple_extent_ndims(fileSpace.get()) != 2 ||
      H5Sget_simple_extent_dims(fileSpace.get(), dims, nullptr) < 0 || rows > dims[0]) {
    return -1;
  }
  if (rows == 0 || dims[1] == 0) return 0;
  const hsize_t start[2] = {0, 0};
  const hsize_t count[2] = {rows, dims[1]};
  Hid memSpace = detail::SpaceId(H5Screate_simple(2, count, nullptr));
  Hid memType = MemoryType(id, elementType);
  if (buffer == nullptr || !memSpace.valid() || !memType.valid() ||
      H5Sselect_hyperslab(fileSpace.get(), H5S_SELECT_SET, start, nullptr, count, nullptr) < 0) {
    return -1;
  }
  const herr_t rc =
      write ? H5Dwrite(id, memType.get(), memSpace.get(), fileSpace.get(), H5P_DEFAULT, buffer)
            : H5Dread(id, memType.get(), memSpace.get(), fileSpace.get(), H5P_DEFAULT, buffer);
  return rc < 0 ? -1 : 0;
}

}  // namespace

int CRSVArray::GetDimension(std::uint64_t* rows, std::uint64_t* cols) {
  Hdf5Lock lock(Hdf5Mutex());
  if (rows == nullptr || cols == nullptr || m_id < 0) return -1;
  Hid space = detail::SpaceId(H5Dget_space(m_id));
  hsize_t dims[2] = {0, 0};
  if (!space.valid() || H5Sget_simple_extent_ndims(space.get()) != 2 ||
      H5Sget_simple_extent_dims(space.get(), dims, nullptr) < 0) {
    return -1;
  }
  *rows = dims[0];
  *cols = dims[1];
  return 0;
}

int CRSVArray::ResetDimension(std::uint64_t rows, std::uint64_t cols) {
  Hdf5Lock lock(Hdf5Mutex());
  if (m_id < 0) return Note(-1);
  const hsize_t dims[2] = {rows, cols};
  return Note(H5Dset_extent(m_id, dims) < 0 ? -1 : 0);
}

int CRSVArray::ReadArray(void* dst) {
  Hdf5Lock lock(Hdf5Mutex());
  return Transfer(m_id, m_elementType, dst, false);
}

int CRSVArray::WriteArray(const void* src) {
  Hdf5Lock lock(Hdf5Mutex());
  // H5Dwrite only reads from the buffer.
  return Note(Transfer(m_id, m_elementType, const_cast<void*>(src), true));
}

int CRSVArray::ReadRows(std::uint64_t rows, void* dst) {
  Hdf5Lock lock(Hdf5Mutex());
  return TransferRows(m_id, m_elementType, rows, dst, false);
}

int CRSVArray::WriteRows(std::uint64_t rows, const void* src) {
  Hdf5Lock lock(Hdf5Mutex());
  return Note(TransferRows(m_id, m_elementType, rows, const_cast<void*>(src), true));
}

}  // namespace NVX3DRSVExTool
