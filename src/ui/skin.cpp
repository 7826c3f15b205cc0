#include "ui/skin.h"

#include <QFontDatabase>

#include "ui/pixel_painter.h"

namespace pv {
namespace {

QColor colourFrom(std::uint32_t rgb) {
  return QColor(QRgb{rgb});
}

}  // namespace

QColor Skin::hovered(const QColor& colour) {
  constexpr double kTowardsWhite = 0.1;
  return mixed(colour, Qt::white, kTowardsWhite);
}

// One family: for a list of them the toolkit looks for stand-ins of each at once, not
// just when a sign is missing.
QFont skinFont() {
  constexpr int kPixelSize = 11;
  QFont font(QFontDatabase::styles("Verdana").isEmpty() ? "DejaVu Sans" : "Verdana");
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(kPixelSize);
  return font;
}

Skin skinFrom(const ColourScheme& scheme) {
  Skin skin;
  skin.dialog = colourFrom(scheme.dialog);
  skin.panel = colourFrom(scheme.background);
  skin.page = colourFrom(scheme.page);
  skin.title = colourFrom(scheme.title);
  skin.text = colourFrom(scheme.text);
  skin.button = colourFrom(scheme.button);
  skin.selected = colourFrom(scheme.selected);
  skin.font = skinFont();
  skin.boldFont = skin.font;
  skin.boldFont.setBold(true);
  return skin;
}

}  // namespace pv
