# Installs the library into a fresh prefix, builds the program beside this file with it alone, and runs that on
# an example: BUILD, CONFIGURATION, LIBDIR and COMPILER are of the project's build, PROJECT and HEADERS
# directories of its sources, SOURCE and CASE those of program and example, SCRATCH is made anew.
file(REMOVE_RECURSE ${SCRATCH})
set(prefix ${SCRATCH}/prefix)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix} --component library
                COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)

# What is installed, and nothing else.
file(GLOB_RECURSE installed RELATIVE ${prefix} ${prefix}/*)
file(GLOB headers RELATIVE ${HEADERS} ${HEADERS}/*.hpp)
list(TRANSFORM headers PREPEND include/korvat/group/)
set(expected ${headers} ${LIBDIR}/libkorvat_group.a)
foreach(file config config-version targets targets-${CONFIGURATION})
  list(APPEND expected ${LIBDIR}/cmake/korvat/korvat-${file}.cmake)
endforeach()
list(SORT installed)
list(SORT expected)
if(NOT installed STREQUAL expected)
  message(FATAL_ERROR "installed: ${installed}\nexpected: ${expected}")
endif()

# The package must not lead back to the tree that it was built in.
file(GLOB files ${prefix}/${LIBDIR}/cmake/korvat/*)
foreach(file ${files})
  file(READ ${file} text)
  string(FIND "${text}" "${PROJECT}" place)
  if(NOT place EQUAL -1)
    message(FATAL_ERROR "${file} names ${PROJECT}")
  endif()
endforeach()

set(configure ${CMAKE_COMMAND} -S ${SOURCE} -B ${SCRATCH}/build -DCMAKE_PREFIX_PATH=${prefix}
              -DCMAKE_CXX_COMPILER=${COMPILER})
execute_process(COMMAND ${configure} COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${SCRATCH}/build COMMAND_ERROR_IS_FATAL ANY
                        OUTPUT_QUIET)

function(expect_run directory code output error)
  execute_process(
    COMMAND ${SCRATCH}/build/pile_lengths ${directory}
    RESULT_VARIABLE found_code
    OUTPUT_VARIABLE found_output
    ERROR_VARIABLE found_error)
  if(NOT "${found_code}" STREQUAL "${code}"
     OR NOT "${found_output}" STREQUAL "${output}"
     OR NOT "${found_error}" STREQUAL "${error}")
    message(FATAL_ERROR "exit code ${found_code}\n${found_output}${found_error}")
  endif()
endfunction()

file(READ ${SOURCE}/expected.txt output)
expect_run(${CASE} 0 "${output}" "")
file(MAKE_DIRECTORY ${SCRATCH}/damaged)
file(WRITE ${SCRATCH}/damaged/PILE.07 "")
expect_run(${SCRATCH}/damaged 1 "" "damaged at byte 0: the file is empty\n")
