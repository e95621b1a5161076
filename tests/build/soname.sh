#!/usr/bin/env bash
# The sonames carry what of the version has to agree: the major, and while it is 0 the minor too.
# Usage: soname.sh CMAKE SOURCE_DIR VERSION LIBRARY...
set -eu

cmake=$1
source_dir=$2
version=$3
shift 3

soversion_of() {
  printf 'include("%s/cmake/QuindleLibrary.cmake")\nquindle_soversion(%s answer)\nmessage("${answer}")\n' \
    "$source_dir" "$1" >"$scratch/ask.cmake"
  "$cmake" -P "$scratch/ask.cmake" 2>&1
}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

expect() {
  if [ "$2" != "$3" ]; then
    echo "$1: $2, wanted $3" >&2
    failures=$((failures + 1))
  fi
}

expect 0.1.0 "$(soversion_of 0.1.0)" 0.1
expect 0.12.3 "$(soversion_of 0.12.3)" 0.12
expect 1.2.3 "$(soversion_of 1.2.3)" 1
expect 10.0.1 "$(soversion_of 10.0.1)" 10
for library in "$@"; do
  name=$(basename "$library")
  expect "$name" "$(readelf -d "$library" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p')" \
    "$name.$(soversion_of "$version")"
done
[ "$failures" = 0 ]
