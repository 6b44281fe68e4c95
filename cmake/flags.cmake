# SPDX-License-Identifier: MIT
# What every target of ours is compiled with. Whether warnings are errors is
# CMAKE_COMPILE_WARNING_AS_ERROR, which the presets set and a release build does not.

add_library(chimewell_flags INTERFACE)
target_compile_features(chimewell_flags INTERFACE cxx_std_23)
target_include_directories(chimewell_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(chimewell_flags INTERFACE
  -Wall -Wextra -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast)
# False alarms of GCC 12 about its own library's strings and vectors, once it inlines them.
set(gcc12_optimizes
  $<COMPILE_LANG_AND_ID:CXX,GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>,$<CONFIG:Release,RelWithDebInfo>)
target_compile_options(chimewell_flags INTERFACE
  $<$<AND:${gcc12_optimizes}>:-Wno-restrict>
  $<$<AND:${gcc12_optimizes}>:-Wno-free-nonheap-object>)
# Clang takes libstdc++'s own use of what it deprecates for ours; GCC, which knows better, still reports ours.
target_compile_options(chimewell_flags INTERFACE $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>)

if(CHIMEWELL_SANITIZE)
  target_compile_options(chimewell_flags INTERFACE
    -fsanitize=${CHIMEWELL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(chimewell_flags INTERFACE -fsanitize=${CHIMEWELL_SANITIZE})
endif()

# What makes an overflow that nobody found end the program instead of taking it over. The sanitizers find more, and
# _FORTIFY_SOURCE needs an optimised build; some compilers define it by themselves.
if(NOT CHIMEWELL_SANITIZE)
  set(optimized $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  target_compile_options(chimewell_flags INTERFACE
    $<${optimized}:-fstack-protector-strong> $<${optimized}:-U_FORTIFY_SOURCE> $<${optimized}:-D_FORTIFY_SOURCE=3>)
  if(NOT APPLE) # whose linker does these by itself
    target_compile_options(chimewell_flags INTERFACE $<${optimized}:-fPIE>)
    set(static_pie $<BOOL:$<TARGET_PROPERTY:CHIMEWELL_STATIC_PIE>>) # which -pie would make dynamic
    target_link_options(chimewell_flags INTERFACE
      $<$<AND:${optimized},$<NOT:${static_pie}>>:-pie> $<${optimized}:LINKER:-z,relro,-z,now>)
  endif()
endif()

# Adapters and interface: text between our std::string and QString is converted by name only.
add_library(chimewell_qt_flags INTERFACE)
target_compile_definitions(chimewell_qt_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_CONTEXTLESS_CONNECT)
target_link_libraries(chimewell_qt_flags INTERFACE chimewell_flags)

# chimewell_library(NAME SOURCES... HEADERS... LINK...): one static library of the core. Its headers
# are proven to compile alone (target all_verify_interface_header_sets).
function(chimewell_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;HEADERS;LINK")
  if(arg_SOURCES)
    add_library(${name} STATIC ${arg_SOURCES})
    set(scope PUBLIC)
  else()
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_sources(${name} ${scope} FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/src FILES ${arg_HEADERS})
  set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF)
  target_link_libraries(${name} ${scope} chimewell_flags ${arg_LINK})
endfunction()
