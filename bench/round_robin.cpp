#include "round_robin.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <iterator>

namespace pv::bench {

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr Milliseconds kTurn{25.0};

void takeTurn(Contender& contender) {
  clearWideRegisters();
  const Clock::time_point begin = Clock::now();
  Clock::time_point before = begin;
  std::vector<double>& times = contender.timings.milliseconds;
  const auto first = static_cast<std::ptrdiff_t>(times.size());
  do {
    contender.run();
    const Clock::time_point now = Clock::now();
    times.push_back(Milliseconds(now - before).count());
    before = now;
  } while (before - begin < kTurn);
  contender.timings.turns.push_back(median({times.begin() + first, times.end()}));
}

#if defined(__x86_64__) && defined(__GNUC__)
__attribute__((target("avx"))) void clearUpperHalves() {
  __builtin_ia32_vzeroupper();
}
#endif

}  // namespace

void Timings::add(const Timings& more) {
  milliseconds.insert(milliseconds.end(), more.milliseconds.begin(), more.milliseconds.end());
  turns.insert(turns.end(), more.turns.begin(), more.turns.end());
}

void takeTurns(std::vector<Contender>& contenders, const Patience& patience) {
  for (const Contender& contender : contenders) {
    contender.run();
  }
  const Clock::time_point begin = Clock::now();
  const Milliseconds together(patience.milliseconds);
  for (int turn = 0; turn < patience.turns || Clock::now() - begin < together; ++turn) {
    for (Contender& contender : contenders) {
      takeTurn(contender);
    }
  }
}

void clearWideRegisters() {
#if defined(__x86_64__) && defined(__GNUC__)
  if (__builtin_cpu_supports("avx")) {
    clearUpperHalves();
  }
#endif
}

double timesAsLong(const Timings& other, const Timings& ours) {
  std::vector<double> ratios;
  std::ranges::transform(other.turns, ours.turns, std::back_inserter(ratios), std::divides<>());
  return median(ratios);
}

double median(std::vector<double> values) {
  if (values.empty()) {
    return 0.0;
  }
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

}  // namespace pv::bench
