#!/usr/bin/env bash
# Builds the libFuzzer targets with clang, ASan and UBSan in build-fuzz/ and
# runs one of them for a given time, one process on one core.
#   scripts/fuzz.sh TARGET SECONDS [libFuzzer options...]
#   scripts/fuzz.sh all SECONDS      each target in turn
# TARGET: krn_document_fuzzer, parse_value_fuzzer, rsv_tables_fuzzer, or
# rsv_file_fuzzer (mutated files: it finds faults of the HDF5 library itself,
# which nvxparam guards against, so "all" leaves it out).
# Seeds are written by the library itself (nvxparam new / to-rsv) into
# build-fuzz/seeds/; the growing corpus stays in build-fuzz/corpus/TARGET and
# findings land in build-fuzz/findings/. Exit status non-zero on a finding.
set -euo pipefail
cd "$(dirname "$0")/.."
target="${1:?usage: scripts/fuzz.sh TARGET|all SECONDS [options]}"
seconds="${2:?usage: scripts/fuzz.sh TARGET|all SECONDS [options]}"
shift 2
targets=(krn_document_fuzzer parse_value_fuzzer rsv_tables_fuzzer)
if [ "$target" = all ]; then
  for t in "${targets[@]}"; do "$0" "$t" "$seconds" "$@"; done
  exit 0
fi

scripts/deps.sh
packages=(clang libclang-rt-dev)
missing=()
for p in "${packages[@]}"; do dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p"); done
if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${missing[@]}"
fi

dir=build-fuzz
CC=clang CXX=clang++ cmake -S . -B "$dir" -DNVX_FUZZ=ON -DNVX_SANITIZE=ON -DNVX_WERROR=OFF \
  -DNVX_BUILD_TESTS=OFF -DNVX_BUILD_BENCH=OFF -DNVX_BUILD_EXAMPLES=OFF \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$dir" -j"$(nproc)" --target "$target" nvxparam >/dev/null

# Seeds written by the library: KRN files of each model kind and their RSV files.
seeds="$dir/seeds"
if [ ! -d "$seeds/krn" ]; then
  mkdir -p "$seeds/krn" "$seeds/rsv"
  export XDG_CONFIG_HOME="$dir/seeds/config"
  for kind in 1 2 3; do
    "$dir/bin/nvxparam" new --model-kind "$kind" "$seeds/krn/kind$kind.krn"
    "$dir/bin/nvxparam" to-rsv "$seeds/krn/kind$kind.krn" "$seeds/rsv/kind$kind.rsv"
  done
fi

case "$target" in
  krn_document_fuzzer) inputs=("$seeds/krn") ;;
  parse_value_fuzzer) inputs=(fuzz/seeds/parse_value) ;;
  rsv_file_fuzzer) inputs=("$seeds/rsv") ;;
  rsv_tables_fuzzer) inputs=() ;;
  *) echo "unknown target $target" >&2; exit 2 ;;
esac
corpus="$dir/corpus/$target"
mkdir -p "$corpus" "$dir/findings"
# A small quarantine: freed memory is reused sooner, which spares the page
# faults of fresh memory (HDF5 allocates and frees much for every file).
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1:allocator_may_return_null=1:quarantine_size_mb=16}"
export LSAN_OPTIONS="${LSAN_OPTIONS:-suppressions=$PWD/fuzz/lsan.supp}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"
"$dir/bin/$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
  -dict=fuzz/krn.dict -artifact_prefix="$dir/findings/$target-" -print_final_stats=1 \
  "$@" "$corpus" ${inputs[@]+"${inputs[@]}"}
