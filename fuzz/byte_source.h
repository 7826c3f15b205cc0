#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

namespace pv::fuzz {

/// Takes values off the front of a block of bytes; zeros once it has run out.
/// The first byte of a number chooses its taste, so that useful and hostile
/// numbers are both a few mutations away.
class ByteSource {
 public:
  explicit ByteSource(std::span<const std::byte> bytes) : bytes_(bytes) {}

  [[nodiscard]] bool empty() const { return bytes_.empty(); }

  std::uint8_t byte() {
    if (bytes_.empty()) {
      return 0;
    }
    const auto value = std::to_integer<std::uint8_t>(bytes_.front());
    bytes_ = bytes_.subspan(1);
    return value;
  }
  std::uint32_t word() {
    std::uint32_t value = 0;
    for (int shift = 0; shift < 32; shift += 8) {
      value |= std::uint32_t{byte()} << shift;
    }
    return value;
  }
  bool flag() { return (byte() & 1U) != 0; }

  /// Mostly 0 to 40, now and then anything.
  std::int32_t amount() {
    constexpr std::array kHostile{
        -1,   -2,         -3,         19,   20,  21,        22,        89,        90,
        180,  360,        511,        512,  513, 3999,      4000,      1'000'000, -90'001,
        8193, 2147483647, 2147483646, 1000, 500, (1 << 24), (1 << 30), -360,      -2147483647 - 1};
    const std::uint8_t taste = byte();
    if (taste < 160) {
      return taste % 41;
    }
    if (taste < 200) {
      return std::int32_t{byte()} - 128;
    }
    if (taste < 230) {
      return kHostile[byte() % kHostile.size()];
    }
    return static_cast<std::int32_t>(word());
  }

  /// Mostly what a control can make, now and then any bit pattern.
  float value() {
    using Limits = std::numeric_limits<float>;
    constexpr std::array kHostile{0.0F,
                                  -0.0F,
                                  1.0F,
                                  -1.0F,
                                  1e6F,
                                  -3e9F,
                                  1e30F,
                                  -1e38F,
                                  1e-30F,
                                  -1e-42F,
                                  90.0F,
                                  2147483648.0F,
                                  Limits::infinity(),
                                  -Limits::infinity(),
                                  Limits::quiet_NaN(),
                                  -360.0F};
    const std::uint8_t taste = byte();
    if (taste < 40) {
      return 0.0F;
    }
    if (taste < 120) {
      return static_cast<float>(byte()) - 128.0F;
    }
    if (taste < 190) {
      return (static_cast<float>(byte()) - 128.0F) / 64.0F;
    }
    if (taste < 230) {
      return kHostile[byte() % kHostile.size()];
    }
    return std::bit_cast<float>(word());
  }

 private:
  std::span<const std::byte> bytes_;
};

}  // namespace pv::fuzz
