# Installs the module built in BUILD_DIR into an empty STAGE_DIR and compares what lies there with SOURCE_DIR: the
# public headers, all of them and nothing else.
file(REMOVE_RECURSE ${STAGE_DIR})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${STAGE_DIR} --config ${CONFIG}
  COMMAND_ERROR_IS_FATAL ANY)

file(GLOB expected RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/data/*.h ${SOURCE_DIR}/ui/*.h)
list(FILTER expected EXCLUDE REGEX "_p\\.h$")
set(includeDir ${STAGE_DIR}/include/kvVenueDatabase)
file(GLOB_RECURSE installed RELATIVE ${includeDir} ${STAGE_DIR}/include/*)
list(SORT expected)
list(SORT installed)
if(NOT "${installed}" STREQUAL "${expected}")
  message(FATAL_ERROR "Installed headers:\n  ${installed}\ninstead of:\n  ${expected}")
endif()
