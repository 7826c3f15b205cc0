#include "app/ui/window_place.h"

#include <algorithm>
#include <sstream>

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace pv {

namespace {

constexpr int kTitleBar = 32;  // room for the window's frame, at least

QRect usableArea(const QRect& wanted) {
  const QScreen* screen = QGuiApplication::screenAt(wanted.center());
  if (screen == nullptr) {
    screen = QGuiApplication::primaryScreen();
  }
  return screen->availableGeometry();
}

}  // namespace

std::string windowPlace(const QWidget& window) {
  const QRect place = window.isMaximized() ? window.normalGeometry() : window.geometry();
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << place.x() << ' ' << place.y() << ' ' << place.width() << ' ' << place.height() << ' '
       << (window.isMaximized() ? 1 : 0);
  return text.str();
}

void placeWindow(QWidget& window, const std::string& text, QSize usual) {
  std::istringstream fields(text);
  fields.imbue(std::locale::classic());
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  int maximised = 0;
  const bool known = static_cast<bool>(fields >> x >> y >> width >> height >> maximised) &&
                     width > 0 && height > 0;
  const QRect wanted = known ? QRect(x, y, width, height) : QRect(QPoint(0, 0), usual);
  const QRect area = usableArea(wanted);
  const QSize size = wanted.size().boundedTo(area.size() - QSize(0, kTitleBar));
  window.resize(size);
  if (known) {
    window.move(std::clamp(x, area.left(), std::max(area.left(), area.right() - size.width())),
                std::clamp(y, area.top(), std::max(area.top(), area.bottom() - size.height())));
  }
  if (known && maximised == 1) {
    window.setWindowState(Qt::WindowMaximized);
  }
}

}  // namespace pv
