# SPDX-License-Identifier: MIT
# For cross.cmake's builds, as CMAKE_PROJECT_chimewell_INCLUDE: makes the stubs that programs are linked with, and
# a program of all adapters and the whole core in the place of the application, whose interface needs Qt.
execute_process(
  COMMAND ${CMAKE_CURRENT_LIST_DIR}/make-stubs ${CMAKE_BINARY_DIR}/stubs
  COMMAND_ERROR_IS_FATAL ANY)
add_link_options(-F${CMAKE_BINARY_DIR}/stubs/Frameworks -L${CMAKE_BINARY_DIR}/stubs/lib)
include(packaging/macos/bundle.cmake)

function(add_whole_program)
  file(CONFIGURE OUTPUT whole_program.cpp CONTENT "int main() {}\n")
  add_executable(whole-program ${CMAKE_CURRENT_BINARY_DIR}/whole_program.cpp)
  target_link_libraries(whole-program PRIVATE chimewell_core chimewell_macos chimewell_posix)
  target_link_options(whole-program PRIVATE LINKER:-all_load) # not just what main calls
  chimewell_bundle(whole-program)
endfunction()
cmake_language(DEFER CALL add_whole_program)
