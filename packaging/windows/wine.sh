# For scripts that run Windows programs: a Wine of their own.

wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
wineserver=$(command -v wineserver || echo /usr/lib/wine/wineserver)

# begin_wine FOLDER: an empty Windows in FOLDER, without a way to the user's own folders
# and menus. What is run after that runs in it.
begin_wine() {
  export HOME=$1/home WINEPREFIX=$1/wine WINEARCH=win64 WINEDEBUG=-all
  export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
  mkdir -p "$HOME"
  wine_begun=yes
  "$wine" wineboot --init >/dev/null 2>&1
}

# Ends everything that still runs in it; the caller deletes the folder. Where none was
# begun, the Wine that would be met is the user's own.
end_wine() {
  [ -z "${wine_begun:-}" ] || "$wineserver" --kill 2>/dev/null || true
}
