#include "library/ui/left_save_tab.h"

#include <utility>

#include <QBoxLayout>
#include <QPainter>

#include "library/file_numbering.h"
#include "library/library_place.h"
#include "library/thumbnail.h"
#include "library/ui/file_name_edit.h"
#include "library/ui/picture_button.h"
#include "ui/controls.h"
#include "ui/frame_image.h"
#include "ui/pixel_painter.h"
#include "util/file_name.h"

namespace pv {
namespace {

// Lengths in pixels of 96 dpi.
constexpr int kHeader = 28;
constexpr int kGap = Skin::kRhythm;
constexpr int kSmallGap = 4;
constexpr int kTagBox = 96;
constexpr QSize kThumbnail(kThumbnailWidth, kThumbnailHeight);

QImage imageFrom(const BmpPicture& picture) {
  if (picture.width != kThumbnailWidth || picture.height != kThumbnailHeight ||
      picture.words.size() != std::size_t{kThumbnailWidth} * kThumbnailHeight) {
    return {};
  }
  QImage image;
  copyFrame(picture.words, picture.width, picture.height, image);
  return image;
}

BmpPicture pictureFrom(const QImage& image) {
  BmpPicture picture{image.width(), image.height(), {}};
  picture.words.reserve(static_cast<std::size_t>(image.width() * image.height()));
  for (int row = image.height() - 1; row >= 0; --row) {
    const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(row));
    picture.words.insert(picture.words.end(), line, line + image.width());
  }
  return picture;
}

/// The text on a translucent band at the lower edge, always in these very pixels.
void drawText(QImage& image, const QString& text, const Skin& skin) {
  constexpr int kBand = 15;
  constexpr int kInset = 4;
  constexpr int kBaseline = 4;  // above the lower edge
  QFont font;
  font.setFamilies({"MS Sans Serif", "DejaVu Sans"});
  font.setPixelSize(11);
  font.setStyleStrategy(QFont::NoSubpixelAntialias);
  QColor band = skin.title;
  band.setAlpha(176);
  QPainter painter(&image);
  painter.fillRect(0, image.height() - kBand, image.width(), kBand, band);
  painter.setFont(font);
  painter.setPen(Qt::white);
  const QString shown =
      QFontMetrics(font, &image)
          .elidedText(text.simplified(), Qt::ElideRight, image.width() - 2 * kInset);
  painter.drawText(kInset, image.height() - kBaseline, shown);
}

}  // namespace

CLeftSaveTab::CLeftSaveTab(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, kGap, 0, kGap);
  column->setSpacing(0);  // every gap is said where it is
  buildThumbnail(*column);
  buildFileName(*column);
  buildTags(*column);
  showThumbnail();
  showNameHint();
}

SectionHeader* CLeftSaveTab::addHeader(QBoxLayout& column, const char* id, const QString& text) {
  auto* header = new SectionHeader(context_, text, this);
  header->setObjectName(id);
  header->setFixedHeight(kHeader);
  column.addWidget(header);
  column.addSpacing(kGap);
  return header;
}

TextLabel* CLeftSaveTab::addLabel(QBoxLayout& column, const char* id, const QString& text) {
  auto* label = new TextLabel(context_, text, this);
  label->setObjectName(id);
  column.addWidget(label);
  return label;
}

void CLeftSaveTab::buildThumbnail(QBoxLayout& column) {
  addHeader(column, "8025", tr("Thumbnail"));
  thumbnail_ = new PictureButton(context_, PictureButton::Scaling::Whole, this);
  thumbnail_->setObjectName("8090");
  thumbnail_->setText(tr("thumbnail"));
  thumbnail_->setAccessibleName(tr("Thumbnail"));
  thumbnail_->setFixedSize(kThumbnail * 2 + QSize(4, 4));
  column.addWidget(thumbnail_, 0, Qt::AlignHCenter);
  column.addSpacing(kGap);
  TextLabel* label = addLabel(column, "8097", tr("Thumbnail Text:"));
  textEdit_ = new EditBox(context_, tr("Thumbnail Text"), this);
  textEdit_->setObjectName("8096");
  label->setBuddy(textEdit_);
  column.addSpacing(kSmallGap);
  column.addWidget(textEdit_);
  column.addSpacing(2 * kGap);
  connect(thumbnail_, &QAbstractButton::clicked, textEdit_, [this] { textEdit_->setFocus(); });
  connect(textEdit_, &QLineEdit::textEdited, this, [this](const QString& text) {
    thumbnailText_ = trimmedText(text.toStdString());
    showThumbnail();
    tell();
  });
}

void CLeftSaveTab::buildFileName(QBoxLayout& column) {
  addHeader(column, "8028", tr("Filename"));
  TextLabel* label = addLabel(column, "8099", tr("Core Filename:"));
  nameEdit_ = new FileNameEdit(context_, tr("Core Filename"), this);
  nameEdit_->setObjectName("8092");
  label->setBuddy(nameEdit_);
  column.addSpacing(kSmallGap);
  column.addWidget(nameEdit_);
  column.addSpacing(kSmallGap);
  nameHint_ = new NameHint(context_, this);
  nameHint_->setObjectName("name hint");
  column.addWidget(nameHint_);
  column.addSpacing(kSmallGap);
  addLabel(column, "8098", tr("All filenames will be automatically numbered:\n[filename]-0000"))
      ->setWordWrap(true);
  column.addSpacing(2 * kGap);
  connect(nameEdit_, &QLineEdit::textEdited, this, [this](const QString& text) {
    coreName_ = coreNameOf(text.toStdString());
    showNameHint();
    tell();
  });
  connect(nameEdit_, &FileNameEdit::refused, this,
          [this] { nameHint_->setText(tr(kRefusedText)); });
}

void CLeftSaveTab::buildTags(QBoxLayout& column) {
  addHeader(column, "8029", tr("Tags"));
  auto* line = new QHBoxLayout;
  line->setSpacing(kGap);
  auto* icon = new IconButton(context_, "/bin/program/tag.png", this);
  icon->setObjectName("8101");
  icon->setAccessibleName(tr("Tags"));
  line->addWidget(icon);
  TextLabel* label = addLabel(*line, "8100", tr("These Tags have been selected:"));
  line->setStretchFactor(label, 1);
  column.addLayout(line);
  column.addSpacing(kSmallGap);
  tags_ = new TextBoxButton(context_, tr("Selected Tags"),
                            tr("(Use the Right panel to add and select tags)"), this);
  tags_->setObjectName("8102");
  tags_->setMinimumHeight(kTagBox);
  column.addWidget(tags_, 1);
}

void CLeftSaveTab::setCoreName(std::string_view name) {
  nameEdit_->setText(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
  coreName_ = coreNameOf(nameEdit_->text().toStdString());
  showNameHint();
}

void CLeftSaveTab::setPicture(const BmpPicture& picture) {
  picture_ = imageFrom(picture);
  showThumbnail();
}

QImage CLeftSaveTab::thumbnailImage() const {
  QImage image = picture_;
  if (image.isNull()) {
    image = QImage(kThumbnail, QImage::Format_RGB32);
    image.fill(context_.skin.title);
  }
  if (!thumbnailText_.empty()) {
    drawText(image, QString::fromStdString(thumbnailText_), context_.skin);
  }
  return image;
}

BmpPicture CLeftSaveTab::thumbnail() const {
  return pictureFrom(thumbnailImage());
}

void CLeftSaveTab::setSelectedTags(const QString& tags) {
  tags_->showText(tags);
}

int CLeftSaveTab::takeResult() {
  return std::exchange(result_, 0);
}

QSize CLeftSaveTab::sizeHint() const {
  return {252, 624};
}

void CLeftSaveTab::showThumbnail() {
  thumbnail_->setPicture(thumbnailImage());
}

void CLeftSaveTab::showNameHint() {
  // What is tried is a numbered name: the core may be what no whole name may be.
  const bool usable = isValidFileName(coreName_ + "-0000");
  nameHint_->setText(coreName_.empty() ? tr("Without a name nothing is saved.")
                     : !usable         ? tr("No file can be saved by this name.")
                                       : QString());
}

void CLeftSaveTab::tell() {
  result_ = 1;
  emit command();
}

void CLeftSaveTab::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), context_.skin.page);
}

}  // namespace pv
