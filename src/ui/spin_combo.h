#pragma once

#include <cstdint>
#include <string>

#include <QWidget>

#include "ui/pixel_painter.h"
#include "ui/ui_context.h"

namespace pv {

class EditBox;

/// A whole number in a range: label, image of the low end, track, image of the
/// high end and a number field. Dragging or clicking the track sets the value;
/// Ctrl+click goes one step towards the pointer; arrow keys step, Page keys step
/// by ten, Home and End go to the ends; the wheel steps only while the control
/// has the focus. The field takes a number and Enter, with a decimal comma or
/// point (cut to the whole number) and refuses nonsense by showing the old value.
///
/// A value outside the range, as files may bring, is kept and shown in the field
/// until the user moves the control; the track shows the nearest end.
class CSpinCombo : public QWidget {
  Q_OBJECT

 public:
  CSpinCombo(const UiContext& context, const QString& label, const QString& help,
             QWidget* parent = nullptr);

  void setLabel(const QString& label);
  /// The high end's image first, as pages name their pairs; empty for none.
  void setImages(std::string high, std::string low);
  /// The value stays, also outside the range.
  void setRange(int low, int high);
  [[nodiscard]] int low() const { return low_; }
  [[nodiscard]] int high() const { return high_; }
  [[nodiscard]] int value() const { return value_; }
  /// Shows a value without telling anybody.
  void setValue(int value);
  /// As if the user had moved the control; cut to the range.
  void moveTo(int value) { change(value); }
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 signals:
  /// The user changed the value.
  void valueChanged(int value);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void change(std::int64_t value);
  /// From what stands in the field, where that is a number.
  void step(std::int64_t by);
  [[nodiscard]] bool stepByKey(int key);
  void editField();
  void takeField();
  void showInField();
  void paintTrack(PixelPainter& painter);
  void measureLabel();
  [[nodiscard]] int iconWidth() const;
  [[nodiscard]] QRect fieldRect() const;
  [[nodiscard]] QRect trackRect() const;
  /// Where a value stands on the track; outside the range at the nearest end.
  [[nodiscard]] double positionOf(int value) const;
  [[nodiscard]] int valueAt(int x) const;

  const UiContext& context_;
  QString label_;
  SkinImage highImage_;
  SkinImage lowImage_;
  EditBox* field_ = nullptr;
  int low_ = 0;
  int high_ = 100;
  int value_ = 0;
  int labelWidth_ = 0;  ///< with the gap behind it
  int wheelRest_ = 0;   ///< eighths of a degree that do not make a step yet
  bool dragging_ = false;
  bool ring_ = false;
};

}  // namespace pv
