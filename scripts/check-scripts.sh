#!/usr/bin/env bash
# Checks the README's two commands the way a new user meets them, on a fresh
# clone of the committed tree:
#   1. demo, then test: the test command builds and runs the tests;
#   2. demo again, then a deliberately broken test: the test command fails;
#   3. the demo refuses an existing file, leaves it as it was, and removes the
#      temporary folder it makes.
set -euo pipefail
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
git clone -q . "$work/repo"
cd "$work/repo"

fail() {
  echo "check-scripts: $*" >&2
  exit 1
}

# 1. demo, then test.
mkdir "$work/tmp"
TMPDIR="$work/tmp" scripts/demo.sh >"$work/demo.log" 2>&1 || fail "demo failed: $(cat "$work/demo.log")"
grep -q '^\[SUMMARY\]' "$work/demo.log" || fail "demo printed no Summary"
[ -z "$(ls -A "$work/tmp")" ] || fail "demo left files in its temporary folder"
scripts/test.sh >"$work/test.log" 2>&1 || fail "tests failed after the demo"
grep -Eq '100% tests passed, 0 tests failed out of [1-9]' "$work/test.log" ||
  fail "the test command ran no test after the demo"

# 2. demo again, then a broken test: the test command must fail.
scripts/demo.sh >/dev/null 2>&1 || fail "second demo failed"
cat >>tests/platform_test.cpp <<'CPP'
TEST(ScriptCheck, DeliberatelyBroken) { FAIL() << "broken on purpose"; }
CPP
if scripts/test.sh >"$work/broken.log" 2>&1; then
  fail "the test command passed with a broken test"
fi
grep -q 'ScriptCheck.DeliberatelyBroken' "$work/broken.log" ||
  fail "the broken test did not run"
git checkout -q tests/platform_test.cpp

# 3. an existing file is refused and kept.
echo "keep me" >"$work/existing.krn"
if scripts/demo.sh "$work/existing.krn" >/dev/null 2>&1; then
  fail "demo accepted an existing file"
fi
[ "$(cat "$work/existing.krn")" = "keep me" ] || fail "demo changed an existing file"
scripts/demo.sh "$work/new.krn" >/dev/null 2>&1 || fail "demo with a new file failed"
grep -q '<SOLID_FILL>' "$work/new.krn" || fail "demo wrote no solid parameters"

echo "check-scripts: demo and test commands behave"
