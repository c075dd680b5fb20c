// An output-time block: a stored count and a list of times. Files and
// accessors use the count; the count setter keeps the two in step.
#ifndef NVX_CORE_OUTPUTTIMES_H_
#define NVX_CORE_OUTPUTTIMES_H_

#include <cstdint>
#include <vector>

#include "core/Subscript.h"

namespace nvx {

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

  double& At(long long index) { return nvx::At(Times, index); }
  const double& At(long long index) const { return nvx::At(Times, index); }
};

}  // namespace nvx

#endif  // NVX_CORE_OUTPUTTIMES_H_
