#!/usr/bin/env bash
# CONTRIBUTING.md lists every private header of the libraries, and none that is gone.
# Usage: private_pieces.sh SOURCE_DIR
set -eu
cd -- "$1"

listed=$(sed -n '/^Inside `src\/frontend\/gui\/`/,/^Before you write a helper/p' CONTRIBUTING.md |
  grep -o '`[a-z_0-9/]*\.h`' | tr -d '`' | sed 's|.*/||' | sort)
there=$(find src -name '*.h' -exec basename {} \; | sort)
[ -n "$there" ] || { echo "no private headers below $1" >&2; exit 1; }
diff -u <(echo "$there") <(echo "$listed") ||
  { echo "Headers that are not listed are marked with -, those that are gone with +." >&2; exit 1; }
