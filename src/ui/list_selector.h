#pragma once

#include <QComboBox>

#include "ui/ui_context.h"

namespace pv {

/// One choice of a short list, painted in the skin; a combo box to assistive
/// tools. A click, Space, Enter, F4 or Alt+Down opens the list, in which the choice
/// bears a mark; arrow keys and first letters choose without opening it. The wheel
/// changes it only while it has the focus, by one choice a notch.
class ListSelector : public QComboBox {
  Q_OBJECT

 public:
  ListSelector(const UiContext& context, const QString& name, const QString& help,
               QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  const UiContext& context_;
  int wheelRest_ = 0;  ///< eighths of a degree that do not make a notch yet
  bool ring_ = false;
};

}  // namespace pv
