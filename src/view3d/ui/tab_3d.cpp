#include "view3d/ui/tab_3d.h"

#include <QPainter>

namespace pv {
namespace {

bool isSwitch(Tab3dAction action) {
  switch (action) {
    case Tab3dAction::View:
    case Tab3dAction::ToggleGrid:
    case Tab3dAction::ToggleLines:
    case Tab3dAction::Tool:
    case Tab3dAction::Modifier:
      return true;
    case Tab3dAction::ResetCamera:
    case Tab3dAction::ResetAll:
    case Tab3dAction::Reset:
      break;
  }
  return false;
}

}  // namespace

CTab3d::CTab3d(const UiContext& context, QWidget* parent) : QWidget(parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const Tab3dButton& row = kTab3dButtons[i];
    auto* button = new ImageButton(context, row.image, QString::fromUtf8(row.help), this);
    button->setObjectName(QString::number(row.id));
    button->setJoint(row.joint);
    button->setCheckable(isSwitch(row.action));
    connect(button, &ImageButton::clicked, this, [this, &row] { press(row); });
    buttons_[i] = button;
  }
  view_ = new ShapeViewWidget(this);
  view_->setObjectName("8030");
  connect(view_, &ShapeViewWidget::modifierChanged, this, &CTab3d::modifierChanged);

  // A view on its own zooms; on the page the first tool is the chosen one.
  view_->view().setCameraTool(CameraTool::Rotate);
  showChoices();
  resize(CTab3d::sizeHint());
}

void CTab3d::setShape(const ShapeRecord& shape) {
  view_->view().setShape(shape);
  view_->refresh();  // also where the kind is unknown and the old mesh stays
}

void CTab3d::press(const Tab3dButton& button) {
  ShapeView& view = view_->view();
  switch (button.action) {
    case Tab3dAction::View:
      if (!isChosen(button)) {
        view_->apply(view.setViewMode(static_cast<ViewMode>(button.which)));
      }
      break;
    case Tab3dAction::ToggleGrid:
      view_->apply(view.setShowGrid(!view.showGrid()));
      break;
    case Tab3dAction::ToggleLines:
      view_->apply(view.setShowLines(!view.showLines()));
      break;
    case Tab3dAction::Tool:
      view.setCameraTool(static_cast<CameraTool>(button.which));
      break;
    case Tab3dAction::ResetCamera:
      view_->apply(view.setCamera({}));
      break;
    case Tab3dAction::ResetAll:
      view_->apply(view.ResetAllModifiers());
      break;
    case Tab3dAction::Reset:
      view_->apply(view.ResetSelectedModifier());
      break;
    case Tab3dAction::Modifier:
      view_->apply(view.toggleModifier(static_cast<ModifierKind>(button.which)));
      break;
  }
  showChoices();
}

void CTab3d::showChoices() {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    buttons_[i]->setChecked(isChosen(kTab3dButtons[i]));
  }
}

bool CTab3d::isChosen(const Tab3dButton& button) const {
  const ShapeView& view = view_->view();
  switch (button.action) {
    case Tab3dAction::View:
      return button.which == static_cast<int>(view.viewMode());
    case Tab3dAction::ToggleGrid:
      return view.showGrid();
    case Tab3dAction::ToggleLines:
      return view.showLines();
    case Tab3dAction::Tool:
      return button.which == static_cast<int>(view.cameraTool());
    case Tab3dAction::Modifier:
      return button.which == static_cast<int>(view.SelectedModifier());
    case Tab3dAction::ResetCamera:
    case Tab3dAction::ResetAll:
    case Tab3dAction::Reset:
      break;
  }
  return false;
}

QSize CTab3d::sizeHint() const {
  const DialogRect page = inPixels(kTab3dPage);
  return {page.width, page.height};
}

void CTab3d::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), context_.skin.page);
}

void CTab3d::resizeEvent(QResizeEvent* /*event*/) {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    buttons_[i]->setGeometry(placeOf(kTab3dButtons[i], size()));
  }
  view_->setGeometry(placeOfView(size()));
}

}  // namespace pv
