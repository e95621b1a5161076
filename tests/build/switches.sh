#!/usr/bin/env bash
# Configures the libraries in several ways and checks which build switches the About dialog would name.
# Usage: switches.sh CMAKE COMPILER SOURCE_DIR
set -eu

cmake=$1
compiler=$2
source_dir=$3

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

# expect NAME "LTO PGO O2 O3" CMAKE_ARGUMENT...
expect() {
  name=$1
  wanted=$2
  shift 2
  "$cmake" -S "$source_dir" -B "$scratch/$name" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" "$@" \
      > "$scratch/$name.log" 2>&1 || { cat "$scratch/$name.log"; exit 1; }
  defines=$(grep -A 4 'build_info.cpp.o: CXX_COMPILER' "$scratch/$name/build.ninja" | grep 'DEFINES =')
  found=""
  for switch in LTO PGO O2 O3; do
    found="$found $(printf '%s' "$defines" | sed "s/.*QUINDLE_BUILT_WITH_$switch=\([01]\).*/\1/")"
  done
  if [ "$found" != " $wanted" ]; then
    echo "$name: LTO PGO O2 O3 are$found, wanted $wanted" >&2
    failures=$((failures + 1))
  fi
}

expect release "0 0 0 1" -DCMAKE_BUILD_TYPE=Release
expect unset_is_release "0 0 0 1"
expect debug "0 0 0 0" -DCMAKE_BUILD_TYPE=Debug
expect o2 "0 0 1 0" -DCMAKE_BUILD_TYPE=RelWithDebInfo
expect last_level_counts "0 0 1 0" -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="-O3 -O2"
expect lto "1 0 0 1" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INTERPROCEDURAL_OPTIMIZATION=ON
expect lto_of_one_configuration "1 0 0 1" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INTERPROCEDURAL_OPTIMIZATION_RELEASE=ON
expect lto_of_another_configuration "0 0 0 1" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INTERPROCEDURAL_OPTIMIZATION_DEBUG=ON
expect lto_by_flag "1 0 0 1" -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS=-flto
expect pgo "0 1 0 1" -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS=-fprofile-use

[ "$failures" = 0 ]
