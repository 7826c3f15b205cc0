#include "shape/patch_hulls.h"

#include <algorithm>
#include <array>
#include <cmath>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "shape/patch_hulls.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "math/leave_vectors-inl.h"
// clang-format on

#ifndef PV_SHAPE_PATCH_HULLS_ONCE
#define PV_SHAPE_PATCH_HULLS_ONCE
namespace pv {

/// One coordinate of a patch.
struct PatchAxis {
  const float* vertices;       ///< the first chunk
  std::array<float, 2> upper;  ///< corners, left and right
  std::array<float, 2> lower;
};

struct PatchShape {
  std::array<PatchAxis, 3> axes;
  std::size_t stride;   ///< from column to column
  std::size_t columns;  ///< both edges included
  std::size_t rows;     ///< from the upper corners to the lower ones
};

/// Squares of the greatest distances; no numbers where a vertex is none.
struct PatchReach {
  float all;
  float firstRow;
};

}  // namespace pv
#endif

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// How far the vertices of a chunk are from where they would be if their patch
/// were spread evenly between its corners, which is a place within their hull.
void reachOf(const PatchShape& patch, PatchReach& reach) {
  const hn::ScalableTag<float> d;
  const float across = 1.0F / static_cast<float>(std::max<std::size_t>(patch.columns - 1, 1));
  const float down = 1.0F / static_cast<float>(std::max<std::size_t>(patch.rows, 1));
  auto furthest = hn::Zero(d);
  auto flaw = hn::Zero(d);  // what is no number, or none after being taken from itself, stays
  for (std::size_t i = 0; i < VertexBlock::kStep; i += hn::Lanes(d)) {
    const auto share =
        hn::Min(hn::Mul(hn::Iota(d, static_cast<float>(i)), hn::Set(d, down)), hn::Set(d, 1.0F));
    auto here = hn::Zero(d);
    for (std::size_t column = 0; column < patch.columns; ++column) {
      const float u = static_cast<float>(column) * across;
      auto square = hn::Zero(d);
      for (const PatchAxis& axis : patch.axes) {
        const float upper = axis.upper[0] + u * (axis.upper[1] - axis.upper[0]);
        const float lower = axis.lower[0] + u * (axis.lower[1] - axis.lower[0]);
        const auto even = hn::Add(hn::Set(d, upper), hn::Mul(share, hn::Set(d, lower - upper)));
        const auto off = hn::Sub(hn::Load(d, axis.vertices + column * patch.stride + i), even);
        square = hn::Add(square, hn::Mul(off, off));
      }
      here = hn::Max(here, square);
      flaw = hn::Add(flaw, hn::Sub(square, square));
    }
    if (i == 0) {
      reach.firstRow = hn::GetLane(hn::Add(here, flaw));
    }
    furthest = hn::Max(furthest, here);
  }
  reach.all = hn::GetLane(hn::MaxOfLanes(d, furthest)) + hn::GetLane(hn::SumOfLanes(d, flaw));
  leaveVectors();
}

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace pv {

HWY_EXPORT(reachOf);

namespace {

float furtherOf(float a, float b) {
  return std::isnan(a) || a > b ? a : b;
}

}  // namespace

bool PatchHulls::prepare(std::size_t rows, std::size_t columns) {
  rows_ = rows;
  chunks_ = (rows + kRows - 1) / kRows;
  pitch_ = VertexBlock::padded(chunks_) + VertexBlock::kStep;
  const std::size_t groups = (columns + kColumns - 1) / kColumns;
  const bool fits = corners_.resize((groups + 1) * pitch_) && reach_.resize(groups * pitch_) &&
                    size_.resize(groups * pitch_);
  columns_ = fits ? columns : 0;
  return fits;
}

void PatchHulls::fillCorners(const VectorStreams& vertices, std::size_t edge) {
  const std::size_t column = std::min(edge * kColumns, columns_ - 1);
  const std::size_t first = column * VertexBlock::padded(rows_);
  for (std::size_t i = 0; i < pitch_; ++i) {
    corners_.set(edge * pitch_ + i, vertices.at(first + std::min(i * kRows, rows_ - 1)));
  }
}

// A chunk's last vertices lie a row before the lower corners. The first row of the
// next chunk belongs to both.
void PatchHulls::fill(const VectorStreams& vertices, std::size_t column) {
  const std::size_t edge = column / kColumns;
  fillCorners(vertices, edge);
  const bool isLast = column + kColumns >= columns_;
  if (isLast) {
    fillCorners(vertices, edge + 1);
  }
  const std::size_t right = std::min(column + kColumns, columns_ - 1);
  const std::size_t stride = VertexBlock::padded(rows_);
  const Buffer<float>* streams[] = {&vertices.x, &vertices.y, &vertices.z};
  float* reach = reach_.data() + edge * pitch_;
  float* size = size_.data() + edge * pitch_;
  std::fill_n(reach, pitch_, 0.0F);
  std::fill_n(size, pitch_, 0.0F);
  for (std::size_t chunk = 0; chunk < chunks_; ++chunk) {
    const std::size_t top = chunk * kRows;
    const std::size_t bottom = std::min(top + kRows, rows_ - 1);
    PatchShape patch{{}, stride, right - column + 1, bottom - top};
    std::array<float, 4> sizes{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const float* left = streams[axis]->data() + column * stride;
      const float* other = streams[axis]->data() + right * stride;
      patch.axes[axis] = {left + top, {left[top], other[top]}, {left[bottom], other[bottom]}};
      sizes[0] += std::abs(left[top]);
      sizes[1] += std::abs(other[top]);
      sizes[2] += std::abs(left[bottom]);
      sizes[3] += std::abs(other[bottom]);
    }
    PatchReach squares{};
    HWY_DYNAMIC_DISPATCH(reachOf)(patch, squares);
    size[chunk] = std::ranges::max(sizes);
    reach[chunk] = squares.all;
    if (chunk > 0) {
      reach[chunk - 1] = furtherOf(reach[chunk - 1], squares.firstRow);
    }
  }
  // More than rounding may have taken away above, and squares that are too small.
  for (std::size_t chunk = 0; chunk < chunks_; ++chunk) {
    reach[chunk] = std::sqrt(reach[chunk]) * (1.0F + 0x1p-16F) + size[chunk] * 0x1p-19F + 0x1p-72F;
    size[chunk] += 2.0F * reach[chunk];
  }
}

PatchHulls::Corners PatchHulls::corners(std::size_t edge) const {
  const std::size_t first = edge * pitch_;
  return {corners_.x.data() + first, corners_.y.data() + first, corners_.z.data() + first};
}

PatchHulls::Group PatchHulls::group(std::size_t column) const {
  const std::size_t edge = column / kColumns;
  return {corners(edge), corners(edge + 1), reach_.data() + edge * pitch_,
          size_.data() + edge * pitch_};
}

}  // namespace pv

#endif
