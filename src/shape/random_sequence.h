#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace pv {

/// The numbers of the platform's C library `rand` from its unseeded start, made
/// inline. The sequence is linear, so any number of draws can be jumped over
/// at a cost that does not grow with it: skip() only notes the jump, and the
/// next draw makes it.
class CRandSequence {
 public:
  CRandSequence() { restart(); }

  /// Back to the unseeded start.
  void restart();

  /// The next number: 0 to 2^31 - 1, on Windows 0 to 32767.
  [[nodiscard]] std::int32_t next() {
    if (pending_ != 0) {
      jump();
    }
    return step();
  }

  /// As if next() had been called `draws` times.
  void skip(std::uint64_t draws) { pending_ += draws; }

#ifndef _WIN32
  /// r[i] = r[i-3] + r[i-31] modulo 2^32; a draw is the new word less its low bit.
  static constexpr std::size_t kDegree = 31;
  using Window = std::array<std::uint32_t, kDegree>;

  /// Where the sequence stands: its last 31 words, oldest first.
  [[nodiscard]] Window window();
  /// Terms c of a jump: the word `draws` places after any other is the sum of
  /// c[k] times the word k places after it.
  [[nodiscard]] static Window jumpTerms(std::uint64_t draws);
#endif

 private:
#ifdef _WIN32
  std::int32_t step() {
    state_ = state_ * 214013U + 2531011U;
    return static_cast<std::int32_t>((state_ >> 16U) & 0x7FFFU);
  }

  std::uint32_t state_ = 1;
#else
  std::int32_t step() {
    const std::uint32_t sum = history_[oldest_] + history_[threeBack_];
    history_[oldest_] = sum;
    oldest_ = oldest_ + 1 == kDegree ? 0 : oldest_ + 1;
    threeBack_ = threeBack_ + 1 == kDegree ? 0 : threeBack_ + 1;
    return static_cast<std::int32_t>(sum >> 1U);
  }

  Window history_{};
  std::size_t oldest_ = 0;
  std::size_t threeBack_ = 28;
#endif
  void jump();

  std::uint64_t pending_ = 0;
};

}  // namespace pv
