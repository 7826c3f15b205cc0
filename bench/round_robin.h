#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace pv::bench {

/// On the wall clock.
struct Timings {
  std::vector<double> milliseconds;  ///< of every run
  std::vector<double> turns;         ///< medians of the turns

  void add(const Timings& more);
};

/// Work that is timed beside other work.
struct Contender {
  explicit Contender(std::function<void()> work) : run(std::move(work)) {}

  std::function<void()> run;
  Timings timings;
};

/// How long contenders go on together, at the least.
struct Patience {
  int turns = 5;
  double milliseconds = 2000.0;
};

/// Times them in turns, each for a moment or once if that takes longer, so that a
/// change of the machine's speed hits all alike; a first run of each is not counted.
void takeTurns(std::vector<Contender>& contenders, const Patience& patience = {});

/// Leaves the vector registers as a thread that never used them has them. Where
/// wide vector code does not tidy up behind it, all scalar code that follows on its
/// thread takes up to twice as long, which must not be laid at the others' door.
void clearWideRegisters();

/// How many times as long the other takes: the median of what neighbouring turns say,
/// since the machine may change its speed while they take turns.
[[nodiscard]] double timesAsLong(const Timings& other, const Timings& ours);

/// 0 when there are none.
[[nodiscard]] double median(std::vector<double> values);

}  // namespace pv::bench
