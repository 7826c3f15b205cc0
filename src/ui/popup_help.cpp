#include "ui/popup_help.h"

#include <algorithm>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QHoverEvent>
#include <QScreen>
#include <QTextLayout>
#include <QTextOption>

#include "ui/pixel_painter.h"

namespace pv {
namespace {

constexpr const char* kHelpProperty = "pvHelp";
constexpr int kMaxWidth = 380;
constexpr int kMargin = 8;
constexpr int kBelowPointer = 20;
constexpr int kAbovePointer = 8;

/// The help text on the title colour with a thin border.
class HelpBubble : public QWidget {
 public:
  HelpBubble(const UiContext& context, const QString& help, QWidget* parent)
      : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput),
        context_(context) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName("popup help");
    const QString title = CPopup::titleOf(help);
    const QString text = CPopup::textOf(help);
    setAccessibleName(title);
    setAccessibleDescription(text);
    addLines(title, context.skin.boldFont, true);
    top_ += 2;
    for (const QString& line : text.split('\n', Qt::SkipEmptyParts)) {
      addLines(line.trimmed(), context.skin.font, false);
    }
    resize(width_ + 2 * kMargin, top_ + 2 * kMargin - 2);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    const Skin& skin = context_.skin;
    PixelPainter painter(*this, skin);
    painter.fill(painter.bounds(), skin.button);
    const int line = painter.line();
    painter.fill(painter.bounds().adjusted(line, line, -line, -line), skin.title);
    for (const Line& shown : lines_) {
      painter.text(QRectF(kMargin, kMargin - 1 + shown.top, width_ + 2, shown.height),
                   Qt::AlignLeft, shown.text, shown.bold ? brightColour(skin) : skin.text,
                   shown.bold ? skin.boldFont : skin.font);
    }
  }

 private:
  struct Line {
    QString text;
    int top;
    int height;
    bool bold;
  };

  // Breaks a paragraph at the greatest width.
  void addLines(const QString& text, const QFont& font, bool bold) {
    const QFontMetrics metrics(font);
    QTextLayout layout(text, font);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLineWidth(kMaxWidth);
      const QString part = text.mid(line.textStart(), line.textLength()).trimmed();
      lines_.push_back({part, top_, metrics.height() + 1, bold});
      width_ = std::max(width_, metrics.horizontalAdvance(part) + 1);
      top_ += metrics.height() + 1;
    }
    layout.endLayout();
  }

  const UiContext& context_;
  std::vector<Line> lines_;
  int width_ = 0;
  int top_ = 0;
};

// Below the pointer, above it where the screen ends, otherwise beside it.
QPoint placeFor(QSize size, QPoint pointer, const QRect& screen) {
  const int lowest = screen.bottom() + 1 - size.height();
  const int rightmost = screen.right() + 1 - size.width();
  QPoint place(std::max(screen.left(), std::min(pointer.x(), rightmost)),
               pointer.y() + kBelowPointer);
  if (place.y() > lowest) {
    place.setY(pointer.y() - kAbovePointer - size.height());
  }
  if (place.y() < screen.top()) {
    place.setY(std::max(screen.top(), std::min(pointer.y(), lowest)));
    const int right = pointer.x() + kBelowPointer;
    place.setX(right <= rightmost ? right : pointer.x() - kAbovePointer - size.width());
  }
  return place;
}

}  // namespace

CPopup::CPopup(const UiContext& context, QObject* parent) : QObject(parent), context_(context) {
  timer_.setSingleShot(true);
  timer_.setInterval(Skin::kHelpDelay);
  connect(&timer_, &QTimer::timeout, this, &CPopup::show);
}

CPopup::~CPopup() {
  hide();
}

void CPopup::attach(QWidget* control, const QString& help) {
  const auto parts = QList<QWidget*>{control} + control->findChildren<QWidget*>();
  for (QWidget* part : parts) {
    part->removeEventFilter(this);
    if (!help.isEmpty()) {
      part->setAttribute(Qt::WA_Hover);
      part->installEventFilter(this);
    }
  }
  control->setProperty(kHelpProperty, help);
  if (help.isEmpty()) {
    if (control_ == control) {
      hide();
    }
    return;
  }
  // A text that everybody sees is the better name.
  const auto* button = qobject_cast<QAbstractButton*>(control);
  const QString seen = button != nullptr ? button->text() : QString();
  control->setAccessibleName(seen.isEmpty() ? titleOf(help) : seen);
  control->setAccessibleDescription(textOf(help).replace('\n', ' '));
}

QString CPopup::titleOf(const QString& help) {
  QString title = help.section('\n', 0, 0).trimmed();
  if (title.endsWith(':')) {
    title.chop(1);
  }
  return title;
}

QString CPopup::textOf(const QString& help) {
  return help.section('\n', 1);
}

QWidget* CPopup::ownerOf(QObject* watched) {
  auto* widget = qobject_cast<QWidget*>(watched);
  while (widget != nullptr && widget->property(kHelpProperty).toString().isEmpty()) {
    widget = widget->isWindow() ? nullptr : widget->parentWidget();
  }
  return widget;
}

bool CPopup::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Enter:
      dismissed_ = false;
      pointAt(ownerOf(watched), static_cast<QEnterEvent*>(event)->globalPosition().toPoint());
      break;
    case QEvent::HoverMove:
      pointAt(ownerOf(watched), static_cast<QHoverEvent*>(event)->globalPosition().toPoint());
      break;
    case QEvent::Leave:
    case QEvent::Hide:
      if (watched == control_) {
        hide();
      }
      break;
    case QEvent::WindowDeactivate:
      hide();
      break;
    case QEvent::MouseButtonPress:
    case QEvent::KeyPress:
    case QEvent::Wheel:
      hide();
      dismissed_ = true;
      break;
    default:
      break;
  }
  return false;
}

void CPopup::pointAt(QWidget* control, QPoint pointer) {
  if (control == nullptr || dismissed_ || (control == control_ && pointer == pointer_)) {
    return;
  }
  const bool shown = bubble_ && control == control_;
  control_ = control;
  pointer_ = pointer;
  if (!shown) {
    hide();
    control_ = control;
    timer_.start();
  } else if (bubble_->geometry().adjusted(-2, -2, 2, 2).contains(pointer)) {
    // Out of the way at once.
    bubble_->move(placeFor(bubble_->size(), pointer, bubble_->screen()->availableGeometry()));
  }
}

void CPopup::show() {
  if (!control_ || !control_->isVisible() || QApplication::activePopupWidget() != nullptr) {
    return;
  }
  const QString help = control_->property(kHelpProperty).toString();
  bubble_ = new HelpBubble(context_, help, control_->window());
  const QScreen* screen = QGuiApplication::screenAt(pointer_);
  screen = screen != nullptr ? screen : control_->screen();
  bubble_->move(placeFor(bubble_->size(), pointer_, screen->availableGeometry()));
  bubble_->show();
  // Keys go to whatever has the focus.
  qApp->installEventFilter(this);
}

void CPopup::hide() {
  timer_.stop();
  control_ = nullptr;
  if (bubble_) {
    qApp->removeEventFilter(this);
    bubble_->close();
    bubble_ = nullptr;
  }
}

void setHelp(const UiContext& context, QWidget* control, const QString& help) {
  // Pages are made before they stand in their window, so the nearest one serves.
  CPopup* popup = nullptr;
  for (QWidget* at = control; at != nullptr && popup == nullptr; at = at->parentWidget()) {
    popup = at->findChild<CPopup*>(QString(), Qt::FindDirectChildrenOnly);
  }
  if (popup == nullptr) {
    popup = new CPopup(context, control->window());
  }
  popup->attach(control, help);
}

}  // namespace pv
