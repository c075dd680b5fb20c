// Speed of the foaming material lookup that every load with a project
// description runs: the per-user INI read and the lookup alone, and a whole
// load of a project without a KRN file (defaults plus the lookup).
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>

#include "NVX3DComputation.h"
#include "core/NVX3DComputationImpl.h"
#include "userfiles/FoamingMaterial.h"

namespace {

// Points the per-user directory at a scratch directory for the benchmarks.
void UseScratchUserDirectory() {
  static const std::string dir =
      (std::filesystem::temp_directory_path() / "nvx_bench_userdir").string();
  setenv("XDG_CONFIG_HOME", dir.c_str(), 1);
}

NVXData FilledMaterialProject() {
  NVXData d{};
  d.KRNFilePath = (std::filesystem::temp_directory_path() / "nvx_bench_absent.krn").string();
  d.ModelKind = 2;
  d.MaterialName = "PBT";  // filled: "_Filler" missing, then the plain key
  d.MaterialHasFiller = true;
  return d;
}

void BM_FoamingMaterialLookup(benchmark::State& state) {
  UseScratchUserDirectory();
  CNVX3DComputationImpl impl;
  impl.data = FilledMaterialProject();
  for (auto _ : state) nvx::ApplyFoamingMaterial(impl);
  benchmark::DoNotOptimize(impl.sections.foaming->GasSolubilityParameter);
}
BENCHMARK(BM_FoamingMaterialLookup);

void BM_LoadWithoutKrnFile(benchmark::State& state) {
  UseScratchUserDirectory();
  const NVXData d = FilledMaterialProject();
  CNVX3DComputation c;
  for (auto _ : state) benchmark::DoNotOptimize(c.LoadKRNFile(d));
}
BENCHMARK(BM_LoadWithoutKrnFile);

}  // namespace
