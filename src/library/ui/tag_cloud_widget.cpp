#include "library/ui/tag_cloud_widget.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>
#include <utility>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>

#include "ui/pixel_painter.h"
#include "ui/popup_help.h"
#include "ui/scroll_bar.h"

namespace pv {
namespace {

// In pixels of 96 dpi.
constexpr int kMargin = 4;  // around the tags, frame included
constexpr int kRow = 20;

// Letters may stand out of their line above and below.
QRect inked(const QRect& tag) {
  return tag.adjusted(0, -4, 0, 4);
}

}  // namespace

TagCloudWidget::TagCloudWidget(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context), cloud_(schemeOf(context.skin)), tags_(context) {
  setObjectName("1149");
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_Hover);
  setMouseTracking(true);
  setFont(context.skin.font);
  bar_ = new QuietScrollBar(context, this);
  bar_->setSingleStep(kRow);
  bar_->hide();
  connect(bar_, &QScrollBar::valueChanged, this, &TagCloudWidget::refresh);
  showHelp();
}

// --- layout --------------------------------------------------------------------

int TagCloudWidget::clientRight() const {
  return width() - (scrolls_ ? QuietScrollBar::kWidth : kMargin);
}

void TagCloudWidget::layOut(bool scrolls) {
  scrolls_ = scrolls;
  const int top = kMargin - (scrolls ? bar_->value() : 0);
  layout_ = cloud_.layout(clientRight() - kMargin, top,
                          [this](std::int32_t fontIndex, std::string_view text) {
                            return tags_.measure(fontIndex, text);
                          });
}

void TagCloudWidget::refresh() {
  const int room = height() - 2 * kMargin;
  layOut(false);
  if (layout_.neededHeight > room) {
    layOut(true);
  }
  const int place = bar_->value();
  {
    const QSignalBlocker quiet(bar_);
    bar_->setPageStep(std::max(room, kRow));
    bar_->setRange(0, std::max(0, layout_.neededHeight - room));
    bar_->setVisible(scrolls_);
  }
  if (scrolls_ && bar_->value() != place) {
    layOut(true);  // the old place lay beyond the new end
  }
  current_ = std::min(current_, cloud_.count() - 1);
  hovered_ = std::min(hovered_, cloud_.count() - 1);
  update();
}

void TagCloudWidget::rewind() {
  current_ = -1;
  hovered_ = -1;
  bar_->setValue(0);
  refresh();
}

void TagCloudWidget::scrollTo(std::int32_t index) {
  if (index < 0 || index >= cloud_.count()) {
    return;
  }
  const TagBox& box = layout_.items[static_cast<std::size_t>(index)].box;
  const int below = std::max(box.bottom - (height() - kMargin), 0);
  const int above = std::max(kMargin - box.top, 0);
  bar_->setValue(bar_->value() + below - above);
}

void TagCloudWidget::setDeleting(bool deleting) {
  deleting_ = deleting;
  showHelp();
  update();
}

void TagCloudWidget::setEmptyText(const QString& text) {
  emptyText_ = text;
  update();
}

QRect TagCloudWidget::tagRect(std::int32_t index) const {
  if (index < 0 || index >= static_cast<std::int32_t>(layout_.items.size())) {
    return {};
  }
  // A name that is wider than the cloud is cut at its edge.
  const TagDrawItem& item = layout_.items[static_cast<std::size_t>(index)];
  const int left = kMargin + item.box.left;
  const int right = std::min(kMargin + item.box.right, clientRight());
  return {left, item.y, std::max(right - left, 1), item.extent.height};
}

// --- painting --------------------------------------------------------------------

void TagCloudWidget::paintEvent(QPaintEvent* event) {
  const Skin& skin = context_.skin;
  const QColor background(QRgb{cloud_.colours().background});
  PixelPainter painter(*this, skin);
  painter.fill(painter.bounds(), background);
  for (const TagDrawItem& item : layout_.items) {
    if (event->rect().intersects(inked(tagRect(item.index)))) {
      const TagState state = cloud_.entries()[static_cast<std::size_t>(item.index)].state;
      tags_.paint(painter, item, {tagRect(item.index), state, item.index == hovered_, deleting_});
    }
  }
  if (layout_.items.empty()) {
    painter.text(QRectF(rect()).adjusted(kMargin, 0, -kMargin, 0), Qt::AlignHCenter, emptyText_,
                 mixed(background, skin.text, 0.8), font());
  }
  painter.box(painter.bounds(), Qt::transparent, borderColour(skin));
  if (hasFocus() && ring_) {
    const QRectF chip = TagPainter::chipOf(tagRect(current_));
    painter.focusRing(current_ < 0 ? painter.bounds() : painter.pixels(chip));
  }
}

// --- mouse -------------------------------------------------------------------------

bool TagCloudWidget::event(QEvent* event) {
  if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove) {
    hover(static_cast<QHoverEvent*>(event)->position().toPoint());
  } else if (event->type() == QEvent::HoverLeave) {
    hover({-1, -1});
  }
  return QWidget::event(event);
}

std::int32_t TagCloudWidget::tagAt(QPoint position) const {
  return cloud_.hitTest(position.x() - kMargin, position.y());
}

void TagCloudWidget::hover(QPoint position) {
  const std::int32_t hit = rect().contains(position) ? tagAt(position) : -1;
  if (hit != hovered_) {
    update(inked(tagRect(std::exchange(hovered_, hit))));
    update(inked(tagRect(hovered_)));
    showHelp();
  }
}

void TagCloudWidget::press(QPoint position, Qt::KeyboardModifiers modifiers) {
  const TagClickResponse answer =
      cloud_.click({position.x() - kMargin, position.y(), modifiers.testFlag(Qt::ControlModifier),
                    modifiers.testFlag(Qt::AltModifier)});
  if (answer.hit >= 0) {
    setCurrent(answer.hit);  // stays where it is: the pointer is on it
  }
  if (answer.changed) {
    refresh();
  }
}

// Many desktops take Alt with the left button for themselves, so the right button
// excludes as well, except where it opens a menu.
void TagCloudWidget::mousePressEvent(QMouseEvent* event) {
  const bool right =
      event->button() == Qt::RightButton && contextMenuPolicy() == Qt::DefaultContextMenu;
  if ((event->button() == Qt::LeftButton || right) && !pressed_) {
    pressed_ = true;
    ring_ = false;
    press(event->position().toPoint(),
          right ? event->modifiers() | Qt::AltModifier : event->modifiers());
  }
}

void TagCloudWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton && std::exchange(pressed_, false)) {
    refresh();
    emit clicked();
  }
}

// A mode may be left by a key while the button is down; its release goes elsewhere.
void TagCloudWidget::hideEvent(QHideEvent* /*event*/) {
  pressed_ = false;
}

void TagCloudWidget::wheelEvent(QWheelEvent* event) {
  if (!scrolls_) {
    event->ignore();
  } else {
    QApplication::sendEvent(bar_, event);
  }
}

void TagCloudWidget::resizeEvent(QResizeEvent* /*event*/) {
  bar_->setGeometry(width() - QuietScrollBar::kWidth, 1, QuietScrollBar::kWidth - 1, height() - 2);
  refresh();
}

// --- keys --------------------------------------------------------------------------

void TagCloudWidget::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
    if (current_ >= 0) {
      ring_ = true;
      scrollTo(current_);
      const TagBox& box = layout_.items[static_cast<std::size_t>(current_)].box;
      press({kMargin + (box.left + box.right) / 2, (box.top + box.bottom) / 2}, event->modifiers());
      emit clicked();
    }
  } else if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
    bar_->triggerAction(key == Qt::Key_PageUp ? QScrollBar::SliderPageStepSub
                                              : QScrollBar::SliderPageStepAdd);
  } else if (const std::int32_t next = neighbour(key); next >= 0) {
    ring_ = true;
    setCurrent(next);
    scrollTo(current_);
  } else {
    QWidget::keyPressEvent(event);
  }
}

std::int32_t TagCloudWidget::neighbour(int key) const {
  const std::int32_t last = cloud_.count() - 1;
  const std::int32_t from = std::max(current_, 0);
  switch (key) {
    case Qt::Key_Left:
      return std::min(std::max(from - 1, 0), last);
    case Qt::Key_Right:
      return std::min(current_ + 1, last);
    case Qt::Key_Home:
      return std::min(0, last);
    case Qt::Key_End:
      return last;
    case Qt::Key_Up:
      return inNextRow(-1);
    case Qt::Key_Down:
      return inNextRow(1);
    default:
      return -1;
  }
}

// The tag in the nearest row above or below whose middle is nearest.
std::int32_t TagCloudWidget::inNextRow(int direction) const {
  if (current_ < 0) {
    return std::min(0, cloud_.count() - 1);
  }
  const TagBox& from = layout_.items[static_cast<std::size_t>(current_)].box;
  std::tuple<int, int, std::int32_t> best{1 << 30, 0, current_};
  for (const TagDrawItem& item : layout_.items) {
    // Boxes of one row differ by a few pixels in their height.
    const int rows = direction * qRound((item.box.top - from.top) / static_cast<double>(kRow));
    const int aside = std::abs(item.box.left + item.box.right - from.left - from.right);
    if (rows > 0) {
      best = std::min(best, {rows, aside, item.index});
    }
  }
  return std::get<2>(best);
}

void TagCloudWidget::setCurrent(std::int32_t index) {
  current_ = index;
  setAccessibleDescription(helpOf(index).section('\n', 0, 1).replace('\n', ' '));
  update();
}

void TagCloudWidget::focusInEvent(QFocusEvent* event) {
  noteFocus(ring_, *event);
  if (ring_ && current_ < 0 && cloud_.count() > 0) {
    setCurrent(0);
    scrollTo(current_);
  }
  QWidget::focusInEvent(event);
}

// --- popup help ----------------------------------------------------------------------

QString TagCloudWidget::helpOf(std::int32_t index) const {
  if (index < 0 || index >= cloud_.count()) {
    return deleting_ ? tr("Tags:\nClick a tag to delete it.")
                     : tr("Tags:\nClick selects one tag.\nCtrl+click adds it or takes it out.\n"
                          "Alt+click excludes it.");
  }
  constexpr int kLongest = 48;
  const TagEntry& tag = cloud_.entries()[static_cast<std::size_t>(index)];
  QString name = TagPainter::textOf(tag.name);
  if (name.size() > kLongest) {
    name = name.left(kLongest - 1) + QChar(0x2026);
  }
  const auto count = static_cast<int>(tag.links.size());
  QString text = name + ":\n" + (count == 1 ? tr("1 file") : tr("%1 files").arg(count));
  const QString states[] = {tr(", selected"), tr(", excluded")};
  if (tag.state != TagState::None) {
    text += states[tag.state == TagState::Selected ? 0 : 1];
  }
  return deleting_ ? text + '\n' + tr("A click deletes this tag.") : text;
}

void TagCloudWidget::showHelp() {
  const QString description = accessibleDescription();
  if (window()->findChild<QWidget*>("popup help") != nullptr) {
    setHelp(context_, this, {});  // the one that shows is another tag's
  }
  setHelp(context_, this, helpOf(hovered_));
  setAccessibleName(tr("Tags"));
  if (!description.isEmpty()) {
    setAccessibleDescription(description);
  }
}

}  // namespace pv
