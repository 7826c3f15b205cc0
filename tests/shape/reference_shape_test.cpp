#include "reference/reference_shape.h"

#include <gtest/gtest.h>
#include <span>
#include <vector>

#include "reference/comparison.h"
#include "reference/random_shapes.h"
#include "shape/generation.h"
#include "shape/modifiers.h"

namespace pv {
namespace {

/// Runs one shape through generation and modifiers, by both roads.
struct Both {
  explicit Both(const ShapeRecord& shape) : record(shape) {
    mesh.SetProfile(std::span(shape.path.points).first(static_cast<std::size_t>(shape.path.count)));
    reference::Random plain;
    wanted = reference::generateShape(shape, plain);
    GenerateShape(mesh, shape.emitter, shape.duplicates, random);
    EXPECT_EQ(reference::firstDifference(mesh, wanted, {.positions = false}), "")
        << reference::describe(shape);
    modify();
  }
  void modify() {
    reference::applyModifiers(wanted, record);
    ApplyModifiers(mesh, toTable(record.modifiers, record.duplicates.bulge),
                   duplicateStep(record.emitter, record.duplicates),
                   {record.applyModifiersGlobally != 0, record.useWorldAxis != 0});
    EXPECT_EQ(reference::firstDifference(mesh, wanted, {}), "") << reference::describe(record);
  }
  [[nodiscard]] const MeshSlot& slot() const { return *mesh.current(); }
  [[nodiscard]] std::size_t count() const { return slot().base.size(); }
  [[nodiscard]] Vec3 base(std::size_t i) const { return slot().base.at(i); }
  [[nodiscard]] Vec3 position(std::size_t i) const { return slot().position.at(i); }

  ShapeRecord record;
  ShapeMesh mesh;
  CRandSequence random;
  reference::Mesh wanted;
};

void expectNear(Vec3 actual, Vec3 wanted) {
  for (int axis = 0; axis < 3; ++axis) {
    EXPECT_NEAR(actual.axis(axis), wanted.axis(axis), 1e-6F) << "axis " << axis;
  }
}

ShapeRecord shapeOf(EmitterKind kind) {
  ShapeRecord shape;
  shape.emitter.kind = kind;
  return shape;
}

/// A sphere patch with its arc in the plane z = 0.
ShapeRecord sphere(std::int32_t amount, std::int32_t start, std::int32_t extent) {
  ShapeRecord shape = shapeOf(EmitterKind::SpherePatch);
  shape.emitter.horizontalAmount = amount;
  shape.emitter.horizontalSize = start;
  shape.emitter.horizontalEnd = extent;
  shape.emitter.horizontalCentre.set(false);
  shape.emitter.verticalAmount = 1;
  shape.emitter.verticalSize = 90;
  shape.emitter.verticalCentre.set(false);
  return shape;
}

/// One vertex at `p`, put there by a path of one point and no sections.
ShapeRecord onePoint(Vec3 p) {
  ShapeRecord shape = shapeOf(EmitterKind::LoftPath);
  shape.path.count = 1;
  shape.path.points[0] = p;
  shape.emitter.verticalAmount = 0;
  return shape;
}

Vec3 modified(Vec3 p, ModifierKind kind, Vec3 value) {
  ShapeRecord shape = onePoint(p);
  ModifierTable table;
  table[kind] = value;
  shape.modifiers = toFileOrder(table);
  shape.duplicates.bulge = bulgeOf(table);
  return Both(shape).position(0);
}

TEST(ReferenceShape, RandomShapesAreEqualToTheLastBit) {
  reference::Dice dice(20);
  for (int i = 0; i < 800 && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const auto taste = i % 2 == 0 ? reference::Taste::Useful : reference::Taste::Wild;
    Both both(reference::randomShape(dice, taste));
    // Other values on the same mesh, as a view does it between generations.
    const ShapeRecord next = reference::randomShape(dice, taste);
    both.record.modifiers = next.modifiers;
    both.record.applyModifiersGlobally = next.applyModifiersGlobally;
    both.record.useWorldAxis = next.useWorldAxis;
    both.modify();
  }
}

TEST(ReferenceShape, DirectionsContinueOneSequenceOverGenerations) {
  reference::Dice dice(21);
  ShapeMesh mesh;
  CRandSequence random;
  reference::Random plain;
  for (int i = 0; i < 60; ++i) {
    ShapeRecord shape = reference::randomShape(dice, reference::Taste::Useful);
    if (i % 10 == 9) {
      shape.emitter.kind = static_cast<EmitterKind>(5 + i);
    }
    mesh.SetProfile(std::span(shape.path.points).first(static_cast<std::size_t>(shape.path.count)));
    const reference::Mesh wanted = reference::generateShape(shape, plain);
    const bool skip = i % 3 == 1;
    GenerateShape(mesh, shape.emitter, shape.duplicates, random,
                  skip ? Directions::SkipOnly : Directions::Draw);
    ASSERT_EQ(reference::firstDifference(mesh, wanted, {.directions = !skip, .positions = false}),
              "")
        << i << '\n'
        << reference::describe(shape);
  }
}

TEST(ReferenceShape, GridPatch) {
  ShapeRecord shape = shapeOf(EmitterKind::GridPatch);
  shape.emitter.horizontalAmount = 2;
  shape.emitter.horizontalSize = 500;
  shape.emitter.verticalAmount = 1;
  shape.emitter.verticalSize = 1000;
  shape.emitter.verticalCentre.set(false);
  const Both both(shape);
  const std::vector<Vec3> wanted{{0, 0.5F, 0},  {0, 0, 0},  {0, -0.5F, 0},
                                 {0, 0.5F, -1}, {0, 0, -1}, {0, -0.5F, -1}};
  ASSERT_EQ(both.count(), wanted.size());
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    EXPECT_EQ(both.base(i), wanted[i]) << i;
    expectNear(both.position(i), wanted[i]);
  }
  const std::vector<ShapeLine> lines{{0, 1}, {1, 2}, {3, 4}, {4, 5}, {0, 3}, {1, 4}, {2, 5}};
  ASSERT_EQ(both.slot().lines.size(), lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(both.slot().lines[i], lines[i]) << i;
  }
}

TEST(ReferenceShape, SphereArcs) {
  const Both half(sphere(2, 0, 180));
  expectNear(half.base(0), {0, 0.5F, 0});
  expectNear(half.base(1), {0.5F, 0, 0});
  expectNear(half.base(2), {0, -0.5F, 0});

  const Both cut(sphere(2, 150, 90));  // 150 to 180 degrees
  expectNear(cut.base(0), {0.25F, -0.4330127F, 0});
  expectNear(cut.base(2), {0, -0.5F, 0});

  ShapeRecord centred = sphere(1, 0, 45);  // 68 to 113 degrees
  centred.emitter.horizontalCentre.set(true);
  expectNear(Both(centred).base(0), {0.4635919F, 0.1873033F, 0});
  expectNear(Both(centred).base(1), {0.4602524F, -0.1953656F, 0});

  const Both longArc(sphere(600, 0, 180));
  EXPECT_EQ(longArc.mesh.ProfileCount(), 512);
  EXPECT_EQ(longArc.count(), 1024U);
}

TEST(ReferenceShape, SphereAndSweepTurnOppositeWays) {
  const ShapeRecord ball = sphere(2, 30, 90);
  ShapeRecord sweep = ball;
  sweep.emitter.kind = EmitterKind::SweepPath;
  const Both one(ball);
  sweep.path.count = 3;
  for (std::size_t i = 0; i < 3; ++i) {
    sweep.path.points[i] = one.base(i);
  }
  const Both other(sweep);
  for (std::size_t i = 3; i < 6; ++i) {
    expectNear(other.base(i), {one.base(i).x, one.base(i).y, -one.base(i).z});
    EXPECT_LT(one.base(i).z, -0.1F);
  }
}

TEST(ReferenceShape, ModifierFormulas) {
  using enum ModifierKind;
  expectNear(modified({1, 1, 2}, PinchA, {0, 0, 100}), {1, 1, 0});
  expectNear(modified({0.5F, 1, 1}, Taper, {100, 0, 0}), {0.5F, 0.5F, 0.5F});
  expectNear(modified({0, 0, 1}, ShearB, {100, 100, 0}), {1, -1, 1});
  expectNear(modified({0, 1, 1}, Bulge, {100, 0, 0}), {0, 3, 3});
  expectNear(modified({2, 1, 1}, Bulge, {100, 0, 0}), {2, 1, 1});
  // A positive angle turns +y to -z, +z to -x and +x to -y.
  expectNear(modified({0, 1, 0}, VertexRotate, {90, 0, 0}), {0, 0, -1});
  expectNear(modified({0, 0, 1}, VertexRotate, {0, 90, 0}), {-1, 0, 0});
  expectNear(modified({1, 0, 0}, ShapeRotate, {0, 0, 90}), {0, -1, 0});
  // Bend follows y for x and z, but z for y.
  expectNear(modified({1, 2, 0}, Bend, {0, 0, 45}), {-2, 1, 0});
  expectNear(modified({1, 2, 0}, Bend, {0, 45, 0}), {1, 2, 0});
  expectNear(modified({1, 2, 0}, Twist, {90, 0, 0}), {1, 0, 2});
}

TEST(ReferenceShape, Duplicates) {
  ShapeRecord shape = onePoint({1, 0, 0});
  shape.emitter.copies = 2;
  shape.duplicates.position = {200, 0, 0};
  const Both moved(shape);
  ASSERT_EQ(moved.count(), 3U);
  expectNear(moved.base(1), {2, 0, 0});
  expectNear(moved.base(2), {3, 0, 0});

  shape.duplicates.position = {};
  shape.duplicates.rotation = {0, 90, 0};
  shape.duplicates.scale = {200, 0, 0};
  const Both turned(shape);
  expectNear(turned.base(1), {0, 0, -2});
  expectNear(turned.base(2), {-3, 0, 0});

  shape.emitter.copies = 1;
  shape.duplicates.rotation = {};
  shape.duplicates.scale = {};
  const Both twin(shape);
  ASSERT_EQ(twin.count(), 2U);
  EXPECT_EQ(twin.base(1), twin.base(0));

  for (const std::int32_t copies : {-1, 0, 21}) {
    shape.emitter.copies = copies;
    EXPECT_EQ(Both(shape).count(), 1U) << copies;
  }
}

TEST(ReferenceShape, CopiesTurnAboutTheShapeOrTheWorld) {
  ShapeRecord shape = onePoint({0, 0, 0});
  shape.emitter.copies = 1;
  shape.duplicates.position = {};
  shape.duplicates.rotation = {0, 180, 0};
  ModifierTable table;
  table[ModifierKind::ShapeMove] = {1, 0, 0};
  shape.modifiers = toFileOrder(table);
  expectNear(Both(shape).position(1), {1, 0, 0});
  shape.useWorldAxis = 1;
  expectNear(Both(shape).position(0), {1, 0, 0});
  expectNear(Both(shape).position(1), {-1, 0, 0});
  shape.applyModifiersGlobally = 1;
  expectNear(Both(shape).position(1), {1, 0, 0});
}

}  // namespace
}  // namespace pv
