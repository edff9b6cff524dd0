# Warnings and hardening of our own code. The hardening stays on in the shipped
# program: it reads hostile input, and what it costs is not measurable.
add_compile_options(-Wall -Wextra -Wpedantic -Werror -fno-omit-frame-pointer)
set(CMAKE_C_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
include_directories(${CMAKE_SOURCE_DIR})

if(WIN32)
  add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN STRICT _GLIBCXX_ASSERTIONS)
  # DWARF 4: Wine prints file and line of a crash from it, and not from DWARF 5.
  add_compile_options(-g1 -gdwarf-4 -fstack-protector-strong)
  # GetProcAddress gives one function type for all; the casts are meant.
  add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-Wno-cast-function-type>)
  add_link_options(-fstack-protector-strong)
  if(VYN_CHECKED)
    add_compile_definitions(VYN_CHECKED)
    add_compile_options(-fsanitize=undefined -fsanitize-undefined-trap-on-error)
  endif()
else()
  add_compile_options(-g -O1 -fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
  if(VYN_COVERAGE)
    add_compile_options(-fprofile-instr-generate -fcoverage-mapping)
    add_link_options(-fprofile-instr-generate)
  endif()
endif()
