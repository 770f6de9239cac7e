# The module's translations, compiled into it under ":/kvVenueDatabase/translations".
#
# After a text changed: build the target vdbUi_lupdate, which brings translations/*.ts up to date, and complete them. A
# plain lupdate would not do: it loses the namespaces of the contexts.
set(vdbLanguages de en es fr it ja)

foreach(language IN LISTS vdbLanguages)
  set(tsFile ${PROJECT_SOURCE_DIR}/translations/kvvenuedatabase_${language}.ts)
  # The build would write an empty one.
  if(NOT EXISTS ${tsFile})
    message(FATAL_ERROR "Missing translation: ${tsFile}")
  endif()
  list(APPEND tsFiles ${tsFile})
endforeach()

foreach(part vdbData vdbUi)
  get_target_property(partSources ${part} SOURCES)
  get_target_property(partDir ${part} SOURCE_DIR)
  list(FILTER partSources INCLUDE REGEX "^[^/].*\\.(h|cpp)$")
  list(TRANSFORM partSources PREPEND ${partDir}/)
  list(APPEND translatedSources ${partSources})
endforeach()

qt_add_lupdate(vdbUi
  TS_FILES ${tsFiles}
  SOURCES ${translatedSources}
  INCLUDE_DIRECTORIES ${PROJECT_SOURCE_DIR}
  OPTIONS -no-obsolete -locations none)
qt_add_lrelease(vdbUi TS_FILES ${tsFiles} QM_FILES_OUTPUT_VARIABLE qmFiles OPTIONS -silent)
qt_add_resources(vdbUi vdbTranslations
  PREFIX /kvVenueDatabase/translations
  BASE ${CMAKE_CURRENT_BINARY_DIR}
  FILES ${qmFiles})
