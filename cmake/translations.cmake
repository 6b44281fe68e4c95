# SPDX-License-Identifier: MIT
# The interface in other languages. English is in the source; each other language is one file in
# resources/translations. After a text was changed or added:
#
#     cmake --build --preset dev --target update-translations
#
# brings those files up to date, and what they then call unfinished is to be translated.
find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools)

set(translation_files ${PROJECT_SOURCE_DIR}/resources/translations/chimewell_de.ts)
set(translated_sources ${PROJECT_SOURCE_DIR}/src/values/texts.h)

# The texts carry no names of Qt's: these are what ours stand for.
set(text_markers tr+=Text tr+=onLinux QT_TRANSLATE_N_NOOP+=many)
list(JOIN text_markers "," text_markers)

add_custom_target(update-translations
  COMMAND Qt6::lupdate -silent -no-obsolete -locations none -source-language en
          -tr-function-alias ${text_markers} ${translated_sources} -ts ${translation_files}
  COMMENT "Updating the translations"
  VERBATIM)

# chimewell_translations(TARGET): puts every language into the target's resources, under :/translations.
function(chimewell_translations target)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/translations)
  file(MAKE_DIRECTORY ${folder})
  foreach(source IN LISTS translation_files)
    cmake_path(GET source STEM language)
    set(compiled ${folder}/${language}.qm)
    add_custom_command(
      OUTPUT ${compiled}
      COMMAND Qt6::lrelease -silent -nounfinished ${source} -qm ${compiled}
      DEPENDS ${source}
      VERBATIM)
    list(APPEND all ${compiled})
  endforeach()
  qt_add_resources(${target} translations PREFIX /translations BASE ${folder} FILES ${all})
endfunction()
