#include "view3d/ui/shape_view_widget.h"

#include <algorithm>
#include <utility>

#include <QMouseEvent>
#include <QPainter>

#include "ui/frame_image.h"

namespace pv {
namespace {

constexpr int kLargestFrameSide = 3999;         // what a projector takes
constexpr PixelPoint kOutside{-10000, -10000};  // nowhere near any handle

}  // namespace

ShapeViewWidget::ShapeViewWidget(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::ClickFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAccessibleName(tr("Shape view"));
  setAccessibleDescription(
      tr("The current shape. Drag to move the camera or a modifier's handle."));
}

void ShapeViewWidget::apply(const ViewResponse& response) {
  if (response.repaint) {
    refresh();
  }
  if (response.modifierChanged) {
    emit modifierChanged();
  }
}

void ShapeViewWidget::refresh() {
  frameIsDue_ = true;
  update();
}

bool ShapeViewWidget::event(QEvent* event) {
  if (event->type() == QEvent::ScreenChangeInternal) {
    update();  // the new screen may have another density
  }
  return QWidget::event(event);
}

void ShapeViewWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  // In device pixels, so that no row is doubled or lost at fractional scales.
  const QTransform toDevice = painter.deviceTransform();
  const QRect area = deviceArea(toDevice, size());
  painter.setWorldTransform(toDevice.inverted());
  if (area.isEmpty()) {
    return;
  }
  measure(area.size(), toDevice.m11());
  if (frameIsDue_) {
    drawFrame();
  }
  painter.drawImage(area, imageOver(presenter_.bits(), presenter_.width(), presenter_.height()));
}

void ShapeViewWidget::measure(QSize deviceSize, qreal pixelRatio) {
  // Wider than a projector takes: fewer, larger pixels.
  const int divisor =
      1 + std::max(deviceSize.width(), deviceSize.height()) / (kLargestFrameSide + 1);
  const QSize size(std::max(1, deviceSize.width() / divisor),
                   std::max(1, deviceSize.height() / divisor));
  const qreal frameRatio = pixelRatio / divisor;
  const qreal viewRatio = std::max(1.0, frameRatio);
  frameIsDue_ |= size != frameSize_ || frameRatio != frameRatio_;
  frameSize_ = size;
  frameRatio_ = frameRatio;
  pixelsOf96Dpi_ = frameRatio / viewRatio;
  view_.setSize(size.width(), size.height(), static_cast<float>(viewRatio));
}

void ShapeViewWidget::drawFrame() {
  frameIsDue_ = false;
  presenter_.present(view_.drawFrame(), frameSize_.width(), frameSize_.height());
}

void ShapeViewWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) {
    event->ignore();
    return;
  }
  // A pen or a finger presses without having moved there first.
  apply(view_.mouseMove(toView(event->position())));
  pressed_ = true;
  apply(view_.mousePress(toView(event->position())));
  showPointer();
}

void ShapeViewWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) {
    releaseDrag();  // the button came up where this window could not see it
  }
  apply(view_.mouseMove(toView(event->position())));
  showPointer();
}

void ShapeViewWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    releaseDrag();
  } else {
    event->ignore();
  }
}

void ShapeViewWidget::leaveEvent(QEvent* /*event*/) {
  if (!pressed_) {
    apply(view_.mouseMove(kOutside));
    showPointer();
  }
}

void ShapeViewWidget::focusOutEvent(QFocusEvent* event) {
  releaseDrag();
  QWidget::focusOutEvent(event);
}

void ShapeViewWidget::hideEvent(QHideEvent* event) {
  releaseDrag();
  QWidget::hideEvent(event);
}

PixelPoint ShapeViewWidget::toView(QPointF position) const {
  const QPoint pixel = (position * pixelsOf96Dpi_).toPoint();
  return {pixel.x(), pixel.y()};
}

void ShapeViewWidget::releaseDrag() {
  if (std::exchange(pressed_, false)) {
    apply(view_.mouseRelease());
  }
}

void ShapeViewWidget::showPointer() {
  const auto shape =
      view_.activeHandle() == Handle::None ? Qt::ArrowCursor : Qt::PointingHandCursor;
  if (cursor().shape() != shape) {
    setCursor(shape);
  }
}

}  // namespace pv
