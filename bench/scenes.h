#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "shape/shape_record.h"
#include "view3d/view_camera.h"

namespace pv::bench {

/// S1 is a grid, S2 a fine sphere, S3 that sphere with twenty duplicates.
enum class Emitter : std::uint8_t { Grid, Sphere, SphereRing };

/// Whether the modifiers change anything, and whether duplicates are shaped one
/// by one or as one object.
enum class Modifiers : std::uint8_t { Neutral, All, AllGlobally };

struct Scene {
  std::string name;  ///< as in "S2/neutral"
  Emitter emitter;
  Modifiers modifiers;
};

/// Every scene that is measured. The modifiers' reach matters only for S3.
[[nodiscard]] const std::vector<Scene>& allScenes();
[[nodiscard]] ShapeRecord makeShape(const Scene& scene);
/// By its name, which must be one of them.
[[nodiscard]] ShapeRecord makeShape(std::string_view name);

struct FrameSize {
  std::int32_t width;
  std::int32_t height;
  [[nodiscard]] std::string name() const;  ///< as in "640x480"
};
inline constexpr std::array<FrameSize, 2> kFrameSizes{{{640, 480}, {1920, 1080}}};

[[nodiscard]] ViewCamera benchCamera();

}  // namespace pv::bench
