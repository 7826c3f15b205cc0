#pragma once

#include <cstdint>
#include <string_view>

#include "util/user_registry.h"

namespace pv {

/// The user registry's key for everything that the program keeps there; other
/// tools of the host share it.
inline constexpr std::string_view kSettingsKey = R"(Software\Amberly\kaleido\UI)";

/// The registry keeps colours with red in the lowest byte, then green and blue;
/// the program has them as 0x00RRGGBB. The highest byte is dropped.
[[nodiscard]] constexpr std::uint32_t rgbFromStored(std::uint32_t stored) {
  return ((stored & 0xFFU) << 16U) | (stored & 0xFF00U) | ((stored >> 16U) & 0xFFU);
}

/// The stored value where it is a 32-bit number of exactly four bytes, in every
/// other case the default; both with red in the lowest byte.
[[nodiscard]] std::uint32_t readColour(const UserRegistry& registry, std::string_view valueName,
                                       std::uint32_t defaultColour);

/// What the controls and pages paint themselves with, as 0x00RRGGBB.
struct ColourScheme {
  std::uint32_t background = 0x464646;  ///< controls and panels
  std::uint32_t text = 0xAAAAAA;
  std::uint32_t button = 0x9B9B9B;    ///< faces and frames
  std::uint32_t selected = 0xF07800;  ///< selected items, pressed buttons
  std::uint32_t title = 0x1E1E1E;     ///< section headers, title bars
  std::uint32_t dialog = 0x323232;
  std::uint32_t page = 0x464646;  ///< behind the 3D, path and emitter pages

  friend bool operator==(const ColourScheme&, const ColourScheme&) = default;
};

/// Each colour on its own falls back to its default.
[[nodiscard]] ColourScheme readColourScheme(const UserRegistry& registry);

/// White on dark colours, black on others, both as 0x00RRGGBB. Red weighs only a
/// third as much as green and blue.
[[nodiscard]] constexpr std::uint32_t contrastColour(std::uint32_t colour) {
  constexpr std::uint32_t kDarkBelow = 220;
  const std::uint32_t red = (colour >> 16U) & 0xFFU;
  const std::uint32_t green = (colour >> 8U) & 0xFFU;
  const std::uint32_t blue = colour & 0xFFU;
  return blue + green + red / 3 < kDarkBelow ? 0xFFFFFF : 0x000000;
}

}  // namespace pv
