# What `cmake --install` puts into place: the library, its public headers and the package that find_package() reads.
include(CMakePackageConfigHelpers)

set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/kvVenueDatabase)

install(TARGETS kvVenueDatabase EXPORT kvVenueDatabaseTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kvVenueDatabase)
install(EXPORT kvVenueDatabaseTargets NAMESPACE kvVenueDatabase:: DESTINATION ${packageDir})

configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/kvVenueDatabaseConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/kvVenueDatabaseConfig.cmake
  INSTALL_DESTINATION ${packageDir}
  NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(
  ${CMAKE_CURRENT_BINARY_DIR}/kvVenueDatabaseConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/kvVenueDatabaseConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/kvVenueDatabaseConfigVersion.cmake
  DESTINATION ${packageDir})

# Diagnosis: which logging categories there are, and the program that asks a server step by step.
install(FILES ${PROJECT_SOURCE_DIR}/resources/vdb.categories
  DESTINATION ${CMAKE_INSTALL_DATADIR}/qlogging-categories6 COMPONENT Runtime)
if(TARGET vdbprobe)
  install(TARGETS vdbprobe RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Development)
endif()
