#include "library/ui/thumb_list_widget.h"

#include <algorithm>
#include <utility>

#include <QAccessible>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPaintEvent>
#include <QSignalBlocker>

#include "library/ui/thumb_list_access.h"
#include "ui/scroll_bar.h"

namespace pv {
namespace {

constexpr int kBorder = 2;  // even, as all lengths are: whole pixels at one and a half
constexpr int kCellWidth = 112;
constexpr int kCellHeight = 116;
constexpr int kTurn = 8;            // milliseconds of reading before events come again
constexpr int kTypingPause = 1000;  // milliseconds after which a word begins anew

QRect toRect(const TagBox& box) {
  return {QPoint(box.left, box.top), QPoint(box.right - 1, box.bottom - 1)};
}

}  // namespace

ThumbListWidget::ThumbListWidget(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context), painter_(context) {
  installThumbListAccess();
  setObjectName("8104");
  setAccessibleName(tr("Files"));
  setDeleteMode(false);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  bar_ = new QuietScrollBar(context, this);
  connect(bar_, &QScrollBar::valueChanged, this, &ThumbListWidget::scrollTo);
  connect(&loader_, &QTimer::timeout, this, &ThumbListWidget::loadSome);
  typing_.setSingleShot(true);
  typing_.setInterval(kTypingPause);
  grid_.cellHeight = kCellHeight;
}

ThumbListWidget::~ThumbListWidget() = default;

void ThumbListWidget::refresh() {
  painter_.setExtension(list_.place().extension);
  grid_.count = list_.shownCount();
  wanted_ = {};
  nextToLoad_ = 0;
  layOut();
  if (list_.selected() >= 0) {
    scrollTo(grid_.scrollToShow(list_.selected()));
  }
  update();
  QAccessibleEvent changed(this, QAccessible::ObjectReorder);
  QAccessible::updateAccessibility(&changed);
}

void ThumbListWidget::setDeleteMode(bool on) {
  deleteMode_ = on;
  setAccessibleDescription(on ? tr("A click or the Delete key deletes a file.")
                              : tr("The files of the library, each with a picture."));
  update();
}

QRect ThumbListWidget::cellRect(int index) const {
  return toRect(grid_.cell(index)).translated(kBorder, kBorder);
}

QRect ThumbListWidget::pictureRect(int index) const {
  return toRect(grid_.picture(index)).translated(kBorder, kBorder);
}

int ThumbListWidget::itemAt(QPointF position) const {
  const QPoint point = position.toPoint();
  const QRect inside(kBorder, kBorder, grid_.clientWidth, grid_.clientHeight);
  return inside.contains(point) ? grid_.hitTest(point.x() - kBorder, point.y() - kBorder) : -1;
}

// Cells are stretched so that they fill the rows.
void ThumbListWidget::layOut() {
  const QRect inside =
      rect().adjusted(kBorder, kBorder, -kBorder - QuietScrollBar::kWidth, -kBorder);
  grid_.clientWidth = std::max(0, inside.width());
  grid_.clientHeight = std::max(0, inside.height());
  grid_.cellWidth =
      std::max(kCellWidth, grid_.clientWidth / std::max(1, grid_.clientWidth / kCellWidth));
  grid_.scroll = std::clamp(grid_.scroll, 0, grid_.maxScroll());
  bar_->setGeometry(inside.right() + 1, inside.top(), QuietScrollBar::kWidth, inside.height());
  const QSignalBlocker quiet(bar_);
  bar_->setRange(0, grid_.maxScroll());
  bar_->setPageStep(std::max(1, grid_.clientHeight));
  bar_->setSingleStep(kCellHeight / 3);
  bar_->setValue(grid_.scroll);
  hovered_ = underMouse() ? itemAt(mapFromGlobal(QCursor::pos())) : -1;
  startLoading();
}

void ThumbListWidget::scrollTo(int offset) {
  offset = std::clamp(offset, 0, grid_.maxScroll());
  if (offset != grid_.scroll) {
    grid_.scroll = offset;
    layOut();
    update();
  }
}

void ThumbListWidget::startLoading() {
  if (const ThumbGrid::Range visible = grid_.visible(); visible != wanted_) {
    wanted_ = visible;
    nextToLoad_ = visible.first;
  }
  while (pending() > 0 && list_.isThumbnailLoaded(nextToLoad_)) {
    ++nextToLoad_;
  }
  if (pending() > 0 && isVisible()) {
    loader_.start();
  } else {
    loader_.stop();
  }
  emit progress(nextToLoad_ - wanted_.first, wanted_.last - wanted_.first);
}

// Each visible cell is looked for once, so that this ends even where more of them
// can be seen than the list keeps pictures of.
void ThumbListWidget::loadSome() {
  QElapsedTimer clock;
  clock.start();
  while (pending() > 0 && !clock.hasExpired(kTurn)) {
    static_cast<void>(list_.thumbnail(nextToLoad_));
    updateCell(nextToLoad_);
    ++nextToLoad_;
  }
  startLoading();
}

void ThumbListWidget::paintEvent(QPaintEvent* event) {
  PixelPainter painter(*this, context_.skin);
  painter_.paintGround(painter);
  const ThumbGrid::Range visible = grid_.visible();
  for (std::int32_t i = visible.first; i < visible.last; ++i) {
    const QRect box = cellRect(i);
    if (!event->rect().intersects(box)) {
      continue;
    }
    ThumbCell cell;
    cell.box = box;
    cell.picture = pictureRect(i);
    cell.name = list_.shownNames()[static_cast<std::size_t>(i)];
    cell.loaded = list_.isThumbnailLoaded(i);
    cell.bits = cell.loaded ? list_.thumbnail(i) : nullptr;
    cell.selected = i == list_.selected();
    cell.hovered = i == hovered_;
    cell.deletes = deleteMode_;
    painter_.paintCell(painter, cell);
  }
  if (list_.shownCount() == 0) {
    painter_.paintHint(
        painter, rect(),
        list_.count() == 0 ? tr("The library is empty.") : tr("No files for this choice of tags."));
  }
  painter_.paintBorder(painter, hasFocus() && ring_, deleteMode_);
}

void ThumbListWidget::updateCell(int index) {
  if (index >= 0) {
    update(cellRect(index));
  }
}

void ThumbListWidget::select(int index) {
  updateCell(list_.selected());
  list_.select(index);
  updateCell(list_.selected());
  if (list_.selected() >= 0) {
    QAccessibleEvent moved(this, QAccessible::Focus);
    moved.setChild(list_.selected());
    QAccessible::updateAccessibility(&moved);
  }
}

void ThumbListWidget::moveSelection(int index) {
  const int before = list_.selected();
  select(index);
  if (list_.selected() >= 0) {
    scrollTo(grid_.scrollToShow(list_.selected()));
  }
  if (list_.selected() != before) {
    emit selectionMoved();
  }
}

bool ThumbListWidget::event(QEvent* event) {
  if (event->type() == QEvent::ScreenChangeInternal) {
    update();  // the new screen may have another density
  }
  return QWidget::event(event);
}

void ThumbListWidget::resizeEvent(QResizeEvent* /*event*/) {
  // What was chosen stays in sight when the rows break elsewhere.
  const ThumbGrid::Range visible = grid_.visible();
  const int chosen = list_.selected();
  layOut();
  if (chosen >= visible.first && chosen < visible.last) {
    scrollTo(grid_.scrollToShow(chosen));
  }
}

void ThumbListWidget::showEvent(QShowEvent* /*event*/) {
  startLoading();
}

void ThumbListWidget::hideEvent(QHideEvent* /*event*/) {
  loader_.stop();
  pressed_ = false;
  pressedName_.clear();
}

}  // namespace pv
