# Three components: "runtime" has the libraries and the fonts; "development" the headers, the CMake package,
# the pkg-config file and what else a host's developer links; "demo" the demo host.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/quindle_sdl_ui")

install(TARGETS quindle_utils quindle_opengl quindle_sdl_ui quindle_dialog_driver
        EXPORT quindle_sdl_ui_targets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime
                NAMELINK_COMPONENT development
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
        INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/quindle")
# The libraries find each other beside themselves, wherever the tree is installed.
set_target_properties(quindle_opengl quindle_sdl_ui PROPERTIES INSTALL_RPATH "$ORIGIN")

install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/quindle" COMPONENT development)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/data/ttf"
        DESTINATION "${QUINDLE_INSTALL_DATADIR}/data" COMPONENT runtime)

install(EXPORT quindle_sdl_ui_targets NAMESPACE quindle:: DESTINATION "${package_dir}"
        COMPONENT development)
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/quindle_sdl_uiConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/quindle_sdl_uiConfig.cmake"
  INSTALL_DESTINATION "${package_dir}"
  PATH_VARS QUINDLE_INSTALL_DATADIR)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/quindle_sdl_uiConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/quindle_sdl_uiConfig.cmake"
              "${PROJECT_BINARY_DIR}/quindle_sdl_uiConfigVersion.cmake"
        DESTINATION "${package_dir}" COMPONENT development)

# pkg-config resolves ${pcfiledir}, so a moved tree keeps working.
file(RELATIVE_PATH quindle_pc_prefix
     "/p/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/p")
string(REGEX REPLACE "/$" "" quindle_pc_prefix "${quindle_pc_prefix}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/quindle_sdl_ui.pc.in"
               "${PROJECT_BINARY_DIR}/quindle_sdl_ui.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/quindle_sdl_ui.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)

if(TARGET quindle_dialogs)
  file(RELATIVE_PATH libraries "/p/${CMAKE_INSTALL_BINDIR}" "/p/${CMAKE_INSTALL_LIBDIR}")
  set_target_properties(quindle_dialogs PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries}")
  set(packaging "${PROJECT_SOURCE_DIR}/packaging")
  install(TARGETS quindle_dialogs RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT demo)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/data/shaders"
          DESTINATION "${QUINDLE_INSTALL_DATADIR}/data" COMPONENT demo)
endif()
if(TARGET quindle_dialogs AND NOT WIN32)
  install(FILES "${packaging}/quindle_dialogs.desktop"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT demo)
  install(FILES "${packaging}/quindle_dialogs.svg"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" COMPONENT demo)
  # Debian wants it compressed.
  if(NOT QUINDLE_DEBIAN_PACKAGES)
    install(FILES "${packaging}/quindle_dialogs.1"
            DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT demo)
  endif()
endif()
