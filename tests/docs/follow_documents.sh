#!/usr/bin/env bash
# Does what the README and the guide tell a host's developer to do: builds and installs the libraries by
# the README's commands, builds the two programs and the test that the documents show by their CMake blocks, the
# README's program and the test by what they say of pkg-config as well, and runs them without a display.
# Usage: follow_documents.sh CMAKE COMPILER SOURCE_DIR
set -eu

cmake=$1
compiler=$2
source_dir=$3
here=$(cd -- "$(dirname -- "$0")" && pwd)

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
prefix=$scratch/prefix
readme=$scratch/README
guide=$scratch/guide
unset DESTDIR LD_LIBRARY_PATH
export SDL_VIDEODRIVER=dummy SDL_AUDIODRIVER=dummy
# The documents say "cmake" and "c++".
mkdir "$scratch/bin"
ln -s "$cmake" "$scratch/bin/cmake"
ln -s "$(command -v "$compiler")" "$scratch/bin/c++"
export PATH=$scratch/bin:$PATH CXX=c++

fail() {
  echo "$*" >&2
  exit 1
}

# Prints the output of a command only when it fails.
quietly() {
  "$@" >"$scratch/log" 2>&1 || { cat "$scratch/log" >&2; fail "failed: $*"; }
}

extract_blocks() {
  "$here/extract_blocks.sh" "$source_dir/README.md" sh sh "$readme"
  "$here/extract_blocks.sh" "$source_dir/README.md" cpp cpp "$readme"
  "$here/extract_blocks.sh" "$source_dir/README.md" cmake cmake "$readme"
  "$here/extract_blocks.sh" "$source_dir/docs/guide.md" cpp cpp "$guide"
  "$here/extract_blocks.sh" "$source_dir/docs/guide.md" cmake cmake "$guide"
}

# The scripts that the documents name are there. They build and test for many minutes, so only that.
find_scripts() {
  local name
  for name in $(grep -oh 'scripts/[a-z_]*' "$source_dir"/{README,CONTRIBUTING}.md "$source_dir"/docs/*.md); do
    [ -x "$source_dir/$name" ] || fail "the documents name a script that is not there: $name"
  done
}

install_as_the_readme_says() {
  local part
  mkdir "$scratch/sources"
  for part in CMakeLists.txt cmake data include src; do
    cp -r "$source_dir/$part" "$scratch/sources"
  done
  grep -q ' /opt/quindle$' "$readme/build_and_install.sh" || fail "the README installs elsewhere"
  sed -i "s| /opt/quindle\$| $prefix|" "$readme/build_and_install.sh"
  (cd "$scratch/sources" && quietly bash -eu "$readme/build_and_install.sh")
}

# The host of the guide's test; its second question may lack the button that the test presses.
write_test() {
  cat "$guide/testing_your_dialogs.cpp" - >"$scratch/my_tests.cpp" <<'END'
#include <SDL.h>
#include <cstdio>
#include "frontend/gui/sdl_message_box.h"
static bool g_complete = true;
static int Ask(const char* title, bool complete) {
  quindle::frontend::gui::SdlMessageBox::Config config;
  config.title = title;
  config.buttons = {{1, "Yes", true, false, {}}};
  if (complete) {
    config.buttons.push_back({2, "No", false, true, {}});
  }
  return quindle::frontend::gui::SdlMessageBox(config).Show(nullptr, 1.0F);
}
bool ResetAndSave() { return Ask("Reset", true) == 1 && Ask("Save", g_complete) == 1; }
int main(int, char**) {
  SDL_Init(SDL_INIT_VIDEO);
  const std::string passing = TestResetWithoutSaving();
  g_complete = false;
  std::printf("passing: [%s]\nfailing: %s\n", passing.c_str(), TestResetWithoutSaving().c_str());
}
END
}

# The user of both programs presses Escape in each frame.
write_programs() {
  cat >"$scratch/escape.cpp" <<'END'
#include <SDL.h>
#include "frontend/gui/sdl_modal_runtime.h"
void RunEmulatorSlice() {
  SDL_Event event{};
  event.type = SDL_KEYDOWN;
  event.key.keysym.sym = SDLK_ESCAPE;
  SDL_PushEvent(&event);
}
static const bool kInstalled = [] {
  quindle::frontend::gui::SetModalDialogHeartbeat(RunEmulatorSlice);
  return true;
}();
END
  cat "$readme/libquindle_sdl_ui.cpp" "$scratch/escape.cpp" >"$scratch/host.cpp"
  cat "$guide/a_hosts_life.cpp" "$scratch/escape.cpp" >"$scratch/my_front_end.cpp"
}

# build_with_cmake TARGET BLOCK
build_with_cmake() {
  mkdir "$scratch/$1"
  {
    echo "cmake_minimum_required(VERSION 3.25)"
    echo "project($1 LANGUAGES CXX)"
    echo "add_executable($1 $scratch/$1.cpp)"
    cat "$2"
    echo "file(WRITE \"\${CMAKE_BINARY_DIR}/data_root\" \"\${quindle_sdl_ui_DATA_ROOT}\")"
  } >"$scratch/$1/CMakeLists.txt"
  quietly cmake -S "$scratch/$1" -B "$scratch/$1/build" -G Ninja -DCMAKE_PREFIX_PATH="$prefix"
  quietly cmake --build "$scratch/$1/build"
}

# run EXPECTED_STATUS EXPECTED_OUTPUT PROGRAM
run() {
  local status=0 output
  output=$(cd "$data_root" && timeout 30 "$3") || status=$?
  [ "$status" = "$1" ] || fail "$3: status $status"
  [ "$output" = "$2" ] || fail "$3 printed: $output"
}

readonly test_output='passing: []
failing: step 2 (press the button 2): there is no such button; open was the message box "Save", which shows the buttons 1 "Yes"'

# Where the guide says that the driver stands.
build_test_with_pkg_config() {
  local libraries
  grep -q '^`-lquindle_dialog_driver` in front of what `pkg-config --libs` prints\.' "$source_dir/docs/guide.md" ||
    fail "the guide says nothing of the driver and pkg-config"
  libraries=$(pkg-config --cflags quindle_sdl_ui)" -lquindle_dialog_driver "$(pkg-config --libs quindle_sdl_ui)
  (cd "$scratch" && quietly bash -euc "c++ -std=c++20 my_tests.cpp $libraries -o my_tests_by_pkg_config")
}

build_with_pkg_config() {
  local line
  line=$(sed -n 's/.*`\(c++ -std=c++20 host\.cpp [^`]*\)`.*/\1/p' "$source_dir/README.md")
  [ -n "$line" ] || fail "the README has no pkg-config line"
  PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name quindle_sdl_ui.pc)")
  export PKG_CONFIG_PATH
  (cd "$scratch" && quietly bash -euc "$line")
}

extract_blocks
find_scripts
install_as_the_readme_says
write_programs
write_test
build_with_cmake host "$readme/libquindle_sdl_ui.cmake"
data_root=$(cat "$scratch/host/build/data_root")
run 0 "chosen button: 2" "$scratch/host/build/host"
build_with_cmake my_front_end "$guide/packaging.cmake"
run 1 "" "$scratch/my_front_end/build/my_front_end"
build_with_cmake my_tests "$guide/testing_your_dialogs.cmake"
run 0 "$test_output" "$scratch/my_tests/build/my_tests"
build_with_pkg_config
build_test_with_pkg_config
LD_LIBRARY_PATH=$(pkg-config --variable=libdir quindle_sdl_ui)
export LD_LIBRARY_PATH
run 0 "chosen button: 2" "$scratch/a.out"
run 0 "$test_output" "$scratch/my_tests_by_pkg_config"
echo "what the documents say works"
