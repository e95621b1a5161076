#!/usr/bin/env bash
# scripts/lib/check_links names what a set of HTML pages links to and does not have, and nothing else.
# Usage: page_links.sh SOURCE_DIR
set -eu

source_dir=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir "$scratch/set" "$scratch/set/search"

fail() {
  echo "$*" >&2
  exit 1
}

# write_page BODY
write_page() {
  echo "<!DOCTYPE html><html><body>$1</body></html>" >"$scratch/set/start.html"
}

# passes BODY
passes() {
  write_page "$1"
  "$source_dir/scripts/lib/check_links" "$scratch/set" >/dev/null || fail "complains of: $1"
}

# is_told BODY MESSAGE
is_told() {
  write_page "$1"
  if "$source_dir/scripts/lib/check_links" "$scratch/set" >/dev/null 2>"$scratch/told"; then
    fail "not told: $1"
  fi
  diff -u <(echo "start.html:1: $2") "$scratch/told" || fail "told otherwise: $1"
}

echo '<a id="anchor"></a><a name="old~name"></a><a href="../start.html#top">up</a>' >"$scratch/set/search/other page.html"
touch "$scratch/set/picture.png"
top='<p id="top">'
passes "$top<a href='#top'>here</a><a href='search/other%20page.html#anchor'>there</a>"
passes "$top<a href='search/other%20page.html#old~name'>there</a><img src='picture.png'/>"
passes "$top<a href='https://www.example.com/quindle#x'>elsewhere</a><a href='mailto:quindle@example.com'>post</a>"
is_told "$top<a href='nowhere.html'>there</a>" 'no such file: nowhere.html'
is_told "$top<a href='search'>a folder</a>" 'no such file: search'
is_told "$top<a href='#nowhere'>here</a>" 'no such anchor: #nowhere'
is_told "$top<a href='search/other%20page.html#nowhere'>there</a>" 'no such anchor: search/other%20page.html#nowhere'
is_told "$top<img src='nowhere.png'/>" 'no such file: nowhere.png'
is_told "$top<link href='nowhere.css'/>" 'no such file: nowhere.css'
is_told "$top<script src='nowhere.js'></script>" 'no such file: nowhere.js'
# From the file system this leads to no host.
is_told "$top<a href='//www.example.com/quindle'>elsewhere</a>" 'no such file: //www.example.com/quindle'

rm -r "$scratch/set"
mkdir "$scratch/set"
if "$source_dir/scripts/lib/check_links" "$scratch/set" >/dev/null 2>&1; then
  fail "a set without a page passes"
fi
