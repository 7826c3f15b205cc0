#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "scenes.h"

namespace pv::bench {

enum class Work : std::uint8_t { Draw, Frame, DrawDirections, SkipDirections };

/// What our time is set against; 0 where nothing is asked.
struct Bars {
  double plain = 0.0;         ///< at least so many times as fast
  double painter = 0.0;       ///< likewise
  double agg = 0.0;           ///< likewise
  double milliseconds = 0.0;  ///< below this
};

struct BarRow {
  Work work;
  std::string_view scene;
  FrameSize size;
  Bars bars;
};
[[nodiscard]] std::span<const BarRow> barRows();
[[nodiscard]] std::string describe(const BarRow& row);
[[nodiscard]] std::string describe(const Bars& bars);

/// Median times in milliseconds, 0 where nobody was measured.
struct BarTimes {
  double ours = 0.0;
  double plain = 0.0;
  double painter = 0.0;
  double agg = 0.0;
  std::string difference;  ///< what is wrong with a picture, or nothing
};
/// All columns in turns; afterwards what was drawn is compared.
[[nodiscard]] BarTimes measure(const BarRow& row);

/// Whether every bar is met whose opponent was there.
[[nodiscard]] bool isMet(const Bars& bars, const BarTimes& times);

}  // namespace pv::bench
