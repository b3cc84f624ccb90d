# Run by the build: writes what korvat-tools says of itself into a directory, as packages want it: a compressed
# manual page for the program and for each command, and the completion of each shell.
# -DTOOLS=PROGRAM -DGZIP=PROGRAM -DDIRECTORY=RESULT
function(write_output file)
  execute_process(COMMAND ${TOOLS} ${ARGN} OUTPUT_FILE ${DIRECTORY}/${file}
                  COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(write_page name)
  write_output(man1/${name}.1 help ${ARGN} --man)
  execute_process(COMMAND ${GZIP} -9nf ${DIRECTORY}/man1/${name}.1 COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${DIRECTORY})
file(MAKE_DIRECTORY ${DIRECTORY}/man1)
execute_process(COMMAND ${TOOLS} help --man OUTPUT_VARIABLE page COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE ".*\n\\.SH COMMANDS\n" "" page "${page}")
string(REGEX REPLACE "\n\\.SH .*" "" page "${page}")
string(REGEX MATCHALL "\\.TP\n\\\\fB[a-z]+\\\\fR" commands "${page}")
if(NOT commands)
  message(FATAL_ERROR "the manual page of korvat-tools names no command")
endif()
write_page(korvat-tools)
foreach(command ${commands})
  string(REGEX REPLACE "\\.TP\n\\\\fB([a-z]+)\\\\fR" "\\1" command "${command}")
  write_page(korvat-tools-${command} ${command})
endforeach()

write_output(korvat-tools completion bash)
write_output(_korvat-tools completion zsh)
write_output(korvat-tools.fish completion fish)
