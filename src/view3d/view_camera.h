#pragma once

#include <cstdint>

#include "math/matrix4.h"
#include "math/vec3.h"

namespace pv {

enum class CameraTool : std::int32_t { Rotate, Zoom, Roll };

/// Values above Side draw no shape.
enum class ViewMode : std::int32_t { Perspective, Top, Front, Side };

inline constexpr float kMinCameraPitch = -89.0F;
inline constexpr float kMaxCameraPitch = 89.0F;
inline constexpr float kMinCameraRoll = -179.0F;
inline constexpr float kMaxCameraRoll = 179.0F;
inline constexpr float kMinCameraDistance = 1.2F;
inline constexpr float kMaxCameraDistance = 4.0F;

/// An eye that circles the origin and looks at it; angles in degrees.
struct ViewCamera {
  float yaw = 270.0F;
  float pitch = 0.0F;
  float roll = 0.0F;
  float distance = kMinCameraDistance;

  void reset() { *this = {}; }
  bool operator==(const ViewCamera&) const = default;
};

/// Moves the camera by a mouse movement of (dx, dy) pixels, y downwards.
/// True when the camera changed.
bool dragCamera(ViewCamera& camera, CameraTool tool, std::int32_t dx, std::int32_t dy);

[[nodiscard]] Vec3 eyePosition(float yaw, float pitch, float distance);
/// Looks from the eye at the origin, then rolls the picture.
[[nodiscard]] Matrix4 viewMatrix(Vec3 eye, float roll);
/// Scaling, then rotation by `a` about y, `b` about x and `c` about z, in
/// degrees and in the camera's sense of direction.
[[nodiscard]] Matrix4 objectMatrix(float a, float b, float c, Vec3 factors);

}  // namespace pv
