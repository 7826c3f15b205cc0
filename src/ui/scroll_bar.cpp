#include "ui/scroll_bar.h"

#include <algorithm>

#include <QMouseEvent>

#include "ui/pixel_painter.h"

namespace pv {
namespace {

constexpr double kEnd = 2;  // free above and below the handle
constexpr double kLeastHandle = 24;
constexpr double kThin = 4;
constexpr double kWide = 8;

}  // namespace

QuietScrollBar::QuietScrollBar(const UiContext& context, QWidget* parent)
    : QScrollBar(Qt::Vertical, parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent, false);
  setAttribute(Qt::WA_Hover);
  setFocusPolicy(Qt::NoFocus);
}

QSize QuietScrollBar::sizeHint() const {
  return {kWidth, 3 * static_cast<int>(kLeastHandle)};
}

QSize QuietScrollBar::minimumSizeHint() const {
  return {kWidth, static_cast<int>(kLeastHandle + 2 * kEnd)};
}

double QuietScrollBar::handleLength() const {
  const double track = height() - 2 * kEnd;
  const double all = double{1} * maximum() - minimum() + pageStep();
  const double length = all > 0 ? track * pageStep() / all : track;
  return std::clamp(length, std::min(kLeastHandle, track), std::max(track, 0.0));
}

QRectF QuietScrollBar::handleRect() const {
  if (maximum() <= minimum()) {
    return {};
  }
  const double room = height() - 2 * kEnd - handleLength();
  const double share =
      (double{1} * sliderPosition() - minimum()) / (double{1} * maximum() - minimum());
  return {0, kEnd + room * share, static_cast<double>(width()), handleLength()};
}

void QuietScrollBar::paintEvent(QPaintEvent* /*event*/) {
  const QRectF handle = handleRect();
  if (handle.isEmpty()) {
    return;
  }
  const Skin& skin = context_.skin;
  PixelPainter painter(*this, skin);
  const bool wide = isSliderDown() || underMouse();
  const double thickness = wide ? kWide : kThin;
  const QColor colour = mixed(skin.panel, skin.button, isSliderDown() ? 1.0 : wide ? 0.75 : 0.4);
  const QRectF bar(width() - kEnd - thickness, handle.top(), thickness, handle.height());
  painter.box(painter.pixels(bar), colour, colour);
}

void QuietScrollBar::mousePressEvent(QMouseEvent* event) {
  const QRectF handle = handleRect();
  if (event->button() != Qt::LeftButton || handle.isEmpty()) {
    event->ignore();
    return;
  }
  event->accept();
  pointer_ = event->position().y();
  if (pointer_ >= handle.top() && pointer_ < handle.bottom()) {
    grip_ = pointer_ - handle.top();
    setSliderDown(true);
    update();
    return;
  }
  const SliderAction page = pointer_ < handle.top() ? SliderPageStepSub : SliderPageStepAdd;
  setRepeatAction(page);
  triggerAction(page);
}

void QuietScrollBar::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) {
    release();  // the button came up where this window could not see it
  } else if (isSliderDown()) {
    dragTo(event->position().y());
  }
}

void QuietScrollBar::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    release();
  }
}

void QuietScrollBar::dragTo(double y) {
  const double room = height() - 2 * kEnd - handleLength();
  const double share = room > 0 ? std::clamp((y - grip_ - kEnd) / room, 0.0, 1.0) : 0.0;
  setSliderPosition(qRound(minimum() + share * (double{1} * maximum() - minimum())));
}

void QuietScrollBar::release() {
  setRepeatAction(SliderNoAction);
  setSliderDown(false);
  update();
}

void QuietScrollBar::hideEvent(QHideEvent* event) {
  release();
  QScrollBar::hideEvent(event);
}

void QuietScrollBar::contextMenuEvent(QContextMenuEvent* event) {
  event->ignore();
}

void QuietScrollBar::sliderChange(SliderChange change) {
  if (change == SliderValueChange && repeatAction() != SliderNoAction) {
    // Paging ends where the handle comes to lie under the pointer.
    const QRectF handle = handleRect();
    const bool up = repeatAction() == SliderPageStepSub;
    if (up ? handle.top() <= pointer_ : handle.bottom() > pointer_) {
      setRepeatAction(SliderNoAction);
    }
  }
  QScrollBar::sliderChange(change);
}

}  // namespace pv
