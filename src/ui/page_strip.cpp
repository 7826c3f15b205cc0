#include "ui/page_strip.h"

#include <algorithm>

#include <QAccessible>
#include <QKeyEvent>

#include "ui/accessible.h"

namespace pv {
namespace {

constexpr int kIconRoom = 24;
constexpr int kMark = 6;

}  // namespace

PageStrip::PageStrip(const UiContext& context, std::vector<Tab> tabs, QWidget* parent)
    : QWidget(parent), context_(context), tabs_(std::move(tabs)) {
  installAccessibility();
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  setFont(context.skin.boldFont);
  setCurrent(0);
}

void PageStrip::setCurrent(int tab) {
  if (tab < 0 || tab >= static_cast<int>(tabs_.size())) {
    return;
  }
  current_ = tab;
  const Tab& shown = tabs_[static_cast<std::size_t>(tab)];
  image_.setName(shown.image);
  setAccessibleName(shown.text);
  setAccessibleDescription(
      tr("Page %1 of %2. Press for the next page.").arg(tab + 1).arg(tabs_.size()));
  update();
}

QSize PageStrip::sizeHint() const {
  return {270, 29};
}

bool PageStrip::event(QEvent* event) {
  // Digits and arrows are meant for the strip while it has the focus.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = static_cast<QKeyEvent&>(*event);
    if (key.modifiers() == Qt::NoModifier && key.key() >= Qt::Key_1 && key.key() <= Qt::Key_9) {
      event->accept();
      return true;
    }
  }
  return QWidget::event(event);
}

void PageStrip::paintEvent(QPaintEvent* /*event*/) {
  const Skin& skin = context_.skin;
  PixelPainter painter(*this, skin);
  const bool hover = isEnabled() && underMouse() && !pressed_;
  const QColor face = pressed_ ? skin.selected : hover ? Skin::hovered(skin.title) : skin.title;
  const QColor ink = pressed_ ? skin.title : hover ? Qt::white : brightColour(skin);
  painter.box(painter.bounds(), face, pressed_ ? face : borderColour(skin));
  if (tabs_.empty()) {
    return;
  }
  const QRectF inside = QRectF(rect()).adjusted(Skin::kRhythm, 0, -Skin::kRhythm, 0);
  image_.paint(painter, context_.images, {inside.left(), 0, kIconRoom, inside.height()},
               pressed_ ? skin.title : QColor());
  const int count = static_cast<int>(tabs_.size());
  const double marks = inside.right() - count * (kMark + 6) + 6;
  painter.text({QPointF(inside.left() + kIconRoom + Skin::kRhythm, 0),
                QPointF(marks - Skin::kRhythm, height())},
               Qt::AlignLeft, tabs_[static_cast<std::size_t>(current_)].text, ink, font());
  for (int i = 0; i < count; ++i) {
    const QRectF mark(marks + i * (kMark + 6), (height() - kMark) / 2.0, kMark, kMark);
    const QColor quiet =
        pressed_ ? mixed(skin.selected, skin.title, 0.4) : mixed(skin.title, skin.button, 0.6);
    painter.disc(painter.pixels(mark), i != current_ ? quiet : pressed_ ? ink : skin.selected);
  }
  if (hasFocus() && ring_) {
    painter.focusRing(painter.bounds());
  }
}

void PageStrip::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    pressed_ = true;
    update();
  }
}

void PageStrip::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !pressed_) {
    return;
  }
  pressed_ = false;
  update();
  if (rect().contains(event->position().toPoint())) {
    emit nextRequested();
  }
}

void PageStrip::keyPressEvent(QKeyEvent* event) {
  const int count = static_cast<int>(tabs_.size());
  const int key = event->key();
  const bool plain = (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == 0;
  if (!plain || count == 0) {
    QWidget::keyPressEvent(event);
    return;
  }
  if (key == Qt::Key_Left) {
    emit tabRequested((current_ + count - 1) % count);
  } else if (key == Qt::Key_Right) {
    emit tabRequested((current_ + 1) % count);
  } else if (key == Qt::Key_Home || key == Qt::Key_End) {
    emit tabRequested(key == Qt::Key_Home ? 0 : count - 1);
  } else if (key >= Qt::Key_1 && key < Qt::Key_1 + std::min(count, 9)) {
    emit tabRequested(key - Qt::Key_1);
  } else if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
    emit nextRequested();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void PageStrip::focusInEvent(QFocusEvent* event) {
  noteFocus(ring_, *event);
  QWidget::focusInEvent(event);
}

void PageStrip::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange) {
    pressed_ = false;
    update();
  }
  QWidget::changeEvent(event);
}

}  // namespace pv
