// Writes seed inputs into FOLDER/shape_file, FOLDER/path_file, FOLDER/svg and
// FOLDER/render: whole files, which a fuzzer would hardly find by itself.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "path/path_file.h"
#include "shape/shape_file.h"

namespace {

namespace fs = std::filesystem;

void save(const fs::path& file, std::span<const std::byte> bytes) {
  fs::create_directories(file.parent_path());
  std::ofstream stream(file, std::ios::binary);
  for (const std::byte byte : bytes) {
    stream.put(std::to_integer<char>(byte));
  }
}

pv::PathRecord zigzag(std::int32_t count) {
  pv::PathRecord path;
  path.count = count;
  for (std::int32_t i = 0; i < std::min(count, pv::kMaxPathPoints); ++i) {
    const auto step = static_cast<float>(i);
    path.points[static_cast<std::size_t>(i)] = {i % 2 == 0 ? 0.25F : -0.5F, step / 512.0F, 0.0F};
  }
  return path;
}

void saveFiles(const fs::path& folder) {
  for (const std::int32_t count : {0, 1, 7, 512, 513}) {
    const std::string name = std::to_string(count) + "-points";
    save(folder / "path_file" / name, pv::encodePathFile(zigzag(count)));
    pv::ShapeRecord shape;
    shape.emitter.kind = static_cast<pv::EmitterKind>(count % 6);
    shape.path = zigzag(count);
    shape.modifiers.triples[3] = {1.0F, -2.0F, 3.0F};
    save(folder / "shape_file" / name, pv::encodeShapeFile(shape));
  }
}

void saveNoise(const fs::path& folder) {
  std::mt19937 dice(1);
  for (int i = 0; i < 64; ++i) {
    std::vector<std::byte> bytes(40 + dice() % 400);
    for (std::byte& byte : bytes) {
      byte = static_cast<std::byte>(dice() & 0xFFU);
    }
    save(folder / "render" / ("noise-" + std::to_string(i)), bytes);
  }
}

void saveDrawings(const fs::path& folder) {
  const std::string_view drawings[] = {
      "<svg viewBox='0 0 9 9'><g transform='rotate(30 1 2) skewX(5)'><rect x='10%' width='2mm' "
      "height='4' rx='1'/><circle cx='5' cy='6' r='2'/></g><ellipse rx='3' ry='auto'/></svg>",
      "<svg><path d='M0 0h1v2l-3-4c1 2 3 4 5 6s7 8 9 1q2 3 4 5t6 7a8 9 10 0111 1e1z "
      "m.5.5L1,1'/></svg>",
      "<svg><a><polygon points='0,0 1,0 1,1'/></a><polyline points='1 2 3 4' style='display: none' "
      "/><line x1='1' y2='2' transform='matrix(1 0 0 1 2 3)'/><text>t</text></svg>",
  };
  int number = 0;
  for (const std::string_view drawing : drawings) {
    save(folder / "svg" / std::to_string(number++), std::as_bytes(std::span(drawing)));
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: fuzz_seeds FOLDER\n", stderr);
    return 64;
  }
  saveFiles(argv[1]);
  saveDrawings(argv[1]);
  saveNoise(argv[1]);
  return 0;
}
