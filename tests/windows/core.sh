#!/usr/bin/env bash
# The core and the command line for Windows on Debian and Wine: builds them with their
# tests, runs these, and compares what pvortex makes there and here.
# usage: tests/windows/core.sh     ("./test windows-core")
# PV_WINDOWS_LIBRARIES names a folder with the libraries that is made already.
# The last line is "N passed, N failed".
set -euo pipefail
cd "$(dirname "$0")/../.."
tools/setup.sh build core windows-core >&2

. packaging/windows/wine.sh
wine_home=$PWD/build/wine
small=
leave() {
  end_wine
  [ -z "$small" ] || { umount "$small"; rmdir "$small"; } 2>/dev/null || true
}
trap leave EXIT

# Wine's home is made while the compiler is busy.
(begin_wine "$wine_home") </dev/null >/dev/null 2>&1 &

# Of this system's program, which the other one's files are compared with, any build will
# do, however little optimised.
native=build/dev
if [ ! -e $native/CMakeCache.txt ]; then
  native=build/plain
  cmake --preset core-only -B $native -DPV_TESTS=OFF -DCMAKE_BUILD_TYPE= \
    -DCMAKE_CXX_FLAGS=-O1 >/dev/null
fi
cmake --build $native --target pvortex >&2
PV_NATIVE_PVORTEX=$PWD/$native/bin/pvortex
PV_WINDOWS_LIBRARIES=${PV_WINDOWS_LIBRARIES:-$(packaging/windows/libraries)}
export PV_NATIVE_PVORTEX PV_WINDOWS_LIBRARIES

# The compiler cache knows headers that were read ahead, if it may take them for what
# they were made from.
export CCACHE_SLOPPINESS=pch_defines,time_macros
cmake --preset windows-core >/dev/null
cmake --build --preset windows-core >&2
wait

# What runs beside all programs there is to outlive the first of them, whose output it
# would hold on to. Not every version makes the folder that it names for temporary files.
export WINEPREFIX=$wine_home/wine LC_ALL=C.UTF-8
"$wineserver" --persistent
begin_wine "$wine_home" </dev/null
"$wine" cmd /c 'if not exist "%TEMP%" mkdir "%TEMP%"' </dev/null >/dev/null 2>&1
unset DISPLAY WAYLAND_DISPLAY
# A drive that can be filled, where this machine allows it.
small=$(mktemp -d)
if mount -t tmpfs -o size=256k tmpfs "$small" 2>/dev/null; then
  export PV_SMALL_DRIVE=$small
fi

status=0
ctest --preset windows-core >&2 || status=$?

# Each test is a program with many cases, whose numbers stand in the log, or a script.
awk -v status=$status '
  /^\[  PASSED  \]/ { passed += $4; programs += 1 }
  /^\[  FAILED  \] [0-9]+ test/ { failed += $4; programs += 1 }
  /^Test Passed\./ { well += 1 }
  /^Test Failed\./ { badly += 1 }
  END {
    passed += well + badly > programs ? well + badly - programs : 0
    if (status != 0 && failed == 0) failed = badly > 0 ? badly : 1
    if (passed == 0) failed += 1
    printf "%d passed, %d failed\n", passed, failed
    exit failed > 0
  }' build/windows-core/Testing/Temporary/LastTest.log
