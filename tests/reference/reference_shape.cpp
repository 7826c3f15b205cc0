#include "reference/reference_shape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "math/matrix4.h"
#include "math/scalar.h"

namespace pv::reference {

namespace {

float toFloat(std::int64_t value) {
  return static_cast<float>(value);
}

float drawComponent() {
  const float a = toFloat(std::rand() % 100001) / 100000.0F;
  const float b = toFloat(std::rand() % 100001) / 100000.0F;
  return a - b;
}

void drawDirections(Mesh& mesh) {
  for (Vertex& vertex : mesh.vertices) {
    vertex.disperse.x = drawComponent();
    vertex.disperse.y = drawComponent();
    vertex.disperse.z = drawComponent();
  }
}

/// Two negative amounts multiply to a positive count of nothing.
bool isEmpty(std::int64_t n, std::int64_t sections) {
  return n < 1 || sections < 0;
}

void allocateVertices(Mesh& mesh, std::int64_t n, std::int64_t sections) {
  mesh.vertexCount = (sections + 1) * n;
  mesh.vertices.resize(isEmpty(n, sections) ? 0 : static_cast<std::size_t>(mesh.vertexCount));
}

void buildLines(Mesh& mesh, std::int64_t n, std::int64_t sections) {
  mesh.lineCount = (sections + 1) * (n - 1) + sections * n;
  if (mesh.lineCount < 1 || isEmpty(n, sections)) {
    return;
  }
  for (std::int64_t j = 0; j <= sections; ++j) {
    for (std::int64_t k = 0; k <= n - 2; ++k) {
      mesh.lines.push_back({j * n + k, j * n + k + 1});
    }
  }
  for (std::int64_t j = 0; j <= sections - 1; ++j) {
    for (std::int64_t k = 0; k <= n - 1; ++k) {
      mesh.lines.push_back({j * n + k, j * n + k + n});
    }
  }
}

void extrude(Mesh& mesh, const std::vector<Vec3>& points, std::int64_t n, std::int64_t sections,
             float w, bool centre) {
  const float half = centre ? toFloat(sections) * w / 2.0F : 0.0F;
  allocateVertices(mesh, n, sections);
  for (std::int64_t j = 0; j <= sections; ++j) {
    const float offset = toFloat(j) * w - half;
    for (std::int64_t k = 0; k < n; ++k) {
      const Vec3 p = points[static_cast<std::size_t>(k)];
      mesh.vertices[static_cast<std::size_t>(j * n + k)].base = {p.x, p.y, p.z - offset};
    }
  }
  drawDirections(mesh);
  buildLines(mesh, n, sections);
}

void rotate(Mesh& mesh, std::int64_t sections, std::int64_t angle, bool centre, bool swap) {
  const float half = centre ? toFloat(angle) / 2.0F : 0.0F;
  const auto n = static_cast<std::int64_t>(mesh.profile.size());
  allocateVertices(mesh, n, sections);
  const float step = sections == 0 ? 0.0F : toFloat(angle) / toFloat(sections);
  for (std::int64_t j = 0; j <= sections; ++j) {
    const float phi = toRadians(toFloat(j) * step - half);
    const Matrix4 m = D3DXMatrixRotationYawPitchRoll(phi, 0.0F, 0.0F);
    for (std::int64_t k = 0; k < n; ++k) {
      const Vec3 p = mesh.profile[static_cast<std::size_t>(k)];
      Vec3& base = mesh.vertices[static_cast<std::size_t>(j * n + k)].base;
      if (swap) {
        const Vec3 turned = D3DXVec3Transform({p.z, p.y, p.x}, m);
        base = {turned.z, turned.y, turned.x};
      } else {
        base = D3DXVec3Transform(p, m);
      }
    }
  }
  drawDirections(mesh);
  buildLines(mesh, n, sections);
}

void buildPoint(Mesh& mesh) {
  mesh.profile.clear();
  allocateVertices(mesh, 1, 0);
  drawDirections(mesh);
}

void buildGrid(Mesh& mesh, const EmitterSettings& e) {
  mesh.profile.clear();
  const float h = toFloat(e.horizontalSize) / 1000.0F;
  const float top = e.horizontalCentre.isSet() ? toFloat(e.horizontalAmount) * h / 2.0F : 0.0F;
  const std::int64_t rows = std::int64_t{e.horizontalAmount} + 1;
  std::vector<Vec3> column;
  for (std::int64_t i = 0; i < rows; ++i) {
    column.push_back({0.0F, top - toFloat(i) * h, 0.0F});
  }
  extrude(mesh, column, rows, e.verticalAmount, toFloat(e.verticalSize) / 1000.0F,
          e.verticalCentre.isSet());
}

void buildSphere(Mesh& mesh, const EmitterSettings& e) {
  mesh.profile.clear();
  const std::int64_t count = std::int64_t{e.horizontalAmount} + 1;
  std::int64_t start = e.horizontalSize;
  std::int64_t extent = e.horizontalEnd;
  if (e.horizontalCentre.isSet()) {
    start = 90 - extent / 2;
  }
  if (start + extent >= 180) {
    extent = 180 - start;
  }
  const float step = count == 1 ? 0.0F : toFloat(extent) / toFloat(count - 1);
  for (std::int64_t i = 0; i < count && i < kMaxPathPoints; ++i) {
    const float a = -(toFloat(i) * step) - toFloat(start);
    const Matrix4 turn = D3DXMatrixRotationZ(toRadians(a));
    mesh.profile.push_back(D3DXVec3Transform({0.0F, 0.5F, 0.0F}, turn));
  }
  rotate(mesh, e.verticalAmount, e.verticalSize, e.verticalCentre.isSet(), false);
}

Vec3 instancePoint(const ShapeRecord& shape, std::int64_t k, Vec3 p) {
  const DuplicateSettings& d = shape.duplicates;
  const auto angle = [&](std::size_t axis) {
    return toRadians(toFloat(k * truncate(d.rotation[axis])));
  };
  const auto factor = [&](std::size_t axis) {
    return 1.0F + toFloat(k) * (d.scale[axis] / 200.0F);
  };
  const auto offset = [&](std::size_t axis) { return toFloat(k) * (d.position[axis] / 200.0F); };
  const Matrix4 r = D3DXMatrixRotationYawPitchRoll(angle(1), angle(0), angle(2));
  const Matrix4 s = D3DXMatrixScaling(factor(0), factor(1), factor(2));
  const Matrix4 m = D3DXMatrixMultiply(s, r);
  return D3DXVec3Transform(p, m) + Vec3{offset(0), offset(1), offset(2)};
}

void duplicate(Mesh& mesh, const ShapeRecord& shape) {
  const std::int64_t copies = shape.emitter.copies;
  if (copies < 1 || copies > 20) {
    return;
  }
  const std::vector<Vertex> vertices = mesh.vertices;
  const std::vector<Line> lines = mesh.lines;
  const std::int64_t n = mesh.vertexCount;
  mesh.vertexCount *= copies + 1;
  mesh.lineCount *= copies + 1;
  for (std::int64_t k = 1; k <= copies; ++k) {
    for (Vertex vertex : vertices) {
      vertex.base = instancePoint(shape, k, vertex.base);
      mesh.vertices.push_back(vertex);
    }
    for (const Line& line : lines) {
      mesh.lines.push_back({line.first + k * n, line.second + k * n});
    }
  }
  drawDirections(mesh);
}

void replicate(Mesh& mesh, const ShapeRecord& shape) {
  const std::int64_t copies = shape.emitter.copies;
  if (copies < 1 || copies > 20) {
    return;
  }
  const std::size_t per = mesh.vertices.size() / static_cast<std::size_t>(copies + 1);
  for (std::int64_t k = 1; k <= copies; ++k) {
    for (std::size_t i = 0; i < per; ++i) {
      mesh.vertices[static_cast<std::size_t>(k) * per + i].position =
          instancePoint(shape, k, mesh.vertices[i].position);
    }
  }
}

bool allZero(Vec3 v) {
  return v.x == 0.0F && v.y == 0.0F && v.z == 0.0F;
}

Vec3 hundredths(Vec3 v) {
  return {v.x / 100.0F, v.y / 100.0F, v.z / 100.0F};
}

void pinchA(Vec3& p, Vec3 v) {
  const auto [a, b, c] = hundredths(v);
  p.x = p.x - a * p.y * p.x;
  p.y = p.y - b * p.x * p.y;
  p.z = p.z - c * p.y * p.z;
}

void pinchB(Vec3& p, Vec3 v) {
  const auto [a, b, c] = hundredths(v);
  p.x = p.x - a * p.z * p.x;
  p.y = p.y - b * p.z * p.y;
  p.z = p.z - c * p.x * p.z;
}

void taper(Vec3& p, Vec3 v) {
  const Vec3 t = hundredths(v);
  if (v.x != 0.0F) {
    p.y = p.y - t.x * p.x * p.y;
    p.z = p.z - t.x * p.x * p.z;
  }
  if (v.y != 0.0F) {
    p.x = p.x - t.y * p.y * p.x;
    p.z = p.z - t.y * p.y * p.z;
  }
  if (v.z != 0.0F) {
    const float s = t.z * p.z;
    p.y = p.y - s * p.y;
    p.x = p.x - s * p.x;
  }
}

void shearA(Vec3& p, Vec3 v) {
  const auto [a, b, c] = hundredths(v);
  p.y = p.y - b * p.x;
  p.x = p.x - a * p.z;
  p.z = p.z - c * p.x;
}

void shearB(Vec3& p, Vec3 v) {
  const auto [a, b, c] = hundredths(v);
  p.y = p.y - b * p.z;
  p.x = p.x - a * p.y;
  p.z = p.z - c * p.y;
}

void turn(Vec3& p, float x, float y, float z) {
  const Matrix4 xy =
      D3DXMatrixMultiply(D3DXMatrixRotationX(toRadians(x)), D3DXMatrixRotationY(toRadians(y)));
  p = D3DXVec3Transform(p, D3DXMatrixMultiply(xy, D3DXMatrixRotationZ(toRadians(z))));
}

void bulge(Vec3& p, Vec3 v) {
  const auto [a, b, c] = hundredths(v);
  float f = 2.0F - std::fabs(p.x);
  p.y = p.y + a * f * p.y;
  p.z = p.z + a * f * p.z;
  f = 2.0F - std::fabs(p.y);
  p.x = p.x + b * f * p.x;
  p.z = p.z + b * f * p.z;
  f = 2.0F - std::fabs(p.z);
  p.y = p.y + c * f * p.y;
  p.x = p.x + c * f * p.x;
}

/// The middle of the chain, from Disperse to Bulge. Values stand in file order.
void modify(Vertex& vertex, const std::array<Vec3, 14>& values, Vec3 bulgeValue) {
  Vec3& p = vertex.position;
  p.x += values[3].x / 200.0F * vertex.disperse.x;
  p.y += values[3].y / 200.0F * vertex.disperse.y;
  p.z += values[3].z / 200.0F * vertex.disperse.z;
  if (!allZero(values[4])) {
    pinchA(p, values[4]);
  }
  if (!allZero(values[5])) {
    pinchB(p, values[5]);
  }
  if (!allZero(values[6])) {
    taper(p, values[6]);
  }
  if (!allZero(values[7])) {
    shearA(p, values[7]);
  }
  if (!allZero(values[8])) {
    shearB(p, values[8]);
  }
  if (const Vec3 bend = values[9]; !allZero(bend)) {
    turn(p, bend.x * p.y, bend.y * p.z, bend.z * p.y);
  }
  if (const Vec3 twist = values[10]; !allZero(twist)) {
    turn(p, twist.x * p.x, twist.y * p.y, twist.z * p.z);
  }
  if (!allZero(bulgeValue)) {
    bulge(p, bulgeValue);
  }
}

}  // namespace

Matrix4 transformMatrix(Vec3 rotation, Vec3 scale) {
  const Matrix4 s = D3DXMatrixScaling(scale.x, scale.y, scale.z);
  const Matrix4 r = D3DXMatrixRotationYawPitchRoll(toRadians(360.0F - rotation.y),
                                                   toRadians(-rotation.x), toRadians(-rotation.z));
  return D3DXMatrixMultiply(s, r);
}

Mesh generateShape(const ShapeRecord& shape) {
  const EmitterSettings& e = shape.emitter;
  const PathRecord& path = shape.path;
  Mesh mesh;
  mesh.exists = true;
  mesh.profile.assign(path.points.begin(), path.points.begin() + std::clamp(path.count, 0, 512));
  const float columns = toFloat(e.verticalAmount);
  const float copies = toFloat(e.copies);
  const auto pathPoints = static_cast<std::int64_t>(mesh.profile.size());
  switch (e.kind) {
    case EmitterKind::Point:
      buildPoint(mesh);
      mesh.grid = {1.0F, 1.0F, copies};
      break;
    case EmitterKind::GridPatch:
      buildGrid(mesh, e);
      mesh.grid = {columns, toFloat(std::int64_t{e.horizontalAmount} + 1), copies};
      break;
    case EmitterKind::SpherePatch:
      buildSphere(mesh, e);
      mesh.grid = {columns, toFloat(std::int64_t{e.horizontalAmount} + 1), copies};
      break;
    case EmitterKind::LoftPath: {
      const std::vector<Vec3> points = mesh.profile;
      extrude(mesh, points, pathPoints, e.verticalAmount, toFloat(e.verticalSize) / 1000.0F,
              e.verticalCentre.isSet());
      mesh.grid = {columns, toFloat(pathPoints), copies};
      break;
    }
    case EmitterKind::SweepPath:
      rotate(mesh, e.verticalAmount, e.verticalSize, e.verticalCentre.isSet(), true);
      mesh.grid = {columns, toFloat(pathPoints), copies};
      break;
    default:
      mesh.exists = false;
      return mesh;
  }
  duplicate(mesh, shape);
  return mesh;
}

void applyModifiers(Mesh& mesh, const ShapeRecord& shape) {
  const std::array<Vec3, 14>& values = shape.modifiers.triples;
  const std::array<float, 3>& b = shape.duplicates.bulge;
  const Matrix4 vertexMatrix = transformMatrix(values[1], values[2]);
  for (Vertex& vertex : mesh.vertices) {
    vertex.position = D3DXVec3Transform(vertex.base, vertexMatrix) + values[0];
    modify(vertex, values, {b[0], b[1], b[2]});
  }
  const auto transformShape = [&] {
    const Matrix4 m = transformMatrix(values[12], values[13]);
    for (Vertex& vertex : mesh.vertices) {
      vertex.position = D3DXVec3Transform(vertex.position, m) + values[11];
    }
  };
  if (shape.applyModifiersGlobally != 0) {
    transformShape();
  } else if (shape.useWorldAxis == 0) {
    replicate(mesh, shape);
    transformShape();
  } else {
    transformShape();
    replicate(mesh, shape);
  }
}

}  // namespace pv::reference
