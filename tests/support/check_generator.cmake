# Fails when the deck beside a generator is not what the generator writes.
execute_process(
  COMMAND ${PYTHON} ${EXAMPLE}/generate.py
  OUTPUT_VARIABLE generated
  COMMAND_ERROR_IS_FATAL ANY)
file(READ ${EXAMPLE}/KORVAT.INP committed)
if(NOT generated STREQUAL committed)
  message(FATAL_ERROR "${EXAMPLE}/KORVAT.INP differs from the output of generate.py")
endif()
