#!/usr/bin/env bash
# Compiles every C++ block of the given Markdown files as a source file of its own, against the public
# headers, with warnings as errors.
# Usage: compile_blocks.sh COMPILER INCLUDE_DIR MARKDOWN...
set -eu

compiler=$1
include_dir=$2
shift 2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# A block that includes nothing shows statements: it becomes the body of a function.
for document in "$@"; do
  name=$(basename "$document" .md)
  awk -v prefix="$scratch/$name" '
    /^```cpp$/ { file = sprintf("%s_line_%04d.cpp", prefix, NR); body = ""; inside = 1; next }
    /^```$/ && inside {
      if (body ~ /#include/) {
        printf "%s", body > file
      } else {
        printf "#include \"frontend/gui/sdl_modal_runtime.h\"\nvoid Shown();\nvoid Shown() {\n%s}\n", body > file
      }
      close(file); inside = 0; next
    }
    inside { body = body $0 "\n" }
  ' "$document"
done

blocks=0
failures=0
for source in "$scratch"/*.cpp; do
  blocks=$((blocks + 1))
  # shellcheck disable=SC2046
  if ! "$compiler" -std=c++20 -Wall -Wextra -Werror -fsyntax-only -I"$include_dir" \
      $(pkg-config --cflags sdl2 SDL2_ttf) "$source"; then
    echo "does not compile: $(basename "$source")" >&2
    failures=$((failures + 1))
  fi
done
echo "$blocks blocks, $failures failures"
[ "$failures" = 0 ] && [ "$blocks" -gt 0 ]
