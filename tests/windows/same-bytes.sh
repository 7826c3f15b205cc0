#!/usr/bin/env bash
# Lets this system's pvortex and the one for Windows make the same files from the same
# orders and compares every byte of them and of what they said. Random directions are
# each system's own and left out. Then each looks into the library that the other made.
# usage: PV_NATIVE_PVORTEX=PROGRAM tests/windows/same-bytes.sh WINDOWS_PROGRAM WINE
# Ends with 77 when there is no program of this system.
set -euo pipefail
root=$(realpath "$(dirname "$0")/../..")
[ -x "${PV_NATIVE_PVORTEX:-}" ] || { echo "there is no PV_NATIVE_PVORTEX"; exit 77; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work"/{linux,windows}

# The same names for both programs, as make-samples.sh takes one.
ln -s "$(realpath "$PV_NATIVE_PVORTEX")" "$work"/pvortex-linux
printf '#!/bin/sh\nexec "%s" "%s" "$@"\n' "$2" "$(realpath "$1")" >"$work"/pvortex-windows
chmod +x "$work"/pvortex-windows

drawing='<svg xmlns="http://www.w3.org/2000/svg" width="200" height="100">
<g transform="rotate(33.3 20 10) skewX(12) scale(1.5 0.7)"><path transform="skewY(-7.5)"
d="M10 10 A 30 20 17 1 0 60 44 c 5 9 12.25 -7 31 1e1 s 4 4 9 -3 q 7 7 1 2 a 9 4 -40 0 1 -20 -5"/>
</g><ellipse cx="80" cy="20" rx="30" ry="11"/><rect x="3" y="3" width="30%" height="20" rx="4"/></svg>'

make_shapes() {
  local pvortex=$1 sample name view
  cp "$root"/samples/make-samples.sh .
  ./make-samples.sh "$pvortex"
  "$pvortex" path new -o corner.j2d 0.1,-2,0 1e-7,.333333333,16777217 0,0,-0.3
  for sample in *.j3d; do
    name=${sample%.j3d}
    "$pvortex" set "$sample" -o "$sample" modifiers.vertexDisperse.{x,y,z}=0
    "$pvortex" export "$sample" -o "$name.obj"
    for view in 3d top front side; do
      # All of them in space, and one in each flat view.
      if [ $view = 3d ] || [ "$name" = seashell ]; then
        "$pvortex" render "$sample" -o "$name-$view.png" --view $view --modifier twist
      fi
    done
  done
  "$pvortex" export vase.j3d -o vase-base.obj --stage base
  echo "$drawing" >drawing.svg
  "$pvortex" path import drawing.svg -o drawing.j2d
  "$pvortex" path export drawing.j2d -o again.svg
  "$pvortex" info --json ./*.j3d ./*.j2d >info.json
  "$pvortex" check ./*.j3d ./*.j2d >check.txt
  "$pvortex" --help >help.txt
  head -c 6000 vase.j3d >short.j3d
  "$pvortex" info short.j3d 2>errors.txt || echo $? >>errors.txt
}

# A library with names in many scripts, some of them beyond 16 bits.
make_library() {
  local pvortex=$1 sample name
  local samples=(vase seashell galaxy lotus torus-knot)
  mkdir -p "$library"/{thumbs,tagdb,tags}
  for name in σχήμα-0000 Фигура-0000 かたち-0000 😀-0000 "plain name-0001"; do
    sample=${samples[0]}
    samples=("${samples[@]:1}")
    cp "$sample".j3d "$library/$name.j3d"
    printf 'στρογγυλό\r\n%s\r\n形 😀\r\n' "$sample" >"$library/tagdb/$name.tdb"
  done
  "$pvortex" library reconstruct "$library" >reconstructed.txt
  "$pvortex" library thumbnails "$library" >thumbnails.txt
}

look_into_library() {
  "$1" library check "$library"
  "$1" library list "$library"
  "$1" library list "$library" --tag "形 😀" --not seashell
  "$1" library tags "$library" --json
}

library='βιβλιοθήκη 库'
for side in linux windows; do
  (cd "$work/$side" && make_shapes "$work/pvortex-$side" && make_library "$work/pvortex-$side")
done
(cd "$work"/linux && look_into_library "$work"/pvortex-windows) >"$work"/windows/looked.txt
(cd "$work"/windows && look_into_library "$work"/pvortex-linux) >"$work"/linux/looked.txt
cat "$work"/linux/looked.txt
[ "$(grep -c . "$work"/linux/looked.txt)" -gt 8 ]
diff -r "$work"/linux "$work"/windows
echo "$(find "$work"/linux -type f | wc -l) files are the same"
