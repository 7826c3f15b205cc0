#include "shape/modifiers.h"

#include <algorithm>

#include "math/scalar.h"
#include "shape/vertex_kernels.h"

namespace pv {

namespace {

/// Runs `work` over the first `count` vertices of `from`, block by block, and
/// keeps what it makes as positions.
template <class Work>
void forEachBlock(const VectorStreams& from, VectorStreams& to, std::size_t count, Work work) {
  VertexBlock block;
  for (std::size_t first = 0; first < count; first += VertexBlock::kCapacity) {
    const std::size_t size = std::min(VertexBlock::kCapacity, count - first);
    loadVertices(from, first, size, block);
    work(block, first, size);
    storeVertices(block, first, size, to);
  }
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
  const std::size_t vertices = std::min(count, slot->position.size());
  const Matrix4 matrix =
      modifierMatrix(values[ModifierKind::VertexRotate], values[ModifierKind::VertexScale]);
  const bool disperses = slot->disperse.size() >= vertices;
  const auto shape = [&](VertexBlock& block, std::size_t first, std::size_t size) {
    VertexBlock directions;
    if (disperses) {
      loadVertices(slot->disperse, first, size, directions);
    }
    transformVertices(block, size, matrix, values[ModifierKind::VertexMove]);
    deformVertices(block, size, values, disperses ? &directions : nullptr);
  };
  forEachBlock(slot->base, slot->position, vertices, shape);
}

void applyShapeTransform(ShapeMesh& mesh, const ModifierTable& values, std::size_t count) {
  MeshSlot* slot = mesh.current();
  if (slot == nullptr) {
    return;
  }
  const Matrix4 matrix =
      modifierMatrix(values[ModifierKind::ShapeRotate], values[ModifierKind::ShapeScale]);
  const auto transform = [&](VertexBlock& block, std::size_t, std::size_t size) {
    transformVertices(block, size, matrix, values[ModifierKind::ShapeMove]);
  };
  forEachBlock(slot->position, slot->position, std::min(count, slot->position.size()), transform);
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
