#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "shape/duplicates.h"
#include "shape/patch_hulls.h"
#include "view3d/frame_strips.h"
#include "view3d/wire_projection.h"

namespace pv {

/// Finds the patches of an instance that cannot light another pixel: all pixels of a
/// rectangle in which every line of theirs must lie are lit already. A line stays
/// between its ends and no pixel is ever put out, so leaving such a patch away
/// cannot be seen in the picture.
class HiddenPatches {
 public:
  /// `transforms` are those of the instance. The map must outlive this.
  HiddenPatches(std::span<const InstanceTransform> transforms, const PixelMap& map);

  /// `lit` is of the map's frame; single pixels may become bits of it. Bit c of the result is set
  /// while the c-th of the `chunks` (32 at most) chunks of rows from `firstChunk` on has to be
  /// drawn.
  [[nodiscard]] std::uint32_t visible(const PatchHulls::Group& group, std::size_t firstChunk,
                                      std::size_t chunks, const MaskPixels& lit) const;

  /// The whole way from a stored coordinate to one before the eye, in one step.
  /// It stays closer to every vertex than rounding + size * its roundingPerSize.
  struct Axis {
    std::array<float, 4> factors{};
    float stretch = 0.0F;  ///< how far two vertices of distance 1 can get apart
    float rounding = 0.0F;
    float roundingPerSize = 0.0F;
  };
  /// Across and up, as multiples of the third; that is 1 in flat views.
  [[nodiscard]] const std::array<Axis, 3>& axes() const { return axes_; }
  /// Vertices of less than this size stay numbers all the way.
  [[nodiscard]] float sizeEnd() const { return sizeEnd_; }
  [[nodiscard]] const PixelMap& map() const { return *map_; }

 private:
  const PixelMap* map_;
  std::array<Axis, 3> axes_;
  float sizeEnd_;
};

}  // namespace pv
