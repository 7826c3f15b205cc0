#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "view3d/pixel_column.h"
#include "view3d/wire_mask.h"

namespace pv {

/// The pixels strictly between the ends of a line of up to nine steps, as
/// distances in a mask from the end where one stands.
class ShortLines {
 public:
  static constexpr std::int32_t kReach = 9;
  static constexpr std::int32_t kSide = 2 * kReach + 1;
  static constexpr std::size_t kMost = kReach - 1;  ///< shorter lines repeat a pixel

  /// Lines from each of a cell's rows have other distances.
  static constexpr std::size_t kRows = FrameCells::kHeight;

  /// Makes the table, unless it is for these cells already.
  void setCells(const FrameCells& cells);
  /// The line to (dx, dy) from row r of a cell has its kMost distances at kMost times
  /// ((dy + kReach) * kSide + dx + kReach) * kRows + r.
  [[nodiscard]] const std::int32_t* data() const { return inner_.data(); }

 private:
  void setLine(std::int32_t dx, std::int32_t dy, std::size_t row, std::int32_t* inner) const;

  FrameCells cells_;
  std::array<std::int32_t, kMost * kRows * kSide * kSide> inner_{};
};

/// Where one thread collects the pixels of wires, in a frame of this size.
struct WireTarget {
  MaskPixels pixels;
  std::int32_t width = 0;
  std::int32_t height = 0;
  const ShortLines* shortLines = nullptr;
};

/// Lines of a length class that wait for their inner pixels: where they start, as a
/// word of PixelColumn or as a place in the mask, and how far they go, as a word of
/// two halves.
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
    static constexpr std::size_t kLongest = 64;  ///< pixels of a line that is listed
    /// Vertices, two inner pixels of every line that waits in `three`, and the first
    /// of those in `more`.
    static constexpr std::size_t kRoom =
        kKept + WireQueue::kOfChunk + 2 * WireQueue::kRoom + kLongest;
    // Left unset as well.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init, modernize-use-equals-default)
    Pixels() {}

    std::int32_t at[kRoom + WireQueue::kSpare];
    std::size_t count = 0;
  };

  Pixels pixels;    ///< single ones
  WireQueue three;  ///< lines of 2 and 3 steps, from words
  WireQueue five;   ///< 4 and 5, from places
  WireQueue seven;  ///< 6 and 7, from places
  WireQueue nine;   ///< 8 and 9, from places
  WireQueue more;   ///< from words
};

/// Neighbouring columns of vertices, with the one before and the one behind.
struct WireGroup {
  static constexpr std::size_t kColumns = PatchHulls::kColumns;

  std::array<const PixelColumn*, kColumns + 2> columns{};  ///< the first before the group
  std::array<std::uint32_t, kColumns> chunks{};            ///< of the columns between
  std::size_t count = 0;                                   ///< of the columns between
};

/// Lists, and lights now and then, what belongs to the columns of a group in their
/// chunks: their lines up along the column and on to the next one, and the pixels of
/// their vertices. In these chunks and around them all columns lie on the canvas. It
/// goes chunk by chunk, so that what it lights lies in few pages of memory.
///
/// Where all ends are on the canvas a vertex' own pixel is lit exactly when one
/// of its four lines lights it: a line that is not horizontal lights both ends,
/// a horizontal one its left end, and one without length none. So each vertex
/// takes one store at most, and a line adds only the pixels between its ends.
void lightGroup(const WireGroup& group, const WireTarget& target, WireLists& lists);

/// Lights all that is listed.
void lightListed(const WireTarget& target, WireLists& lists);

}  // namespace pv
