#!/usr/bin/env bash
# Installs what is needed, builds and runs the whole test suite. Each mode has
# a build folder of its own and forces the options it needs, so no other
# command's configuration can switch the tests off; a run that finds no test
# fails.
#   scripts/test.sh             regular build in build/
#   scripts/test.sh --sanitize  AddressSanitizer + UBSan build in build-asan/
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
dir=build
flags=(-DNVX_BUILD_TESTS=ON -DNVX_SANITIZE=OFF)
if [ "${1:-}" = "--sanitize" ]; then
  dir=build-asan
  flags=(-DNVX_BUILD_TESTS=ON -DNVX_SANITIZE=ON -DNVX_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=Debug)
elif [ -n "${1:-}" ]; then
  echo "usage: scripts/test.sh [--sanitize]" >&2
  exit 2
fi
cmake -S . -B "$dir" "${flags[@]}"
cmake --build "$dir" -j"$(nproc)"
ctest --test-dir "$dir" --output-on-failure -j"$(nproc)" --no-tests=error
