// libFuzzer target: the RSV table reader and writer over well-formed HDF5
// files with hostile contents. The input is a recipe: which tables exist,
// which items they hold under which types (the real key names or others),
// texts of any length and bytes, and time arrays of any element type and of
// any claimed dimensions (up to 2^40 rows). The file is built with the RSV
// tool as an in-memory file and read through the library's facade; one input
// in eight has it then rewritten and read again (a rewrite sets every item of
// every table and costs ten times a read of a recipe file, so doing it always
// would cut the rate of inputs tenfold). Only the documented out-of-range
// error may leave the library.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "NVX3DComputation.h"
#include "NVX3DRSVExTool.h"
#include "RSVMemoryFiles.h"
#include "core/KeyText.h"
#include "core/NVX3DComputationImpl.h"

namespace {

using NVX3DRSVExTool::CRSVGroup;
using NVX3DRSVExTool::CRSVTool;

struct Names {
  std::vector<std::string> tables;
  std::vector<std::string> items;
  std::vector<std::string> arrays;
};

// Table, item and array names the library reads, taken from its key lists.
const Names& KnownNames() {
  static const Names names = [] {
    Names n;
    CNVX3DComputationImpl impl;
    for (const nvx::SectionDef* def : nvx::AllSections()) {
      if (def->rsvTable != nullptr) n.tables.push_back(def->rsvTable);
      for (const nvx::Key& key : def->keys(impl)) {
        (key.kind == nvx::KeyKind::kTimeArray ? n.arrays : n.items).push_back(key.name);
      }
    }
    return n;
  }();
  return names;
}

std::string PickName(FuzzedDataProvider& in, const std::vector<std::string>& known) {
  if (!known.empty() && in.ConsumeBool()) {
    return known[in.ConsumeIntegralInRange<std::size_t>(0, known.size() - 1)];
  }
  return in.ConsumeRandomLengthString(24);
}

void AddItem(FuzzedDataProvider& in, NVX3DRSVExTool::CRSVTable& table) {
  const std::string name = PickName(in, KnownNames().items);
  switch (in.ConsumeIntegralInRange(0, 4)) {
    case 0:
      table.SetItem(name, in.ConsumeIntegral<int>());
      break;
    case 1:
      table.SetItem(name, in.ConsumeFloatingPoint<double>());
      break;
    case 2:
      table.SetItem(name, in.ConsumeBool());
      break;
    case 3:
      table.SetItem(name, in.ConsumeRandomLengthString(700));
      break;
    default: {
      const std::vector<std::uint8_t> bytes = in.ConsumeBytes<std::uint8_t>(64);
      table.SetItem(name, bytes.size(), bytes.data());
    }
  }
}

void AddArray(FuzzedDataProvider& in, CRSVTool& tool, CRSVGroup* steps) {
  const std::string name = PickName(in, KnownNames().arrays);
  const int type =
      in.ConsumeBool() ? NVX3DRSVExTool::kRSVTypeDouble : NVX3DRSVExTool::kRSVTypeInt32;
  // Claimed dimensions cost nothing to create: chunks are stored only when written.
  const std::uint64_t rows = in.ConsumeBool()
                                 ? in.ConsumeIntegralInRange<std::uint64_t>(0, 16)
                                 : std::uint64_t(1) << in.ConsumeIntegralInRange(0, 40);
  const std::uint64_t cols = in.ConsumeIntegralInRange<std::uint64_t>(0, 3);
  auto* array = tool.CreateArray(steps, name, type, rows, cols);
  if (array == nullptr) return;
  const std::uint64_t written = std::min<std::uint64_t>(rows, 8);
  std::vector<double> values(written * cols + 1, in.ConsumeFloatingPoint<double>());
  if (type == NVX3DRSVExTool::kRSVTypeDouble) array->WriteRows(written, values.data());
  tool.CloseArray(array);
}

void BuildFile(FuzzedDataProvider& in, const std::string& path) {
  NVX3DRSVExTool::memory_files::Remove(path);
  CRSVTool tool;
  if (tool.Create(path, 4, 1, 0) != 0) return;
  CRSVGroup* top = tool.OpenGroup(1);
  CRSVGroup* group = top ? tool.CreateGroup(top, "Computation") : nullptr;
  if (group == nullptr) return;
  CRSVGroup* steps = in.ConsumeBool() ? tool.CreateGroup(group, "Time_Stemp") : nullptr;
  const int tables = in.ConsumeIntegralInRange(0, 8);
  for (int t = 0; t < tables && in.remaining_bytes() > 0; ++t) {
    auto* table = tool.CreateTable(group, PickName(in, KnownNames().tables));
    if (table == nullptr) continue;
    const int items = in.ConsumeIntegralInRange(0, 24);
    for (int i = 0; i < items && in.remaining_bytes() > 0; ++i) AddItem(in, *table);
    tool.CloseTable(table);
  }
  const int arrays = steps ? in.ConsumeIntegralInRange(0, 4) : 0;
  for (int a = 0; a < arrays && in.remaining_bytes() > 0; ++a) AddArray(in, tool, steps);
  tool.Close();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // A name that exists nowhere on disk; the tool keeps the file in memory.
  static const std::string path = [] {
    NVX3DRSVExTool::memory_files::Enable(true);
    return std::string("/nonexistent/nvx_tables_fuzz.rsv");
  }();
  FuzzedDataProvider in(data, size);
  const int fillTimes = in.ConsumeIntegralInRange(0, 6);
  const bool rewrite = in.ConsumeIntegralInRange(0, 7) == 0;
  BuildFile(in, path);

  CNVX3DComputation c;
  c.SetFillOutputTimesSectionFillTimeSteps(fillTimes);
  c.SetPackOutputTimesSectionFillTimeSteps(2);
  c.SetRSVFilePath(path);
  try {
    c.ReadRSVFile();
    if (rewrite) {
      c.WriteRSVFile();
      c.ReadRSVFile();
    }
  } catch (const std::out_of_range&) {
    // The documented error of a count larger than the list in memory.
  }
  return 0;
}
