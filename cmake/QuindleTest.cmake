# The headers that cost a test program most of its compile time, read once for all of them.
# -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON goes without.
function(quindle_add_test_headers)
  add_library(quindle_test_headers OBJECT "${PROJECT_SOURCE_DIR}/tests/support/precompiled_headers.cpp")
  target_link_libraries(quindle_test_headers PRIVATE
    quindle_sdl_ui quindle_warnings GTest::gmock GTest::gtest)
  target_precompile_headers(quindle_test_headers PRIVATE
    <algorithm> <chrono> <filesystem> <fstream> <functional> <map> <memory> <optional> <random>
    <sstream> <string> <thread> <vector> <gmock/gmock.h> <gtest/gtest.h> <SDL.h> <SDL_ttf.h>)
endfunction()

# quindle_add_test(<name> SOURCES <file>... [LIBRARIES <target>...] [TIMEOUT <seconds>]
#                  [LABELS <label>...] [X11])
# One GoogleTest program. It runs without a display, from the source folder (where data/ttf lies),
# and is stopped when it hangs. X11 marks a program that starts its own X server.
function(quindle_add_test name)
  cmake_parse_arguments(arg "X11" "TIMEOUT" "SOURCES;LIBRARIES;LABELS" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_precompile_headers(${name} REUSE_FROM quindle_test_headers)
  target_link_libraries(${name} PRIVATE
    quindle_sdl_ui quindle_utils quindle_opengl ${arg_LIBRARIES}
    quindle_warnings GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE
    "${PROJECT_SOURCE_DIR}/src" "${PROJECT_SOURCE_DIR}/tests")
  # The call recorder's functions must be seen by the libraries, not by this program alone.
  set_target_properties(${name} PROPERTIES ENABLE_EXPORTS ON)
  add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}")
  set(environment SDL_AUDIODRIVER=dummy)
  if(arg_X11)
    list(APPEND arg_LABELS x11)
    # The graphics driver and the session bus leak, and are unloaded before they could be told apart.
    # The same code is checked for leaks by the tests without a display.
    list(APPEND environment ASAN_OPTIONS=detect_leaks=0)
    set_tests_properties(${name} PROPERTIES RUN_SERIAL ON)
  else()
    list(APPEND environment SDL_VIDEODRIVER=dummy)
  endif()
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${arg_TIMEOUT} LABELS "${arg_LABELS}" ENVIRONMENT "${environment}")
endfunction()
