#include "app/ui/quiet_page.h"

#include <QPainter>

#include "ui/dialog_units.h"
#include "ui/pixel_painter.h"

namespace pv {

QuietPage::QuietPage(const UiContext& context, const QString& text, QWidget* parent)
    : QWidget(parent), context_(context), text_(text) {
  setAccessibleName(text);
}

void QuietPage::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), context_.skin.panel);
  painter.setFont(context_.skin.font);
  painter.setPen(context_.skin.text);
  painter.drawText(rect().adjusted(Skin::kRhythm, 0, -Skin::kRhythm, 0),
                   Qt::AlignCenter | Qt::TextWordWrap, text_);
}

PanelFrame::PanelFrame(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {}

// Whatever lies over the frame would be painted with it, so only the bar is.
void PanelFrame::setTitle(const QString& title) {
  if (title_ != title) {
    title_ = title;
    setAccessibleName(title);
    update(titleBar());
  }
}

void PanelFrame::setName(const QString& name) {
  if (name_ != name) {
    name_ = name;
    setAccessibleDescription(name);
    update(titleBar());
  }
}

void PanelFrame::setDetail(const QString& detail) {
  if (detail_ != detail) {
    detail_ = detail;
    update(titleBar());
  }
}

// The panel's host begins 17 units below the frame's edge.
QRect PanelFrame::titleBar() const {
  return {0, 0, width(), inPixels({0, 0, 0, 17}).height - 2};
}

void PanelFrame::paintEvent(QPaintEvent* /*event*/) {
  {
    PixelPainter frame(*this, context_.skin);
    frame.box(frame.bounds(), context_.skin.panel, context_.skin.title, Corners::None);
  }
  if (!title_.isEmpty()) {
    QPainter painter(this);
    paintTitle(painter);
  }
}

void PanelFrame::paintTitle(QPainter& painter) const {
  const Skin& skin = context_.skin;
  QRect bar = titleBar();
  painter.fillRect(bar, skin.title);
  bar.adjust(Skin::kRhythm, 0, -Skin::kRhythm, 0);
  painter.setPen(skin.text);
  painter.setFont(skin.boldFont);
  painter.drawText(bar, Qt::AlignVCenter | Qt::AlignLeft, title_);
  bar.setLeft(bar.left() + painter.fontMetrics().horizontalAdvance(title_) + Skin::kRhythm);
  painter.setFont(skin.font);
  const QFontMetrics metrics = painter.fontMetrics();
  painter.drawText(bar, Qt::AlignVCenter | Qt::AlignRight, detail_);
  bar.setRight(bar.right() - metrics.horizontalAdvance(detail_) - Skin::kRhythm);
  painter.drawText(bar, Qt::AlignVCenter | Qt::AlignLeft,
                   metrics.elidedText(name_, Qt::ElideMiddle, bar.width()));
}

}  // namespace pv
