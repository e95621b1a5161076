#!/usr/bin/env bash
# Compares what the three libraries export with the list kept beside this script.
# Usage: exported_symbols.sh LIST LIBRARY...
# With UPDATE=1 in the environment the list is written anew instead.
set -eu
export LC_ALL=C

list=$1
shift

# Weak symbols are inline code that every user of a header has as well. Newer SDL_ttf, such
# as 2.24, calls "TTF_Font" what was "_TTF_Font" before, which is no change of ours.
exported() {
  for library in "$@"; do
    nm -D --defined-only "$library" | awk '$2 ~ /^[TDBR]$/ { print $3 }' | c++filt |
        grep '^quindle::' | sed 's/\b_TTF_Font\b/TTF_Font/g' | sort -u |
        sed "s|^|$(basename "$library" .so) |"
  done
}

if [ "${UPDATE:-0}" = 1 ]; then
  exported "$@" > "$list"
  echo "written: $list"
  exit 0
fi

if ! exported "$@" | diff -u "$list" -; then
  echo "The exported interface changed. If that is meant, update the list:" >&2
  echo "  UPDATE=1 tests/build/exported_symbols.sh tests/build/exported_symbols.txt \\" >&2
  echo "      build/dev/libquindle_utils.so build/dev/libquindle_opengl.so build/dev/libquindle_sdl_ui.so" >&2
  exit 1
fi
