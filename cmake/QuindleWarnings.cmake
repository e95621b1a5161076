# Warnings for this project's own sources; never exported to those who link it. They end a build in
# the developers' presets alone: a compiler newer than ours may warn of more.
option(QUINDLE_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)

add_library(quindle_warnings INTERFACE)
# As a part of another build, its warnings are enough.
if(NOT PROJECT_IS_TOP_LEVEL AND NOT QUINDLE_WARNINGS_AS_ERRORS)
  return()
endif()
if(MSVC)
  target_compile_options(quindle_warnings INTERFACE
    /W4 $<$<BOOL:${QUINDLE_WARNINGS_AS_ERRORS}>:/WX>)
elseif(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(quindle_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wundef
    $<$<BOOL:${QUINDLE_WARNINGS_AS_ERRORS}>:-Werror>)
endif()
# GCC 12 sees overlapping copies inside std::string wherever a literal is assigned (its bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(quindle_warnings INTERFACE -Wno-restrict)
endif()
