#include "shape/shape_record.h"

namespace pv {

std::int64_t totalEmitterCount(const EmitterSettings& emitter) {
  // Amounts come from files unchecked, so the product is taken modulo 2^64 (it
  // cannot overflow for any amount that the page offers).
  const auto product = [&](std::int64_t profile) {
    const auto sections = static_cast<std::uint64_t>(std::int64_t{emitter.verticalAmount} + 1);
    const auto instances = static_cast<std::uint64_t>(std::int64_t{emitter.copies} + 1);
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(profile) * sections * instances);
  };
  switch (emitter.kind) {
    case EmitterKind::Point:
      return 1;
    case EmitterKind::GridPatch:
    case EmitterKind::SpherePatch:
      return product(std::int64_t{emitter.horizontalAmount} + 1);
    case EmitterKind::LoftPath:
    case EmitterKind::SweepPath:
      return product(std::int64_t{emitter.pathPointCount} + 1);
  }
  return 0;  // an unknown kind emits nothing
}

}  // namespace pv
