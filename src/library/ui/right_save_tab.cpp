#include "library/ui/right_save_tab.h"

#include <utility>

#include <QBoxLayout>
#include <QPainter>

#include "library/file_numbering.h"
#include "library/library_save.h"
#include "library/ui/tag_edit_pane.h"
#include "ui/controls.h"

namespace pv {
namespace {

constexpr int kGap = Skin::kRhythm;
constexpr int kHeader = 28;
constexpr int kSaved = 3;
constexpr int kCancelled = 2;
constexpr int kSelection = 1;

}  // namespace

CRightSaveTab::CRightSaveTab(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kGap, kGap, kGap, kGap);
  column->setSpacing(kGap);
  auto* header = new SectionHeader(context, tr("Available Tags"), this);
  header->setObjectName("8025");
  header->setFixedHeight(kHeader);
  column->addWidget(header);
  pane_ = new TagEditPane(context, deleteMode_, this);
  column->addWidget(pane_, 1);
  buildRow();
  connect(pane_, &TagEditPane::tagClicked, this, &CRightSaveTab::tagClicked);
  connect(pane_, &TagEditPane::deleteToggled, this, [this] { tell(kSelection); });
}

// Behind Delete Tag: what to do, and the ways out.
void CRightSaveTab::buildRow() {
  auto* hint = new TextLabel(context_,
                             tr("Click a Tag to relate it to the saved file. The Save button "
                                "saves the file with the selected Tags."),
                             pane_);
  hint->setObjectName("1147");
  hint->setWordWrap(true);
  auto* save = new TextButton(
      context_, tr("Save"),
      tr("Save:\nSaves the file under the next number of its name,\nwith the selected tags."),
      pane_);
  save->setObjectName("1");
  auto* cancel = new TextButton(context_, tr("Cancel Save"),
                                tr("Cancel Save:\nLeaves without saving."), pane_);
  cancel->setObjectName("2");
  pane_->row().addSpacing(kGap);
  pane_->row().addWidget(hint, 1);
  pane_->row().addSpacing(kGap);
  pane_->row().addWidget(save);
  pane_->row().addWidget(cancel);
  connect(save, &QAbstractButton::clicked, this, &CRightSaveTab::save);
  connect(cancel, &QAbstractButton::clicked, this, &CRightSaveTab::pressCancel);
}

CRightSaveTab::~CRightSaveTab() {
  pane_->cloud().saveUnsaved();
}

void CRightSaveTab::open(const LibraryPlace& place, std::string_view libraryRoot) {
  place_ = place;
  savedName_.clear();
  result_ = 0;
  pane_->open(place, libraryRoot);
}

void CRightSaveTab::setCoreName(std::string_view name) {
  coreName_ = coreNameOf(name);
}

QString CRightSaveTab::selectedTags() const {
  return QString::fromStdString(pane_->cloud().selectedText());
}

bool CRightSaveTab::writeTags() {
  return pane_->cloud().saveAll();
}

int CRightSaveTab::takeResult() {
  return std::exchange(result_, 0);
}

void CRightSaveTab::tell(int result) {
  result_ = result;
  emit command();
}

void CRightSaveTab::tagClicked() {
  if (deleteMode_.tagClicked(pane_->cloud())) {
    pane_->refresh();
  } else {
    tell(kSelection);
  }
}

void CRightSaveTab::save() {
  savedName_ = beginSave(place_, coreName_, pane_->cloud());
  tell(kSaved);
}

// Tags that were added stay in the library. They are written now: later the store
// may be older than the files.
void CRightSaveTab::pressCancel() {
  savedName_.clear();
  pane_->cloud().saveUnsaved();
  tell(kCancelled);
}

QSize CRightSaveTab::sizeHint() const {
  return {612, 554};
}

void CRightSaveTab::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), context_.skin.page);
}

}  // namespace pv
