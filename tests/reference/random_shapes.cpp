#include "reference/random_shapes.h"

#include <array>
#include <limits>

namespace pv::reference {

namespace {

std::int32_t amount(Dice& dice, Taste taste) {
  if (taste == Taste::Wild && dice.once(6)) {
    return dice.between(-3, 1);
  }
  return dice.once(8) ? dice.between(1, 30) : dice.between(1, 8);
}

std::int32_t size(Dice& dice, Taste taste, std::int32_t most) {
  if (taste == Taste::Wild && dice.once(6)) {
    constexpr std::array kHostile{0,      -1,      -90,        1'000'000,
                                  -77777, 100'003, 2147483647, -2147483647 - 1};
    return kHostile[static_cast<std::size_t>(dice.below(kHostile.size()))];
  }
  return dice.between(0, most);
}

float hostileFloat(Dice& dice) {
  using Limits = std::numeric_limits<float>;
  const std::array values{0.0F,
                          -0.0F,
                          -1.0F,
                          1.0e6F,
                          -3.0e9F,
                          1.0e30F,
                          1e-30F,
                          -1e-42F,
                          Limits::infinity(),
                          -Limits::infinity(),
                          Limits::quiet_NaN()};
  return values[static_cast<std::size_t>(dice.below(static_cast<int>(values.size())))];
}

float value(Dice& dice, Taste taste, float reach) {
  if (taste == Taste::Wild && dice.once(12)) {
    return hostileFloat(dice);
  }
  return dice.once(4) ? 0.0F : dice.between(-reach, reach);
}

Vec3 triple(Dice& dice, Taste taste, float reach) {
  return {value(dice, taste, reach), value(dice, taste, reach), value(dice, taste, reach)};
}

EmitterSettings randomEmitter(Dice& dice, Taste taste) {
  EmitterSettings e;
  e.kind = static_cast<EmitterKind>(dice.below(kEmitterKindCount));
  const bool grid = e.kind == EmitterKind::GridPatch;
  const bool turned = e.kind == EmitterKind::SpherePatch || e.kind == EmitterKind::SweepPath;
  e.horizontalAmount = amount(dice, taste);
  e.horizontalSize = size(dice, taste, grid ? 200 : 180);
  e.horizontalEnd = size(dice, taste, 180);
  e.horizontalCentre.slot =
      std::array{0U, 1U, 0x100U, 0x7F02U}[static_cast<std::size_t>(dice.below(4))];
  e.verticalAmount = amount(dice, taste);
  e.verticalSize = size(dice, taste, turned ? 360 : 200);
  e.verticalCentre.set(dice.once(2));
  e.copies = dice.once(2) ? 0 : dice.once(5) ? dice.between(-1, 22) : dice.between(1, 3);
  return e;
}

}  // namespace

ShapeRecord randomShape(Dice& dice, Taste taste) {
  // What the values of each triple of a file may usefully be.
  constexpr std::array kReach{0.5F,   360.0F, 0.0F,  60.0F, 100.0F, 100.0F, 100.0F,
                              100.0F, 100.0F, 90.0F, 90.0F, 0.5F,   360.0F, 0.0F};
  ShapeRecord shape;
  shape.applyModifiersGlobally = dice.below(2);
  shape.useWorldAxis = dice.below(2);
  shape.emitter = randomEmitter(dice, taste);
  for (std::size_t axis = 0; axis < 3; ++axis) {
    shape.duplicates.position[axis] = value(dice, taste, 100.0F);
    shape.duplicates.rotation[axis] = static_cast<float>(dice.between(-180, 180));
    shape.duplicates.scale[axis] = value(dice, taste, 60.0F);
    shape.duplicates.bulge[axis] = dice.once(4) ? value(dice, taste, 100.0F) : 0.0F;
  }
  if (taste == Taste::Wild && dice.once(10)) {
    shape.duplicates.rotation[1] = hostileFloat(dice);
  }
  shape.path.count = dice.once(10) ? dice.below(2) : dice.below(taste == Taste::Wild ? 41 : 12);
  for (std::int32_t i = 0; i < shape.path.count; ++i) {
    shape.path.points[static_cast<std::size_t>(i)] = {
        dice.between(-0.5F, 0.5F), dice.between(-0.5F, 0.5F), dice.between(-0.5F, 0.5F)};
  }
  for (std::size_t i = 0; i < kReach.size(); ++i) {
    if (!dice.once(3)) {
      continue;
    }
    const bool scale = i == 2 || i == 13;
    shape.modifiers.triples[i] =
        scale ? Vec3{dice.between(0.3F, 1.7F), dice.between(0.3F, 1.7F), value(dice, taste, 1.5F)}
              : triple(dice, taste, kReach[i]);
  }
  return shape;
}

}  // namespace pv::reference
