# Where things go below the prefix.
include(GNUInstallDirs)

if(QUINDLE_DEBIAN_PACKAGES)
  # Two packages of libraries that differ in their soname can be installed side by side.
  quindle_soversion(${PROJECT_VERSION} soversion)
  set(data_folder "quindle-${soversion}")
else()
  set(data_folder quindle)
endif()
set(QUINDLE_INSTALL_DATADIR "${CMAKE_INSTALL_DATADIR}/${data_folder}"
    CACHE STRING "Folder below the prefix that gets data/ttf")
