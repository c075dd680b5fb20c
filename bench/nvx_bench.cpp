// Speed of the paths hosts run thousands of times: loading and writing a
// parameter file, and writing and reading the RSV tables.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "NVX3DComputation.h"

namespace {

std::string ScratchPath(const char* name) {
  return (std::filesystem::temp_directory_path() / name).string();
}

NVXData SolidProject(const std::string& path, int loadMode) {
  NVXData d{};
  d.KRNFilePath = path;
  d.LoadMode = loadMode;
  d.ModelKind = 2;
  d.CoolingTime = 20.0;
  d.MoldOpenTime = 5.0;
  d.MoldPreheatTime = 600.0;
  return d;
}

// A solid project's parameter file with a few hundred output times.
std::string MakeProjectFile() {
  const std::string path = ScratchPath("nvx_bench_project.krn");
  std::filesystem::remove(path);
  CNVX3DComputation c;
  c.LoadKRNFile(SolidProject(path, 1));
  c.SetFillOutputTimesSectionFillTimeSteps(300);
  c.SetPackOutputTimesSectionFillTimeSteps(300);
  // Cooling-stage times, an annealing profile and a few part inserts.
  c.SetValueNoCoolOutputTimeSteps(100);
  c.SetValueNoOpenOutputTimeSteps(100);
  c.SetMoldPreheatTimeSteps(100);
  c.SetSolidStressTempTimeCount(50);
  c.SetSolidStressMatTempPartCount(50);
  c.SetSolidStressOutPutTimingCount(50);
  c.SetPartInsertCount(4);
  for (int i = 0; i < 4; ++i) {
    c.SetPartInsertModulusCount(i, 20);
    c.SetPartInsertCLTECount(i, 20);
  }
  c.WriteKRNFile(path, 0);
  return path;
}

void BM_LoadKrn(benchmark::State& state) {
  const std::string path = MakeProjectFile();
  for (auto _ : state) {
    CNVX3DComputation c;
    benchmark::DoNotOptimize(c.LoadKRNFile(path.c_str()));
  }
}
BENCHMARK(BM_LoadKrn);

void BM_WriteKrn(benchmark::State& state) {
  const std::string path = MakeProjectFile();
  CNVX3DComputation c;
  c.LoadKRNFile(SolidProject(path, 0));
  for (auto _ : state) benchmark::DoNotOptimize(c.WriteKRNFile(path, 0));
}
BENCHMARK(BM_WriteKrn);

void BM_RsvRoundTrip(benchmark::State& state) {
  const std::string krn = MakeProjectFile();
  const std::string rsv = ScratchPath("nvx_bench_project.rsv");
  std::filesystem::remove(rsv);
  CNVX3DComputation c;
  c.LoadKRNFile(krn.c_str());
  c.SetRSVFilePath(rsv);
  for (auto _ : state) {
    benchmark::DoNotOptimize(c.WriteRSVFile());
    benchmark::DoNotOptimize(c.ReadRSVFile());
  }
}
BENCHMARK(BM_RsvRoundTrip);

}  // namespace
