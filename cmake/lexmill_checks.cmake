# Targets that look at the sources without building a program from them.

# The target `headers_alone` compiles each header by itself. One that comes first in the source of its
# name is already compiled so there.
function(lexmill_check_headers)
  set(rooms platform foundation run glossary text catalog window pipeline tests)
  list(TRANSFORM rooms REPLACE "(.+)" "${PROJECT_SOURCE_DIR}/\\1/*.h" OUTPUT_VARIABLE patterns)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} ${patterns})
  # Those compile where their system's headers are.
  list(FILTER headers EXCLUDE REGEX "/win32/")
  set(sources)
  foreach(header IN LISTS headers)
    string(REGEX REPLACE "\\.h$" ".cpp" own ${PROJECT_SOURCE_DIR}/${header})
    set(first)
    if(EXISTS ${own})
      file(STRINGS ${own} first REGEX "^#include" LIMIT_COUNT 1)
    endif()
    if(NOT first STREQUAL "#include \"${header}\"")
      string(REPLACE / - name ${header})
      set(source ${PROJECT_BINARY_DIR}/headers_alone/${name}.cpp)
      file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n")
      list(APPEND sources ${source})
    endif()
  endforeach()
  add_library(headers_alone OBJECT EXCLUDE_FROM_ALL ${sources})
  target_compile_options(headers_alone PRIVATE -O0)
  target_link_libraries(headers_alone PRIVATE lexmill_core platform_qt sqlite_storage GTest::gmock)
endfunction()

# lexmill_tidy(targets...): the target `tidy` asks clang-tidy of each source of these targets, again
# only when the source has been compiled again. Sources that a generator made are left out.
function(lexmill_tidy)
  find_program(LEXMILL_CLANG_TIDY clang-tidy)
  if(NOT LEXMILL_CLANG_TIDY)
    return()
  endif()
  set(stamps)
  foreach(target IN LISTS ARGN)
    get_target_property(sources ${target} SOURCES)
    get_target_property(source_folder ${target} SOURCE_DIR)
    get_target_property(binary_folder ${target} BINARY_DIR)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    foreach(source IN LISTS sources)
      cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${source_folder})
      string(FIND ${source} ${PROJECT_BINARY_DIR}/ generated)
      if(generated EQUAL 0)
        continue()
      endif()
      cmake_path(RELATIVE_PATH source BASE_DIRECTORY ${source_folder} OUTPUT_VARIABLE name)
      set(stamp ${PROJECT_BINARY_DIR}/tidy/${target}/${name}.stamp)
      cmake_path(GET stamp PARENT_PATH stamp_folder)
      file(MAKE_DIRECTORY ${stamp_folder})
      add_custom_command(
        OUTPUT ${stamp}
        # What it finds goes to standard output; the other stream counts warnings of system headers.
        COMMAND sh -c "exec \"$@\" 2>/dev/null" tidy ${LEXMILL_CLANG_TIDY} -p ${PROJECT_BINARY_DIR}
                --quiet --extra-arg=-Wno-error ${source}
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS ${binary_folder}/CMakeFiles/${target}.dir/${name}.o ${PROJECT_SOURCE_DIR}/.clang-tidy
        COMMENT "clang-tidy ${target}: ${name}"
        VERBATIM)
      list(APPEND stamps ${stamp})
    endforeach()
  endforeach()
  add_custom_target(tidy DEPENDS ${stamps})
endfunction()
