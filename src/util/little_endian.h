#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pv {

/// Reads little-endian fields one after the other. The caller checks the total
/// size once; reading past the end yields zeros and moves nothing.
class FieldReader {
 public:
  explicit FieldReader(std::span<const std::byte> bytes) : bytes_(bytes) {}

  void field(std::uint16_t& value) { value = static_cast<std::uint16_t>(take(2)); }
  void field(std::uint32_t& value) { value = take(4); }
  void field(std::int32_t& value) { value = static_cast<std::int32_t>(take(4)); }
  void field(float& value) { value = std::bit_cast<float>(take(4)); }

  /// Bytes read so far.
  [[nodiscard]] std::size_t position() const { return position_; }

 private:
  std::uint32_t take(std::size_t size) {
    if (bytes_.size() - position_ < size) {
      return 0;
    }
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; ++i) {
      value |= std::to_integer<std::uint32_t>(bytes_[position_ + i]) << (8 * i);
    }
    position_ += size;
    return value;
  }

  std::span<const std::byte> bytes_;
  std::size_t position_ = 0;
};

/// Appends little-endian fields to a growing block. Has the same calls as
/// FieldReader, so that one description of a layout serves both directions.
class FieldWriter {
 public:
  void field(std::uint16_t value) { put(value, 2); }
  void field(std::uint32_t value) { put(value, 4); }
  void field(std::int32_t value) { put(static_cast<std::uint32_t>(value), 4); }
  void field(float value) { put(std::bit_cast<std::uint32_t>(value), 4); }

  [[nodiscard]] const std::vector<std::byte>& bytes() const { return bytes_; }

 private:
  void put(std::uint32_t value, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) {
      bytes_.push_back(static_cast<std::byte>((value >> (8 * i)) & 0xFFU));
    }
  }

  std::vector<std::byte> bytes_;
};

}  // namespace pv
