#!/usr/bin/env bash
# Installs the Debian packages needed to build and test (skipped when present).
set -euo pipefail
packages=(cmake g++ make pkg-config libgtest-dev libgmock-dev libbenchmark-dev
          libhdf5-dev hdf5-tools libinih-dev clang-format
          pybind11-dev python3-dev python3-pytest)
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
