#pragma once

#include <functional>
#include <vector>

namespace pv::bench {

/// Work that is timed beside other work.
struct Contender {
  std::function<void()> run;
  std::vector<double> milliseconds;  ///< of every run, on the wall clock
  std::vector<double> turns;         ///< medians of its turns
};

/// Times them in turns, each for a moment or once if that takes longer, so that a
/// change of the machine's speed hits all alike. At least five turns, and about
/// two seconds together; a first run of each is not counted.
void takeTurns(std::vector<Contender>& contenders);

/// Leaves the vector registers as a thread that never used them has them. Where
/// wide vector code does not tidy up behind it, all scalar code that follows on its
/// thread takes up to twice as long, which must not be laid at the others' door.
void clearWideRegisters();

/// How many times as long the other takes: the median of what neighbouring turns say,
/// since the machine may change its speed while they take turns.
[[nodiscard]] double timesAsLong(const Contender& other, const Contender& ours);

/// 0 when there are none.
[[nodiscard]] double median(std::vector<double> values);

}  // namespace pv::bench
