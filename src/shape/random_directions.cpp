// A word of the sequence is r[i] = r[i-3] + r[i-31]. Putting the rule into its own
// first term k - 1 times gives r[i] = r[i-3k] + the sum of r[i-31-3j] for j from 0
// to k - 1, of which as many neighbours can be made at once as 3 k allows.
#include "shape/random_directions.h"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "shape/random_directions.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
// clang-format on

#ifndef _WIN32

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Words = hn::CappedTag<std::uint32_t, 16>;
using Floats = hn::RebindToFloat<Words>;
using F = hn::Vec<Floats>;

/// Writes `count` words from `to` on, and up to a vector more; 48 stand before.
void follow(std::uint32_t* to, std::size_t count) {
  const Words d;
  constexpr std::size_t kTerms = (hn::MaxLanes(Words()) + 2) / 3;
  static_assert(31 + 3 * (kTerms - 1) <= 48);
  for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
    auto sum = hn::LoadU(d, to + i - 3 * kTerms);
    for (std::size_t j = 0; j < kTerms; ++j) {
      sum = hn::Add(sum, hn::LoadU(d, to + i - 31 - 3 * j));
    }
    hn::StoreU(sum, d, to + i);
  }
}

/// n / 100000 for whole numbers 0 to 100000, rounded once. With a fused operation
/// the two parts of the reciprocal give the same for all of them.
HWY_INLINE F hundredThousandths(F n) {
#if HWY_ARCH_X86 && HWY_TARGET <= HWY_AVX2
  constexpr float kHigh = 1.0F / 100000.0F;
  constexpr auto kLow = static_cast<float>(1.0 / 100000.0 - static_cast<double>(kHigh));
  const Floats d;
  return hn::MulAdd(n, hn::Set(d, kHigh), hn::Mul(n, hn::Set(d, kLow)));
#else
  return hn::Div(n, hn::Set(Floats(), 100000.0F));
#endif
}

/// A number of the library's, modulo 100001, divided by 100000. The quotient by
/// 100001 is rounded in the lowest bits of a float, and so off by less than one;
/// a remainder below zero is a huge word, which the other one is less than.
HWY_INLINE F share(const std::uint32_t* word) {
  const Words d;
  const hn::RebindToSigned<Words> di;
  const Floats df;
  const auto value = hn::ShiftRight<1>(hn::LoadU(d, word));
  const F magic = hn::Set(df, 12582912.0F);  // 1.5 * 2^23
  const F times = hn::Mul(hn::ConvertTo(df, hn::BitCast(di, value)), hn::Set(df, 1.0F / 100001.0F));
  const auto whole = hn::Sub(hn::BitCast(d, hn::Add(times, magic)), hn::BitCast(d, magic));
  const auto steps = hn::Set(d, 100001);
  const auto rest = hn::Sub(value, hn::Mul(whole, steps));
  return hundredThousandths(
      hn::ConvertTo(df, hn::BitCast(di, hn::Min(rest, hn::Add(rest, steps)))));
}

/// Directions from words, six a vertex.
void convert(const std::uint32_t* words, std::size_t count, VertexBlock& to) {
  const Floats d;
  constexpr std::size_t kMost = hn::MaxLanes(Floats());
  const std::size_t lanes = hn::Lanes(d);
  HWY_ALIGN float mixed[3 * kMost];  // x, y, z, x, y, z, ...
  for (std::size_t i = 0; i < count; i += lanes) {
    for (std::size_t part = 0; part < 3; ++part) {
      const std::uint32_t* from = words + 6 * i + 2 * part * lanes;
      const F low = share(from);
      const F high = share(from + lanes);
#if HWY_TARGET == HWY_SCALAR
      const F difference = hn::Sub(low, high);
#else
      const F difference = hn::Sub(hn::ConcatEven(d, high, low), hn::ConcatOdd(d, high, low));
#endif
      hn::Store(difference, d, mixed + part * lanes);
    }
    F x = hn::Undefined(d);
    F y = hn::Undefined(d);
    F z = hn::Undefined(d);
    hn::LoadInterleaved3(d, mixed, x, y, z);
    hn::Store(x, d, to.x + i);
    hn::Store(y, d, to.y + i);
    hn::Store(z, d, to.z + i);
  }
}

/// The window as many draws further on as the terms say: word j of it is the sum
/// of terms[k] times word j + k of what follows the old one.
void advance(const CRandSequence::Window& terms, CRandSequence::Window& window) {
  const Words d;
  constexpr std::size_t kDegree = CRandSequence::kDegree;
  HWY_ALIGN std::uint32_t words[2 * kDegree + 2 * hn::MaxLanes(Words())] = {};
  std::copy(window.begin(), window.end(), words);
  for (std::size_t i = kDegree; i < 2 * kDegree; ++i) {
    words[i] = words[i - 3] + words[i - kDegree];
  }
  HWY_ALIGN std::uint32_t result[kDegree + hn::MaxLanes(Words())];
  for (std::size_t j = 0; j < kDegree; j += hn::Lanes(d)) {
    auto sum = hn::Zero(d);
    for (std::size_t k = 0; k < kDegree; ++k) {
      sum = hn::Add(sum, hn::Mul(hn::Set(d, terms[k]), hn::LoadU(d, words + j + k)));
    }
    hn::StoreU(sum, d, result + j);
  }
  std::copy_n(result, kDegree, window.begin());
}

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace pv {

namespace {

void repeatLast(std::size_t count, VertexBlock& block) {
  for (float* axis : {block.x, block.y, block.z}) {
    std::fill(axis + count, axis + VertexBlock::padded(count), axis[count - 1]);
  }
}

}  // namespace

#ifdef _WIN32

void RandomDirections::take(CRandSequence& random, std::size_t count) {
  count_ = count;
  start_ = random;
  random.skip(kDrawsPerVertex * count);
}

void RandomDirections::Reader::read(std::size_t first, std::size_t count, VertexBlock& to) {
  if (first != next_) {
    random_ = from_.start_;
    random_.skip(kDrawsPerVertex * first);
  }
  const auto component = [this] {
    constexpr std::int32_t kSteps = 100001;
    const float a = static_cast<float>(random_.next() % kSteps) / 100000.0F;
    const float b = static_cast<float>(random_.next() % kSteps) / 100000.0F;
    return a - b;
  };
  for (std::size_t i = 0; i < count; ++i) {
    to.x[i] = component();
    to.y[i] = component();
    to.z[i] = component();
  }
  repeatLast(count, to);
  next_ = first + count;
}

#else

HWY_EXPORT(follow);
HWY_EXPORT(convert);
HWY_EXPORT(advance);

void RandomDirections::take(CRandSequence& random, std::size_t count) {
  count_ = count;
  marks_.resize(count / kSpacing + 1);
  marks_[0] = random.window();
  const CRandSequence::Window terms = CRandSequence::jumpTerms(kDrawsPerVertex * kSpacing);
  for (std::size_t i = 1; i < marks_.size(); ++i) {
    marks_[i] = marks_[i - 1];
    HWY_DYNAMIC_DISPATCH(advance)(terms, marks_[i]);
  }
  random.skip(kDrawsPerVertex * count);
}

void RandomDirections::Reader::read(std::size_t first, std::size_t count, VertexBlock& to) {
  if (first != next_) {
    enter(first);
  }
  const std::size_t padded = VertexBlock::padded(count);
  makeWords(padded);
  HWY_DYNAMIC_DISPATCH(convert)(words_.data() + kHistory, padded, to);
  repeatLast(count, to);
  forgetWords(count);
  next_ = first + count;
}

// The words before a mark follow from it backwards.
void RandomDirections::Reader::enter(std::size_t vertex) {
  constexpr std::size_t kDegree = CRandSequence::kDegree;
  const CRandSequence::Window& mark = from_.marks_[vertex / kSpacing];
  std::copy(mark.begin(), mark.end(), words_.begin() + (kHistory - kDegree));
  for (std::size_t i = kHistory - kDegree; i-- > 0;) {
    words_[i] = words_[i + kDegree] - words_[i + kDegree - 3];
  }
  for (std::size_t left = vertex % kSpacing; left > 0;) {
    const std::size_t step = std::min(left, VertexBlock::kCapacity);
    makeWords(step);
    forgetWords(step);
    left -= step;
  }
}

void RandomDirections::Reader::makeWords(std::size_t vertices) {
  HWY_DYNAMIC_DISPATCH(follow)(words_.data() + kHistory, kDrawsPerVertex * vertices);
}

void RandomDirections::Reader::forgetWords(std::size_t vertices) {
  std::copy_n(words_.begin() + static_cast<std::ptrdiff_t>(kDrawsPerVertex * vertices), kHistory,
              words_.begin());
}

#endif

void drawDirections(VectorStreams& to, std::size_t count, CRandSequence& random, WorkShare& share) {
  constexpr std::size_t kRound = 16 * VertexBlock::kCapacity;
  if (!to.resize(count)) {
    random.skip(kDrawsPerVertex * count);
    return;
  }
  RandomDirections directions;
  directions.take(random, count);
  share.run((count + kRound - 1) / kRound, [&](std::size_t round, unsigned) {
    RandomDirections::Reader reader(directions);
    VertexBlock block;
    const std::size_t end = std::min(count, (round + 1) * kRound);
    for (std::size_t first = round * kRound; first < end; first += VertexBlock::kCapacity) {
      const std::size_t size = std::min(VertexBlock::kCapacity, end - first);
      reader.read(first, size, block);
      storeVertices(block, first, size, to);
    }
  });
}

}  // namespace pv

#endif
