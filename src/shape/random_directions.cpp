// A word of the sequence is r[i] = r[i-3] + r[i-31]. Putting the rule into its own
// first term k - 1 times gives r[i] = r[i-3k] + the sum of r[i-31-3j] for j from 0
// to k - 1, of which as many neighbours can be made at once as 3 k allows. They
// come out of words that were stored just before, across the borders of those
// stores, for which a processor has to wait; so several runs take turns.
#include "shape/random_directions.h"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "shape/random_directions.cpp"
#include "math/simd.h"
// clang-format off
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "math/leave_vectors-inl.h"
// clang-format on

#ifndef _WIN32

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Words = hn::CappedTag<std::uint32_t, 16>;
using Floats = hn::RebindToFloat<Words>;
using F = hn::Vec<Floats>;

constexpr std::size_t kHistory = 48;  ///< words that the next ones are made of

/// A vector of words at `to`, behind that history.
HWY_INLINE void follow(std::uint32_t* to) {
  const Words d;
  constexpr std::size_t kTerms = (hn::MaxLanes(Words()) + 2) / 3;
  static_assert(31 + 3 * (kTerms - 1) <= kHistory);
  auto sum = hn::LoadU(d, to - 3 * kTerms);
  for (std::size_t j = 0; j < kTerms; ++j) {
    sum = hn::Add(sum, hn::LoadU(d, to - 31 - 3 * j));
  }
  hn::StoreU(sum, d, to);
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

constexpr std::size_t kTurn = 16;  ///< vertices that a run makes in its turn

/// Their directions from words, six a vertex.
HWY_INLINE void convert(const std::uint32_t* words, float* toX, float* toY, float* toZ) {
  const Floats d;
  const std::size_t lanes = hn::Lanes(d);
  HWY_ALIGN float mixed[3 * hn::MaxLanes(Floats())];  // x, y, z, x, y, z, ...
  for (std::size_t i = 0; i < kTurn; i += lanes) {
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
    hn::Store(x, d, toX + i);
    hn::Store(y, d, toY + i);
    hn::Store(z, d, toZ + i);
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
  leaveVectors();
}

/// A run's latest words, and room for those of a turn.
struct alignas(64) RunWords {
  static constexpr std::size_t kDraws = kDrawsPerVertex * kTurn;

  /// The words before a window follow from it backwards.
  void start(const CRandSequence::Window& window) {
    constexpr std::size_t kDegree = CRandSequence::kDegree;
    std::copy(window.begin(), window.end(), words + kHistory - kDegree);
    for (std::size_t i = kHistory - kDegree; i-- > 0;) {
      words[i] = words[i + kDegree] - words[i + kDegree - 3];
    }
  }
  void endTurn() { std::copy_n(words + kDraws, kHistory, words); }

  std::uint32_t words[kHistory + kDraws];
};

/// `kRuns` runs of `length` vertices, whole turns, one behind the other in x, y and
/// z. The windows tell where each begins.
template <std::size_t kRuns>
HWY_INLINE void follow(const std::array<CRandSequence::Window, kRuns>& windows, std::size_t length,
                       float* x, float* y, float* z) {
  RunWords runs[kRuns];
  for (std::size_t run = 0; run < kRuns; ++run) {
    runs[run].start(windows[run]);
  }
  for (std::size_t vertex = 0; vertex < length; vertex += kTurn) {
    for (std::size_t i = 0; i < RunWords::kDraws; i += hn::Lanes(Words())) {
      for (RunWords& run : runs) {
        follow(run.words + kHistory + i);
      }
    }
    for (std::size_t run = 0; run < kRuns; ++run) {
      const std::size_t at = run * length + vertex;
      convert(runs[run].words + kHistory, x + at, y + at, z + at);
      runs[run].endTurn();
    }
  }
}

void followRuns(const std::array<CRandSequence::Window, 8>& windows, std::size_t length, float* x,
                float* y, float* z) {
  follow(windows, length, x, y, z);
  leaveVectors();
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

void RandomDirections::Reader::begin(const RandomDirections& from) {
  from_ = &from;
  made_ = kNone;
  if (from.size() > 0 && !group_) {
    group_ = std::make_unique<Group>();
  }
}

void RandomDirections::Reader::read(std::size_t first, std::size_t count, VertexBlock& to) {
  for (std::size_t done = 0; done < count;) {
    const std::size_t vertex = first + done;
    if (vertex / kGroup != made_) {
      make(vertex / kGroup);
    }
    const std::size_t from = vertex % kGroup;
    const std::size_t part = std::min(count - done, kGroup - from);
    std::copy_n(group_->x.data() + from, part, to.x + done);
    std::copy_n(group_->y.data() + from, part, to.y + done);
    std::copy_n(group_->z.data() + from, part, to.z + done);
    done += part;
  }
  repeatLast(count, to);
}

#ifdef _WIN32

void RandomDirections::take(CRandSequence& random, std::size_t count) {
  count_ = count;
  start_ = random;
  random.skip(kDrawsPerVertex * count);
}

void RandomDirections::Reader::make(std::size_t group) {
  CRandSequence random = from_->start_;
  random.skip(kDrawsPerVertex * kGroup * group);
  const auto component = [&random] {
    constexpr std::int32_t kSteps = 100001;
    const float a = static_cast<float>(random.next() % kSteps) / 100000.0F;
    const float b = static_cast<float>(random.next() % kSteps) / 100000.0F;
    return a - b;
  };
  for (std::size_t i = 0; i < kGroup; ++i) {
    group_->x[i] = component();
    group_->y[i] = component();
    group_->z[i] = component();
  }
  made_ = group;
}

#else

HWY_EXPORT(followRuns);
HWY_EXPORT(advance);

void RandomDirections::take(CRandSequence& random, std::size_t count) {
  if (marks_.empty()) {
    nextRun_ = CRandSequence::jumpTerms(kDrawsPerVertex * kRun);
    nextGroup_ = CRandSequence::jumpTerms(kDrawsPerVertex * kGroup);
  }
  count_ = count;
  marks_.resize(count / kGroup + 1);
  marks_[0] = random.window();
  for (std::size_t i = 1; i < marks_.size(); ++i) {
    marks_[i] = marks_[i - 1];
    HWY_DYNAMIC_DISPATCH(advance)(nextGroup_, marks_[i]);
  }
  random.skip(kDrawsPerVertex * count);
}

void RandomDirections::Reader::make(std::size_t group) {
  std::array<CRandSequence::Window, kRuns> windows{};
  windows[0] = from_->marks_[group];
  for (std::size_t run = 1; run < kRuns; ++run) {
    windows[run] = windows[run - 1];
    HWY_DYNAMIC_DISPATCH(advance)(from_->nextRun_, windows[run]);
  }
  HWY_DYNAMIC_DISPATCH(followRuns)
  (windows, kRun, group_->x.data(), group_->y.data(), group_->z.data());
  made_ = group;
}

#endif

void drawDirections(VectorStreams& to, std::size_t count, CRandSequence& random, WorkShare& share) {
  constexpr std::size_t kRound = 32 * VertexBlock::kCapacity;  // whole groups
  if (!to.resize(count)) {
    random.skip(kDrawsPerVertex * count);
    return;
  }
  RandomDirections directions;
  directions.take(random, count);
  share.run((count + kRound - 1) / kRound, [&](std::size_t round, unsigned) {
    RandomDirections::Reader reader;
    reader.begin(directions);
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
