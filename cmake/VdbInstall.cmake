# What `cmake --install` puts into place. Runtime is what a running host needs, Development what its build also needs:
# the public headers, the packages that find_package() and pkg-config read, and vdbprobe.
include(CMakePackageConfigHelpers)

set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/kvVenueDatabase)

install(TARGETS kvVenueDatabase EXPORT kvVenueDatabaseTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime NAMELINK_COMPONENT Development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kvVenueDatabase COMPONENT Development)
install(EXPORT kvVenueDatabaseTargets NAMESPACE kvVenueDatabase:: DESTINATION ${packageDir} COMPONENT Development)

configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/kvVenueDatabaseConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/kvVenueDatabaseConfig.cmake
  INSTALL_DESTINATION ${packageDir}
  NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(
  ${CMAKE_CURRENT_BINARY_DIR}/kvVenueDatabaseConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/kvVenueDatabaseConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/kvVenueDatabaseConfigVersion.cmake
  DESTINATION ${packageDir} COMPONENT Development)

# For builds without CMake. It finds its folder by where it lies itself, as the CMake package does.
set(pkgConfigDir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH prefixFromPackage ${CMAKE_INSTALL_PREFIX}/${pkgConfigDir} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" prefixFromPackage ${prefixFromPackage})
configure_file(${PROJECT_SOURCE_DIR}/cmake/kvVenueDatabase.pc.in ${CMAKE_CURRENT_BINARY_DIR}/kvVenueDatabase.pc.in @ONLY)
file(GENERATE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/$<CONFIG>/kvVenueDatabase.pc
  INPUT ${CMAKE_CURRENT_BINARY_DIR}/kvVenueDatabase.pc.in)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/$<CONFIG>/kvVenueDatabase.pc
  DESTINATION ${pkgConfigDir} COMPONENT Development)

# Diagnosis: which logging categories there are, and the program that asks a server step by step.
install(FILES ${PROJECT_SOURCE_DIR}/resources/vdb.categories
  DESTINATION ${CMAKE_INSTALL_DATADIR}/qlogging-categories6 COMPONENT Runtime)
if(TARGET vdbprobe)
  install(TARGETS vdbprobe RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Development)
endif()
