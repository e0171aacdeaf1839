# What a program for Windows has besides its code: icon, version and manifest, from
# packaging/win32. The icon is drawn from packaging/lexmill.svg in the sizes that the system asks for.

enable_language(RC)
find_program(LEXMILL_RSVG_CONVERT rsvg-convert REQUIRED)
find_program(LEXMILL_ICOTOOL icotool REQUIRED)
set(LEXMILL_ICON ${PROJECT_BINARY_DIR}/lexmill.ico)

set(picture ${PROJECT_SOURCE_DIR}/packaging/lexmill.svg)
set(bitmaps)
foreach(size 256 16 20 24 32 40 48 64)
  set(bitmap ${PROJECT_BINARY_DIR}/icon/${size}.png)
  add_custom_command(
    OUTPUT ${bitmap}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/icon
    COMMAND ${LEXMILL_RSVG_CONVERT} -w ${size} -h ${size} ${picture} -o ${bitmap}
    DEPENDS ${picture}
    VERBATIM)
  list(APPEND bitmaps ${bitmap})
endforeach()
add_custom_command(
  OUTPUT ${LEXMILL_ICON}
  # The first one, which is large, stays compressed.
  COMMAND ${LEXMILL_ICOTOOL} -c -o ${LEXMILL_ICON} --raw ${bitmaps}
  DEPENDS ${bitmaps}
  VERBATIM)
add_custom_target(lexmill_icon DEPENDS ${LEXMILL_ICON})

set(LEXMILL_DESCRIPTION_lexmill "Lexmill")
set(LEXMILL_DESCRIPTION_lexmill-run "Lexmill without a window")
set(LEXMILL_DESCRIPTION_batch "Interpreter of Lexmill's batch scripts")
set(LEXMILL_DESCRIPTION_sqlite "Lexmill's shell for databases of format 2.1")

# lexmill_add_resources(program): icon, version and manifest for one of the four programs.
function(lexmill_add_resources program)
  set(icon ${LEXMILL_ICON})
  set(manifest ${PROJECT_SOURCE_DIR}/packaging/win32/program.manifest)
  set(description "${LEXMILL_DESCRIPTION_${program}}")
  set(source ${PROJECT_BINARY_DIR}/resources/${program}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/win32/program.rc.in ${source} @ONLY)
  set_source_files_properties(${source} PROPERTIES OBJECT_DEPENDS "${icon};${manifest}")
  target_sources(${program} PRIVATE ${source})
  add_dependencies(${program} lexmill_icon)
endfunction()
