// Keys of the three IC packaging sections and the paddle-shift time array.
#include "sections/IC.h"

#include <algorithm>
#include <vector>

#include "NVX3DRSVExTool.h"
#include "core/NVX3DComputationImpl.h"
#include "rsv/RSVTables.h"
#include "sections/ValueText.h"

using NVX3DRSVExTool::CRSVArray;
using NVX3DRSVExTool::CRSVGroup;
using NVX3DRSVExTool::CRSVTable;
using NVX3DRSVExTool::CRSVTool;

namespace nvx {

void ApplyICModeThree(CNVX3DSolidIC& r) {
  r.FlagStressSolverType = 3;
  r.FlagANSYSStressSolverAnalysisType = 0;
}

namespace {

constexpr char kPaddleTable[] = "IC_PADDLE_SHIFT_OUTPUT_TIMES";
// More rows than any solver writes; a larger stored array is not read.
constexpr std::uint64_t kMaxArrayRows = 1000000;

// ---- The paddle-shift time array ------------------------------------------------
//
// The times go into the array " IC_PADDLE_SHIFT_OUTPUT_TimeStep" (the leading
// blank is part of its name) of the "Time_Stemp" group, count rows by one
// column. An existing array keeps its dimensions: rows past the count are
// written as zeros.
//
// Reading needs no count in memory: the count item was read into the block
// just before (through the table's scratch int); the list becomes the first
// count values of the array, and a count larger than the array's rows is cut
// to the rows present. Nothing is read when the table itself is missing, and a
// missing array reads as one of no rows.

OutputTimes& TimesOf(const Key& key) { return key.As<OutputTimes>(); }

void GetPaddleCount(const Key& key, CRSVTable& table, RsvScratch& scratch) {
  table.GetItem("ValueNoPaddleShiftTime", &scratch.i);
  TimesOf(key).Count = scratch.i;
}

CRSVGroup* OpenOrCreateGroup(CRSVTool& tool, CRSVGroup* parent, const char* name) {
  CRSVGroup* g = tool.OpenGroup(parent, name);
  return g != nullptr ? g : tool.CreateGroup(parent, name);
}

void WritePaddleArray(const Key& key, CRSVTool& tool, CRSVGroup* group) {
  const OutputTimes& block = TimesOf(key);
  const std::uint64_t count = block.Count > 0 ? static_cast<std::uint64_t>(block.Count) : 0;
  CRSVGroup* steps = OpenOrCreateGroup(tool, group, kTimeStepGroup);
  if (steps == nullptr) return;
  CRSVArray* array = tool.OpenArray(steps, key.name);
  if (array == nullptr) {
    array = tool.CreateArray(steps, key.name, NVX3DRSVExTool::kRSVTypeDouble, count, 1);
  }
  if (array != nullptr) {
    std::uint64_t rows = 0, cols = 0;
    array->GetDimension(&rows, &cols);
    std::vector<double> buffer(std::max(rows * cols, count), 0.0);
    for (std::uint64_t i = 0; i < count; ++i) buffer[i] = block.At(static_cast<long long>(i));
    array->WriteArray(buffer.data());
    tool.CloseArray(array);
  }
  tool.CloseGroup(steps);
}

std::vector<double> ReadArrayValues(CRSVTool& tool, CRSVGroup* group, const char* name) {
  std::vector<double> values;
  CRSVGroup* steps = tool.OpenGroup(group, kTimeStepGroup);
  if (steps == nullptr) return values;
  if (CRSVArray* array = tool.OpenArray(steps, name)) {
    std::uint64_t rows = 0, cols = 0;
    array->GetDimension(&rows, &cols);
    if (array->GetElementType() == NVX3DRSVExTool::kRSVTypeDouble && cols == 1 &&
        rows <= kMaxArrayRows) {
      values.resize(static_cast<std::size_t>(rows));
      if (!values.empty() && array->ReadArray(values.data()) != 0) values.clear();
    }
    tool.CloseArray(array);
  }
  tool.CloseGroup(steps);
  return values;
}

void ReadPaddleArray(const Key& key, CRSVTool& tool, CRSVGroup* group) {
  CRSVTable* table = tool.OpenTable(group, kPaddleTable);
  if (table == nullptr) return;
  tool.CloseTable(table);
  OutputTimes& block = TimesOf(key);
  std::vector<double> values = ReadArrayValues(tool, group, key.name);
  if (block.Count <= 0) {
    block.Times.clear();
    return;
  }
  if (static_cast<std::uint64_t>(block.Count) < values.size()) values.resize(block.Count);
  block.Count = static_cast<std::int32_t>(values.size());
  block.Times = std::move(values);
}

const CustomOps kPaddleArrayOps = [] {
  CustomOps ops;
  ops.getItems = GetPaddleCount;
  ops.writeBeside = WritePaddleArray;
  ops.readBeside = ReadPaddleArray;
  return ops;
}();

// ---- Key tables ------------------------------------------------------------------

KeyList SolidICKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidIC& r = *impl.sections.ic;
  // The writer puts " = " after the first four keys and " =" (no blank after
  // the sign) after the rest; the reader takes both.
  constexpr const char* kTight = " =";
  return {
      Field("Version", r.Version),
      Field("FlagStressSolverType", r.FlagStressSolverType),
      Field("FlagANSYSStressSolverAnalysisType", r.FlagANSYSStressSolverAnalysisType),
      Field("FlagDragForceModel", r.FlagDragForceModel),
      Field("FlagWireSweepNonLinearOption", r.FlagWireSweepNonLinearOption).Sep(kTight),
      Field("FlagWireSweepNLMatOption", r.FlagWireSweepNLMatOption).Sep(kTight),
      // Shared field: the geometric non-linearity has no field of its own. Both
      // keys write the one value and either key read stores into it, the later
      // line (and the later RSV item) winning.
      Field("FlagWireSweepNLGEOMOption", r.FlagWireSweepNonLinearOption).Sep(kTight),
      Field("FlagPaddleShiftNonLinearOption", r.FlagPaddleShiftNonLinearOption).Sep(kTight),
      // The folders take the rest of the line up to the next "=": blanks survive.
      Custom("ANSYSStressSolverDirectory", &r.ANSYSStressSolverDirectory, kTextUpToEqualsOps)
          .Sep(kTight),
      Custom("ABAQUSStressSolverDirectory", &r.ABAQUSStressSolverDirectory, kTextUpToEqualsOps)
          .Sep(kTight),
      Custom("OutputBatchFileDirectory", &r.OutputBatchFileDirectory, kTextUpToEqualsOps)
          .Sep(kTight),
      Field("WireTolerance", r.WireTolerance).Sep(kTight),
  };
}

KeyList PaddleKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidIC& r = *impl.sections.ic;
  return {
      Field("Version", r.PaddleVersion),
      Field("FlagAutoLoadIntermediateResult", r.PaddleFlagAutoLoadIntermediateResult),
      // "Intermedite" is spelt so in both files.
      Field("ValueCheckIntermediteTimeSpan", r.PaddleValueCheckIntermediteTimeSpan),
      // The count item is written here and read back by the array key below,
      // which sizes the list from the stored array.
      Times("ValueNoPaddleShiftTime", r.PaddleTimes).Use(kKrn | kRsvWrite),
      // The leading blank is part of the array's name.
      Custom(" IC_PADDLE_SHIFT_OUTPUT_TimeStep", &r.PaddleTimes, kPaddleArrayOps).Use(kRsv),
  };
}

KeyList WireSweepKeys(CNVX3DComputationImpl& impl) {
  CNVX3DSolidIC& r = *impl.sections.ic;
  return {
      Field("Version", r.WireSweepVersion),
      Field("FlagAutoLoadIntermediateResult", r.WireSweepFlagAutoLoadIntermediateResult),
      Field("ValueCheckIntermediteTimeSpan", r.WireSweepValueCheckIntermediteTimeSpan),
      Times("ValueNoWireSweepTime", r.WireSweepTimes),
  };
}

}  // namespace

const SectionDef kSolidICSection{KrnTag::kSolidIC, "SOLID_IC", SolidICKeys};
const SectionDef kICPaddleShiftOutputTimesSection{KrnTag::kICPaddleShiftOutputTimes, kPaddleTable,
                                                  PaddleKeys};
// The wire-sweep times have no RSV table: they live only in KRN files.
const SectionDef kICWireSweepOutputTimesSection{KrnTag::kICWireSweepOutputTimes, nullptr,
                                                WireSweepKeys};

}  // namespace nvx
