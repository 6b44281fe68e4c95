# SPDX-License-Identifier: MIT
# chimewell_shared_name(VARIABLE CONSTANT): sets VARIABLE to the text of CONSTANT in src/values/shared_names.h, so
# that what the build names and what the programs look for is written once.
function(chimewell_shared_name variable constant)
  set(header ${PROJECT_SOURCE_DIR}/src/values/shared_names.h)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${header})
  file(STRINGS ${header} line REGEX " ${constant}\\[\\] = ")
  if(NOT line MATCHES "\"([^\"]+)\"")
    message(FATAL_ERROR "${header} does not define ${constant}")
  endif()
  set(${variable} ${CMAKE_MATCH_1} PARENT_SCOPE)
endfunction()
