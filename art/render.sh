#!/usr/bin/env bash
# Renders the drawings of icons/, cursors/ and app/ into rendered/, as the
# programs and the packages take them. Needs rsvg-convert.
set -euo pipefail
shopt -s nullglob
cd "$(dirname "$0")"
export LC_ALL=C

if ! command -v rsvg-convert >/dev/null; then
  echo "render: rsvg-convert is missing (Debian package librsvg2-bin)" >&2
  exit 69
fi
program=rendered/bin/program
app=rendered/app
rm -rf rendered
mkdir -p "$program" "$app"

# png DRAWING SIDE TARGET
png() { rsvg-convert -w "$2" -h "$2" -o "$3" "$1"; }

# little-endian fields of 1, 2 and 4 bytes
u8() { printf %b "\\x$(printf %02x "$1")"; }
u16() { u8 $(($1 & 255)); u8 $(($1 >> 8 & 255)); }
u32() { u16 $(($1 & 65535)); u16 $(($1 >> 16 & 65535)); }

# container KIND (FILE SIDE FIELD FIELD)... > ICO_OR_CUR
# Kind 1 is an icon, whose fields are planes and bits per pixel; kind 2 is a
# cursor, whose fields are the hot spot. A side of 256 is written as 0.
container() {
  local kind=$1 entry size
  shift
  local list=("$@") count=$(($# / 4))
  local offset=$((6 + 16 * count))
  u16 0; u16 "$kind"; u16 "$count"
  for ((entry = 0; entry < 4 * count; entry += 4)); do
    size=$(wc -c <"${list[entry]}")
    u8 $((list[entry + 1] & 255)); u8 $((list[entry + 1] & 255)); u8 0; u8 0
    u16 "${list[entry + 2]}"; u16 "${list[entry + 3]}"
    u32 "$size"; u32 "$offset"
    offset=$((offset + size))
  done
  for ((entry = 0; entry < 4 * count; entry += 4)); do cat "${list[entry]}"; done
}

for drawing in icons/*.svg; do
  name=$(basename "$drawing" .svg)
  png "$drawing" 24 "$program/$name.png"
  png "$drawing" 48 "$program/$name@2x.png"
  png "$drawing" 72 "$program/$name@3x.png"
done

middle=$(mktemp -d)
trap 'rm -rf "$middle"' EXIT
while read -r name x y; do
  case $name in '' | '#'*) continue ;; esac
  drawing=cursors/$name.svg
  stem=$program/$name-cursor
  png "$drawing" 32 "$stem.png"
  png "$drawing" 48 "$middle/48.png"
  png "$drawing" 64 "$stem@2x.png"
  png "$drawing" 96 "$stem@3x.png"
  container 2 "$stem.png" 32 "$x" "$y" "$middle/48.png" 48 $((x * 3 / 2)) $((y * 3 / 2)) \
    "$stem@2x.png" 64 $((x * 2)) $((y * 2)) >"$program/$name.cur"
done <cursors/hotspots.txt

# icon NAME FOLDER: the pictures NAME-SIDE.png in the folder, and NAME.ico of those up
# to 256 pixels. The small drawing serves up to 32.
icon() {
  local name=$1 folder=$2 side drawing entries=()
  for side in 16 24 32 48 64 128 256 512; do
    drawing=app/$name.svg
    [ "$side" -gt 32 ] || drawing=app/$name-small.svg
    png "$drawing" "$side" "$folder/$name-$side.png"
    [ "$side" -gt 256 ] || entries+=("$folder/$name-$side.png" "$side" 1 32)
  done
  container 1 "${entries[@]}" >"$app/$name.ico"
}
icon particle-vortex "$app"
# Of documents the system wants the one file.
for document in shape-document path-document; do icon "$document" "$middle"; done
