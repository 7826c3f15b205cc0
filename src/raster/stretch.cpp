#include "raster/stretch.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace pv {

namespace {

// Keeps weight sums below: two sides and eight bits make 2^48.
constexpr std::int32_t kLargestSide = 1 << 20;

using Channels = std::array<std::uint64_t, 4>;  // blue, green, red, alpha

constexpr std::size_t bytesPerPixel(PixelFormat format) {
  return format == PixelFormat::Argb32 ? 4 : 3;
}

template <typename Byte>
bool isWhole(const BasicPixelBlock<Byte>& block) {
  if (block.width < 1 || block.height < 1 || block.width > kLargestSide ||
      block.height > kLargestSide) {
    return false;
  }
  const std::size_t used = static_cast<std::size_t>(block.width) * bytesPerPixel(block.format);
  const std::size_t rowsBefore = static_cast<std::size_t>(block.height) - 1;
  return block.rowBytes >= used && block.bytes.size() >= used &&
         (rowsBefore == 0 || (block.bytes.size() - used) / rowsBefore >= block.rowBytes);
}

Channels read(const std::byte* pixel, PixelFormat format) {
  if (format == PixelFormat::Bgr24) {
    return {std::to_integer<std::uint64_t>(pixel[0]), std::to_integer<std::uint64_t>(pixel[1]),
            std::to_integer<std::uint64_t>(pixel[2]), 0xFF};
  }
  std::uint32_t word = 0;
  std::memcpy(&word, pixel, sizeof word);
  return {word & 0xFFU, (word >> 8U) & 0xFFU, (word >> 16U) & 0xFFU, word >> 24U};
}

void write(std::byte* pixel, PixelFormat format, const Channels& value) {
  if (format == PixelFormat::Bgr24) {
    std::transform(value.begin(), value.begin() + 3, pixel,
                   [](std::uint64_t channel) { return static_cast<std::byte>(channel); });
    return;
  }
  const auto word =
      static_cast<std::uint32_t>(value[0] | value[1] << 8U | value[2] << 16U | value[3] << 24U);
  std::memcpy(pixel, &word, sizeof word);
}

// How the old pixels of one axis contribute to the new ones. Shrinking counts
// in units of 1 / newCount of an old pixel, so that all overlaps are integers.
struct Axis {
  std::int64_t oldCount = 1;
  std::int64_t newCount = 1;

  [[nodiscard]] bool shrinks() const { return oldCount > newCount; }
  [[nodiscard]] std::int64_t first(std::int64_t at) const {
    return shrinks() ? at * oldCount / newCount : (2 * at + 1) * oldCount / (2 * newCount);
  }
  [[nodiscard]] std::int64_t last(std::int64_t at) const {
    return shrinks() ? ((at + 1) * oldCount - 1) / newCount : first(at);
  }
  [[nodiscard]] std::uint64_t weight(std::int64_t at, std::int64_t old) const {
    if (!shrinks()) {
      return 1;
    }
    return static_cast<std::uint64_t>(std::min((at + 1) * oldCount, (old + 1) * newCount) -
                                      std::max(at * oldCount, old * newCount));
  }
  [[nodiscard]] std::uint64_t weightSum() const {
    return shrinks() ? static_cast<std::uint64_t>(oldCount) : 1;
  }
};

Channels sample(const ConstPixelBlock& src, const Axis& across, const Axis& up, std::int64_t x,
                std::int64_t y) {
  Channels sum{};
  const std::size_t step = bytesPerPixel(src.format);
  for (std::int64_t row = up.first(y); row <= up.last(y); ++row) {
    const std::uint64_t rowWeight = up.weight(y, row);
    const std::byte* const line = src.bytes.data() + static_cast<std::size_t>(row) * src.rowBytes;
    for (std::int64_t column = across.first(x); column <= across.last(x); ++column) {
      const std::uint64_t weight = rowWeight * across.weight(x, column);
      const Channels pixel = read(line + static_cast<std::size_t>(column) * step, src.format);
      for (std::size_t i = 0; i < sum.size(); ++i) {
        sum[i] += weight * pixel[i];
      }
    }
  }
  const std::uint64_t total = across.weightSum() * up.weightSum();
  for (std::uint64_t& channel : sum) {
    channel = (channel + total / 2) / total;
  }
  return sum;
}

}  // namespace

bool Stretch_Any2Any(const PixelBlock& dest, const ConstPixelBlock& src) {
  if (!isWhole(dest) || !isWhole(src)) {
    return false;
  }
  const Axis across{src.width, dest.width};
  const Axis up{src.height, dest.height};
  const std::size_t step = bytesPerPixel(dest.format);
  for (std::int32_t y = 0; y < dest.height; ++y) {
    std::byte* pixel = dest.bytes.data() + static_cast<std::size_t>(y) * dest.rowBytes;
    for (std::int32_t x = 0; x < dest.width; ++x, pixel += step) {
      write(pixel, dest.format, sample(src, across, up, x, y));
    }
  }
  return true;
}

}  // namespace pv
