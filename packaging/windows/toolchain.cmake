# Builds for 64-bit Windows on Debian: g++-mingw-w64-x86-64-posix, whose threads
# library has the standard's threads. Wine runs the programs that a build needs.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(PV_MINGW x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${PV_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${PV_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${PV_MINGW}-windres)
if(NOT DEFINED PV_WINE)
  find_program(PV_WINE NAMES wine64 wine PATHS /usr/lib/wine)
endif()
if(PV_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${PV_WINE})
endif()

# Headers and libraries come from the prefixes that are named, never from the host.
set(CMAKE_FIND_ROOT_PATH /usr/${PV_MINGW} ${CMAKE_PREFIX_PATH})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Debian has the import library of a shared zlib too, which nobody would ship.
set(ZLIB_LIBRARY /usr/${PV_MINGW}/lib/libz.a CACHE FILEPATH "")
