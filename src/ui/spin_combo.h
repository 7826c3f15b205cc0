#pragma once

#include <string>

#include <QWidget>

#include "ui/ui_context.h"

class QLineEdit;

namespace pv {

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
  [[nodiscard]] QSize sizeHint() const override;

 signals:
  /// The user changed the value.
  void valueChanged(int value);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void change(int value);
  void takeField();
  void showInField();
  [[nodiscard]] QRect trackRect() const;
  [[nodiscard]] int valueAt(int x) const;

  const UiContext& context_;
  QString label_;
  std::string highImage_;
  std::string lowImage_;
  QLineEdit* field_ = nullptr;
  int low_ = 0;
  int high_ = 100;
  int value_ = 0;
  bool dragging_ = false;
};

}  // namespace pv
