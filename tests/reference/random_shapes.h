#pragma once

#include <cstdint>
#include <random>

#include "shape/shape_record.h"

namespace pv::reference {

/// The same numbers from the same seed on every platform.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : engine_(seed) {}
  /// 0 to n - 1.
  int below(int n) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(n)); }
  int between(int low, int high) { return low + below(high - low + 1); }
  bool once(int n) { return below(n) == 0; }
  float between(float low, float high) {
    return low + (high - low) * (static_cast<float>(below(1 << 24)) / 16777216.0F);
  }

 private:
  std::mt19937 engine_;
};

enum class Taste : std::uint8_t {
  Useful,  ///< what the pages' controls can make
  Wild,    ///< with hostile amounts, sizes and values now and then
};

[[nodiscard]] ShapeRecord randomShape(Dice& dice, Taste taste);

}  // namespace pv::reference
