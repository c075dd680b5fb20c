#!/bin/sh
# Writes KEYS.md, the key reference, from the key tables through the built
# nvxparam: scripts/gen-keys.sh [PATH-TO-NVXPARAM] [OUTPUT]. The committed
# KEYS.md must equal its output (a test compares them).
set -eu
tool=${1:-build/bin/nvxparam}
out=${2:-KEYS.md}
# No per-user template may change the defaults shown.
XDG_CONFIG_HOME=$(mktemp -d) HOME=/nonexistent "$tool" keys --markdown > "$out.tmp"
mv "$out.tmp" "$out"
