#pragma once

#include <cstddef>
#include <functional>
#include <memory>

namespace pv {

/// Spreads the rounds of a loop over the caller and some helper threads, which
/// are started when the first large loop comes and sleep in between. Each thread
/// claims rounds one by one from a range of its own, in their order, so that it may
/// go on where its last round ended; then from the ends of the others' ranges. The
/// caller never waits for a helper that has not begun, only for rounds that were
/// claimed.
class WorkShare {
 public:
  /// `threads` counts the caller in; 0 stands for the machine's processors. No
  /// more than eight are used.
  explicit WorkShare(unsigned threads = 0);
  ~WorkShare();
  WorkShare(WorkShare&& other) noexcept;
  WorkShare& operator=(WorkShare&& other) noexcept;
  WorkShare(const WorkShare&) = delete;
  WorkShare& operator=(const WorkShare&) = delete;

  /// Calls work(round, worker) for rounds 0 to rounds - 1, each once, in any order
  /// and at the same time; everything is done when it returns. `worker` is 0 to
  /// threads() - 1 and no two calls at the same time have the same. `work` must
  /// not throw.
  using Work = std::function<void(std::size_t, unsigned)>;
  void run(std::size_t rounds, const Work& work);

  /// How many threads may work at the same time, the caller among them.
  [[nodiscard]] unsigned threads() const { return threads_; }

 private:
  class Crew;

  unsigned threads_;
  std::unique_ptr<Crew> crew_;
};

}  // namespace pv
