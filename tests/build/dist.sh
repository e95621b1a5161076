#!/usr/bin/env bash
# The source archive is the same each time, names its version, and can be built and tested where there is
# no git. The README's commands build all; here the scripts behind them build a part.
# Usage: dist.sh SOURCE_DIR VERSION
set -euo pipefail

source_dir=$1
version=$2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
unset SOURCE_DATE_EPOCH
name=libquindle_sdl_ui-$version

fail() {
  echo "$*" >&2
  exit 1
}

# Prints the output of a command only when it fails.
quietly() {
  "$@" >"$scratch/log" 2>&1 || { cat "$scratch/log" >&2; fail "failed: $*"; }
}

for folder in first second; do
  quietly "$source_dir/scripts/dist" "$scratch/$folder"
done
cmp "$scratch/first/$name.tar.xz" "$scratch/second/$name.tar.xz" || fail "two archives differ"

tar -C "$scratch" -xf "$scratch/first/$name.tar.xz"
cd "$scratch/$name" || fail "the archive has no folder of its name"
[ ! -e .git ] || fail "the archive has a repository"

# Whoever calls it now fails, and leaves a mark.
mkdir "$scratch/bin"
printf '#!/bin/sh\necho "git $*" >>"%s"\nexit 1\n' "$scratch/git_calls" >"$scratch/bin/git"
chmod +x "$scratch/bin/git"
export PATH=$scratch/bin:$PATH GIT_DIR=$scratch/none

quietly scripts/setup --test
quietly scripts/lib/build dev ascii_text_test
quietly ctest --preset dev --no-tests=error -R '^(ascii_text_test|docs_private_pieces|docs_every_block_is_run|consumer_readme)$'
[ ! -e "$scratch/git_calls" ] || fail "called where there is no repository: $(cat "$scratch/git_calls")"
echo "$name: the same twice, built and tested without git"
