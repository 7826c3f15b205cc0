#!/usr/bin/env bash
# Draws the profile of a vase with snapping, edits it with every kind of tool, turns
# it into a swept body, saves it, and finds the same after a restart.
# usage: tests/e2e/paths.sh BUILD_FOLDER     (77: tools are missing)
set -euo pipefail
. "$(dirname "$0")/window.sh"

# One path unit is 340.2 pixels across and 304.2 up, a snap cell a tenth of it, the
# origin at 625, 292 of the window.
hover() { xdotool mousemove --window "$window" $(($1 + 2)) "$2" mousemove --window "$window" "$1" "$2"; }
put() { hover "$1" "$2"; changing xdotool click 1; }
pathx() { "$build"/bin/pvortex info "$1" | sed -n "s/^path.points.$2 = //p"; }

start
click 245 65   # Sweep Path
click 250 105  # Edit Path
in_mode "Emitter-Edit Path"
click 314 223  # Path Draw
click 557 574  # snapping
put 659 475
put 727 414
put 761 323
put 693 231
put 659 171
put 693 110

click 314 184                      # Select: the third point
changing drag 745 305 780 340
click 314 398                      # Vertex Move: one cell to the right
hover 761 322
changing drag 761 322 795 322
click 314 262                      # Path Vertex Add: into the last line
hover 676 140
put 676 140
click 314 184                      # the fourth point goes
changing drag 672 205 735 265
click 314 301
hover 693 231
changing xdotool click 1
changing xdotool key ctrl+z        # and comes back, and goes again
changing xdotool key ctrl+y

click 781 575  # Use Path
in_mode Emitter
changing drag 130 317 230 317      # a whole turn
xdotool key ctrl+s
in_mode "Emitter-Save Shape"
fill 144 363 vessel
press_save
saved=$work/stage/vortex/shapes/vessel-0000.j3d
await "nothing was saved" test -s "$saved"
in_mode Emitter
"$build"/bin/pvortex info "$saved" >"$work"/info
grep -qx 'emitter.kind = sweepPath' "$work"/info || fail "not swept"
grep -qx 'path.count = 6' "$work"/info || fail "not six points: $(grep path.count "$work"/info)"
swept=$(picture)
end_designer

start "$saved"
same() { [ "$(picture)" = "$swept" ]; }
await "the body is another one after a restart" same
