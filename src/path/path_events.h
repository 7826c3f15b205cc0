#pragma once

#include <cstdint>

#include "path/path_tool.h"
#include "path/path_viewport.h"

namespace pv {

/// The state of the mouse at an event. Positions are device pixels of the frame
/// from its upper left corner, y down; they may lie outside.
struct PathMouse {
  ScreenPoint position;
  bool ctrl = false;
  bool leftHeld = false;  ///< after the event: true at a press of the left button
  bool middleHeld = false;
};

enum class PathMouseButton : std::uint8_t { Left, Middle };

enum class PathKey : std::uint8_t { Delete, Backspace, Escape, Left, Right, Up, Down };

/// What a view asks of its shell after an event.
struct PathResponse {
  bool repaint = false;
  bool pathChanged = false;  ///< points were moved, added or removed
  bool takeFocus = false;    ///< the view wants the keyboard
  bool handled = true;       ///< false: a key that means nothing here now; pass it on
  PathCursor cursor = PathCursor::Arrow;
};

}  // namespace pv
