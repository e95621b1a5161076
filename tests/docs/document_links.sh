#!/usr/bin/env bash
# The links of the documents lead to files and headings that are there, and their pictures are there; a
# link that does not is told with its place.
# Usage: document_links.sh SOURCE_DIR
set -eu

source_dir=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() {
  echo "$*" >&2
  exit 1
}

make_pages() {
  "$source_dir/scripts/lib/reference_pages" "$1" "$scratch/pages" >"$scratch/list" 2>"$scratch/told"
}

# is_told LINE MESSAGE: a guide with this line behind its first one fails with this message.
is_told() {
  sed "1a $1" "$source_dir/docs/guide.md" >"$scratch/tree/docs/guide.md"
  if make_pages "$scratch/tree"; then
    fail "not told: $1"
  fi
  diff -u <(echo "docs/guide.md:2: $2") "$scratch/told" || fail "told otherwise: $1"
}

make_pages "$source_dir" || { cat "$scratch/told" >&2; exit 1; }

mkdir "$scratch/tree"
(cd "$source_dir" && cp -r README.md CONTRIBUTING.md CHANGELOG.md docs data include "$scratch/tree")
is_told '[there](nowhere.md)' 'no file docs/nowhere.md'
is_told '[there](../README.md#nowhere)' 'no heading #nowhere in README.md'
is_told '[here](#nowhere)' 'no heading #nowhere in docs/guide.md'
is_told '[there](../CMakeLists.txt)' 'no file CMakeLists.txt'
is_told '[there](benchmarks.json)' 'docs/benchmarks.json is none of the pages'
is_told '![there](images/nowhere.png)' 'no picture docs/images/nowhere.png'
is_told '[here](#threads-1)' 'no heading #threads-1 in docs/guide.md'

# The second heading of a text has an anchor of its own.
sed '1a [here](#threads-1)\n## Threads' "$source_dir/docs/guide.md" >"$scratch/tree/docs/guide.md"
make_pages "$scratch/tree" || { cat "$scratch/told" >&2; exit 1; }
