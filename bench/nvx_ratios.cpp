// The project measured against its baselines in one run, printed as a
// Markdown table of ratios: KRN load against reading the bytes and against
// libinih on the same file; KRN write against one buffered write of the same
// bytes, plain and with the numbers formatted; RSV write and read against a
// hand-written HDF5 program; construction; scaling with the number of output
// times; memory of a loaded object and over many load cycles.
//
//   nvx_ratios [--reps R] [--cycles C] [--dir D]
//
// Every figure is the median of R repetitions; each repetition times enough
// calls to last about 20 ms and reports the mean of one call. A measure and its
// baseline run in turns and each ratio is the median of the repetitions'
// ratios, so that the load of a shared machine falls on both alike.
#include <ini.h>
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <new>
#include <sstream>
#include <string>
#include <vector>

#include "Hdf5Baseline.h"
#include "NVX3DComputation.h"

// Live heap bytes and allocation calls of the whole program.
namespace {
std::atomic<long long> g_liveBytes{0};
std::atomic<long long> g_allocations{0};
}  // namespace

// The replaced operator delete frees what the replaced operator new took from
// malloc; GCC, seeing free() inlined beside a call of operator new, takes the
// pair for a mismatch.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
#endif

// Counted as the allocator's usable size of each block (glibc), which is the
// requested size rounded up to the allocator's granule.
void* operator new(std::size_t size) {
  void* p = std::malloc(size == 0 ? 1 : size);
  if (p == nullptr) throw std::bad_alloc();
  g_liveBytes += static_cast<long long>(malloc_usable_size(p));
  ++g_allocations;
  return p;
}
void operator delete(void* p) noexcept {
  if (p == nullptr) return;
  g_liveBytes -= static_cast<long long>(malloc_usable_size(p));
  std::free(p);
}
void operator delete(void* p, std::size_t) noexcept { operator delete(p); }

namespace {

using Clock = std::chrono::steady_clock;

int g_reps = 5;

// Calls of `f` that last about 20 ms.
int Calibrate(const std::function<void()>& f) {
  f();  // warm caches and files
  int calls = 1;
  for (;;) {
    const auto start = Clock::now();
    for (int i = 0; i < calls; ++i) f();
    const double s = std::chrono::duration<double>(Clock::now() - start).count();
    if (s > 0.02 || calls >= (1 << 24)) return calls;
    calls *= 2;
  }
}

double MeanOf(const std::function<void()>& f, int calls) {
  const auto start = Clock::now();
  for (int i = 0; i < calls; ++i) f();
  return std::chrono::duration<double>(Clock::now() - start).count() / calls;
}

double Median(std::vector<double> v) {
  std::sort(v.begin(), v.end());
  return v[v.size() / 2];
}

// Mean seconds of one call of `f`, median over the repetitions.
double Time(const std::function<void()>& f) {
  const int calls = Calibrate(f);
  std::vector<double> samples;
  for (int r = 0; r < g_reps; ++r) samples.push_back(MeanOf(f, calls));
  return Median(samples);
}

// `f` against its baseline `g`, timed in turns so that both see the same load
// of a shared machine: the medians of each and the median of the ratios of
// the repetitions.
struct Pair {
  double f, g, ratio;
};
Pair TimePair(const std::function<void()>& f, const std::function<void()>& g) {
  const int fc = Calibrate(f);
  const int gc = Calibrate(g);
  std::vector<double> fs, gs, ratios;
  for (int r = 0; r < g_reps; ++r) {
    fs.push_back(MeanOf(f, fc));
    gs.push_back(MeanOf(g, gc));
    ratios.push_back(fs.back() / gs.back());
  }
  return {Median(fs), Median(gs), Median(ratios)};
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

NVXData Solid(const std::string& path, int mode) {
  NVXData d{};
  d.KRNFilePath = path;
  d.LoadMode = mode;
  d.ModelKind = 2;
  d.CoolingTime = 20.0;
  d.MoldOpenTime = 5.0;
  d.MoldPreheatTime = 600.0;
  return d;
}

// A solid document written by the library with n output times split between
// fill and pack, each time a distinct double.
void MakeDocument(const std::string& path, int n) {
  std::filesystem::remove(path);
  CNVX3DComputation c;
  c.LoadKRNFile(Solid(path, 1));
  const int fill = n / 2;
  const int pack = n - fill;
  c.SetFillOutputTimesSectionFillTimeSteps(fill);
  c.SetPackOutputTimesSectionFillTimeSteps(pack);
  for (int i = 0; i < fill; ++i) c.SetFillOutputTimesSectionFillTimeStepsValue(i, 0.0137 * (i + 1));
  for (int i = 0; i < pack; ++i) c.SetPackOutputTimesSectionFillTimeStepsValue(i, 1.7 + 0.0213 * i);
  c.WriteKRNFile(path, 0);
}

// The same document for libinih: tags become "[section]" lines, closing tags
// and the declaration go.
void MakeIni(const std::string& krn, const std::string& ini) {
  std::istringstream in(ReadFile(krn));
  std::ofstream out(ini, std::ios::binary);
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] != '<') {
      out << line << '\n';
    } else if (line.size() > 2 && line[1] != '/' && line[1] != '?' && line != "<KRN_FILE>") {
      out << '[' << line.substr(1, line.size() - 2) << "]\n";
    }
  }
}

int CountPair(void* user, const char*, const char*, const char*) {
  ++*static_cast<long*>(user);
  return 1;
}

// The document split into its text and its doubles, to format it again the
// way a plain program would: snprintf("%g") and one buffered write.
struct Formatted {
  std::vector<std::string> text;  // text[i] precedes value[i]
  std::vector<double> values;
};

Formatted SplitNumbers(const std::string& doc) {
  Formatted f;
  std::string pending;
  std::istringstream in(doc);
  std::string line;
  while (std::getline(in, line)) {
    // "<i> = <time>" item lines of the output times carry the doubles.
    const std::size_t eq = line.find(" = ");
    char* end = nullptr;
    if (eq != std::string::npos && line.find_first_not_of("0123456789") == eq) {
      const double v = std::strtod(line.c_str() + eq + 3, &end);
      if (end != nullptr && *end == '\0') {
        f.text.push_back(pending + line.substr(0, eq + 3));
        f.values.push_back(v);
        pending = "\n";
        continue;
      }
    }
    pending += line + "\n";
  }
  f.text.push_back(pending);
  return f;
}

void WriteAll(const std::string& path, const std::string& bytes) {
  std::FILE* f = std::fopen(path.c_str(), "wb");
  std::fwrite(bytes.data(), 1, bytes.size(), f);
  std::fclose(f);
}

long RssKb() {
  std::ifstream in("/proc/self/statm");
  long pages = 0, resident = 0;
  in >> pages >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

struct Row {
  std::string measure, now, baseline, ratio, goal;
};

std::string Ms(double s) {
  char b[32];
  std::snprintf(b, sizeof b, s < 1e-3 ? "%.1f us" : "%.3f ms", s < 1e-3 ? s * 1e6 : s * 1e3);
  return b;
}
std::string X(double r) {
  char b[32];
  std::snprintf(b, sizeof b, "%.2fx", r);
  return b;
}

}  // namespace

int main(int argc, char** argv) {
  long cycles = 100000;
  std::string dir = std::filesystem::exists("/dev/shm") ? "/dev/shm" : "/tmp";
  for (int i = 1; i + 1 < argc; i += 2) {
    const std::string flag = argv[i];
    if (flag == "--reps") g_reps = std::max(1, std::atoi(argv[i + 1]));
    if (flag == "--cycles") cycles = std::max(1L, std::atol(argv[i + 1]));
    if (flag == "--dir") dir = argv[i + 1];
  }
  dir += "/nvx_ratios_" + std::to_string(getpid());
  std::filesystem::create_directories(dir);
  setenv("XDG_CONFIG_HOME", (dir + "/user").c_str(), 1);
  std::vector<Row> rows;

  // KRN load at N = 10^4.
  const std::string krn = dir + "/project.krn";
  const std::string ini = dir + "/project.ini";
  MakeDocument(krn, 10000);
  MakeIni(krn, ini);
  CNVX3DComputation loaded;
  const auto load = [&] { loaded.LoadKRNFile(krn.c_str()); };
  const Pair bytes = TimePair(load, [&] {
    std::FILE* f = std::fopen(krn.c_str(), "rb");
    static char buffer[1 << 16];
    while (std::fread(buffer, 1, sizeof buffer, f) == sizeof buffer) {
    }
    std::fclose(f);
  });
  long pairs = 0;
  const Pair inih = TimePair(load, [&] {
    pairs = 0;
    ini_parse(ini.c_str(), CountPair, &pairs);
  });
  rows.push_back(
      {"KRN load, N = 10^4", Ms(bytes.f), "reading the bytes " + Ms(bytes.g), X(bytes.ratio), "-"});
  rows.push_back(
      {"KRN load, N = 10^4", Ms(inih.f),
       "libinih, same file as [section] lines (" + std::to_string(pairs) + " pairs) " + Ms(inih.g),
       X(inih.ratio), "at most 0.80x"});

  // KRN write at N = 10^4.
  const std::string out = dir + "/written.krn";
  const std::string plain = dir + "/plain.krn";
  const auto write = [&] { loaded.WriteKRNFile(out, 0); };
  write();
  const std::string doc = ReadFile(out);
  const Pair oneWrite = TimePair(write, [&] { WriteAll(plain, doc); });
  const Formatted parts = SplitNumbers(doc);
  const Pair formatted = TimePair(write, [&] {
    std::string text;
    text.reserve(doc.size());
    char number[32];
    for (std::size_t i = 0; i < parts.values.size(); ++i) {
      text += parts.text[i];
      text.append(number, static_cast<std::size_t>(
                              std::snprintf(number, sizeof number, "%g", parts.values[i])));
    }
    text += parts.text.back();
    WriteAll(plain, text);
  });
  rows.push_back({"KRN write, N = 10^4", Ms(oneWrite.f),
                  "one buffered write of the bytes " + Ms(oneWrite.g), X(oneWrite.ratio), "-"});
  rows.push_back(
      {"KRN write, N = 10^4", Ms(formatted.f),
       "the same, " + std::to_string(parts.values.size()) + " numbers formatted " + Ms(formatted.g),
       X(formatted.ratio), "at most 1.30x"});

  // RSV write into an existing file, and read.
  const std::string rsv = dir + "/project.rsv";
  loaded.SetRSVFilePath(rsv);
  loaded.WriteRSVFile();
  const nvxbench::Hdf5Layout layout(rsv);
  const std::string copy = dir + "/baseline.rsv";
  std::filesystem::copy_file(rsv, copy, std::filesystem::copy_options::overwrite_existing);
  const Pair rsvWrite = TimePair([&] { loaded.WriteRSVFile(); }, [&] { layout.Write(copy); });
  const Pair rsvRead = TimePair([&] { loaded.ReadRSVFile(); }, [&] { layout.Read(copy); });
  const std::string shape = std::to_string(layout.ObjectCount()) + " objects, " +
                            std::to_string(layout.ItemCount()) + " items";
  rows.push_back({"RSV write, existing file", Ms(rsvWrite.f),
                  "plain HDF5 program (" + shape + ") " + Ms(rsvWrite.g), X(rsvWrite.ratio),
                  "at most 1.20x"});
  rows.push_back({"RSV read", Ms(rsvRead.f), "plain HDF5 program " + Ms(rsvRead.g),
                  X(rsvRead.ratio), "at most 1.20x"});

  // Construction.
  const double construct = Time([] { delete new CNVX3DComputation; });
  rows.push_back({"construct + destroy", Ms(construct), "-", "-", "at most 1 us"});

  // Scaling: load and write per output time.
  std::vector<std::pair<int, std::pair<double, double>>> scaling;
  for (int n : {10, 100, 1000, 10000}) {
    const std::string path = dir + "/scale.krn";
    MakeDocument(path, n);
    CNVX3DComputation c;
    const double l = Time([&] { c.LoadKRNFile(path.c_str()); });
    const double w = Time([&] { c.WriteKRNFile(path, 0); });
    scaling.push_back({n, {l, w}});
  }

  // Memory of one loaded object at N = 600, then over many load cycles.
  const std::string mem = dir + "/mem.krn";
  MakeDocument(mem, 600);
  long long objectBytes = 0, objectAllocations = 0;
  {
    const long long before = g_liveBytes, calls = g_allocations;
    auto* c = new CNVX3DComputation;
    c->LoadKRNFile(mem.c_str());
    objectBytes = g_liveBytes - before;
    objectAllocations = g_allocations - calls;
    delete c;
  }
  CNVX3DComputation cycler;
  cycler.LoadKRNFile(mem.c_str());
  const long long liveStart = g_liveBytes;
  const long rssStart = RssKb();
  for (long i = 0; i < cycles; ++i) cycler.LoadKRNFile(mem.c_str());
  const long long liveEnd = g_liveBytes;
  const long rssEnd = RssKb();

  std::printf(
      "| measure | now | baseline in the same run | ratio | goal |\n|---|---|---|---|---|\n");
  for (const Row& r : rows) {
    std::printf("| %s | %s | %s | %s | %s |\n", r.measure.c_str(), r.now.c_str(),
                r.baseline.c_str(), r.ratio.c_str(), r.goal.c_str());
  }
  std::printf(
      "\n| N output times | load | load per time | write | write per time "
      "|\n|---|---|---|---|---|\n");
  for (const auto& [n, lw] : scaling) {
    std::printf("| %d | %s | %.1f ns | %s | %.1f ns |\n", n, Ms(lw.first).c_str(),
                lw.first / n * 1e9, Ms(lw.second).c_str(), lw.second / n * 1e9);
  }
  const double growth = scaling[3].second.first / scaling[2].second.first;
  std::printf("\nLoad time from N = 10^3 to 10^4 grows %.1fx (linear: at most 10x).\n", growth);
  std::printf(
      "Memory: one object loaded at N = 600 holds %lld bytes in %lld allocations; over %ld load "
      "cycles the live heap went from %lld to %lld bytes and the resident set from %ld to %ld "
      "KB.\n",
      objectBytes, objectAllocations, cycles, liveStart, liveEnd, rssStart, rssEnd);
  std::printf("Medians of %d repetitions; files in %s.\n", g_reps,
              dir.substr(0, dir.find_last_of('/')).c_str());
  std::filesystem::remove_all(dir);
  return 0;
}
