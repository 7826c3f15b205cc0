#include "cli/obj_text.h"

#include <array>
#include <charconv>
#include <cmath>

#include "util/number_text.h"

namespace pv {

namespace {

// Typical lengths of a line; only the first guess at the memory.
constexpr std::size_t kVertexLine = 36;
constexpr std::size_t kSegmentLine = 14;

void appendVertex(std::string& text, Vec3 v) {
  std::array<char, 3 * kNumberTextSize + 5> line{'v'};
  char* end = line.data() + 1;
  for (const float value : {v.x, v.y, v.z}) {
    *end++ = ' ';
    end = writeNumber(end, value);
  }
  *end++ = '\n';
  text.append(line.data(), end);
}

void appendSegment(std::string& text, ShapeLine segment) {
  std::array<char, 32> line{'l'};
  char* end = line.data() + 1;
  for (const std::uint32_t index : {segment.first, segment.second}) {
    *end++ = ' ';
    end = std::to_chars(end, line.data() + line.size(), index + 1).ptr;  // counted from 1
  }
  *end++ = '\n';
  text.append(line.data(), end);
}

bool isFinite(Vec3 v) {
  return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

}  // namespace

Result<std::string> objText(const MeshSlot& mesh, MeshStage stage) {
  const VectorStreams& vertices = stage == MeshStage::Base ? mesh.base : mesh.position;
  std::string text;
  text.reserve(vertices.size() * kVertexLine + mesh.lines.size() * kSegmentLine);
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    const Vec3 v = vertices.at(i);
    if (!isFinite(v)) {
      return Error{ErrorKind::BadData,
                   {},
                   {},
                   "the position of vertex " + std::to_string(i) + " is not finite"};
    }
    appendVertex(text, v);
  }
  for (const ShapeLine& segment : mesh.lines) {
    appendSegment(text, segment);
  }
  return text;
}

}  // namespace pv
