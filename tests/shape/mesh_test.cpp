#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <thread>

#include "shape/generation.h"
#include "shape/modifiers.h"
#include "shape/random_directions.h"
#include "shape/shape_record.h"

namespace pv {
namespace {

constexpr std::int32_t kHuge = std::numeric_limits<std::int32_t>::max();

EmitterSettings emitterOf(EmitterKind kind, std::int32_t across, std::int32_t along) {
  EmitterSettings emitter;
  emitter.kind = kind;
  emitter.horizontalAmount = across;
  emitter.verticalAmount = along;
  return emitter;
}

TEST(RandomSequence, IsTheLibrarysUnseededOne) {
  std::srand(1);
  CRandSequence random;
  for (int i = 0; i < 1'000'000; ++i) {
    ASSERT_EQ(random.next(), std::rand()) << "draw " << i;
  }
}

#ifdef _WIN32
// There each thread has a sequence of its own, which nobody has to begin.
TEST(RandomSequence, AThreadsOwnBeginsAlike) {
  CRandSequence random;
  int differing = 0;
  std::thread([&] {
    for (int i = 0; i < 1000; ++i) {
      differing += random.next() == std::rand() ? 0 : 1;
    }
  }).join();
  EXPECT_EQ(differing, 0);
}
#endif

TEST(RandomSequence, JumpsOverAnyNumberOfDraws) {
  CRandSequence walked;
  std::uint64_t at = 0;
  for (const std::uint64_t distance : {1U, 30U, 31U, 3999U, 4000U, 4001U, 100'000U, 3'000'017U}) {
    for (std::uint64_t i = 0; i < distance; ++i) {
      static_cast<void>(walked.next());
    }
    at += distance;
    CRandSequence jumped;
    jumped.skip(at / 2);
    jumped.skip(at - at / 2);
    CRandSequence copy = walked;
    for (int i = 0; i < 70; ++i) {
      ASSERT_EQ(jumped.next(), copy.next()) << "after " << at;
    }
  }
}

TEST(RandomSequence, DirectionsFollowItInLanesToo) {
  for (const std::size_t count : {8191U, 8192U, 70'001U, 600'005U}) {
    VectorStreams directions;
    CRandSequence random;
    CRandSequence walked;
    random.skip(5);
    walked.skip(5);
    WorkShare share(3);
    drawDirections(directions, count, random, share);
    const auto component = [&] {
      const float a = static_cast<float>(walked.next() % 100001) / 100000.0F;
      return a - static_cast<float>(walked.next() % 100001) / 100000.0F;
    };
    for (std::size_t i = 0; i < count; ++i) {
      const float x = component();
      const float y = component();
      const Vec3 wanted{x, y, component()};
      ASSERT_EQ(directions.at(i), wanted) << i << " of " << count;
    }
    ASSERT_EQ(random.next(), walked.next()) << count;
  }
}

TEST(Mesh, SlotsAreBegunAndFreed) {
  ShapeMesh mesh;
  EXPECT_EQ(mesh.current(), nullptr);
  mesh.BeginMesh();
  mesh.BeginMesh();
  mesh.BeginMesh();  // there are two slots
  EXPECT_EQ(mesh.slotCount(), 2);
  EXPECT_EQ(mesh.currentSlot(), 1);
  mesh.FreeMesh(2);
  mesh.FreeMesh(-1);
  EXPECT_EQ(mesh.slotCount(), 2);
  mesh.FreeMesh(0);
  EXPECT_EQ(mesh.currentSlot(), 1);
  mesh.FreeMesh(0);
  EXPECT_EQ(mesh.currentSlot(), -1);
  EXPECT_EQ(mesh.current(), nullptr);
}

TEST(Mesh, WiresJoinNeighboursWithinOneInstance) {
  const std::uint32_t rows = 6;
  EmitterSettings emitter = emitterOf(EmitterKind::GridPatch, 5, 4);
  emitter.copies = 3;
  ShapeMesh mesh;
  CRandSequence random;
  GenerateShape(mesh, emitter, {}, random);
  const MeshSlot& slot = *mesh.current();
  ASSERT_EQ(slot.vertexCount, 6 * 5 * 4);
  ASSERT_EQ(slot.lineCount, (5 * 5 + 4 * 6) * 4);
  std::vector<int> degree(slot.base.size());
  for (const ShapeLine& line : slot.lines) {
    ASSERT_LT(line.second, slot.base.size());
    ASSERT_EQ(line.first / 30, line.second / 30);
    const std::uint32_t step = line.second - line.first;
    ASSERT_TRUE(step == rows || (step == 1 && line.first % rows != rows - 1));
    ++degree[line.first];
    ++degree[line.second];
  }
  EXPECT_EQ(degree[0], 2);         // a corner
  EXPECT_EQ(degree[1], 3);         // an edge
  EXPECT_EQ(degree[rows + 1], 4);  // inside
}

TEST(Mesh, CopiesOfCopiesAddTheirSteps) {
  EmitterSettings emitter = emitterOf(EmitterKind::GridPatch, 1, 1);
  DuplicateSettings steps;
  steps.position = {40, 20, -10};
  const auto distanceOfLast = [&](std::int32_t copies) {
    emitter.copies = copies;
    ShapeMesh mesh;
    CRandSequence random;
    GenerateShape(mesh, emitter, steps, random);
    const VectorStreams& base = mesh.current()->base;
    return base.at(base.size() - 4) - base.at(0);
  };
  EXPECT_NEAR(distanceOfLast(20).x, 4.0F, 1e-5F);
  EXPECT_NEAR(distanceOfLast(20).z, -1.0F, 1e-5F);
  EXPECT_EQ(distanceOfLast(21), Vec3{});  // 21 is more than duplication takes
  EXPECT_EQ(distanceOfLast(-1), Vec3{});
}

TEST(Mesh, ImpossibleAmountsBuildNothing) {
  const std::pair<std::int32_t, std::int32_t> amounts[] = {
      {-1, 5},        {5, -1},    {-5, -5},
      {kHuge, kHuge}, {kHuge, 1}, {std::numeric_limits<std::int32_t>::min(), 3}};
  for (const auto kind : {EmitterKind::GridPatch, EmitterKind::LoftPath}) {
    for (const auto& [across, along] : amounts) {
      EmitterSettings emitter = emitterOf(kind, across, along);
      emitter.horizontalSize = kHuge;
      emitter.verticalSize = std::numeric_limits<std::int32_t>::min();
      emitter.copies = 20;
      ShapeMesh mesh;
      CRandSequence random;
      EXPECT_EQ(GenerateShape(mesh, emitter, {}, random), 0U);
      ApplyModifiers(mesh, {}, duplicateStep(emitter, {}), {});
      EXPECT_EQ(mesh.current()->position.size(), 0U);
      EXPECT_TRUE(mesh.current()->lines.empty());
    }
  }
}

TEST(Mesh, LimitsAndClampsHold) {
  ShapeMesh mesh;
  CRandSequence random;
  // An arc is as long as a profile may be, whatever the amount.
  GenerateShape(mesh, emitterOf(EmitterKind::SpherePatch, 700, 1), {}, random);
  EXPECT_EQ(mesh.ProfileCount(), kMaxPathPoints);
  EXPECT_EQ(mesh.current()->base.size(), 1024U);
  mesh.setVertexLimit(100);
  GenerateShape(mesh, emitterOf(EmitterKind::GridPatch, 9, 9), {}, random);
  EXPECT_EQ(mesh.current()->base.size(), 100U);
  GenerateShape(mesh, emitterOf(EmitterKind::GridPatch, 100, 0), {}, random);
  EXPECT_EQ(mesh.current()->base.size(), 0U);
  EXPECT_EQ(mesh.current()->vertexCount, 101);
  // An unknown kind leaves no mesh, not even the one before.
  GenerateShape(mesh, emitterOf(static_cast<EmitterKind>(5), 2, 2), {}, random);
  EXPECT_EQ(mesh.current(), nullptr);
}

TEST(Modifiers, ResetsAndTablesAgree) {
  ModifierSet set;
  for (std::int32_t i = 0; i < kModifierCount; ++i) {
    const auto kind = static_cast<ModifierKind>(i);
    EXPECT_EQ(traits(kind).kind, kind) << "row " << i;
    EXPECT_EQ(modifierByKey(traits(kind).key), kind);
    set.values[kind] = {3, 4, 5};
  }
  EXPECT_EQ(toTable(toFileOrder(set.values), bulgeOf(set.values)), set.values);
  SelectModifier(set, ModifierKind::VertexScale);
  ResetSelectedModifier(set);
  EXPECT_EQ(set.values[ModifierKind::VertexScale], (Vec3{1, 1, 1}));
  EXPECT_EQ(set.values[ModifierKind::Twist], (Vec3{3, 4, 5}));
  ResetAllModifiers(set);
  EXPECT_EQ(set.values, ModifierTable());
  EXPECT_EQ(set.selected, ModifierKind::VertexScale);
  SelectModifier(set, static_cast<ModifierKind>(15));
  EXPECT_EQ(set.selected, ModifierKind::None);
}

TEST(Record, CountsAsThePageShowsThem) {
  EmitterSettings emitter = emitterOf(EmitterKind::Point, 10, 10);
  emitter.copies = 5;
  EXPECT_EQ(totalEmitterCount(emitter), 1);
  emitter.kind = EmitterKind::GridPatch;
  EXPECT_EQ(totalEmitterCount(emitter), 11 * 11 * 6);
  emitter.kind = EmitterKind::SweepPath;
  emitter.pathPointCount = 7;
  EXPECT_EQ(totalEmitterCount(emitter), 8 * 11 * 6);
  emitter.copies = 21;
  EXPECT_EQ(totalEmitterCount(emitter), 8 * 11 * 22);
  emitter = emitterOf(EmitterKind::GridPatch, kHuge, kHuge);
  emitter.copies = kHuge;
  static_cast<void>(totalEmitterCount(emitter));  // must not trap
}

}  // namespace
}  // namespace pv
