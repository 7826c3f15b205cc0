#include "app/ui/window_style.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

#include "ui/skin.h"

namespace pv {
namespace {

constexpr QRgb kDialogColour = 0xFF323232;
constexpr QRgb kPanelColour = 0xFF464646;
constexpr QRgb kTitleColour = 0xFF1E1E1E;
constexpr QRgb kTextColour = 0xFFAAAAAA;
constexpr QRgb kSelectionColour = 0xFFF07800;
constexpr QRgb kFieldColour = 0xFF282828;
constexpr QRgb kLightColour = 0xFF5A5A5A;
constexpr QRgb kBrightTextColour = 0xFFE6E6E6;

QPalette darkPalette() {
  QPalette palette;
  palette.setColor(QPalette::Window, QColor(kDialogColour));
  palette.setColor(QPalette::WindowText, QColor(kTextColour));
  palette.setColor(QPalette::Base, QColor(kFieldColour));
  palette.setColor(QPalette::AlternateBase, QColor(kDialogColour));
  palette.setColor(QPalette::Text, QColor(kTextColour));
  palette.setColor(QPalette::PlaceholderText, QColor(kLightColour));
  palette.setColor(QPalette::Button, QColor(kPanelColour));
  palette.setColor(QPalette::ButtonText, QColor(kTextColour));
  palette.setColor(QPalette::BrightText, QColor(kBrightTextColour));
  palette.setColor(QPalette::Light, QColor(kLightColour));
  palette.setColor(QPalette::Dark, QColor(kTitleColour));
  palette.setColor(QPalette::ToolTipBase, QColor(kTitleColour));
  palette.setColor(QPalette::ToolTipText, QColor(kTextColour));
  palette.setColor(QPalette::Highlight, QColor(kSelectionColour));
  palette.setColor(QPalette::HighlightedText, QColor(kTitleColour));
  palette.setColor(QPalette::Link, QColor(kSelectionColour));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(0xFF6C6C6C));
  }
  return palette;
}

}  // namespace

void applyDarkStyle() {
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setPalette(darkPalette());
  // The controls' own font: fields lay out their text before they are given one, and
  // a font that nothing shows would have to be loaded for that.
  QApplication::setFont(skinFont());
}

}  // namespace pv
