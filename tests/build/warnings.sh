#!/usr/bin/env bash
# A compiler that warns ends the build in the developers' presets, and nowhere else. A header with a
# #warning, included into every source, stands for that compiler.
# Usage: warnings.sh CMAKE COMPILER SOURCE_DIR
set -eu

cmake=$1
compiler=$2
source_dir=$3

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
echo '#warning "as a newer compiler would"' >"$scratch/warns.h"
failures=0

fail() {
  echo "$*" >&2
  failures=$((failures + 1))
}

# builds CMAKE_ARGUMENT...
builds() {
  "$cmake" -S "$source_dir" -B "$scratch/build" -G Ninja --fresh -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_CXX_FLAGS="-include $scratch/warns.h" "$@" >"$scratch/configure.log" 2>&1 ||
    { cat "$scratch/configure.log" >&2; exit 1; }
  "$cmake" --build "$scratch/build" --target quindle_utils >"$scratch/build.log" 2>&1
}

builds || { cat "$scratch/build.log" >&2; fail "a warning ends the build of a user"; }
grep -q 'as a newer compiler would' "$scratch/build.log" || fail "the compiler did not warn"
! builds -DQUINDLE_WARNINGS_AS_ERRORS=ON || fail "a warning does not end a developer's build"

# Only lists what a preset sets, and needs no compiler.
sets_errors() {
  "$cmake" -S "$source_dir" -B "$scratch/listed" -N --preset "$1" | grep -q 'QUINDLE_WARNINGS_AS_ERRORS="ON"'
}

presets=$("$cmake" -S "$source_dir" --list-presets=configure | sed -n 's/^ *"\([^"]*\)".*/\1/p')
for preset in dev bench asan tsan coverage windows-dev fuzz; do
  grep -qx "$preset" <<<"$presets" || fail "no preset of this name: $preset"
done
for preset in $presets; do
  case $preset in
    # Built on a user's machine, by scripts/demo and by whoever makes packages.
    release | packages | windows) ! sets_errors "$preset" || fail "$preset: warnings are errors" ;;
    *) sets_errors "$preset" || fail "$preset: warnings are no errors" ;;
  esac
done

[ "$failures" = 0 ]
