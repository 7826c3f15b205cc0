#!/usr/bin/env bash
# Lays out the application folder that the programs expect around them.
# usage: tools/stage.sh BUILD_FOLDER TARGET_FOLDER
set -euo pipefail
build=$1
target=$2
root="$(dirname "$0")/.."

mkdir -p "$target"/bin/program "$target"/help "$target"/vortex/{shapes,paths}
for program in particle-vortex pvortex; do
  [ ! -e "$build/bin/$program" ] || install -m 755 "$build/bin/$program" "$target/bin/"
done
cp -f "$root"/art/rendered/bin/program/* "$target/bin/program/"
# Never over what somebody has saved under a sample's name.
cp -n "$root"/samples/*.j3d "$target/vortex/shapes/"
cp -n "$root"/samples/*.j2d "$target/vortex/paths/"
