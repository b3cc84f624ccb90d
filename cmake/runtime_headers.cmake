# The Fortran runtime's headers alone, for a compiler that must not see the build machine's others.
set(KORVAT_RUNTIME_SOURCE /usr/include CACHE PATH "Where the Fortran runtime's headers are installed")
set(KORVAT_RUNTIME_HEADERS ${PROJECT_BINARY_DIR}/runtime)
file(
  COPY ${KORVAT_RUNTIME_SOURCE}/fem ${KORVAT_RUNTIME_SOURCE}/fem.hpp
       ${KORVAT_RUNTIME_SOURCE}/noexcept_false.hpp ${KORVAT_RUNTIME_SOURCE}/tbxx
  DESTINATION ${KORVAT_RUNTIME_HEADERS})
