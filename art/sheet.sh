#!/usr/bin/env bash
# Lays all rendered icons and cursors with their names on sheets in out/icons,
# for looking at: 1x as it is and enlarged four times pixel by pixel, 2x and 3x,
# on the panels' grey, and 1x in the colours of a checked button.
# Needs ImageMagick. Run art/render.sh first.
set -euo pipefail
shopt -s nullglob
cd "$(dirname "$0")/.."

for tool in montage convert; do
  command -v "$tool" >/dev/null && continue
  echo "sheet: $tool is missing (Debian package imagemagick)" >&2
  exit 69
done
program=art/rendered/bin/program
out=out/icons
mkdir -p "$out"

icons=()
for drawing in art/icons/*.svg; do icons+=("$(basename "$drawing" .svg)"); done
cursors=()
for drawing in art/cursors/*.svg; do cursors+=("$(basename "$drawing" .svg)-cursor"); done

# sheet TARGET SUFFIX CELL GROUND LABEL_COLOUR SCALE NAME...
sheet() {
  local target=$1 suffix=$2 cell=$3 ground=$4 label=$5 scale=$6
  shift 6
  local pictures=()
  for name in "$@"; do
    pictures+=('(' -label "$name" "$program/$name$suffix.png" -filter point -resize "$scale" ')')
  done
  montage -background "$ground" -fill "$label" -pointsize 10 "${pictures[@]}" \
    -tile 10x -geometry "$cell>+8+6" "$out/$target.png"
}

sheet 1x '' 100x24 '#464646' '#aaaaaa' 100% "${icons[@]}"
sheet 1x-enlarged '' 120x96 '#464646' '#aaaaaa' 400% "${icons[@]}"
sheet 2x '@2x' 100x48 '#464646' '#aaaaaa' 100% "${icons[@]}"
sheet 3x '@3x' 100x72 '#464646' '#aaaaaa' 100% "${icons[@]}"
sheet cursors '' 128x128 '#606060' '#1e1e1e' 400% "${cursors[@]}"
sheet cursors-2x '@2x' 100x64 '#606060' '#1e1e1e' 100% "${cursors[@]}"

sheet 1x-checked '' 120x96 none '#1e1e1e' 400% "${icons[@]}"
convert "$out/1x-checked.png" -channel RGB -fill '#1e1e1e' -colorize 100 +channel \
  -background '#f07800' -flatten "$out/1x-checked.png"
