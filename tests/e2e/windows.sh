#!/usr/bin/env bash
# The designer for Windows in an empty Windows (Wine): settings, a shape twisted, filed
# under tags, found and loaded again, a library of another system, a second start, the
# end of the session, a program folder that cannot be written.
# usage: tests/e2e/windows.sh ZIP PVORTEX [PICTURES]
# (what packaging/windows/build makes; the pvortex of this system; a folder for pictures
# of each step. 77: tools are missing)
set -euo pipefail
zip=$(realpath "$1")
pvortex=$(realpath "$2")
pictures=$(realpath -m "${3:-$(mktemp -d)}")
. "$(dirname "$0")/screen.sh"
. "$source"/packaging/windows/wine.sh
mkdir -p "$pictures"
echo "pictures: $pictures" >&2
export LC_ALL=C.UTF-8  # in which names reach the program
export TMPDIR=$work            # where Wine leaves a folder behind
patience=40
settle() { end_wine; }
open_screen 2048x1536
begin_wine "$work"

# Mixed case and a blank, as people name folders.
tree="$WINEPREFIX/drive_c/Show Tools"
mkdir "$tree"
(cd "$tree" && cmake -E tar xf "$zip")
tree=$(echo "$tree"/*)
launch() { exec "$wine" "$tree"/bin/particle-vortex.exe "$@"; }
shot() { import -window "$window" "$pictures/$1.png"; }

key='HKCU\Software\Amberly\kaleido\UI'
settings() {
  rm -f "$work"/settings.reg
  "$wine" reg export "$key" "$work"/settings.reg /y >/dev/null 2>&1 || return 0
  iconv -f UTF-16 -t UTF-8 "$work"/settings.reg | tr -d '\r'
}
set_value() { "$wine" reg add "$key" /v "$1" /t "$2" /d "$3" /f >/dev/null 2>&1; }  # NAME TYPE DATA
is_kept() { settings | grep -Eqx "\"$1\"=\"$2\"" || fail "not kept: $1 $2 in: $(settings)"; }  # NAME TEXT
colour() { import -window "$window" -crop "1x1+$1+$2" +repage -depth 8 txt:- | grep -om1 '#[0-9A-F]\{6\}'; }
is_coloured() { [ "$(colour "$2" "$3")" = "$1" ] || fail "$(colour "$2" "$3") at $2, $3 instead of $1"; }
rm -r "$tree"/vortex  # an empty library
shapes=$tree/vortex/shapes

# --- an empty profile, then values of the right type and of wrong ones -----------------
! settings | grep -q = || fail "the registry is not empty"
start
[ -d "$tree"/vortex/paths/tagdb ] || fail "the libraries have no folders"
shot fresh
is_coloured '#323232' 2 400
end_designer
for name in Shape:shpe Path:path Particle:part; do
  is_kept "Core${name%:*}Filename" "${name#*:}"
done
is_kept DesignerWindow '[0-9]+ [0-9]+ 924 683 0'

set_value DlgColour REG_DWORD 0x203050  # red lowest
set_value SelectedColour REG_SZ 65280
set_value TextColour REG_QWORD 255
set_value CoreShapeFilename REG_DWORD 7
set_value CorePathFilename REG_SZ Größe
start
is_coloured '#503020' 2 400
shot colours
end_designer
is_kept CoreShapeFilename 'shpe'
is_kept CorePathFilename 'Größe'
is_kept SelectedColour '65280'
"$wine" reg delete "$key" /f >/dev/null 2>&1

# --- a library that another system made -------------------------------------------------
"$pvortex" new -o "$shapes/Größe 形-0000.j3d" emitter.kind=spherePatch emitter.horizontalAmount=30
printf 'кольцо\r\n' >"$shapes/tagdb/Größe 形-0000.tdb"
"$pvortex" library reconstruct "$shapes" >/dev/null
"$pvortex" library thumbnails "$shapes" >/dev/null
start
empty=$(picture)
click 38 105                      # Load
in_mode "Emitter-Load Shape"
click 45 335                      # the only tag
click 358 90                      # the only file
sleep 1
shot load-foreign
browser=$(picture)
press_load
in_mode Emitter
await "the browser stays" differs "$browser"
await "nothing was loaded" differs "$empty"
foreign=$(picture)
shot foreign
end_designer
start 'C:\Show Tools\'"$(basename "$tree")"'\vortex\shapes\Größe 形-0000.j3d'  # as the file manager does it
is_foreign() { [ "$(picture)" = "$foreign" ]; }
await "named at start the file looks different" is_foreign
end_designer

# --- a sphere, twisted by its handle and filed ------------------------------------------
start
changing click 144 65             # Sphere Patch
for field in 165 293; do          # the amounts
  click 190 $field
  xdotool key ctrl+a type --delay 20 $((field / 4))
  changing xdotool key Return
done
changing click 315 135            # front view
changing click 728 574            # Twist shows its handles
xdotool mousemove --window "$window" 700 400 mousemove --window "$window" 781 292
changing drag 781 292 841 262     # along the X handle
shot twisted
made=$(picture)
xdotool key ctrl+s
in_mode "Emitter-Save Shape"
fill 144 363 Journey
fill 144 270 Ball
for tag in round blue; do
  fill 580 95 "$tag"
  xdotool key Return
done
shot save
click 398 145                     # the two that were typed
xdotool keydown ctrl
click 432 145
xdotool keyup ctrl
press_save
in_mode Emitter
saved=$shapes/journey-0000.j3d
await "no data file" test -s "$saved"
await "no thumbnail" test -s "$shapes"/thumbs/journey-0000.bmp
end_designer
is_kept CoreShapeFilename 'journey'
[ "$(tr -d '\r' <"$shapes"/tagdb/journey-0000.tdb | sort | xargs)" = "blue round" ] || fail "the file's tags"
for tag in round blue; do
  [ "$(cat "$shapes/tags/$tag.tag")" = $'journey-0000\r' ] || fail "the links of $tag"
done
"$pvortex" library check "$shapes" || fail "the library is faulty"
"$pvortex" new -o "$work"/same.j3d emitter.kind=spherePatch emitter.horizontalAmount=41 \
  emitter.verticalAmount=73 modifiers.twist.x=90
cmp "$saved" "$work"/same.j3d || fail "another file than this system makes"

# --- found by its tag after a restart; one window, whoever else starts it ----------------
start
same() { [ "$(picture)" = "$made" ]; }
click 38 105
in_mode "Emitter-Load Shape"
click 45 335                      # blue, the first in the alphabet
click 358 90
sleep 1
shot load
press_load
in_mode Emitter
click 315 135
click 728 574
await "the loaded shape looks different" same
shot loaded

status=0
launch() { "$wine" "$tree"/bin/particle-vortex.exe "$@"; }
timeout 30 "$wine" "$tree"/bin/particle-vortex.exe >"$work"/second 2>&1 || status=$?
[ $status -eq 0 ] || fail "a second copy ended with $status"
[ ! -s "$work"/second ] || fail "a second copy says something"
[ "$(windows | wc -l)" -eq 1 ] || fail "several windows"
for word in --version:0:0.1 --nonsense:64:nonsense; do
  IFS=: read -r argument expected text <<<"$word"
  status=0
  "$wine" "$tree"/bin/particle-vortex.exe "$argument" >"$work"/said 2>&1 || status=$?
  [ $status -eq "$expected" ] && grep -q -- "$text" "$work"/said || fail "$argument: $status"
done

# --- the user leaves Windows while it runs ------------------------------------------------
await "the window is not active" active "$window"
xdotool windowmove "$window" 160 150 windowsize "$window" 980 690
await "the size stays" sh -c "xdotool getwindowgeometry $window | grep -q 980x690"
sleep 1
disown "$designer"  # ended by the system, which is nothing to report
timeout 60 "$wine" wineboot --end-session >/dev/null 2>&1 || fail "the session does not end"
await "the program outlives the session" gone "$designer"
is_kept DesignerWindow '[0-9]+ [0-9]+ 980 690 0'


# --- sharp screens ------------------------------------------------------------------------
for dpi in 144 192; do
  "$wine" reg delete "$key" /v DesignerWindow /f >/dev/null 2>&1
  "$wine" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d $dpi /f >/dev/null 2>&1
  end_wine  # read when Windows starts
  start "$saved"  # a path with slashes
  xdotool getwindowgeometry "$window" | grep -q "Geometry: $((924 * dpi / 96))x" ||
    fail "at $dpi dots an inch: $(place)"
  shot "dpi-$dpi"
  end_designer
done
"$wine" reg delete 'HKCU\Control Panel\Desktop' /v LogPixels /f >/dev/null 2>&1
"$wine" reg delete "$key" /v DesignerWindow /f >/dev/null 2>&1
end_wine

# --- a program folder that cannot be written ----------------------------------------------
guest=()
if [ "$(id -u)" -eq 0 ]; then  # to whom no folder is closed
  chmod 755 "$work"
  rm "$WINEPREFIX"/wineserver  # where the former user's is found
  chown -R nobody "$work"
  chown -R root "$tree"
  guest=(setpriv --reuid nobody --regid nogroup --clear-groups)
fi
chmod -R a-w "$tree"
settle() { "${guest[@]}" "$wineserver" --kill 2>/dev/null || true; }
launch() { exec "${guest[@]}" "$wine" "$tree"/bin/particle-vortex.exe "$@"; }
contents() { (cd "$tree" && find . -type f -exec sha256sum {} + | sort); }
before=$(contents)
start
changing click 144 65
made=$(picture)
xdotool key ctrl+s
in_mode "Emitter-Save Shape"
press_save
told() { xdotool search --onlyvisible --class particle-vortex | grep -vx "$window"; }
await "no box tells that the thumbnail is missing" told
import -window root -trim "$pictures/read-only.png"
xdotool key Return
in_mode Emitter
shot kept
await "the shape is lost" same
end_designer
[ "$(contents)" = "$before" ] || fail "a file was changed"
