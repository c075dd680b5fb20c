// Table orders and the generic RSV table writer and reader.
#include "rsv/RSVTables.h"

#include <algorithm>
#include <string>
#include <vector>

#include "NVXPlatform.h"
#include "core/KeyText.h"
#include "core/NVX3DComputationImpl.h"

using NVX3DRSVExTool::CRSVArray;
using NVX3DRSVExTool::CRSVGroup;
using NVX3DRSVExTool::CRSVTable;
using NVX3DRSVExTool::CRSVTool;

namespace nvx {
namespace {

// The 31 tables in the order they are written...
const char* const kWriteOrder[] = {
    "Summary",
    "SHELL_FILL",
    "FILL_OUTPUT_TIMES",
    "SHELL_PACK",
    "PACK_OUTPUT_TIMES",
    "SHELL_COOL",
    "COOL_OUTPUT_TIMES",
    "OPEN_OUTPUT_TIMES",
    "SHELL_WARP",
    "SOLID_FILL",
    "SOLID_PACK",
    "SOLID_COOL",
    "SOLID_WARP",
    "PartInsert",
    "SOLID_STRESS",
    "SOLID_VE_STRESS",
    "SOLID_VE_WARP",
    "SOLID_VE",
    "SOLID_OPTIC",
    "OPTIC_OUTPUT_DIRECTION",
    "OPTIC_OUTPUT_TO_SOFTWARE",
    "IC_PADDLE_SHIFT_OUTPUT_TIMES",
    "SOLID_IC",
    "SOLID_MCM",
    "TASKMANAGER",
    "REMOTE_MACHINES",
    "ValueMachineSetting",
    "COMPUTING_MANAGER",
    "FILL_ADVANCED_LONGFIBER",
    "FILL_ADVANCED_MCIM",
    "FILL_ADVANCED_SlipBC",
};

// ...and in the different order they are read back.
const char* const kReadOrder[] = {
    "Summary",
    "SHELL_FILL",
    "SHELL_PACK",
    "SOLID_FILL",
    "SOLID_PACK",
    "FILL_OUTPUT_TIMES",
    "FILL_ADVANCED_MCIM",
    "FILL_ADVANCED_SlipBC",
    "PACK_OUTPUT_TIMES",
    "SHELL_COOL",
    "SOLID_COOL",
    "COOL_OUTPUT_TIMES",
    "OPEN_OUTPUT_TIMES",
    "SHELL_WARP",
    "SOLID_WARP",
    "SOLID_STRESS",
    "PartInsert",
    "SOLID_VE",
    "SOLID_OPTIC",
    "OPTIC_OUTPUT_DIRECTION",
    "OPTIC_OUTPUT_TO_SOFTWARE",
    "SOLID_IC",
    "IC_PADDLE_SHIFT_OUTPUT_TIMES",
    "SOLID_MCM",
    "TASKMANAGER",
    "REMOTE_MACHINES",
    "ValueMachineSetting",
    "COMPUTING_MANAGER",
    "FILL_ADVANCED_LONGFIBER",
    "SOLID_VE_STRESS",
    "SOLID_VE_WARP",
};

// The section stored in table `name`, or nullptr while it has no records.
const SectionDef* SectionOfTable(const char* name) {
  for (const SectionDef* def : AllSections()) {
    if (def->rsvTable != nullptr && std::string(def->rsvTable) == name) return def;
  }
  for (const SectionDef* def : RsvOnlyTables()) {
    if (std::string(def->rsvTable) == name) return def;
  }
  return nullptr;
}

CRSVGroup* OpenOrCreateGroup(CRSVTool& tool, CRSVGroup* parent, const char* name) {
  CRSVGroup* g = tool.OpenGroup(parent, name);
  return g != nullptr ? g : tool.CreateGroup(parent, name);
}

// Buffers of the time arrays are sized from the list in memory, never from the
// dimensions a file claims: a damaged or hostile file must not make the
// library allocate or fill gigabytes. A list is stored as (count, 1); an array
// of another width holds the times row by row, and a row wider than
// kMaxOutputTimes values is taken for damage and left alone.

// Whole rows of `cols` values that hold `values` values.
std::uint64_t RowsFor(std::uint64_t values, std::uint64_t cols) {
  return (values + cols - 1) / cols;
}

bool UsableTimeArray(CRSVArray& array, std::uint64_t* rows, std::uint64_t* cols) {
  return array.GetDimension(rows, cols) == 0 && *cols != 0 &&
         *cols <= static_cast<std::uint64_t>(kMaxOutputTimes) &&
         array.GetElementType() == NVX3DRSVExTool::kRSVTypeDouble;
}

void WriteTimeArray(CRSVTool& tool, CRSVGroup* group, const Key& key) {
  const OutputTimes& block = key.As<OutputTimes>();
  // The count, as far as the list backs it with times.
  const std::uint64_t n = block.Written();
  CRSVGroup* steps = OpenOrCreateGroup(tool, group, kTimeStepGroup);
  if (steps == nullptr) return;
  CRSVArray* array = tool.OpenArray(steps, key.name);
  if (array == nullptr) {
    array = tool.CreateArray(steps, key.name, NVX3DRSVExTool::kRSVTypeDouble, n, 1);
  }
  if (array != nullptr) {
    // An existing array keeps its dimensions; the times go into its first
    // values, as many as both the count and the array allow.
    std::uint64_t rows = 0, cols = 0;
    if (UsableTimeArray(*array, &rows, &cols)) {
      const std::uint64_t written = std::min(rows, RowsFor(n, cols));
      std::vector<double> buffer(static_cast<std::size_t>(written * cols), 0.0);
      std::copy_n(block.Times.begin(), std::min<std::size_t>(n, buffer.size()), buffer.begin());
      array->WriteRows(written, buffer.data());
    }
    tool.CloseArray(array);
  }
  tool.CloseGroup(steps);
}

void ReadTimeArray(CRSVTool& tool, CRSVGroup* group, const Key& key) {
  OutputTimes& block = key.As<OutputTimes>();
  CRSVGroup* steps = tool.OpenGroup(group, kTimeStepGroup);
  if (steps == nullptr) return;
  if (CRSVArray* array = tool.OpenArray(steps, key.name)) {
    std::uint64_t rows = 0, cols = 0;
    // The number of times comes from the count in memory, not from the file;
    // the file's dimensions only limit how many of them it can supply. They
    // are its first values, row by row.
    const std::uint64_t wanted = block.Count > 0 ? static_cast<std::uint64_t>(block.Count) : 0;
    if (wanted != 0 && UsableTimeArray(*array, &rows, &cols)) {
      // Times past the list's end are never stored (the copy below throws at
      // the first of them), so the buffer needs no more than the list holds.
      const std::uint64_t held = std::min<std::uint64_t>(wanted, block.Times.size());
      const std::uint64_t read = std::min(rows, RowsFor(held, cols));
      std::vector<double> buffer(static_cast<std::size_t>(read * cols), 0.0);
      if (array->ReadRows(read, buffer.data()) == 0) {
        for (std::uint64_t i = 0; i < wanted; ++i) {
          block.At(static_cast<long long>(i)) = i < buffer.size() ? buffer[i] : 0.0;
        }
      }
    }
    tool.CloseArray(array);
  }
  tool.CloseGroup(steps);
}

// value + bias, wrapped to 32 bits rather than overflowing.
int WithBias(std::int32_t value, std::int32_t bias) {
  return static_cast<int>(static_cast<std::uint32_t>(value) + static_cast<std::uint32_t>(bias));
}

void SetItem(CRSVTable& table, const Key& key) {
  switch (key.kind) {
    case KeyKind::kInt:
      table.SetItem(key.name, WithBias(key.As<std::int32_t>(), key.bias));
      break;
    case KeyKind::kDouble:
      table.SetItem(key.name, key.As<double>());
      break;
    case KeyKind::kBool:
      table.SetItem(key.name, key.As<bool>());
      break;
    case KeyKind::kText:
      table.SetItem(key.name, key.As<std::string>());
      break;
    case KeyKind::kWideText:
      table.SetItem(key.name, platform::WideToNarrow(key.As<std::wstring>()));
      break;
    case KeyKind::kTimes:
      table.SetItem(key.name, static_cast<int>(key.As<OutputTimes>().Count));
      break;
    case KeyKind::kFixedInt:
      table.SetItem(key.name, static_cast<int>(key.fixedValue));
      break;
    case KeyKind::kCustom:
      if (key.custom->setItems != nullptr) key.custom->setItems(key, table);
      break;
    case KeyKind::kLines:
    case KeyKind::kTimeArray:
      break;
  }
}

void GetItem(CRSVTable& table, const Key& key, RsvScratch& scratch) {
  switch (key.kind) {
    case KeyKind::kInt:
      table.GetItem(key.name, &scratch.i);
      key.As<std::int32_t>() = WithBias(scratch.i, -key.bias);
      break;
    case KeyKind::kDouble:
      table.GetItem(key.name, &scratch.d);
      key.As<double>() = scratch.d;
      break;
    case KeyKind::kBool:
      table.GetItem(key.name, &scratch.b);
      key.As<bool>() = scratch.b;
      break;
    case KeyKind::kText:
      table.GetItem(key.name, &scratch.s);
      key.As<std::string>() = scratch.s;
      break;
    case KeyKind::kWideText:
      table.GetItem(key.name, &scratch.s);
      key.As<std::wstring>() = platform::NarrowToWide(scratch.s);
      break;
    case KeyKind::kTimes:
      table.GetItem(key.name, &scratch.i);
      key.As<OutputTimes>().Count = scratch.i;
      break;
    case KeyKind::kCustom:
      if (key.custom->getItems != nullptr) key.custom->getItems(key, table, scratch);
      break;
    case KeyKind::kFixedInt:
    case KeyKind::kLines:
    case KeyKind::kTimeArray:
      break;
  }
}

}  // namespace

void WriteSectionTable(CRSVTool& tool, CRSVGroup* group, const SectionDef& def,
                       CNVX3DComputationImpl& impl) {
  if (def.writeRsv != nullptr) {
    def.writeRsv(tool, group, impl);
    return;
  }
  const KeyList keys = def.keys(impl);
  CRSVTable* table = tool.OpenTable(group, def.rsvTable);
  if (table == nullptr) table = tool.CreateTable(group, def.rsvTable);
  if (table != nullptr) {
    for (const Key& key : keys) {
      if ((key.use & kRsvWrite) != 0 && key.kind != KeyKind::kTimeArray) SetItem(*table, key);
    }
    table->Flush();
    tool.CloseTable(table);
  }
  for (const Key& key : keys) {
    if ((key.use & kRsvWrite) == 0) continue;
    if (key.kind == KeyKind::kTimeArray) WriteTimeArray(tool, group, key);
    if (key.kind == KeyKind::kCustom && key.custom->writeBeside != nullptr) {
      key.custom->writeBeside(key, tool, group);
    }
  }
}

void ReadSectionTable(CRSVTool& tool, CRSVGroup* group, const SectionDef& def,
                      CNVX3DComputationImpl& impl) {
  if (def.readRsv != nullptr) {
    def.readRsv(tool, group, impl);
    return;
  }
  const KeyList keys = def.keys(impl);
  if (CRSVTable* table = tool.OpenTable(group, def.rsvTable)) {
    RsvScratch scratch;
    for (const Key& key : keys) {
      if ((key.use & kRsvRead) == 0 || key.kind == KeyKind::kTimeArray) continue;
      GetItem(*table, key, scratch);
      if (key.afterRsvRead != nullptr) key.afterRsvRead(impl);
    }
    tool.CloseTable(table);
  }
  for (const Key& key : keys) {
    if ((key.use & kRsvRead) == 0) continue;
    if (key.kind == KeyKind::kTimeArray) ReadTimeArray(tool, group, key);
    if (key.kind == KeyKind::kCustom && key.custom->readBeside != nullptr) {
      key.custom->readBeside(key, tool, group);
    }
  }
}

void WriteParameterTables(CRSVTool& tool, CRSVGroup* group, CNVX3DComputationImpl& impl) {
  for (const char* name : kWriteOrder) {
    if (const SectionDef* def = SectionOfTable(name)) WriteSectionTable(tool, group, *def, impl);
  }
}

void ReadParameterTables(CRSVTool& tool, CRSVGroup* group, CNVX3DComputationImpl& impl) {
  for (const char* name : kReadOrder) {
    if (const SectionDef* def = SectionOfTable(name)) ReadSectionTable(tool, group, *def, impl);
  }
}

void SizeTimesFromTable(const SectionDef& def, CRSVTable& table, CNVX3DComputationImpl& impl) {
  for (const Key& key : def.keys(impl)) {
    if (key.kind != KeyKind::kTimes || (key.use & kRsvWrite) == 0) continue;
    int count = 0;
    if (table.GetItem(key.name, &count)) key.As<OutputTimes>().SetFromFile(count, {});
  }
}

}  // namespace nvx
