# Installs the module built in BUILD_DIR into an empty STAGE_DIR, one component after the other, and compares what lies
# there with SOURCE_DIR: the public headers, all of them and nothing else; what a running host needs in the component
# Runtime alone; and nothing outside of the two components.
file(REMOVE_RECURSE ${STAGE_DIR} ${STAGE_DIR}.whole)

# The files that `cmake --install ARGUMENTS` puts into place, sorted.
function(install_into prefix files)
  execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix} --config ${CONFIG} ${ARGN}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(GLOB_RECURSE present RELATIVE ${prefix} ${prefix}/*)
  list(SORT present)
  set(${files} "${present}" PARENT_SCOPE)
endfunction()

function(compare what expected present)
  if(NOT "${present}" STREQUAL "${expected}")
    message(FATAL_ERROR "${what}:\n  ${present}\ninstead of:\n  ${expected}")
  endif()
endfunction()

install_into(${STAGE_DIR} runtimeFiles --component Runtime)
install_into(${STAGE_DIR} files --component Development)
install_into(${STAGE_DIR}.whole wholeFiles)
compare("Installed without a component" "${wholeFiles}" "${files}")

file(GLOB expected RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/data/*.h ${SOURCE_DIR}/ui/*.h)
list(FILTER expected EXCLUDE REGEX "_p\\.h$")
list(SORT expected)
set(headers ${files})
list(FILTER headers INCLUDE REGEX "^include/")
list(TRANSFORM headers REPLACE "^include/kvVenueDatabase/" "")
compare("Installed headers" "${expected}" "${headers}")

# The library, in the name that it is looked for by and in that of its version, and the logging categories.
set(others ${runtimeFiles})
list(FILTER others EXCLUDE REGEX "kvVenueDatabase[^/]*\\.(so\\.|dylib|dll)")
compare("Installed for a running host, besides the library" "share/qlogging-categories6/vdb.categories" "${others}")
list(LENGTH runtimeFiles count)
if(count LESS 2)
  message(FATAL_ERROR "The component Runtime has no library")
endif()
