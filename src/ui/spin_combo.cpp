#include "ui/spin_combo.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QWheelEvent>

#include "ui/accessible.h"
#include "ui/controls.h"
#include "ui/popup_help.h"

namespace pv {
namespace {

constexpr int kHeight = 24;
constexpr int kGap = 4;
constexpr int kIcon = 24;
constexpr int kFieldWidth = 40;
constexpr int kLeastTrack = 40;
constexpr int kHandle = 9;
constexpr int kPageStep = 10;

std::optional<int> numberFrom(QString text) {
  static const QRegularExpression kNumber(
      QStringLiteral("^[+-]?([0-9]+([.,][0-9]*)?|[.,][0-9]+)$"));
  text = text.trimmed().replace(QChar(0x2212), '-');
  if (!kNumber.match(text).hasMatch()) {
    return std::nullopt;
  }
  // Cut toward zero; what does not fit becomes the nearest number.
  constexpr std::numeric_limits<int> kLimits;
  const double number = text.replace(',', '.').toDouble();
  return static_cast<int>(std::clamp<double>(number, kLimits.min(), kLimits.max()));
}

bool startsNumber(const QKeyEvent& key) {
  const bool plain = (key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == 0;
  const QString text = key.text();
  return plain && text.size() == 1 && QStringLiteral("0123456789-+.,").contains(text);
}

}  // namespace

CSpinCombo::CSpinCombo(const UiContext& context, const QString& label, const QString& help,
                       QWidget* parent)
    : QWidget(parent), context_(context), label_(label) {
  installAccessibility();
  setFont(context.skin.font);
  // One stop for the Tab key; typing a number goes on to the field.
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  field_ = new EditBox(context, {}, this);
  field_->setFocusPolicy(Qt::ClickFocus);
  field_->setAlignment(Qt::AlignRight);
  field_->setTextMargins(2, 0, 2, 0);
  field_->installEventFilter(this);
  connect(field_, &EditBox::enterPressed, this, &CSpinCombo::takeField);
  connect(field_, &QLineEdit::editingFinished, this, &CSpinCombo::takeField);
  setHelp(context, this, help);
  if (accessibleName().isEmpty()) {
    setAccessibleName(CPopup::titleOf(label));
  }
  field_->setAccessibleName(accessibleName());
  measureLabel();
  showInField();
}

void CSpinCombo::setLabel(const QString& label) {
  label_ = label;
  measureLabel();
  updateGeometry();
  field_->setGeometry(fieldRect());
  update();
}

void CSpinCombo::setImages(std::string high, std::string low) {
  highImage_.setName(std::move(high));
  lowImage_.setName(std::move(low));
  update();
}

void CSpinCombo::setRange(int low, int high) {
  low_ = std::min(low, high);
  high_ = std::max(low, high);
  update();
}

void CSpinCombo::setValue(int value) {
  // A number that is being typed stays unless there is really another value.
  const bool same = value == value_;
  value_ = value;
  if (!same || !field_->isModified()) {
    showInField();
  }
  if (!same) {
    QAccessibleValueChangeEvent changed(this, value);
    QAccessible::updateAccessibility(&changed);
    update();
  }
}

QSize CSpinCombo::sizeHint() const {
  return {252, kHeight};
}

QSize CSpinCombo::minimumSizeHint() const {
  return {labelWidth_ + kLeastTrack + 2 * kGap + kFieldWidth, kHeight};
}

void CSpinCombo::change(std::int64_t value) {
  const int cut = static_cast<int>(std::clamp<std::int64_t>(value, low_, high_));
  const bool same = cut == value_;
  value_ = cut;
  showInField();
  update();
  if (!same) {
    QAccessibleValueChangeEvent changed(this, cut);
    QAccessible::updateAccessibility(&changed);
    emit valueChanged(cut);
  }
}

void CSpinCombo::step(std::int64_t by) {
  change(std::int64_t{numberFrom(field_->text()).value_or(value_)} + by);
}

bool CSpinCombo::stepByKey(int key) {
  switch (key) {
    case Qt::Key_Up:
      step(1);
      return true;
    case Qt::Key_Down:
      step(-1);
      return true;
    case Qt::Key_PageUp:
      step(kPageStep);
      return true;
    case Qt::Key_PageDown:
      step(-kPageStep);
      return true;
    default:
      return false;
  }
}

void CSpinCombo::editField() {
  field_->setFocus(Qt::OtherFocusReason);
  field_->selectAll();
}

void CSpinCombo::takeField() {
  const auto number = numberFrom(field_->text());
  if (!number || *number == value_) {
    showInField();
  } else {
    change(*number);
  }
}

void CSpinCombo::showInField() {
  const QString text = QString::number(value_);
  if (field_->text() != text) {
    field_->setText(text);
  }
  field_->setModified(false);
}

void CSpinCombo::measureLabel() {
  if (label_.isEmpty()) {
    labelWidth_ = 0;
    return;
  }
  // Wide enough for the usual labels, so that tracks of rows stand in line.
  const auto metrics = fontMetrics();
  const int usual = metrics.horizontalAdvance(QStringLiteral("Positions:"));
  labelWidth_ = std::max(usual, metrics.horizontalAdvance(label_)) + kGap + 1;
}

int CSpinCombo::iconWidth() const {
  const bool any = !highImage_.name().empty() || !lowImage_.name().empty();
  const int room = width() - labelWidth_ - kFieldWidth - kGap - 2 * (kIcon + kGap);
  return any && room >= kLeastTrack ? kIcon + kGap : 0;
}

QRect CSpinCombo::fieldRect() const {
  const int height = std::min(20, this->height());
  return {width() - kFieldWidth, (this->height() - height) / 2, kFieldWidth, height};
}

QRect CSpinCombo::trackRect() const {
  const int left = labelWidth_ + iconWidth();
  const int right = width() - kFieldWidth - kGap - iconWidth();
  return {left, 0, std::max(kHandle + 1, right - left), height()};
}

double CSpinCombo::positionOf(int value) const {
  const QRectF track = trackRect();
  const double span = double{static_cast<double>(high_)} - low_;
  const double share = span > 0 ? (std::clamp(value, low_, high_) - double(low_)) / span : 0;
  return track.left() + kHandle / 2.0 + share * (track.width() - kHandle);
}

int CSpinCombo::valueAt(int x) const {
  const QRectF track = trackRect();
  const double share = (x + 0.5 - track.left() - kHandle / 2.0) / (track.width() - kHandle);
  const double span = static_cast<double>(high_) - low_;
  return static_cast<int>(std::clamp(std::round(low_ + share * span), double(low_), double(high_)));
}

bool CSpinCombo::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    // Digits typed here are a number, whatever shortcuts the window has.
    if (startsNumber(static_cast<QKeyEvent&>(*event))) {
      event->accept();
      return true;
    }
  }
  return QWidget::event(event);
}

bool CSpinCombo::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (watched == field_ && type == QEvent::Wheel) {
    wheelEvent(static_cast<QWheelEvent*>(event));
    return event->isAccepted();
  }
  if (watched != field_ || (type != QEvent::KeyPress && type != QEvent::ShortcutOverride)) {
    return QWidget::eventFilter(watched, event);
  }
  const auto& key = static_cast<QKeyEvent&>(*event);
  if (type == QEvent::ShortcutOverride) {
    // With nothing typed, undo and redo belong to the window.
    const bool undo = key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
    if (undo && !field_->isModified()) {
      event->ignore();
      return true;
    }
    return false;
  }
  if (key.key() == Qt::Key_Escape && field_->isModified()) {
    showInField();
    field_->selectAll();
    return true;
  }
  const bool plain = (key.modifiers() & ~Qt::KeypadModifier) == 0;
  return plain && stepByKey(key.key());
}

void CSpinCombo::paintEvent(QPaintEvent* /*event*/) {
  const Skin& skin = context_.skin;
  PixelPainter painter(*this, skin);
  const bool hover = isEnabled() && underMouse();
  painter.text({0.0, 0.0, double(labelWidth_ - kGap), double(height())}, Qt::AlignLeft, label_,
               hover ? brightColour(skin) : skin.text, font());
  const QRect track = trackRect();
  if (iconWidth() > 0) {
    const double top = (height() - kIcon) / 2.0;
    lowImage_.paint(painter, context_.images,
                    {double(track.left() - kIcon - kGap / 2), top, kIcon, kIcon});
    highImage_.paint(painter, context_.images,
                     {double(track.right() + 1 + kGap / 2), top, kIcon, kIcon});
  }
  paintTrack(painter);
  if (hasFocus() && (ring_ || dragging_)) {
    painter.focusRing(
        painter.pixels(QRectF(track.left() - 2, (height() - 20) / 2.0, track.width() + 4, 20)));
  }
}

void CSpinCombo::paintTrack(PixelPainter& painter) {
  const Skin& skin = context_.skin;
  const QRectF track = trackRect();
  const double middle = track.center().y();
  const QRect groove = painter.pixels(QRectF(track.left(), middle - 2, track.width(), 4));
  painter.box(groove, fieldColour(skin), borderColour(skin));
  const double at = positionOf(value_);
  const bool twoSided = low_ < 0 && high_ > 0;
  const double from = twoSided ? positionOf(0) : track.left();
  const QRectF bar(std::min(from, at), middle - 2, std::abs(at - from), 4);
  const QRect filled = painter.pixels(bar);
  if (filled.width() > 0) {
    painter.fill(filled, skin.button);
  }
  const bool hover = isEnabled() && underMouse();
  QColor face = dragging_ ? skin.selected : skin.text;
  face = hover && !dragging_ ? brightColour(skin) : face;
  const QRect place = painter.pixels(QRectF(at - kHandle / 2.0, middle - 7, kHandle, 14));
  painter.box(place, face, skin.title);
}

void CSpinCombo::resizeEvent(QResizeEvent* event) {
  field_->setGeometry(fieldRect());
  QWidget::resizeEvent(event);
}

void CSpinCombo::mousePressEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (event->button() != Qt::LeftButton || !trackRect().adjusted(-2, 0, 2, 0).contains(at)) {
    return;
  }
  if ((event->modifiers() & Qt::ControlModifier) != 0) {
    const double handle = positionOf(value_);
    step(event->position().x() < handle ? -1 : 1);
    return;
  }
  dragging_ = true;
  change(valueAt(at.x()));
}

void CSpinCombo::mouseMoveEvent(QMouseEvent* event) {
  if (dragging_ && (event->buttons() & Qt::LeftButton) != 0) {
    const int value = valueAt(event->position().toPoint().x());
    if (value != value_) {
      change(value);
    }
  }
}

void CSpinCombo::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    dragging_ = false;
    update();
  }
}

void CSpinCombo::wheelEvent(QWheelEvent* event) {
  if (!hasFocus() && !field_->hasFocus()) {
    event->ignore();
    return;
  }
  constexpr int kNotch = 120;
  wheelRest_ += event->angleDelta().y();
  const int steps = wheelRest_ / kNotch;
  wheelRest_ %= kNotch;
  if (steps != 0) {
    step(steps);
  }
  event->accept();
}

void CSpinCombo::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool plain = (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == 0;
  if (!plain) {
    QWidget::keyPressEvent(event);
  } else if (stepByKey(key)) {
    return;
  } else if (key == Qt::Key_Left || key == Qt::Key_Right) {
    step(key == Qt::Key_Left ? -1 : 1);
  } else if (key == Qt::Key_Home || key == Qt::Key_End) {
    change(key == Qt::Key_Home ? low_ : high_);
  } else if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2) {
    editField();
  } else if (startsNumber(*event)) {
    editField();
    QCoreApplication::sendEvent(field_, event);
  } else {
    QWidget::keyPressEvent(event);
  }
}

void CSpinCombo::focusInEvent(QFocusEvent* event) {
  noteFocus(ring_, *event);
  QWidget::focusInEvent(event);
}

void CSpinCombo::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange) {
    dragging_ = false;
    update();
  } else if (event->type() == QEvent::FontChange) {
    measureLabel();
  }
  QWidget::changeEvent(event);
}

}  // namespace pv
