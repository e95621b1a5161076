# What cpack needs for the Debian packages, one of each component that is installed. The preset "packages"
# switches it on; scripts/packages builds them.
find_program(gzip gzip REQUIRED)

quindle_soversion(${PROJECT_VERSION} soversion)
set(runtime_package "libquindle-sdl-ui${soversion}")
set(development_package "libquindle-sdl-ui-dev")
set(demo_package "quindle-dialogs")
set(packaging "${PROJECT_SOURCE_DIR}/packaging")
set(packaging_output "${PROJECT_BINARY_DIR}/packaging")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quindle-sdl-ui)
set(CPACK_PACKAGE_VENDOR "${QUINDLE_AUTHOR_LINE}")
set(CPACK_PACKAGE_CONTACT "The Quindle authors <${QUINDLE_CONTACT_EMAIL}>")
set(CPACK_PACKAGE_HOMEPAGE_URL "${QUINDLE_HOMEPAGE_URL}")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_OUTPUT_FILE_PREFIX "${PROJECT_BINARY_DIR}")
set(CPACK_COMPONENTS_ALL runtime development demo)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
# A folder that cpack makes has the same permissions whatever the umask of who runs it.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

# Else it would come first in each of the following.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(summary "modal SDL2 dialogs for PC emulators")
set(description "Message box, file and folder pickers, and dialogs for hard-disk images,
screenshots, shader parameters, settings and About, drawn with SDL2 and
SDL2_ttf in windows that are modal for the host's own.

This package has")

set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "${summary} - shared libraries
${description} the libraries and their fonts.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# CPack's own way of finding dependencies would bring maintainer scripts that call ldconfig.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS OFF)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/QuindlePackageDepends.cmake")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${packaging_output}/shlibs;${packaging}/triggers")

set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "${summary} - development files
${description} the headers, a CMake package, a pkg-config file and the
reference of the headers with the guide.")
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${development_package})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libsdl2-dev (>= ${QUINDLE_LEAST_SDL2}), libsdl2-ttf-dev (>= ${QUINDLE_LEAST_SDL2_TTF})")

set(CPACK_DEBIAN_DEMO_DESCRIPTION "${summary} - demo host
${description} a program that shows the dialogs over the picture of a guest,
with a button for each of them, or one dialog from the command line, whose
answer is printed as JSON.")
set(CPACK_COMPONENT_DEMO_DEPENDS runtime)
set(CPACK_DEBIAN_DEMO_PACKAGE_NAME ${demo_package})
set(CPACK_DEBIAN_DEMO_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_DEMO_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}")

# A paragraph of a control file: each line begins with a blank, and an empty one holds a dot.
function(_quindle_as_paragraph text result)
  string(STRIP "${text}" text)
  string(REGEX REPLACE "\r?\n" "\n " text " ${text}")
  string(REGEX REPLACE "\n *\n" "\n .\n" text "${text}")
  string(REGEX REPLACE "\n *\n" "\n .\n" text "${text}")
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

# Writes a compressed copy that is the same whenever it is made.
function(_quindle_compress file output)
  execute_process(COMMAND "${gzip}" -9nc "${file}" OUTPUT_FILE "${output}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(MAKE_DIRECTORY "${packaging_output}")
file(READ "${PROJECT_SOURCE_DIR}/data/ttf/OFL.txt" font_licence)
_quindle_as_paragraph("${font_licence}" font_licence)
configure_file("${packaging}/copyright.in" "${packaging_output}/copyright" @ONLY)
configure_file("${packaging}/shlibs.in" "${packaging_output}/shlibs" @ONLY)
_quindle_compress("${packaging}/changelog" "${packaging_output}/changelog.gz")
_quindle_compress("${packaging}/quindle_dialogs.1" "${packaging_output}/quindle_dialogs.1.gz")

foreach(component runtime development demo)
  install(FILES "${packaging_output}/copyright" "${packaging_output}/changelog.gz"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${${component}_package}" COMPONENT ${component})
endforeach()
install(DIRECTORY "${QUINDLE_REFERENCE_DIR}/"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${development_package}/html" COMPONENT development)
install(FILES "${packaging_output}/quindle_dialogs.1.gz"
        DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT demo)

include(CPack)
