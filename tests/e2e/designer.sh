#!/usr/bin/env bash
# A short working day in a real window: makes a shape with the mouse, saves it,
# leaves, comes back, and tries to open the designer twice.
# usage: tests/e2e/designer.sh BUILD_FOLDER     (77: tools are missing)
set -euo pipefail
build=$(realpath "$1")
source=$(realpath "$(dirname "$0")/../..")

for tool in Xvfb openbox xdotool xprop import; do
  command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed" >&2; exit 77; }
done

work=$(mktemp -d)
children=()
leave() {
  local status=$?
  for pid in "${children[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  if [ "$status" -ne 0 ]; then sed 's/^/designer: /' "$work"/log >&2 || true; fi
  rm -rf "$work"
}
trap leave EXIT
fail() { echo "failed: $*" >&2; exit 1; }
# Tries a command ten times a second, for ten seconds at most.
await() {
  local what=$1 tries
  shift
  for ((tries = 0; tries < 100; ++tries)); do
    "$@" >/dev/null 2>&1 && return
    sleep 0.1
  done
  fail "$what"
}

export XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work/run HOME=$work
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=0}  # the system's libraries leak at their end
unset QT_QPA_PLATFORM QT_SCALE_FACTOR QT_QPA_PLATFORMTHEME WAYLAND_DISPLAY
mkdir -m 700 "$work"/run
"$source"/tools/stage.sh "$build" "$work"/stage
rm -r "$work"/stage/vortex/paths  # for the designer to make

Xvfb -noreset -displayfd 3 -screen 0 1366x768x24 3>"$work"/display 2>/dev/null &
children+=($!)
await "no X server" test -s "$work"/display
export DISPLAY=:$(cat "$work"/display)
openbox >/dev/null 2>&1 &
children+=($!)
managed() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }
await "no window manager" managed

start() {
  "$work"/stage/bin/particle-vortex "$@" >>"$work"/log 2>&1 &
  designer=$!
  children+=("$designer")
  await "no window" xdotool search --onlyvisible --name '^Vortexa-'
  window=$(xdotool search --onlyvisible --name '^Vortexa-')
  await "the window is not active" active "$window"
  await "nothing is painted" painted
}
active() { [ "$(xdotool getactivewindow)" = "$1" ]; }
gone() { ! kill -0 "$1"; }
# The view's pixels, and whether they show anything.
view() { import -window "$window" -crop 567x507+342+39 +repage rgb:-; }
painted() { [ "$(view | tr -d '\0' | wc -c)" -gt 1000 ]; }
picture() { view | sha256sum; }
differs() { [ "$(picture)" != "$1" ]; }
# Does something that must change the view's picture.
changing() {
  local before
  before=$(picture)
  "$@"
  await "nothing changed: $*" differs "$before"
}
click() { xdotool mousemove --window "$window" "$1" "$2" click 1; }
drag() {
  xdotool mousemove --window "$window" "$1" "$2" mousedown 1
  for part in 1 2 3 4; do
    xdotool mousemove --window "$window" $(($1 + ($3 - $1) * part / 4)) $(($2 + ($4 - $2) * part / 4))
    sleep 0.05
  done
  xdotool mouseup 1
}
place() { xdotool getwindowgeometry "$window" | tail -n 2; }
settings() { cat "$XDG_CONFIG_HOME"/particle-vortex/*; }

# --- a sphere, with more sections, twisted ---------------------------------------
start
[ -d "$work"/stage/vortex/paths/tagdb ] || fail "the library has no folders"
click 144 65                      # Sphere Patch
changing drag 106 165 150 165     # horizontal amount
changing drag 106 293 130 293     # vertical amount
changing click 315 135            # front view
changing click 728 574            # Twist shows its handles
xdotool mousemove --window "$window" 700 400 mousemove --window "$window" 781 292
changing drag 781 292 841 262     # along the X handle

xdotool key ctrl+s
await "no file dialog" xdotool search --onlyvisible --name '^Save 3d Shape$'
await "the dialog is not active" active "$(xdotool search --onlyvisible --name '^Save 3d Shape$')"
xdotool type --delay 20 journey
xdotool key Return
saved=$work/stage/vortex/shapes/journey.j3d
await "nothing was saved" test -s "$saved"
"$build"/bin/pvortex info "$saved" >"$work"/info
for field in 'emitter.kind = spherePatch' 'emitter.horizontalAmount = [1-9][0-9][0-9]' \
  'emitter.verticalAmount = [1-9][0-9][0-9]' 'modifiers.twist.x = 90'; do
  grep -Eq "^$field\$" "$work"/info || fail "not saved: $field"
done

# --- the same again after a restart -----------------------------------------------
await "the window is not active" active "$window"
xdotool windowmove "$window" 60 50 windowsize "$window" 980 690
await "the size stays" sh -c "xdotool getwindowgeometry $window | grep -q 980x690"
left=$(place)
xdotool key alt+F4
await "the program does not end" gone "$designer"
wait "$designer" || fail "the program ended with $?"
settings | grep -q '"CoreShapeFilename"="shpe"' || fail "no core name was kept"

start "$saved"
at_home() { [ "$(place)" = "$left" ]; }
await "the window is not where it was left: $left" at_home

# --- one window, whoever else starts it -------------------------------------------
timeout 5 "$work"/stage/bin/particle-vortex >"$work"/second 2>&1 || fail "a second copy ended with $?"
[ ! -s "$work"/second ] || fail "a second copy says something"
kill -KILL "$designer"
wait "$designer" 2>/dev/null || true
crowd=()
for ((i = 0; i < 30; ++i)); do
  "$work"/stage/bin/particle-vortex >>"$work"/log 2>&1 &
  crowd+=($!)
done
children+=("${crowd[@]}")
alone() { [ "$(for pid in "${crowd[@]}"; do kill -0 "$pid" && echo x; done | wc -l)" -eq 1 ]; }
await "there are several copies" alone
await "no window" xdotool search --onlyvisible --name '^Vortexa-'
[ "$(xdotool search --onlyvisible --name '^Vortexa-' | wc -l)" -eq 1 ] || fail "several windows"
