#include "library/ui/tag_edit_pane.h"

#include <string>

#include <QBoxLayout>

#include "library/ui/file_name_edit.h"
#include "library/ui/picture_button.h"
#include "library/ui/tag_cloud_widget.h"
#include "ui/controls.h"
#include "util/file_name.h"

namespace pv {
namespace {

QString fullText() {
  return QString::fromUtf8(kTagsFullText.data(), kTagsFullText.size());
}

}  // namespace

TagEditPane::TagEditPane(const UiContext& context, TagDeleteMode& mode, QWidget* parent)
    : QWidget(parent), context_(context), mode_(mode) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(Skin::kRhythm / 2);
  buildEdit(*column);
  buildCloud(*column);
}

void TagEditPane::buildEdit(QBoxLayout& column) {
  auto* line = new QHBoxLayout;
  line->setSpacing(Skin::kRhythm);
  auto* icon = new IconButton(context_, "/bin/program/tag.png", this);
  icon->setObjectName("8093");
  icon->setAccessibleName(tr("New Tag"));
  edit_ = new FileNameEdit(context_, tr("New Tag"), this);
  edit_->setObjectName("8091");
  edit_->setPlaceholderText(tr("New tag"));
  auto* add = new TextButton(
      context_, tr("Add Tag"),
      tr("Add Tag:\nAdds the typed text to the library's tags.\nEnter in the field does the same."),
      this);
  add->setObjectName("8094");
  hint_ = new NameHint(context_, this);
  hint_->setObjectName("tag hint");
  line->addWidget(icon);
  line->addWidget(edit_, 1);
  line->addWidget(add);
  column.addLayout(line);
  column.addWidget(hint_);
  connect(icon, &QAbstractButton::clicked, edit_, [this] { edit_->setFocus(); });
  connect(add, &QAbstractButton::clicked, this, &TagEditPane::addTag);
  connect(edit_, &EditBox::enterPressed, this, &TagEditPane::addTag);
  connect(edit_, &QLineEdit::textEdited, this, &TagEditPane::showNameHint);
  connect(edit_, &FileNameEdit::refused, this, [this] { hint_->setText(tr(kRefusedText)); });
}

void TagEditPane::buildCloud(QBoxLayout& column) {
  view_ = new TagCloudWidget(context_, this);
  view_->setEmptyText(tr("There are no tags yet."));
  delete_ = new TextButton(
      context_, tr("Delete Tag"),
      tr("Delete Tag:\nWhile this is lit, a click on a tag deletes it\nfrom the library."), this);
  delete_->setObjectName("8096");
  delete_->setCheckable(true);
  row_ = new QHBoxLayout;
  row_->setSpacing(Skin::kRhythm);
  row_->addWidget(delete_);
  column.addWidget(view_, 1);
  column.addSpacing(Skin::kRhythm / 2);
  column.addLayout(row_);
  connect(view_, &TagCloudWidget::clicked, this, &TagEditPane::tagClicked);
  connect(delete_, &QAbstractButton::clicked, this, [this] {
    mode_.toggle(cloud());
    refresh();
    emit deleteToggled();
  });
}

CTagCloud& TagEditPane::cloud() {
  return view_->cloud();
}

const CTagCloud& TagEditPane::cloud() const {
  return view_->cloud();
}

void TagEditPane::open(const LibraryPlace& place, std::string_view libraryRoot) {
  mode_.end();
  edit_->clear();
  hint_->clear();
  cloud().clear();
  cloud().setFolder(place.folder, libraryRoot);
  if (cloud().loadAll() > 0) {
    hint_->setText(fullText());
  }
  refresh();
  view_->rewind();
}

void TagEditPane::refresh() {
  delete_->setChecked(mode_.on());
  view_->setDeleting(mode_.on());
  view_->refresh();
}

// As it stands, also where a tag of that name is there already.
void TagEditPane::addTag() {
  const std::string name = edit_->text().toStdString();
  if (!name.empty()) {
    if (cloud().addTag(name) == AddTagResult::Full) {
      hint_->setText(fullText());
    } else {
      showNameHint();
      view_->refresh();
      view_->scrollTo(cloud().count() - 1);
    }
    edit_->selectAll();
  }
  edit_->setFocus();
}

void TagEditPane::showNameHint() {
  const QString text = edit_->text();
  const bool usable = text.isEmpty() || isValidFileName(text.toStdString());
  hint_->setText(usable ? QString() : tr("A tag of this name cannot be stored."));
}

}  // namespace pv
