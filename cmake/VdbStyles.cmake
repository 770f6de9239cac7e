# The reference style sheets, light and dark: two folders in build/.../styles, each with a plain .qss, the pictures that it
# names and the folding icons, made of one file of rules and a palette per theme. They are complete when CMake has run.
set(vdbStylesSource ${PROJECT_SOURCE_DIR}/styles)
set(vdbIconsSource ${PROJECT_SOURCE_DIR}/styles/icons)
set(vdbStyles ${PROJECT_BINARY_DIR}/styles)

# Writes OUTPUT: the rules of the file RULES with each @name replaced by the colour that the file PALETTE has for it.
function(vdb_generate_style_sheet rules palette output)
  set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${rules} ${palette})
  file(READ ${rules} sheet)
  file(STRINGS ${palette} colours REGEX "^[a-z-]+ +#[0-9a-f]+$")
  foreach(colour IN LISTS colours)
    string(REGEX MATCH "^([a-z-]+) +(#[0-9a-f]+)$" match "${colour}")
    string(REGEX REPLACE "@${CMAKE_MATCH_1}([^a-z-])" "${CMAKE_MATCH_2}\\1" sheet "${sheet}")
  endforeach()
  if(sheet MATCHES "@[a-z-]+")
    message(FATAL_ERROR "${palette} has no colour ${CMAKE_MATCH_0} for ${rules}")
  endif()
  file(CONFIGURE OUTPUT ${output} CONTENT "${sheet}" @ONLY)
endfunction()

file(READ ${vdbStylesSource}/venue-database.qss rules)
string(REGEX MATCHALL "url\\(\"[^\"]+\\.svg\"\\)" pictures "${rules}")
list(TRANSFORM pictures REPLACE "url\\(\"(.+)\\.svg\"\\)" "\\1")
list(REMOVE_DUPLICATES pictures)
set(foldingIcons
  korvelFoldingWidgetClosed.svg korvelFoldingWidgetClosed_day.svg
  korvelFoldingWidgetOpen.svg korvelFoldingWidgetOpen_day.svg)

set(styleFiles "")
foreach(theme light dark)
  vdb_generate_style_sheet(${vdbStylesSource}/venue-database.qss ${vdbStylesSource}/${theme}.colours
                           ${vdbStyles}/${theme}/venue-database.qss)
  string(APPEND styleFiles "    <file>${theme}/venue-database.qss</file>\n")
  foreach(picture IN LISTS pictures)
    configure_file(${vdbIconsSource}/${picture}-${theme}.svg ${vdbStyles}/${theme}/${picture}.svg COPYONLY)
    string(APPEND styleFiles "    <file>${theme}/${picture}.svg</file>\n")
  endforeach()
  foreach(icon IN LISTS foldingIcons)
    configure_file(${vdbIconsSource}/${icon} ${vdbStyles}/${theme}/${icon} COPYONLY)
  endforeach()
endforeach()

# For hosts that compile both themes in, as the reference host does.
set(iconFiles "")
foreach(icon IN LISTS foldingIcons)
  string(APPEND iconFiles "    <file alias=\"${icon}\">light/${icon}</file>\n")
endforeach()
file(CONFIGURE OUTPUT ${vdbStyles}/venueDatabaseStyles.qrc @ONLY CONTENT "<RCC>
  <!-- The venue database looks its folding icons up under this prefix. -->
  <qresource prefix=\"/Resources\">
${iconFiles}  </qresource>
  <qresource prefix=\"/kvVenueDatabase/styles\">
${styleFiles}  </qresource>
</RCC>
")

if(KVVENUEDATABASE_INSTALL)
  install(DIRECTORY ${vdbStyles}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/kvVenueDatabase/styles COMPONENT Development)
endif()
