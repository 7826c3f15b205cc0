#include "shape/modifiers.h"

#include <algorithm>
#include <cmath>

#include "math/scalar.h"

namespace pv {

namespace {

constexpr float kPercent = 100.0F;

bool isZero(Vec3 v) {
  return v.x == 0.0F && v.y == 0.0F && v.z == 0.0F;
}

Vec3 inHundredths(Vec3 v) {
  return {v.x / kPercent, v.y / kPercent, v.z / kPercent};
}

/// The part of the position streams that a modifier works on.
struct Positions {
  float* x;
  float* y;
  float* z;
  std::size_t count;
};

// Block by block through arrays of its own: `from` and `to` may be the same
// streams, and only so can the compiler see that no store changes what it reads.
void transformPositions(const VectorStreams& from, const Positions& to, const Matrix4& matrix,
                        Vec3 move) {
  constexpr std::size_t kBlock = 256;
  float blockX[kBlock];
  float blockY[kBlock];
  float blockZ[kBlock];
  const Matrix4 m = matrix;
  for (std::size_t first = 0; first < to.count; first += kBlock) {
    const std::size_t count = std::min(kBlock, to.count - first);
    const float* x = from.x.data() + first;
    const float* y = from.y.data() + first;
    const float* z = from.z.data() + first;
    for (std::size_t i = 0; i < count; ++i) {
      const Vec3 p = D3DXVec3Transform({x[i], y[i], z[i]}, m) + move;
      blockX[i] = p.x;
      blockY[i] = p.y;
      blockZ[i] = p.z;
    }
    std::copy_n(blockX, count, to.x + first);
    std::copy_n(blockY, count, to.y + first);
    std::copy_n(blockZ, count, to.z + first);
  }
}

// Runs also with values of zero (and then adds nothing), which makes directions
// that were not drawn the same as directions times zero.
void applyDisperse(const Positions& p, const VectorStreams& directions, Vec3 values) {
  constexpr float kSliderUnits = 200.0F;
  if (directions.size() < p.count) {
    return;
  }
  const Vec3 reach{values.x / kSliderUnits, values.y / kSliderUnits, values.z / kSliderUnits};
  for (std::size_t i = 0; i < p.count; ++i) {
    p.x[i] += reach.x * directions.x[i];
    p.y[i] += reach.y * directions.y[i];
    p.z[i] += reach.z * directions.z[i];
  }
}

void applyPinchA(const Positions& p, Vec3 values) {
  const auto [a, b, c] = inHundredths(values);
  for (std::size_t i = 0; i < p.count; ++i) {
    p.x[i] -= a * p.y[i] * p.x[i];
    p.y[i] -= b * p.x[i] * p.y[i];
    p.z[i] -= c * p.y[i] * p.z[i];
  }
}

void applyPinchB(const Positions& p, Vec3 values) {
  const auto [a, b, c] = inHundredths(values);
  for (std::size_t i = 0; i < p.count; ++i) {
    p.x[i] -= a * p.z[i] * p.x[i];
    p.y[i] -= b * p.z[i] * p.y[i];
    p.z[i] -= c * p.x[i] * p.z[i];
  }
}

// One pass of Taper: two coordinates shrink with the third.
void taperAlong(const float* along, float* first, float* second, std::size_t count, float value) {
  if (value == 0.0F) {
    return;
  }
  const float t = value / kPercent;
  for (std::size_t i = 0; i < count; ++i) {
    const float s = t * along[i];
    first[i] -= s * first[i];
    second[i] -= s * second[i];
  }
}

void applyTaper(const Positions& p, Vec3 values) {
  taperAlong(p.x, p.y, p.z, p.count, values.x);
  taperAlong(p.y, p.x, p.z, p.count, values.y);
  taperAlong(p.z, p.y, p.x, p.count, values.z);
}

void applyShearA(const Positions& p, Vec3 values) {
  const auto [a, b, c] = inHundredths(values);
  for (std::size_t i = 0; i < p.count; ++i) {
    p.y[i] -= b * p.x[i];
    p.x[i] -= a * p.z[i];
    p.z[i] -= c * p.x[i];
  }
}

void applyShearB(const Positions& p, Vec3 values) {
  const auto [a, b, c] = inHundredths(values);
  for (std::size_t i = 0; i < p.count; ++i) {
    p.y[i] -= b * p.z[i];
    p.x[i] -= a * p.y[i];
    p.z[i] -= c * p.y[i];
  }
}

// Each vertex is turned about x, y and z by its own angles; `driver` gives the
// coordinates that the three angles follow.
template <class Driver>
void turnEach(const Positions& p, Vec3 degreesPerUnit, Driver driver) {
  for (std::size_t i = 0; i < p.count; ++i) {
    const Vec3 position{p.x[i], p.y[i], p.z[i]};
    const Vec3 along = driver(position);
    const Matrix4 x = D3DXMatrixRotationX(toRadians(degreesPerUnit.x * along.x));
    const Matrix4 y = D3DXMatrixRotationY(toRadians(degreesPerUnit.y * along.y));
    const Matrix4 z = D3DXMatrixRotationZ(toRadians(degreesPerUnit.z * along.z));
    const Vec3 turned =
        D3DXVec3Transform(position, D3DXMatrixMultiply(D3DXMatrixMultiply(x, y), z));
    p.x[i] = turned.x;
    p.y[i] = turned.y;
    p.z[i] = turned.z;
  }
}

void applyBend(const Positions& p, Vec3 values) {
  turnEach(p, values, [](Vec3 v) { return Vec3{v.y, v.z, v.y}; });
}

void applyTwist(const Positions& p, Vec3 values) {
  turnEach(p, values, [](Vec3 v) { return v; });
}

// One pass of Bulge: two coordinates grow where the third is within 2 of zero.
void bulgeAlong(const float* along, float* first, float* second, std::size_t count, float amount) {
  for (std::size_t i = 0; i < count; ++i) {
    const float f = 2.0F - std::fabs(along[i]);
    first[i] += amount * f * first[i];
    second[i] += amount * f * second[i];
  }
}

void applyBulge(const Positions& p, Vec3 values) {
  const auto [a, b, c] = inHundredths(values);
  bulgeAlong(p.x, p.y, p.z, p.count, a);
  bulgeAlong(p.y, p.x, p.z, p.count, b);
  bulgeAlong(p.z, p.y, p.x, p.count, c);
}

struct Step {
  ModifierKind kind;
  void (*apply)(const Positions&, Vec3);
};

// In the order of application. Each is left out while its values are all zero.
constexpr Step kSteps[] = {
    {ModifierKind::PinchA, applyPinchA}, {ModifierKind::PinchB, applyPinchB},
    {ModifierKind::Taper, applyTaper},   {ModifierKind::ShearA, applyShearA},
    {ModifierKind::ShearB, applyShearB}, {ModifierKind::Bend, applyBend},
    {ModifierKind::Twist, applyTwist},   {ModifierKind::Bulge, applyBulge},
};

Positions firstPositions(MeshSlot& slot, std::size_t count) {
  VectorStreams& p = slot.position;
  return {p.x.data(), p.y.data(), p.z.data(), count < p.size() ? count : p.size()};
}

}  // namespace

// The yaw is 360 less the angle, not its negative: at zero it differs from the
// identity in the last place, and pictures depend on that.
Matrix4 modifierMatrix(Vec3 rotation, Vec3 scale) {
  return D3DXMatrixMultiply(
      D3DXMatrixScaling(scale.x, scale.y, scale.z),
      D3DXMatrixRotationYawPitchRoll(toRadians(360.0F - rotation.y), toRadians(-rotation.x),
                                     toRadians(-rotation.z)));
}

void applyVertexModifiers(ShapeMesh& mesh, const ModifierTable& values, std::size_t count) {
  MeshSlot* slot = mesh.current();
  if (slot == nullptr) {
    return;
  }
  const Positions positions = firstPositions(*slot, count);
  transformPositions(
      slot->base, positions,
      modifierMatrix(values[ModifierKind::VertexRotate], values[ModifierKind::VertexScale]),
      values[ModifierKind::VertexMove]);
  applyDisperse(positions, slot->disperse, values[ModifierKind::VertexDisperse]);
  for (const Step& step : kSteps) {
    if (!isZero(values[step.kind])) {
      step.apply(positions, values[step.kind]);
    }
  }
}

void applyShapeTransform(ShapeMesh& mesh, const ModifierTable& values, std::size_t count) {
  MeshSlot* slot = mesh.current();
  if (slot == nullptr) {
    return;
  }
  transformPositions(
      slot->position, firstPositions(*slot, count),
      modifierMatrix(values[ModifierKind::ShapeRotate], values[ModifierKind::ShapeScale]),
      values[ModifierKind::ShapeMove]);
}

void ApplyModifiers(ShapeMesh& mesh, const ModifierTable& values, const DuplicateStep& step,
                    DuplicateFlags flags) {
  const MeshSlot* slot = mesh.current();
  if (slot == nullptr) {
    return;
  }
  const std::size_t all = slot->position.size();
  const auto instances = static_cast<std::size_t>(effectiveCopies(step.copies)) + 1;
  if (flags.applyModifiersGlobally || instances == 1 || all % instances != 0) {
    applyVertexModifiers(mesh, values, all);
    applyShapeTransform(mesh, values, all);
    return;
  }
  // The copies are overwritten by the first instance, so it alone is shaped.
  const std::size_t each = all / instances;
  applyVertexModifiers(mesh, values, each);
  if (flags.useWorldAxis) {
    applyShapeTransform(mesh, values, each);
    ReplicateModifiedInstance(mesh, step);
  } else {
    ReplicateModifiedInstance(mesh, step);
    applyShapeTransform(mesh, values, all);
  }
}

}  // namespace pv
