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

}  // namespace

class WorkShare::Crew {
 public:
  explicit Crew(unsigned helpers) {
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
      rounds_ = rounds;
      next_ = 0;
      loop_.fetch_add(1);
    }
    wake_.notify_all();
    claim(rounds, work, 0);
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
  void claim(std::size_t rounds, const Work& work, unsigned worker) {
    for (std::size_t i = next_.fetch_add(1); i < rounds; i = next_.fetch_add(1)) {
      work(i, worker);
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
      const std::size_t rounds = rounds_;
      ++inside_;
      lock.unlock();
      claim(rounds, work, worker);
      --inside_;
      lookOutForNext(seen);
      lock.lock();
    }
  }

  std::mutex mutex_;
  std::condition_variable wake_;
  const Work* work_ = nullptr;  ///< only while a loop runs
  std::size_t rounds_ = 0;
  std::atomic<std::uint64_t> loop_ = 0;  ///< so that nobody joins one loop twice
  std::atomic<unsigned> inside_ = 0;
  std::atomic<bool> ends_ = false;
  std::atomic<std::size_t> next_ = 0;
  std::vector<std::thread> helpers_;
};

WorkShare::WorkShare(unsigned threads)
    : threads_(std::clamp(threads == 0 ? std::thread::hardware_concurrency() : threads, 1U,
                          kMostThreads)) {}

WorkShare::~WorkShare() = default;
WorkShare::WorkShare(WorkShare&& other) noexcept = default;
WorkShare& WorkShare::operator=(WorkShare&& other) noexcept = default;

void WorkShare::run(std::size_t rounds, const Work& work) {
  if (threads_ < 2 || rounds < 2) {
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
