#!/usr/bin/env bash
# Every SDL and SDL_ttf function that the library imports must be one that the call recorder wraps;
# otherwise the tests of failures and left-overs would not see it.
# Usage: recorder_covers_library.sh LIBRARY TEST_PROGRAM
set -eu
export LC_ALL=C

# Plain arithmetic and messages: they can neither fail nor leave anything behind.
harmless='^(SDL_IntersectRect|SDL_HasIntersection|SDL_GetError|SDL_GetKeyName)$'

names() { awk '{ print $NF }' | sed 's/@.*//' | grep -E '^(SDL|TTF)_' | sort -u; }

missing=$(comm -23 <(nm -D --undefined-only "$1" | names | grep -vE "$harmless") \
                   <(nm -D --defined-only "$2" | names))
if [ -n "$missing" ]; then
  echo "not wrapped by tests/support:" >&2
  echo "$missing" >&2
  exit 1
fi
