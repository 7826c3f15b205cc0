// The machine's own limits, to tell which share of them a stage reaches.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <span>
#include <thread>
#include <vector>

#include "math/simd.h"
#include "reports.h"
#include "round_robin.h"
#include "scenes.h"
// clang-format off
#include <hwy/highway.h>
#include <hwy/targets.h>
// clang-format on

namespace pv::bench {

namespace {

constexpr std::size_t kBytes = std::size_t{256} << 20U;  // beyond every cache
using Words = std::span<std::uint64_t>;

double medianTime(const std::function<void()>& run) {
  std::vector<Contender> contenders{Contender(run)};
  takeTurns(contenders);
  return median(contenders.front().timings.milliseconds);
}

void writeAll(Words words) {
  std::ranges::fill(words, 1U);
  benchmark::ClobberMemory();
}

// Several sums, so that the additions do not wait for one another.
void readAll(Words words) {
  constexpr std::size_t kLanes = 8;
  std::uint64_t sums[kLanes] = {};
  for (std::size_t i = 0; i + kLanes <= words.size(); i += kLanes) {
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      sums[lane] += words[i + lane];
    }
  }
  benchmark::DoNotOptimize(sums);
}

/// Gigabytes a second that one or two threads get through, half the block each.
double rate(Words words, unsigned threads, void (*work)(Words)) {
  const double milliseconds = medianTime([&] {
    const std::size_t half = threads == 1 ? 0 : words.size() / 2;
    std::thread helper;
    if (threads > 1) {
      helper = std::thread([&] { work(words.first(half)); });
    }
    work(words.subspan(half));
    if (helper.joinable()) {
      helper.join();
    }
  });
  return static_cast<double>(words.size_bytes()) / milliseconds / 1e6;
}

/// Stores of one word a nanosecond, spread over 16 KiB.
double storeRate() {
  constexpr std::uint32_t kWords = 4096;
  constexpr std::uint32_t kRounds = 64;
  std::vector<std::uint32_t> block(kWords);
  volatile std::uint32_t* words = block.data();  // keeps every store, one by one
  const double milliseconds = medianTime([&] {
    for (std::uint32_t i = 0; i < kRounds * kWords; ++i) {
      words[i * 1031U % kWords] = i;
    }
  });
  return kRounds * kWords / (milliseconds * 1e6);
}

double clearTime() {
  constexpr FrameSize kSize = kFrameSizes.front();
  std::vector<std::uint32_t> frame(static_cast<std::size_t>(kSize.width) * kSize.height);
  return medianTime([&] {
    std::memset(frame.data(), 0, frame.size() * sizeof frame[0]);
    benchmark::ClobberMemory();
  });
}

}  // namespace

int printMachine() {
  const std::int64_t target = hwy::SupportedAndGeneratedTargets().front();
  std::printf("processors %u, vectors %s\n", std::thread::hardware_concurrency(),
              hwy::TargetName(target));
  const auto block = std::make_unique<std::uint64_t[]>(kBytes / sizeof(std::uint64_t));
  const Words words(block.get(), kBytes / sizeof(std::uint64_t));
  for (const unsigned threads : {1U, 2U}) {
    const double written = rate(words, threads, writeAll);
    const double taken = rate(words, threads, readAll);
    std::printf("memory, %u thread%s: writes %.1f GB/s, reads %.1f GB/s\n", threads,
                threads == 1 ? "" : "s", written, taken);
  }
  std::printf("memset of 640x480 words: %.4f ms\n", clearTime());
  std::printf("stores of single words in the first cache: %.2f a ns\n", storeRate());
  return 0;
}

}  // namespace pv::bench
