#include "library/ui/picture_button.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include <QTextLayout>
#include <QTextOption>

#include "ui/popup_help.h"

namespace pv {
namespace {

constexpr int kIcon = 24;

bool nearly(QSize one, QSize other) {
  return std::abs(one.width() - other.width()) <= 1 && std::abs(one.height() - other.height()) <= 1;
}

}  // namespace

// --- PictureButton ---------------------------------------------------------------

PictureButton::PictureButton(const UiContext& context, Scaling scaling, QWidget* parent)
    : QAbstractButton(parent), context_(context), scaling_(scaling) {
  setFocusPolicy(Qt::NoFocus);
  setFont(context.skin.font);
}

void PictureButton::setPicture(const QImage& picture) {
  picture_ = picture;
  picture_.setDevicePixelRatio(1);
  update();
}

QSize PictureButton::room() const {
  const double ratio = devicePixelRatio();
  const QPoint corner = mapTo(window(), QPoint());
  const auto length = [ratio](int from, int size) {
    return qRound((from + size) * ratio) - qRound(from * ratio) - 2 * qMax(1, int(ratio));
  };
  return QSize(length(corner.x(), width()), length(corner.y(), height())).expandedTo({1, 1});
}

void PictureButton::paintEvent(QPaintEvent* /*event*/) {
  const Skin& skin = context_.skin;
  PixelPainter painter(*this, skin);
  painter.box(painter.bounds(), skin.title, borderColour(skin), Corners::None);
  if (picture_.isNull()) {
    painter.text(QRectF(rect()).adjusted(8, 0, -8, 0), Qt::AlignHCenter, text(),
                 mixed(skin.title, skin.text, 0.8), font());
    return;
  }
  const int line = painter.line();
  const QRect inside = painter.bounds().adjusted(line, line, -line, -line);
  QSize size = picture_.size();
  if (scaling_ == Scaling::Fit) {
    const QSize fitting = size.scaled(inside.size(), Qt::KeepAspectRatio);
    size = nearly(size, fitting) ? size : fitting.expandedTo({1, 1});
  } else {
    size *= std::max(1, std::min(inside.width() / size.width(), inside.height() / size.height()));
  }
  const auto smooth = scaling_ == Scaling::Fit ? Qt::SmoothTransformation : Qt::FastTransformation;
  QRect place(QPoint(), size);
  place.moveTopLeft(inside.topLeft() + QPoint((inside.width() - size.width()) / 2,
                                              (inside.height() - size.height()) / 2));
  painter.picture(place, QPixmap::fromImage(picture_.scaled(size, Qt::IgnoreAspectRatio, smooth)));
}

// --- IconButton --------------------------------------------------------------------

IconButton::IconButton(const UiContext& context, std::string image, QWidget* parent)
    : QAbstractButton(parent), context_(context) {
  image_.setName(std::move(image));
  setFocusPolicy(Qt::NoFocus);
  setFixedSize(kIcon, kIcon);
}

void IconButton::paintEvent(QPaintEvent* /*event*/) {
  PixelPainter painter(*this, context_.skin);
  image_.paint(painter, context_.images, rect());
}

// --- TextBoxButton -----------------------------------------------------------------

TextBoxButton::TextBoxButton(const UiContext& context, const QString& name,
                             const QString& placeholder, QWidget* parent)
    : QAbstractButton(parent), context_(context), name_(name), placeholder_(placeholder) {
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
  setFont(context.skin.font);
  showText({});
}

void TextBoxButton::showText(const QString& text) {
  filled_ = !text.isEmpty();
  setText(filled_ ? text : placeholder_);
  setHelp(context_, this, filled_ ? name_ + ":\n" + text : QString());
  setAccessibleName(name_);
  setAccessibleDescription(this->text());
  update();
}

void TextBoxButton::paintEvent(QPaintEvent* /*event*/) {
  constexpr int kPadding = 7;
  const Skin& skin = context_.skin;
  PixelPainter painter(*this, skin);
  const QColor field = fieldColour(skin);
  painter.box(painter.bounds(), field, mixed(skin.panel, skin.button, 0.35));
  const QColor ink = filled_ ? brightColour(skin) : mixed(field, skin.text, 0.8);

  const QRectF room = QRectF(rect()).adjusted(kPadding, kPadding, -kPadding, -kPadding);
  const int lineHeight = fontMetrics().height() + 2;
  const int most = std::max(1, static_cast<int>(room.height()) / lineHeight);
  QTextLayout layout(text(), font());
  QTextOption wrap(Qt::AlignLeft);
  wrap.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(wrap);
  layout.beginLayout();
  for (int i = 0; i < most; ++i) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) {
      break;
    }
    line.setLineWidth(room.width());
    // The last one takes all the rest, which is cut with an ellipsis.
    const QString shown =
        text().mid(line.textStart(), i + 1 < most ? line.textLength() : -1).trimmed();
    painter.text(QRectF(room.left(), room.top() + i * lineHeight, room.width() + 2, lineHeight),
                 Qt::AlignLeft, shown, ink, font());
  }
  layout.endLayout();
}

}  // namespace pv
