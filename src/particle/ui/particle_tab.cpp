#include "particle/ui/particle_tab.h"

#include <algorithm>

#include <QAbstractButton>
#include <QPainter>

#include "ui/controls.h"
#include "ui/image_button.h"
#include "ui/list_selector.h"
#include "ui/pixel_painter.h"
#include "ui/popup_help.h"
#include "ui/spin_combo.h"

namespace pv {
namespace {

// Headers are higher than the bars in them, which keep a little air.
constexpr int kBarHeight = 20;

QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// Narrow enough that every label fits before its control, whatever the font is;
// one width for all of them. Texts shrink with the stretch but for rounding, so the
// search begins near its end: each stretch that is looked at is a font to load.
QFont labelFont(const Skin& skin) {
  constexpr int kNarrowest = 70;  // per cent
  constexpr int kSpare = 2;
  QFont font = skin.font;
  const auto shareOf = [&font](const ParticleText& label) {
    const int width = QFontMetrics(font).horizontalAdvance(label.text);
    return static_cast<double>(inPixels(label.rect).width) / std::max(width, 1);
  };
  const auto least = [&shareOf] {
    double share = shareOf(kAutoRandomLabel);
    for (const ParticleSelector& row : kParticleSelectors) {
      share = std::min(share, shareOf(row.label));
    }
    return share;
  };
  int stretch = std::clamp(static_cast<int>(100 * least()) + kSpare, kNarrowest, 100);
  for (font.setStretch(stretch); stretch > kNarrowest && least() < 1; font.setStretch(stretch)) {
    --stretch;
  }
  return font;
}

/// A label whose text stands on one line with the text of the control beside it.
class RowLabel : public TextLabel {
 public:
  RowLabel(const UiContext& context, const QString& text, QWidget* parent)
      : TextLabel(context, text, parent), context_(context) {}

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    const double middle = QRectF(buddy()->geometry()).center().y() - y();
    constexpr double kLine = 20;
    constexpr double kSpare = 2;  // what rounding may add to the text's width
    PixelPainter painter(*this, context_.skin);
    painter.text({0, middle - kLine / 2, width() + kSpare, kLine}, Qt::AlignLeft, text(),
                 context_.skin.text, font());
  }

 private:
  const UiContext& context_;
};

}  // namespace

CParticleTab::CParticleTab(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  build();
  showState();
  resize(CParticleTab::sizeHint());
}

// --- the controls, in reading order, which is the order of the Tab key ---------

void CParticleTab::build() {
  const auto selector = [this](ParticleSource which) {
    buildSelector(kParticleSelectors[static_cast<std::size_t>(which)], which);
  };
  buildHeader(kVertexHeader);
  selector(ParticleSource::Colour);
  selector(ParticleSource::Size);
  selector(ParticleSource::Active);
  trigger_ = buildSlider(kTriggerSlider, kTriggerRange);
  connect(trigger_, &CSpinCombo::valueChanged, this, [this](int value) {
    state_.trigger = value;
    emit command();
  });

  buildHeader(kDisplacementHeader);
  selector(ParticleSource::DisplaceX);
  selector(ParticleSource::DisplaceY);
  selector(ParticleSource::DisplaceZ);

  buildHeader(kInputHeader);
  freezeInput_ = buildCheck(kFreezeInputCheck, &ParticleSettings::freezeInput);
  buildAutoRandoms();
  rotateInstead_ = buildCheck(kRotateInsteadCheck, &ParticleSettings::rotateInsteadOfRandom);
  rotation_ = buildSlider(kRotationSlider, kRotationRange);
  connect(rotation_, &CSpinCombo::valueChanged, this,
          [this](int value) { state_.rotation = value; });
}

template <typename Control>
Control* CParticleTab::place(Control* control, int id, const DialogRect& rect) {
  const DialogRect pixels = inPixels(rect);
  control->setObjectName(QString::number(id));
  control->setGeometry(pixels.x, pixels.y, pixels.width, pixels.height);
  return control;
}

void CParticleTab::buildHeader(const ParticleText& row) {
  auto* header = place(new SectionHeader(context_, tr(row.text), this), row.id, row.rect);
  const int air = header->height() - kBarHeight;
  header->setContentsMargins(0, air / 2, 0, air - air / 2);
}

TextLabel* CParticleTab::buildLabel(const ParticleText& row, QWidget* beside) {
  auto* label = place(new RowLabel(context_, tr(row.text), this), row.id, row.rect);
  label->setBuddy(beside);
  return label;
}

void CParticleTab::buildSelector(const ParticleSelector& row, ParticleSource which) {
  auto* made =
      place(new ListSelector(context_, CPopup::titleOf(tr(row.label.text)), tr(row.help), this),
            row.id, row.rect);
  for (const std::string_view name : sourceNames(which)) {
    made->addItem(text(name));
  }
  buildLabel(row.label, made);
  connect(made, &ListSelector::activated, this, [this, which](int place) {
    if (chooseSource(state_, which, place)) {
      emit command();
    }
  });
  selectors_[static_cast<std::size_t>(which)] = made;
}

CSpinCombo* CParticleTab::buildSlider(const ParticleSlider& row, ParticleRange range) {
  auto* made = place(new CSpinCombo(context_, tr(row.text), tr(row.help), this), row.id, row.rect);
  made->setRange(range.low, range.high);
  made->setImages(row.highImage, row.lowImage);
  return made;
}

QAbstractButton* CParticleTab::buildCheck(const ParticleCheck& row, bool ParticleSettings::*value) {
  auto* made = place(new CheckBox(context_, tr(row.text), tr(row.help), this), row.id, row.rect);
  connect(made, &CheckBox::clicked, this, [this, value](bool on) {
    state_.*value = on;
    showLook();
  });
  return made;
}

void CParticleTab::buildAutoRandoms() {
  using enum ImageButton::Joint;
  constexpr std::array kJoints{First, Middle, Last};
  for (std::size_t i = 0; i < autoRandoms_.size(); ++i) {
    const ParticleCheck& row = kAutoRandomButtons[i];
    auto* made =
        place(new ImageButton(context_, std::string(), tr(row.help), this), row.id, row.rect);
    made->setText(tr(row.text));
    made->setJoint(kJoints[i]);
    made->setCheckable(true);
    connect(made, &ImageButton::clicked, this, [this, i] {
      state_.autoRandom = kAutoRandoms[i];
      showLook();
    });
    autoRandoms_[i] = made;
  }
  autoRandomLabel_ = buildLabel(kAutoRandomLabel, autoRandoms_.front());
}

// --- what the page shows -----------------------------------------------------

void CParticleTab::setState(const ParticleSettings& state) {
  state_ = state;
  showState();
}

void CParticleTab::showState() {
  for (std::size_t i = 0; i < selectors_.size(); ++i) {
    selectors_[i]->setCurrentIndex(state_.sources[i]);
  }
  trigger_->setValue(state_.trigger);
  freezeInput_->setChecked(state_.freezeInput);
  rotateInstead_->setChecked(state_.rotateInsteadOfRandom);
  rotation_->setValue(state_.rotation);
  showLook();
}

void CParticleTab::showLook() {
  const ParticlePageLook look = particlePageLook(state_);
  autoRandomLabel_->setEnabled(look.autoRandom);
  for (std::size_t i = 0; i < autoRandoms_.size(); ++i) {
    autoRandoms_[i]->setEnabled(look.autoRandom);
    autoRandoms_[i]->setChecked(kAutoRandoms[i] == look.lit);
  }
  rotateInstead_->setEnabled(look.rotateInsteadOfRandom);
  rotation_->setEnabled(look.rotation);
}

QSize CParticleTab::sizeHint() const {
  const DialogRect page = inPixels(kParticlePage);
  return {page.width, page.height};
}

// Not before, as it takes its time and most windows open with another page.
void CParticleTab::showEvent(QShowEvent* event) {
  if (!labelsFit_) {
    labelsFit_ = true;
    const QFont font = labelFont(context_.skin);
    for (TextLabel* label : findChildren<TextLabel*>(Qt::FindDirectChildrenOnly)) {
      label->setFont(font);
    }
  }
  QWidget::showEvent(event);
}

void CParticleTab::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), context_.skin.page);
}

}  // namespace pv
