# What is installed, and where: on Windows all of it below one folder, elsewhere in the places of the system.
set(documents ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/examples ${PROJECT_SOURCE_DIR}/editors)
set(only_documents
    PATTERN "expected" EXCLUDE
    PATTERN "tests" EXCLUDE
    PATTERN "*.1" EXCLUDE)
set(licences ${PROJECT_SOURCE_DIR}/packaging/licences)

# What must be built before a package is made.
set(programs korvat)
if(KORVAT_TOOLS)
  list(APPEND programs korvat-tools)
endif()
add_custom_target(packaged DEPENDS ${programs} korvat_group)

if(WIN32)
  install(TARGETS ${programs} RUNTIME DESTINATION .)
  install(DIRECTORY ${documents} DESTINATION . ${only_documents})
  install(FILES ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION docs)

  # What is linked statically comes with its licence, as the package that brought it states it.
  install(DIRECTORY ${licences} DESTINATION .)
  install(FILES /usr/share/common-licenses/GPL-3 DESTINATION licences RENAME GPL-3.txt)
  install(
    FILES /usr/share/doc/mingw-w64-x86-64-dev/copyright
    DESTINATION licences
    RENAME mingw-w64.txt)
  return()
endif()

install(TARGETS ${programs} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${documents} DESTINATION ${CMAKE_INSTALL_DOCDIR} ${only_documents})

# The library for other people's programs: find_package(korvat), target korvat::group.
include(CMakePackageConfigHelpers)
set(library_package ${CMAKE_INSTALL_LIBDIR}/cmake/korvat)
install(
  TARGETS korvat_group
  EXPORT korvat-targets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library)
install(
  DIRECTORY ${PROJECT_SOURCE_DIR}/tools/group
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/korvat
  COMPONENT library
  FILES_MATCHING
  PATTERN "*.hpp")
install(
  EXPORT korvat-targets
  NAMESPACE korvat::
  DESTINATION ${library_package}
  COMPONENT library)
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/korvat-config.cmake.in ${PROJECT_BINARY_DIR}/korvat-config.cmake
  INSTALL_DESTINATION ${library_package}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/korvat-config-version.cmake
                                 COMPATIBILITY SameMinorVersion)
install(
  FILES ${PROJECT_BINARY_DIR}/korvat-config.cmake ${PROJECT_BINARY_DIR}/korvat-config-version.cmake
  DESTINATION ${library_package}
  COMPONENT library)

# Debian wants both compressed, and the same bytes from every build.
find_program(GZIP gzip REQUIRED)
set(manual ${PROJECT_BINARY_DIR}/korvat.1.gz)
set(changelog ${PROJECT_BINARY_DIR}/changelog.gz)
function(compress source result)
  add_custom_command(
    OUTPUT ${result}
    COMMAND ${GZIP} -9n < ${source} > ${result}
    DEPENDS ${source}
    VERBATIM)
endfunction()
compress(${PROJECT_SOURCE_DIR}/docs/korvat.1 ${manual})
compress(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${changelog})
add_custom_target(compressed_documents ALL DEPENDS ${manual} ${changelog})
add_dependencies(packaged compressed_documents)
install(FILES ${manual} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${changelog} DESTINATION ${CMAKE_INSTALL_DOCDIR})

# Manual pages and completion of korvat-tools, from the program itself, where Debian has those of its packages.
if(KORVAT_TOOLS)
  set(tools_documents ${PROJECT_BINARY_DIR}/tools-documents)
  set(tools_documents_script ${PROJECT_SOURCE_DIR}/cmake/tools_documents.cmake)
  add_custom_command(
    OUTPUT ${tools_documents}.made
    COMMAND ${CMAKE_COMMAND} -DTOOLS=$<TARGET_FILE:korvat-tools> -DGZIP=${GZIP}
            -DDIRECTORY=${tools_documents} -P ${tools_documents_script}
    COMMAND ${CMAKE_COMMAND} -E touch ${tools_documents}.made
    DEPENDS korvat-tools ${tools_documents_script}
    VERBATIM)
  add_custom_target(tools_documents ALL DEPENDS ${tools_documents}.made)
  add_dependencies(packaged tools_documents)
  install(DIRECTORY ${tools_documents}/man1 DESTINATION ${CMAKE_INSTALL_MANDIR})
  install(FILES ${tools_documents}/korvat-tools
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES ${tools_documents}/_korvat-tools
          DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
  install(FILES ${tools_documents}/korvat-tools.fish
          DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
endif()

# The texts of others' licences, in the form of a continued field: indented, a dot for an empty line.
function(read_as_field file result)
  file(READ ${file} text)
  string(STRIP "${text}" text)
  string(REGEX REPLACE "\n\n" "\n.\n" text "${text}")
  string(REGEX REPLACE "\n" "\n " text " ${text}")
  set(${result} "${text}" PARENT_SCOPE)
endfunction()
foreach(part fem-runtime gcc-runtime-library-exception cli11 nlohmann-json xxhash)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${licences}/${part}.txt)
  string(REPLACE "-" "_" variable ${part}_licence)
  read_as_field(${licences}/${part}.txt ${variable})
endforeach()
configure_file(${PROJECT_SOURCE_DIR}/packaging/debian/copyright.in ${PROJECT_BINARY_DIR}/copyright
               @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
