#include "view3d/view_camera.h"

#include <algorithm>

#include "math/scalar.h"
#include "shape/modifiers.h"

namespace pv {

namespace {

void rotate(ViewCamera& camera, std::int32_t dx, std::int32_t dy) {
  if (dx != 0) {
    camera.yaw += static_cast<float>(dx);
  }
  // Below zero the angle is mirrored, not wrapped: -5 becomes 365, and the next
  // move folds it to 5. The fold therefore runs on every move.
  if (camera.yaw < 0.0F) {
    camera.yaw = 360.0F - camera.yaw;
  } else if (camera.yaw > 360.0F) {
    camera.yaw -= 360.0F;
  }
  if (dy != 0) {
    camera.pitch =
        std::clamp(camera.pitch + static_cast<float>(dy), kMinCameraPitch, kMaxCameraPitch);
  }
}

}  // namespace

bool dragCamera(ViewCamera& camera, CameraTool tool, std::int32_t dx, std::int32_t dy) {
  const ViewCamera before = camera;
  switch (tool) {
    case CameraTool::Rotate:
      rotate(camera, dx, dy);
      break;
    case CameraTool::Zoom:
      camera.distance =
          std::clamp(camera.distance + static_cast<float>(std::int64_t{dy} - dx) / 80.0F,
                     kMinCameraDistance, kMaxCameraDistance);
      break;
    case CameraTool::Roll: {
      const std::int64_t half = (std::int64_t{dx} + dy) / 2;  // whole degrees, towards zero
      camera.roll =
          std::clamp(camera.roll + static_cast<float>(half), kMinCameraRoll, kMaxCameraRoll);
      break;
    }
  }
  return camera != before;
}

Vec3 eyePosition(float yaw, float pitch, float distance) {
  return D3DXVec3Transform({0.0F, 0.0F, distance},
                           D3DXMatrixRotationYawPitchRoll((360.0F - yaw) * kRadiansPerDegree,
                                                          -pitch * kRadiansPerDegree, 0.0F));
}

Matrix4 viewMatrix(Vec3 eye, float roll) {
  return D3DXMatrixMultiply(D3DXMatrixLookAtLH(eye, {0.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}),
                            D3DXMatrixRotationYawPitchRoll(0.0F, 0.0F, roll * kRadiansPerDegree));
}

Matrix4 objectMatrix(float a, float b, float c, Vec3 factors) {
  return modifierMatrix({b, a, c}, factors);
}

}  // namespace pv
