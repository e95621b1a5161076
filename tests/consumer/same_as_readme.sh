#!/usr/bin/env bash
# Compares the first C++ block of the README with the source file that the consumer tests run.
# Usage: same_as_readme.sh README SOURCE
set -eu
sed -n '/^```cpp$/,/^```$/{/^```/!p;/^```$/q}' "$1" | diff -u - "$2"
echo "the README shows what is tested"
