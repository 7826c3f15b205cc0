#!/usr/bin/env bash
# Draws every sample and lays the pictures out on one sheet, docs/images/contact-sheet.png.
# Needs ImageMagick. usage: samples/contact-sheet.sh PATH_OF_PVORTEX
set -euo pipefail
pvortex=$(realpath "$1")
cd "$(dirname "$0")"
out=../docs/images/contact-sheet.png
ground='#1E1E1E'
tile=388
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Lines are drawn at twice the size, as on a high-density screen, and halved; the level
# gives them their brightness back.
lines() {
  "$pvortex" render "$1.j3d" -o "$work/$1.png" --size $((2 * tile))x$((2 * tile)) --no-grid "${@:2}"
  convert "$work/$1.png" -resize 50% -level 0,65% "$work/$1.png"
  sheet+=(-label "${1//-/ }" "$work/$1.png")
}

# Dots are drawn at a third of the size and enlarged.
dots() {
  "$pvortex" render "$1.j3d" -o "$work/$1.png" --size $((tile / 3))x$((tile / 3)) --no-grid --dots "${@:2}"
  convert "$work/$1.png" -resize "${tile}x$tile" -level 0,65% "$work/$1.png"
  sheet+=(-label "${1//-/ }" "$work/$1.png")
}

# An empty place, to keep a short last row in the middle.
blank() { sheet+=(-label '' -size "${tile}x$tile" "xc:$ground"); }

sheet=()
lines twisted-sphere
lines seashell --yaw 290 --pitch 10
lines lotus --yaw 300 --pitch 18
lines star-tunnel
lines jellyfish --yaw 290 --pitch 10
lines torus-knot
lines spiral-stairs --pitch 5
lines galaxy
lines fluted-goblet --yaw 300 --pitch 14
lines vase --yaw 300 --pitch 14
lines bead-ring --yaw 300 --pitch 20
lines twisted-tower
blank
lines double-helix
dots sparks
blank

montage -background "$ground" -fill '#AAAAAA' -font DejaVu-Sans -pointsize 15 "${sheet[@]}" \
  -tile 4x -geometry +6+6 -strip -depth 8 -colors 64 "$out"
