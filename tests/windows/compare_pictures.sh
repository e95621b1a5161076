#!/usr/bin/env bash
# The pictures of two tours are the same ones: the same names, the same sizes, none of one colour, and the
# same pixels but in those that are named.
# Usage: compare_pictures.sh FOLDER OTHER_FOLDER [NAME]...
set -eu

expected=$1
actual=$2
shift 2
may_differ=" $* "
failures=0

fail() {
  echo "$*" >&2
  failures=$((failures + 1))
}

compare_one() {
  local name=$1 size other_size differing
  size=$(identify -format %wx%h "$expected/$name.png")
  other_size=$(identify -format %wx%h "$actual/$name.png")
  if [ "$size" != "$other_size" ]; then
    fail "$name: $size and $other_size"
    return
  fi
  if [ "$(identify -format %k "$actual/$name.png")" -lt 2 ]; then
    fail "$name: all of one colour"
  fi
  # Ends with 1 where they differ.
  differing=$(compare -metric AE "$expected/$name.png" "$actual/$name.png" null: 2>&1) || true
  if [ "$differing" = 0 ]; then
    return
  fi
  if [[ $may_differ == *" $name "* ]]; then
    echo "$name: $differing pixels differ, as expected"
  else
    fail "$name: $differing pixels differ"
  fi
}

names() { (cd "$1" && printf '%s\n' *.png | sed 's/\.png$//' | sort); }

if ! diff <(names "$expected") <(names "$actual") >&2; then
  fail "not the same pictures"
fi
compared=0
while read -r name; do
  compare_one "$name"
  compared=$((compared + 1))
done < <(comm -12 <(names "$expected") <(names "$actual"))
echo "$compared pictures compared, $failures failures"
[ "$failures" = 0 ] && [ "$compared" -gt 0 ]
