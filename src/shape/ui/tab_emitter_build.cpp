#include <string>
#include <utility>

#include <QBoxLayout>

#include "shape/ui/tab_emitter.h"
#include "ui/controls.h"
#include "ui/image_button.h"
#include "ui/pixel_painter.h"
#include "ui/spin_combo.h"

namespace pv {
namespace {

// Lengths in pixels of 96 dpi. The heights together fill the left panel; all are
// even, so that edges fall on whole pixels at one and a half times the size too.
constexpr int kRow = 24;
constexpr int kHeader = 20;
constexpr int kButtonRow = 32;
constexpr int kSmallGap = 4;
constexpr int kGap = Skin::kRhythm;
constexpr int kShare = 25;  // of the room that the buttons of a row divide

QHBoxLayout* addRow(QVBoxLayout& column, int spacing) {
  auto* row = new QHBoxLayout;
  row->setContentsMargins({});
  row->setSpacing(spacing);
  column.addLayout(row);
  return row;
}

ImageButton::Joint jointOf(std::size_t place, std::size_t count) {
  using enum ImageButton::Joint;
  return count == 1 ? Single : place == 0 ? First : place + 1 == count ? Last : Middle;
}

// Puts buttons of the given width side by side as one piece; those of width 0
// share all the room.
void addJoined(QHBoxLayout& row, std::span<QAbstractButton* const> group, int eachWidth) {
  for (std::size_t i = 0; i < group.size(); ++i) {
    if (auto* button = qobject_cast<ImageButton*>(group[i])) {
      button->setJoint(jointOf(i, group.size()));
    }
    group[i]->setFixedHeight(kButtonRow);
    if (eachWidth > 0) {
      group[i]->setFixedWidth(eachWidth);
    } else {
      group[i]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }
    row.addWidget(group[i], kShare);
  }
}

// An image that is not a button.
class Picture : public QWidget {
 public:
  Picture(const UiContext& context, std::string image, QWidget* parent)
      : QWidget(parent), context_(context) {
    image_.setName(std::move(image));
    setFixedSize(kRow, kRow);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    PixelPainter painter(*this, context_.skin);
    image_.paint(painter, context_.images, rect());
  }

 private:
  const UiContext& context_;
  SkinImage image_;
};

}  // namespace

void CTabEmitter::build() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, kGap, 0, 0);
  column->setSpacing(0);
  addKinds(*column);
  addFileButtons(*column);
  addSections(*column);
  addDuplicates(*column);
  addMapping(*column);
  addCount(*column);
  column->addStretch();
}

void CTabEmitter::addKinds(QVBoxLayout& column) {
  for (std::size_t i = 0; i < kinds_.size(); ++i) {
    kinds_[i] = makeImageButton(kKindButtons[i]);
    kinds_[i]->setCheckable(true);
    connect(kinds_[i], &QAbstractButton::clicked, this,
            [this, i] { chooseKind(static_cast<EmitterKind>(i)); });
  }
  QHBoxLayout* row = addRow(column, 0);
  addJoined(*row, kinds_, 0);
  row->setStretch(2, kShare + 1);  // 252 pixels are four times 50 and once 52
  column.addSpacing(kGap);
}

void CTabEmitter::addFileButtons(QVBoxLayout& column) {
  constexpr int kWidth = 40;
  const std::array files{makeImageButton(kFileButtons[0]), makeImageButton(kFileButtons[1])};
  connect(files[0], &QAbstractButton::clicked, this, [this] { request(1); });
  connect(files[1], &QAbstractButton::clicked, this, [this] { request(2); });
  editPath_ = makeImageButton(kFileButtons[2]);
  editPath_->setCheckable(true);
  connect(editPath_, &QAbstractButton::clicked, this, &CTabEmitter::toggleEditPath);

  QHBoxLayout* row = addRow(column, 0);
  addJoined(*row, files, kWidth);
  row->addSpacing(kGap);
  row->addWidget(makeHeader(8025, tr("Emitter Path")), 1);
  row->addSpacing(kSmallGap);
  addJoined(*row, {&editPath_, 1}, kWidth);
  column.addSpacing(kGap);
}

void CTabEmitter::addSections(QVBoxLayout& column) {
  addHeader(column, 8037, tr("Horizontal Sections"));
  addSlider(column, SliderAt::HorizontalAmount);
  addSlider(column, SliderAt::HorizontalSize);
  addSlider(column, SliderAt::HorizontalEnd);
  addCheck(column, CheckAt::HorizontalCentre);
  column.addSpacing(kGap);
  verticalHeader_ = addHeader(column, 8038, tr("Vertical Rotations"));
  addSlider(column, SliderAt::VerticalAmount);
  addSlider(column, SliderAt::VerticalSize);
  addCheck(column, CheckAt::VerticalCentre);
  column.addSpacing(kGap);
}

void CTabEmitter::addDuplicates(QVBoxLayout& column) {
  addHeader(column, 8030, tr("Emitter Duplicate"));
  addSlider(column, SliderAt::Copies);
  addCheck(column, CheckAt::ModifiersGlobally);
  addCheck(column, CheckAt::WorldAxis);
  addAxes(column);
  addSlider(column, SliderAt::Position);
  addSlider(column, SliderAt::Rotation);
  addSlider(column, SliderAt::Scale);
  column.addSpacing(kGap);
}

void CTabEmitter::addAxes(QVBoxLayout& column) {
  column.addSpacing(kSmallGap);
  QHBoxLayout* row = addRow(column, kSmallGap);
  for (std::size_t i = 0; i < axes_.size(); ++i) {
    axes_[i] = makeTextButton(kAxisButtons[i]);
    axes_[i]->setCheckable(true);
    connect(axes_[i], &QAbstractButton::clicked, this,
            [this, i] { chooseAxis(static_cast<std::int32_t>(i)); });
    row->addWidget(axes_[i], 1);
  }
  row->addSpacing(kGap);
  QAbstractButton* reset = makeTextButton(kAxisResetButton);
  connect(reset, &QAbstractButton::clicked, this, &CTabEmitter::resetAxis);
  row->addWidget(reset, 1);
  column.addSpacing(kSmallGap);
}

void CTabEmitter::addMapping(QVBoxLayout& column) {
  addHeader(column, 8092, tr("Duplicate Texture Mapping"));
  for (std::size_t i = 0; i < mappings_.size(); ++i) {
    mappings_[i] = makeImageButton(kMappingButtons[i]);
    mappings_[i]->setCheckable(true);
    connect(mappings_[i], &QAbstractButton::clicked, this,
            [this, i] { chooseMapping(static_cast<DuplicateMapping>(i)); });
  }
  addJoined(*addRow(column, 0), mappings_, 0);
  column.addSpacing(kGap);
}

void CTabEmitter::addCount(QVBoxLayout& column) {
  QHBoxLayout* row = addRow(column, kGap);
  auto* icon = new Picture(context_, kCountImage, this);
  icon->setObjectName("8060");
  row->addWidget(icon);
  count_ = new TextLabel(context_, {}, this);
  count_->setObjectName("8061");
  row->addWidget(count_, 1);
}

SectionHeader* CTabEmitter::makeHeader(int id, const QString& title) {
  auto* header = new SectionHeader(context_, title, this);
  header->setObjectName(QString::number(id));
  header->setFixedHeight(kHeader);
  return header;
}

SectionHeader* CTabEmitter::addHeader(QVBoxLayout& column, int id, const QString& title) {
  SectionHeader* header = makeHeader(id, title);
  column.addWidget(header);
  column.addSpacing(kSmallGap);
  return header;
}

void CTabEmitter::addSlider(QVBoxLayout& column, SliderAt at) {
  const EmitterSlider& row = kEmitterSliders[static_cast<std::size_t>(at)];
  auto* made =
      new CSpinCombo(context_, QString::fromUtf8(row.label), QString::fromUtf8(row.help), this);
  made->setObjectName(QString::number(row.id));
  made->setRange(row.range.low, row.range.high);
  made->setImages(std::string(row.images.high), std::string(row.images.low));
  made->setFixedHeight(kRow);
  connect(made, &CSpinCombo::valueChanged, this, [this, &row](int value) {
    row.value(state_) = value;
    notify();
  });
  column.addWidget(made);
  sliders_[static_cast<std::size_t>(at)] = made;
}

void CTabEmitter::addCheck(QVBoxLayout& column, CheckAt at) {
  const EmitterCheck& row = kEmitterChecks[static_cast<std::size_t>(at)];
  auto* made =
      new CheckBox(context_, QString::fromUtf8(row.caption), QString::fromUtf8(row.help), this);
  made->setObjectName(QString::number(row.id));
  made->setAccessibleName(QString::fromUtf8(row.name));
  made->setFixedHeight(kRow);
  connect(made, &CheckBox::clicked, this, [this, &row](bool on) {
    row.set(state_, on);
    notify();
  });
  column.addWidget(made);
  checks_[static_cast<std::size_t>(at)] = made;
}

QAbstractButton* CTabEmitter::makeImageButton(const EmitterButton& row) {
  auto* button = new ImageButton(context_, row.face, QString::fromUtf8(row.help), this);
  button->setObjectName(QString::number(row.id));
  return button;
}

QAbstractButton* CTabEmitter::makeTextButton(const EmitterButton& row) {
  auto* button =
      new TextButton(context_, QString::fromUtf8(row.face), QString::fromUtf8(row.help), this);
  button->setObjectName(QString::number(row.id));
  button->setFixedHeight(kRow);
  return button;
}

}  // namespace pv
