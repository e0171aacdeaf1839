# Toolchain: programs for 64-bit Windows, built on Debian with the cross compiler of mingw-w64 and run
# by Wine. The libraries come from scripts/build_windows_libraries.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_VERSION 10.0)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)

set(LEXMILL_WINDOWS_LIBRARIES "$ENV{LEXMILL_WINDOWS_LIBRARIES}"
    CACHE PATH "Folder that scripts/build_windows_libraries has filled")
# A compiler check configures a project of its own with this file.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES LEXMILL_WINDOWS_LIBRARIES)
set(CMAKE_FIND_ROOT_PATH ${LEXMILL_WINDOWS_LIBRARIES} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${LEXMILL_WINDOWS_LIBRARIES}/lib/pkgconfig)

# Each library is linked in: its header must not ask for one that is loaded. Of the system's headers
# only what Windows 10 has, by its 16-bit calls, and without the macros that hide names of ours.
string(JOIN " " CMAKE_CXX_FLAGS_INIT -DPCRE2_STATIC -DXML_STATIC -DU_STATIC_IMPLEMENTATION
       -D_WIN32_WINNT=0x0A00 -DUNICODE -D_UNICODE -DNOMINMAX -DWIN32_LEAN_AND_MEAN)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
