#include "util/work_share.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace pv {

namespace {

constexpr unsigned kMostThreads = 8;

/// The rounds of one thread that nobody has claimed yet. Both ends stand in one
/// word, so that no round can be claimed from both.
class alignas(64) ClaimRange {
 public:
  static constexpr std::size_t kMostRounds = UINT32_MAX;
  static constexpr std::size_t kNone = SIZE_MAX;

  void set(std::uint64_t begin, std::uint64_t end) { ends_.store(begin | end << 32U); }
  std::size_t claimFirst() {
    std::uint64_t ends = ends_.load();
    while (begin(ends) < end(ends)) {
      if (ends_.compare_exchange_weak(ends, ends + 1)) {
        return begin(ends);
      }
    }
    return kNone;
  }
  std::size_t claimLast() {
    std::uint64_t ends = ends_.load();
    while (begin(ends) < end(ends)) {
      if (ends_.compare_exchange_weak(ends, ends - (std::uint64_t{1} << 32U))) {
        return end(ends) - 1;
      }
    }
    return kNone;
  }

 private:
  static std::size_t begin(std::uint64_t ends) { return ends & UINT32_MAX; }
  static std::size_t end(std::uint64_t ends) { return ends >> 32U; }

  std::atomic<std::uint64_t> ends_ = 0;
};

}  // namespace

class WorkShare::Crew {
 public:
  explicit Crew(unsigned helpers) : ranges_(helpers + 1) {
    try {
      for (unsigned i = 0; i < helpers; ++i) {
        helpers_.emplace_back([this, worker = i + 1] { help(worker); });
      }
    } catch (const std::system_error&) {
      // Fewer helpers, or none: the caller does what is left.
    }
  }
  ~Crew() {
    {
      const std::lock_guard lock(mutex_);
      ends_ = true;
    }
    wake_.notify_all();
    for (std::thread& helper : helpers_) {
      helper.join();
    }
  }
  Crew(const Crew&) = delete;
  Crew& operator=(const Crew&) = delete;
  Crew(Crew&&) = delete;
  Crew& operator=(Crew&&) = delete;

  void run(std::size_t rounds, const Work& work) {
    {
      const std::lock_guard lock(mutex_);
      work_ = &work;
      for (std::size_t i = 0; i < ranges_.size(); ++i) {
        ranges_[i].set(rounds * i / ranges_.size(), rounds * (i + 1) / ranges_.size());
      }
      loop_.fetch_add(1);
    }
    wake_.notify_all();
    claim(work, 0);
    {
      const std::lock_guard lock(mutex_);
      work_ = nullptr;  // whoever has not begun by now never will
    }
    // Only for rounds that are under way, which rarely last longer than a yield.
    constexpr int kLooks = 4000;
    for (int looks = 0; inside_.load() != 0; ++looks) {
      if (looks >= kLooks) {
        std::this_thread::yield();
      }
    }
  }

 private:
  void claim(const Work& work, unsigned worker) {
    for (std::size_t i = ranges_[worker].claimFirst(); i != ClaimRange::kNone;
         i = ranges_[worker].claimFirst()) {
      work(i, worker);
    }
    for (ClaimRange& other : ranges_) {
      for (std::size_t i = other.claimLast(); i != ClaimRange::kNone; i = other.claimLast()) {
        work(i, worker);
      }
    }
  }

  // The loops of one frame follow each other closely, and waking a thread takes
  // longer than many of them.
  void lookOutForNext(std::uint64_t seen) const {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::microseconds(50);
    while (loop_.load() == seen && !ends_.load() && Clock::now() < end) {
    }
  }

  void help(unsigned worker) {
    std::uint64_t seen = 0;
    std::unique_lock lock(mutex_);
    while (true) {
      wake_.wait(lock, [&] { return ends_ || (work_ != nullptr && loop_ != seen); });
      if (ends_) {
        return;
      }
      seen = loop_;
      const Work& work = *work_;
      ++inside_;
      lock.unlock();
      claim(work, worker);
      --inside_;
      lookOutForNext(seen);
      lock.lock();
    }
  }

  std::mutex mutex_;
  std::condition_variable wake_;
  const Work* work_ = nullptr;           ///< only while a loop runs
  std::atomic<std::uint64_t> loop_ = 0;  ///< so that nobody joins one loop twice
  std::atomic<unsigned> inside_ = 0;
  std::atomic<bool> ends_ = false;
  std::vector<ClaimRange> ranges_;  ///< the caller's, then those of the helpers
  std::vector<std::thread> helpers_;
};

WorkShare::WorkShare(unsigned threads)
    : threads_(std::clamp(threads == 0 ? std::thread::hardware_concurrency() : threads, 1U,
                          kMostThreads)) {}

WorkShare::~WorkShare() = default;
WorkShare::WorkShare(WorkShare&& other) noexcept = default;
WorkShare& WorkShare::operator=(WorkShare&& other) noexcept = default;

void WorkShare::run(std::size_t rounds, const Work& work) {
  if (threads_ < 2 || rounds < 2 || rounds > ClaimRange::kMostRounds) {
    for (std::size_t i = 0; i < rounds; ++i) {
      work(i, 0);
    }
    return;
  }
  if (!crew_) {
    crew_ = std::make_unique<Crew>(threads_ - 1);
  }
  crew_->run(rounds, work);
}

}  // namespace pv
