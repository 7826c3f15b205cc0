// The sequence is linear, so it can be entered at many places at once: lanes of
// equal length are followed side by side, each with the words that the sequence
// itself would have there.
#include "shape/random_directions.h"

#include <algorithm>
#include <vector>

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

constexpr std::size_t kLanes = 16;
constexpr std::size_t kTile = 16;
constexpr std::size_t kWords = CRandSequence::kDegree;

using Words = hn::CappedTag<std::uint32_t, kLanes>;
using Ints = hn::RebindToSigned<Words>;
using Floats = hn::RebindToFloat<Words>;
using I = hn::Vec<Ints>;
using F = hn::Vec<Floats>;

/// Sixteen places of the sequence, word by word.
struct alignas(64) Lanes {
  std::uint32_t words[kWords][kLanes];
};

/// One draw from the lanes at `from`, modulo 100001, divided by 100000. The
/// quotient in single precision is off by one at most, which is put right.
HWY_INLINE F draw(Lanes& lanes, std::size_t from, std::size_t oldest, std::size_t threeBack) {
  constexpr std::int32_t kSteps = 100001;
  const Words d;
  const Ints di;
  const Floats df;
  std::uint32_t* place = lanes.words[oldest] + from;
  const auto sum = hn::Add(hn::Load(d, place), hn::Load(d, lanes.words[threeBack] + from));
  hn::Store(sum, d, place);
  const auto value = hn::ShiftRight<1>(sum);
  const I steps = hn::Set(di, kSteps);
  const F share = hn::Mul(hn::ConvertTo(df, hn::BitCast(di, value)), hn::Set(df, 1.0F / 100001.0F));
  const auto whole = hn::BitCast(d, hn::ConvertTo(di, share));
  I rest = hn::BitCast(di, hn::Sub(value, hn::Mul(whole, hn::BitCast(d, steps))));
  rest = hn::Add(rest, hn::And(hn::BroadcastSignBit(rest), steps));
  rest = hn::Sub(rest, hn::IfThenElseZero(hn::Gt(rest, hn::Set(di, kSteps - 1)), steps));
  return hn::Div(hn::ConvertTo(df, rest), hn::Set(df, 100000.0F));
}

HWY_INLINE std::size_t following(std::size_t index) {
  return index + 1 == kWords ? 0 : index + 1;
}

/// Lane k writes `each` vertices from first + k * each on.
void follow(Lanes& lanes, std::size_t each, std::size_t first, VectorStreams& to) {
  const Floats df;
  float* const out[] = {to.x.data() + first, to.y.data() + first, to.z.data() + first};
  HWY_ALIGN float tile[3][kTile][kLanes];
  std::size_t oldest = 0;
  std::size_t threeBack = kWords - 3;
  for (std::size_t done = 0; done < each; done += kTile) {
    const std::size_t count = std::min(kTile, each - done);
    for (std::size_t i = 0; i < count; ++i) {
      for (auto& axis : tile) {
        const std::size_t next = following(oldest);
        const std::size_t nextThree = following(threeBack);
        for (std::size_t lane = 0; lane < kLanes; lane += hn::Lanes(df)) {
          const F a = draw(lanes, lane, oldest, threeBack);
          const F b = draw(lanes, lane, next, nextThree);
          hn::Store(hn::Sub(a, b), df, axis[i] + lane);
        }
        oldest = following(next);
        threeBack = following(nextThree);
      }
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
      for (std::size_t lane = 0; lane < kLanes; ++lane) {
        for (std::size_t i = 0; i < count; ++i) {
          out[axis][lane * each + done + i] = tile[axis][i][lane];
        }
      }
    }
  }
}

/// The lanes start at the windows, one each.
void followFrom(const CRandSequence::Window* windows, std::size_t each, std::size_t first,
                VectorStreams& to) {
  Lanes lanes{};
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    for (std::size_t word = 0; word < kWords; ++word) {
      lanes.words[word][lane] = windows[lane][word];
    }
  }
  follow(lanes, each, first, to);
}

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace pv {

namespace {

float component(CRandSequence& random) {
  constexpr std::int32_t kSteps = 100001;
  const float a = static_cast<float>(random.next() % kSteps) / 100000.0F;
  const float b = static_cast<float>(random.next() % kSteps) / 100000.0F;
  return a - b;
}

void drawOneByOne(VectorStreams& to, std::size_t first, std::size_t end, CRandSequence& random) {
  for (std::size_t i = first; i < end; ++i) {
    const float x = component(random);
    const float y = component(random);
    const float z = component(random);
    to.set(i, {x, y, z});
  }
}

}  // namespace

#ifdef _WIN32

void drawDirections(VectorStreams& to, std::size_t count, CRandSequence& random,
                    WorkShare& /*share*/) {
  if (!to.resize(count)) {
    random.skip(kDrawsPerVertex * count);
    return;
  }
  drawOneByOne(to, 0, count, random);
}

#else

HWY_EXPORT(followFrom);

void drawDirections(VectorStreams& to, std::size_t count, CRandSequence& random, WorkShare& share) {
  constexpr std::size_t kLanesEach = 16;  // of a round
  constexpr std::size_t kMostRounds = 16;
  constexpr std::size_t kWorthARound = 8192;  // vertices; entering the lanes has its cost
  if (!to.resize(count)) {
    random.skip(kDrawsPerVertex * count);
    return;
  }
  const std::size_t rounds = std::min(count / kWorthARound, kMostRounds);
  std::size_t done = 0;
  if (rounds > 0) {
    const std::size_t each = count / (rounds * kLanesEach);
    std::vector<CRandSequence::Window> windows(rounds * kLanesEach);
    random.standAt(kDrawsPerVertex * each, windows);
    share.run(rounds, [&](std::size_t round, unsigned) {
      const std::size_t lane = round * kLanesEach;
      HWY_DYNAMIC_DISPATCH(followFrom)(&windows[lane], each, lane * each, to);
    });
    done = windows.size() * each;
    random.skip(kDrawsPerVertex * done);
  }
  drawOneByOne(to, done, count, random);
}

#endif

}  // namespace pv

#endif
