#!/usr/bin/env bash
# The build date is that of the last link: whatever has the library linked anew renews it, and a build with
# nothing to do leaves the library alone.
# Usage: build_date.sh CMAKE COMPILER SOURCE_DIR
set -eu

cmake=$1
compiler=$2
source_dir=$3

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
unset SOURCE_DATE_EPOCH
export LC_ALL=C
# Written to below.
cp -r "$source_dir"/{CMakeLists.txt,cmake,data,include,src} "$scratch"
library=$scratch/build/libquindle_sdl_ui.so
failures=0

# The date that the library holds, in seconds.
date_in_library() {
  date -d "$(grep -aoE '[A-Z][a-z]{2} [ 1-3][0-9] 20[0-9]{2} [0-9]{2}(:[0-9]{2}){2}' "$library")" +%s
}

build() {
  "$cmake" --build "$scratch/build" --parallel "$(nproc)" >"$scratch/log" 2>&1 ||
    { cat "$scratch/log" >&2; exit 1; }
}

configure() {
  "$cmake" -S "$scratch" -B "$scratch/build" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER="$compiler" \
    "$@" >"$scratch/log" 2>&1 || { cat "$scratch/log" >&2; exit 1; }
}

# expect WHAT renews|leaves, after a change and before the build that follows it
expect() {
  local what=$1 wanted=$2 date linked start found=leaves
  date=$(date_in_library)
  linked=$(stat -L -c %y "$library")
  # File times and the compiler's clock: both in whole seconds.
  sleep 1.1
  start=$(date +%s)
  build
  if [ "$(stat -L -c %y "$library")" != "$linked" ]; then
    found=renews
  fi
  if [ "$found" != "$wanted" ]; then
    echo "$generator, $what: $found the library, where it $wanted it" >&2
    failures=$((failures + 1))
  fi
  if [ "$wanted" = renews ] && [ "$(date_in_library)" -lt "$start" ]; then
    echo "$generator, $what: the date is still that of $(date -d "@$date")" >&2
    failures=$((failures + 1))
  fi
}

for generator in Ninja "Unix Makefiles"; do
  rm -rf "$scratch/build"
  configure -G "$generator"
  build
  expect "nothing" leaves
  echo >>"$scratch/src/frontend/gui/numbers.h"
  expect "a private header" renews
  sed -i '1s/^/\n/' "$scratch/src/frontend/gui/float_text.cpp"
  expect "a source" renews
  sed -i '1s/^/\n/' "$scratch/src/utils/path_utils.cpp"
  expect "a companion's source" renews
  # Of this library alone: what has its companions linked anew has been seen.
  echo 'target_link_options(quindle_sdl_ui PRIVATE -Wl,-O1)' >>"$scratch/CMakeLists.txt"
  expect "a linker's option" renews
  sed -i '$d' "$scratch/CMakeLists.txt"
  build
  expect "nothing once more" leaves
done
[ "$failures" = 0 ]
echo "the date is that of the last link"
