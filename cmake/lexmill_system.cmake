# The system that is built for decides two folders of the platform and nothing else: the twin behind
# platform/host, and the window, whose library is called platform_desktop.

if(WIN32)
  set(LEXMILL_HOST win32)
  set(LEXMILL_DESKTOP win32)
else()
  set(LEXMILL_HOST posix)
  set(LEXMILL_DESKTOP qt)
endif()
