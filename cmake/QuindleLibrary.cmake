# quindle_soversion(<version> <result>)
# What of a version the sonames carry: while the major is 0, a new minor may break programs too.
function(quindle_soversion version result)
  string(REGEX MATCH "^(0\\.)?[0-9]+" soversion "${version}")
  set(${result} "${soversion}" PARENT_SCOPE)
endfunction()

# quindle_set_up_language(<target>)
# A fused multiply-add would give other parameter values on other processors. Sources are UTF-8, which
# all compilers but one take for granted.
function(quindle_set_up_language target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /utf-8 /fp:precise)
    # Else a header of Windows makes macros of these names.
    target_compile_definitions(${target} PRIVATE NOMINMAX)
  elseif(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    target_compile_options(${target} PRIVATE -ffp-contract=off)
  endif()
endfunction()

# How every source of the libraries is compiled; "library" is the one that it becomes a part of.
function(_quindle_set_up_objects target library)
  string(TOUPPER ${library} prefix)
  set_target_properties(${target} PROPERTIES
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    POSITION_INDEPENDENT_CODE ON
    DEFINE_SYMBOL "")
  if(NOT PROJECT_IS_TOP_LEVEL)
    # Another project's warnings are for its own sources, not for the headers that it includes.
    set_target_properties(${target} PROPERTIES SYSTEM ON)
  endif()
  target_compile_definitions(${target} PRIVATE ${prefix}_BUILDING)
  target_compile_features(${target} PUBLIC cxx_std_20)
  quindle_set_up_language(${target})
  target_include_directories(${target}
    PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    PRIVATE "${PROJECT_SOURCE_DIR}/src")
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:quindle_warnings>)
endfunction()

# quindle_add_objects(<target> <library> <source dir> <sources>...)
# Sources that become a part of the library.
function(quindle_add_objects target library directory)
  list(TRANSFORM ARGN PREPEND "${PROJECT_SOURCE_DIR}/${directory}/" OUTPUT_VARIABLE sources)
  add_library(${target} OBJECT ${sources})
  _quindle_set_up_objects(${target} ${library})
endfunction()

# quindle_add_library(<target> <source dir> <sources>...)
# One of the project's shared libraries: hidden visibility, its alias, its soname.
function(quindle_add_library target directory)
  list(TRANSFORM ARGN PREPEND "${PROJECT_SOURCE_DIR}/${directory}/" OUTPUT_VARIABLE sources)
  add_library(${target} SHARED ${sources})
  add_library(quindle::${target} ALIAS ${target})
  _quindle_set_up_objects(${target} ${target})
  quindle_soversion(${PROJECT_VERSION} soversion)
  set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${soversion})
  # The linkers of Windows and macOS want everything defined by themselves.
  if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND NOT QUINDLE_SANITIZERS)
    target_link_options(${target} PRIVATE -Wl,--no-undefined)
  endif()
endfunction()

# quindle_copy_dlls(<target> <imported target>...)
# Puts the DLLs beside what <target> makes.
function(quindle_copy_dlls target)
  foreach(library IN LISTS ARGN)
    add_custom_command(TARGET ${target} POST_BUILD
      COMMAND "${CMAKE_COMMAND}" -E copy_if_different
              $<TARGET_FILE:${library}> $<TARGET_FILE_DIR:${target}>
      VERBATIM)
  endforeach()
endfunction()
