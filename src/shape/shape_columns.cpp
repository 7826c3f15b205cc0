#include "shape/shape_columns.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <deque>

namespace pv {

namespace {

// Bit by bit: a value that is not a number is equal to itself, and the two
// zeros differ.
bool sameBits(const ModifierTable& a, const ModifierTable& b) {
  const auto bits = [](float value) { return std::bit_cast<std::uint32_t>(value); };
  for (int kind = 0; kind < kModifierCount; ++kind) {
    const Vec3& v = a[static_cast<ModifierKind>(kind)];
    const Vec3& w = b[static_cast<ModifierKind>(kind)];
    if (bits(v.x) != bits(w.x) || bits(v.y) != bits(w.y) || bits(v.z) != bits(w.z)) {
      return false;
    }
  }
  return true;
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
  const bool isSame = !source.changed && sameBits(values, values_) && eachAnew == eachAnew_ &&
                      shapeFirst == shapeFirst_;
  firstIsShaped_ = firstIsShaped_ && isSame;
  rows_ = sections_->rows();
  columns_ = sections_->columns();
  instances_ = exists ? copies + 1 : 0;
  values_ = values;
  eachAnew_ = eachAnew;
  shapeFirst_ = shapeFirst;
  isPlain_ = directions_->size() == 0 && !deforms(values);
  // While a single instance changes with every frame, keeping it would cost more
  // than making it where it is drawn.
  isStored_ = exists && !eachAnew && (copies > 0 || isSame);
  early_[0] = {
      modifierMatrix(values[ModifierKind::VertexRotate], values[ModifierKind::VertexScale]),
      values[ModifierKind::VertexMove]};
  early_[1] = {modifierMatrix(values[ModifierKind::ShapeRotate], values[ModifierKind::ShapeScale]),
               values[ModifierKind::ShapeMove]};
  for (std::size_t k = 0; k < instances_; ++k) {
    copies_[k] = {instanceTransform(step, static_cast<std::int32_t>(k)), early_[1]};
  }
  if (!isStored_ || !firstIsShaped_ || copies == 0) {
    patches_.clear();
  }
  if (isStored_ && !firstIsShaped_) {
    shapeFirstInstance(share);
  }
  if (isStored_ && copies > 0 && patches_.empty()) {
    hullPatches(share);
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
  std::deque<Workplace> workplaces(share.threads());
  for (Workplace& workplace : workplaces) {
    workplace.begin(*this);
  }
  share.run((columns_ + columnsEach - 1) / columnsEach, [&](std::size_t round, unsigned worker) {
    Workplace& workplace = workplaces[worker];
    const std::size_t end = std::min(columns_, (round + 1) * columnsEach);
    for (std::size_t column = round * columnsEach; column < end; ++column) {
      for (std::size_t first = 0; first < rows_; first += VertexBlock::kCapacity) {
        const std::size_t count = std::min(VertexBlock::kCapacity, rows_ - first);
        const std::size_t at = column * stride + first;
        const VertexPlace to{shaped_.x.data() + at, shaped_.y.data() + at, shaped_.z.data() + at};
        if (isPlain_) {
          sections_->vertices(column, first, count, std::span(early_).first(shapeFirst_ ? 2 : 1),
                              to);
        } else {
          shapeStretch(workplace, column, first, count);
          storeVertices(workplace.block_, at, VertexBlock::padded(count), shaped_);
        }
      }
    }
  });
  firstIsShaped_ = true;
}

void ShapeColumns::shapeStretch(Workplace& workplace, std::size_t column, std::size_t first,
                                std::size_t count) const {
  sections_->vertices(column, first, count, std::span(early_).first(1), workplace.block_.place());
  deform(workplace, column * rows_ + first, count);
  if (shapeFirst_) {
    apply(early_[1], workplace.block_, count);
  }
}

void ShapeColumns::hullPatches(WorkShare& share) {
  constexpr std::size_t kWorthIt = 4096;  // vertices; fewer are drawn as quickly as tested
  if (instances_ == 0 || rows_ * columns_ < kWorthIt || !patches_.prepare(rows_, columns_)) {
    return;
  }
  const std::size_t groups = (columns_ + PatchHulls::kColumns - 1) / PatchHulls::kColumns;
  share.run(groups, [&](std::size_t group, unsigned) {
    patches_.fill(shaped_, group * PatchHulls::kColumns);
  });
}

void ShapeColumns::deform(Workplace& workplace, std::size_t firstDirection,
                          std::size_t count) const {
  if (isPlain_) {
    return;
  }
  const bool disperses = directions_->size() >= firstDirection + count;
  if (disperses) {
    workplace.reader_.read(firstDirection, count, workplace.directions_);
  }
  deformVertices(workplace.block_, count, values_, disperses ? &workplace.directions_ : nullptr);
}

ColumnVertices ShapeColumns::vertices(std::size_t instance, std::size_t column, std::size_t first,
                                      std::size_t count, Workplace& workplace) const {
  if (!isStored_ && instances_ == 1 && isPlain_ && sections_->canSpread()) {
    const ProfileRow row = sections_->profile(first, count);
    return {row.x, row.y, row.z, count, early_, sections_->spread(column)};
  }
  if (!isStored_) {
    VertexBlock& block = workplace.block_;
    const std::array<InstanceTransform, 2> then{copies_[instance][0], early_[0]};
    sections_->vertices(column, first, count, std::span(then).last(instance > 0 ? 2 : 1),
                        block.place());
    deform(workplace, (instance * columns_ + column) * rows_ + first, count);
    return {block.x, block.y, block.z, count, std::span(copies_[instance]).last(1), {}};
  }
  const std::size_t at = column * VertexBlock::padded(rows_) + first;
  return {shaped_.x.data() + at, shaped_.y.data() + at,
          shaped_.z.data() + at, count,
          transforms(instance),  {}};
}

std::span<const InstanceTransform> ShapeColumns::transforms(std::size_t instance) const {
  const std::size_t skipped = instance > 0 ? 0 : 1;
  return std::span(copies_[instance]).subspan(skipped, 2 - skipped - (shapeFirst_ ? 1 : 0));
}

}  // namespace pv
