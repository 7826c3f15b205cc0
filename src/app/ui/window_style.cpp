#include "app/ui/window_style.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

namespace pv {
namespace {

constexpr QRgb kFieldColour = 0xFF282828;
constexpr QRgb kLightColour = 0xFF5A5A5A;
constexpr QRgb kBrightTextColour = 0xFFE6E6E6;

constexpr const char* kStyleSheet = R"(
  #panel { background: #464646; }
  #title { background: #1E1E1E; color: #AAAAAA; padding: 3px 8px; }
  #panel QPushButton {
    background: #505050; color: #C8C8C8; text-align: left; outline: none;
    border: 1px solid #3A3A3A; border-radius: 2px; padding: 3px 8px;
  }
  #panel QPushButton:hover { background: #5F5F5F; color: #E6E6E6; border-color: #9B9B9B; }
  #panel QPushButton:pressed, #panel QPushButton:checked {
    background: #F07800; color: #1E1E1E; border-color: #F07800;
  }
  #panel QPushButton:checked:hover { background: #FF8A14; }
  #panel QPushButton:focus { border-color: #E6E6E6; }
  #panel QPushButton:disabled { color: #6C6C6C; background: #484848; }
  QToolTip {
    background: #1E1E1E; color: #AAAAAA; border: 1px solid #9B9B9B; padding: 4px;
  }
)";

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
  QFont font;
  font.setFamilies({"Verdana", "DejaVu Sans"});
  font.setPixelSize(12);
  QApplication::setFont(font);
  qApp->setStyleSheet(kStyleSheet);
}

}  // namespace pv
