#!/usr/bin/env bash
# Builds the libraries twice, in two folders, for the same date, and compares them byte by byte.
# Usage: reproducible.sh CMAKE COMPILER SOURCE_DIR
set -eu

cmake=$1
compiler=$2
source_dir=$3

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export SOURCE_DATE_EPOCH=1776160207  # Apr 14 2026 09:50:07 UTC

for folder in first some/other/second; do
  "$cmake" -S "$source_dir" -B "$scratch/$folder" -G Ninja -DCMAKE_BUILD_TYPE=Release \
      -DCMAKE_CXX_COMPILER="$compiler" > "$scratch/configure.log" 2>&1 ||
      { cat "$scratch/configure.log"; exit 1; }
  "$cmake" --build "$scratch/$folder" > "$scratch/build.log" 2>&1 ||
      { cat "$scratch/build.log"; exit 1; }
done

for library in libquindle_utils libquindle_opengl libquindle_sdl_ui; do
  cmp "$(readlink -f "$scratch/first/$library.so")" \
      "$(readlink -f "$scratch/some/other/second/$library.so")"
done
# Not only the same, but the date that was asked for.
grep -q 'Apr 14 2026 09:50:07' "$(readlink -f "$scratch/first/libquindle_sdl_ui.so")"
echo "both builds are identical"
