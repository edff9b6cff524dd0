# vyn_library(NAME SOURCES ... LINKS ...): one static library of a folder.
function(vyn_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC ${arg_LINKS})
endfunction()

# vyn_test(NAME SOURCES ... LINKS ... [TIMEOUT seconds]): one GoogleTest program of
# a folder, run by CTest (under Wine in a cross build, through tools/wine-run).
function(vyn_test name)
  cmake_parse_arguments(arg "" "TIMEOUT" "SOURCES;LINKS" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LINKS} vyn_test_main)
  if(CMAKE_CROSSCOMPILING)
    add_test(NAME ${name} COMMAND ${CMAKE_SOURCE_DIR}/tools/wine-run $<TARGET_FILE:${name}>)
  else()
    add_test(NAME ${name} COMMAND ${name})
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_TIMEOUT})
endfunction()

# vyn_ship(NAME): keeps the debug information of a shipped program or library in NAME.debug
# beside it. A loader that cannot map the file as it lies reads all of it, and with the
# debug information that is most of the start and of the memory.
function(vyn_ship name)
  set(file $<TARGET_FILE:${name}>)
  set(debug $<TARGET_FILE_DIR:${name}>/${name}.debug)
  add_custom_command(TARGET ${name} POST_BUILD
    COMMAND ${CMAKE_OBJCOPY} --only-keep-debug ${file} ${debug}
    COMMAND ${CMAKE_OBJCOPY} --strip-all --add-gnu-debuglink=${debug} ${file}
    VERBATIM)
endfunction()
