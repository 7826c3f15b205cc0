#pragma once

#include <cstdint>

#include "raster/raster_canvas.h"
#include "shape/modifier_values.h"
#include "view3d/view_projector.h"

namespace pv {

/// State of the mouse over the view, and the rule by which a drag of a handle
/// changes the selected modifier. Positions in pixels of 96 dpi, y downwards.
struct HandleDrag {
  bool buttonDown = false;
  bool handleDrag = false;  ///< the press began on a handle
  Handle active = Handle::None;
  Handle previous = Handle::None;  ///< `active` after the last move
  PixelPoint lastMouse;
  PixelPoint pressPoint;

  void press(PixelPoint position);
  void release();

  struct Outcome {
    bool handleChanged = false;
    bool modifierChanged = false;
    bool moveCamera = false;  ///< the movement is the camera's
    std::int32_t dx = 0;      ///< movement since the last event
    std::int32_t dy = 0;
  };
  /// One mouse move; `hit` is the handle under the pointer.
  Outcome move(PixelPoint position, Handle hit, ModifierSet& set);
};

}  // namespace pv
