#include "util/work_share.h"

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <numeric>
#include <thread>
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

// Whoever gets how many: a worker first goes up its own range without a gap, then
// takes from other ranges, from each downwards.
TEST(WorkShare, WorkersGoUpTheirOwnRangeAndDownThoseOfOthers) {
  for (unsigned threads = 2; threads <= 8; ++threads) {
    WorkShare share(threads);
    for (const std::size_t rounds : {threads - 1U, threads + 0U, threads + 1U, 61U, 400U}) {
      const auto rangeOf = [&](std::size_t round) {
        unsigned worker = 0;
        while (rounds * (worker + 1) / threads <= round) {
          ++worker;
        }
        return worker;
      };
      std::vector<std::vector<std::size_t>> order(threads);
      std::atomic<unsigned> steps = 0;
      share.run(rounds, [&](std::size_t round, unsigned worker) {
        order[worker].push_back(round);
        for (int i = round % 7 == 0 ? 2000 : 10; i > 0; --i) {  // unequal rounds
          ++steps;
        }
      });
      for (unsigned worker = 0; worker < threads; ++worker) {
        std::size_t next = rounds * worker / threads;
        std::vector<std::size_t> ends(threads, rounds);
        bool isOwn = true;
        for (const std::size_t round : order[worker]) {
          const unsigned range = rangeOf(round);
          isOwn = isOwn && range == worker;
          if (isOwn) {
            ASSERT_EQ(round, next++) << threads << " threads, " << rounds << " rounds";
          } else {
            ASSERT_NE(range, worker) << threads << " threads, " << rounds << " rounds";
            ASSERT_LT(round, std::exchange(ends[range], round));
          }
        }
      }
    }
  }
}

// Round 0 lasts until all others are done, so somebody else has to do those that
// stand behind it in the same range.
TEST(WorkShare, NobodyWaitsBehindALongRound) {
  using Clock = std::chrono::steady_clock;
  constexpr std::size_t kRounds = 50;
  WorkShare share(2);
  std::atomic<std::size_t> done = 0;
  const auto deadline = Clock::now() + std::chrono::seconds(10);
  share.run(kRounds, [&](std::size_t round, unsigned) {
    while (round == 0 && done < kRounds - 1 && Clock::now() < deadline) {
      std::this_thread::yield();
    }
    EXPECT_TRUE(round != 0 || done == kRounds - 1);
    ++done;
  });
}

}  // namespace
}  // namespace pv
