#!/usr/bin/env bash
# Installs what is needed, builds the library and nvxparam in build-demo/ (a
# folder of its own, so the test command's build/ is never touched), writes the
# default parameter file of a solid project and prints its Summary.
#   scripts/demo.sh            writes into a temporary folder, removed at the end
#   scripts/demo.sh FILE.krn   writes FILE.krn, which must not exist yet
set -euo pipefail
out="${1:-}"
if [ -n "$out" ]; then
  # Refuse before building anything: the demo never replaces a file.
  if [ -e "$out" ] || [ -L "$out" ]; then
    echo "demo: $out already exists; give a new file name" >&2
    exit 2
  fi
  case "$out" in /*) ;; *) out="$PWD/$out" ;; esac
fi
cd "$(dirname "$0")/.."
scripts/deps.sh
cmake -S . -B build-demo -DNVX_BUILD_TESTS=OFF -DNVX_BUILD_BENCH=OFF \
      -DNVX_BUILD_EXAMPLES=OFF >/dev/null
cmake --build build-demo -j"$(nproc)" --target nvxparam >/dev/null
if [ -z "$out" ]; then
  tmp=$(mktemp -d)
  trap 'rm -rf "$tmp"' EXIT
  out="$tmp/project.krn"
fi
build-demo/bin/nvxparam new --model-kind 2 "$out"
echo "wrote $out${tmp:+ (removed when the demo ends; pass a file name to keep it)}"
build-demo/bin/nvxparam show "$out" | sed -n '/^\[SUMMARY\]/,/^$/p'
