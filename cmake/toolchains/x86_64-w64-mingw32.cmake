# For 64-bit Windows, by MinGW on a Debian; the programs run under Wine. What they are built from besides
# Debian's packages lies in a folder that QUINDLE_WINDOWS_PREFIX names, in the environment or on CMake's
# command line; scripts/lib/windows_prefix makes one.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../../scripts/lib/wine")

set(QUINDLE_WINDOWS_PREFIX "$ENV{QUINDLE_WINDOWS_PREFIX}" CACHE PATH "SDL2 and the others, for Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QUINDLE_WINDOWS_PREFIX)
set(CMAKE_FIND_ROOT_PATH "${QUINDLE_WINDOWS_PREFIX}" /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The compiler's runtime becomes a part of what is linked, so that a release needs none of its DLLs.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static")
endforeach()
