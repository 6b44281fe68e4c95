# SPDX-License-Identifier: MIT
# Runs at installation, with bindir, datadir, application_id, templates and written set. Neither kind of file may name a
# program by a relative path, and only now is the prefix known.
cmake_path(ABSOLUTE_PATH bindir BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}" NORMALIZE OUTPUT_VARIABLE program)
cmake_path(APPEND program chimewell)

# Both formats take a quoted word in which the shell's own characters are escaped by a backslash.
string(REGEX REPLACE "([\"`$\\\\])" "\\\\\\1" quoted "${program}")
set(service_exec "\"${quoted}\"")
# A desktop entry doubles per cent signs, and doubles backslashes once more as in all its values.
string(REPLACE "%" "%%" quoted "${quoted}")
string(REPLACE "\\" "\\\\" quoted "${quoted}")
set(desktop_exec "\"${quoted}\" %u")

foreach(file IN ITEMS applications/${application_id}.desktop dbus-1/services/${application_id}.service)
  cmake_path(GET file FILENAME name)
  cmake_path(GET file PARENT_PATH folder)
  configure_file("${templates}/${name}.in" "${written}/${name}" @ONLY)
  cmake_path(ABSOLUTE_PATH datadir BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}" NORMALIZE OUTPUT_VARIABLE data)
  file(INSTALL "${written}/${name}" DESTINATION "${data}/${folder}")
endforeach()
