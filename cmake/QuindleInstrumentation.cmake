# Sanitizers and coverage apply to every target of the build, so that all of one process agrees.
set(QUINDLE_SANITIZERS "" CACHE STRING "Comma-separated sanitizers, for example address,undefined")
option(QUINDLE_COVERAGE "Record line and branch coverage" OFF)

if(QUINDLE_SANITIZERS)
  add_compile_options(-fsanitize=${QUINDLE_SANITIZERS} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QUINDLE_SANITIZERS})
  if(QUINDLE_SANITIZERS MATCHES "undefined")
    # A report of undefined behaviour must fail the test that provoked it.
    add_compile_options(-fsanitize=float-cast-overflow -fno-sanitize-recover=all)
    add_link_options(-fsanitize=float-cast-overflow)
  endif()
endif()
if(QUINDLE_COVERAGE)
  add_compile_options(--coverage -O0)
  add_link_options(--coverage)
endif()
