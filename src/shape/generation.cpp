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

/// Units from column to column, and how far the first one is moved back.
struct Extrusion {
  explicit Extrusion(const EmitterSettings& emitter)
      : width(static_cast<float>(emitter.verticalSize) / kThousandths),
        half(emitter.verticalCentre.isSet()
                 ? static_cast<float>(emitter.verticalAmount) * width / 2.0F
                 : 0.0F) {}
  float width;
  float half;
};

// Notes how many vertices and lines there will be, also when nothing can be
// built. True when there is something to build.
bool noteSize(ShapeMesh& mesh, std::int64_t count, std::int32_t sections) {
  const std::int64_t columns = std::int64_t{sections} + 1;
  const bool any = mesh.noteVertices(columns * count) && sections >= 0;  // not both negative
  if (any) {
    mesh.current()->rows = static_cast<std::size_t>(count);
    mesh.current()->columns = static_cast<std::size_t>(columns);
  }
  mesh.setLines(columns * (count - 1) + sections * count, 1);
  return any;
}

void BuildPoint(ShapeMesh& mesh, ShapeSections& sections) {
  mesh.BeginMesh();
  mesh.ClearProfile();
  if (noteSize(mesh, 1, 0)) {
    const Vec3 origin;
    sections.repeat({&origin, 1}, 0, ShapeSections::Spread::Extrude, 0.0F, 0.0F);
  }
}

void BuildGridPatch(ShapeMesh& mesh, const EmitterSettings& emitter, ShapeSections& sections) {
  mesh.BeginMesh();
  mesh.ClearProfile();
  const std::int32_t amount = emitter.horizontalAmount;
  const float height = static_cast<float>(emitter.horizontalSize) / kThousandths;
  const float top =
      emitter.horizontalCentre.isSet() ? static_cast<float>(amount) * height / 2.0F : 0.0F;
  const std::int64_t rows = std::int64_t{amount} + 1;
  if (noteSize(mesh, rows, emitter.verticalAmount)) {
    const Extrusion along(emitter);
    sections.repeatLine(static_cast<std::size_t>(rows), top, height, emitter.verticalAmount,
                        along.width, along.half);
  }
}

// Turns the mesh's profile about y.
void RotateProfile(ShapeMesh& mesh, const EmitterSettings& emitter, ShapeSections::Spread spread,
                   ShapeSections& sections) {
  const std::span<const Vec3> profile = mesh.profile();
  const std::int32_t amount = emitter.verticalAmount;
  if (noteSize(mesh, static_cast<std::int64_t>(profile.size()), amount)) {
    const auto angle = static_cast<float>(emitter.verticalSize);  // degrees
    const float step = amount == 0 ? 0.0F : angle / static_cast<float>(amount);
    sections.repeat(profile, amount, spread, step,
                    emitter.verticalCentre.isSet() ? angle / 2.0F : 0.0F);
  }
}

// An arc of radius 0.5 from `start` degrees below the upper pole, towards +x.
void BuildSpherePatch(ShapeMesh& mesh, const EmitterSettings& emitter, ShapeSections& sections) {
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
  RotateProfile(mesh, emitter, ShapeSections::Spread::Sphere, sections);
}

void BuildLoftPath(ShapeMesh& mesh, const EmitterSettings& emitter, ShapeSections& sections) {
  mesh.BeginMesh();
  const std::span<const Vec3> profile = mesh.profile();
  if (noteSize(mesh, static_cast<std::int64_t>(profile.size()), emitter.verticalAmount)) {
    const Extrusion along(emitter);
    sections.repeat(profile, emitter.verticalAmount, ShapeSections::Spread::Extrude, along.width,
                    along.half);
  }
}

void BuildSweepPath(ShapeMesh& mesh, const EmitterSettings& emitter, ShapeSections& sections) {
  mesh.BeginMesh();
  RotateProfile(mesh, emitter, ShapeSections::Spread::Sweep, sections);
}

std::int32_t oneMore(std::int32_t amount) {
  return amount == std::numeric_limits<std::int32_t>::max() ? amount : amount + 1;
}

void buildByKind(ShapeMesh& mesh, const EmitterSettings& emitter, ShapeSections& sections) {
  switch (emitter.kind) {
    case EmitterKind::Point:
      BuildPoint(mesh, sections);
      mesh.SetGrid(1, 1, emitter.copies);
      return;
    case EmitterKind::GridPatch:
      BuildGridPatch(mesh, emitter, sections);
      mesh.SetGrid(emitter.verticalAmount, oneMore(emitter.horizontalAmount), emitter.copies);
      return;
    case EmitterKind::SpherePatch:
      BuildSpherePatch(mesh, emitter, sections);
      mesh.SetGrid(emitter.verticalAmount, oneMore(emitter.horizontalAmount), emitter.copies);
      return;
    case EmitterKind::LoftPath:
      BuildLoftPath(mesh, emitter, sections);
      mesh.SetGrid(emitter.verticalAmount, mesh.ProfileCount(), emitter.copies);
      return;
    case EmitterKind::SweepPath:
      BuildSweepPath(mesh, emitter, sections);
      mesh.SetGrid(emitter.verticalAmount, mesh.ProfileCount(), emitter.copies);
      return;
  }
}

void fillBase(ShapeMesh& mesh, const ShapeSections& sections) {
  if (sections.vertices() == 0 ||
      !mesh.allocateVertices(static_cast<std::int64_t>(sections.vertices()))) {
    return;
  }
  VertexBlock block;
  for (std::size_t column = 0; column < sections.columns(); ++column) {
    for (std::size_t first = 0; first < sections.rows(); first += VertexBlock::kCapacity) {
      const std::size_t count = std::min(VertexBlock::kCapacity, sections.rows() - first);
      sections.vertices(column, first, count, {}, block.place());
      storeVertices(block, column * sections.rows() + first, count, mesh.current()->base);
    }
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
    drawDirections(slot->disperse, vertices, random, alone);
  }
  return kDrawsPerVertex * vertices;
}

}  // namespace

void beginShape(ShapeMesh& mesh, const EmitterSettings& emitter, ShapeSections& sections) {
  sections.clear();
  mesh.FreeMesh(0);
  buildByKind(mesh, emitter, sections);
}

std::uint64_t GenerateShape(ShapeMesh& mesh, const EmitterSettings& emitter,
                            const DuplicateSettings& duplicates, CRandSequence& random,
                            Directions directions) {
  ShapeSections sections;
  beginShape(mesh, emitter, sections);
  fillBase(mesh, sections);
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
