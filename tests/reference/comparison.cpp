#include "reference/comparison.h"

#include <bit>
#include <sstream>

namespace pv::reference {

namespace {

bool same(float a, float b) {
  return (a != a && b != b) || std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

bool same(Vec3 a, Vec3 b) {
  return same(a.x, b.x) && same(a.y, b.y) && same(a.z, b.z);
}

std::ostream& operator<<(std::ostream& out, Vec3 v) {
  return out << '(' << v.x << ", " << v.y << ", " << v.z << ')';
}

std::string streamDifference(const char* name, const VectorStreams& stream, const Mesh& wanted,
                             Vec3 Vertex::*member) {
  std::ostringstream out;
  out.precision(9);
  if (stream.size() != wanted.vertices.size()) {
    out << name << " holds " << stream.size() << " vertices instead of " << wanted.vertices.size();
    return out.str();
  }
  for (std::size_t i = 0; i < wanted.vertices.size(); ++i) {
    if (!same(stream.at(i), wanted.vertices[i].*member)) {
      out << name << " of vertex " << i << " is " << stream.at(i) << " instead of "
          << wanted.vertices[i].*member;
      return out.str();
    }
  }
  return {};
}

std::string lineDifference(const MeshSlot& slot, const Mesh& wanted) {
  std::ostringstream out;
  if (slot.lines.size() != wanted.lines.size()) {
    out << "mesh holds " << slot.lines.size() << " lines instead of " << wanted.lines.size();
    return out.str();
  }
  for (std::size_t i = 0; i < wanted.lines.size(); ++i) {
    if (slot.lines[i].first != wanted.lines[i].first ||
        slot.lines[i].second != wanted.lines[i].second) {
      out << "line " << i << " is " << slot.lines[i].first << "-" << slot.lines[i].second
          << " instead of " << wanted.lines[i].first << "-" << wanted.lines[i].second;
      return out.str();
    }
  }
  return {};
}

}  // namespace

std::string firstDifference(const ShapeMesh& mesh, const Mesh& wanted, Compared compared) {
  std::ostringstream out;
  const MeshSlot* slot = mesh.current();
  if ((slot != nullptr) != wanted.exists) {
    return wanted.exists ? "no mesh was built" : "a mesh was built for an unknown kind";
  }
  if (slot == nullptr) {
    return {};
  }
  if (slot->vertexCount != wanted.vertexCount || slot->lineCount != wanted.lineCount) {
    out << slot->vertexCount << " vertices and " << slot->lineCount << " lines instead of "
        << wanted.vertexCount << " and " << wanted.lineCount;
    return out.str();
  }
  const Vec3 grid{slot->grid.columns, slot->grid.rows, slot->grid.copies};
  if (!same(grid, wanted.grid)) {
    out << "grid is " << grid << " instead of " << wanted.grid;
    return out.str();
  }
  if (mesh.profile().size() != wanted.profile.size()) {
    out << "profile has " << mesh.profile().size() << " points instead of "
        << wanted.profile.size();
    return out.str();
  }
  std::string text = lineDifference(*slot, wanted);
  if (text.empty()) {
    text = streamDifference("base", slot->base, wanted, &Vertex::base);
  }
  if (text.empty() && compared.directions) {
    text = streamDifference("disperse", slot->disperse, wanted, &Vertex::disperse);
  }
  if (text.empty() && compared.positions) {
    text = streamDifference("position", slot->position, wanted, &Vertex::position);
  }
  return text;
}

std::string firstDifference(std::span<const std::uint32_t> frame,
                            std::span<const std::uint32_t> wanted, std::int32_t width) {
  std::ostringstream out;
  if (frame.size() != wanted.size()) {
    out << "frame has " << frame.size() << " pixels instead of " << wanted.size();
    return out.str();
  }
  std::size_t count = 0;
  std::size_t first = 0;
  for (std::size_t i = frame.size(); i-- > 0;) {
    if (frame[i] != wanted[i]) {
      first = i;
      ++count;
    }
  }
  if (count == 0) {
    return {};
  }
  const auto columns = static_cast<std::size_t>(width);
  out << count << " pixels differ, first (" << first % columns << ", " << first / columns
      << ") is 0x" << std::hex << frame[first] << " instead of 0x" << wanted[first];
  return out.str();
}

std::string describe(const ShapeRecord& shape) {
  const EmitterSettings& e = shape.emitter;
  const DuplicateSettings& d = shape.duplicates;
  const auto triple = [](const std::array<float, 3>& a) { return Vec3{a[0], a[1], a[2]}; };
  std::ostringstream out;
  out.precision(9);
  out << "kind " << static_cast<int>(e.kind) << ", horizontal " << e.horizontalAmount << " x "
      << e.horizontalSize << " to " << e.horizontalEnd << " centre " << e.horizontalCentre.isSet()
      << ", vertical " << e.verticalAmount << " x " << e.verticalSize << " centre "
      << e.verticalCentre.isSet() << ", path " << shape.path.count << "\ncopies " << e.copies
      << ": move " << triple(d.position) << " turn " << triple(d.rotation) << " scale "
      << triple(d.scale) << ", globally " << shape.applyModifiersGlobally << ", world "
      << shape.useWorldAxis << "\nbulge " << triple(d.bulge) << ", modifiers";
  for (const Vec3& value : shape.modifiers.triples) {
    out << ' ' << value;
  }
  return out.str();
}

}  // namespace pv::reference
