// nvxparam report: the computation report of an RSV file as a table or JSON.
// The rows are read with a memory record of our own (int32 "ID", 128-byte
// "Value"), which HDF5 converts to by member name, so a file whose records
// have another size or layout can never overrun the buffer.
#include <hdf5.h>

#include <algorithm>
#include <cstring>
#include <iostream>

#include "Verbs.h"

namespace nvxparam {
namespace {

struct Row {
  std::int32_t id;
  char value[128];
};

// More rows than any report holds: a damaged extent never allocates much.
constexpr hsize_t kMaxRows = 100000;

// Closes an HDF5 identifier when it goes out of scope.
class Id {
 public:
  Id(hid_t id, herr_t (*close)(hid_t)) : id_(id), close_(close) {}
  Id(const Id&) = delete;
  Id& operator=(const Id&) = delete;
  ~Id() {
    if (id_ >= 0) close_(id_);
  }
  hid_t get() const { return id_; }
  bool ok() const { return id_ >= 0; }

 private:
  hid_t id_;
  herr_t (*close_)(hid_t);
};

// The memory record type; the caller closes it.
hid_t MakeRowType() {
  const hid_t type = H5Tcreate(H5T_COMPOUND, sizeof(Row));
  Id text(H5Tcopy(H5T_C_S1), H5Tclose);
  H5Tset_size(text.get(), sizeof(Row::value));
  H5Tset_strpad(text.get(), H5T_STR_NULLTERM);
  // HDF5 converts no text between character sets; the report's are UTF-8.
  H5Tset_cset(text.get(), H5T_CSET_UTF8);
  H5Tinsert(type, "ID", offsetof(Row, id), H5T_NATIVE_INT32);
  H5Tinsert(type, "Value", offsetof(Row, value), text.get());
  return type;
}

// The rows of array `path`, or nothing when it is missing or not a report array.
std::vector<Row> ReadRows(hid_t file, const std::string& path) {
  if (H5Lexists(file, path.c_str(), H5P_DEFAULT) <= 0) return {};
  Id set(H5Dopen2(file, path.c_str(), H5P_DEFAULT), H5Dclose);
  if (!set.ok()) return {};
  Id space(H5Dget_space(set.get()), H5Sclose);
  Id stored(H5Dget_type(set.get()), H5Tclose);
  hsize_t dims[2] = {0, 0};
  if (H5Tget_class(stored.get()) != H5T_COMPOUND || H5Sget_simple_extent_ndims(space.get()) != 2 ||
      H5Sget_simple_extent_dims(space.get(), dims, nullptr) < 0 || dims[1] != 1 ||
      dims[0] > kMaxRows) {
    return {};
  }
  std::vector<Row> rows(static_cast<std::size_t>(dims[0]));
  Id type(MakeRowType(), H5Tclose);
  if (rows.empty() ||
      H5Dread(set.get(), type.get(), H5S_ALL, H5S_ALL, H5P_DEFAULT, rows.data()) < 0) {
    return {};
  }
  for (Row& row : rows) row.value[sizeof row.value - 1] = '\0';
  return rows;
}

struct Table {
  std::string name;
  std::vector<Row> rows;
};

}  // namespace

int RunReport(const Args& given) {
  Args args = given;
  const bool json = TakeFlag(args, "--json");
  RejectOptions(args);
  if (args.size() != 1) Fail("usage: nvxparam report [--json] FILE.rsv");
  const std::string& path = args[0];
  if (!IsHdf5File(path)) Fail(path + " is not an RSV (HDF5) file");
  H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr);
  Id file(H5Fopen(path.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT), H5Fclose);
  if (!file.ok()) Fail("cannot read " + path);

  const std::string top = "/Project/ComputationReport/";
  std::vector<Table> tables;
  for (const std::string array : {"Sequence/Result0", "TaskManager/Result0"}) {
    tables.push_back({array, ReadRows(file.get(), top + array)});
  }
  // One array per remote machine, numbered from 1 without gaps.
  for (int i = 1; i <= static_cast<int>(kMaxRows); ++i) {
    const std::string array = "TaskManager/Result" + std::to_string(i);
    std::vector<Row> rows = ReadRows(file.get(), top + array);
    if (rows.empty()) break;
    tables.push_back({array, std::move(rows)});
  }
  if (tables[0].rows.empty() && tables[1].rows.empty()) {
    Fail(path + " holds no computation report");
  }

  std::string text = json ? "{\"file\": " + Json(path) + ", \"report\": {" : "";
  bool firstTable = true;
  for (const Table& table : tables) {
    if (table.rows.empty()) continue;
    if (json) {
      text += std::string(firstTable ? "" : ", ") + Json(table.name) + ": [";
      for (std::size_t i = 0; i < table.rows.size(); ++i) {
        text += std::string(i ? ", " : "") + "{\"id\": " + std::to_string(table.rows[i].id) +
                ", \"value\": " + Json(table.rows[i].value) + "}";
      }
      text += "]";
    } else {
      text += std::string(firstTable ? "" : "\n") + "[" + table.name + "]\n";
      for (const Row& row : table.rows) {
        text += std::to_string(row.id) + "\t" + row.value + "\n";
      }
    }
    firstTable = false;
  }
  if (json) text += "}}\n";
  std::cout << text << std::flush;
  return 0;
}

}  // namespace nvxparam
