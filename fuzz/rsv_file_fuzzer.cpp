// libFuzzer target: the RSV reader over mutated files. HDF5 reads only files,
// so each input is written to a file on a memory file system (/dev/shm when
// it exists) and read back through the library's facade, into an object that
// expects output times so that the time arrays are read too.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "NVX3DComputation.h"

namespace {

std::string InputPath() {
  const char* dir = ::access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
  return std::string(dir) + "/nvx_rsv_fuzz_" + std::to_string(::getpid()) + ".rsv";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string path = InputPath();
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) std::abort();
  if (size > 0 && std::fwrite(data, 1, size, file) != size) std::abort();
  std::fclose(file);

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
