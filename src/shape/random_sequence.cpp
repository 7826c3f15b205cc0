#include "shape/random_sequence.h"

#include <algorithm>
#include <bit>

namespace pv {

#ifdef _WIN32

void CRandSequence::restart() {
  state_ = 1;
  pending_ = 0;
}

// x -> a x + c, squared once a bit of the distance.
void CRandSequence::jump() {
  std::uint32_t factor = 214013U;
  std::uint32_t term = 2531011U;
  for (std::uint64_t left = pending_; left != 0; left >>= 1U) {
    if ((left & 1U) != 0) {
      state_ = state_ * factor + term;
    }
    term = term * factor + term;
    factor *= factor;
  }
  pending_ = 0;
}

#else

namespace {

constexpr std::size_t kTerms = 31;
using Polynomial = std::array<std::uint32_t, kTerms>;

// The product modulo x^31 = x^28 + 1 (the recurrence), coefficients modulo 2^32.
Polynomial multiply(const Polynomial& a, const Polynomial& b) {
  std::array<std::uint32_t, 2 * kTerms - 1> wide{};
  for (std::size_t i = 0; i < kTerms; ++i) {
    for (std::size_t j = 0; j < kTerms; ++j) {
      wide[i + j] += a[i] * b[j];
    }
  }
  for (std::size_t power = wide.size() - 1; power >= kTerms; --power) {
    wide[power - 3] += wide[power];
    wide[power - kTerms] += wide[power];
  }
  Polynomial result{};
  for (std::size_t i = 0; i < kTerms; ++i) {
    result[i] = wide[i];
  }
  return result;
}

Polynomial timesX(const Polynomial& a) {
  Polynomial result{};
  std::copy(a.begin(), a.end() - 1, result.begin() + 1);
  result[0] = a.back();
  result[kTerms - 3] += a.back();
  return result;
}

// From the exponent's highest bit down, so that each bit costs a square and at most a
// shift; the first four together are a single term.
Polynomial powerOfX(std::uint64_t exponent) {
  constexpr int kFirst = 4;
  int left = std::max(0, static_cast<int>(std::bit_width(exponent)) - kFirst);
  Polynomial result{};
  result[exponent >> left] = 1;
  while (left > 0) {
    --left;
    result = multiply(result, result);
    if (((exponent >> left) & 1U) != 0) {
      result = timesX(result);
    }
  }
  return result;
}

constexpr std::uint64_t kShortJump = 4000;  // below, stepping is quicker

}  // namespace

// The additive feedback generator's seeding: a Lehmer sequence from 1 fills the
// history, then ten rounds are thrown away.
void CRandSequence::restart() {
  constexpr std::uint64_t kLehmerFactor = 16807;
  constexpr std::uint64_t kLehmerModulus = 2147483647;
  std::uint64_t value = 1;
  for (auto& word : history_) {
    word = static_cast<std::uint32_t>(value);
    value = value * kLehmerFactor % kLehmerModulus;
  }
  oldest_ = 3;
  threeBack_ = 0;
  pending_ = 0;
  for (std::size_t i = 0; i < 10 * kDegree; ++i) {
    static_cast<void>(step());
  }
}

namespace {

// With x^n = sum of c[k] x^k modulo the recurrence's polynomial, the word n
// places further on is the sum of c[k] times the word k places on.
CRandSequence::Window jumped(const CRandSequence::Window& window, const Polynomial& c) {
  std::array<std::uint32_t, 2 * kTerms> words{};
  std::copy(window.begin(), window.end(), words.begin());
  for (std::size_t i = kTerms; i < words.size(); ++i) {
    words[i] = words[i - 3] + words[i - kTerms];
  }
  CRandSequence::Window result{};
  for (std::size_t k = 0; k < kTerms; ++k) {
    for (std::size_t j = 0; j < kTerms; ++j) {
      result[j] += c[k] * words[j + k];
    }
  }
  return result;
}

}  // namespace

void CRandSequence::jump() {
  const std::uint64_t distance = pending_;
  pending_ = 0;
  if (distance < kShortJump) {
    for (std::uint64_t i = 0; i < distance; ++i) {
      static_cast<void>(step());
    }
    return;
  }
  history_ = jumped(window(), powerOfX(distance));
  oldest_ = 0;
  threeBack_ = kDegree - 3;
}

CRandSequence::Window CRandSequence::window() {
  if (pending_ != 0) {
    jump();
  }
  Window window{};
  for (std::size_t i = 0; i < kDegree; ++i) {
    window[i] = history_[(oldest_ + i) % kDegree];
  }
  return window;
}

CRandSequence::Window CRandSequence::jumpTerms(std::uint64_t draws) {
  return powerOfX(draws);
}

#endif

}  // namespace pv
