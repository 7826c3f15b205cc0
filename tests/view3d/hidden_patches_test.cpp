// Patches by every vector form against their wires, walked one by one.
#include "view3d/hidden_patches.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <vector>

#include "raster/line_walk.h"
#include "reference/random_shapes.h"
#include "shape/modifiers.h"
#include "view3d/vector_form_choice.h"
#include "view3d/wire_mask.h"

namespace pv {
namespace {

using reference::Dice;

constexpr int kScenes = kIsWatched ? 120 : 1500;

Vec3 anyVec3(Dice& dice, float reach) {
  return {dice.between(-reach, reach), dice.between(-reach, reach), dice.between(-reach, reach)};
}

Vec3 times(Vec3 v, float factor) {
  return {v.x * factor, v.y * factor, v.z * factor};
}

/// Numbers on the way from a stored vertex to the eye.
enum class Way : std::uint8_t {
  Usual,
  Tiny,  ///< whose squares are 0, until a scale makes them large
  Huge   ///< that become infinite and would be small again after the second matrix
};

/// The vertices of an instance, and all that is between them and the canvas.
struct Scene {
  Scene(Dice& dice, Way way)
      : rows(
            static_cast<std::size_t>(dice.once(6) ? dice.between(500, 1100) : dice.between(1, 90))),
        columns(static_cast<std::size_t>(dice.between(1, 40))),
        width(dice.between(2, 400)),
        height(dice.between(2, 300)) {
    choosePlace(dice, way);
    fill(dice, way);
  }

  void choosePlace(Dice& dice, Way way) {
    const auto factor = [&] { return dice.between(0.4F, 1.2F); };
    Vec3 scale{factor(), factor(), factor()};
    const Vec3 turn = anyVec3(dice, 180.0F);
    transforms.push_back({modifierMatrix(turn, scale), anyVec3(dice, 0.3F)});
    if (way == Way::Tiny) {
      transforms.insert(transforms.begin(), {D3DXMatrixScaling(1e22F, 1e22F, 1e22F), {}});
    } else if (way == Way::Huge) {
      transforms[0].matrix = modifierMatrix(turn, {1e-39F, 1e-39F, 1e-39F});
      transforms.insert(transforms.begin(), {D3DXMatrixScaling(1e38F, 1e38F, 1e38F), {}});
    } else if (dice.once(2)) {
      transforms.resize(static_cast<std::size_t>(dice.below(2)));
    }
    const auto mode = way == Way::Huge || dice.once(2) ? static_cast<ViewMode>(dice.between(1, 3))
                                                       : ViewMode::Perspective;
    const float distance = dice.once(3) ? dice.between(0.02F, 1.0F) : dice.between(1.2F, 4.0F);
    const Vec3 eye = eyePosition(dice.between(0.0F, 360.0F), dice.between(-89.0F, 89.0F), distance);
    projector.setSize(width, height);
    projection = {mode, viewMatrix(eye, dice.between(-179.0F, 179.0F)), {width / 2, height / 2}};
  }

  /// A bent sheet with some noise; now and then a vertex that is torn out.
  void fill(Dice& dice, Way way) {
    const float unit = way == Way::Tiny ? 1e-22F : way == Way::Huge ? 6.0F : 1.0F;
    const Vec3 origin = anyVec3(dice, 0.7F);
    const float spread = dice.once(2) ? 0.3F : 1.0F;
    const Vec3 down = anyVec3(dice, spread);
    const Vec3 across = anyVec3(dice, spread);
    const Vec3 bend = anyVec3(dice, dice.once(2) ? 2.0F : 0.1F);
    const float noise = dice.once(2) ? 0.0F : 0.02F;
    const int torn = dice.once(3) ? 40 : 1'000'000;
    const std::size_t stride = VertexBlock::padded(rows);
    ASSERT_TRUE(vertices.resize(stride * columns));
    for (std::size_t i = 0; i < stride * columns; ++i) {
      if (i % stride >= rows) {
        vertices.set(i, vertices.at(i - 1));
        continue;
      }
      const float r = static_cast<float>(i % stride) / 64.0F - 0.3F;
      const float c = static_cast<float>(i / stride) / 40.0F - 0.3F;
      Vec3 p = origin + times(down, r) + times(across, c) + times(bend, r * r + c * c) +
               anyVec3(dice, noise);
      if (dice.once(torn)) {
        constexpr std::array kTorn{1.2F,
                                   -3.0F,
                                   1e9F,
                                   3e38F,
                                   std::numeric_limits<float>::infinity(),
                                   std::numeric_limits<float>::quiet_NaN()};
        p.y = kTorn[static_cast<std::size_t>(dice.below(kTorn.size()))];
      }
      vertices.set(i, times(p, unit));
    }
  }

  /// Where a vertex comes to lie, going the whole way step by step.
  [[nodiscard]] std::optional<PixelPoint> pixel(std::size_t row, std::size_t column) {
    Vec3 vertex = vertices.at(column * VertexBlock::padded(rows) + row);
    for (const InstanceTransform& transform : transforms) {
      vertex = D3DXVec3Transform(vertex, transform.matrix) + transform.offset;
    }
    return projection.map(projector, vertex);
  }

  std::size_t rows;
  std::size_t columns;
  std::int32_t width;
  std::int32_t height;
  VectorStreams vertices;
  std::vector<InstanceTransform> transforms;
  ViewProjector projector;
  ShapeProjection projection;
};

/// The pixels of a patch's wires that lie outermost, and one of the others.
std::vector<std::int64_t> wirePixels(Scene& scene, std::size_t chunk, std::size_t column,
                                     Dice& dice) {
  std::vector<std::int64_t> lit;
  const auto draw = [&](const std::optional<PixelPoint>& a, const std::optional<PixelPoint>& b) {
    if (a && b) {
      forEachLinePixel(a->x, a->y, b->x, b->y, {scene.width, scene.height, scene.width},
                       [&](std::int64_t pixel) { lit.push_back(pixel); });
    }
  };
  const std::size_t first = chunk * PatchHulls::kRows;
  for (std::size_t c = column; c < std::min(column + PatchHulls::kColumns, scene.columns); ++c) {
    for (std::size_t r = first; r < std::min(first + PatchHulls::kRows, scene.rows); ++r) {
      const auto here = scene.pixel(r, c);
      draw(here, r + 1 < scene.rows ? scene.pixel(r + 1, c) : here);
      draw(here, c + 1 < scene.columns ? scene.pixel(r, c + 1) : here);
    }
  }
  if (lit.size() < 5) {
    return lit;
  }
  const auto [bottom, top] = std::ranges::minmax(lit);
  const auto across = [&](std::int64_t pixel) { return pixel % scene.width; };
  return {bottom, top, std::ranges::min(lit, {}, across), std::ranges::max(lit, {}, across),
          lit[static_cast<std::size_t>(dice.below(static_cast<int>(lit.size())))]};
}

/// A mask with all pixels lit, each in one of its places or in several.
struct LitMask {
  LitMask(const Scene& scene, Dice& dice)
      : strips(scene.width, scene.height), words(strips.words()) {
    EXPECT_TRUE(bytes.resize(strips.words() * FrameStrips::kWidth));
    std::fill_n(bytes.data(), bytes.size(), std::uint8_t{0});
    singles = {bytes.data(), true};
    for (std::int32_t y = 0; y < scene.height; ++y) {
      for (std::int32_t x = 0; x < scene.width; ++x) {
        light(x, y, static_cast<std::uint32_t>(dice.between(1, 7)));
      }
    }
  }
  /// Bits of `places`: in its strip, in the one to the left, as a byte.
  void light(std::int32_t x, std::int32_t y, std::uint32_t places) {
    const auto at = static_cast<std::size_t>(strips.word(x, y));
    words[at] |= static_cast<std::uint16_t>((places & 1U) << x % 8);
    words[at - static_cast<std::size_t>(strips.pitch())] |=
        static_cast<std::uint16_t>((places >> 1U & 1U) << (x % 8 + 8));
    bytes[at * 8 + static_cast<std::size_t>(x % 8)] = static_cast<std::uint8_t>(places >> 2U & 1U);
  }
  void darken(std::int32_t x, std::int32_t y) {
    const auto at = static_cast<std::size_t>(strips.word(x, y));
    words[at] &= static_cast<std::uint16_t>(~(1U << x % 8));
    words[at - static_cast<std::size_t>(strips.pitch())] &=
        static_cast<std::uint16_t>(~(256U << x % 8));
    bytes[at * 8 + static_cast<std::size_t>(x % 8)] = 0;
  }
  [[nodiscard]] MaskPixels pixels() { return {words.data(), &singles, strips}; }

  FrameStrips strips;
  std::vector<std::uint16_t> words;
  Buffer<std::uint8_t> bytes;
  SinglePixels singles;
};

class HiddenPatchesOf : public testing::TestWithParam<Way> {};

// With every pixel lit but one, a patch with a wire through that one must show.
TEST_P(HiddenPatchesOf, APixelThatIsDarkShowsAllWiresThroughIt) {
  Dice dice(50);
  VectorFormChoice forms;
  int hidden = 0;
  for (int i = 0; i < kScenes; ++i) {
    forms.choose(static_cast<std::size_t>(i));
    Scene scene(dice, GetParam());
    PatchHulls patches;
    ASSERT_TRUE(patches.prepare(scene.rows, scene.columns));
    for (std::size_t c = 0; c < scene.columns; c += PatchHulls::kColumns) {
      patches.fill(scene.vertices, c);
    }
    const PixelMap map(scene.projection, scene.projector, scene.width, scene.height);
    const HiddenPatches tested(scene.transforms, map);
    LitMask mask(scene, dice);
    const std::size_t all = (scene.rows + PatchHulls::kRows - 1) / PatchHulls::kRows;
    for (std::size_t c = 0; c < scene.columns; c += PatchHulls::kColumns) {
      const PatchHulls::Group group = patches.group(c);
      for (std::size_t chunk = 0; chunk < all; ++chunk) {
        const std::size_t first = chunk / 31 * 31;  // as strips overlap
        const std::size_t count = std::min<std::size_t>(all - first, 32);
        const auto shows = [&] {
          return (tested.visible(group, first, count, mask.pixels()) >> (chunk - first) & 1U) != 0;
        };
        if (shows()) {
          continue;  // with all pixels lit: with fewer it would as well
        }
        ++hidden;
        for (const std::int64_t pixel : wirePixels(scene, chunk, c, dice)) {
          const auto x = static_cast<std::int32_t>(pixel % scene.width);
          const auto y = static_cast<std::int32_t>(pixel / scene.width);
          mask.darken(x, y);
          ASSERT_TRUE(shows()) << "scene " << i << ", chunk " << chunk << " of " << all
                               << ", column " << c << ", pixel " << pixel % scene.width << ' '
                               << pixel / scene.width;
          mask.light(x, y, static_cast<std::uint32_t>(dice.between(1, 7)));
        }
      }
    }
  }
  if (GetParam() != Way::Huge) {
    EXPECT_GT(hidden, kScenes / 2);  // so that there was something to go wrong
  }
}

INSTANTIATE_TEST_SUITE_P(Ways, HiddenPatchesOf, testing::Values(Way::Usual, Way::Tiny, Way::Huge));

}  // namespace
}  // namespace pv
