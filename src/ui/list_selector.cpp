#include "ui/list_selector.h"

#include <algorithm>
#include <cstdlib>

#include <QKeyEvent>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include "ui/pixel_painter.h"
#include "ui/popup_help.h"

namespace pv {
namespace {

constexpr int kArrowRoom = 20;
constexpr int kMarkRoom = 16;

/// A line of the open list: orange under the pointer; the choice has a dot.
class ChoiceDelegate : public QStyledItemDelegate {
 public:
  ChoiceDelegate(const Skin& skin, QComboBox* owner)
      : QStyledItemDelegate(owner), skin_(skin), owner_(*owner) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const bool lit = (option.state & QStyle::State_Selected) != 0;
    painter->fillRect(option.rect, lit ? skin_.selected : skin_.title);
    const bool chosen = index.row() == owner_.currentIndex();
    const QColor ink = lit ? skin_.title : chosen ? brightColour(skin_) : skin_.text;
    painter->setFont(skin_.font);
    painter->setPen(ink);
    painter->drawText(option.rect.adjusted(kMarkRoom, 0, -Skin::kRhythm, 0),
                      Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      index.data().toString());
    if (chosen) {
      const QPointF middle(option.rect.left() + kMarkRoom / 2.0, QRectF(option.rect).center().y());
      painter->setRenderHint(QPainter::Antialiasing);
      painter->setPen(Qt::NoPen);
      painter->setBrush(lit ? skin_.title : skin_.selected);
      painter->drawEllipse(middle, 2.5, 2.5);
    }
  }

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override {
    const int width = option.fontMetrics.horizontalAdvance(index.data().toString());
    return {width + kMarkRoom + Skin::kRhythm, 3 * Skin::kRhythm - 2};
  }

 private:
  const Skin& skin_;
  const QComboBox& owner_;
};

}  // namespace

ListSelector::ListSelector(const UiContext& context, const QString& name, const QString& help,
                           QWidget* parent)
    : QComboBox(parent), context_(context) {
  setFont(context.skin.font);
  // The toolkit's own policy would let the wheel bring the focus.
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  QPalette colours = palette();
  for (const auto role : {QPalette::Base, QPalette::Window, QPalette::Button}) {
    colours.setColor(role, context.skin.title);
  }
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    colours.setColor(role, context.skin.text);
  }
  setPalette(colours);
  setItemDelegate(new ChoiceDelegate(context.skin, this));
  setHelp(context, this, help);
  setAccessibleName(name);
}

QSize ListSelector::sizeHint() const {
  int width = 0;
  for (int i = 0; i < count(); ++i) {
    width = std::max(width, fontMetrics().horizontalAdvance(itemText(i)));
  }
  return {width + 2 * Skin::kRhythm + kArrowRoom, 3 * Skin::kRhythm};
}

void ListSelector::paintEvent(QPaintEvent* /*event*/) {
  const Skin& skin = context_.skin;
  PixelPainter painter(*this, skin);
  const bool hover = isEnabled() && underMouse();
  const QColor face = hover ? Skin::hovered(faceColour(skin)) : faceColour(skin);
  painter.box(painter.bounds(), face, hover ? skin.button : borderColour(skin));
  const QRectF inside(rect());
  painter.text(inside.adjusted(Skin::kRhythm, 0, -kArrowRoom, 0), Qt::AlignLeft, currentText(),
               brightColour(skin), font());
  const QRectF pixels(painter.bounds());
  const QPointF tip(pixels.right() - painter.pixels(kArrowRoom / 2.0), pixels.center().y() + 0.5);
  const double unit = painter.scale();
  painter.stroke(
      {{tip + QPointF(-4, -2) * unit, tip + QPointF(0, 2) * unit, tip + QPointF(4, -2) * unit}},
      1.5 * unit, brightColour(skin));
  if (hasFocus() && ring_) {
    painter.focusRing(painter.bounds());
  }
}

void ListSelector::wheelEvent(QWheelEvent* event) {
  if (!hasFocus()) {
    event->ignore();
    return;
  }
  // The toolkit would go on by a choice for every fraction of a notch.
  constexpr int kNotch = 120;
  wheelRest_ += event->angleDelta().y();
  if (std::abs(wheelRest_) >= kNotch) {
    wheelRest_ %= kNotch;
    QComboBox::wheelEvent(event);
  }
  event->accept();
}

void ListSelector::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    showPopup();
  } else {
    QComboBox::keyPressEvent(event);
  }
}

void ListSelector::focusInEvent(QFocusEvent* event) {
  noteFocus(ring_, *event);
  QComboBox::focusInEvent(event);
}

}  // namespace pv
