# quindle_add_build_info(<target> <objects>)
# Gives src/frontend/gui/build_info.cpp of <target> the product's strings and the switches that the
# build is really compiled with, and has it compiled anew, with a new date, whenever the library is
# linked anew. <objects> is the OBJECT library of the other sources.

set(QUINDLE_HOMEPAGE_URL "https://www.example.com/quindle"
    CACHE STRING "Web address shown and opened by the About dialog")
set(QUINDLE_VIDEO_CHANNEL_URL "https://video.example.com/quindle"
    CACHE STRING "Video channel shown and opened by the About dialog")
set(QUINDLE_VIDEO_SERVICE_LABEL "VIDEO CHANNEL"
    CACHE STRING "Name of the video service in capital letters, as the About dialog shows it")
set(QUINDLE_CONTACT_EMAIL "quindle@example.com"
    CACHE STRING "Contact address shown by the About dialog")
set(QUINDLE_AUTHOR_LINE "The Quindle authors, 2026"
    CACHE STRING "Author and year shown by the About dialog")

# Of several -O flags the compiler takes the last.
function(_quindle_optimisation_level flags result)
  string(REGEX MATCHALL "(^|[ ;])[-/]O[^ ;]*" levels "${flags}")
  if(levels)
    list(GET levels -1 last)
    string(REGEX REPLACE "^[ ;]*[-/]O" "" last "${last}")
    set(${result} "${last}" PARENT_SCOPE)
  else()
    set(${result} "" PARENT_SCOPE)
  endif()
endfunction()

function(_quindle_uses_lto target config flags result)
  get_target_property(for_all ${target} INTERPROCEDURAL_OPTIMIZATION)
  get_target_property(for_config ${target} INTERPROCEDURAL_OPTIMIZATION_${config})
  if(for_config STREQUAL "for_config-NOTFOUND")
    set(for_config ${for_all})
  endif()
  if(for_config OR flags MATCHES "(^|[ ;])-flto")
    set(${result} 1 PARENT_SCOPE)
  else()
    set(${result} 0 PARENT_SCOPE)
  endif()
endfunction()

function(_quindle_switch_definitions target config result)
  string(TOUPPER "${config}" upper)
  get_target_property(options ${target} COMPILE_OPTIONS)
  # In the order of the compiler's command line.
  set(flags "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${upper}} ${options}")
  _quindle_optimisation_level("${flags}" level)
  _quindle_uses_lto(${target} "${upper}" "${flags}" lto)
  set(pgo 0)
  if(flags MATCHES "(^|[ ;])-f(profile-use|profile-instr-use|auto-profile)")
    set(pgo 1)
  endif()
  foreach(number 2 3)
    set(o${number} 0)
    if(level STREQUAL "${number}")
      set(o${number} 1)
    endif()
  endforeach()
  set(${result} QUINDLE_BUILT_WITH_LTO=${lto} QUINDLE_BUILT_WITH_PGO=${pgo}
                QUINDLE_BUILT_WITH_O2=${o2} QUINDLE_BUILT_WITH_O3=${o3} PARENT_SCOPE)
endfunction()

# GCC and newer clang take the date from SOURCE_DATE_EPOCH themselves.
function(_quindle_date_definitions result)
  set(${result} "" PARENT_SCOPE)
  if(NOT DEFINED ENV{SOURCE_DATE_EPOCH} OR CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    return()
  endif()
  string(TIMESTAMP date "%b %d %Y" UTC)
  string(REGEX REPLACE " 0([1-9]) " "  \\1 " date "${date}")
  string(TIMESTAMP time "%H:%M:%S" UTC)
  set(${result} "QUINDLE_BUILD_DATE=\"${date}\"" "QUINDLE_BUILD_TIME=\"${time}\"" PARENT_SCOPE)
endfunction()

# What a library is linked with, as files.
function(_quindle_link_files target result)
  set(files "")
  get_target_property(libraries ${target} LINK_LIBRARIES)
  foreach(library IN LISTS libraries)
    if(TARGET "${library}")
      get_target_property(type ${library} TYPE)
      if(type MATCHES "^(SHARED|STATIC|UNKNOWN)_LIBRARY$")
        list(APPEND files $<TARGET_LINKER_FILE:${library}>)
      endif()
    endif()
  endforeach()
  set(${result} "${files}" PARENT_SCOPE)
endfunction()

# How a library is linked, as a file that changes only with its contents.
function(_quindle_write_link_flags target file)
  string(TOUPPER "CMAKE_SHARED_LINKER_FLAGS_${CMAKE_BUILD_TYPE}" of_type)
  file(GENERATE OUTPUT "${file}" CONTENT
    "${CMAKE_CXX_FLAGS} ${CMAKE_SHARED_LINKER_FLAGS} ${${of_type}}
$<TARGET_PROPERTY:${target},LINK_OPTIONS>
$<TARGET_PROPERTY:${target},LINK_LIBRARIES>
")
endfunction()

# The source is compiled when all that the library is linked from is there and newer.
function(_quindle_compile_last target objects source)
  set(folder "${PROJECT_BINARY_DIR}/generated")
  _quindle_link_files(${target} files)
  _quindle_write_link_flags(${target} "${folder}/link_flags.txt")
  add_custom_command(OUTPUT "${folder}/link_stamp"
    COMMAND "${CMAKE_COMMAND}" -E touch "${folder}/link_stamp"
    DEPENDS $<TARGET_OBJECTS:${objects}> ${files} "${folder}/link_flags.txt"
    COMMENT "")
  target_sources(${target} PRIVATE "${folder}/link_stamp")
  set_source_files_properties("${source}" PROPERTIES OBJECT_DEPENDS "${folder}/link_stamp")
endfunction()

function(quindle_add_build_info target objects)
  set(source "${PROJECT_SOURCE_DIR}/src/frontend/gui/build_info.cpp")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/quindle_build_config.h.in"
                 "${PROJECT_BINARY_DIR}/generated/quindle_build_config.h" @ONLY)
  target_include_directories(${target} PRIVATE "${PROJECT_BINARY_DIR}/generated")
  _quindle_date_definitions(definitions)
  # Another project may have set no build type.
  set(configs ${CMAKE_CONFIGURATION_TYPES} ${CMAKE_BUILD_TYPE})
  if(NOT configs)
    _quindle_switch_definitions(${target} "" switches)
    list(APPEND definitions ${switches})
  endif()
  foreach(config IN LISTS configs)
    _quindle_switch_definitions(${target} "${config}" switches)
    list(TRANSFORM switches REPLACE "(.+)" "$<$<CONFIG:${config}>:\\1>")
    list(APPEND definitions ${switches})
  endforeach()
  list(REMOVE_DUPLICATES definitions)
  set_source_files_properties("${source}" PROPERTIES COMPILE_DEFINITIONS "${definitions}")
  _quindle_compile_last(${target} ${objects} "${source}")
endfunction()
