#include "shape/patch_boxes.h"

#include <algorithm>
#include <cmath>
#include <limits>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "shape/patch_boxes.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "math/leave_vectors-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// One coordinate of a chunk of rows of some columns, and of the row behind.
void spanOf(const float* first, std::size_t stride, std::size_t columns, bool hasNextRow,
            float* low, float* high) {
  const hn::ScalableTag<float> d;
  auto lowest = hn::Set(d, std::numeric_limits<float>::infinity());
  auto highest = hn::Neg(lowest);
  const auto include = [&](auto v) HWY_ATTR {
    const auto isNumber = hn::Eq(v, v);
    lowest = hn::Min(lowest, hn::IfThenElse(isNumber, v, lowest));
    highest = hn::Max(highest, hn::IfThenElse(isNumber, v, highest));
  };
  for (std::size_t column = 0; column < columns; ++column) {
    const float* chunk = first + column * stride;
    for (std::size_t i = 0; i < PatchBoxes::kRows; i += hn::Lanes(d)) {
      include(hn::Load(d, chunk + i));
    }
    if (hasNextRow) {
      include(hn::Set(d, chunk[PatchBoxes::kRows]));
    }
  }
  *low = hn::GetLane(hn::MinOfLanes(d, lowest));
  *high = hn::GetLane(hn::MaxOfLanes(d, highest));
  leaveVectors();
}

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace pv {

HWY_EXPORT(spanOf);

bool PatchBoxes::prepare(std::size_t rows, std::size_t columns) {
  rows_ = rows;
  chunks_ = VertexBlock::padded((rows + kRows - 1) / kRows);
  const std::size_t groups = (columns + kColumns - 1) / kColumns;
  const bool fits = middle_.resize(groups * chunks_) && half_.resize(groups * chunks_);
  columns_ = fits ? columns : 0;
  return fits;
}

void PatchBoxes::fill(const VectorStreams& vertices, std::size_t column) {
  const std::size_t stride = VertexBlock::padded(rows_);
  const std::size_t columns = std::min(kColumns + 1, columns_ - column);
  const Buffer<float>* from[] = {&vertices.x, &vertices.y, &vertices.z};
  Buffer<float>* middle[] = {&middle_.x, &middle_.y, &middle_.z};
  Buffer<float>* half[] = {&half_.x, &half_.y, &half_.z};
  for (std::size_t chunk = 0; chunk < chunks_; ++chunk) {
    const std::size_t place = column / kColumns * chunks_ + chunk;
    const std::size_t row = std::min(chunk * kRows, stride - kRows);
    for (std::size_t axis = 0; axis < 3; ++axis) {
      float low = 0.0F;
      float high = 0.0F;
      const float* corner = from[axis]->data() + column * stride + row;
      HWY_DYNAMIC_DISPATCH(spanOf)(corner, stride, columns, row + kRows < rows_, &low, &high);
      (*middle[axis])[place] = low * 0.5F + high * 0.5F;
      // With more than rounding may have taken away here and in the middle.
      const float reach = std::max(std::abs(low), std::abs(high));
      (*half[axis])[place] = high * 0.5F - low * 0.5F + reach * 0x1p-21F;
    }
  }
}

PatchBoxes::Group PatchBoxes::group(std::size_t column) const {
  const std::size_t place = column / kColumns * chunks_;
  return {{middle_.x.data() + place, middle_.y.data() + place, middle_.z.data() + place},
          {half_.x.data() + place, half_.y.data() + place, half_.z.data() + place}};
}

}  // namespace pv

#endif
