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

void ShapeColumns::update(const Source& source, const ModifierTable& values,
                          const DuplicateStep& step, DuplicateFlags flags, WorkShare& share) {
  sections_ = &source.sections;
  directions_ = &source.directions;
  const auto copies = static_cast<std::size_t>(effectiveCopies(step.copies));
  const bool exists = sections_->vertices() > 0;
  const bool eachAnew = flags.applyModifiersGlobally && copies > 0;
  const bool shapeFirst = copies == 0 || (flags.useWorldAxis && !eachAnew);
  firstIsShaped_ = firstIsShaped_ && !source.changed && sameBits(values, values_) &&
                   eachAnew == eachAnew_ && shapeFirst == shapeFirst_;
  rows_ = sections_->rows();
  columns_ = sections_->columns();
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
  for (std::size_t k = 0; k < instances_; ++k) {
    copies_[k] = {instanceTransform(step, static_cast<std::int32_t>(k)), shapeTransform_};
  }
  const bool isStored = exists && !eachAnew_;
  if (!isStored || !firstIsShaped_ || copies == 0) {
    patches_.clear();
  }
  if (isStored && !firstIsShaped_) {
    shapeFirstInstance(share);
  }
  if (isStored && copies > 0 && patches_.empty()) {
    boxPatches(share);
  }
}

void ShapeColumns::shapeFirstInstance(WorkShare& share) {
  const std::size_t stride = VertexBlock::padded(rows_);
  if (!shaped_.resize(stride * columns_)) {
    instances_ = 0;
    return;
  }
  constexpr std::size_t kRound = 4096;  // vertices, roughly
  const std::size_t columnsEach = std::max<std::size_t>(1, kRound / stride);
  share.run((columns_ + columnsEach - 1) / columnsEach, [&](std::size_t round, unsigned) {
    Workplace workplace(*this);
    VertexBlock& block = workplace.block_;
    const std::size_t end = std::min(columns_, (round + 1) * columnsEach);
    for (std::size_t column = round * columnsEach; column < end; ++column) {
      for (std::size_t first = 0; first < rows_; first += VertexBlock::kCapacity) {
        const std::size_t count = std::min(VertexBlock::kCapacity, rows_ - first);
        sections_->vertices(column, first, count, block);
        deform(workplace, column * rows_ + first, count);
        if (shapeFirst_) {
          apply(shapeTransform_, block, count);
        }
        storeVertices(block, column * stride + first, VertexBlock::padded(count), shaped_);
      }
    }
  });
  firstIsShaped_ = true;
}

void ShapeColumns::boxPatches(WorkShare& share) {
  constexpr std::size_t kWorthIt = 4096;  // vertices; fewer are drawn as quickly as tested
  if (instances_ == 0 || rows_ * columns_ < kWorthIt || !patches_.prepare(rows_, columns_)) {
    return;
  }
  const std::size_t groups = (columns_ + PatchBoxes::kColumns - 1) / PatchBoxes::kColumns;
  share.run(groups, [&](std::size_t group, unsigned) {
    patches_.fill(shaped_, group * PatchBoxes::kColumns);
  });
}

void ShapeColumns::deform(Workplace& workplace, std::size_t firstDirection,
                          std::size_t count) const {
  apply(vertexTransform_, workplace.block_, count);
  const bool disperses = directions_->size() >= firstDirection + count;
  if (disperses) {
    workplace.reader_.read(firstDirection, count, workplace.directions_);
  }
  deformVertices(workplace.block_, count, values_, disperses ? &workplace.directions_ : nullptr);
}

ColumnVertices ShapeColumns::vertices(std::size_t instance, std::size_t column, std::size_t first,
                                      std::size_t count, Workplace& workplace) const {
  if (eachAnew_) {
    VertexBlock& block = workplace.block_;
    sections_->vertices(column, first, count, block);
    if (instance > 0) {
      apply(copies_[instance][0], block, count);
    }
    deform(workplace, (instance * columns_ + column) * rows_ + first, count);
    return {block.x, block.y, block.z, count, std::span(copies_[instance]).last(1)};
  }
  const std::size_t at = column * VertexBlock::padded(rows_) + first;
  return {shaped_.x.data() + at, shaped_.y.data() + at, shaped_.z.data() + at, count,
          transforms(instance)};
}

std::span<const InstanceTransform> ShapeColumns::transforms(std::size_t instance) const {
  const std::size_t skipped = instance > 0 ? 0 : 1;
  return std::span(copies_[instance]).subspan(skipped, 2 - skipped - (shapeFirst_ ? 1 : 0));
}

}  // namespace pv
