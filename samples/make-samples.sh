#!/usr/bin/env bash
# Makes the sample shapes and paths of this folder.
# usage: samples/make-samples.sh PATH_OF_PVORTEX
set -euo pipefail
pvortex=$(realpath "$1")
cd "$(dirname "$0")"

shape() { "$pvortex" new -o "$@"; }
path() { "$pvortex" path new -o "$@"; }

# The points of a path: an awk program that calls P(x, y, z), in shape units,
# or Q(radius, degrees, y) for points around the Y axis.
points() {
  LC_ALL=C awk "
    function P(x, y, z) { printf \"%.5f,%.5f,%.5f \", x, y, z }
    function Q(r, a, y) { P(r * cos(a * pi / 180), y, -r * sin(a * pi / 180)) }
    BEGIN { pi = atan2(0, -1); $1 }"
}

# One value for x, y and z.
all() { echo "$1.x=$2 $1.y=$2 $1.z=$2"; }

# --- paths -------------------------------------------------------------------

path vase.j2d $(points 'for (i = 0; i <= 24; i++) { t = i / 24
  P(0.3 + 0.2 * sin(2 * pi * (0.95 * t + 0.02)) + 0.07 * t * t, 1.2 * t - 0.6, 0) }')

# A foot, a stem and a bowl.
path goblet.j2d 0.3,-0.6,0 0.24,-0.575,0 0.12,-0.55,0 0.05,-0.5,0 0.035,-0.38,0 0.03,-0.26,0 0.045,-0.15,0 \
  $(points 'for (i = 0; i <= 12; i++) { t = i / 12; P(0.06 + 0.34 * sin(2.05 * t) ^ 0.8, 0.7 * t - 0.1, 0) }')

path hoop.j2d $(points 'for (i = 0; i <= 14; i++) P(0.056 * cos(pi * i / 7), 0.056 * sin(pi * i / 7), 0)')

path square.j2d $(points 'for (i = 0; i <= 16; i++) { a = pi * i / 8; c = cos(a); s = sin(a)
  m = 0.33 / (c * c > s * s ? sqrt(c * c) : sqrt(s * s)); P(m * c, m * s, 0) }')

path star.j2d $(points 'for (i = 0; i <= 10; i++) { r = i % 2 ? 0.3 : 0.62
  P(r * sin(pi * i / 5), r * cos(pi * i / 5), 0) }')

# Two arms, from the rim through the core to the other rim.
path arms.j2d $(points 'for (i = -60; i <= 60; i++) { side = i < 0 ? -1 : 1; t = side * i / 60
  r = 0.1 + 0.65 * t ^ 1.3; a = 3 * log(r / 0.1); if (t < 0.1) r *= t / 0.1
  P(side * r * cos(a), 0, side * r * sin(a)) }')

# Five veins, up and down in turns, on a petal that curls upwards.
path petal.j2d $(points 'n = 12; x[0] = 0.05; y[0] = 0
  for (i = 1; i <= n; i++) { a = (28 + 65 * (0.5 - (i - 0.5) / n)) * pi / 180
    x[i] = x[i - 1] + 0.035 * sin(a); y[i] = y[i - 1] + 0.035 * cos(a) }
  for (v = -2; v <= 2; v++) for (j = 0; j <= n; j++) { i = v % 2 ? n - j : j
    w = 0.05 * v * sin(pi * (i / n) ^ 0.75); P(x[i] - 4.5 * w * w, y[i], w) }')

# A meridian of the bell with a piece of each ring, then a tentacle.
path medusa.j2d $(points '
  for (i = 0; i <= 12; i++) { r = 0.5 * sin(pi * 0.58 * i / 12); y = 0.36 * cos(pi * 0.58 * i / 12) + 0.3
    Q(r, 0, y); if (i && i % 3 == 0) { Q(r, 9, y); Q(r, 18, y); Q(r, 9, y); Q(r, 0, y) } }
  for (i = 1; i <= 40; i++) { t = i / 40
    Q(r - 0.16 * t + 0.03 * sin(14 * t), 35 * t * sin(9 * t), y - 0.85 * t) }')

# One step with its riser, a baluster and the handrail, as triples: inner edge, outer
# edge or handrail; degrees; height in steps.
path step.j2d $(points 'rise = 0.05
  n = split("i 0 0 o 0 0 o 0 1 i 0 1 i 0 0 i 0 1 i 9 1 i 18 1 o 18 1 o 9 1 o 0 1 o 9 1 h 9 1 h 0 0.5 h -9 0", s)
  for (i = 1; i <= n; i += 3) Q(s[i] == "i" ? 0.05 : 0.5, s[i + 1], s[i + 2] * rise + (s[i] == "h" ? 0.18 : 0))')

# A coil of 50 turns around a trefoil; three of them, 120 degrees apart, interleave.
path knot.j2d $(points 'size = 0.24; radius = 0.1
  for (i = 0; i <= 510; i++) { t = 2 * pi * i / 510
    x = sin(t) + 2 * sin(2 * t); y = cos(t) - 2 * cos(2 * t); z = -sin(3 * t)
    a = cos(t) + 4 * cos(2 * t); b = 4 * sin(2 * t) - sin(t); c = -3 * cos(3 * t)
    l = sqrt(a * a + b * b + c * c); a /= l; b /= l; c /= l
    l = sqrt(a * a + b * b); u = b / l; v = -a / l
    p = radius * cos(50 * t); q = radius * sin(50 * t)
    P(size * z + q * (v * a - u * b), size * y + p * v + q * u * c, size * x + p * u - q * v * c) }')

# --- shapes ------------------------------------------------------------------

# Five ribbons of a sphere, twisted as one: copies that the modifiers treat as one object.
shape twisted-sphere.j3d emitter.kind=sphere \
  emitter.horizontalAmount=64 emitter.horizontalEnd=164 emitter.verticalAmount=3 emitter.verticalSize=38 \
  emitter.copies=4 duplicates.position.x=0 duplicates.rotation.y=72 applyModifiersGlobally=1 \
  $(all modifiers.vertexScale 1.5) modifiers.twist.y=190 modifiers.shapeRotate.x=12 modifiers.shapeRotate.z=-30

# A profile turned once around, and nothing else: where to begin.
shape vase.j3d emitter.kind=sweep path=vase.j2d emitter.verticalAmount=32 emitter.verticalSize=360

# Pinch B and Shear A break the roundness so that Twist can be seen.
shape fluted-goblet.j3d emitter.kind=sweep path=goblet.j2d emitter.verticalAmount=32 emitter.verticalSize=360 \
  modifiers.pinchB.x=35 modifiers.shearA.x=8 modifiers.twist.y=70

# A small sphere moved off the centre and turned around the world axis.
shape bead-ring.j3d emitter.kind=sphere emitter.horizontalAmount=8 emitter.verticalAmount=10 \
  emitter.verticalSize=360 emitter.copies=11 duplicates.position.x=0 duplicates.rotation.x=30 useWorldAxis=1 \
  $(all modifiers.shapeScale 0.32) modifiers.shapeMove.y=0.64

# A ring of tube, bent around the axis and tapered, that grows with every copy.
shape seashell.j3d emitter.kind=loft path=hoop.j2d emitter.verticalAmount=3 emitter.verticalSize=5 \
  emitter.copies=20 duplicates.position.x=0 duplicates.position.y=-8 duplicates.rotation.y=36 \
  $(all duplicates.scale 40) modifiers.vertexMove.x=0.06 modifiers.taper.z=-500 modifiers.bend.y=2400 \
  modifiers.shapeMove.y=0.52 modifiers.shapeRotate.y=-55 $(all modifiers.shapeScale 1.1)

# The golden angle: each petal 137 degrees further, lower and larger.
shape lotus.j3d emitter.kind=loft path=petal.j2d emitter.verticalAmount=0 mapping=horizontal \
  emitter.copies=20 duplicates.position.x=0 duplicates.rotation.y=137 duplicates.rotation.z=358 \
  $(all duplicates.scale 11) modifiers.shapeMove.y=-0.25 modifiers.shapeScale.y=1.4

# Position and rotation steps: 21 steps around a newel.
shape spiral-stairs.j3d emitter.kind=loft path=step.j2d emitter.verticalAmount=0 \
  emitter.copies=20 duplicates.position.x=0 duplicates.position.y=10 duplicates.rotation.y=18 \
  modifiers.vertexMove.y=-0.6

# A path that leaves its plane, and rotated copies.
shape torus-knot.j3d emitter.kind=loft path=knot.j2d emitter.verticalAmount=0 \
  emitter.copies=2 duplicates.position.x=0 duplicates.rotation.x=120

# Bend and Shear B let twenty tentacles drift together.
shape jellyfish.j3d emitter.kind=loft path=medusa.j2d emitter.verticalAmount=0 \
  emitter.copies=19 duplicates.position.x=0 duplicates.rotation.y=18 applyModifiersGlobally=1 \
  modifiers.shearB.z=20 modifiers.bend.x=25

# Strands side by side, and Vertex Disperse for the dust.
shape galaxy.j3d emitter.kind=loft path=arms.j2d emitter.verticalAmount=0 \
  emitter.copies=17 duplicates.position.x=0 duplicates.rotation.y=5 applyModifiersGlobally=1 \
  $(all modifiers.vertexDisperse 3) modifiers.shapeRotate.x=12 modifiers.shapeRotate.z=50

# A ladder of grid cells, twisted.
shape double-helix.j3d emitter.kind=grid emitter.horizontalAmount=60 emitter.horizontalSize=25 \
  emitter.verticalAmount=1 emitter.verticalSize=100 emitter.copies=1 duplicates.position.x=0 duplicates.rotation.y=20 \
  modifiers.vertexScale.z=6 modifiers.twist.y=420 modifiers.shapeRotate.x=25

# Position, rotation and scale steps into the distance: look along the X axis.
shape star-tunnel.j3d emitter.kind=loft path=star.j2d emitter.verticalAmount=1 emitter.verticalSize=50 \
  emitter.copies=20 duplicates.position.x=-16 duplicates.rotation.x=5 duplicates.scale.y=-4 duplicates.scale.z=-4 \
  modifiers.vertexRotate.y=90 modifiers.shapeMove.x=0.4

# Floors on top of each other; Pinch A, Twist and Bulge give them one outline.
shape twisted-tower.j3d emitter.kind=loft path=square.j2d emitter.verticalAmount=1 emitter.verticalSize=40 \
  mapping=vertical emitter.copies=20 duplicates.position.x=0 duplicates.position.z=13 applyModifiersGlobally=1 \
  modifiers.vertexMove.y=-0.6 modifiers.vertexRotate.x=90 modifiers.pinchA.x=60 modifiers.pinchA.z=35 \
  modifiers.twist.y=80 modifiers.bulge.y=-15

# Points only: switch the lines off to see them.
shape sparks.j3d emitter.kind=point \
  emitter.copies=20 duplicates.position.x=0 duplicates.rotation.x=128 $(all duplicates.scale 60) \
  modifiers.vertexMove.y=0.15
