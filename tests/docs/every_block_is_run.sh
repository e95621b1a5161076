#!/usr/bin/env bash
# Each C++ block of the guide has its test in guide/, and each test there its block.
# Usage: every_block_is_run.sh BLOCK_DIR TEST_DIR
set -eu

blocks=$1
tests=$2

names_of() {
  find "$1" -name "*$2" -exec basename {} "$2" \; | sort
}

diff -u <(names_of "$blocks" .inc) <(names_of "$tests" _test.cpp) ||
  { echo "Blocks without a test are marked with -, tests without a block with +." >&2; exit 1; }
for block in $(names_of "$blocks" .inc); do
  grep -q "^#include \"guide/$block.inc\"\$" "$tests/${block}_test.cpp" ||
    { echo "${block}_test.cpp does not include its block" >&2; exit 1; }
  grep -q '^TEST' "$tests/${block}_test.cpp" ||
    { echo "${block}_test.cpp tests nothing" >&2; exit 1; }
done
