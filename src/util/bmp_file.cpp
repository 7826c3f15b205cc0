#include "util/bmp_file.h"

#include <algorithm>
#include <array>

#include "util/files.h"
#include "util/little_endian.h"
#include "util/utf8_path.h"

namespace pv {
namespace {

constexpr std::uint16_t kMagic = 0x4D42;  // "BM"
constexpr std::uint16_t kPlanes = 1;
constexpr std::uint32_t kUncompressed = 0;
constexpr std::array<std::uint16_t, 6> kDepths{1, 4, 8, 16, 24, 32};
constexpr std::size_t kHeaderBytes = kBmpFileHeaderBytes + kBmpInfoHeaderBytes;
constexpr std::size_t kColourBytes = 4;

std::size_t rowBytes(std::uint16_t depth, std::int32_t width) {
  const auto bits = static_cast<std::size_t>(depth) * static_cast<std::size_t>(width);
  return ((bits + 31) & ~std::size_t{31}) / 8;
}

}  // namespace

std::uint16_t bmpDepth(std::uint32_t planes, std::uint32_t bitsPerPixel) {
  const std::uint64_t bits = std::uint64_t{planes} * bitsPerPixel;
  const auto fits = std::find_if(kDepths.begin(), kDepths.end(),
                                 [bits](std::uint16_t depth) { return bits <= depth; });
  return fits == kDepths.end() ? kDepths.back() : *fits;
}

std::uint32_t bmpColourCount(std::uint16_t depth) {
  return depth < 24 ? std::uint32_t{1} << depth : 0;
}

std::size_t bmpImageBytes(std::uint16_t depth, std::int32_t width, std::int32_t height) {
  return rowBytes(depth, width) * static_cast<std::size_t>(height);
}

std::vector<std::byte> encodeDib(std::uint16_t depth, std::int32_t width, std::int32_t height,
                                 std::span<const std::uint32_t> colours,
                                 std::span<const std::byte> pixels) {
  const std::uint32_t colourCount = bmpColourCount(depth);
  const std::size_t offset = kHeaderBytes + kColourBytes * colourCount;
  const std::size_t imageBytes = bmpImageBytes(depth, width, height);

  FieldWriter out;
  out.field(kMagic);
  out.field(static_cast<std::uint32_t>(offset + imageBytes));
  out.field(std::uint32_t{0});  // two reserved words
  out.field(static_cast<std::uint32_t>(offset));

  out.field(static_cast<std::uint32_t>(kBmpInfoHeaderBytes));
  out.field(width);
  out.field(height);  // above 0: the bottom row first
  out.field(kPlanes);
  out.field(depth);
  out.field(kUncompressed);
  out.field(static_cast<std::uint32_t>(imageBytes));
  out.field(std::uint32_t{0});  // pixels per metre, not known
  out.field(std::uint32_t{0});
  out.field(colourCount);
  out.field(std::uint32_t{0});  // all of them matter
  for (std::size_t i = 0; i < colourCount; ++i) {
    out.field(i < colours.size() ? colours[i] & 0xFFFFFFU : 0U);
  }

  std::vector<std::byte> bytes = out.bytes();
  const auto taken = pixels.first(std::min(pixels.size(), imageBytes));
  bytes.insert(bytes.end(), taken.begin(), taken.end());
  bytes.resize(offset + imageBytes);
  return bytes;
}

std::vector<std::byte> encodeBmp(const BmpPicture& picture) {
  constexpr std::uint16_t kDepth = 24;
  const std::size_t stride = rowBytes(kDepth, picture.width);
  const auto width = static_cast<std::size_t>(picture.width);
  std::vector<std::byte> pixels(bmpImageBytes(kDepth, picture.width, picture.height));
  const std::size_t count = width * static_cast<std::size_t>(picture.height);
  for (std::size_t i = 0; i < std::min(count, picture.words.size()); ++i) {
    std::byte* const to = pixels.data() + i / width * stride + i % width * 3;
    const std::uint32_t word = picture.words[i];
    to[0] = static_cast<std::byte>(word & 0xFFU);
    to[1] = static_cast<std::byte>((word >> 8U) & 0xFFU);
    to[2] = static_cast<std::byte>((word >> 16U) & 0xFFU);
  }
  return encodeDib(kDepth, picture.width, picture.height, {}, pixels);
}

Status writeBmpFile(const std::filesystem::path& file, const BmpPicture& picture) {
  return writeFile(file, encodeBmp(picture));
}

Result<BmpPicture> readBmpFile(const std::filesystem::path& file) {
  const auto bytes = readFile(file, kMaxBmpFileBytes);
  if (!bytes) {
    return bytes.error();
  }
  auto picture = decodeBmp(bytes.value());
  if (!picture) {
    Error error = picture.error();
    error.file = utf8FromPath(file);
    return error;
  }
  return picture;
}

std::string bmpFailureText(const Error& error) {
  return error.kind == ErrorKind::CannotCreate ? "CreateFile\nError" : "error\nError";
}

}  // namespace pv
