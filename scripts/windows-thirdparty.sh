#!/usr/bin/env bash
# Cross-builds the third-party libraries of the Windows build (HDF5 from
# Debian's source package, GoogleTest from Debian's googletest package), static
# only, into a cache outside the work tree, and prints the cache prefix as the
# last line of its standard output (everything else goes to standard error).
#
#   ${NVX_WINDOWS_CACHE:-/var/cache/nvxcomputation-windows}/<key>/
#
# <key> hashes the compiler, HDF5 and GoogleTest versions, this script and the
# tool-chain file, so a change of any of them builds afresh; a prefix is used
# only once its stamp file (written last) is there.
#
# NVX_HDF5_SUITE=bookworm takes bookworm's HDF5 1.10 source instead of trixie's
# 1.14 (chosen by itself when the trixie index cannot be verified).
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/.." && pwd)
toolchain=$root/cmake/mingw-w64-x86_64.cmake
cache_root=${NVX_WINDOWS_CACHE:-/var/cache/nvxcomputation-windows}
stamp_name=.nvx-complete
jobs=${NVX_JOBS:-2}

log() { printf 'windows-thirdparty: %s\n' "$*" >&2; }

SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
apt_updated=0
apt_update() {
  if [ "$apt_updated" -eq 0 ]; then
    $SUDO apt-get update -qq >&2
    apt_updated=1
  fi
}

# --- Debian packages -------------------------------------------------------
"$root/scripts/deps.sh" cmake make dpkg-dev gcc-mingw-w64-x86-64-posix g++-mingw-w64-x86-64-posix \
  binutils-mingw-w64-x86-64 googletest debian-archive-keyring util-linux

# --- HDF5's source package through apt --------------------------------------
# A deb-src entry for one suite; the archive keyring of bookworm also holds
# the keys trixie is signed with.
src_list=/etc/apt/sources.list.d/nvxcomputation-hdf5-src.sources
write_src_list() {
  printf '%s\n' \
    "# Debian source packages for the Windows cross-build (scripts/windows-thirdparty.sh)" \
    "Types: deb-src" \
    "URIs: http://deb.debian.org/debian" \
    "Suites: $1" \
    "Components: main" \
    "Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg" |
    $SUDO tee "$src_list" >/dev/null
}
# The newest HDF5 source version of the given major.minor series in the apt
# index (empty when the index has none).
newest_hdf5() {
  apt-cache showsrc hdf5 2>/dev/null | sed -n "s/^Version: \($1\.\)/\1/p" |
    sort -V | tail -n 1
}

suite=${NVX_HDF5_SUITE:-trixie}
series=1.14
[ "$suite" = bookworm ] && series=1.10
if ! grep -qs "^Suites: $suite\$" "$src_list"; then
  write_src_list "$suite"
  apt_updated=0
  apt_update
fi
hdf5_version=$(newest_hdf5 "$series")
if [ -z "$hdf5_version" ] && [ "$apt_updated" -eq 0 ]; then
  apt_update
  hdf5_version=$(newest_hdf5 "$series")
fi
if [ -z "$hdf5_version" ] && [ "$suite" = trixie ]; then
  # The trixie index did not verify (an older keyring) or is not there.
  log "no HDF5 $series source from trixie; using bookworm's"
  suite=bookworm
  series=1.10
  write_src_list bookworm
  apt_updated=0
  apt_update
  hdf5_version=$(newest_hdf5 "$series")
fi
if [ -z "$hdf5_version" ]; then
  log "no HDF5 source package in the apt index"
  exit 1
fi

# --- Cache key and reuse ------------------------------------------------------
cc=x86_64-w64-mingw32-gcc-posix
cxx=x86_64-w64-mingw32-g++-posix
gtest_version=$(dpkg-query -W -f='${Version}' googletest)
key=$( {
  "$cc" -v 2>&1 | tail -n 1
  "$cxx" -v 2>&1 | tail -n 1
  dpkg-query -W -f='${Package} ${Version}\n' gcc-mingw-w64-x86-64-posix \
    g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev binutils-mingw-w64-x86-64 2>/dev/null
  cmake --version | head -n 1
  echo "hdf5 $hdf5_version"
  echo "googletest $gtest_version"
  cat "${BASH_SOURCE[0]}" "$toolchain"
} | sha256sum | cut -c1-16)
prefix=$cache_root/$key

if [ ! -d "$cache_root" ]; then
  $SUDO mkdir -p "$cache_root"
  if [ -n "$SUDO" ]; then
    $SUDO chown "$(id -u):$(id -g)" "$cache_root"
  fi
fi
# One builder per key at a time; a second run waits and then reuses.
exec 9>"$cache_root/$key.lock"
flock 9
if [ -f "$prefix/$stamp_name" ]; then
  log "reusing $prefix (HDF5 $hdf5_version, GoogleTest $gtest_version)"
  echo "$prefix"
  exit 0
fi

started=$(date +%s)
rm -rf "$prefix"
mkdir -p "$prefix/logs"
scratch=$(mktemp -d "${TMPDIR:-/tmp}/nvx-windows-thirdparty.XXXXXX")
trap 'rm -rf "$scratch"' EXIT

# Runs a step with its output in the cache's log folder; the log's end is
# shown when it fails.
run_logged() {
  local name=$1
  shift
  if ! "$@" >"$prefix/logs/$name.log" 2>&1; then
    log "$name failed; the end of $prefix/logs/$name.log:"
    tail -n 40 "$prefix/logs/$name.log" >&2
    exit 1
  fi
}

cross=(-G "Unix Makefiles" -DCMAKE_TOOLCHAIN_FILE="$toolchain"
       -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix"
       -DNVX_WINEPREFIX="$scratch/wineprefix")

# apt downloads as its own user into a folder that user can write.
chmod 755 "$scratch"
mkdir -p "$scratch/src"
if id _apt >/dev/null 2>&1 && [ "$(id -u)" -eq 0 ]; then
  chown _apt "$scratch/src"
fi
log "fetching hdf5 $hdf5_version ($suite) with apt-get source"
(cd "$scratch/src" && run_logged hdf5-source apt-get source -q "hdf5=$hdf5_version")
hdf5_src=$(find "$scratch/src" -mindepth 1 -maxdepth 1 -type d -name 'hdf5-*' | head -n 1)

# HDF5 opens and removes a file through the ANSI code page first and takes
# the name as UTF-8 only when that finds nothing, so a new file with a
# non-ASCII UTF-8 name would get a mangled name. Narrow names are UTF-8
# here: those two calls go straight to their UTF-16 forms.
if ! perl -0pi -e '$n = s{\n    /\* First try (?:opening|removing) the file with the normal POSIX .*?(?=\n    /\* Convert the input UTF-8 path to UTF-16 \*/)}{}gs;
                   END { exit($n == 2 ? 0 : 1) }' "$hdf5_src/src/H5system.c"; then
  if [ "$series" = 1.14 ]; then
    log "HDF5's Windows open and remove calls are not as expected; UTF-8 names would break"
    exit 1
  fi
  log "warning: HDF5 $hdf5_version creates files with non-ASCII names through the ANSI code page"
fi

hdf5_options=(-DBUILD_SHARED_LIBS=OFF -DBUILD_STATIC_LIBS=ON -DONLY_SHARED_LIBS=OFF
              -DBUILD_TESTING=OFF -DHDF5_BUILD_TOOLS=OFF -DHDF5_BUILD_UTILS=OFF
              -DHDF5_BUILD_EXAMPLES=OFF -DHDF5_BUILD_HL_LIB=OFF -DHDF5_BUILD_CPP_LIB=OFF
              -DHDF5_BUILD_FORTRAN=OFF -DHDF5_BUILD_JAVA=OFF -DHDF5_BUILD_DOC=OFF
              -DHDF5_ENABLE_Z_LIB_SUPPORT=OFF -DHDF5_ENABLE_SZIP_SUPPORT=OFF
              -DHDF5_ENABLE_PLUGIN_SUPPORT=OFF -DHDF5_ENABLE_PARALLEL=OFF
              -DHDF5_ENABLE_THREADSAFE=OFF -DHDF5_BUILD_GENERATORS=OFF
              -DHDF5_ALLOW_EXTERNAL_SUPPORT=NO -DHDF5_PACKAGE_EXTLIBS=OFF
              # C99 printf formats (%zu, %lld) in HDF5's own messages.
              -DCMAKE_C_FLAGS=-D__USE_MINGW_ANSI_STDIO=1)
log "building hdf5 $hdf5_version"
run_logged hdf5-configure cmake -S "$hdf5_src" -B "$scratch/hdf5-build" "${cross[@]}" "${hdf5_options[@]}"
run_logged hdf5-build cmake --build "$scratch/hdf5-build" -j "$jobs"
run_logged hdf5-install cmake --install "$scratch/hdf5-build"

log "building googletest $gtest_version"
run_logged googletest-configure cmake -S /usr/src/googletest -B "$scratch/googletest-build" \
  "${cross[@]}" -DBUILD_SHARED_LIBS=OFF -DBUILD_GMOCK=ON -DINSTALL_GTEST=ON
run_logged googletest-build cmake --build "$scratch/googletest-build" -j "$jobs"
run_logged googletest-install cmake --install "$scratch/googletest-build"

{
  echo "key $key"
  echo "hdf5 $hdf5_version ($suite)"
  echo "googletest $gtest_version"
  echo "built $(date -u +%Y-%m-%dT%H:%M:%SZ) in $(($(date +%s) - started)) s"
} >"$prefix/$stamp_name"
log "built $prefix in $(($(date +%s) - started)) s"
echo "$prefix"
