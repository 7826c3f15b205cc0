# For scripts: Wine with a home of its own, which asks for nothing and needs no display.

export WINEPREFIX=${PV_WINE_HOME:-${XDG_CACHE_HOME:-$HOME/.cache}/particle-vortex/wine}
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe=d" LC_ALL=C.UTF-8
unset DISPLAY WAYLAND_DISPLAY
wine=$(PATH=$PATH:/usr/lib/wine type -P wine64 || type -P wine)
wineserver=$(PATH=/usr/lib/wine:$PATH type -P wineserver)

# Makes the home where there is none, and starts what runs beside every program there:
# left to the first of them, it would hold on to that one's output. The pipes of the
# caller are kept from it for the same reason.
start_wine() {
  mkdir -p "$WINEPREFIX"
  "$wineserver" -p
  "$wine" wineboot
  # Not every version makes the folder that it names for temporary files.
  "$wine" cmd /c 'if not exist "%TEMP%" mkdir "%TEMP%"'
} >/dev/null 2>&1 </dev/null

stop_wine() { "$wineserver" -k >/dev/null 2>&1 || true; }
