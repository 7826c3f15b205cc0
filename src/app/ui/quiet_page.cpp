#include "app/ui/quiet_page.h"

#include <QPainter>

#include "ui/dialog_units.h"

namespace pv {

QuietPage::QuietPage(const UiContext& context, const QString& text, QWidget* parent)
    : QWidget(parent), context_(context), text_(text) {
  setAccessibleName(text);
}

void QuietPage::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), context_.skin.panel);
  painter.setFont(context_.skin.font);
  painter.setPen(context_.skin.text.darker(140));
  painter.drawText(rect().adjusted(Skin::kRhythm, 0, -Skin::kRhythm, 0),
                   Qt::AlignCenter | Qt::TextWordWrap, text_);
}

PanelFrame::PanelFrame(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {}

void PanelFrame::setTitle(const QString& title, const QString& detail) {
  title_ = title;
  detail_ = detail;
  setAccessibleName(title);
  update();
}

void PanelFrame::paintEvent(QPaintEvent* /*event*/) {
  const Skin& skin = context_.skin;
  QPainter painter(this);
  painter.fillRect(rect(), skin.panel);
  if (!title_.isEmpty()) {
    // The panel's host begins 17 units below the frame's edge.
    QRect bar = rect();
    bar.setHeight(inPixels({0, 0, 0, 17}).height - 2);
    painter.fillRect(bar, skin.title);
    bar.adjust(Skin::kRhythm, 0, -Skin::kRhythm, 0);
    painter.setPen(skin.text);
    painter.setFont(skin.boldFont);
    painter.drawText(bar, Qt::AlignVCenter | Qt::AlignLeft, title_);
    painter.setFont(skin.font);
    painter.drawText(bar, Qt::AlignVCenter | Qt::AlignRight, detail_);
  }
  painter.setPen(skin.title);
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

}  // namespace pv
