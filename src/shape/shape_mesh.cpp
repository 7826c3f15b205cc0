#include "shape/shape_mesh.h"

#include <algorithm>
#include <limits>

namespace pv {

bool VectorStreams::resize(std::size_t size) {
  if (x.resize(size) && y.resize(size) && z.resize(size)) {
    return true;
  }
  clear();
  return false;
}

void VectorStreams::clear() {
  x.clear();
  y.clear();
  z.clear();
}

ShapeVertex MeshSlot::vertex(std::size_t i) const {
  ShapeVertex vertex;
  vertex.base = base.at(i);
  if (i < disperse.size()) {
    vertex.disperse = disperse.at(i);
  }
  vertex.position = position.at(i);
  return vertex;
}

void ShapeMesh::BeginMesh() {
  if (slotCount_ >= static_cast<std::int32_t>(slots_.size())) {
    return;
  }
  MeshSlot& slot = slots_[static_cast<std::size_t>(slotCount_)];
  slot.vertexCount = 0;
  slot.lineCount = 0;
  slot.rows = 0;
  slot.columns = 0;
  slot.base.clear();
  slot.disperse.clear();
  slot.position.clear();
  slot.lines.clear();
  currentSlot_ = slotCount_;
  ++slotCount_;
}

void ShapeMesh::FreeMesh(std::int32_t index) {
  if (index < 0 || index >= slotCount_) {
    return;
  }
  MeshSlot& slot = slots_[static_cast<std::size_t>(index)];
  slot.base.clear();
  slot.disperse.clear();
  slot.position.clear();
  slot.lines.clear();
  --slotCount_;
  if (slotCount_ < currentSlot_) {
    currentSlot_ = -1;
  }
}

void ShapeMesh::SetProfile(std::span<const Vec3> points) {
  const auto count = std::min(points.size(), profile_.points.size());
  std::copy_n(points.begin(), count, profile_.points.begin());
  profile_.count = static_cast<std::int32_t>(count);
}

std::span<const Vec3> ShapeMesh::profile() const {
  return std::span(profile_.points).first(static_cast<std::size_t>(profile_.count));
}

void ShapeMesh::SetGrid(std::int32_t columns, std::int32_t rows, std::int32_t copies) {
  if (MeshSlot* slot = current()) {
    slot->grid = {static_cast<float>(columns), static_cast<float>(rows),
                  static_cast<float>(copies)};
  }
}

MeshSlot* ShapeMesh::current() {
  return currentSlot_ >= 0 && slotCount_ != 0 ? &slots_[static_cast<std::size_t>(currentSlot_)]
                                              : nullptr;
}

const MeshSlot* ShapeMesh::current() const {
  return currentSlot_ >= 0 && slotCount_ != 0 ? &slots_[static_cast<std::size_t>(currentSlot_)]
                                              : nullptr;
}

namespace {

std::int32_t saturate(std::int64_t count) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(
      count, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

bool ShapeMesh::noteVertices(std::int64_t count) {
  if (MeshSlot* slot = current()) {
    slot->vertexCount = saturate(count);
    return count >= 1 && count <= vertexLimit_;
  }
  return false;
}

bool ShapeMesh::allocateVertices(std::int64_t count) {
  MeshSlot* slot = current();
  if (slot == nullptr) {
    return false;
  }
  const auto size = noteVertices(count) ? static_cast<std::size_t>(count) : 0;
  slot->disperse.clear();
  if (slot->base.resize(size) && slot->position.resize(size)) {
    return size > 0;
  }
  slot->base.clear();
  slot->position.clear();
  slot->lines.clear();
  return false;
}

void ShapeMesh::setLines(std::int64_t count, std::int64_t instances) {
  MeshSlot* slot = current();
  if (slot == nullptr) {
    return;
  }
  slot->lineCount = saturate(count);
  slot->lines = count >= 1 && slot->columns > 0
                    ? MeshLines(slot->rows, slot->columns, static_cast<std::size_t>(instances))
                    : MeshLines();
}

void ShapeMesh::setVertexLimit(std::int64_t limit) {
  vertexLimit_ = std::clamp<std::int64_t>(limit, 0, kMaxMeshVertices);
}

}  // namespace pv
