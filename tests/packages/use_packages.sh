#!/usr/bin/env bash
# What becomes of the Debian packages on a machine: installs them, builds the consumer project against them,
# runs it and the demo host without a display, and removes them again. To be run on a machine that may be
# thrown away, by a user who may become root; see scripts/lib/platforms/packages.
# Usage: use_packages.sh FOLDER_OF_PACKAGES
set -eu

packages=$1
here=$(cd -- "$(dirname -- "$0")" && pwd)
project=$here/../consumer/project

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export SDL_VIDEODRIVER=dummy SDL_AUDIODRIVER=dummy DEBIAN_FRONTEND=noninteractive

say() {
  echo "use_packages: $*"
}

fail() {
  echo "use_packages: $*" >&2
  exit 1
}

# Prints the output of a command only when it fails.
quietly() {
  "$@" >"$scratch/log" 2>&1 || { cat "$scratch/log" >&2; fail "failed: $*"; }
}

as_root() {
  quietly sudo env DEBIAN_FRONTEND=noninteractive "$@"
}

# All that a package may have put there; dpkg and apt keep their own records.
list_files() {
  sudo find / -xdev \( -path /proc -o -path /dev -o -path /tmp -o -path /home -o -path /packages -o -path /quindle.bundle \
    -o -path /var/lib/dpkg -o -path /var/lib/apt -o -path /var/cache -o -path /var/log -o -path /run \) \
    -prune -o -print | sort
}

install_package() {
  as_root apt-get install --yes --no-install-recommends "$1"
}

# The libraries alone bring nothing that a developer needs, and do not need it.
check_libraries() {
  install_package "$packages"/libquindle-sdl-ui[0-9]*.deb
  [ ! -e /usr/include/quindle ] || fail "headers without the development package"
  /sbin/ldconfig -p | grep -q libquindle_sdl_ui || fail "the linker's cache does not know the libraries"
}

use_find_package() {
  quietly cmake -S "$project" -B "$scratch/project" -G Ninja -DCMAKE_CXX_FLAGS="-Wall -Wextra -Werror"
  quietly cmake --build "$scratch/project"
  quietly ctest --test-dir "$scratch/project" --output-on-failure --no-tests=error
  say "the consumer project, by find_package: shown and answered"
}

use_pkg_config() {
  local output
  # shellcheck disable=SC2046 # Several words.
  quietly g++ -std=c++20 "$project"/{first_dialog,press_escape}.cpp -o "$scratch/first_dialog" \
    $(pkg-config --cflags --libs quindle_sdl_ui)
  output=$(cd "$(pkg-config --variable=dataroot quindle_sdl_ui)" && timeout 30 "$scratch/first_dialog")
  [ "$output" = "chosen button: 2" ] || fail "unexpected output: $output"
  say "the consumer project, by pkg-config: $output"
  # shellcheck disable=SC2046 # Several words.
  quietly g++ -std=c++20 "$project/two_questions.cpp" -o "$scratch/two_questions" \
    $(pkg-config --cflags quindle_sdl_ui) -lquindle_dialog_driver $(pkg-config --libs quindle_sdl_ui)
  output=$(cd "$(pkg-config --variable=dataroot quindle_sdl_ui)" && timeout 30 "$scratch/two_questions")
  [[ $output = "2 1 -1 step 3 (press the button 3): there is no such button; "* ]] ||
    fail "unexpected output: $output"
  say "the driver's test of two questions, by pkg-config: $output"
}

# has PACKAGE PATTERN...: the package has a file of each pattern. A minimal system may have been told to
# leave documents out, so that dpkg is asked.
has() {
  local package=$1 pattern
  shift
  for pattern in "$@"; do
    dpkg -L "$package" | grep -q "$pattern\$" || fail "not in $package: $pattern"
  done
}

check_contents() {
  has libquindle-sdl-ui-dev 'dialog_driver\.h' 'libquindle_dialog_driver\.a' 'html/index\.html' 'html/guide\.html' \
    'html/shader\.png' copyright
  has quindle-dialogs 'man1/quindle_dialogs\.1\.gz' 'quindle_dialogs\.desktop' 'quindle_dialogs\.svg' copyright
}

# A message box that nobody answers, until the program is told to end.
run_demo() {
  local answer status=0
  answer=$(timeout --preserve-status -s TERM 5 quindle_dialogs message --title Eject --button 1:Eject) ||
    status=$?
  [ "$status" = 1 ] || fail "quindle_dialogs message: exit status $status, $answer"
  say "quindle_dialogs message: $answer"
  quietly quindle_dialogs tour --out "$scratch/tour"
  [ "$(find "$scratch/tour" -name '*.png' | wc -l)" -gt 20 ] || fail "the tour has taken few pictures"
  say "quindle_dialogs tour: $(find "$scratch/tour" -name '*.png' | wc -l) pictures"
}

# Not a file, not a folder that no other package has, and not a line of dpkg's.
check_removed() {
  local path
  dpkg -L "${names[@]}" | sort -u >"$scratch/ours"
  as_root apt-get purge --yes "${names[@]}"
  [ -z "$(dpkg-query -W -f '${Package} ${Status}\n' | grep quindle)" ] || fail "dpkg still has a package"
  list_files >"$scratch/removed"
  ! grep quindle "$scratch/removed" || fail "left behind"
  while read -r path; do
    if [ -e "$path" ] && [ "$path" != /. ]; then
      dpkg -S "$path" >/dev/null 2>&1 || fail "left behind: $path"
    fi
  done <"$scratch/ours"
  say "removed: $(comm -23 "$scratch/installed" "$scratch/removed" | wc -l) files are gone, none is left"
}

as_root apt-get update
list_files >"$scratch/before"
! grep quindle "$scratch/before" || fail "not a fresh machine"
check_libraries
install_package "$packages"/libquindle-sdl-ui-dev_*.deb
install_package "$packages"/quindle-dialogs_*.deb
mapfile -t names < <(dpkg-query -W -f '${Package}\n' '*quindle*')
[ "${#names[@]}" = 3 ] || fail "installed: ${names[*]}"
list_files >"$scratch/installed"
grep -q quindle "$scratch/installed" || fail "nothing was installed"
use_find_package
use_pkg_config
check_contents
run_demo
check_removed
say "the packages were installed, used and removed"
