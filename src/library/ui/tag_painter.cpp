#include "library/ui/tag_painter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include <QFontMetricsF>

namespace pv {
namespace {

// In pixels of 96 dpi.
constexpr int kTextInset = 5;    // half of the gap that a tag's box holds
constexpr double kBaseline = 4;  // below the line that the layout centres names on

QColor colourFrom(std::uint32_t rgb) {
  return QColor(QRgb{rgb});
}

/// A font by the height of its lines, which is how the heights are meant.
QFont tagFont(std::int32_t height) {
  constexpr double kLineToEm = 1.2;
  QFont font;
  font.setFamilies({QString::fromUtf8(kTagFontName.data(), kTagFontName.size()), "DejaVu Sans"});
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(qRound(height / kLineToEm));
  return font;
}

}  // namespace

ColourScheme schemeOf(const Skin& skin) {
  const auto rgb = [](const QColor& colour) { return std::uint32_t{colour.rgb() & 0xFFFFFFU}; };
  ColourScheme scheme;
  scheme.background = rgb(skin.panel);
  scheme.text = rgb(skin.text);
  scheme.button = rgb(skin.button);
  scheme.selected = rgb(skin.selected);
  return scheme;
}

TagPainter::TagPainter(const UiContext& context) : context_(context) {
  std::transform(kTagFontHeights.begin(), kTagFontHeights.end(), fonts_.begin(), tagFont);
}

QString TagPainter::textOf(std::string_view name) {
  constexpr std::size_t kLongest = 1024;  // lists from outside may hold anything
  const std::string_view cut = name.substr(0, kLongest);
  return QString::fromUtf8(cut.data(), static_cast<qsizetype>(cut.size()));
}

TextExtent TagPainter::measure(std::int32_t fontIndex, std::string_view name) const {
  const auto index = static_cast<std::size_t>(fontIndex);
  const double width = QFontMetricsF(fonts_[index]).horizontalAdvance(textOf(name));
  return {static_cast<std::int32_t>(std::ceil(width)), kTagFontHeights[index]};
}

void TagPainter::paint(PixelPainter& painter, const TagDrawItem& item, const TagLook& look) const {
  const bool plain = look.state == TagState::None;
  const bool excluded = look.state == TagState::Excluded;
  const QColor ink = colourFrom(item.textColour);
  QColor face = colourFrom(item.faceColour);
  face = look.hovered ? Skin::hovered(face) : face;
  const QRectF chip = chipOf(look.room);
  if (!plain || look.hovered) {
    // A light face cannot lighten: an edge in the text's colour does.
    painter.box(painter.pixels(chip), face, look.hovered && excluded ? ink : face);
  }
  const QFont& font = fonts_[static_cast<std::size_t>(item.fontIndex)];
  // The layout centres a row's names on one line, and so they can share the base line.
  constexpr double kHalfCapitals = 0.365;
  const double line = item.y + std::trunc(item.extent.height / 1.75);
  const double middle = line + kBaseline - kHalfCapitals * font.pixelSize();
  const double left = look.room.left() + kTextInset;
  const double room = std::min(item.extent.width + 4.0, look.room.right() - left);
  painter.text(QRectF(left, middle - font.pixelSize(), room, 2 * font.pixelSize()), Qt::AlignLeft,
               textOf(item.text), plain && look.hovered ? brightColour(context_.skin) : ink, font);
  if (excluded || (look.deleting && look.hovered)) {
    // What is left out looks so without colours too.
    const QRect strike =
        painter.pixels(QRectF(left, middle, look.room.right() - kTextInset - left, 0));
    painter.fill({strike.topLeft(), QSize(strike.width(), painter.line())}, ink);
  }
}

}  // namespace pv
