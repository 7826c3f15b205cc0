#include "util/work_share.h"

#include <atomic>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace pv {
namespace {

TEST(WorkShare, EveryRoundIsDoneOnceBeforeTheLoopEnds) {
  for (unsigned threads = 1; threads <= 8; ++threads) {
    WorkShare share(threads);
    for (std::size_t rounds = 0; rounds < 200; ++rounds) {
      std::vector<int> done(rounds);  // plain: a round has one owner at a time
      share.run(rounds, [&](std::size_t i) { ++done[i]; });
      ASSERT_EQ(done, std::vector<int>(rounds, 1)) << threads;
    }
    WorkShare moved(std::move(share));
    std::atomic<std::size_t> sum = 0;
    moved.run(100, [&](std::size_t i) { sum += i; });
    ASSERT_EQ(sum, 4950U);
  }
}

}  // namespace
}  // namespace pv
