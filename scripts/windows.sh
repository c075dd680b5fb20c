#!/usr/bin/env bash
# Cross-builds the project for 64-bit Windows in build-windows/ and runs its
# test suite under Wine; exits with CTest's status (it fails when a test fails
# or when no test ran).
#
# The third-party libraries (HDF5, GoogleTest) are built once by
# scripts/windows-thirdparty.sh into
# ${NVX_WINDOWS_CACHE:-/var/cache/nvxcomputation-windows}/<key> and reused.
# Extra arguments go to CTest (e.g. -R rsvtool).
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/.." && pwd)
build=$root/build-windows
jobs=${NVX_JOBS:-2}

"$here/deps.sh" wine wine64

started=$(date +%s)
prefix=$("$here/windows-thirdparty.sh" | tail -n 1)
echo "windows: third-party libraries ready in $(($(date +%s) - started)) s: $prefix"

# Wine runs without a display, quietly, in a prefix of the build folder.
export WINEPREFIX=$build/wineprefix
export WINEDEBUG=-all
unset DISPLAY WAYLAND_DISPLAY
mkdir -p "$build"
# A server left running in this prefix (an interrupted run) goes first.
wineserver -k >/dev/null 2>&1 || true
if [ ! -f "$WINEPREFIX/system.reg" ]; then
  wineboot -i >/dev/null 2>&1
  wineserver -w
fi
# A persistent server for the test discovery after each link and for CTest:
# without it a program's start can wait for the previous server to time out.
wineserver -p
trap 'wineserver -k >/dev/null 2>&1 || true' EXIT
# The first program of a server starts Wine's background services, which
# inherit that program's output pipes and keep them open while the server
# runs: start them with a program that has no pipes, so that no test waits.
/usr/lib/wine/wine64 cmd /c exit </dev/null >/dev/null 2>&1 || true

cmake -S "$root" -B "$build" \
  -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-x86_64.cmake" \
  -DNVX_WINDOWS_PREFIX="$prefix" -DNVX_WINEPREFIX="$WINEPREFIX" \
  -DHDF5_ROOT="$prefix" -DHDF5_USE_STATIC_LIBRARIES=ON \
  -DGTest_DIR="$prefix/lib/cmake/GTest" -DCMAKE_PREFIX_PATH="$prefix" \
  -DNVX_BUILD_PYTHON=OFF -DNVX_BUILD_BENCH=OFF
cmake --build "$build" -j "$jobs"

status=0
(cd "$build" && ctest --output-on-failure --no-tests=error -j2 "$@") || status=$?
exit "$status"
