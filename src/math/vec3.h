#pragma once

namespace pv {

/// A point or direction in shape space, single precision.
struct Vec3 {
  float x = 0.0F;
  float y = 0.0F;
  float z = 0.0F;

  bool operator==(const Vec3&) const = default;

  /// Component by axis: 0 x, 1 y, anything else z.
  [[nodiscard]] constexpr float& axis(int index) { return index == 0 ? x : (index == 1 ? y : z); }
  [[nodiscard]] constexpr float axis(int index) const {
    return index == 0 ? x : (index == 1 ? y : z);
  }
};

[[nodiscard]] constexpr Vec3 operator+(Vec3 a, Vec3 b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}
[[nodiscard]] constexpr Vec3 operator-(Vec3 a, Vec3 b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}

}  // namespace pv
