#include "ui/image_button.h"

#include <QKeyEvent>

#include "ui/accessible.h"
#include "ui/popup_help.h"

namespace pv {
namespace {

constexpr int kIcon = 24;

Corners cornersOf(ImageButton::Joint joint) {
  switch (joint) {
    case ImageButton::Joint::First:
      return Corners::Left;
    case ImageButton::Joint::Middle:
      return Corners::None;
    case ImageButton::Joint::Last:
      return Corners::Right;
    case ImageButton::Joint::Single:
      break;
  }
  return Corners::All;
}

// "Point Emitter" becomes "PE", "Reset" becomes "Re".
QString initialsOf(const QString& name) {
  constexpr int kMost = 3;
  QString initials;
  for (const QString& word : name.split(' ', Qt::SkipEmptyParts)) {
    if (word.front().isLetterOrNumber() && initials.size() < kMost) {
      initials += word.front().toUpper();
    }
  }
  return initials.size() > 1 ? initials : name.left(2);
}

}  // namespace

ImageButton::ImageButton(const UiContext& context, std::string image, const QString& help,
                         QWidget* parent)
    : QAbstractButton(parent), context_(context) {
  installAccessibility();
  image_.setName(std::move(image));
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setFont(context.skin.font);
  setHelp(context, this, help);
}

void ImageButton::setImage(std::string image) {
  image_.setName(std::move(image));
  update();
}

void ImageButton::setJoint(Joint joint) {
  joint_ = joint;
  update();
}

QSize ImageButton::sizeHint() const {
  if (text().isEmpty()) {
    return {36, 36};
  }
  const int image = image_.name().empty() ? Skin::kRhythm : 8 + kIcon;
  return {image + fontMetrics().horizontalAdvance(text()) + Skin::kRhythm, 4 * Skin::kRhythm};
}

void ImageButton::paintEvent(QPaintEvent* /*event*/) {
  const Skin& skin = context_.skin;
  PixelPainter painter(*this, skin);
  const bool lit = isDown() || isChecked();
  const bool hover = isEnabled() && underMouse();
  QColor face = lit ? skin.selected : faceColour(skin);
  QColor border = lit ? face : borderColour(skin);
  if (hover && !isDown()) {
    face = Skin::hovered(face);
    border = lit ? face : skin.button;
  }
  QRect box = painter.bounds();
  if (joint_ == Joint::Middle || joint_ == Joint::Last) {
    // The neighbour's edge divides the two.
    box.setLeft(box.left() - (hover || lit ? 0 : painter.line()));
  }
  painter.box(box, face, border, cornersOf(joint_));
  paintFace(painter, lit ? skin.title : QColor());
  if (hasFocus() && ring_) {
    painter.focusRing(painter.bounds(), cornersOf(joint_));
  }
}

void ImageButton::paintFace(PixelPainter& painter, const QColor& tint) {
  const QColor ink = tint.isValid() ? tint : brightColour(context_.skin);
  const QRectF inside = QRectF(rect()).adjusted(2, 2, -2, -2);
  if (text().isEmpty()) {
    if (!image_.paint(painter, context_.images, inside, tint)) {
      painter.text(inside, Qt::AlignHCenter, initialsOf(accessibleName()), ink, font());
    }
  } else if (image_.name().empty()) {
    painter.text(inside, Qt::AlignHCenter, text(), ink, font());
  } else {
    // Texts of buttons beneath each other stand in line, with or without a drawing.
    QRectF room(inside.left() + 2, inside.center().y() - kIcon / 2.0, kIcon, kIcon);
    image_.paint(painter, context_.images, room, tint);
    room.setCoords(room.right() + 4, inside.top(), inside.right() - Skin::kRhythm, inside.bottom());
    painter.text(room, Qt::AlignLeft, text(), ink, font());
  }
}

void ImageButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void ImageButton::focusInEvent(QFocusEvent* event) {
  noteFocus(ring_, *event);
  QAbstractButton::focusInEvent(event);
}

}  // namespace pv
