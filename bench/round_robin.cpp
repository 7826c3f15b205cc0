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
  clearWideRegisters();
  const Clock::time_point begin = Clock::now();
  Clock::time_point before = begin;
  do {
    contender.run();
    const Clock::time_point now = Clock::now();
    contender.milliseconds.push_back(Milliseconds(now - before).count());
    before = now;
  } while (before - begin < kTurn);
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

double median(std::vector<double> values) {
  if (values.empty()) {
    return 0.0;
  }
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

}  // namespace pv::bench
