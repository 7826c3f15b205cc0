#!/usr/bin/env bash
# The whole program for Windows on Debian 12 and Wine: builds and packs it, runs the
# tests of its windows and pages, works with what the zip holds for a day, and installs
# and removes it.
# usage: tests/windows/all.sh     ("./test --windows"; pictures of the day: out/windows/pictures)
# PV_WINDOWS_LIBRARIES and PV_WINDOWS_QT name folders that are built already.
# The last line is "N passed, N failed".
set -euo pipefail
cd "$(dirname "$0")/../.."
tools/setup.sh build core tests window-tests windows-core windows >&2
PV_WINDOWS_LIBRARIES=${PV_WINDOWS_LIBRARIES:-$(packaging/windows/libraries)}
PV_WINDOWS_QT=${PV_WINDOWS_QT:-$(packaging/windows/qt)}
export PV_WINDOWS_LIBRARIES PV_WINDOWS_QT

packaging/windows/build >&2
cmake --build --preset windows --target pv_window_tests >&2
cmake --preset core-only >/dev/null
cmake --build --preset core-only --target pvortex >&2

. tests/e2e/screen.sh
. packaging/windows/wine.sh
settle() { end_wine; }
log=$work/log
open_screen 2560x1700
export TMPDIR=$work  # where Wine leaves a folder behind
begin_wine "$work"
# One program that stays, or what runs beside them all would come and go with each, and
# hold on to its output meanwhile.
sleep infinity > >("$wine" cmd >/dev/null 2>&1) &
children+=($!)
# Where the test programs find the toolkit's and the compiler's libraries.
libraries=("$PV_WINDOWS_QT"/bin)
for library in libgcc_s_seh-1.dll libwinpthread-1.dll; do
  libraries+=("$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=$library)")")
done
WINEPATH=$(printf 'Z:%s;' "${libraries[@]}" | tr / '\\')
export WINEPATH
ctest --preset windows | tee "$log" >&2 || true
unset WINEPATH

# "98% tests passed, 2 tests failed out of 100"
read -r failed total < <(sed -n 's/.*tests passed, \([0-9]*\) tests failed out of \([0-9]*\).*/\1 \2/p' "$log") ||
  { failed=1; total=1; }
passed=$((total - failed))
if tests/e2e/windows.sh out/windows/*-win64.zip build/core-only/bin/pvortex out/windows/pictures >&2; then
  passed=$((passed + 1))
else
  failed=$((failed + 1))
fi
# "51 passed, 0 failed"
if read -r fine _ broken _ < <(packaging/windows/check-installer | tail -n 1); then
  passed=$((passed + fine)) failed=$((failed + broken))
else
  failed=$((failed + 1))
fi
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
