#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "view3d/frame_strips.h"
#include "view3d/line_windows.h"
#include "view3d/pixel_column.h"

namespace pv {

/// Where one thread collects the pixels of wires, in a frame of this size.
struct WireTarget {
  MaskPixels pixels;
  std::int32_t width = 0;
  std::int32_t height = 0;
  const LineWindows* windows = nullptr;
  /// Most lines have a few steps at most. Only time depends on it, but all that draw into
  /// one frame must be told the same.
  bool isDense = false;
};

/// Lines of a length class that wait: where they start, as a word of PixelColumn, and
/// how far they go, as a word of two halves.
struct alignas(64) WireQueue {
  static constexpr std::size_t kKept = 256;  ///< more are worth going through
  /// Vertices of a chunk in all columns of a group.
  static constexpr std::size_t kOfChunk = PixelColumn::kChunk * PatchHulls::kColumns;
  static constexpr std::size_t kRoom = kKept + 2 * kOfChunk;
  static constexpr std::size_t kSpare = 64;  ///< what a compressed store may overshoot

  // Left unset: only what was put in is read.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init, modernize-use-equals-default)
  WireQueue() {}

  std::int32_t start[kRoom + kSpare];
  std::int32_t way[kRoom + kSpare];
  std::size_t count = 0;
};

/// What is still to be lit. Columns are gone through together, since a short list
/// costs more than its entries.
struct WireLists {
  struct alignas(64) Pixels {
    static constexpr std::size_t kKept = 1024;
    /// Vertices, two pixels of every line that waits in `three`, and those of the first
    /// ones in `few`.
    static constexpr std::size_t kRoom =
        kKept + WireQueue::kOfChunk + 2 * WireQueue::kRoom + 8 * PixelColumn::kChunk;
    // Left unset as well.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init, modernize-use-equals-default)
    Pixels() {}

    std::int32_t at[kRoom + WireQueue::kSpare];
    std::size_t count = 0;
  };

  Pixels pixels;    ///< single ones
  WireQueue three;  ///< lines of 2 and 3 steps
  WireQueue few;    ///< longer ones that are short as LineWindows sees it
  WireQueue more;   ///< all others
  /// Not lines: where windows lie in the mask, and which; both in bytes.
  WireQueue windows;
};

/// Neighbouring columns of vertices, with the one before and the one behind.
struct WireGroup {
  static constexpr std::size_t kColumns = PatchHulls::kColumns;

  /// From the one before the group to the one behind, all there.
  std::array<const PixelColumn*, kColumns + 2> columns{};
  std::array<std::uint32_t, kColumns> chunks{};  ///< of the columns between
  std::size_t count = 0;                         ///< of the columns between
};

/// Lists, and lights now and then, what belongs to the columns of a group in their
/// chunks: their lines up along the column and on to the next one, and the pixels of
/// their vertices. In these chunks and around them all columns lie on the canvas. It
/// goes chunk by chunk, so that what it lights lies in few pages of memory.
void lightGroup(const WireGroup& group, const WireTarget& target, WireLists& lists);

/// Lights all that is listed.
void lightListed(const WireTarget& target, WireLists& lists);

}  // namespace pv
