#!/usr/bin/env bash
# Stages the application folder anew, over what a user left there, and without
# the program that draws thumbnails.
# usage: tests/cli/stage.sh BUILD_FOLDER
set -euo pipefail
build=$(realpath "$1")
source=$(realpath "$(dirname "$0")/../..")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "failed: $*" >&2; exit 1; }
stage() { "$source"/tools/stage.sh "$1" "$work/$2"; }
sums() { (cd "$1" && find . -type f -exec cksum {} + | sort); }
pvortex=$build/bin/pvortex

stage "$build" new
library=$work/new/vortex/shapes
for kind in shapes:j3d paths:j2d; do
  "$pvortex" library check "$work/new/vortex/${kind%:*}" || fail "the starter library has faults"
  for sample in "$source"/samples/*."${kind#*:}"; do
    name=$(basename "${sample%.*}")-0000
    cmp "$sample" "$work/new/vortex/${kind%:*}/$name.${kind#*:}"
    tags=$(wc -l <"$work/new/vortex/${kind%:*}/tagdb/$name.tdb")
    [ "$tags" -ge 2 ] && [ "$tags" -le 4 ] || fail "$name has $tags tags"
  done
done
[ "$(ls -A "$work"/new/vortex)" = $'paths\nshapes' ] || fail "something is left over"

# What the user changed or deleted stays so; only a sample's lost thumbnail returns.
echo mine >"$library"/vase-0000.j3d
echo mine >"$library"/thumbs/seashell-0000.bmp
rm "$library"/lotus-0000.j3d "$library"/tags/round.tag
before=$(sums "$library")
rm "$library"/thumbs/galaxy-0000.bmp
stage "$build" new
[ "$(sums "$library")" = "$before" ] || fail "the user's library was changed"
rm -r "$library"
mkdir -p "$library"/tagdb
echo mine >"$library"/tagdb/mine-0000.tdb
stage "$build" new
[ "$(find "$library" -type f | wc -l)" -eq 1 ] || fail "an old library was filled"

mkdir "$work"/none
stage "$work"/none bare
[ -s "$work"/bare/vortex/paths/star-0000.j2d ] || fail "no samples without the program"
[ -s "$work"/bare/vortex/paths/tagdb/star-0000.tdb ] || fail "no tags without the program"
