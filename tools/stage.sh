#!/usr/bin/env bash
# Lays out the application folder that the programs expect around them, with the
# samples as its first library.
# usage: tools/stage.sh BUILD_FOLDER TARGET_FOLDER [PVORTEX...]
# (the command that draws the thumbnails, by default the pvortex of the build folder)
set -euo pipefail
build=$1
target=$2
root="$(dirname "$0")/.."
pvortex=("${@:3}")
if [ $# -lt 3 ] && [ -x "$build/bin/pvortex" ]; then pvortex=("$build/bin/pvortex"); fi

mkdir -p "$target"/bin/program "$target"/help "$target"/vortex
for program in {particle-vortex,pvortex}{,.exe}; do
  [ ! -e "$build/bin/$program" ] || install -m 755 "$build/bin/$program" "$target/bin/"
done
cp -f "$root"/art/rendered/bin/program/* "$target/bin/program/"
cp -Rf "$root"/help/. "$target/help/"

work=$(mktemp -d "$target/vortex/.starter-XXXXXX")
trap 'rm -rf "$work"' EXIT

# The samples of one kind under numbered names, with tags and, where there is a
# program to draw them, with thumbnails.
make_starter() {
  local library=$1 extension=$2 sample tags name tag
  mkdir -p "$library"/{thumbs,tagdb,tags}
  while read -r sample tags; do
    [[ $sample == *.$extension ]] || continue
    name=${sample%.*}-0000
    cp "$root/samples/$sample" "$library/$name.$extension"
    for tag in $tags; do printf '%s\r\n' "$tag"; done >"$library/tagdb/$name.tdb"
  done <"$root"/samples/tags.txt
  if [ ${#pvortex[@]} -gt 0 ]; then
    "${pvortex[@]}" library reconstruct "$library" >/dev/null
    "${pvortex[@]}" library thumbnails "$library" >/dev/null
  fi
}

# A library that holds any file is its user's, and nothing in it is replaced;
# only samples that were staged without a thumbnail get theirs.
stage_library() {
  local library=$target/vortex/$1 extension=$2 sample name bare=()
  if [ -z "$(find "$library" -type f -print -quit 2>/dev/null)" ]; then
    make_starter "$work/$1" "$extension"
    mkdir -p "$library"
    cp -Rn "$work/$1"/. "$library"/
    return
  fi
  for sample in "$root"/samples/*."$extension"; do
    name=$(basename "$sample" ".$extension")
    for name in "$name" "$name-0000"; do
      if [ -e "$library/$name.$extension" ] && [ ! -e "$library/thumbs/$name.bmp" ]; then
        bare+=("$name")
      fi
    done
  done
  if [ ${#bare[@]} -gt 0 ] && [ ${#pvortex[@]} -gt 0 ]; then
    # A file that somebody has spoilt is no reason to stop.
    "${pvortex[@]}" library thumbnails "$library" --kind "$1" "${bare[@]}" >/dev/null || true
  fi
}
stage_library shapes j3d
stage_library paths j2d
