#include "shape/duplicates.h"

#include <algorithm>

#include "math/scalar.h"
#include "shape/vertex_kernels.h"

namespace pv {

namespace {

constexpr float kSliderUnits = 200.0F;

Vec3 inUnits(const std::array<float, 3>& slider) {
  return {slider[0] / kSliderUnits, slider[1] / kSliderUnits, slider[2] / kSliderUnits};
}

// The streams may be the same ones: a block is read before it is written.
void transformRange(const VectorStreams& from, VectorStreams& to, std::size_t count,
                    std::size_t target, const InstanceTransform& transform) {
  VertexBlock block;
  for (std::size_t first = 0; first < count; first += VertexBlock::kCapacity) {
    const std::size_t size = std::min(VertexBlock::kCapacity, count - first);
    loadVertices(from, first, size, block);
    transformVertices(block, size, transform.matrix, transform.offset);
    storeVertices(block, target + first, size, to);
  }
}

}  // namespace

DuplicateStep duplicateStep(const EmitterSettings& emitter, const DuplicateSettings& duplicates) {
  const auto& degrees = duplicates.rotation;
  return {emitter.copies,
          inUnits(duplicates.position),
          inUnits(duplicates.scale),
          {truncate(degrees[0]), truncate(degrees[1]), truncate(degrees[2])}};
}

InstanceTransform instanceTransform(const DuplicateStep& step, std::int32_t k) {
  const auto turn = [&](std::size_t axis) {
    return toRadians(static_cast<float>(std::int64_t{k} * step.rotation[axis]));
  };
  const auto factor = static_cast<float>(k);
  const Matrix4 rotation = D3DXMatrixRotationYawPitchRoll(turn(1), turn(0), turn(2));
  const Matrix4 scale = D3DXMatrixScaling(
      1.0F + factor * step.scale.x, 1.0F + factor * step.scale.y, 1.0F + factor * step.scale.z);
  return {D3DXMatrixMultiply(scale, rotation),
          {factor * step.position.x, factor * step.position.y, factor * step.position.z}};
}

void DuplicateShape(ShapeMesh& mesh, const DuplicateStep& step) {
  const std::int32_t copies = effectiveCopies(step.copies);
  MeshSlot* slot = mesh.current();
  if (copies == 0 || slot == nullptr) {
    return;
  }
  const std::size_t vertices = slot->base.size();
  const std::int64_t instances = std::int64_t{copies} + 1;
  const bool hasVertices = mesh.allocateVertices(instances * slot->vertexCount) && vertices > 0;
  mesh.setLines(instances * slot->lineCount, instances);
  if (!hasVertices) {
    slot->base.clear();
    slot->position.clear();
    slot->lines.clear();
    return;
  }
  for (std::int32_t k = 1; k <= copies; ++k) {
    transformRange(slot->base, slot->base, vertices, static_cast<std::size_t>(k) * vertices,
                   instanceTransform(step, k));
  }
}

void ReplicateModifiedInstance(ShapeMesh& mesh, const DuplicateStep& step) {
  const std::int32_t copies = effectiveCopies(step.copies);
  MeshSlot* slot = mesh.current();
  if (copies == 0 || slot == nullptr) {
    return;
  }
  const std::size_t each = slot->position.size() / (static_cast<std::size_t>(copies) + 1);
  for (std::int32_t k = 1; k <= copies; ++k) {
    transformRange(slot->position, slot->position, each, static_cast<std::size_t>(k) * each,
                   instanceTransform(step, k));
  }
}

}  // namespace pv
