#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "shape/random_sequence.h"
#include "shape/shape_mesh.h"
#include "shape/vertex_kernels.h"
#include "util/work_share.h"

namespace pv {

/// Random numbers that one vertex' direction takes.
inline constexpr std::uint64_t kDrawsPerVertex = 6;

/// Random directions of many vertices: each component is the difference of two
/// numbers from 0 to 1 in steps of 1 / 100000. They are not kept but made again
/// where they are wanted, from marks in the sequence.
class RandomDirections {
 public:
  class Reader;

  /// Takes the next draws of the sequence for so many vertices.
  void take(CRandSequence& random, std::size_t count);
  void clear() { count_ = 0; }
  [[nodiscard]] std::size_t size() const { return count_; }

 private:
  // Runs of neighbouring vertices are made side by side, a group of runs at a time.
  static constexpr std::size_t kRuns = 8;
  static constexpr std::size_t kRun = 512;  ///< vertices
  static constexpr std::size_t kGroup = kRuns * kRun;

  std::size_t count_ = 0;
#ifdef _WIN32
  CRandSequence start_;
#else
  std::vector<CRandSequence::Window> marks_;  ///< where each group starts
  CRandSequence::Window nextRun_{};           ///< jump terms from run to run
  CRandSequence::Window nextGroup_{};
#endif
};

/// Makes directions in one thread, and keeps the group that it made last.
class RandomDirections::Reader {
 public:
  /// `from` must stay as it is.
  void begin(const RandomDirections& from);

  /// Directions of `count` (1 to VertexBlock::kCapacity) vertices from `first` on,
  /// the last repeated to the end of its chunk.
  void read(std::size_t first, std::size_t count, VertexBlock& to);

 private:
  static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
  struct alignas(64) Group {
    // Left unset: made before it is read.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init, modernize-use-equals-default)
    Group() {}

    std::array<float, kGroup> x;
    std::array<float, kGroup> y;
    std::array<float, kGroup> z;
  };

  void make(std::size_t group);

  const RandomDirections* from_ = nullptr;
  std::size_t made_ = kNone;
  std::unique_ptr<Group> group_;
};

/// Directions of `count` vertices as streams. Without memory there are none, and
/// the sequence moves on as if there were.
void drawDirections(VectorStreams& to, std::size_t count, CRandSequence& random, WorkShare& share);

}  // namespace pv
