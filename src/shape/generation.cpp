#include "shape/generation.h"

#include <algorithm>
#include <array>
#include <limits>

#include "math/matrix4.h"
#include "math/scalar.h"
#include "shape/duplicates.h"
#include "shape/random_directions.h"
#include "shape/sections.h"

namespace pv {

namespace {

constexpr float kThousandths = 1000.0F;

void BuildPoint(ShapeMesh& mesh) {
  mesh.BeginMesh();
  mesh.ClearProfile();
  if (mesh.allocateVertices(1)) {
    mesh.current()->base.set(0, {});
    mesh.current()->rows = 1;
    mesh.current()->columns = 1;
  }
}

void BuildGridPatch(ShapeMesh& mesh, const EmitterSettings& emitter) {
  mesh.BeginMesh();
  mesh.ClearProfile();
  const std::int32_t amount = emitter.horizontalAmount;
  const float height = static_cast<float>(emitter.horizontalSize) / kThousandths;
  const float top =
      emitter.horizontalCentre.isSet() ? static_cast<float>(amount) * height / 2.0F : 0.0F;
  const auto columnPoint = [=](std::int64_t i) {
    return Vec3{0.0F, top - static_cast<float>(i) * height, 0.0F};
  };
  extrude(mesh, std::int64_t{amount} + 1, columnPoint, emitter.verticalAmount,
          static_cast<float>(emitter.verticalSize) / kThousandths, emitter.verticalCentre.isSet());
}

// An arc of radius 0.5 from `start` degrees below the upper pole, towards +x.
void BuildSpherePatch(ShapeMesh& mesh, const EmitterSettings& emitter) {
  mesh.BeginMesh();
  mesh.ClearProfile();
  constexpr std::int64_t kLowerPole = 180;
  const std::int64_t count = std::int64_t{emitter.horizontalAmount} + 1;
  std::int64_t extent = emitter.horizontalEnd;
  std::int64_t start = emitter.horizontalSize;
  if (emitter.horizontalCentre.isSet()) {
    start = 90 - extent / 2;
  }
  if (start + extent >= kLowerPole) {
    extent = kLowerPole - start;
  }
  const float step = count == 1 ? 0.0F : static_cast<float>(extent) / static_cast<float>(count - 1);
  std::array<Vec3, kMaxPathPoints> arc;
  const auto points = static_cast<std::size_t>(std::clamp<std::int64_t>(count, 0, kMaxPathPoints));
  for (std::size_t i = 0; i < points; ++i) {
    const float angle = -(static_cast<float>(i) * step) - static_cast<float>(start);
    arc[i] = D3DXVec3Transform({0.0F, 0.5F, 0.0F}, D3DXMatrixRotationZ(toRadians(angle)));
  }
  mesh.SetProfile(std::span(arc).first(points));
  RotateProfile(mesh, emitter.verticalAmount, emitter.verticalSize, emitter.verticalCentre.isSet(),
                Turn::Sphere);
}

void BuildLoftPath(ShapeMesh& mesh, const EmitterSettings& emitter) {
  mesh.BeginMesh();
  ExtrudeProfile(mesh, mesh.profile(), emitter.verticalAmount,
                 static_cast<float>(emitter.verticalSize) / kThousandths,
                 emitter.verticalCentre.isSet());
}

void BuildSweepPath(ShapeMesh& mesh, const EmitterSettings& emitter) {
  mesh.BeginMesh();
  RotateProfile(mesh, emitter.verticalAmount, emitter.verticalSize, emitter.verticalCentre.isSet(),
                Turn::Sweep);
}

std::int32_t oneMore(std::int32_t amount) {
  return amount == std::numeric_limits<std::int32_t>::max() ? amount : amount + 1;
}

void buildByKind(ShapeMesh& mesh, const EmitterSettings& emitter) {
  switch (emitter.kind) {
    case EmitterKind::Point:
      BuildPoint(mesh);
      mesh.SetGrid(1, 1, emitter.copies);
      return;
    case EmitterKind::GridPatch:
      BuildGridPatch(mesh, emitter);
      mesh.SetGrid(emitter.verticalAmount, oneMore(emitter.horizontalAmount), emitter.copies);
      return;
    case EmitterKind::SpherePatch:
      BuildSpherePatch(mesh, emitter);
      mesh.SetGrid(emitter.verticalAmount, oneMore(emitter.horizontalAmount), emitter.copies);
      return;
    case EmitterKind::LoftPath:
      BuildLoftPath(mesh, emitter);
      mesh.SetGrid(emitter.verticalAmount, mesh.ProfileCount(), emitter.copies);
      return;
    case EmitterKind::SweepPath:
      BuildSweepPath(mesh, emitter);
      mesh.SetGrid(emitter.verticalAmount, mesh.ProfileCount(), emitter.copies);
      return;
  }
}

// A direction for every vertex of the current slot.
std::uint64_t drawOrSkip(ShapeMesh& mesh, CRandSequence& random, Directions directions) {
  MeshSlot* slot = mesh.current();
  const std::size_t vertices = slot == nullptr ? 0 : slot->base.size();
  if (vertices == 0) {
    return 0;
  }
  if (directions == Directions::SkipOnly) {
    slot->disperse.clear();
    random.skip(kDrawsPerVertex * vertices);
  } else {
    WorkShare alone(1);
    drawDirections(*slot, vertices, random, alone);
  }
  return kDrawsPerVertex * vertices;
}

}  // namespace

std::uint64_t GenerateShape(ShapeMesh& mesh, const EmitterSettings& emitter,
                            const DuplicateSettings& duplicates, CRandSequence& random,
                            Directions directions) {
  mesh.FreeMesh(0);
  buildByKind(mesh, emitter);
  std::uint64_t draws = 0;
  if (effectiveCopies(emitter.copies) > 0) {
    // The directions of the single shape are drawn anew for all instances, so
    // only their place in the sequence counts.
    draws = drawOrSkip(mesh, random, Directions::SkipOnly);
    DuplicateShape(mesh, duplicateStep(emitter, duplicates));
  }
  return draws + drawOrSkip(mesh, random, directions);
}

}  // namespace pv
