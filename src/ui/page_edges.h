#pragma once

#include <cstdint>

#include <QRect>
#include <QSize>

#include "ui/dialog_units.h"

namespace pv {

/// The edges of a page that a control keeps its distance to.
enum class PageEdge : std::uint8_t { TopLeft, BottomLeft, BottomRight };

/// Places in pixels of 96 dpi on a page of that size, from rectangles in dialog
/// units of the page at its basic size `basic`. On a smaller page everything stays
/// where it is at the basic size.
[[nodiscard]] QRect placeAt(DialogRect rect, PageEdge edge, DialogRect basic, QSize page);
/// The same for the one control that takes the room of a larger page.
[[nodiscard]] QRect growingPlace(DialogRect rect, DialogRect basic, QSize page);

}  // namespace pv
