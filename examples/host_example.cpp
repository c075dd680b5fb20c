// A host's use of the library: load a project's parameters (the defaults of a
// solid project when the file is new), change one, write the KRN and RSV files.
#include <cstdio>
#include <fstream>

#include "NVX3DComputation.h"

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: host_example PROJECT.krn PROJECT.rsv\n");
    return 2;
  }
  NVXData project{};
  project.KRNFilePath = argv[1];
  project.ModelKind = 2;                              // a solid model
  project.LoadMode = std::ifstream(argv[1]) ? 0 : 1;  // its own file, or the defaults
  CNVX3DComputation parameters;
  if (!parameters.LoadKRNFile(project)) return 1;
  parameters.SetSolidFillFlagInertia(true);
  parameters.SetRSVFilePath(argv[2]);
  const bool written = parameters.WriteKRNFile(argv[1], 0) && parameters.WriteRSVFile();
  std::printf("%s %s\n", written ? "wrote" : "failed to write", argv[1]);
  return written ? 0 : 1;
}
