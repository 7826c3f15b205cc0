#include "round_robin.h"

#include <algorithm>
#include <chrono>

namespace pv::bench {

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int kLeastTurns = 5;
constexpr Milliseconds kTurn{25.0};
constexpr Milliseconds kTogether{2000.0};

void takeTurn(Contender& contender) {
  const Clock::time_point begin = Clock::now();
  Clock::time_point before = begin;
  do {
    contender.run();
    const Clock::time_point now = Clock::now();
    contender.milliseconds.push_back(Milliseconds(now - before).count());
    before = now;
  } while (before - begin < kTurn);
}

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

double median(std::vector<double> values) {
  if (values.empty()) {
    return 0.0;
  }
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

}  // namespace pv::bench
