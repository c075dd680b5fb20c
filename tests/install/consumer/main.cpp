// Uses the public headers only: the facade, the project description, a
// remote machine and the RSV companion library.
#include <cstdio>

#include "NVX3DComputation.h"
#include "NVX3DRSVExTool.h"

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  CNVX3DComputation parameters;
  NVXData data{};
  data.KRNFilePath = argv[1];
  data.LoadMode = 1;
  data.ModelKind = 2;
  RemoteParm machine;
  NVX3DRSVExTool::CRSVTool tool;
  if (!parameters.LoadKRNFile(data) || !parameters.WriteKRNFile(argv[1], 0)) return 1;
  bool solid = false;
  parameters.GetSummaryFlag3D(solid);
  std::printf("solid=%d weighting=%g\n", solid ? 1 : 0, machine.ValueMachineWeighting);
  return solid ? 0 : 1;
}
