#!/usr/bin/env bash
# Compiles every C++ block of the given Markdown files as a source file of its own, against the public
# headers, with warnings as errors: each block includes what it needs.
# Usage: compile_blocks.sh COMPILER INCLUDE_DIR MARKDOWN...
set -eu

compiler=$1
include_dir=$2
shift 2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

blocks=0
failures=0
for document in "$@"; do
  name=$(basename "$document" .md)
  "$(dirname -- "$0")/extract_blocks.sh" "$document" cpp cpp "$scratch/$name"
  for source in "$scratch/$name"/*.cpp; do
    blocks=$((blocks + 1))
    # shellcheck disable=SC2046
    if ! "$compiler" -std=c++20 -Wall -Wextra -Werror -fsyntax-only -I"$include_dir" \
        $(pkg-config --cflags sdl2 SDL2_ttf) "$source"; then
      echo "does not compile: $name, $(basename "$source" .cpp)" >&2
      failures=$((failures + 1))
    fi
  done
done
echo "$blocks blocks, $failures failures"
[ "$failures" = 0 ] && [ "$blocks" -gt 0 ]
