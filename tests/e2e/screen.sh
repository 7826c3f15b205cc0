# To be sourced by scripts that work in a real window: a virtual screen with a window
# manager, and what a hand and an eye do there. They define `launch`, which starts the
# designer in their foreground, and may redefine `settle`, the last thing before all is
# cleaned up. (77: tools are missing)
source=$(realpath "$(dirname "${BASH_SOURCE[0]}")/../..")

for tool in Xvfb openbox xdotool xprop import; do
  command -v "$tool" >/dev/null || { echo "skipped: $tool is not installed" >&2; exit 77; }
done

work=$(mktemp -d)
children=()
settle() { :; }
leave() {
  local status=$?
  for pid in "${children[@]}"; do kill "$pid" 2>/dev/null || true; done
  settle
  wait 2>/dev/null || true
  if [ "$status" -ne 0 ]; then sed 's/^/designer: /' "$work"/log 2>/dev/null >&2 || true; fi
  rm -rf "$work"
}
trap leave EXIT
fail() { echo "failed: $*" >&2; exit 1; }
# Tries a command ten times a second, for ten seconds at most, or `patience` seconds.
await() {
  local what=$1 tries
  shift
  for ((tries = 0; tries < ${patience:-10} * 10; ++tries)); do
    "$@" >/dev/null 2>&1 && return
    sleep 0.1
  done
  fail "$what"
}

export HOME=$work XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work/run
# No bus for assistive tools: without one of the desktop's each start would launch
# a bus of its own, which stays behind and now and then never answers.
export DBUS_SESSION_BUS_ADDRESS=disabled:
unset QT_QPA_PLATFORM QT_SCALE_FACTOR QT_QPA_PLATFORMTHEME WAYLAND_DISPLAY
mkdir -m 700 "$work"/run

# open_screen SIZE: for example 1366x768
open_screen() {
  Xvfb -noreset -displayfd 3 -screen 0 "$1"x24 3>"$work"/display 2>/dev/null &
  children+=($!)
  await "no X server" test -s "$work"/display
  export DISPLAY=:$(cat "$work"/display)
  openbox >/dev/null 2>&1 &
  children+=($!)
  await "no window manager" managed
}
managed() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'; }

start() {
  launch "$@" >>"$work"/log 2>&1 &
  designer=$!
  children+=("$designer")
  await "no window" shown
  window=$(windows)
  await "the window is not active" active "$window"
  await "nothing is painted" painted
}
windows() { xdotool search --onlyvisible --name '^Vortexa-'; }
shown() { [ -n "$(windows)" ]; }
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

titled() { [ "$(xdotool getwindowname "$window")" = "Vortexa-$1" ]; }
in_mode() { await "the title is not Vortexa-$1 but $(xdotool getwindowname "$window")" titled "$1"; }
# The text of a field, whatever stood in it.
fill() {
  click "$1" "$2"
  xdotool key ctrl+a
  xdotool type --delay 20 "$3"
}
# Buttons of the save page and of the browsers.
press_save() { click 769 572; }
press_load() { click 707 569; }
end_designer() {
  xdotool key alt+F4
  await "the program does not end" gone "$designer"
  wait "$designer" || fail "the program ended with $?"
}
