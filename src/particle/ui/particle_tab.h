#pragma once

#include <array>

#include <QWidget>

#include "particle/particle_settings.h"
#include "particle/ui/particle_tab_layout.h"
#include "ui/ui_context.h"

class QAbstractButton;

namespace pv {

class CSpinCombo;
class ListSelector;
class TextLabel;

/// The page on which the input nodes of the particles' attributes are chosen, and
/// what happens while that input is frozen. Made for 252 × 624 pixels; on a larger
/// page everything stays at its place.
class CParticleTab : public QWidget {
  Q_OBJECT

 public:
  explicit CParticleTab(const UiContext& context, QWidget* parent = nullptr);

  /// All values as they are now, also those whose change is not told.
  [[nodiscard]] const ParticleSettings& state() const { return state_; }
  /// Shows other values and tells nobody.
  void setState(const ParticleSettings& state);
  [[nodiscard]] QSize sizeHint() const override;

 signals:
  /// The user chose another source or moved the trigger; the rest is quiet.
  void command();

 protected:
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void build();
  void buildHeader(const ParticleText& row);
  TextLabel* buildLabel(const ParticleText& row, QWidget* beside);
  void buildSelector(const ParticleSelector& row, ParticleSource which);
  CSpinCombo* buildSlider(const ParticleSlider& row, ParticleRange range);
  QAbstractButton* buildCheck(const ParticleCheck& row, bool ParticleSettings::*value);
  void buildAutoRandoms();

  template <typename Control>
  Control* place(Control* control, int id, const DialogRect& rect);
  void showState();
  void showLook();

  const UiContext& context_;
  ParticleSettings state_;
  std::array<ListSelector*, kParticleSourceCount> selectors_{};
  CSpinCombo* trigger_ = nullptr;
  QAbstractButton* freezeInput_ = nullptr;
  TextLabel* autoRandomLabel_ = nullptr;
  std::array<QAbstractButton*, kAutoRandoms.size()> autoRandoms_{};
  QAbstractButton* rotateInstead_ = nullptr;
  CSpinCombo* rotation_ = nullptr;
  bool labelsFit_ = false;  ///< their font was chosen
};

}  // namespace pv
