#!/usr/bin/env bash
# The package files ask for the least SDL_ttf that has every function the library calls, as SDL_ttf's
# own header says.
# Usage: least_ttf.sh LIBRARY HEADER BUILD_DIR
set -euo pipefail

library=$1
header=$2
build_dir=$3

functions=$(nm -D --undefined-only "$library" | sed -n 's/.* \(TTF_[A-Za-z0-9_]*\).*/\1/p')
[ -n "$functions" ] || { echo "the library calls nothing of SDL_ttf" >&2; exit 1; }

# The version in the comment before a function's declaration.
since() {
  awk -v name="$1" '
    /since This function is available since SDL_ttf/ { version = $NF; sub(/\.$/, "", version) }
    $0 ~ ("SDLCALL " name "\\(") { print version; exit }' "$header"
}

least=$(for function in $functions; do
  version=$(since "$function")
  [ -n "$version" ] || { echo "not in the header: $function" >&2; exit 1; }
  echo "$version $function"
done | sort -V | tail -n 1)
echo "newest function: $least"
least=${least% *}

failures=0
expect() {
  grep -q "$2" "$build_dir/$1" || {
    echo "$1 does not ask for $least: $(grep SDL2_ttf "$build_dir/$1")" >&2
    failures=$((failures + 1))
  }
}
expect quindle_sdl_ui.pc "SDL2_ttf >= $least\$"
expect quindle_sdl_uiConfig.cmake "find_dependency(SDL2_ttf $least CONFIG)"
[ "$failures" = 0 ]
