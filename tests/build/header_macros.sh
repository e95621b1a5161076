#!/usr/bin/env bash
# The public headers define no macro but their export marks, and undefine none of the host's. Some of
# the library's names, such as DrawText, are macros of <windows.h>; whether they are is the host's
# business and stays as it is.
# Usage: header_macros.sh COMPILER SOURCE_DIR [INCLUDE_DIR...]
set -eu

compiler=$1
root=$2/include
shift 2
options=(-std=c++20 -x c++ -E -dD "-I$root")
# After the compiler's own: named again in front of them, one of these would hide another.
for directory in "$@"; do
  options+=(-idirafter "$directory")
done

headers=$(cd "$root" && find . -name '*.h' | sed 's|^\./||' | sort)
[ "$(wc -l <<< "$headers")" -ge 10 ] || { echo "no headers below $root" >&2; exit 1; }

# Each "#define" and "#undef" that stands in a header of ours, with that header's name.
macros=$(sed 's|.*|#include "&"|' <<< "$headers" | "$compiler" "${options[@]}" - |
    awk -v root="$root/" '
        /^# [0-9]+ "/ { file = $3; gsub(/"/, "", file); ours = index(file, root) == 1 }
        /^#(define|undef) / && ours { sub(/\(.*/, "", $2); print file ": " $1 " " $2 }')

grep -q 'QUINDLE_SDL_UI_EXPORT' <<< "$macros" || { echo "export mark not seen" >&2; exit 1; }
if grep -vE ' #define QUINDLE_(SDL_UI|UTILS|OPENGL)_EXPORT$' <<< "$macros"; then
  echo "The public headers must leave the host's macros alone." >&2
  exit 1
fi
