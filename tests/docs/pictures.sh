#!/usr/bin/env bash
# The README opens with the picture of all dialogs, each dialog's chapter of the guide with its own; each
# picture is one that scripts/pictures makes, of a size that a page can bear, and is shown somewhere.
# Usage: pictures.sh SOURCE_DIR
set -eu
cd -- "$1"

readonly dialogs='about hdd message picker screenshot settings shader'

fail() {
  echo "$*" >&2
  exit 1
}

# The lines of one of the lists of scripts/pictures.
list() {
  sed -n "/^readonly $1='\$/,/^'\$/p" scripts/pictures | sed '1d;$d'
}

# Which dialogs the tour's pictures on standard input are of.
dialogs_of() {
  sed 's/-.*//' | sort -u | paste -sd' '
}

# The chapters of the dialogs, each with what stands below its heading.
chapters() {
  awk '/^## / { inside = /^## The dialogs$/ } inside && /^### / { heading = $0; getline; getline; print heading ": " $0 }' \
    docs/guide.md
}

[ "$(sed -n 3p README.md | grep -o '(.*)$')" = "(docs/images/gallery.png)" ] ||
  fail "the README does not open with the picture of all dialogs"
[ "$(list gallery | cut -d' ' -f1 | dialogs_of)" = "$dialogs" ] ||
  fail "scripts/pictures does not put all dialogs on the README's picture"
[ "$({ list pictures | awk '{ print $2 }'; grep -o 'shader-animation' scripts/pictures; } | dialogs_of)" = "$dialogs" ] ||
  fail "scripts/pictures does not take a picture of each dialog"

[ "$(chapters | wc -l)" = 7 ] || fail "the guide has no chapter for each dialog: $(chapters)"
chapters | grep -v ': !\[.*\](images/[a-z_]*\.png)$' && fail "a dialog's chapter does not open with a picture"

diff -u <({ list pictures | awk '{ print $1 ".png" }'; echo gallery.png; echo shader.png; } | sort) <(ls docs/images) ||
  fail "Pictures that are not there are marked with -, those that scripts/pictures does not make with +."
for picture in docs/images/*; do
  grep -qF "(docs/images/${picture##*/})" README.md || grep -qF "(images/${picture##*/})" docs/guide.md ||
    fail "shown nowhere: $picture"
  [ "$(od -An -c -N4 "$picture" | tr -d ' ')" = '211PNG' ] || fail "no PNG: $picture"
  most=500000
  if grep -qa acTL "$picture"; then
    most=1000000  # In motion.
  fi
  [ "$(wc -c <"$picture")" -lt "$most" ] || fail "larger than $most bytes: $picture"
done
grep -qa acTL docs/images/shader.png || fail "the shader dialog's picture does not move"
