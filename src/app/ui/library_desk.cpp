#include "app/ui/library_desk.h"

#include <utility>

#include "library/ui/left_edit_tab.h"
#include "library/ui/left_load_tab.h"
#include "library/ui/left_save_tab.h"
#include "library/ui/right_edit_tab.h"
#include "library/ui/right_load_tab.h"
#include "library/ui/right_save_tab.h"

namespace pv {

LibraryDesk::LibraryDesk(const UiContext& context, std::string root, QObject* parent)
    : QObject(parent),
      root_(std::move(root)),
      savePanel_(new CLeftSaveTab(context)),
      loadPanel_(new CLeftLoadTab(context)),
      tagPanel_(new CLeftEditTab(context)),
      savePage_(new CRightSaveTab(context)),
      loadBrowser_(new CRightLoadTab(context)),
      tagBrowser_(new CRightEditTab(context)) {
  connectPages();
}

// Every page's result is read once, as the page resets it.
void LibraryDesk::connectPages() {
  connect(savePanel_, &CLeftSaveTab::command, this,
          [this] { emit leftCommand(savePanel_->takeResult()); });
  connect(loadPanel_, &CLeftLoadTab::command, this, [this] { emit leftCommand(0); });
  connect(tagPanel_, &CLeftEditTab::command, this,
          [this] { emit leftCommand(tagPanel_->takeResult()); });
  connect(savePage_, &CRightSaveTab::command, this,
          [this] { emit rightCommand(savePage_->takeResult()); });
  connect(loadBrowser_, &CRightLoadTab::command, this,
          [this] { emit rightCommand(loadBrowser_->takeResult()); });
  connect(tagBrowser_, &CRightEditTab::command, this,
          [this] { emit rightCommand(tagBrowser_->takeResult()); });
  connect(loadBrowser_, &CRightLoadTab::selectionChanged, this, &LibraryDesk::choiceChanged);
}

QWidget* LibraryDesk::page(LeftPage page) const {
  switch (page) {
    case LeftPage::Save:
      return savePanel_;
    case LeftPage::Load:
      return loadPanel_;
    case LeftPage::EditTags:
      return tagPanel_;
    default:
      return nullptr;
  }
}

QWidget* LibraryDesk::page(RightPage page) const {
  switch (page) {
    case RightPage::Save:
      return savePage_;
    case RightPage::Load:
      return loadBrowser_;
    case RightPage::EditTags:
      return tagBrowser_;
    default:
      return nullptr;
  }
}

// --- opening -------------------------------------------------------------------

void LibraryDesk::open(const ModeTraits& mode) {
  place_ = {root_ + "\\" + std::string(mode.folder), std::string(mode.filter.substr(1))};
}

void LibraryDesk::openLoad(const ModeTraits& mode) {
  open(mode);
  loadPanel_->open(place_, root_);
  loadPanel_->setPreview({});
  loadBrowser_->open(root_, mode.folder, mode.filter);
}

void LibraryDesk::openTags(const ModeTraits& mode) {
  open(mode);
  tagPanel_->open(place_, root_);
  tagBrowser_->open(root_, mode.folder, mode.filter);
}

void LibraryDesk::openSave(const ModeTraits& mode, std::string_view coreName,
                           const BmpPicture& picture) {
  open(mode);
  savePanel_->setPicture(picture);
  savePanel_->setCoreName(coreName);
  savePage_->open(place_, root_);
  savePage_->setCoreName(savePanel_->coreName());
  savePanel_->setSelectedTags(savePage_->selectedTags());
}

// --- between the pages -----------------------------------------------------------

void LibraryDesk::perform(ModeStep step) {
  switch (step) {
    case ModeStep::TakeSaveTexts:
      savePage_->setCoreName(savePanel_->coreName());
      break;
    case ModeStep::ShowSelectedTags:
      savePanel_->setSelectedTags(savePage_->selectedTags());
      break;
    case ModeStep::WriteSavedTags:
      savePage_->writeTags();
      break;
    case ModeStep::ShowFilteredFiles:
      loadBrowser_->showFiles(loadPanel_->filteredFiles());
      break;
    case ModeStep::ShowAllTaggedFiles:
      tagBrowser_->showAll();
      break;
    case ModeStep::ShowTaggedFiles:
      tagBrowser_->showFiles(tagPanel_->filteredFiles());
      break;
    case ModeStep::ReconstructTagLinks:
      tagPanel_->reconstruct(tagBrowser_->allNames());
      break;
    case ModeStep::UpdateFileTags:
      tagPanel_->updateFileTags();
      break;
    case ModeStep::WriteAllTags:
      tagPanel_->writeAllTags();
      break;
    case ModeStep::UnlinkDeletedFile:
      tagPanel_->unlinkFile(tagBrowser_->deletedName());
      break;
    case ModeStep::ApplyFileTags:
      tagPanel_->applyFileTags(tagBrowser_->selectedName());
      break;
    case ModeStep::HandSelectedFile:
      tagPanel_->selectFile(tagBrowser_->selectedName());
      break;
    default:
      break;
  }
}

void LibraryDesk::pressCancel(RightPage page) {
  switch (page) {
    case RightPage::Save:
      savePage_->pressCancel();
      break;
    case RightPage::Load:
      loadBrowser_->pressCancel();
      break;
    case RightPage::EditTags:
      tagBrowser_->pressFinish();
      break;
    default:
      break;
  }
}

std::string LibraryDesk::coreName() const {
  return savePanel_->coreName();
}

SaveReport LibraryDesk::save(const WriteDataFile& writeData) const {
  return finishSave(place_, savePage_->savedName(), savePanel_->thumbnail(), writeData);
}

std::string LibraryDesk::chosenFile() const {
  return loadBrowser_->selectedFile();
}

QSize LibraryDesk::previewSize() const {
  return loadPanel_->previewSize();
}

qreal LibraryDesk::previewRatio() const {
  return loadPanel_->devicePixelRatioF();
}

void LibraryDesk::setPreview(const QImage& picture) {
  loadPanel_->setPreview(picture);
}

}  // namespace pv
