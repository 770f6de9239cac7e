# The Debian packages that script/package makes: one with what a running host needs, one with what its build also
# needs.
if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  message(FATAL_ERROR "Debian packages need the install prefix /usr; use the preset \"package\"")
endif()

set(runtimePackage libkvvenuedatabase${PROJECT_VERSION_MAJOR})
set(developmentPackage libkvvenuedatabase-dev)
set(debianRelease 1)

# Debian's own documents. The versions come from two places and must not part.
set(changelog ${PROJECT_SOURCE_DIR}/cmake/debian/changelog)
set(manualPageSource ${PROJECT_SOURCE_DIR}/tools/vdbprobe/vdbprobe.1)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changelog} ${manualPageSource})
file(STRINGS ${changelog} newestChange LIMIT_COUNT 1)
if(NOT newestChange MATCHES "^kvvenuedatabase \\(${PROJECT_VERSION}-${debianRelease}\\) ")
  message(FATAL_ERROR "${changelog} does not begin with version ${PROJECT_VERSION}-${debianRelease}")
endif()
set(packedChangelog ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz)
execute_process(COMMAND gzip -9nc ${changelog} OUTPUT_FILE ${packedChangelog} COMMAND_ERROR_IS_FATAL ANY)
set(manualPage ${CMAKE_CURRENT_BINARY_DIR}/vdbprobe.1.gz)
execute_process(COMMAND gzip -9nc ${manualPageSource}
  OUTPUT_FILE ${manualPage} COMMAND_ERROR_IS_FATAL ANY)
set(copyright ${PROJECT_SOURCE_DIR}/cmake/debian/copyright)
install(FILES ${copyright} ${packedChangelog}
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${runtimePackage} COMPONENT Runtime)
install(FILES ${copyright} ${packedChangelog}
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${developmentPackage} COMPONENT Development)
install(FILES ${manualPage} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT Development)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "Korvel venue database maintainers <venue-database@korvel.example>")
set(CPACK_COMPONENTS_ALL Runtime Development)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${debianRelease})
set(CPACK_DEBIAN_PACKAGE_SOURCE kvvenuedatabase)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# A host that is packaged, too, gets its dependency on us from this.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
# CPack would put the project's description above each package's own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtimePackage})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# Our icons are SVG, and Qt loads what reads them at run time, so no linker sees it. Debian 13 has it in a package of its
# own. The readers of JPEG and the TLS back end come with the Qt libraries that we link.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "qt6-svg-plugins | libqt6svg6")
# Without them no server is trusted; a host may bring its own authority.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS ca-certificates)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "venue database browser for Qt 6 planning applications
A Qt 6 library that lets event planners search an online database of venues,
read what a rigger or a truck driver needs to know, look at pictures and
import a model of the room, inside their planning application.

This package holds what an application needs to run with it.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${developmentPackage})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${runtimePackage} (= ${PROJECT_VERSION}-${debianRelease}), qt6-base-dev (>= 6.4), qt6-positioning-dev (>= 6.4)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "venue database browser for Qt 6 applications - development files
A Qt 6 library that lets event planners search an online database of venues,
read what a rigger or a truck driver needs to know, look at pictures and
import a model of the room, inside their planning application.

This package holds the headers and the CMake package that an application needs
to be built with it, and vdbprobe, which says step by step how far a venue
database server can be reached.")

include(CPack)
