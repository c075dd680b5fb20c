// The RSV baseline: a plain HDF5 C-API writer and reader of exactly the
// objects an RSV file holds. The structure (groups, datasets and their
// attributes, with types and bytes) is taken once from a file the library
// wrote; timing then covers only the HDF5 calls a hand-written program needs.
#ifndef NVX_BENCH_HDF5BASELINE_H_
#define NVX_BENCH_HDF5BASELINE_H_

#include <cstddef>
#include <string>
#include <vector>

namespace nvxbench {

struct Hdf5Item {
  std::string name;
  long type = -1;   // file type (an hid_t, owned by the layout)
  long space = -1;  // dataspace (an hid_t, owned by the layout)
  std::vector<unsigned char> bytes;
};

struct Hdf5Object {
  std::string path;
  bool dataset = false;
  Hdf5Item data;  // dataset contents (datasets only)
  std::vector<Hdf5Item> attributes;
};

class Hdf5Layout {
 public:
  // Reads every group, dataset and attribute of `path`.
  explicit Hdf5Layout(const std::string& path);
  ~Hdf5Layout();
  Hdf5Layout(const Hdf5Layout&) = delete;
  Hdf5Layout& operator=(const Hdf5Layout&) = delete;

  // Opens `path` read-write and writes every attribute and dataset again.
  bool Write(const std::string& path) const;
  // Opens `path` read-only and reads every attribute and dataset.
  bool Read(const std::string& path) const;

  std::size_t ItemCount() const;
  std::size_t ObjectCount() const { return m_objects.size(); }

 private:
  std::vector<Hdf5Object> m_objects;
};

}  // namespace nvxbench

#endif  // NVX_BENCH_HDF5BASELINE_H_
