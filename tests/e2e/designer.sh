#!/usr/bin/env bash
# A short working day in a real window: makes a shape with the mouse, saves it,
# leaves, comes back, and tries to open the designer twice.
# usage: tests/e2e/designer.sh BUILD_FOLDER     (77: tools are missing)
set -euo pipefail
. "$(dirname "$0")/window.sh"

# --- a sphere, with more sections, twisted ---------------------------------------
rm -r "$work"/stage/vortex/paths  # for the designer to make
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
in_mode "Emitter-Save Shape"
fill 144 363 Journey
press_save
saved=$work/stage/vortex/shapes/journey-0000.j3d
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
end_designer
settings | grep -q '"CoreShapeFilename"="journey"' || fail "no core name was kept"

"$build"/bin/pvortex set "$saved" -o "$work"/dispersed.j3d modifiers.vertexDisperse.x=20
start "$work"/dispersed.j3d
at_home() { [ "$(place)" = "$left" ]; }
await "the window is not where it was left: $left" at_home

# --- a shape that stands still: each new frame would disperse its points anew ------
still=$(picture)
pointer() { xdotool mousemove --window "$window" "$1" "$2"; }
for x in 400 500 600; do pointer $x 100; done
pointer 315 60
helped() { xwininfo -root -tree | grep -qF '"Particle Vortex": ("particle-vortex"'; }
await "no help" helped
pointer 600 680
for page in 1 2 3 4; do click 140 25; done
in_mode "Emitter"
xdotool windowminimize "$window"
hidden() { ! xdotool search --onlyvisible --name '^Vortexa-'; }
await "the window stays" hidden
xdotool windowmap "$window" windowactivate "$window"
await "the window is not active" active "$window"
same() { [ "$(picture)" = "$still" ]; }
await "a frame was drawn for nothing" same
changing drag 400 100 440 130

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
