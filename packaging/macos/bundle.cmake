# SPDX-License-Identifier: MIT
set(bundle_files ${CMAKE_CURRENT_LIST_DIR})

# chimewell_bundle(TARGET): makes the program the application bundle Chimewell.app, with the helper inside.
function(chimewell_bundle target)
  configure_file(${bundle_files}/Info.plist.in ${CMAKE_CURRENT_BINARY_DIR}/Info.plist @ONLY)
  set_target_properties(${target} PROPERTIES
    MACOSX_BUNDLE ON OUTPUT_NAME Chimewell MACOSX_BUNDLE_INFO_PLIST ${CMAKE_CURRENT_BINARY_DIR}/Info.plist)
  target_link_options(${target} PRIVATE LINKER:-rpath,@executable_path/../Frameworks) # of scripts/bundle-macos

  set(icon ${bundle_files}/Chimewell.icns)
  target_sources(${target} PRIVATE ${icon})
  set_source_files_properties(${icon} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)

  # The program is linked anew with each new helper, which is what copies it.
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS $<TARGET_FILE:chimewell-hook>)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy
      $<TARGET_FILE:chimewell-hook> $<TARGET_BUNDLE_CONTENT_DIR:${target}>/Resources
    VERBATIM)
  add_dependencies(${target} chimewell-hook)
endfunction()
