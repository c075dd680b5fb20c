// An output-time block: a stored count and a list of times. Files and
// accessors use the count; the count setter keeps the two in step.
#ifndef NVX_CORE_OUTPUTTIMES_H_
#define NVX_CORE_OUTPUTTIMES_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "core/Subscript.h"

namespace nvx {

// More output times than any solver takes: a count read from a file keeps its
// value, but the list it sizes never holds more than this many times.
inline constexpr std::int32_t kMaxOutputTimes = 1000000;

// The RSV group of the time-step arrays, beside the parameter tables (the
// name is spelt so).
inline constexpr const char kTimeStepGroup[] = "Time_Stemp";

struct OutputTimes {
  std::int32_t Count = 0;
  std::vector<double> Times;

  // Appends (n - Count) zeros or drops (Count - n) times from the end, then
  // stores n. The difference is taken against the stored count, not against the
  // list's length, so a list longer than its count stays longer by as much.
  void SetCount(std::int32_t n) {
    long long diff = static_cast<long long>(n) - Count;
    if (diff > 0) {
      Times.insert(Times.end(), static_cast<std::size_t>(diff), 0.0);
    } else {
      for (long long k = diff; k < 0 && !Times.empty(); ++k) Times.pop_back();
    }
    Count = n;
  }

  // A count as a file stores it, with the times the file gave: the count is
  // kept as it stands; the list holds `times`, then 0.0 for the times the file
  // did not give, up to the count (none for a count below 1) but never beyond
  // kMaxOutputTimes entries.
  void SetFromFile(std::int32_t n, std::vector<double> times) {
    const std::size_t size =
        static_cast<std::size_t>(std::clamp<std::int32_t>(n, 0, kMaxOutputTimes));
    times.resize(size, 0.0);
    Count = n;
    Times = std::move(times);
  }

  // How many times a writer emits: the count, but never more than the list
  // holds, so a count a file could not back with times never makes a write fail.
  std::size_t Written() const {
    return std::min(Times.size(), static_cast<std::size_t>(std::max<std::int32_t>(Count, 0)));
  }

  double& At(long long index) { return nvx::At(Times, index); }
  const double& At(long long index) const { return nvx::At(Times, index); }
};

}  // namespace nvx

#endif  // NVX_CORE_OUTPUTTIMES_H_
