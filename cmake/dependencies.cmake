# The libraries that tools/build-deps made, as imported targets.
if(WIN32)
  set(deps_target win32)
else()
  set(deps_target native)
endif()
set(VYN_DEPS_DIR ${CMAKE_SOURCE_DIR}/.cache/deps/${deps_target} CACHE PATH "prefix made by tools/build-deps")
if(NOT EXISTS ${VYN_DEPS_DIR}/include/rapidjson)
  message(FATAL_ERROR "no libraries in ${VYN_DEPS_DIR}: run tools/fetch-sources and tools/build-deps ${deps_target}")
endif()

function(import_library name)
  cmake_parse_arguments(arg "" "FILE" "LINKS;DEFINES;INCLUDES" ${ARGN})
  add_library(deps::${name} STATIC IMPORTED GLOBAL)
  set_target_properties(deps::${name} PROPERTIES
    IMPORTED_LOCATION ${VYN_DEPS_DIR}/lib/lib${arg_FILE}.a
    INTERFACE_LINK_LIBRARIES "${arg_LINKS}"
    INTERFACE_COMPILE_DEFINITIONS "${arg_DEFINES}"
    INTERFACE_INCLUDE_DIRECTORIES "${VYN_DEPS_DIR}/include;${arg_INCLUDES}")
endfunction()

add_library(deps_headers INTERFACE) # rapidjson/, stb/
target_include_directories(deps_headers SYSTEM INTERFACE ${VYN_DEPS_DIR}/include)
add_library(deps::headers ALIAS deps_headers)

import_library(lzma FILE lzma DEFINES Z7_EXTRACT_ONLY INCLUDES ${VYN_DEPS_DIR}/include/lzma)
import_library(gtest FILE gtest)
import_library(duktape FILE duktape)
import_library(xml2 FILE xml2 DEFINES LIBXML_STATIC INCLUDES ${VYN_DEPS_DIR}/include/libxml2)
if(WIN32)
  import_library(curl FILE curl DEFINES CURL_STATICLIB LINKS ws2_32 crypt32 bcrypt advapi32)
  import_library(httplib FILE httplib LINKS ws2_32)
  import_library(benchmark FILE benchmark DEFINES BENCHMARK_STATIC_DEFINE LINKS shlwapi)
endif()
