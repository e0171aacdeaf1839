# The system that is built for decides two folders of the platform: the twin behind platform/host, and
# the window, whose library is called platform_desktop. Besides them, a program for Windows has resources.

if(WIN32)
  set(LEXMILL_HOST win32)
  set(LEXMILL_DESKTOP win32)
  include(lexmill_resources)
else()
  set(LEXMILL_HOST posix)
  set(LEXMILL_DESKTOP qt)
endif()
