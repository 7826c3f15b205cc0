#pragma once

#include <array>
#include <cstdint>

namespace pv {

/// Which builder makes the mesh. Records may hold other numbers (they are kept
/// as loaded); a view ignores those.
enum class EmitterKind : std::int32_t { Point, GridPatch, SpherePatch, LoftPath, SweepPath };
inline constexpr std::int32_t kEmitterKindCount = 5;

[[nodiscard]] constexpr bool isEmitterKind(std::int32_t kind) {
  return kind >= 0 && kind < kEmitterKindCount;
}

/// How the copies share the texture map in the consumer of the shape.
enum class DuplicateMapping : std::int32_t { Normal, Horizontal, Vertical };

/// A truth value that lives in the low byte of a 32-bit slot. The other three
/// bytes mean nothing and are kept as they were loaded.
struct ByteFlag {
  std::uint32_t slot = 0;

  [[nodiscard]] constexpr bool isSet() const { return (slot & 0xFFU) != 0; }
  constexpr void set(bool on) { slot = (slot & 0xFFFFFF00U) | (on ? 1U : 0U); }
  bool operator==(const ByteFlag&) const = default;
};

/// Section amounts and sizes; thirteen 32-bit fields in file order.
struct EmitterSettings {
  EmitterKind kind = EmitterKind::Point;
  std::int32_t pathPointCount = 0;     ///< points of the mesh's profile after generation
  std::int32_t horizontalAmount = 10;  ///< sections; the profile has one point more
  std::int32_t horizontalSize = 100;   ///< grid: 1/1000 unit a section; sphere: start degrees
  std::int32_t horizontalEnd = 180;    ///< sphere: extent in degrees
  ByteFlag horizontalCentre{1};
  std::int32_t verticalAmount = 10;  ///< sections or rotations
  std::int32_t verticalSize = 100;   ///< grid, loft: 1/1000 unit; sphere, sweep: degrees
  ByteFlag verticalCentre{1};
  std::int32_t copies = 0;  ///< duplicates are made for 1 to 20
  std::uint32_t reserved1 = 0;
  std::uint32_t reserved2 = 0;
  std::int32_t selectedAxis = 0;  ///< axis that the page's duplicate sliders edit

  bool operator==(const EmitterSettings&) const = default;
};

/// Steps from one duplicate to the next, and the Bulge modifier, which lives
/// here because the file layout has it here; twenty-eight 32-bit fields.
struct DuplicateSettings {
  std::uint32_t reserved0 = 0;
  std::array<float, 3> position{10.0F, 0.0F, 0.0F};  ///< 1/200 unit
  std::array<float, 3> rotation{};                   ///< whole degrees
  std::array<float, 3> scale{};                      ///< 1/200
  std::array<float, 3> bulge{};
  std::array<std::uint32_t, 15> reserved{};

  bool operator==(const DuplicateSettings&) const = default;
};

inline constexpr std::int32_t kMaxDuplicateCopies = 20;

/// Copies that are really made: 1 to 20, otherwise none.
[[nodiscard]] constexpr std::int32_t effectiveCopies(std::int32_t copies) {
  return copies >= 1 && copies <= kMaxDuplicateCopies ? copies : 0;
}

}  // namespace pv
