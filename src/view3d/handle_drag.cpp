#include "view3d/handle_drag.h"

namespace pv {

namespace {

// Adds a movement to the selected modifier by the rule of the handle. False when
// the handle does nothing for this modifier.
bool dragModifier(ModifierSet& set, Handle handle, std::int32_t dx, std::int32_t dy) {
  const ModifierTraits& row = traits(set.selected);
  Vec3& values = set.values[set.selected];
  // To the right and upward is positive; y counts downwards here.
  const float amount = static_cast<float>(dx - dy) / row.dragDivisor;
  if (handle != Handle::Centre) {
    values.axis(static_cast<int>(handle) - static_cast<int>(Handle::X)) += amount;
    return true;
  }
  switch (row.centreDrag) {
    case CentreDrag::AllAxes:
      values = values + Vec3{amount, amount, amount};
      return true;
    case CentreDrag::Tumble:
      values.x += static_cast<float>(dx);
      values.y += static_cast<float>(-dy);
      return true;
    case CentreDrag::Nothing:
      break;
  }
  return false;
}

}  // namespace

void HandleDrag::press(PixelPoint position) {
  buttonDown = true;
  handleDrag = active != Handle::None;
  pressPoint = position;
}

void HandleDrag::release() {
  buttonDown = false;
  handleDrag = false;
}

HandleDrag::Outcome HandleDrag::move(PixelPoint position, Handle hit, ModifierSet& set) {
  Outcome outcome;
  outcome.dx = position.x - lastMouse.x;
  outcome.dy = position.y - lastMouse.y;
  const bool moved = outcome.dx != 0 || outcome.dy != 0;

  // A drag that left its handle keeps it, and moving straight from one handle
  // into another keeps the first.
  const bool keeps = hit == Handle::None && previous != Handle::None && buttonDown;
  if (!keeps) {
    if (hit != Handle::None && previous == Handle::None) {
      active = hit;
    } else if (hit == Handle::None && previous != Handle::None) {
      active = Handle::None;
    }
  }
  outcome.handleChanged = active != previous;

  if (active != Handle::None && handleDrag && moved && isModifier(set.selected)) {
    outcome.modifierChanged = dragModifier(set, active, outcome.dx, outcome.dy);
    if (!outcome.modifierChanged) {
      active = previous;
    }
  }
  previous = active;
  outcome.moveCamera = moved && buttonDown && !handleDrag && !outcome.handleChanged;
  lastMouse = position;
  return outcome;
}

}  // namespace pv
