#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "library/tag_layout.h"

namespace pv {

enum class GridKey : std::uint8_t { Left, Right, Up, Down, Home, End, PageUp, PageDown };

/// Where the cells of a list of thumbnails stand: rows from the top left, all
/// cells alike, in the client area's own pixels. A plain value; sizes below
/// nothing count as nothing.
struct ThumbGrid {
  std::int32_t count = 0;        ///< items
  std::int32_t clientWidth = 0;  ///< of the visible area
  std::int32_t clientHeight = 0;
  std::int32_t scroll = 0;        ///< pixels that the content is moved up
  std::int32_t cellWidth = 112;   ///< 96 and 8 on either side
  std::int32_t cellHeight = 108;  ///< 8, 72, then two lines' room for the name

  /// Cells [first, last) that are at least partly visible.
  struct Range {
    std::int32_t first = 0;
    std::int32_t last = 0;
    bool operator==(const Range&) const = default;
  };

  /// At least 1.
  [[nodiscard]] std::int32_t columns() const;
  [[nodiscard]] std::int32_t rows() const;
  [[nodiscard]] std::int32_t contentHeight() const;
  [[nodiscard]] std::int32_t maxScroll() const;
  /// In client coordinates, the scroll offset taken off; `index` >= 0.
  [[nodiscard]] TagBox cell(std::int32_t index) const;
  /// The 96 x 72 pixels inside the cell.
  [[nodiscard]] TagBox picture(std::int32_t index) const;
  [[nodiscard]] Range visible() const;
  /// Item under the point, or -1.
  [[nodiscard]] std::int32_t hitTest(std::int32_t x, std::int32_t y) const;
  /// The selection after a key; from none (-1) to the first item, or the last for
  /// End. -1 while there are no items.
  [[nodiscard]] std::int32_t moved(std::int32_t selected, GridKey key) const;
  /// The nearest scroll offset at which the whole cell can be seen.
  [[nodiscard]] std::int32_t scrollToShow(std::int32_t index) const;

  bool operator==(const ThumbGrid&) const = default;
};

/// The next name, from `from` on and around, that begins with the typed text
/// (ASCII case ignored), or -1.
[[nodiscard]] std::int32_t typeAhead(std::span<const std::string> names, std::int32_t from,
                                     std::string_view typed);

}  // namespace pv
