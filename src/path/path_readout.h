#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "path/path_tool.h"
#include "path/path_viewport.h"

namespace pv {

/// A position in the plane of a flat view, in path units.
struct PathPosition {
  float across = 0.0F;  ///< along the view's horizontal axis
  float up = 0.0F;      ///< along its vertical axis

  bool operator==(const PathPosition&) const = default;
};

/// What the information line below the path view tells.
struct PathReadout {
  PathTool tool = PathTool::Select;
  PathAxisView axes = PathAxisView::Front;
  /// Under the pointer, snapped as a click there would be; none while the pointer
  /// is elsewhere.
  std::optional<PathPosition> pointer;
  std::int32_t points = 0;
  std::int32_t selected = 0;
  float zoom = 1.0F;

  bool operator==(const PathReadout&) const = default;
};

/// Names of the axes of space that run across and up a view: 'X', 'Y' or 'Z'.
[[nodiscard]] char pathHorizontalAxisName(PathAxisView axes);
[[nodiscard]] char pathVerticalAxisName(PathAxisView axes);

/// The figures, in UTF-8, without the hint:
/// "X 0.200  Y −0.500   12 of 512 points   3 selected   Zoom 120 %".
[[nodiscard]] std::string pathReadoutText(const PathReadout& readout);
/// How to use the tool in hand.
[[nodiscard]] std::string pathHintText(const PathReadout& readout);

}  // namespace pv
