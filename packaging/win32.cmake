# The packed folder for Windows: what the programs have linked in comes with its licences.

install(DIRECTORY ${LEXMILL_WINDOWS_LIBRARIES}/licences DESTINATION .)
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME lexmill-${PROJECT_VERSION}-windows)
