#pragma once

#include <array>
#include <span>

#include <QWidget>

#include "shape/emitter_page.h"
#include "shape/ui/emitter_page_controls.h"
#include "ui/ui_context.h"

class QAbstractButton;
class QVBoxLayout;

namespace pv {

class CheckBox;
class CSpinCombo;
class SectionHeader;
class TextLabel;

/// The page on which the emitter kind, its sections, the duplicates and their
/// texture mapping are set, and from which shapes are loaded and saved and the
/// path editor is opened.
class CTabEmitter : public QWidget {
  Q_OBJECT

 public:
  explicit CTabEmitter(const UiContext& context, QWidget* parent = nullptr);

  [[nodiscard]] const EmitterPageState& state() const { return state_; }
  /// Shows another state and tells nobody. The mapping buttons stay as they are:
  /// they show what the user chose last, not what was loaded. A negative count
  /// of path points is not taken over.
  void setState(const EmitterPageState& state);
  /// The figure for the count line after a regeneration; not below 0.
  void setPathPointCount(std::int32_t count);

  /// 1 while a press of Load is being told, 2 for Save, otherwise 0.
  [[nodiscard]] int pendingRequest() const { return pendingRequest_; }
  /// 1 while Edit Path is lit, otherwise -1.
  [[nodiscard]] int editPathRequest() const { return editPathRequest_; }
  void releaseEditPath();

 signals:
  /// The user changed or asked for something; once for each.
  void command();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void build();
  void addKinds(QVBoxLayout& column);
  void addFileButtons(QVBoxLayout& column);
  void addSections(QVBoxLayout& column);
  void addDuplicates(QVBoxLayout& column);
  void addAxes(QVBoxLayout& column);
  void addMapping(QVBoxLayout& column);
  void addCount(QVBoxLayout& column);
  SectionHeader* makeHeader(int id, const QString& title);
  SectionHeader* addHeader(QVBoxLayout& column, int id, const QString& title);
  void addSlider(QVBoxLayout& column, SliderAt at);
  void addCheck(QVBoxLayout& column, CheckAt at);
  QAbstractButton* makeImageButton(const EmitterButton& row);
  QAbstractButton* makeTextButton(const EmitterButton& row);

  void chooseKind(EmitterKind kind);
  void chooseAxis(std::int32_t axis);
  void resetAxis();
  void chooseMapping(DuplicateMapping mapping);
  void request(int code);
  void toggleEditPath();
  void notify();

  [[nodiscard]] CSpinCombo& slider(SliderAt at) { return *sliders_[static_cast<std::size_t>(at)]; }
  [[nodiscard]] CheckBox& check(CheckAt at) { return *checks_[static_cast<std::size_t>(at)]; }
  void showState();
  void showLook();
  void showCount();

  const UiContext& context_;
  EmitterPageState state_;
  int pendingRequest_ = 0;
  int editPathRequest_ = -1;

  std::array<QAbstractButton*, 5> kinds_{};
  QAbstractButton* editPath_ = nullptr;
  SectionHeader* verticalHeader_ = nullptr;
  std::array<CSpinCombo*, kEmitterSliderCount> sliders_{};
  std::array<CheckBox*, kEmitterCheckCount> checks_{};
  std::array<QAbstractButton*, 3> axes_{};
  std::array<QAbstractButton*, 3> mappings_{};
  TextLabel* count_ = nullptr;
};

}  // namespace pv
