#pragma once

#include <cstddef>
#include <cstdint>

#include "job.h"
#include "scenes.h"
#include "shape/random_directions.h"
#include "util/work_share.h"

namespace pv::bench {

// All calls of the program's own drawing, with two threads where there are two
// processors.

/// Projection and lines of a shape that stays, on black, after putting back what the
/// frame before drew over; everything is drawn anew.
[[nodiscard]] Job ourDrawing(const ShapeRecord& shape, FrameSize size);

/// What an edit costs: the shape is handed in anew, so nothing is reused.
[[nodiscard]] Job ourFrame(const ShapeRecord& shape, FrameSize size);

/// What a repaint costs.
[[nodiscard]] Job ourStillFrame(const ShapeRecord& shape, FrameSize size);

/// Random directions of so many vertices, from the unseeded start on.
class OurDirections {
 public:
  explicit OurDirections(std::size_t count);
  void draw();
  /// Returns the number behind them, so that the jump is made and not only noted.
  std::int32_t skip();
  /// The first ones of the sequence, to be looked at.
  void store(VectorStreams& to);

 private:
  std::size_t count_;
  RandomDirections directions_;
  CRandSequence random_;
  WorkShare share_;
};

}  // namespace pv::bench
