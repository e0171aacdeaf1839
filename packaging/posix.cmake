# The packed folder for Linux: an entry for the desktop's menu, packed by tar.

install(PROGRAMS add_to_menu DESTINATION .)
install(FILES lexmill.desktop lexmill.svg DESTINATION .)
set(CPACK_GENERATOR TGZ)
set(CPACK_PACKAGE_FILE_NAME lexmill-${PROJECT_VERSION})

# The packed folder in an awkward place: all pairs of formats, presets, window, commands of the guide.
if(BUILD_TESTING)
  add_test(NAME install COMMAND ${PROJECT_SOURCE_DIR}/scripts/check_install ${CMAKE_BINARY_DIR})
  set_tests_properties(install PROPERTIES TIMEOUT 300)
endif()
