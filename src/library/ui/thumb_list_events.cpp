#include <array>
#include <cmath>
#include <utility>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include "library/ui/thumb_list_widget.h"

namespace pv {
namespace {

constexpr std::array<std::pair<Qt::Key, GridKey>, 8> kKeys{{
    {Qt::Key_Left, GridKey::Left},
    {Qt::Key_Right, GridKey::Right},
    {Qt::Key_Up, GridKey::Up},
    {Qt::Key_Down, GridKey::Down},
    {Qt::Key_Home, GridKey::Home},
    {Qt::Key_End, GridKey::End},
    {Qt::Key_PageUp, GridKey::PageUp},
    {Qt::Key_PageDown, GridKey::PageDown},
}};

}  // namespace

void ThumbListWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) {
    event->ignore();
    return;
  }
  pressed_ = true;
  select(itemAt(event->position()));
  pressedName_ = list_.selectedName();
}

void ThumbListWidget::mouseMoveEvent(QMouseEvent* event) {
  hoverAt(event->position());
}

void ThumbListWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !std::exchange(pressed_, false)) {
    event->ignore();
    return;
  }
  // A press whose pointer leaves the file is a change of mind.
  if (deleteMode_ && itemAt(event->position()) != list_.selected()) {
    select(-1);
  }
  emit clicked();
}

// While clicks delete, the second one of a double click would hit the file that
// has moved up to the pointer.
void ThumbListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  const int index = itemAt(event->position());
  const bool same = index >= 0 && index == list_.selected() && list_.selectedName() == pressedName_;
  if (event->button() == Qt::LeftButton && same && !deleteMode_) {
    emit activated();
  } else if (!deleteMode_) {
    mousePressEvent(event);
  }
}

void ThumbListWidget::leaveEvent(QEvent* /*event*/) {
  updateCell(std::exchange(hovered_, -1));
}

void ThumbListWidget::hoverAt(QPointF position) {
  if (const int index = itemAt(position); index != hovered_) {
    updateCell(std::exchange(hovered_, index));
    updateCell(hovered_);
  }
}

void ThumbListWidget::wheelEvent(QWheelEvent* event) {
  if (grid_.maxScroll() == 0) {
    event->ignore();
    return;
  }
  // A row a notch; touchpads tell pixels.
  constexpr int kNotch = 120;
  if (const QPoint pixels = event->pixelDelta(); !pixels.isNull()) {
    scrollTo(grid_.scroll - pixels.y());
  } else {
    wheelRest_ += event->angleDelta().y() * grid_.cellHeight;
    scrollTo(grid_.scroll - wheelRest_ / kNotch);
    wheelRest_ %= kNotch;
  }
  event->accept();
}

void ThumbListWidget::keyPressEvent(QKeyEvent* event) {
  const auto shortcut = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if ((event->modifiers() & shortcut) != 0) {
    event->ignore();
    return;
  }
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (list_.selected() >= 0 && (enter || event->key() == Qt::Key_Delete)) {
    if (event->isAutoRepeat()) {
      return;  // holding the key is no second wish
    }
    enter ? emit activated() : emit deletePressed();
  } else if (!moveByKey(event->key()) && !moveByText(*event)) {
    QWidget::keyPressEvent(event);
  }
}

bool ThumbListWidget::moveByKey(int key) {
  for (const auto& [name, move] : kKeys) {
    if (name == key) {
      moveSelection(grid_.moved(list_.selected(), move));
      return true;
    }
  }
  return false;
}

// Letters typed in a row are the beginning of a name; the first one goes on from
// the selected file, so that the same letter walks through all that begin with it.
bool ThumbListWidget::moveByText(const QKeyEvent& event) {
  const std::string text = event.text().toStdString();
  if (!typing_.isActive()) {
    typed_.clear();
  }
  if (text.empty() || !event.text().front().isPrint() || (typed_.empty() && text == " ")) {
    return false;
  }
  if (typed_ != text) {
    typed_ += text;
  }
  typing_.start();
  const int from = list_.selected() + (typed_ == text ? 1 : 0);
  if (const int found = typeAhead(list_.shownNames(), from, typed_); found >= 0) {
    moveSelection(found);
  }
  return true;
}

void ThumbListWidget::focusInEvent(QFocusEvent* event) {
  noteFocus(ring_, *event);
  update();
}

void ThumbListWidget::focusOutEvent(QFocusEvent* /*event*/) {
  typing_.stop();
  update();
}

}  // namespace pv
