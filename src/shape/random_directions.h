#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
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
  static constexpr std::size_t kSpacing = 2048;  ///< vertices from mark to mark

  std::size_t count_ = 0;
#ifdef _WIN32
  CRandSequence start_;
#else
  std::vector<CRandSequence::Window> marks_;
#endif
};

/// Makes directions in one thread. Reading on is quick; reading elsewhere has to go
/// to the place first.
class RandomDirections::Reader {
 public:
  /// `from` must stay as it is.
  // The words are set before they are read.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init)
  explicit Reader(const RandomDirections& from) : from_(from) {}

  /// Directions of `count` (1 to VertexBlock::kCapacity) vertices from `first` on,
  /// the last repeated to the end of its chunk.
  void read(std::size_t first, std::size_t count, VertexBlock& to);

 private:
  static constexpr std::size_t kNowhere = std::numeric_limits<std::size_t>::max();

  const RandomDirections& from_;
  std::size_t next_ = kNowhere;  ///< the vertex behind the last that was read
#ifdef _WIN32
  CRandSequence random_;
#else
  void enter(std::size_t vertex);
  void makeWords(std::size_t vertices);
  void forgetWords(std::size_t vertices);

  static constexpr std::size_t kHistory = 48;  ///< words that later ones are made of
  static constexpr std::size_t kRoom = kDrawsPerVertex * VertexBlock::kCapacity + 64;
  alignas(64) std::array<std::uint32_t, kHistory + kRoom> words_;
#endif
};

/// Directions of `count` vertices as streams. Without memory there are none, and
/// the sequence moves on as if there were.
void drawDirections(VectorStreams& to, std::size_t count, CRandSequence& random, WorkShare& share);

}  // namespace pv
