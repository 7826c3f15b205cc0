// Columns of vertices, many of which leave the canvas, against one vertex after the other.
#include "view3d/wire_projection.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <span>
#include <string>

#include "math/matrix4.h"
#include "reference/random_shapes.h"
#include "shape/duplicates.h"
#include "view3d/vector_form_choice.h"
#include "view3d/view_camera.h"

namespace pv {
namespace {

using reference::Dice;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNoNumber = std::numeric_limits<float>::quiet_NaN();

/// A view as often level as tilted, of a canvas that is small enough for many vertices to
/// meet its borders, or large enough for the last bit of a number to count.
PixelMap randomMap(Dice& dice) {
  const std::int32_t most = dice.once(3) ? 60 : 3999;
  const std::int32_t width = dice.between(2, most);
  const std::int32_t height = dice.between(2, most);
  ViewProjector projector;
  projector.setSize(width, height);
  const Vec3 eye = eyePosition(dice.between(0.0F, 360.0F), dice.between(-89.0F, 89.0F),
                               dice.between(0.3F, 3.0F));
  const float roll = dice.once(2) ? 0.0F : dice.between(-179.0F, 179.0F);
  Matrix4 view = viewMatrix(eye, roll);
  view.m[3][0] += dice.once(2) ? 0.0F : dice.between(-0.1F, 0.1F);  // next to none in cameras
  const ViewMode mode = dice.once(2) ? ViewMode::Perspective : static_cast<ViewMode>(dice.below(4));
  PixelMap map({mode, view, {width / 2, height / 2}}, projector, width, height);
  map.isLongWork = dice.once(2);
  return map;
}

/// Vertices around the origin, now and then some that no canvas has room for.
void scatter(VertexBlock& block, std::size_t count, Dice& dice) {
  constexpr std::array kOdd{kInfinity, -kInfinity, kNoNumber, 3.0e38F,
                            -1.0e12F,  4.0e4F,     0.0F,      -0.0F};
  const float reach = dice.once(2) ? 0.2F : dice.between(0.2F, 2.0F);
  const int odd = dice.once(2) ? 1000 : 20;
  for (std::size_t k = 0; k < VertexBlock::padded(count); ++k) {
    for (float* stream : {block.x, block.y, block.z}) {
      stream[k] = k < count ? dice.between(-reach, reach) : stream[count - 1];
      if (k < count && dice.once(odd)) {
        stream[k] = kOdd[static_cast<std::size_t>(dice.below(kOdd.size()))];
      }
    }
  }
}

/// Where one vertex comes to lie.
PixelPoint pointOf(const ColumnVertices& vertices, std::size_t k, const PixelMap& map) {
  Vec3 vertex{vertices.x[k], vertices.y[k], vertices.z[k]};
  for (const InstanceTransform& transform : vertices.transforms) {
    vertex = D3DXVec3Transform(vertex, transform.matrix) + transform.offset;
  }
  ViewProjector projector = map.projector;
  return map.projection.map(projector, vertex).value_or(PixelPoint{kInvisible, 0});
}

bool isOn(const PixelMap& map, PixelPoint at) {
  return at.x >= 0 && at.x < map.width && at.y >= 0 && at.y < map.height;
}

/// The lowest or highest of the lanes of x (0) or of y (1).
template <std::size_t kLane>
std::int32_t farthest(std::span<const std::int16_t> lanes, bool isHighest) {
  std::int32_t best = lanes[kLane];
  for (std::size_t lane = kLane; lane < lanes.size(); lane += 2) {
    best = isHighest ? std::max<std::int32_t>(best, lanes[lane])
                     : std::min<std::int32_t>(best, lanes[lane]);
  }
  return best;
}

void expectWithin(const PixelReach& reach, PixelPoint at) {
  EXPECT_LE(farthest<0>(reach.low, false), at.x);
  EXPECT_GE(farthest<0>(reach.high, true), at.x);
  EXPECT_LE(farthest<1>(reach.low, false), at.y);
  EXPECT_GE(farthest<1>(reach.high, true), at.y);
}

TEST(WireProjection, EveryChunkKnowsWhetherItLeavesTheCanvas) {
  Dice dice(81);
  VectorFormChoice forms;
  VertexBlock block;
  PixelColumn column;
  int leaving = 0;
  int staying = 0;
  for (int i = 0; i < (kIsWatched ? 1000 : 8000); ++i) {
    const std::string form = forms.choose(static_cast<std::size_t>(i));
    const PixelMap map = randomMap(dice);
    const auto count = static_cast<std::size_t>(dice.between(1, 512));
    scatter(block, count, dice);
    const std::array transforms{
        InstanceTransform{D3DXMatrixRotationYawPitchRoll(dice.between(0.0F, 6.0F), 0.0F, 0.3F),
                          {0.1F, 0.0F, -0.1F}},
        InstanceTransform{D3DXMatrixScaling(0.5F, 0.7F, 0.9F), {0.0F, 0.1F, 0.0F}}};
    const ColumnVertices vertices{
        block.x,
        block.y,
        block.z,
        count,
        std::span(transforms).first(static_cast<std::size_t>(dice.below(3))),
        {}};
    const std::size_t chunkCount = VertexBlock::padded(count) / VertexBlock::kStep;
    const std::uint32_t all = ~std::uint32_t{0} >> (32 - chunkCount);
    const std::uint32_t chunks =
        dice.once(2) ? all : static_cast<std::uint32_t>(dice.below(1 << 30)) & all;
    PixelReach reach;
    projectColumn(vertices, chunks, map, column, reach);
    for (std::size_t chunk = 0; chunk < chunkCount; ++chunk) {
      if ((chunks >> chunk & 1U) == 0) {
        EXPECT_FALSE(column.isInside(chunk)) << form;
        continue;
      }
      bool isInside = true;
      for (std::size_t k = chunk * VertexBlock::kStep; k < (chunk + 1) * VertexBlock::kStep; ++k) {
        const PixelPoint wanted = pointOf(vertices, k, map);
        isInside = isInside && isOn(map, wanted);
        ASSERT_EQ(column.at(k).x, wanted.x) << form << ", " << i << ": " << k;
        if (wanted.x != kInvisible) {
          ASSERT_EQ(column.at(k).y, wanted.y) << form << ", " << i << ": " << k;
        }
        if (isOn(map, wanted)) {
          expectWithin(reach, wanted);
        }
      }
      ASSERT_EQ(column.isInside(chunk), isInside) << form << ", " << i << ": chunk " << chunk;
      ++(isInside ? staying : leaving);
    }
  }
  EXPECT_GT(leaving, 1000);
  EXPECT_GT(staying, 1000);
}

}  // namespace
}  // namespace pv
