#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include <QFont>
#include <QRectF>
#include <QString>

#include "library/tag_cloud.h"
#include "ui/pixel_painter.h"
#include "ui/ui_context.h"

namespace pv {

/// What the layout does not know of a tag that is to be painted.
struct TagLook {
  QRectF room;  ///< its line of text with the gaps beside it, in the widget
  TagState state = TagState::None;
  bool hovered = false;
  bool deleting = false;  ///< a click would delete it
};

/// Measures and paints the names of a cloud in its six fonts.
class TagPainter {
 public:
  explicit TagPainter(const UiContext& context);

  /// In pixels of 96 dpi, rounded up.
  [[nodiscard]] TextExtent measure(std::int32_t fontIndex, std::string_view name) const;
  void paint(PixelPainter& painter, const TagDrawItem& item, const TagLook& look) const;
  /// What is painted behind a tag that has a state or the pointer over it.
  [[nodiscard]] static QRectF chipOf(const QRectF& room) { return room.adjusted(1, 0, -1, 0); }
  /// The name on the screen; extremely long ones are cut.
  [[nodiscard]] static QString textOf(std::string_view name);

 private:
  const UiContext& context_;
  std::array<QFont, kTagFontHeights.size()> fonts_;
};

/// The part of the skin that a cloud's items are coloured by.
[[nodiscard]] ColourScheme schemeOf(const Skin& skin);

}  // namespace pv
