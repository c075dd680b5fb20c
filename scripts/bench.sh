#!/usr/bin/env bash
# Builds the side-by-side benchmark in an optimised build of its own and runs
# it; the Markdown table of ratios goes to standard output and to
# bench/RESULTS.md. Arguments are passed to the program:
#   scripts/bench.sh [--reps R] [--cycles C] [--dir D]
# Timings only: nothing here is a test, and no result fails the script.
set -euo pipefail
cd "$(dirname "$0")/.."
dir=${BENCH_BUILD_DIR:-build-bench}
cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=Release -DNVX_BUILD_TESTS=OFF -DNVX_BUILD_BENCH=ON \
      -DNVX_BUILD_EXAMPLES=OFF -DNVX_SANITIZE=OFF >/dev/null
cmake --build "$dir" --target nvx_ratios -j"$(nproc)" >/dev/null
{
  echo "Measured $(date -u +%Y-%m-%d) on $(nproc) cores ($(uname -m), $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2 | sed 's/^ //'))."
  echo
  "$dir/bin/nvx_ratios" "$@"
} | tee bench/RESULTS.md
