#include "shape/ui/tab_emitter.h"

#include <span>
#include <string>
#include <string_view>

#include <QAbstractButton>
#include <QPainter>

#include "ui/controls.h"
#include "ui/spin_combo.h"

namespace pv {
namespace {

QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// Lights one button of a group; none where there is no such button.
void light(std::span<QAbstractButton* const> group, std::int32_t chosen) {
  for (std::size_t i = 0; i < group.size(); ++i) {
    group[i]->setChecked(static_cast<std::int32_t>(i) == chosen);
  }
}

}  // namespace

CTabEmitter::CTabEmitter(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  build();
  showState();
  light(mappings_, static_cast<std::int32_t>(state_.mapping));
}

// --- what the user does ------------------------------------------------------

void CTabEmitter::notify() {
  emit command();
  showCount();
}

void CTabEmitter::chooseKind(EmitterKind kind) {
  chooseEmitterKind(state_, kind);
  showState();
  notify();
}

void CTabEmitter::chooseAxis(std::int32_t axis) {
  state_.emitter.selectedAxis = axis;
  showState();
  notify();
}

void CTabEmitter::resetAxis() {
  resetDuplicateAxis(state_.selectedAxis(), state_.selectedIndex());
  showState();
  notify();
}

// Only the saved shape holds the mapping, so there is nothing to regenerate.
void CTabEmitter::chooseMapping(DuplicateMapping mapping) {
  state_.mapping = mapping;
  light(mappings_, static_cast<std::int32_t>(mapping));
}

void CTabEmitter::request(int code) {
  pendingRequest_ = code;
  notify();
  pendingRequest_ = 0;
}

void CTabEmitter::toggleEditPath() {
  editPath_->setChecked(!editPath_->isChecked());
  editPathRequest_ = editPath_->isChecked() ? 1 : -1;
  notify();
}

// --- what the page shows -----------------------------------------------------

void CTabEmitter::setState(const EmitterPageState& state) {
  const std::int32_t pathPoints = state_.emitter.pathPointCount;
  state_ = state;
  if (state_.emitter.pathPointCount < 0) {
    state_.emitter.pathPointCount = pathPoints;
  }
  showState();
}

void CTabEmitter::setPathPointCount(std::int32_t count) {
  if (count >= 0) {
    state_.emitter.pathPointCount = count;
    showCount();
  }
}

void CTabEmitter::releaseEditPath() {
  editPath_->setChecked(false);
  editPathRequest_ = -1;
}

void CTabEmitter::showState() {
  showLook();
  for (std::size_t i = 0; i < sliders_.size(); ++i) {
    sliders_[i]->setValue(kEmitterSliders[i].value(state_));
  }
  for (std::size_t i = 0; i < checks_.size(); ++i) {
    checks_[i]->setChecked(kEmitterChecks[i].isSet(state_));
  }
  light(kinds_, static_cast<std::int32_t>(state_.emitter.kind));
  light(axes_, static_cast<std::int32_t>(state_.selectedIndex()));
  showCount();
}

void CTabEmitter::showLook() {
  const EmitterPageLook look = emitterPageLook(state_.emitter.kind);
  const auto relabel = [](CSpinCombo& control, const QString& group, std::string_view label,
                          PageRange range, const PageImages& images) {
    control.setLabel(text(label));
    control.setAccessibleName(group + ' ' + text(label).chopped(1));
    control.setRange(range.low, range.high);
    control.setImages(std::string(images.high), std::string(images.low));
  };
  relabel(slider(SliderAt::HorizontalSize), tr("Horizontal"), look.horizontalSizeLabel,
          look.horizontalSize, look.horizontalSizeImages);
  relabel(slider(SliderAt::VerticalSize), tr("Vertical"), look.verticalSizeLabel, look.verticalSize,
          look.verticalSizeImages);
  slider(SliderAt::VerticalAmount)
      .setImages(std::string(look.verticalAmountImages.high),
                 std::string(look.verticalAmountImages.low));
  verticalHeader_->setText(text(look.verticalHeader));

  slider(SliderAt::HorizontalAmount).setEnabled(look.horizontalSections);
  slider(SliderAt::HorizontalSize).setEnabled(look.horizontalSections);
  check(CheckAt::HorizontalCentre).setEnabled(look.horizontalSections);
  slider(SliderAt::HorizontalEnd).setEnabled(look.horizontalEnd);
  slider(SliderAt::VerticalAmount).setEnabled(look.verticalSections);
  slider(SliderAt::VerticalSize).setEnabled(look.verticalSections);
  check(CheckAt::VerticalCentre).setEnabled(look.verticalSections);
  editPath_->setEnabled(look.editPath);
}

void CTabEmitter::showCount() {
  count_->setText(text(emitterCountText(state_.emitter)));
}

void CTabEmitter::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), context_.skin.page);
}

}  // namespace pv
