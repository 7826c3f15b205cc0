#include "ui/page_edges.h"

namespace pv {
namespace {

QSize growth(DialogRect basic, QSize page) {
  const DialogRect pixels = inPixels(basic);
  return (page - QSize(pixels.width, pixels.height)).expandedTo({0, 0});
}

}  // namespace

QRect placeAt(DialogRect rect, PageEdge edge, DialogRect basic, QSize page) {
  const DialogRect at = inPixels(rect);
  const QSize extra = growth(basic, page);
  const int right = edge == PageEdge::BottomRight ? extra.width() : 0;
  const int down = edge == PageEdge::TopLeft ? 0 : extra.height();
  return {at.x + right, at.y + down, at.width, at.height};
}

QRect growingPlace(DialogRect rect, DialogRect basic, QSize page) {
  const DialogRect at = inPixels(rect);
  return {QPoint(at.x, at.y), QSize(at.width, at.height) + growth(basic, page)};
}

}  // namespace pv
