#include "path/ui/path_view_widget.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <span>
#include <string>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "ui/frame_image.h"
#include "ui/pixel_painter.h"

namespace pv {
namespace {

constexpr float kAngleOfNotch = 120.0F;  // as the toolkit counts a wheel's turn

enum class KeyAction : std::uint8_t { ToView, SelectAll, Undo, Redo };

struct KeyRow {
  Qt::KeyboardModifiers modifiers = Qt::NoModifier;
  Qt::Key key = Qt::Key_unknown;
  KeyAction action = KeyAction::ToView;
  PathKey pathKey = PathKey::Escape;
};
constexpr KeyRow kKeys[] = {
    {Qt::NoModifier, Qt::Key_Delete, KeyAction::ToView, PathKey::Delete},
    {Qt::NoModifier, Qt::Key_Backspace, KeyAction::ToView, PathKey::Backspace},
    {Qt::NoModifier, Qt::Key_Escape, KeyAction::ToView, PathKey::Escape},
    {Qt::NoModifier, Qt::Key_Left, KeyAction::ToView, PathKey::Left},
    {Qt::NoModifier, Qt::Key_Right, KeyAction::ToView, PathKey::Right},
    {Qt::NoModifier, Qt::Key_Up, KeyAction::ToView, PathKey::Up},
    {Qt::NoModifier, Qt::Key_Down, KeyAction::ToView, PathKey::Down},
    {Qt::ControlModifier, Qt::Key_A, KeyAction::SelectAll},
    {Qt::ControlModifier, Qt::Key_Z, KeyAction::Undo},
    {Qt::ControlModifier, Qt::Key_Y, KeyAction::Redo},
    {Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_Z, KeyAction::Redo},
};

const KeyRow* rowOf(const QKeyEvent& event) {
  const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const auto* row = std::ranges::find_if(kKeys, [&event, modifiers](const KeyRow& one) {
    return one.key == event.key() && one.modifiers == modifiers;
  });
  return row != std::end(kKeys) ? row : nullptr;
}

}  // namespace

PathViewWidget::PathViewWidget(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAccessibleName(tr("Path view"));
  setAccessibleDescription(
      tr("The points of the emitter's path. The mouse works with the tool in hand; arrow keys "
         "move the selected points."));
}

void PathViewWidget::apply(const PathResponse& response) {
  if (response.repaint) {
    refresh();
  }
  if (response.takeFocus && !hasFocus()) {
    setFocus(Qt::MouseFocusReason);
  }
  if (response.cursor != shown_) {
    shown_ = response.cursor;
    setCursor(cursors_[static_cast<std::size_t>(shown_)]);
  }
  if (response.pathChanged) {
    emit pathChanged();
  }
  emit responded();
}

void PathViewWidget::refresh() {
  frameIsDue_ = true;
  update();
}

// --- frames ------------------------------------------------------------------

void PathViewWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  measure(painter.deviceTransform());
  if (cursorRatio_ != devicePixelRatio()) {
    loadCursors();
  }
  if (frameIsDue_) {
    drawFrame();
  }
  // In device pixels, so that no row is doubled or lost at fractional scales.
  painter.setWorldTransform(toDevice_.inverted());
  const QImage picture = imageOver(presenter_.bits(), presenter_.width(), presenter_.height());
  if (picture.size() != area_.size()) {
    painter.fillRect(area_, context_.skin.page);  // beyond what a frame can be
  }
  painter.drawImage(area_.topLeft(), picture);
  painter.end();
  if (hasFocus() && ring_) {
    PixelPainter pixels(*this, context_.skin);
    pixels.focusRing(pixels.bounds(), Corners::None);
  }
}

void PathViewWidget::measure(const QTransform& toDevice) {
  const QRect area = deviceArea(toDevice, size());
  frameIsDue_ |= area.size() != area_.size() || toDevice.m11() != toDevice_.m11();
  toDevice_ = toDevice;
  area_ = area;
  view_.setSize(area_.width(), area_.height(), static_cast<float>(toDevice.m11()));
}

void PathViewWidget::drawFrame() {
  frameIsDue_ = false;
  presenter_.present(view_.drawFrame(), view_.width(), view_.height());
}

void PathViewWidget::loadCursors() {
  cursorRatio_ = devicePixelRatio();
  for (std::size_t i = 0; i < cursors_.size(); ++i) {
    const std::string image(pathCursorImage(static_cast<PathCursor>(i)));
    cursors_[i] = image.empty()
                      ? QCursor(Qt::ArrowCursor)
                      : context_.images.cursor(R"(\bin\program\)" + image + ".cur", cursorRatio_);
  }
  setCursor(cursors_[static_cast<std::size_t>(shown_)]);
}

// --- mouse -------------------------------------------------------------------

PathMouse PathViewWidget::toView(const QSinglePointEvent& event) {
  const QPoint pixel = toDevice_.map(event.position()).toPoint() - area_.topLeft();
  pointer_ = {{pixel.x(), pixel.y()},
              event.modifiers().testFlag(Qt::ControlModifier),
              event.buttons().testFlag(Qt::LeftButton),
              event.buttons().testFlag(Qt::MiddleButton)};
  return *pointer_;
}

void PathViewWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton && event->button() != Qt::MiddleButton) {
    event->ignore();
    return;
  }
  ring_ = false;
  const PathMouse mouse = toView(*event);
  if (!view_.isDragging()) {
    // A pen or a finger presses without having moved there first.
    apply(view_.mouseMove({mouse.position, mouse.ctrl}));
  }
  apply(view_.mousePress(
      mouse, event->button() == Qt::LeftButton ? PathMouseButton::Left : PathMouseButton::Middle));
}

void PathViewWidget::mouseMoveEvent(QMouseEvent* event) {
  apply(view_.mouseMove(toView(*event)));
}

void PathViewWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton && event->button() != Qt::MiddleButton) {
    event->ignore();
    return;
  }
  apply(view_.mouseRelease(toView(*event), event->button() == Qt::LeftButton
                                               ? PathMouseButton::Left
                                               : PathMouseButton::Middle));
}

void PathViewWidget::wheelEvent(QWheelEvent* event) {
  const auto angle = static_cast<float>(event->angleDelta().y());
  if (angle != 0.0F) {
    apply(view_.wheel(toView(*event), angle / kAngleOfNotch));
  }
}

void PathViewWidget::leaveEvent(QEvent* /*event*/) {
  pointer_.reset();
  apply(view_.mouseLeave());
}

// --- keys and focus ----------------------------------------------------------

bool PathViewWidget::wantsKey(const QKeyEvent& event) const {
  return rowOf(event) != nullptr &&
         (event.key() != Qt::Key_Escape || view_.isDragging() || view_.isRubberBand());
}

bool PathViewWidget::handleKey(const QKeyEvent& event) {
  if (!wantsKey(event)) {
    return false;
  }
  const KeyRow& row = *rowOf(event);
  PathResponse response;
  switch (row.action) {
    case KeyAction::ToView:
      response = view_.keyPress(row.pathKey);
      break;
    case KeyAction::SelectAll:
      response = view_.selectAll();
      break;
    case KeyAction::Undo:
      response = view_.undo();
      break;
    case KeyAction::Redo:
      response = view_.redo();
      break;
  }
  apply(response);
  return response.handled;
}

// The hand of the grid's movement appears as soon as the key goes down.
void PathViewWidget::pressCtrl(bool down) {
  if (pointer_ && !view_.isDragging()) {
    pointer_->ctrl = down;
    apply(view_.mouseMove(*pointer_));
  }
}

bool PathViewWidget::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && wantsKey(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  if (event->type() == QEvent::ScreenChangeInternal) {
    update();  // the new screen may have another density
  }
  return QWidget::event(event);
}

void PathViewWidget::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Control) {
    pressCtrl(true);
  }
  if (!handleKey(*event)) {
    QWidget::keyPressEvent(event);
  }
}

void PathViewWidget::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Control) {
    pressCtrl(false);
  }
  QWidget::keyReleaseEvent(event);
}

void PathViewWidget::focusInEvent(QFocusEvent* event) {
  noteFocus(ring_, *event);
  update();
}

void PathViewWidget::focusOutEvent(QFocusEvent* /*event*/) {
  apply(view_.focusLost());
  update();
}

void PathViewWidget::hideEvent(QHideEvent* event) {
  pointer_.reset();
  apply(view_.focusLost());
  apply(view_.mouseLeave());
  QWidget::hideEvent(event);
}

}  // namespace pv
