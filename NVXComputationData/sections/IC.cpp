// Keys of the three IC packaging sections and the paddle-shift time array.
#include "sections/IC.h"

#include <algorithm>
#include <vector>

#include "NVX3DRSVExTool.h"
#include "core/NVX3DComputationImpl.h"
#include "core/OutputTimes.h"
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

// ---- The paddle-shift time array ------------------------------------------------
//
// The times go into the array " IC_PADDLE_SHIFT_OUTPUT_TimeStep" (the leading
// blank is part of its name) of the "Time_Stemp" group, count rows by one
// column. An existing array keeps its dimensions: its values past the times
// are written as zeros (an array too large for that gets only the rows that
// hold times).
//
// Reading needs no count in memory: the count item was read into the block
// just before (through the table's scratch int) and is kept as it stands; the
// list becomes the array's first values, row by row whatever its width, and
// 0.0 for each time the array does not hold, never more than kMaxOutputTimes
// of them. Nothing is read when the table itself is missing, and a missing
// array reads as one of no rows.

OutputTimes& TimesOf(const Key& key) { return key.As<OutputTimes>(); }

void GetPaddleCount(const Key& key, CRSVTable& table, RsvScratch& scratch) {
  table.GetItem("ValueNoPaddleShiftTime", &scratch.i);
  TimesOf(key).Count = scratch.i;
}

CRSVGroup* OpenOrCreateGroup(CRSVTool& tool, CRSVGroup* parent, const char* name) {
  CRSVGroup* g = tool.OpenGroup(parent, name);
  return g != nullptr ? g : tool.CreateGroup(parent, name);
}

// Whole rows of `cols` values that hold `values` values.
std::uint64_t RowsFor(std::uint64_t values, std::uint64_t cols) {
  return (values + cols - 1) / cols;
}

// The array's dimensions, when it holds doubles in rows no wider than a list
// of times can be: a wider row is taken for damage and left alone.
bool UsableArray(CRSVArray& array, std::uint64_t* rows, std::uint64_t* cols) {
  return array.GetDimension(rows, cols) == 0 && *cols != 0 &&
         *cols <= static_cast<std::uint64_t>(kMaxOutputTimes) &&
         array.GetElementType() == NVX3DRSVExTool::kRSVTypeDouble;
}

void WritePaddleArray(const Key& key, CRSVTool& tool, CRSVGroup* group) {
  const OutputTimes& block = TimesOf(key);
  // The count, as far as the list backs it with times.
  const std::uint64_t n = block.Written();
  CRSVGroup* steps = OpenOrCreateGroup(tool, group, kTimeStepGroup);
  if (steps == nullptr) return;
  CRSVArray* array = tool.OpenArray(steps, key.name);
  if (array == nullptr) {
    array = tool.CreateArray(steps, key.name, NVX3DRSVExTool::kRSVTypeDouble, n, 1);
  }
  if (array != nullptr) {
    std::uint64_t rows = 0, cols = 0;
    if (UsableArray(*array, &rows, &cols)) {
      const std::uint64_t maxRows = static_cast<std::uint64_t>(kMaxOutputTimes) / cols;
      const std::uint64_t written = rows <= maxRows ? rows : std::min(rows, RowsFor(n, cols));
      std::vector<double> buffer(static_cast<std::size_t>(written * cols), 0.0);
      std::copy_n(block.Times.begin(), std::min<std::size_t>(n, buffer.size()), buffer.begin());
      array->WriteRows(written, buffer.data());
    }
    tool.CloseArray(array);
  }
  tool.CloseGroup(steps);
}

// The first `wanted` values of the array, or fewer when it holds fewer.
std::vector<double> ReadArrayValues(CRSVTool& tool, CRSVGroup* group, const char* name,
                                    std::size_t wanted) {
  std::vector<double> values;
  CRSVGroup* steps = tool.OpenGroup(group, kTimeStepGroup);
  if (steps == nullptr) return values;
  if (CRSVArray* array = tool.OpenArray(steps, name)) {
    std::uint64_t rows = 0, cols = 0;
    if (wanted != 0 && UsableArray(*array, &rows, &cols)) {
      const std::uint64_t read = std::min(rows, RowsFor(wanted, cols));
      values.resize(static_cast<std::size_t>(read * cols));
      if (array->ReadRows(read, values.data()) != 0) values.clear();
      if (values.size() > wanted) values.resize(wanted);
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
  const std::size_t wanted =
      static_cast<std::size_t>(std::clamp<std::int32_t>(block.Count, 0, kMaxOutputTimes));
  block.SetFromFile(block.Count, ReadArrayValues(tool, group, key.name, wanted));
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
      // which fills the list from the stored array.
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
