#include "reference/reference_shape.h"

#include <algorithm>
#include <array>

#include "math/matrix4.h"
#include "math/scalar.h"
#include "reference/reference_chain.h"

namespace pv::reference {

namespace {

float toFloat(std::int64_t value) {
  return static_cast<float>(value);
}

float drawComponent(Random& random) {
  const float a = static_cast<float>(random.next() % 100001) / 100000.0F;
  const float b = static_cast<float>(random.next() % 100001) / 100000.0F;
  return a - b;
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
  mesh.lines.reserve(static_cast<std::size_t>(mesh.lineCount));
  const auto add = [&](std::int64_t first, std::int64_t second) {
    mesh.lines.push_back({static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(second)});
  };
  for (std::int64_t j = 0; j <= sections; ++j) {
    for (std::int64_t k = 0; k <= n - 2; ++k) {
      add(j * n + k, j * n + k + 1);
    }
  }
  for (std::int64_t j = 0; j <= sections - 1; ++j) {
    for (std::int64_t k = 0; k <= n - 1; ++k) {
      add(j * n + k, j * n + k + n);
    }
  }
}

void extrude(Mesh& mesh, const std::vector<Vec3>& points, std::int64_t n, std::int64_t sections,
             float w, bool centre, Random& random) {
  const float half = centre ? toFloat(sections) * w / 2.0F : 0.0F;
  allocateVertices(mesh, n, sections);
  for (std::int64_t j = 0; j <= sections; ++j) {
    const float offset = toFloat(j) * w - half;
    for (std::int64_t k = 0; k < n; ++k) {
      const Vec3 p = points[static_cast<std::size_t>(k)];
      mesh.vertices[static_cast<std::size_t>(j * n + k)].base = {p.x, p.y, p.z - offset};
    }
  }
  drawDirections(mesh.vertices, random);
  buildLines(mesh, n, sections);
}

void rotate(Mesh& mesh, std::int64_t sections, std::int64_t angle, bool centre, bool swap,
            Random& random) {
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
  drawDirections(mesh.vertices, random);
  buildLines(mesh, n, sections);
}

void buildPoint(Mesh& mesh, Random& random) {
  mesh.profile.clear();
  allocateVertices(mesh, 1, 0);
  drawDirections(mesh.vertices, random);
}

void buildGrid(Mesh& mesh, const EmitterSettings& e, Random& random) {
  mesh.profile.clear();
  const float h = toFloat(e.horizontalSize) / 1000.0F;
  const float top = e.horizontalCentre.isSet() ? toFloat(e.horizontalAmount) * h / 2.0F : 0.0F;
  const std::int64_t rows = std::int64_t{e.horizontalAmount} + 1;
  std::vector<Vec3> column;
  for (std::int64_t i = 0; i < rows; ++i) {
    column.push_back({0.0F, top - toFloat(i) * h, 0.0F});
  }
  extrude(mesh, column, rows, e.verticalAmount, toFloat(e.verticalSize) / 1000.0F,
          e.verticalCentre.isSet(), random);
}

void buildSphere(Mesh& mesh, const EmitterSettings& e, Random& random) {
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
  rotate(mesh, e.verticalAmount, e.verticalSize, e.verticalCentre.isSet(), false, random);
}

struct Instance {
  Matrix4 matrix;
  Vec3 offset;

  [[nodiscard]] Vec3 place(Vec3 p) const { return D3DXVec3Transform(p, matrix) + offset; }
};

Instance instanceOf(const ShapeRecord& shape, std::int64_t k) {
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
  return {D3DXMatrixMultiply(s, r), {offset(0), offset(1), offset(2)}};
}

void duplicate(Mesh& mesh, const ShapeRecord& shape, Random& random) {
  const std::int64_t copies = shape.emitter.copies;
  if (copies < 1 || copies > 20) {
    return;
  }
  const std::size_t vertices = mesh.vertices.size();
  const std::size_t lines = mesh.lines.size();
  const auto all = static_cast<std::size_t>(copies) + 1;
  mesh.vertexCount *= copies + 1;
  mesh.lineCount *= copies + 1;
  mesh.vertices.reserve(vertices * all);
  mesh.lines.reserve(lines * all);
  for (std::int64_t k = 1; k <= copies; ++k) {
    const Instance instance = instanceOf(shape, k);
    for (std::size_t i = 0; i < vertices; ++i) {
      mesh.vertices.push_back({instance.place(mesh.vertices[i].base), {}, {}});
    }
    const auto shift = static_cast<std::uint32_t>(static_cast<std::size_t>(k) * vertices);
    for (std::size_t i = 0; i < lines; ++i) {
      mesh.lines.push_back({mesh.lines[i].first + shift, mesh.lines[i].second + shift});
    }
  }
  drawDirections(mesh.vertices, random);
}

void replicate(Mesh& mesh, const ShapeRecord& shape) {
  const std::int64_t copies = shape.emitter.copies;
  if (copies < 1 || copies > 20) {
    return;
  }
  const std::size_t per = mesh.vertices.size() / static_cast<std::size_t>(copies + 1);
  for (std::int64_t k = 1; k <= copies; ++k) {
    const Instance instance = instanceOf(shape, k);
    for (std::size_t i = 0; i < per; ++i) {
      mesh.vertices[static_cast<std::size_t>(k) * per + i].position =
          instance.place(mesh.vertices[i].position);
    }
  }
}

}  // namespace

Matrix4 transformMatrix(Vec3 rotation, Vec3 scale) {
  const Matrix4 s = D3DXMatrixScaling(scale.x, scale.y, scale.z);
  const Matrix4 r = D3DXMatrixRotationYawPitchRoll(toRadians(360.0F - rotation.y),
                                                   toRadians(-rotation.x), toRadians(-rotation.z));
  return D3DXMatrixMultiply(s, r);
}

void drawDirections(std::vector<Vertex>& vertices, Random& random) {
  for (Vertex& vertex : vertices) {
    vertex.disperse.x = drawComponent(random);
    vertex.disperse.y = drawComponent(random);
    vertex.disperse.z = drawComponent(random);
  }
}

Mesh generateShape(const ShapeRecord& shape, Random& random) {
  Mesh mesh;
  generateShape(mesh, shape, random);
  return mesh;
}

void generateShape(Mesh& mesh, const ShapeRecord& shape, Random& random) {
  const EmitterSettings& e = shape.emitter;
  const PathRecord& path = shape.path;
  mesh.exists = true;
  mesh.vertexCount = 0;
  mesh.lineCount = 0;
  mesh.grid = {};
  mesh.vertices.clear();
  mesh.lines.clear();
  mesh.profile.assign(path.points.begin(), path.points.begin() + std::clamp(path.count, 0, 512));
  const float columns = toFloat(e.verticalAmount);
  const float copies = toFloat(e.copies);
  const auto pathPoints = static_cast<std::int64_t>(mesh.profile.size());
  switch (e.kind) {
    case EmitterKind::Point:
      buildPoint(mesh, random);
      mesh.grid = {1.0F, 1.0F, copies};
      break;
    case EmitterKind::GridPatch:
      buildGrid(mesh, e, random);
      mesh.grid = {columns, toFloat(std::int64_t{e.horizontalAmount} + 1), copies};
      break;
    case EmitterKind::SpherePatch:
      buildSphere(mesh, e, random);
      mesh.grid = {columns, toFloat(std::int64_t{e.horizontalAmount} + 1), copies};
      break;
    case EmitterKind::LoftPath: {
      const std::vector<Vec3> points = mesh.profile;
      extrude(mesh, points, pathPoints, e.verticalAmount, toFloat(e.verticalSize) / 1000.0F,
              e.verticalCentre.isSet(), random);
      mesh.grid = {columns, toFloat(pathPoints), copies};
      break;
    }
    case EmitterKind::SweepPath:
      rotate(mesh, e.verticalAmount, e.verticalSize, e.verticalCentre.isSet(), true, random);
      mesh.grid = {columns, toFloat(pathPoints), copies};
      break;
    default:
      mesh.exists = false;
      return;
  }
  duplicate(mesh, shape, random);
}

void applyModifiers(Mesh& mesh, const ShapeRecord& shape) {
  const std::array<Vec3, 14>& values = shape.modifiers.triples;
  const Matrix4 vertexMatrix = transformMatrix(values[1], values[2]);
  const Chain chain(shape);
  for (Vertex& vertex : mesh.vertices) {
    Vec3 p = D3DXVec3Transform(vertex.base, vertexMatrix) + values[0];
    chain.apply(p, vertex.disperse);
    vertex.position = p;
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
