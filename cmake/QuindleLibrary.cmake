# quindle_soversion(<version> <result>)
# What of a version the sonames carry: while the major is 0, a new minor may break programs too.
function(quindle_soversion version result)
  string(REGEX MATCH "^(0\\.)?[0-9]+" soversion "${version}")
  set(${result} "${soversion}" PARENT_SCOPE)
endfunction()

# quindle_add_library(<target> <source dir> <sources>...)
# One of the project's shared libraries: hidden visibility, its alias, its soname, its install rule.
function(quindle_add_library target directory)
  list(TRANSFORM ARGN PREPEND "${PROJECT_SOURCE_DIR}/${directory}/" OUTPUT_VARIABLE sources)
  add_library(${target} SHARED ${sources})
  add_library(quindle::${target} ALIAS ${target})
  string(TOUPPER ${target} prefix)
  quindle_soversion(${PROJECT_VERSION} soversion)
  set_target_properties(${target} PROPERTIES
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    DEFINE_SYMBOL ${prefix}_BUILDING
    VERSION ${PROJECT_VERSION}
    SOVERSION ${soversion})
  target_compile_features(${target} PUBLIC cxx_std_20)
  # A fused multiply-add would give other parameter values on other processors.
  target_compile_options(${target} PRIVATE -ffp-contract=off)
  target_include_directories(${target}
    PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
           $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/quindle>
    PRIVATE "${PROJECT_SOURCE_DIR}/src")
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:quindle_warnings>)
  if(NOT QUINDLE_SANITIZERS)
    target_link_options(${target} PRIVATE -Wl,--no-undefined)
  endif()
endfunction()
