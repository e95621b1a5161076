# Warnings as errors for this project's own sources; never exported to those who link it.
option(QUINDLE_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" ON)

add_library(quindle_warnings INTERFACE)
target_compile_options(quindle_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wundef
  $<$<BOOL:${QUINDLE_WARNINGS_AS_ERRORS}>:-Werror>)
