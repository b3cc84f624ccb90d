# A source with every FORMAT of the program, made anew with every change of src; tests and fuzz target use it.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(source_formats ${CMAKE_CURRENT_BINARY_DIR}/source_formats.cpp)
set(list_formats ${PROJECT_SOURCE_DIR}/tests/support/list_formats.py)
file(GLOB_RECURSE format_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/*.?pp)
add_custom_command(
  OUTPUT ${source_formats}
  COMMAND ${Python3_EXECUTABLE} ${list_formats} ${PROJECT_SOURCE_DIR}/src ${source_formats}
  DEPENDS ${list_formats} ${PROJECT_SOURCE_DIR}/scripts/formats.py ${format_sources}
  VERBATIM)
