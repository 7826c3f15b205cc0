#include <algorithm>
#include <array>

#include "util/bmp_file.h"
#include "util/little_endian.h"

namespace pv {
namespace {

constexpr std::uint16_t kMagic = 0x4D42;
constexpr std::uint32_t kLargestInfoHeader = 124;
constexpr std::size_t kColourBytes = 4;
constexpr std::uint32_t kOpaque = 0xFF000000;

struct Header {
  std::uint16_t magic = 0;
  std::uint32_t fileBytes = 0;
  std::uint32_t reserved = 0;
  std::uint32_t pixelOffset = 0;
  std::uint32_t infoBytes = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;  ///< below 0: the top row first
  std::uint16_t planes = 0;
  std::uint16_t depth = 0;
  std::uint32_t compression = 0;
  std::uint32_t imageBytes = 0;  ///< often 0; worked out instead
  std::int32_t perMetreX = 0;
  std::int32_t perMetreY = 0;
  std::uint32_t colours = 0;
};

Error refuse(const char* reason) {
  return {ErrorKind::BadData, {}, std::nullopt, reason};
}

Header readHeader(std::span<const std::byte> bytes) {
  FieldReader in(bytes);
  Header header;
  in.field(header.magic);
  in.field(header.fileBytes);
  in.field(header.reserved);
  in.field(header.pixelOffset);
  in.field(header.infoBytes);
  in.field(header.width);
  in.field(header.height);
  in.field(header.planes);
  in.field(header.depth);
  in.field(header.compression);
  in.field(header.imageBytes);
  in.field(header.perMetreX);
  in.field(header.perMetreY);
  in.field(header.colours);
  return header;
}

const char* headerFault(const Header& header) {
  constexpr std::array<std::uint16_t, 6> kDepths{1, 4, 8, 16, 24, 32};
  if (header.magic != kMagic) {
    return "this is not a bitmap file";
  }
  if (header.infoBytes < kBmpInfoHeaderBytes || header.infoBytes > kLargestInfoHeader) {
    return "unknown kind of bitmap header";
  }
  if (header.compression != 0 ||
      std::find(kDepths.begin(), kDepths.end(), header.depth) == kDepths.end()) {
    return "only uncompressed bitmaps can be read";
  }
  const bool tooLarge =
      header.width > kMaxBmpSide || header.height > kMaxBmpSide || header.height < -kMaxBmpSide;
  if (header.width < 1 || header.height == 0 || tooLarge) {
    return "a side of the bitmap is out of range";
  }
  return nullptr;
}

/// The colour table, filled up with black; empty above 8 bits.
std::vector<std::uint32_t> readColours(std::span<const std::byte> bytes, const Header& header) {
  if (header.depth > 8) {
    return {};
  }
  std::vector<std::uint32_t> colours(std::size_t{1} << header.depth, kOpaque);
  const std::size_t told = header.colours == 0 ? colours.size() : header.colours;
  const std::size_t begin = std::min(bytes.size(), kBmpFileHeaderBytes + header.infoBytes);
  const std::size_t there = (bytes.size() - begin) / kColourBytes;
  FieldReader in(bytes.subspan(begin));
  for (std::size_t i = 0; i < std::min({colours.size(), told, there}); ++i) {
    in.field(colours[i]);
    colours[i] |= kOpaque;
  }
  return colours;
}

std::uint32_t byteAt(std::span<const std::byte> row, std::size_t index) {
  return std::to_integer<std::uint32_t>(row[index]);
}

/// Five bits a channel; the high bits are repeated below, so that white is white.
std::uint32_t fromFiveBits(std::uint32_t word) {
  std::uint32_t colour = 0;
  for (const unsigned shift : {10U, 5U, 0U}) {
    const std::uint32_t five = (word >> shift) & 0x1FU;
    colour = (colour << 8U) | (five << 3U) | (five >> 2U);
  }
  return colour | kOpaque;
}

std::uint32_t pixelAt(std::span<const std::byte> row, std::size_t x, unsigned depth,
                      std::span<const std::uint32_t> colours) {
  if (depth <= 8) {
    const std::size_t bit = x * depth;
    const unsigned shift = 8 - depth - static_cast<unsigned>(bit % 8);
    return colours[(byteAt(row, bit / 8) >> shift) & ((1U << depth) - 1)];
  }
  const std::size_t at = x * (depth / 8);
  const std::uint32_t low = byteAt(row, at) | (byteAt(row, at + 1) << 8U);
  return depth == 16 ? fromFiveBits(low) : low | (byteAt(row, at + 2) << 16U) | kOpaque;
}

}  // namespace

Result<BmpPicture> decodeBmp(std::span<const std::byte> bytes) {
  if (bytes.size() < kBmpFileHeaderBytes + kBmpInfoHeaderBytes) {
    return refuse("this is not a bitmap file");
  }
  const Header header = readHeader(bytes);
  if (const char* fault = headerFault(header)) {
    return refuse(fault);
  }
  const std::int32_t rows = header.height < 0 ? -header.height : header.height;
  const std::size_t imageBytes = bmpImageBytes(header.depth, header.width, rows);
  if (header.pixelOffset > bytes.size() || bytes.size() - header.pixelOffset < imageBytes) {
    return refuse("the bitmap is cut short");
  }
  const auto image = bytes.subspan(header.pixelOffset, imageBytes);
  const auto colours = readColours(bytes, header);
  const auto width = static_cast<std::size_t>(header.width);
  const auto height = static_cast<std::size_t>(rows);
  const std::size_t stride = imageBytes / height;

  BmpPicture picture{header.width, rows, std::vector<std::uint32_t>(width * height)};
  for (std::size_t y = 0; y < height; ++y) {
    const auto row = image.subspan((header.height < 0 ? height - 1 - y : y) * stride, stride);
    for (std::size_t x = 0; x < width; ++x) {
      picture.words[y * width + x] = pixelAt(row, x, header.depth, colours);
    }
  }
  return picture;
}

}  // namespace pv
