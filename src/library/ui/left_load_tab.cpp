#include "library/ui/left_load_tab.h"

#include <QBoxLayout>
#include <QPainter>

#include "library/ui/picture_button.h"
#include "library/ui/tag_cloud_widget.h"
#include "ui/controls.h"

namespace pv {
namespace {

constexpr int kGap = Skin::kRhythm;
constexpr int kHeader = 28;
constexpr QSize kShape(4, 3);

SectionHeader* makeHeader(const UiContext& context, const char* id, const QString& text,
                          QWidget* parent) {
  auto* header = new SectionHeader(context, text, parent);
  header->setObjectName(id);
  header->setFixedHeight(kHeader);
  return header;
}

}  // namespace

CLeftLoadTab::CLeftLoadTab(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  preview_ = new PictureButton(context, PictureButton::Scaling::Fit, this);
  preview_->setObjectName("8090");
  preview_->setText(tr("Select a file to see it here."));
  preview_->setAccessibleName(tr("Preview"));
  cloud_ = new TagCloudWidget(context, this);
  cloud_->setEmptyText(tr("There are no tags yet."));
  auto* hint = new TextLabel(context,
                             tr("Click a tag to show related file.\n"
                                "ctrl+click a tag to not show related files."),
                             this);
  hint->setObjectName("8098");
  hint->setWordWrap(true);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, kGap, 0, kGap);
  column->setSpacing(kGap);
  column->addWidget(makeHeader(context, "8025", tr("Preview"), this));
  column->addWidget(preview_);
  column->addWidget(makeHeader(context, "8028", tr("Available Tags"), this));
  column->addWidget(cloud_, 1);
  column->addWidget(hint);
  connect(cloud_, &TagCloudWidget::clicked, this, [this] {
    filteredFiles_ = cloud_->cloud().filterFiles();
    emit command();
  });
}

void CLeftLoadTab::open(const LibraryPlace& place, std::string_view libraryRoot) {
  CTagCloud& cloud = cloud_->cloud();
  cloud.clear();
  cloud.setFolder(place.folder, libraryRoot);
  cloud.loadAll();
  cloud_->rewind();
  filteredFiles_.clear();
  setPreview({});
}

QSize CLeftLoadTab::previewSize() const {
  return kShape.scaled(preview_->room(), Qt::KeepAspectRatio);
}

void CLeftLoadTab::setPreview(const QImage& picture) {
  preview_->setPicture(picture);
}

QSize CLeftLoadTab::sizeHint() const {
  return {252, 624};
}

void CLeftLoadTab::resizeEvent(QResizeEvent* /*event*/) {
  constexpr int kFrame = 2;
  preview_->setFixedHeight((width() - kFrame) * kShape.height() / kShape.width() + kFrame);
}

void CLeftLoadTab::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), context_.skin.page);
}

}  // namespace pv
