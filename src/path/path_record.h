#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "math/vec3.h"

namespace pv {

inline constexpr std::int32_t kMaxPathPoints = 512;

/// A polyline in shape space: the unit in which paths are passed and stored.
/// Only the first `count` points (0 to 512) mean anything; the other slots are
/// written to files as they stand.
struct PathRecord {
  std::int32_t count = 0;
  std::array<Vec3, kMaxPathPoints> points{};

  /// The points that mean something; `count` may hold anything.
  [[nodiscard]] std::span<const Vec3> inUse() const {
    return std::span(points).first(static_cast<std::size_t>(std::clamp(count, 0, kMaxPathPoints)));
  }

  /// Equal when the points in use are.
  friend bool operator==(const PathRecord& a, const PathRecord& b) {
    return a.count == b.count && std::ranges::equal(a.inUse(), b.inUse());
  }
};

inline constexpr std::size_t kPathRecordBytes = 4 + 12 * std::size_t{kMaxPathPoints};

/// Visits the record's fields in file order; `Fields` is a FieldReader or a
/// FieldWriter, `Record` a PathRecord (const for writing).
template <class Fields, class Record>
void transferPathRecord(Fields& fields, Record& record) {
  fields.field(record.count);
  for (auto& point : record.points) {
    fields.field(point.x);
    fields.field(point.y);
    fields.field(point.z);
  }
}

}  // namespace pv
