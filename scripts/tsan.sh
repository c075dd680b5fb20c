#!/usr/bin/env bash
# Builds the library and the threading test with clang and ThreadSanitizer in
# build-tsan/ and runs the test. The system's HDF5 library is not built for
# threads; the RSV tool serialises every call into it behind one lock.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
if ! dpkg -s clang libclang-rt-dev >/dev/null 2>&1; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq clang libclang-rt-dev
fi
dir=build-tsan
CC=clang CXX=clang++ cmake -S . -B "$dir" -DNVX_TSAN=ON -DNVX_WERROR=OFF -DNVX_BUILD_BENCH=OFF \
  -DNVX_BUILD_EXAMPLES=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$dir" -j"$(nproc)" --target threading_test
TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1" "$dir/bin/threading_test"
