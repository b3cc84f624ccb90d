# The headers alone that the build needs of this machine, for a compiler that must not see its others: those of
# the Fortran runtime and, for korvat-tools, of CLI11, nlohmann-json, toml++ and
# xxHash.
set(KORVAT_RUNTIME_SOURCE /usr/include CACHE PATH "Where the Fortran runtime's headers are installed")
set(KORVAT_RUNTIME_HEADERS ${PROJECT_BINARY_DIR}/runtime)
file(
  COPY ${KORVAT_RUNTIME_SOURCE}/fem ${KORVAT_RUNTIME_SOURCE}/fem.hpp
       ${KORVAT_RUNTIME_SOURCE}/noexcept_false.hpp ${KORVAT_RUNTIME_SOURCE}/tbxx
  DESTINATION ${KORVAT_RUNTIME_HEADERS})

if(KORVAT_TOOLS)
  set(KORVAT_TOOLS_SOURCE /usr/include
      CACHE PATH "Where the headers of CLI11, nlohmann-json, toml++ and xxHash are installed")
  set(KORVAT_TOOLS_HEADERS ${PROJECT_BINARY_DIR}/tools-headers)
  file(COPY ${KORVAT_TOOLS_SOURCE}/CLI ${KORVAT_TOOLS_SOURCE}/nlohmann ${KORVAT_TOOLS_SOURCE}/toml++
            ${KORVAT_TOOLS_SOURCE}/xxhash.h
       DESTINATION ${KORVAT_TOOLS_HEADERS})
endif()
