#!/usr/bin/env bash
# Installs a build into a folder of its own, builds the project beside this script against it, and
# runs it without a display.
# Usage: use_installed.sh find_package|pkg_config|moved CMAKE COMPILER BUILD_DIR
set -eu

way=$1
cmake=$2
compiler=$3
build_dir=$4
project=$(cd -- "$(dirname -- "$0")/project" && pwd)

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
unset DESTDIR LD_LIBRARY_PATH
prefix=$scratch/prefix
flags=()
libs=()
warnings="-std=c++20 -Wall -Wextra -Werror"

fail() {
  echo "$*" >&2
  exit 1
}

# Prints the output of a command only when it fails.
quietly() {
  "$@" >"$scratch/log" 2>&1 || { cat "$scratch/log" >&2; fail "failed: $*"; }
}

# SDL2's package as it is, but that it leaves a prefix of its own behind, as some do.
write_relocating_sdl2() {
  local real
  real=$(sed -n 's/^SDL2_DIR:PATH=//p' "$build_dir/CMakeCache.txt")
  mkdir -p "$scratch/sdl2"
  printf 'include("%s")\n' "$real"/*onfig-version.cmake "$real"/*onfigVersion.cmake |
    grep -vF '*' >"$scratch/sdl2/SDL2ConfigVersion.cmake"
  printf 'include("%s")\n' "$real"/*onfig.cmake >"$scratch/sdl2/SDL2Config.cmake"
  echo 'set(PACKAGE_PREFIX_DIR /elsewhere)' >>"$scratch/sdl2/SDL2Config.cmake"
}

use_find_package() {
  write_relocating_sdl2
  quietly "$cmake" -S "$project" -B "$scratch/project" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
    -DSDL2_DIR="$scratch/sdl2" \
    -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$warnings"
  grep -q "^quindle_sdl_ui_DIR:PATH=$prefix/" "$scratch/project/CMakeCache.txt" ||
    fail "another package was found"
  quietly "$cmake" --build "$scratch/project"
  quietly ctest --test-dir "$scratch/project" --output-on-failure --no-tests=error
}

use_pkg_config() {
  PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name quindle_sdl_ui.pc)")
  export PKG_CONFIG_PATH
  local data_root libdir output
  # pkg-config quotes for the shell: a folder's name may hold blanks.
  eval "flags=($warnings $(pkg-config --cflags quindle_sdl_ui))"
  eval "libs=($(pkg-config --libs quindle_sdl_ui))"
  eval "data_root=$(pkg-config --variable=dataroot quindle_sdl_ui)"
  eval "libdir=$(pkg-config --variable=libdir quindle_sdl_ui)"
  [ "$data_root" -ef "$prefix/share/quindle" ] || fail "the fonts would be in $data_root"
  "$compiler" "${flags[@]}" "$project"/{first_dialog,press_escape}.cpp "${libs[@]}" \
    -o "$scratch/first_dialog"
  "$compiler" "${flags[@]}" "$project/two_questions.cpp" -lquindle_dialog_driver "${libs[@]}" \
    -o "$scratch/two_questions"
  output=$(cd "$data_root" && LD_LIBRARY_PATH=$libdir \
    SDL_VIDEODRIVER=dummy SDL_AUDIODRIVER=dummy timeout 30 "$scratch/first_dialog")
  [ "$output" = "chosen button: 2" ] || fail "unexpected output: $output"
  output=$(cd "$data_root" && LD_LIBRARY_PATH=$libdir \
    SDL_VIDEODRIVER=dummy SDL_AUDIODRIVER=dummy timeout 30 "$scratch/two_questions")
  [[ $output = "2 1 -1 step 3 "* ]] || fail "unexpected output: $output"
}

# Each installed header stands on its own.
compile_headers() {
  local header
  eval "flags=($warnings $(pkg-config --cflags quindle_sdl_ui))"
  find "$prefix/include/quindle" -name '*.h' >"$scratch/headers"
  [ -s "$scratch/headers" ] || fail "no headers are installed"
  while read -r header; do
    "$compiler" "${flags[@]}" -include "$header" -fsyntax-only -x c++ /dev/null ||
      fail "does not stand on its own: $header"
  done <"$scratch/headers"
}

# Libraries find each other beside themselves, and nothing points back to where the tree was made.
check_tree() {
  local library paths
  for library in opengl sdl_ui; do
    library=$(find "$prefix" -name "libquindle_$library.so.*.*.*")
    paths=$(readelf -d "$library" | sed -n 's/.*R.*PATH.*\[\(.*\)\]/\1/p')
    [ "$paths" = "\$ORIGIN" ] || fail "run path of $library: $paths"
  done
  grep -rIlF -e "$scratch" -e "$build_dir" "$prefix" && fail "these name a folder of this machine"
  [ -s "$prefix/share/quindle/data/ttf/OFL.txt" ] || fail "the fonts' licence is missing"
}

quietly "$cmake" --install "$build_dir" --prefix "$prefix"
check_tree
case $way in
  find_package) use_find_package ;;
  pkg_config) use_pkg_config; compile_headers ;;
  moved)
    mkdir "$scratch/another place"
    mv "$prefix" "$scratch/another place/tree"
    prefix="$scratch/another place/tree"
    use_find_package
    use_pkg_config
    ;;
  *) fail "no such way: $way" ;;
esac
echo "$way: the program was built and has run"
