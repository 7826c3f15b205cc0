#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <bitset>
#include <cstdint>

#include "path/path_record.h"

namespace pv {

/// A path at one moment of its editing, for undo.
struct PathSnapshot {
  PathRecord path;
  std::bitset<kMaxPathPoints> selected;

  /// Equal when both paths have the same bits in the same points: a change of the
  /// selection alone is no edit, and what is not a number equals itself.
  friend bool operator==(const PathSnapshot& a, const PathSnapshot& b) {
    const auto bits = [](const Vec3& point) {
      return std::bit_cast<std::array<std::uint32_t, 3>>(point);
    };
    return std::ranges::equal(a.path.inUse(), b.path.inUse(), {}, bits, bits);
  }
};

}  // namespace pv
