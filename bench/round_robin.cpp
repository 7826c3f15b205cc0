#include "round_robin.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <iterator>

namespace pv::bench {

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int kLeastTurns = 5;
constexpr Milliseconds kTurn{25.0};
constexpr Milliseconds kTogether{2000.0};

void takeTurn(Contender& contender) {
  clearWideRegisters();
  const Clock::time_point begin = Clock::now();
  Clock::time_point before = begin;
  const auto first = static_cast<std::ptrdiff_t>(contender.milliseconds.size());
  do {
    contender.run();
    const Clock::time_point now = Clock::now();
    contender.milliseconds.push_back(Milliseconds(now - before).count());
    before = now;
  } while (before - begin < kTurn);
  contender.turns.push_back(
      median({contender.milliseconds.begin() + first, contender.milliseconds.end()}));
}

#if defined(__x86_64__) && defined(__GNUC__)
__attribute__((target("avx"))) void clearUpperHalves() {
  __builtin_ia32_vzeroupper();
}
#endif

}  // namespace

void takeTurns(std::vector<Contender>& contenders) {
  for (const Contender& contender : contenders) {
    contender.run();
  }
  const Clock::time_point begin = Clock::now();
  for (int turn = 0; turn < kLeastTurns || Clock::now() - begin < kTogether; ++turn) {
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

double timesAsLong(const Contender& other, const Contender& ours) {
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
