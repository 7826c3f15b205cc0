#include "shape/shape_columns.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace pv {

namespace {

// Bit by bit: a value that is not a number is equal to itself, and the two
// zeros differ.
template <class T>
bool sameBits(const T& a, const T& b) {
  static_assert(std::is_trivially_copyable_v<T>);
  return std::memcmp(&a, &b, sizeof(T)) == 0;
}

void apply(const InstanceTransform& transform, VertexBlock& block, std::size_t count) {
  transformVertices(block, count, transform.matrix, transform.offset);
}

}  // namespace

void ShapeColumns::update(const ShapeMesh& mesh, bool meshChanged, const ModifierTable& values,
                          const DuplicateStep& step, DuplicateFlags flags, WorkShare& share) {
  slot_ = mesh.current();
  const auto copies = static_cast<std::size_t>(effectiveCopies(step.copies));
  const bool exists = slot_ != nullptr && slot_->base.size() > 0;
  const bool eachAnew = flags.applyModifiersGlobally && copies > 0;
  const bool shapeFirst = copies == 0 || (flags.useWorldAxis && !eachAnew);
  firstIsShaped_ = firstIsShaped_ && !meshChanged && sameBits(values, values_) &&
                   eachAnew == eachAnew_ && shapeFirst == shapeFirst_;
  rows_ = exists ? slot_->rows : 0;
  columns_ = exists ? slot_->columns : 0;
  instances_ = exists ? copies + 1 : 0;
  values_ = values;
  eachAnew_ = eachAnew;
  shapeFirst_ = shapeFirst;
  vertexTransform_ = {
      modifierMatrix(values[ModifierKind::VertexRotate], values[ModifierKind::VertexScale]),
      values[ModifierKind::VertexMove]};
  shapeTransform_ = {
      modifierMatrix(values[ModifierKind::ShapeRotate], values[ModifierKind::ShapeScale]),
      values[ModifierKind::ShapeMove]};
  for (std::size_t k = 1; k < instances_; ++k) {
    copies_[k] = instanceTransform(step, static_cast<std::int32_t>(k));
  }
  if (exists && !eachAnew_ && !firstIsShaped_) {
    shapeFirstInstance(share);
  }
}

void ShapeColumns::shapeFirstInstance(WorkShare& share) {
  constexpr std::size_t kRound = 16 * VertexBlock::kCapacity;  // vertices
  const std::size_t all = slot_->base.size();
  if (!shaped_.resize(all)) {
    instances_ = 0;
    return;
  }
  share.run((all + kRound - 1) / kRound, [&](std::size_t round) {
    VertexBlock block;
    const std::size_t end = std::min(all, (round + 1) * kRound);
    for (std::size_t first = round * kRound; first < end; first += VertexBlock::kCapacity) {
      const std::size_t count = std::min(VertexBlock::kCapacity, end - first);
      loadVertices(slot_->base, first, count, block);
      deform(block, first, count);
      if (shapeFirst_) {
        apply(shapeTransform_, block, count);
      }
      storeVertices(block, first, count, shaped_);
    }
  });
  firstIsShaped_ = true;
}

void ShapeColumns::deform(VertexBlock& block, std::size_t firstDirection, std::size_t count) const {
  apply(vertexTransform_, block, count);
  VertexBlock directions;
  const bool disperses = slot_->disperse.size() >= firstDirection + count;
  if (disperses) {
    loadVertices(slot_->disperse, firstDirection, count, directions);
  }
  deformVertices(block, count, values_, disperses ? &directions : nullptr);
}

void ShapeColumns::vertices(std::size_t instance, std::size_t first, std::size_t count,
                            VertexBlock& block) const {
  loadVertices(eachAnew_ ? slot_->base : shaped_, first, count, block);
  if (instance > 0) {
    apply(copies_[instance], block, count);
  }
  if (eachAnew_) {
    deform(block, instance * slot_->base.size() + first, count);
  }
  if (!shapeFirst_) {
    apply(shapeTransform_, block, count);
  }
}

}  // namespace pv
