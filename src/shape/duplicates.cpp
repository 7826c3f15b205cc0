#include "shape/duplicates.h"

#include "math/scalar.h"

namespace pv {

namespace {

constexpr float kSliderUnits = 200.0F;

Vec3 inUnits(const std::array<float, 3>& slider) {
  return {slider[0] / kSliderUnits, slider[1] / kSliderUnits, slider[2] / kSliderUnits};
}

void transformRange(const VectorStreams& from, VectorStreams& to, std::size_t count,
                    std::size_t target, const InstanceTransform& transform) {
  for (std::size_t i = 0; i < count; ++i) {
    to.set(target + i, D3DXVec3Transform(from.at(i), transform.matrix) + transform.offset);
  }
}

void copyLines(MeshSlot& slot, std::size_t linesEach, std::uint32_t verticesEach,
               std::uint32_t copies) {
  for (std::uint32_t k = 1; k <= copies; ++k) {
    const ShapeLine* from = slot.lines.data();
    ShapeLine* to = slot.lines.data() + k * linesEach;
    const std::uint32_t shift = k * verticesEach;
    for (std::size_t e = 0; e < linesEach; ++e) {
      to[e] = {from[e].first + shift, from[e].second + shift};
    }
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
  const std::size_t lines = slot->lines.size();
  const std::int64_t instances = std::int64_t{copies} + 1;
  const bool hasVertices = mesh.allocateVertices(instances * slot->vertexCount) && vertices > 0;
  const bool hasLines = mesh.allocateLines(instances * slot->lineCount) && lines > 0;
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
  if (hasLines) {
    copyLines(*slot, lines, static_cast<std::uint32_t>(vertices),
              static_cast<std::uint32_t>(copies));
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
