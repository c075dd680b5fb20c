#!/usr/bin/env bash
# Installs what is needed, builds, writes the default parameter file of a
# solid project and prints its Summary.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh
cmake -S . -B build -DNVX_BUILD_TESTS=OFF -DNVX_BUILD_BENCH=OFF >/dev/null
cmake --build build -j"$(nproc)" >/dev/null
out="${1:-$(mktemp -d)/project.krn}"
rm -f "$out"
build/bin/nvxparam new --model-kind 2 "$out"
echo "wrote $out"
build/bin/nvxparam show "$out" | sed -n '/^\[SUMMARY\]/,/^$/p'
