#!/usr/bin/env bash
# Writes each block of one language of a Markdown file to a file of its own, named after the heading
# above it: the first block below "## The heartbeat" becomes the_heartbeat.SUFFIX, the second one
# the_heartbeat_2.SUFFIX. Files that would not change keep their date; files of blocks that are gone
# are removed.
# Usage: extract_blocks.sh MARKDOWN LANGUAGE SUFFIX DIRECTORY
set -eu

document=$1
language=$2
suffix=$3
directory=$4

fresh=$(mktemp -d)
trap 'rm -rf "$fresh"' EXIT
awk -v opening="^\`\`\`$language\$" -v suffix="$suffix" -v directory="$fresh" '
  function slug(text) {
    text = tolower(text)
    gsub(/\047/, "", text)
    gsub(/[^a-z0-9]+/, "_", text)
    gsub(/^_|_$/, "", text)
    return text
  }
  inside && /^```$/ { close(file); inside = 0; next }
  inside { print > file; next }
  $0 ~ opening {
    file = directory "/" heading (++count[heading] > 1 ? "_" count[heading] : "") "." suffix
    inside = 1
    next
  }
  /^```/ { other = !other }
  /^#+ / && !other { sub(/^#+ /, ""); heading = slug($0) }
' "$document"

mkdir -p "$directory"
for file in "$directory"/*."$suffix"; do
  [ -e "$fresh/$(basename "$file")" ] || rm -f "$file"
done
for file in "$fresh"/*; do
  [ -e "$file" ] || { echo "no $language block in $document" >&2; exit 1; }
  cmp -s "$file" "$directory/$(basename "$file")" || cp "$file" "$directory"
done
