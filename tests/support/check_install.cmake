# Installs the build into a fresh prefix and fails when a part is missing.
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}
                COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
foreach(part bin/korvat share/doc/korvat/docs/deck.md share/doc/korvat/editors/README.md share/doc/korvat/examples/jacket/KORVAT.INP
             include/korvat/group/group.hpp)
  if(NOT EXISTS ${PREFIX}/${part})
    message(FATAL_ERROR "not installed: ${part}")
  endif()
endforeach()
file(GLOB_RECURSE expected ${PREFIX}/*/expected/*)
if(expected)
  message(FATAL_ERROR "installed, but only for tests: ${expected}")
endif()
