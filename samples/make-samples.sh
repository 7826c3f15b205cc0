#!/usr/bin/env bash
# Makes the sample shapes and paths of this folder.
# usage: samples/make-samples.sh PATH_OF_PVORTEX
set -euo pipefail
pvortex=$(realpath "$1")
cd "$(dirname "$0")"

shape() { "$pvortex" new -o "$@"; }
path() { "$pvortex" path new -o "$@"; }

# n points of a curve: curve N 'awk expressions of t (0 to 1) for x, y and z'
curve() {
  LC_ALL=C awk -v n="$1" 'BEGIN { pi = 3.14159265358979
    for (i = 0; i < n; i++) { t = i / (n - 1); printf "%.6f,%.6f,%.6f ", '"$2"' } }'
}

# --- paths -------------------------------------------------------------------
path vase.j2d 0.02,-0.5,0 0.22,-0.5,0 0.24,-0.44,0 0.17,-0.36,0 0.24,-0.2,0 0.34,-0.02,0 \
  0.36,0.12,0 0.28,0.27,0 0.14,0.36,0 0.12,0.42,0 0.2,0.5,0
path goblet.j2d 0.26,-0.55,0 0.2,-0.52,0 0.05,-0.48,0 0.03,-0.3,0 0.04,-0.12,0 0.12,-0.04,0 \
  0.28,0.08,0 0.34,0.26,0 0.3,0.46,0
path ring.j2d $(curve 21 '0.5 + 0.16 * cos(2 * pi * t), 0.16 * sin(2 * pi * t), 0')
path wave.j2d $(curve 41 '1.4 * (t - 0.5), 0.16 * sin(4 * pi * t) * sin(pi * t), 0')
path spiral.j2d $(curve 90 '(0.06 + 0.5 * t) * cos(6 * pi * t), (0.06 + 0.5 * t) * sin(6 * pi * t), 0')
path petal.j2d $(curve 17 '0.08 + 0.62 * t, 0.22 * sin(pi * t) + 0.12 * t * t, 0.2 * sin(pi * t) ^ 2')
path star.j2d $(curve 11 '(0.3 + 0.2 * cos(10 * pi * t)) * sin(2 * pi * t), (0.3 + 0.2 * cos(10 * pi * t)) * cos(2 * pi * t), 0')

# --- shapes ------------------------------------------------------------------
whole="emitter.horizontalSize=0 emitter.horizontalEnd=180 emitter.verticalSize=360"

shape twisted-sphere.j3d emitter.kind=sphere emitter.horizontalAmount=28 emitter.verticalAmount=20 $whole \
  modifiers.vertexScale.y=1.5 modifiers.pinchB.x=60 modifiers.twist.y=140
shape bead-ring.j3d emitter.kind=sphere emitter.horizontalAmount=10 emitter.verticalAmount=14 $whole \
  emitter.copies=11 duplicates.position.x=0 duplicates.rotation.y=30 useWorldAxis=1 \
  modifiers.shapeScale.x=0.3 modifiers.shapeScale.y=0.3 modifiers.shapeScale.z=0.3 modifiers.shapeMove.x=0.6
shape spiral-stairs.j3d emitter.kind=grid emitter.horizontalAmount=1 emitter.horizontalSize=20 \
  emitter.verticalAmount=6 emitter.verticalSize=70 emitter.verticalCentre=0 emitter.copies=20 \
  duplicates.position.x=0 duplicates.position.y=9 duplicates.rotation.y=20 \
  modifiers.vertexMove.z=-0.1 modifiers.taper.z=60 modifiers.shapeMove.y=-0.45
shape vase.j3d emitter.kind=sweep path=vase.j2d emitter.verticalAmount=36 emitter.verticalSize=360
shape fluted-goblet.j3d emitter.kind=sweep path=goblet.j2d emitter.verticalAmount=48 emitter.verticalSize=360 \
  modifiers.twist.y=70 modifiers.pinchB.x=35 modifiers.shearA.x=8
shape torus-knot.j3d emitter.kind=sweep path=ring.j2d emitter.verticalAmount=24 emitter.verticalSize=360 \
  emitter.copies=2 duplicates.position.x=0 duplicates.rotation.x=60 duplicates.rotation.z=60
shape banner.j3d emitter.kind=loft path=wave.j2d emitter.verticalAmount=18 emitter.verticalSize=40 \
  modifiers.bend.y=35 modifiers.bend.x=40 modifiers.shearB.y=20 modifiers.shapeRotate.y=20
shape galaxy.j3d emitter.kind=loft path=spiral.j2d emitter.verticalAmount=2 emitter.verticalSize=30 \
  emitter.copies=3 duplicates.position.x=0 duplicates.rotation.z=90 \
  modifiers.bulge.z=-18 modifiers.shapeRotate.x=65 modifiers.shapeRotate.z=15
shape flower.j3d emitter.kind=loft path=petal.j2d emitter.verticalAmount=8 emitter.verticalSize=34 \
  emitter.copies=9 duplicates.position.x=0 duplicates.rotation.y=36 \
  modifiers.taper.x=40 modifiers.bend.x=60 modifiers.pinchA.z=30
shape lattice.j3d emitter.kind=grid emitter.horizontalAmount=8 emitter.horizontalSize=100 \
  emitter.verticalAmount=8 emitter.verticalSize=100 emitter.copies=8 duplicates.position.x=20 \
  applyModifiersGlobally=1 modifiers.vertexMove.x=-0.4 modifiers.bulge.x=35 modifiers.bulge.y=35 modifiers.bulge.z=35 \
  modifiers.shapeScale.x=0.7 modifiers.shapeScale.y=0.7 modifiers.shapeScale.z=0.7
shape ribbon-helix.j3d emitter.kind=grid emitter.horizontalAmount=60 emitter.horizontalSize=20 \
  emitter.verticalAmount=3 emitter.verticalSize=90 emitter.copies=1 duplicates.position.x=0 duplicates.rotation.y=90 \
  modifiers.twist.y=400
shape nova.j3d emitter.kind=sphere emitter.horizontalAmount=22 emitter.verticalAmount=30 $whole \
  modifiers.vertexDisperse.x=22 modifiers.vertexDisperse.y=22 modifiers.vertexDisperse.z=22 modifiers.bulge.y=30
shape star-tunnel.j3d emitter.kind=loft path=star.j2d emitter.verticalAmount=2 emitter.verticalSize=25 \
  emitter.copies=16 duplicates.position.x=0 duplicates.position.z=14 duplicates.rotation.z=9 \
  duplicates.scale.x=-8 duplicates.scale.y=-8 modifiers.shapeMove.z=-0.5
shape sparks.j3d emitter.kind=point emitter.copies=20 duplicates.position.x=0 applyModifiersGlobally=1 \
  modifiers.vertexDisperse.x=120 modifiers.vertexDisperse.y=120 modifiers.vertexDisperse.z=120
