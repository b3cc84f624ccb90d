# Compiler flags of every target of the project. The presets make warnings errors; a plain build
# goes on where a newer compiler warns.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_library(korvat_flags INTERFACE)
target_compile_options(
  korvat_flags
  INTERFACE -Wall
            -Wextra
            -Wconversion
            -Wshadow
            # Assertions stay on in every build: a fault of the program ends it rather than writing a
            # wrong bit.
            -UNDEBUG
            # Formulas keep the order and the rounding in which they are written.
            -ffp-contract=off
            -fno-fast-math
            # An assertion names its file as it stands in the project, wherever that is built.
            -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)

if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT KORVAT_SANITIZE AND NOT WIN32)
  # Debian's hardening flags.
  target_compile_options(
    korvat_flags INTERFACE -fstack-protector-strong -Wformat -Werror=format-security
                           -D_FORTIFY_SOURCE=2 -fPIE)
  target_link_options(korvat_flags INTERFACE -pie -Wl,-z,relro -Wl,-z,now)
  # To load and relocate the compiler's library takes longer than to read a small deck.
  target_link_options(korvat_flags INTERFACE -static-libstdc++ -static-libgcc)
endif()

if(KORVAT_SANITIZE)
  target_compile_options(korvat_flags INTERFACE -fsanitize=address,undefined
                                                -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(korvat_flags INTERFACE -fsanitize=address,undefined)
endif()

if(KORVAT_FUZZ)
  # The fuzz targets themselves are linked with the fuzzer, which has a main.
  set(fuzz_flags -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  if(KORVAT_COVERAGE)
    list(APPEND fuzz_flags -fprofile-instr-generate -fcoverage-mapping)
  endif()
  target_compile_options(
    korvat_flags
    INTERFACE ${fuzz_flags} -fno-omit-frame-pointer -D_GLIBCXX_ASSERTIONS
              -fsanitize-coverage-ignorelist=${PROJECT_SOURCE_DIR}/tests/fuzz/coverage_ignored.txt)
  target_link_options(korvat_flags INTERFACE ${fuzz_flags})
elseif(KORVAT_COVERAGE)
  target_compile_options(korvat_flags INTERFACE --coverage)
  target_link_options(korvat_flags INTERFACE --coverage)
endif()
