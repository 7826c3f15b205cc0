#!/usr/bin/env bash
# Puts the buttons' icons that the manual shows side by side into one picture; the
# page names each by its place in this list (--n:0 is the first).
# usage: tools/help-icons.sh
set -euo pipefail
cd "$(dirname "$0")/.."
icons=(
  object-point2 object-grid2 object-patch2 object-loft2 object-sweep2
  shape-load shape-save path-edit map-norm map-horz map-vert
  axis-3d axis-top axis-front axis-side view-grid view-lines
  camera-rotate camera-pitch camera-zoom camera-reset xyz-resetall xyz-reset
  object-move2 object-rotate2 object-scale2 object-disperse
  object-pincha object-pinchb object-taper object-sheara object-shearb
  object-bend object-twist object-bulge object-move object-rotate object-scale
  path-arrow path-draw path-add path-delete path-move path-scale path-scalex path-scaley
  path-reset path-zoom path-zoom121 path-handmove path-undo path-redo
  snap snap-1 snap-2 snap-3 snap-4
)
files=()
for icon in "${icons[@]}"; do files+=("art/rendered/bin/program/$icon@2x.png"); done
convert "${files[@]}" -background none +append -strip -define png:compression-level=9 \
  help/vortexa/images/icons.png
