#include "library/ui/right_edit_tab.h"

#include <algorithm>
#include <utility>

#include <QKeyEvent>
#include <QPainter>

#include "library/tag_editing.h"
#include "library/ui/thumb_list_widget.h"
#include "library/ui/thumb_page.h"
#include "ui/controls.h"

namespace pv {

CRightEditTab::CRightEditTab(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  list_ = new ThumbListWidget(context, this);
  status_ = new ThumbStatus(context, *list_, this);
  delete_ = new TextButton(context, tr("Delete File"),
                           tr("Delete File:\nWhile this is lit, a click on a file deletes it\n"
                              "from the disk, its picture and its tags too."),
                           this);
  delete_->setObjectName("3");
  delete_->setCheckable(true);
  auto* finish =
      new TextButton(context, tr("Finished Editing"),
                     tr("Finished Editing:\nThis saves the tags and leaves the library."), this);
  finish->setObjectName("2");
  layOutThumbPage(*this, *list_, *status_, {delete_, finish});

  connect(list_, &ThumbListWidget::clicked, this, &CRightEditTab::fileClicked);
  connect(list_, &ThumbListWidget::selectionMoved, this, &CRightEditTab::fileMoved);
  connect(list_, &ThumbListWidget::deletePressed, this, &CRightEditTab::deleteByKey);
  connect(delete_, &TextButton::clicked, this, &CRightEditTab::toggleDeleteMode);
  connect(finish, &TextButton::clicked, this, &CRightEditTab::pressFinish);
}

void CRightEditTab::open(std::string_view root, std::string_view subFolder,
                         std::string_view filter) {
  CThumbList& files = list_->list();
  files.setFolder(std::string(root) + '\\' + std::string(subFolder), root);
  files.setFilter(filter);
  files.fill();
  files.clearSelection();
  deletedName_.clear();
  setDeleteMode(false);
  shown(false);
  list_->scrollTo(0);
}

void CRightEditTab::showFiles(std::span<const std::string> names) {
  if (gone_ > 0) {
    list_->list().showAll();  // lists the folder anew
  }
  list_->list().showSubset(names);
  shown(true);
}

void CRightEditTab::showAll() {
  list_->list().showAll();
  shown(false);
}

void CRightEditTab::shown(bool filtered) {
  filtered_ = filtered;
  gone_ = 0;
  status_->setGone(0);
  list_->refresh();
  if (selectedName().empty()) {
    list_->scrollTo(0);
  }
}

std::string CRightEditTab::selectedName() const {
  return list_->list().selectedName();
}

const std::vector<std::string>& CRightEditTab::allNames() const {
  return list_->list().allNames();
}

int CRightEditTab::takeResult() {
  return std::exchange(result_, kCleared);
}

void CRightEditTab::pressFinish() {
  tell(kFinished);
}

void CRightEditTab::tell(int result) {
  result_ = result;
  emit command();
  result_ = kCleared;
}

void CRightEditTab::fileClicked() {
  if (deleteMode()) {
    deleteSelected();
  } else {
    tell(selectedName().empty() ? kCleared : kSelected);
  }
}

// In delete mode a key only points at a file.
void CRightEditTab::fileMoved() {
  if (!deleteMode()) {
    fileClicked();
  }
}

// The next press finds the file that took the place.
void CRightEditTab::deleteByKey() {
  const int place = list_->list().selected();
  if (deleteMode() && deleteSelected() && deleteMode()) {
    list_->list().select(std::min(place, list_->list().shownCount() - 1));
    list_->refresh();
  }
}

bool CRightEditTab::deleteSelected() {
  const std::string name = selectedName();
  std::string gone = deleteSelectedFile(list_->list());
  if (gone.empty()) {
    if (!name.empty()) {
      status_->setWarning(tr("%1 could not be deleted.").arg(QString::fromStdString(name)));
    }
    return false;
  }
  deletedName_ = std::move(gone);
  status_->setGone(++gone_);
  if (list_->list().shownCount() == 0) {
    setDeleteMode(false);
    if (!filtered_) {
      showAll();  // what has come into the folder meanwhile, or that it is empty
    }
  } else {
    setDeleteMode(true);  // takes an older warning away
  }
  list_->refresh();
  tell(kDeleted);
  return true;
}

void CRightEditTab::toggleDeleteMode() {
  const bool chosen = !selectedName().empty();
  list_->list().clearSelection();
  setDeleteMode(!deleteMode());
  list_->refresh();
  if (chosen) {
    tell(kCleared);
  }
}

bool CRightEditTab::deleteMode() const {
  return list_->deleteMode();
}

void CRightEditTab::setDeleteMode(bool on) {
  list_->setDeleteMode(on);
  delete_->setChecked(on);
  status_->setWarning(on ? tr("Click a file to delete it") : QString());
}

void CRightEditTab::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && deleteMode()) {
    toggleDeleteMode();
  } else {
    QWidget::keyPressEvent(event);
  }
}

QSize CRightEditTab::sizeHint() const {
  return thumbPageSize();
}

void CRightEditTab::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), context_.skin.page);
}

}  // namespace pv
