# Packages: `cpack -G DEB` in a release build, `cpack -G ZIP` in a Windows build.
set(CPACK_PACKAGE_NAME korvat)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "KORVAT maintainers")
set(CPACK_PACKAGE_CONTACT "KORVAT maintainers <maintainers@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "pre-processor for pile groups")
set(CPACK_PACKAGE_DESCRIPTION
    "KORVAT reads a text deck that describes a group of piles: materials, cross sections,
segments, geometry and loads. It divides every pile into nodes and elements, computes
section properties and yield curves, and writes the binary pile and load input of the
analysis program TOLVAN, a listing, a plot file and a log. It runs without dialogue in
the current directory.")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/package_permissions.cmake)

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME korvat-${PROJECT_VERSION}-windows-x86_64)
  # Explorer unpacks a zip into a folder of its own.
  set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION science)
  set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
endif()
include(CPack)
