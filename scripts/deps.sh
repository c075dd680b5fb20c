#!/usr/bin/env bash
# Installs Debian packages that are missing: those named as arguments, or
# without arguments those needed to build and test. Its own output goes to
# standard error, so that callers can keep standard output for results.
set -euo pipefail
exec 1>&2
packages=("$@")
if [ ${#packages[@]} -eq 0 ]; then
  packages=(cmake g++ make pkg-config libgtest-dev libgmock-dev libbenchmark-dev
            libhdf5-dev hdf5-tools libinih-dev clang-format
            pybind11-dev python3-dev python3-pytest python3-h5py)
fi
missing=()
for p in "${packages[@]}"; do
  dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${missing[@]}"
fi
