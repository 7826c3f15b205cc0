#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "round_robin.h"
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

/// What was measured for a row; nothing where somebody was not.
struct BarTimings {
  Timings ours;
  Timings plain;
  Timings painter;
  Timings agg;
  std::string difference;  ///< what is wrong with a picture, or nothing
};
/// All columns in turns, for a while. The first time what was drawn is compared.
void measure(const BarRow& row, BarTimings& timings);

/// The median time of one in milliseconds, and how many times as long as ours it is by
/// timesAsLong(); 0 where nobody was measured.
struct BarTime {
  double milliseconds = 0.0;
  double timesOurs = 0.0;
};
struct BarTimes {
  BarTime ours;
  BarTime plain;
  BarTime painter;
  BarTime agg;
};
[[nodiscard]] BarTimes summary(const BarTimings& timings);

/// Whether every bar is met whose opponent was there.
[[nodiscard]] bool isMet(const Bars& bars, const BarTimes& times);

}  // namespace pv::bench
