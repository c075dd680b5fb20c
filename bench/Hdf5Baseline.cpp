// The hand-written HDF5 writer and reader the RSV paths are compared with.
#include "Hdf5Baseline.h"

#include <hdf5.h>

namespace nvxbench {
namespace {

struct Collect {
  hid_t file;
  std::vector<Hdf5Object>* objects;
};

herr_t OnAttribute(hid_t object, const char* name, const H5A_info_t*, void* data) {
  auto* out = static_cast<std::vector<Hdf5Item>*>(data);
  const hid_t attr = H5Aopen(object, name, H5P_DEFAULT);
  Hdf5Item item;
  item.name = name;
  item.type = H5Aget_type(attr);
  item.space = H5Aget_space(attr);
  const hssize_t points = H5Sget_simple_extent_type(item.space) == H5S_NULL
                              ? 0
                              : H5Sget_simple_extent_npoints(item.space);
  // Variable-length strings are kept as their pointers' text: the writer
  // replays them through a char* like a program storing a string would.
  item.bytes.resize(H5Tget_size(item.type) * static_cast<std::size_t>(points));
  if (points > 0) H5Aread(attr, item.type, item.bytes.data());
  H5Aclose(attr);
  out->push_back(std::move(item));
  return 0;
}

herr_t OnObject(hid_t, const char* name, const H5O_info_t* info, void* data) {
  auto* c = static_cast<Collect*>(data);
  if (info->type != H5O_TYPE_GROUP && info->type != H5O_TYPE_DATASET) return 0;
  Hdf5Object object;
  object.path = name;
  object.dataset = info->type == H5O_TYPE_DATASET;
  const hid_t id = H5Oopen(c->file, name, H5P_DEFAULT);
  H5Aiterate2(id, H5_INDEX_CRT_ORDER, H5_ITER_INC, nullptr, OnAttribute, &object.attributes);
  if (object.attributes.empty()) {
    H5Aiterate2(id, H5_INDEX_NAME, H5_ITER_INC, nullptr, OnAttribute, &object.attributes);
  }
  if (object.dataset) {
    object.data.type = H5Dget_type(id);
    object.data.space = H5Dget_space(id);
    const H5S_class_t cls = H5Sget_simple_extent_type(object.data.space);
    const hssize_t points = cls == H5S_NULL ? 0 : H5Sget_simple_extent_npoints(object.data.space);
    object.data.bytes.resize(H5Tget_size(object.data.type) * static_cast<std::size_t>(points));
    if (points > 0)
      H5Dread(id, object.data.type, H5S_ALL, H5S_ALL, H5P_DEFAULT, object.data.bytes.data());
  }
  H5Oclose(id);
  c->objects->push_back(std::move(object));
  return 0;
}

void Release(Hdf5Item& item) {
  if (item.type >= 0) H5Tclose(item.type);
  if (item.space >= 0) H5Sclose(item.space);
}

}  // namespace

Hdf5Layout::Hdf5Layout(const std::string& path) {
  const hid_t file = H5Fopen(path.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
  if (file < 0) return;
  Collect c{file, &m_objects};
  H5Ovisit(file, H5_INDEX_NAME, H5_ITER_INC, OnObject, &c);
  H5Fclose(file);
}

Hdf5Layout::~Hdf5Layout() {
  for (Hdf5Object& o : m_objects) {
    Release(o.data);
    for (Hdf5Item& a : o.attributes) Release(a);
  }
}

std::size_t Hdf5Layout::ItemCount() const {
  std::size_t n = 0;
  for (const Hdf5Object& o : m_objects) n += o.attributes.size() + (o.dataset ? 1 : 0);
  return n;
}

bool Hdf5Layout::Write(const std::string& path) const {
  const hid_t file = H5Fopen(path.c_str(), H5F_ACC_RDWR, H5P_DEFAULT);
  if (file < 0) return false;
  bool ok = true;
  for (const Hdf5Object& o : m_objects) {
    const hid_t id = H5Oopen(file, o.path.c_str(), H5P_DEFAULT);
    for (const Hdf5Item& a : o.attributes) {
      const hid_t attr = H5Aopen(id, a.name.c_str(), H5P_DEFAULT);
      if (!a.bytes.empty()) ok &= H5Awrite(attr, a.type, a.bytes.data()) >= 0;
      H5Aclose(attr);
    }
    if (o.dataset && !o.data.bytes.empty()) {
      ok &= H5Dwrite(id, o.data.type, H5S_ALL, H5S_ALL, H5P_DEFAULT, o.data.bytes.data()) >= 0;
    }
    H5Oclose(id);
  }
  H5Fclose(file);
  return ok;
}

bool Hdf5Layout::Read(const std::string& path) const {
  const hid_t file = H5Fopen(path.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
  if (file < 0) return false;
  bool ok = true;
  std::vector<unsigned char> buffer;
  for (const Hdf5Object& o : m_objects) {
    const hid_t id = H5Oopen(file, o.path.c_str(), H5P_DEFAULT);
    for (const Hdf5Item& a : o.attributes) {
      const hid_t attr = H5Aopen(id, a.name.c_str(), H5P_DEFAULT);
      buffer.resize(a.bytes.size());
      if (!a.bytes.empty()) {
        const bool variable = H5Tis_variable_str(a.type) > 0;
        ok &= H5Aread(attr, a.type, buffer.data()) >= 0;
        if (variable) H5free_memory(*reinterpret_cast<char**>(buffer.data()));
      }
      H5Aclose(attr);
    }
    if (o.dataset && !o.data.bytes.empty()) {
      buffer.resize(o.data.bytes.size());
      ok &= H5Dread(id, o.data.type, H5S_ALL, H5S_ALL, H5P_DEFAULT, buffer.data()) >= 0;
    }
    H5Oclose(id);
  }
  H5Fclose(file);
  return ok;
}

}  // namespace nvxbench
