#pragma once

#include <array>
#include <cstdint>

namespace pv {

// 0x00RRGGBB.
inline constexpr std::uint32_t kShapeColour = 0xEEEEEE;
inline constexpr std::uint32_t kLabelColour = 0x999999;
inline constexpr std::uint32_t kCentreLineColour = 0x999999;
inline constexpr std::uint32_t kHalfUnitColour = 0x545454;
inline constexpr std::uint32_t kGridColour = 0x333333;
inline constexpr std::uint32_t kMarkerColour = 0xFFFFFF;
inline constexpr std::uint32_t kCentreHandleColour = 0x707070;
inline constexpr std::array<std::uint32_t, 3> kAxisColours{0xFF0000, 0x00FF00, 0xFFFF00};

}  // namespace pv
