# Headers, libraries, fonts, the CMake package and the pkg-config file.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/quindle_sdl_ui")

install(TARGETS quindle_utils quindle_opengl quindle_sdl_ui quindle_dialog_driver
        EXPORT quindle_sdl_ui_targets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
# The libraries find each other beside themselves, wherever the tree is installed.
set_target_properties(quindle_opengl quindle_sdl_ui PROPERTIES INSTALL_RPATH "$ORIGIN")

install(DIRECTORY include/ DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/quindle")
install(DIRECTORY data/ttf DESTINATION "${CMAKE_INSTALL_DATADIR}/quindle/data")

install(EXPORT quindle_sdl_ui_targets NAMESPACE quindle:: DESTINATION "${package_dir}")
configure_package_config_file(cmake/quindle_sdl_uiConfig.cmake.in
  "${PROJECT_BINARY_DIR}/quindle_sdl_uiConfig.cmake"
  INSTALL_DESTINATION "${package_dir}"
  PATH_VARS CMAKE_INSTALL_DATADIR)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/quindle_sdl_uiConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/quindle_sdl_uiConfig.cmake"
              "${PROJECT_BINARY_DIR}/quindle_sdl_uiConfigVersion.cmake"
        DESTINATION "${package_dir}")

# pkg-config resolves ${pcfiledir}, so a moved tree keeps working.
file(RELATIVE_PATH quindle_pc_prefix
     "/p/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/p")
string(REGEX REPLACE "/$" "" quindle_pc_prefix "${quindle_pc_prefix}")
configure_file(cmake/quindle_sdl_ui.pc.in "${PROJECT_BINARY_DIR}/quindle_sdl_ui.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/quindle_sdl_ui.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
