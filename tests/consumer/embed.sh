#!/usr/bin/env bash
# Builds the project in embedding/, which has the libraries' sources in its own build, and runs it without a
# display.
# Usage: embed.sh add_subdirectory|FetchContent CMAKE COMPILER SOURCE_DIR
set -eu

way=$1
cmake=$2
compiler=$3
source_dir=$4
project=$(cd -- "$(dirname -- "$0")/embedding" && pwd)

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
unset DESTDIR LD_LIBRARY_PATH CMAKE_EXPORT_COMPILE_COMMANDS CMAKE_BUILD_TYPE
build=$scratch/build

fail() {
  echo "$*" >&2
  exit 1
}

# Prints the output of a command only when it fails.
quietly() {
  "$@" >"$scratch/log" 2>&1 || { cat "$scratch/log" >&2; fail "failed: $*"; }
}

configure() {
  quietly "$cmake" -S "$project" -B "$build" -G Ninja -DWAY="$way" -DCMAKE_CXX_COMPILER="$compiler" \
    -DQUINDLE_SOURCE_DIR="$source_dir" "$@"
}

# The command that compiles the program that has nothing to do with the libraries.
strangers_command() {
  ninja -C "$build" -t commands CMakeFiles/stranger.dir/stranger.cpp.o | tail -n 1
}

# expect_command WORD... with a word for each flag that must be there, and !WORD for one that must not.
expect_command() {
  local command word
  command=$(strangers_command)
  for word in "$@"; do
    case $word in
      !*) [[ $command != *"${word#!}"* ]] || fail "$word: $command" ;;
      *) [[ $command == *"$word"* ]] || fail "$word: $command" ;;
    esac
  done
}

installed_files() {
  rm -rf "$scratch/prefix"
  quietly "$cmake" --install "$build" --prefix "$scratch/prefix"
  (cd "$scratch/prefix" && find . -type f -o -type l | sort)
}

# With nothing set: no build type, no compile commands, no flags.
configure
expect_command '!-O' '!-DNDEBUG' '!-W' '!-ffp-contract' '!-I' '!-std='
[ ! -e "$build/compile_commands.json" ] || fail "compile commands were written"
quietly "$cmake" --build "$build"
quietly ctest --test-dir "$build" --output-on-failure --no-tests=error
[ "$(installed_files)" = ./bin/stranger ] || fail "installed as well: $(installed_files)"

# With a host's own choices, and our install rules asked for.
configure -DCMAKE_CXX_STANDARD=17 -DCMAKE_CXX_EXTENSIONS=OFF -DCMAKE_BUILD_TYPE=MinSizeRel \
  -DCMAKE_SKIP_RPATH=ON -DQUINDLE_INSTALL=ON
expect_command '-Os' '-DNDEBUG' '-std=c++17' '!-W' '!-ffp-contract' '!-I'
grep -q '^CMAKE_SKIP_RPATH:[A-Z]*=ON$' "$build/CMakeCache.txt" || fail "the run paths' setting has changed"
quietly "$cmake" --build "$build"
installed_files >"$scratch/installed"
for file in bin/stranger 'lib.*/libquindle_sdl_ui.so' 'include/quindle/frontend/gui/about_dialog.h' \
  'lib.*/quindle_sdl_uiConfig.cmake' 'share/quindle/data/ttf/OFL.txt'; do
  grep -q "^\./$file\$" "$scratch/installed" || fail "not installed: $file"
done
echo "$way: the project was built, has run, and kept its settings"
