#include "cli/shape_mesh_build.h"

#include <algorithm>
#include <cstdint>

#include "shape/shape_mesh.h"

namespace pv {

namespace {

constexpr std::int64_t kTooMany = kMaxMeshVertices + 1;

// Amounts come from files unchecked; saturating each factor keeps products small.
std::int64_t pointsFor(std::int32_t sections, std::int64_t most) {
  return std::clamp<std::int64_t>(std::int64_t{sections} + 1, 0, most);
}

// Vertices that the shape asks for; above the limit only the fact is exact.
std::int64_t askedVertices(const ShapeRecord& shape) {
  const EmitterSettings& emitter = shape.emitter;
  const std::int64_t columns = pointsFor(emitter.verticalAmount, kTooMany);
  const std::int64_t instances = std::int64_t{effectiveCopies(emitter.copies)} + 1;
  switch (emitter.kind) {
    case EmitterKind::Point:
      return instances;
    case EmitterKind::GridPatch:
      return pointsFor(emitter.horizontalAmount, kTooMany) * columns * instances;
    case EmitterKind::SpherePatch:
      return pointsFor(emitter.horizontalAmount, kMaxPathPoints) * columns * instances;
    case EmitterKind::LoftPath:
    case EmitterKind::SweepPath:
      return shape.path.count * columns * instances;
  }
  return 0;
}

bool isComplete(const MeshSlot& slot) {
  const auto size = static_cast<std::size_t>(std::max(slot.vertexCount, 0));
  const auto lines = static_cast<std::size_t>(std::max(slot.lineCount, 0));
  return slot.base.size() == size && slot.position.size() == size &&
         (size == 0 || slot.lines.size() == lines);
}

}  // namespace

std::optional<std::string> meshFault(const ShapeRecord& shape) {
  const auto kind = static_cast<std::int32_t>(shape.emitter.kind);
  if (!isEmitterKind(kind)) {
    return "emitter.kind " + std::to_string(kind) + " is unknown";
  }
  if (askedVertices(shape) > kMaxMeshVertices) {
    return "the mesh would have more than " + std::to_string(kMaxMeshVertices) + " vertices";
  }
  return {};
}

bool isEmptyMesh(const ShapeRecord& shape) {
  return askedVertices(shape) == 0;
}

bool giveShape(ShapeView& view, const ShapeRecord& shape, const std::string& file, CliRun& run) {
  if (const auto fault = meshFault(shape)) {
    run.fail(ExitStatus::BadData, file + ": " + *fault);
    return false;
  }
  if (isEmptyMesh(shape)) {
    run.note(file, "the shape has no vertices");
  }
  view.setShape(shape);
  return true;
}

namespace {

bool lacksMemory(const std::string& file, CliRun& run) {
  run.fail(ExitStatus::BadData, file + ": there is not enough memory for the mesh");
  return false;
}

}  // namespace

bool checkMesh(const ShapeView& view, const std::string& file, CliRun& run) {
  const MeshSlot* slot = view.mesh().current();
  return (slot != nullptr && (isComplete(*slot) || isEmptyMesh(view.shape()))) ||
         lacksMemory(file, run);
}

bool checkFrame(const ShapeView& view, const std::string& file, CliRun& run) {
  return static_cast<std::int64_t>(view.drawnVertices()) == askedVertices(view.shape()) ||
         lacksMemory(file, run);
}

}  // namespace pv
