#!/usr/bin/env bash
# Files a shape under two tags with a text on its thumbnail, starts again, finds it
# by its tags, loads it, edits its tags and deletes it; looks at the disk each time.
# usage: tests/e2e/library.sh BUILD_FOLDER     (77: tools are missing)
set -euo pipefail
. "$(dirname "$0")/window.sh"
rm -r "$work"/stage/vortex  # an empty library
library=$work/stage/vortex/shapes

start
changing click 144 65              # Sphere Patch
changing drag 106 165 130 165      # horizontal amount
changing drag 106 293 130 293      # vertical amount
made=$(picture)
same() { [ "$(picture)" = "$made" ]; }

click 78 105                       # Save
in_mode "Emitter-Save Shape"
fill 144 270 "Ball"
for tag in round blue; do
  fill 580 95 "$tag"
  xdotool key Return
done
click 325 145                      # round
xdotool keydown ctrl
click 368 145                      # blue
xdotool keyup ctrl
press_save
in_mode Emitter
await "no data file" test -s "$library"/shpe-0000.j3d
await "no thumbnail" test -s "$library"/thumbs/shpe-0000.bmp
[ "$(tr -d '\r' <"$library"/tagdb/shpe-0000.tdb | xargs)" = "round blue" ] || fail "the file's tags"
for tag in round blue; do
  [ "$(cat "$library/tags/$tag.tag")" = $'shpe-0000\r' ] || fail "the links of $tag"
done
changing click 43 65               # another shape, without tags
click 78 105
in_mode "Emitter-Save Shape"
press_save
in_mode Emitter
[ -s "$library"/shpe-0001.j3d ] || fail "no second file"
end_designer

start
click 38 105                       # Load
in_mode "Emitter-Load Shape"
click 45 335                       # blue, the first in the alphabet
click 358 90                       # the only file that is left
press_load
in_mode Emitter
await "the loaded shape looks different" same

# The strip's last page: tags and files.
for page in 1 2 3; do click 140 25; done
in_mode Library
click 74 133
in_mode "Library-Edit 3d Shape Tags"
click 358 90                       # the first file: its tags light up
xdotool keydown ctrl
click 45 145                       # no longer blue
xdotool keyup ctrl
unlinked() { [ "$(tr -d '\r' <"$library"/tagdb/shpe-0000.tdb | xargs)" = "round" ]; }
await "the file is still blue" unlinked
click 707 569                      # Delete File
click 358 90
await "the file is still there" test ! -e "$library"/shpe-0000.j3d
click 843 569                      # Finished Editing
in_mode Library
[ ! -s "$library"/tags/blue.tag ] && [ ! -s "$library"/tags/round.tag ] || fail "dead links"
[ "$(find "$library" -name 'shpe-0000*' | wc -l)" -eq 0 ] || fail "a part of the file stayed"
[ -s "$library"/shpe-0001.j3d ] || fail "the other file is gone"
"$build"/bin/pvortex library check "$library" || fail "the library is faulty"
end_designer
