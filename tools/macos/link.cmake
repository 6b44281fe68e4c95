# SPDX-License-Identifier: MIT
# For cross.cmake's builds, as CMAKE_PROJECT_chimewell_INCLUDE: makes the stubs that programs are linked with.
set(stubs ${CMAKE_BINARY_DIR}/stubs)

# Qt is this system's: its headers, its tools, and stubs of all that its libraries export.
file(GLOB Qt6_DIR /usr/lib/*/cmake/Qt6)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
add_library(WrapOpenGL::WrapOpenGL INTERFACE IMPORTED) # Qt's wish, which nothing of ours needs
find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools Svg Widgets)
foreach(library IN ITEMS Core Gui Svg Widgets)
  get_target_property(file Qt6::${library} LOCATION)
  list(APPEND qt_libraries Qt${library}=${file})
  set_target_properties(Qt6::${library} PROPERTIES
    IMPORTED_LOCATION ${stubs}/Frameworks/Qt${library}.framework/Qt${library}.tbd)
endforeach()

execute_process(
  COMMAND ${CMAKE_CURRENT_LIST_DIR}/make-stubs ${stubs} ${qt_libraries}
  COMMAND_ERROR_IS_FATAL ANY)
add_link_options(-F${stubs}/Frameworks -L${stubs}/lib)

# The interface compiles in a quarter of the time.
function(precompile_headers)
  target_precompile_headers(chimewell_ui PRIVATE
    ${PROJECT_SOURCE_DIR}/src/core/services.h <QApplication> <QBoxLayout> <QComboBox> <QLabel> <QPainter> <QPushButton>)
endfunction()
cmake_language(DEFER CALL precompile_headers)
