#include "reference/reference_lines.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace pv::reference {

namespace {

Matrix4 turnMatrix(float yaw, float pitch, float roll) {
  return D3DXMatrixRotationYawPitchRoll(toRadians(yaw), toRadians(pitch), toRadians(roll));
}

Matrix4 viewOf(const ViewCamera& camera) {
  const Vec3 eye = D3DXVec3Transform({0.0F, 0.0F, camera.distance},
                                     turnMatrix(360.0F - camera.yaw, -camera.pitch, 0.0F));
  const Matrix4 look = D3DXMatrixLookAtLH(eye, {0, 0, 0}, {0, 1, 0});
  return D3DXMatrixMultiply(look, turnMatrix(0.0F, 0.0F, camera.roll));
}

struct Segment {
  std::int64_t x1;
  std::int64_t y1;
  std::int64_t x2;
  std::int64_t y2;
};

bool inside(const Picture& picture, std::int64_t x, std::int64_t y) {
  return static_cast<std::uint64_t>(x) < static_cast<std::uint64_t>(picture.width) &&
         static_cast<std::uint64_t>(y) < static_cast<std::uint64_t>(picture.height);
}

bool bothInside(const Picture& picture, const Segment& s) {
  return inside(picture, s.x1, s.y1) && inside(picture, s.x2, s.y2);
}

/// At most one end an axis; false where nothing can be left.
bool clip(const Picture& picture, Segment& s) {
  const std::int64_t w = picture.width;
  const std::int64_t h = picture.height;
  if (s.x2 < 0 || std::max(s.y1, s.y2) < 0 || s.x1 >= w || std::min(s.y1, s.y2) >= h) {
    return false;
  }
  if (s.x1 < 0) {
    s.y1 += (s.y2 - s.y1) * (0 - s.x1) / (s.x2 - s.x1);
    s.x1 = 0;
  } else if (s.x2 >= w) {
    s.y2 += (s.y2 - s.y1) * (w - 1 - s.x2) / (s.x2 - s.x1);
    s.x2 = w - 1;
  }
  if (const std::int64_t dy = s.y2 - s.y1; dy != 0) {
    const std::int64_t dx = s.x2 - s.x1;
    if (s.y1 < 0) {
      s.x1 += dx * (0 - s.y1) / dy;
      s.y1 = 0;
    } else if (s.y2 < 0) {
      s.x2 += dx * (0 - s.y2) / dy;
      s.y2 = 0;
    } else if (s.y1 >= h) {
      s.x1 += dx * (h - 1 - s.y1) / dy;
      s.y1 = h - 1;
    } else if (s.y2 >= h) {
      s.x2 += dx * (h - 1 - s.y2) / dy;
      s.y2 = h - 1;
    }
  }
  return bothInside(picture, s);
}

void drawRow(const Picture& picture, std::int64_t y, std::int64_t x1, std::int64_t x2,
             std::uint32_t word) {
  if (y < 0 || y >= picture.height) {
    return;
  }
  const std::int64_t end = std::min(std::max(x1, x2), picture.width);
  for (std::int64_t x = std::max<std::int64_t>(std::min(x1, x2), 0); x < end; ++x) {
    picture.pixels[y * picture.width + x] = word;
  }
}

void walk(const Picture& picture, const Segment& s, std::uint32_t word) {
  const std::int64_t ax = std::abs(s.x2 - s.x1);
  const std::int64_t ay = std::abs(s.y2 - s.y1);
  const std::int64_t stepX = s.x2 < s.x1 ? -1 : 1;
  const std::int64_t stepY = s.y2 < s.y1 ? -picture.width : picture.width;
  const bool steep = ay > ax;
  const std::int64_t major = steep ? ay : ax;
  const std::int64_t minor = steep ? ax : ay;
  const std::int64_t forward = steep ? stepY : stepX;
  const std::int64_t sideways = steep ? stepX : stepY;
  std::int64_t error = 2 * minor - major;
  std::uint32_t* pixel = picture.pixels + s.y1 * picture.width + s.x1;
  for (std::int64_t i = 0; i < major; ++i) {
    *pixel = word;
    const bool turns = error >= 0;
    pixel += forward + (turns ? sideways : 0);
    error += 2 * minor - (turns ? 2 * major : 0);
  }
  *pixel = word;
}

}  // namespace

Projection::Projection(const FrameSetup& setup)
    : mode_(setup.mode),
      view_(viewOf(setup.camera)),
      centreX_(setup.width / 2),
      centreY_(setup.height / 2),
      halfWidth_(static_cast<float>(setup.width) / 2.0F),
      halfHeight_(static_cast<float>(setup.height) / 2.0F) {}

Spot Projection::flat(Vec3 p) const {
  const float x = halfWidth_ * (mode_ == ViewMode::Side ? p.z : p.x);
  const float y = halfHeight_ * (mode_ == ViewMode::Top ? p.z : p.y);
  if (x != x || y != y) {
    return {};
  }
  const std::int64_t rise = truncate(y);
  return {toPixel(std::int64_t{truncate(x)} + centreX_),
          toPixel(centreY_ + (mode_ == ViewMode::Top ? -rise : rise)), true};
}

void drawLine(const Picture& picture, std::int64_t x1, std::int64_t y1, std::int64_t x2,
              std::int64_t y2, std::uint32_t colour) {
  const std::uint32_t word = 0xFF000000U | colour;
  if (y1 == y2) {
    drawRow(picture, y1, x1, x2, word);
    return;
  }
  if (x1 > x2) {
    std::swap(x1, x2);
    std::swap(y1, y2);
  }
  Segment s{x1, y1, x2, y2};
  if (bothInside(picture, s) || clip(picture, s)) {
    walk(picture, s, word);
  }
}

void projectVertices(std::vector<Spot>& spots, const Mesh& mesh, const Projection& projection) {
  spots.resize(mesh.vertices.size());
  for (std::size_t i = 0; i < spots.size(); ++i) {
    spots[i] = projection.map(mesh.vertices[i].position);
  }
}

void drawMeshLines(const Picture& picture, const Mesh& mesh, const std::vector<Spot>& spots) {
  for (const Line& line : mesh.lines) {
    const Spot& a = spots[line.first];
    const Spot& b = spots[line.second];
    if (a.visible && b.visible) {
      drawLine(picture, a.x, a.y, b.x, b.y, 0xEEEEEE);
    }
  }
}

}  // namespace pv::reference
