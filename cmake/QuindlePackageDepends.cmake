# Run by cpack before it packs: what the libraries that it has installed depend on.
set(staging "${CPACK_TEMPORARY_DIRECTORY}")
file(GLOB_RECURSE libraries "${staging}/runtime/*.so.*.*.*")
if(NOT libraries)
  message(FATAL_ERROR "no libraries in ${staging}")
endif()
# dpkg-shlibdeps wants to stand in a source package.
file(MAKE_DIRECTORY "${staging}/depends/debian")
file(TOUCH "${staging}/depends/debian/control")
list(GET libraries 0 library)
get_filename_component(folder "${library}" DIRECTORY)
execute_process(COMMAND dpkg-shlibdeps -O --ignore-missing-info "-l${folder}" ${libraries}
  WORKING_DIRECTORY "${staging}/depends" OUTPUT_VARIABLE depends ERROR_QUIET
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "^shlibs:Depends=" "" depends "${depends}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "${depends}")
