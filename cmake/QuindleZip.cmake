# What cpack needs for a zip to be unpacked anywhere on Windows: what is installed, and the DLLs that it
# needs with their licences.
install(FILES $<TARGET_FILE:SDL2::SDL2> $<TARGET_FILE:SDL2_ttf::SDL2_ttf>
        DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime)
if(TARGET quindle_dialogs)
  find_package(SDL2_image CONFIG REQUIRED)
  install(FILES $<TARGET_FILE:SDL2_image::SDL2_image>
          DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT demo)
endif()
if(EXISTS "${QUINDLE_WINDOWS_PREFIX}/share/licenses")
  install(DIRECTORY "${QUINDLE_WINDOWS_PREFIX}/share/licenses"
          DESTINATION "${QUINDLE_INSTALL_DATADIR}" COMPONENT runtime)
endif()

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME quindle-sdl-ui)
set(CPACK_PACKAGE_VENDOR "${QUINDLE_AUTHOR_LINE}")
set(CPACK_PACKAGE_FILE_NAME "quindle-sdl-ui-${PROJECT_VERSION}-windows-${CMAKE_SYSTEM_PROCESSOR}")
set(CPACK_OUTPUT_FILE_PREFIX "${PROJECT_BINARY_DIR}")
set(CPACK_STRIP_FILES ON)
include(CPack)
