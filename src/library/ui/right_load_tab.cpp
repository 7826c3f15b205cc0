#include "library/ui/right_load_tab.h"

#include <utility>

#include <QPainter>

#include "library/ui/thumb_list_widget.h"
#include "library/ui/thumb_page.h"
#include "ui/controls.h"

namespace pv {

CRightLoadTab::CRightLoadTab(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  list_ = new ThumbListWidget(context, this);
  auto* status = new ThumbStatus(context, *list_, this);
  load_ = new TextButton(context, tr("Load"), tr("Load:\nThis loads the selected file."), this);
  load_->setObjectName("1");
  load_->setEnabled(false);
  auto* cancel =
      new TextButton(context, tr("Cancel Load"),
                     tr("Cancel Load:\nThis leaves the library. Nothing is loaded."), this);
  cancel->setObjectName("2");
  layOutThumbPage(*this, *list_, *status, {load_, cancel});

  connect(list_, &ThumbListWidget::clicked, this, &CRightLoadTab::showSelection);
  connect(list_, &ThumbListWidget::selectionMoved, this, &CRightLoadTab::showSelection);
  connect(list_, &ThumbListWidget::activated, this, &CRightLoadTab::activate);
  connect(load_, &TextButton::clicked, this, [this] { tell(kLoad); });
  connect(cancel, &TextButton::clicked, this, [this] { tell(kCancel); });
}

void CRightLoadTab::open(std::string_view root, std::string_view subFolder,
                         std::string_view filter) {
  CThumbList& files = list_->list();
  files.setFolder(std::string(root) + '\\' + std::string(subFolder), root);
  files.setFilter(filter);
  files.fill();
  files.clearSelection();
  list_->refresh();
  list_->scrollTo(0);
  showSelection();
}

void CRightLoadTab::showFiles(std::span<const std::string> names) {
  list_->list().showSubset(names);
  list_->refresh();
  if (selectedName().empty()) {
    list_->scrollTo(0);
  }
  showSelection();
}

std::string CRightLoadTab::selectedName() const {
  return list_->list().selectedName();
}

std::string CRightLoadTab::selectedFile() const {
  const std::string name = selectedName();
  return name.empty() ? std::string() : list_->list().place().dataFile(name);
}

int CRightLoadTab::takeResult() {
  return std::exchange(result_, 0);
}

void CRightLoadTab::pressCancel() {
  tell(kCancel);
}

void CRightLoadTab::pressLoad() {
  if (load_->isEnabled()) {
    tell(kLoad);
  }
}

// The second press of a double click comes after the first one's selection.
void CRightLoadTab::activate() {
  showSelection();
  pressLoad();
}

void CRightLoadTab::tell(int result) {
  result_ = result;
  emit command();
  result_ = 0;
}

void CRightLoadTab::showSelection() {
  std::string name = selectedName();
  load_->setEnabled(!name.empty());
  if (std::exchange(toldName_, std::move(name)) != toldName_) {
    emit selectionChanged();
  }
}

QSize CRightLoadTab::sizeHint() const {
  return thumbPageSize();
}

void CRightLoadTab::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), context_.skin.page);
}

}  // namespace pv
