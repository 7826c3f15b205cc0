#include "util/work_share.h"

#include <atomic>
#include <gtest/gtest.h>
#include <numeric>
#include <utility>
#include <vector>

namespace pv {
namespace {

TEST(WorkShare, EveryRoundIsDoneOnceBeforeTheLoopEnds) {
  for (unsigned threads = 1; threads <= 8; ++threads) {
    WorkShare share(threads);
    for (std::size_t rounds = 0; rounds < 200; ++rounds) {
      std::vector<int> done(rounds);           // plain: a round has one owner at a time
      std::vector<std::size_t> each(threads);  // plain as well: so has a worker
      share.run(rounds, [&](std::size_t i, unsigned worker) {
        ++done[i];
        ++each.at(worker);
      });
      ASSERT_EQ(done, std::vector<int>(rounds, 1)) << threads;
      ASSERT_EQ(std::accumulate(each.begin(), each.end(), std::size_t{0}), rounds);
    }
    WorkShare moved(std::move(share));
    std::atomic<std::size_t> sum = 0;
    moved.run(100, [&](std::size_t i, unsigned) { sum += i; });
    ASSERT_EQ(sum, 4950U);
  }
}

}  // namespace
}  // namespace pv
