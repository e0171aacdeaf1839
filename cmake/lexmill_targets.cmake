# What every target of the tree has in common: language level, warnings, the folder of the programs.

option(LEXMILL_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" ON)
set(LEXMILL_SANITIZE "" CACHE STRING "Sanitizers to build with, such as address,undefined")
option(LEXMILL_FUZZ "Build the fuzzers, with sanitizers; needs clang" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

# The program's folder of a run: programs, settings and temporary files side by side.
set(LEXMILL_PROGRAM_FOLDER ${CMAKE_BINARY_DIR}/lexmill)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${LEXMILL_PROGRAM_FOLDER})

add_library(lexmill_settings INTERFACE)
target_include_directories(lexmill_settings INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(
  lexmill_settings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast
                             # g++ 12 sees overlapping copies in plain string concatenation (GCC bug 105651)
                             $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
                             # which g++ leaves out of -Wconversion
                             $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>
                             $<$<BOOL:${LEXMILL_WARNINGS_AS_ERRORS}>:-Werror>)
if(LEXMILL_SANITIZE)
  target_compile_options(lexmill_settings INTERFACE -fsanitize=${LEXMILL_SANITIZE}
                                                    -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(lexmill_settings INTERFACE -fsanitize=${LEXMILL_SANITIZE})
endif()

if(LEXMILL_FUZZ)
  set(fuzz_flags -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
                 -fno-omit-frame-pointer)
  target_compile_options(lexmill_settings INTERFACE ${fuzz_flags})
  target_link_options(lexmill_settings INTERFACE ${fuzz_flags})
endif()

# lexmill_library(name sources...): a static library with the tree's settings.
function(lexmill_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC lexmill_settings)
endfunction()

# lexmill_program(name sources...): a program in the program's folder.
function(lexmill_program name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE lexmill_settings)
  if(WIN32)
    lexmill_add_resources(${name})
  endif()
endfunction()

# Tests are compiled far more often than they run: they do without optimising, and what all of them
# include is compiled once, in tests/support; position-independent, as the toolkit wants its users.
# The sanitizers' build shows that each source includes what it needs.
set(LEXMILL_TEST_OPTIONS -fPIC $<$<CONFIG:Release>:-O0>)
set(LEXMILL_TEST_HEADERS <gmock/gmock.h> <gtest/gtest.h> <algorithm> <filesystem> <functional> <map>
                         <optional> <string> <vector>)

# lexmill_test(room sources...): the test program of one room; its cases are known to CTest.
# The working directory is the folder tests/, so that tests find their data.
function(lexmill_test room)
  set(name test_${room})
  add_executable(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  target_compile_options(${name} PRIVATE ${LEXMILL_TEST_OPTIONS})
  target_precompile_headers(${name} REUSE_FROM test_support)
  target_link_libraries(${name} PRIVATE lexmill_settings GTest::gmock GTest::gtest_main)
  add_test(NAME ${room} COMMAND ${name} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}/tests)
  set_tests_properties(${room} PROPERTIES TIMEOUT 900)
endfunction()
