# What every target of this project is compiled with. Nothing of it is installed or handed on to hosts.
add_library(vdbBuildFlags INTERFACE)
target_compile_features(vdbBuildFlags INTERFACE cxx_std_20)
target_compile_definitions(vdbBuildFlags INTERFACE
  QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(vdbBuildFlags INTERFACE
    -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    $<$<CXX_COMPILER_ID:GNU>:-Wsuggest-override>
    $<$<BOOL:${KVVENUEDATABASE_WERROR}>:-Werror>)
elseif(MSVC)
  # The standard's rules and UTF-8, as the other compilers have them by themselves.
  target_compile_options(vdbBuildFlags INTERFACE
    /W4 /permissive- /utf-8 /Zc:__cplusplus
    $<$<BOOL:${KVVENUEDATABASE_WERROR}>:/WX>)
endif()
if(KVVENUEDATABASE_SANITIZE)
  target_compile_options(vdbBuildFlags INTERFACE
    -fsanitize=${KVVENUEDATABASE_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  target_link_options(vdbBuildFlags INTERFACE -fsanitize=${KVVENUEDATABASE_SANITIZE})
endif()

# Makes a target of this project: our warnings, moc, and nothing visible that is not exported. PRECOMPILED names the
# headers that it need not parse again; see VdbPrecompiled.cmake.
function(vdb_configure_target target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "PRECOMPILED" "")
  target_link_libraries(${target} PRIVATE vdbBuildFlags)
  set_target_properties(${target} PROPERTIES
    AUTOMOC ON
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    POSITION_INDEPENDENT_CODE ON)
  if(arg_PRECOMPILED)
    target_precompile_headers(${target} REUSE_FROM vdbPrecompiled${arg_PRECOMPILED})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
      # One code model for libraries and programs, which the headers are compiled for; a compiler cache is told what a
      # source takes from them.
      target_compile_options(${target} PRIVATE -fPIC -fpch-preprocess)
    endif()
  endif()
endfunction()
