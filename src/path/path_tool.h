#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace pv {

/// What the mouse does in the path view. The values are the indices of the
/// buttons on the page that choose the tools.
enum class PathTool : std::int32_t {
  Zoom = 3,
  Select = 4,
  Move = 5,
  Scale = 6,
  ScaleX = 7,
  ScaleY = 8,
  Draw = 9,
  Add = 10,
  Delete = 11,
  Grab = 20,
};

enum class PathCursor : std::uint8_t {
  Arrow,  ///< the system's own
  HandOn,
  HandOff,
  Zoom,
  Pen,
  ArrowMove2,
  Scale,
  ScaleX,
  ScaleY,
  ArrowAdd,
  ArrowSubtract,
};
inline constexpr std::size_t kPathCursorCount = 11;

/// Name of a cursor's image without folder and extension ("hand-on"); empty for
/// the system's own arrow.
[[nodiscard]] std::string_view pathCursorImage(PathCursor cursor);

struct PathToolTraits {
  PathTool tool;
  PathCursor cursor;       ///< wherever the pointer is
  PathCursor hoverCursor;  ///< over what the tool works on: a selected point or a segment
  std::string_view step;   ///< names the tool's edit in the undo history; may be empty
  std::string_view hint;   ///< one sentence about how to use it
};

inline constexpr std::size_t kPathToolCount = 10;

/// One row for each tool, in the order of the values.
[[nodiscard]] const std::array<PathToolTraits, kPathToolCount>& pathTools();
[[nodiscard]] bool isPathTool(PathTool tool);
/// The row of a tool; that of Select for any other value.
[[nodiscard]] const PathToolTraits& pathToolTraits(PathTool tool);

}  // namespace pv
