#include "app/ui/window_place.h"

#include <algorithm>
#include <optional>
#include <sstream>

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace pv {

namespace {

constexpr int kTitleBar = 32;     // room for the window's frame, at least
constexpr int kFarthest = 65536;  // beyond this a number is no place on any desk

struct Place {
  QRect inside;  ///< without the window's frame
  bool maximised = false;
};

std::optional<Place> parse(const std::string& text) {
  std::istringstream fields(text);
  fields.imbue(std::locale::classic());
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  int maximised = 0;
  if (!(fields >> x >> y >> width >> height >> maximised) || width < 1 || height < 1) {
    return std::nullopt;
  }
  for (const int number : {x, y, width, height}) {
    if (number < -kFarthest || number > kFarthest) {
      return std::nullopt;
    }
  }
  return Place{{x, y, width, height}, maximised == 1};
}

// The part of the screen that a window's inside may take.
QRect usableArea(const QRect& wanted) {
  const QScreen* screen = QGuiApplication::screenAt(wanted.center());
  if (screen == nullptr) {
    screen = QGuiApplication::primaryScreen();
  }
  return screen->availableGeometry().adjusted(0, kTitleBar, 0, 0);
}

int within(int low, int value, int high) {
  return std::clamp(value, low, std::max(low, high));
}

// What a screen cuts off is scrolled to; the bar must not cover what would fit.
QSize withScrollBars(QSize usual, QSize room, int bar) {
  return (usual +
          QSize(usual.height() > room.height() ? bar : 0, usual.width() > room.width() ? bar : 0))
      .boundedTo(room);
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
  const std::optional<Place> known = parse(text);
  if (!known) {
    const QSize room = usableArea({}).size();
    const int bar = window.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &window);
    window.resize(withScrollBars(usual, room, bar));
    return;
  }
  const QRect area = usableArea(known->inside);
  const QSize size = known->inside.size().expandedTo(window.minimumSize()).boundedTo(area.size());
  const QPoint corner(within(area.left(), known->inside.left(), area.right() + 1 - size.width()),
                      within(area.top(), known->inside.top(), area.bottom() + 1 - size.height()));
  // The inside's place, not the frame's: otherwise the window would creep by its
  // title bar with every start.
  window.setGeometry(QRect(corner, size));
  if (known->maximised) {
    window.setWindowState(Qt::WindowMaximized);
  }
}

}  // namespace pv
