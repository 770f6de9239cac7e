# The module itself: the objects of data/ and ui/ as one shared library.
include(GNUInstallDirs)

add_library(kvVenueDatabase SHARED $<TARGET_OBJECTS:vdbData> $<TARGET_OBJECTS:vdbUi>)
add_library(kvVenueDatabase::kvVenueDatabase ALIAS kvVenueDatabase)
vdb_configure_target(kvVenueDatabase)
set_target_properties(kvVenueDatabase PROPERTIES
  # The headers are moc'ed once already, by vdbData and vdbUi.
  AUTOMOC OFF
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  # Debug and release stand side by side in one folder; where they must not be mixed (Windows), a host gets its own.
  DEBUG_POSTFIX d
  # "@rpath/...": the host says where it keeps us.
  MACOSX_RPATH ON
  VERIFY_INTERFACE_HEADER_SETS ON)
target_compile_features(kvVenueDatabase PUBLIC cxx_std_20)
target_link_libraries(kvVenueDatabase PUBLIC Qt6::Core Qt6::Network Qt6::Positioning Qt6::Gui Qt6::Widgets)

foreach(part vdbData vdbUi)
  get_target_property(publicHeaders ${part} VDB_PUBLIC_HEADERS)
  list(APPEND vdbPublicHeaders ${publicHeaders})
endforeach()
target_sources(kvVenueDatabase PUBLIC
  FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES ${vdbPublicHeaders})

# Tests run threads of their own: the counters are atomic. Nothing of the counting library is exported.
if(KVVENUEDATABASE_COVERAGE)
  foreach(part vdbData vdbUi)
    target_compile_options(${part} PRIVATE --coverage -fprofile-update=atomic)
  endforeach()
  target_link_options(kvVenueDatabase PRIVATE --coverage LINKER:--exclude-libs,libgcov.a)
endif()

# A symbol that is missing must fail here, not in the host that loads us. The sanitizers leave theirs to the program.
if(UNIX AND NOT APPLE AND NOT KVVENUEDATABASE_SANITIZE)
  target_link_options(kvVenueDatabase PRIVATE -Wl,--no-undefined)
endif()
