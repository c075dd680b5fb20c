// libFuzzer target: the RSV reader over mutated files. Each input is an
// in-memory file image read through the library's facade (HDF5 parses it as
// it would a file on disk), into an object that expects output times so that
// the time arrays are read too. Its findings are mostly faults of the HDF5
// library itself; nvxparam reads files in a guarded child because of them.
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "NVX3DComputation.h"
#include "RSVMemoryFiles.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // A name that exists nowhere on disk; the tool keeps the file in memory.
  static const std::string path = [] {
    NVX3DRSVExTool::memory_files::Enable(true);
    return std::string("/nonexistent/nvx_rsv_fuzz.rsv");
  }();
  NVX3DRSVExTool::memory_files::Put(path, data, size);

  CNVX3DComputation c;
  c.SetFillOutputTimesSectionFillTimeSteps(4);
  c.SetPackOutputTimesSectionFillTimeSteps(4);
  c.SetRSVFilePath(path);
  try {
    c.ReadRSVFile();
  } catch (const std::out_of_range&) {
    // The documented error of a count larger than the list in memory.
  }
  return 0;
}
