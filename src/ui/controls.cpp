#include "ui/controls.h"

#include <algorithm>
#include <utility>

#include <QKeyEvent>
#include <QPointer>

#include "ui/accessible.h"
#include "ui/pixel_painter.h"
#include "ui/popup_help.h"

namespace pv {
namespace {

constexpr int kTickBox = 14;
constexpr int kRowHeight = 20;
constexpr int kHeaderImage = 24;

QPalette paletteFrom(const Skin& skin, const QColor& behind) {
  QPalette palette;
  for (const auto role : {QPalette::WindowText, QPalette::Text}) {
    palette.setColor(role, skin.text);
    palette.setColor(QPalette::Disabled, role, mixed(behind, skin.text, Skin::kDisabledOpacity));
  }
  palette.setColor(QPalette::PlaceholderText, mixed(behind, skin.text, 0.6));
  palette.setColor(QPalette::Highlight, skin.selected);
  palette.setColor(QPalette::HighlightedText, skin.title);
  return palette;
}

}  // namespace

SectionHeader::SectionHeader(const UiContext& context, const QString& text, QWidget* parent)
    : QWidget(parent), context_(context) {
  installAccessibility();
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  setFont(context.skin.boldFont);
  setText(text);
}

void SectionHeader::setText(const QString& text) {
  text_ = text;
  setAccessibleName(text);
  update();
}

void SectionHeader::setImage(std::string image) {
  image_.setName(std::move(image));
  updateGeometry();
  update();
}

QSize SectionHeader::sizeHint() const {
  const int width = fontMetrics().horizontalAdvance(text_) + 2 * Skin::kRhythm;
  return image_.name().empty() ? QSize(width, kRowHeight)
                               : QSize(width + kHeaderImage, kHeaderImage + 4);
}

void SectionHeader::paintEvent(QPaintEvent* /*event*/) {
  const Skin& skin = context_.skin;
  PixelPainter painter(*this, skin);
  QRectF bar = contentsRect();
  painter.box(painter.pixels(bar), skin.title, skin.title);
  bar.adjust(Skin::kRhythm, 0, -Skin::kRhythm, 0);
  if (!image_.name().empty()) {
    const QRectF place(bar.left() - 4, bar.center().y() - kHeaderImage / 2.0, kHeaderImage,
                       kHeaderImage);
    image_.paint(painter, context_.images, place);
    bar.setLeft(place.right() + 4);
  }
  painter.text(bar, Qt::AlignLeft, text_, skin.text, font());
}

CheckBox::CheckBox(const UiContext& context, const QString& text, const QString& help,
                   QWidget* parent)
    : QAbstractButton(parent), context_(context) {
  installAccessibility();
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  setFont(context.skin.font);
  setText(text);
  setHelp(context, this, help);
}

QSize CheckBox::sizeHint() const {
  return {kTickBox + 2 * Skin::kRhythm + fontMetrics().horizontalAdvance(text()), kRowHeight};
}

void CheckBox::paintEvent(QPaintEvent* /*event*/) {
  const Skin& skin = context_.skin;
  PixelPainter painter(*this, skin);
  const bool hover = isEnabled() && underMouse();
  const bool lit = isChecked() || isDown();
  QColor face = lit ? skin.selected : fieldColour(skin);
  face = hover && !isDown() ? Skin::hovered(face) : face;
  // Upright in whole pixels, so that the box is a square at every scale.
  const QRect all = painter.bounds();
  const int size = std::min(painter.pixels(kTickBox), all.height());
  const QRect box(all.left() + painter.pixels(2), all.top() + (all.height() - size) / 2, size,
                  size);
  painter.box(box, face, lit ? face : hover ? skin.button : mixed(skin.panel, skin.button, 0.5));
  if (isChecked()) {
    const auto at = [&box, size](double x, double y) {
      return QPointF(box.left() + x * size / kTickBox, box.top() + y * size / kTickBox);
    };
    painter.stroke({{at(3.2, 7.2), at(5.8, 9.8), at(10.8, 4.2)}}, 2.0 * painter.scale(),
                   skin.title);
  }
  painter.text(QRectF(rect()).adjusted(kTickBox + Skin::kRhythm, 0, -2, 0), Qt::AlignLeft, text(),
               hover ? brightColour(skin) : skin.text, font());
  if (hasFocus() && ring_) {
    // Where there is no air above the text, a ring around it would cut it.
    constexpr int kRoomy = kTickBox + 4;
    painter.focusRing(height() < kRoomy ? box : all);
  }
}

void CheckBox::focusInEvent(QFocusEvent* event) {
  noteFocus(ring_, *event);
  QAbstractButton::focusInEvent(event);
}

TextButton::TextButton(const UiContext& context, const QString& text, const QString& help,
                       QWidget* parent)
    : QAbstractButton(parent), context_(context) {
  installAccessibility();
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  setFont(context.skin.font);
  setText(text);
  setHelp(context, this, help);
}

QSize TextButton::sizeHint() const {
  constexpr int kLeastWidth = 64;
  const int width = fontMetrics().horizontalAdvance(text()) + 3 * Skin::kRhythm;
  return {std::max(width, kLeastWidth), 3 * Skin::kRhythm};
}

void TextButton::paintEvent(QPaintEvent* /*event*/) {
  const Skin& skin = context_.skin;
  PixelPainter painter(*this, skin);
  const bool lit = isDown() || isChecked();
  const bool hover = isEnabled() && underMouse() && !isDown();
  QColor face = lit ? skin.selected : faceColour(skin);
  face = hover ? Skin::hovered(face) : face;
  painter.box(painter.bounds(), face, lit ? face : hover ? skin.button : borderColour(skin));
  painter.text(QRectF(rect()).adjusted(4, 0, -4, 0), Qt::AlignHCenter, text(),
               lit ? skin.title : brightColour(skin), font());
  if (hasFocus() && ring_) {
    painter.focusRing(painter.bounds());
  }
}

void TextButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void TextButton::focusInEvent(QFocusEvent* event) {
  noteFocus(ring_, *event);
  QAbstractButton::focusInEvent(event);
}

TextLabel::TextLabel(const UiContext& context, const QString& text, QWidget* parent)
    : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setFont(context.skin.font);
  setPalette(paletteFrom(context.skin, context.skin.dialog));
  setText(text);
}

EditBox::EditBox(const UiContext& context, const QString& name, QWidget* parent)
    : QLineEdit(parent), context_(context) {
  setFont(context.skin.font);
  setAccessibleName(name);
  setFrame(false);
  setAttribute(Qt::WA_Hover);
  QPalette palette = paletteFrom(context.skin, fieldColour(context.skin));
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    palette.setColor(group, QPalette::Text, brightColour(context.skin));
  }
  const QColor faded = mixed(context.skin.panel, fieldColour(context.skin), Skin::kDisabledOpacity);
  palette.setColor(QPalette::Disabled, QPalette::Text,
                   mixed(faded, brightColour(context.skin), Skin::kDisabledOpacity));
  // The box behind the text is painted here, not by the style.
  palette.setColor(QPalette::Base, Qt::transparent);
  setPalette(palette);
  setTextMargins(3, 0, 3, 0);
}

QSize EditBox::sizeHint() const {
  return {160, 3 * Skin::kRhythm};
}

void EditBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QLineEdit::keyPressEvent(event);
    return;
  }
  // Whoever listens may close the page.
  const QPointer<EditBox> guard(this);
  event->accept();
  emit enterPressed();
  if (guard) {
    selectAll();
  }
}

void EditBox::paintEvent(QPaintEvent* event) {
  {
    const Skin& skin = context_.skin;
    PixelPainter painter(*this, skin);
    const QColor still = mixed(skin.panel, skin.button, underMouse() && isEnabled() ? 1.0 : 0.35);
    painter.box(painter.bounds(), fieldColour(skin), hasFocus() ? brightColour(skin) : still);
  }
  QLineEdit::paintEvent(event);
}

}  // namespace pv
