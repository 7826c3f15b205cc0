#include "path/ui/edit_path_tab.h"

#include <cstddef>
#include <string_view>
#include <utility>

#include <QKeyEvent>
#include <QPainter>

#include "ui/controls.h"
#include "ui/popup_help.h"

namespace pv {
namespace {

using enum EditPathAction;

constexpr int kNoResult = -1;
constexpr int kUse = 1;
constexpr int kCancel = 2;

bool isSwitch(EditPathAction action) {
  return action == View || action == Tool || action == ToggleSnap || action == SnapDivisions;
}

bool namesStep(EditPathAction action) {
  return action == Undo || action == Redo;
}

QString toText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

CEditPathTab::CEditPathTab(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    buttons_[i] = makeButton(kEditPathButtons[i]);
  }
  view_ = new PathViewWidget(context, this);
  view_->setObjectName("8057");
  connect(view_, &PathViewWidget::responded, this, [this] {
    showSteps();
    emit readoutChanged();
  });
  showChoices();
  resize(CEditPathTab::sizeHint());
}

CEditPathTab::~CEditPathTab() {
  // The view answers once more when it loses the focus with the window.
  disconnect(view_, nullptr, this, nullptr);
}

QAbstractButton* CEditPathTab::makeButton(const EditPathButton& row) {
  QAbstractButton* button = nullptr;
  if (row.image == nullptr) {
    button = new TextButton(context_, tr(row.label), {}, this);
  } else {
    const QString help = namesStep(row.action) ? QString() : tr(row.help);
    auto* image = new ImageButton(context_, row.image, help, this);
    image->setJoint(row.joint);
    // A click leaves the keys with the view.
    image->setFocusPolicy(Qt::TabFocus);
    button = image;
  }
  button->setObjectName(QString::number(row.id));
  button->setCheckable(isSwitch(row.action));
  connect(button, &QAbstractButton::clicked, this, [this, &row] { press(row); });
  return button;
}

void CEditPathTab::setPath(const PathRecord& path) {
  view_->apply(view_->view().setPoints(path));
}

int CEditPathTab::takeResult() {
  return std::exchange(result_, kNoResult);
}

void CEditPathTab::pressCancel() {
  leave(kCancel);
}

void CEditPathTab::leave(int result) {
  result_ = result;
  emit command();
}

void CEditPathTab::press(const EditPathButton& button) {
  PathView& view = view_->view();
  switch (button.action) {
    case View:
      if (!isChosen(button)) {
        view_->apply(view.setAxisView(static_cast<PathAxisView>(button.which)));
      }
      break;
    case Tool:
      chooseTool(static_cast<PathTool>(button.which));
      break;
    case DeletePath:
      view_->apply(view.clearPath());
      view_->apply(view.resetZoom());
      break;
    case ResetZoom:
      view_->apply(view.resetZoom());
      break;
    case ToggleSnap:
      view.setSnapEnabled(!view.snapEnabled());
      break;
    case SnapDivisions:
      view.setSnapDivisions(button.which);
      break;
    case Undo:
      view_->apply(view.undo());
      break;
    case Redo:
      view_->apply(view.redo());
      break;
    case Use:
      leave(kUse);
      return;
    case Cancel:
      leave(kCancel);
      return;
  }
  showChoices();
}

void CEditPathTab::chooseTool(PathTool tool) {
  PathView& view = view_->view();
  if (tool == PathTool::Add) {
    view_->apply(view.clearFlags());
  }
  view_->apply(view.setTool(tool));
}

void CEditPathTab::showChoices() {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    buttons_[i]->setChecked(isChosen(kEditPathButtons[i]));
    buttons_[i]->setEnabled(isUsable(kEditPathButtons[i]));
  }
  showSteps();
  emit readoutChanged();
}

bool CEditPathTab::isChosen(const EditPathButton& button) const {
  const PathView& view = view_->view();
  switch (button.action) {
    case View:
      return button.which == static_cast<int>(view.axisView());
    case Tool:
      return button.which == static_cast<int>(view.getTool());
    case ToggleSnap:
      return view.snapEnabled();
    case SnapDivisions:
      return button.which == view.snapDivisions();
    default:
      return false;
  }
}

bool CEditPathTab::isUsable(const EditPathButton& button) const {
  const PathView& view = view_->view();
  switch (button.action) {
    case SnapDivisions:
      return view.snapEnabled();
    case Undo:
      return view.canUndo();
    case Redo:
      return view.canRedo();
    default:
      return true;
  }
}

// The steps change with almost every event, the other buttons only with a press.
void CEditPathTab::showSteps() {
  const PathView& view = view_->view();
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const EditPathButton& row = kEditPathButtons[i];
    if (!namesStep(row.action)) {
      continue;
    }
    const std::string_view step = row.action == Undo ? view.undoLabel() : view.redoLabel();
    QString& shown = row.action == Undo ? undoHelp_ : redoHelp_;
    const QString help = tr(row.help).arg(step.empty() ? tr("There is nothing.") : toText(step));
    buttons_[i]->setEnabled(isUsable(row));
    if (help != shown) {
      shown = help;
      setHelp(context_, buttons_[i], help);
    }
  }
}

QSize CEditPathTab::sizeHint() const {
  const DialogRect page = inPixels(kEditPathPage);
  return {page.width, page.height};
}

bool CEditPathTab::event(QEvent* event) {
  // The view's keys work wherever on the page the focus is.
  if (event->type() == QEvent::ShortcutOverride &&
      view_->wantsKey(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  return QWidget::event(event);
}

void CEditPathTab::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) {
    view_->setFocus(Qt::MouseFocusReason);
  }
}

void CEditPathTab::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
    // A key that is still held from the page before means nothing here.
    if (!event->isAutoRepeat()) {
      leave(kUse);
    }
  } else if (view_->hasFocus() || !view_->handleKey(*event)) {
    QWidget::keyPressEvent(event);
  }
}

void CEditPathTab::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), context_.skin.page);
}

void CEditPathTab::resizeEvent(QResizeEvent* /*event*/) {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    buttons_[i]->setGeometry(placeOf(kEditPathButtons[i], size()));
  }
  view_->setGeometry(placeOfPathView(size()));
}

}  // namespace pv
