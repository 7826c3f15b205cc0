#pragma once

#include <QComboBox>

#include "ui/ui_context.h"

namespace pv {

/// One choice of a short list, painted in the skin; a combo box to assistive
/// tools. The wheel changes it only while it has the focus.
class ListSelector : public QComboBox {
  Q_OBJECT

 public:
  ListSelector(const UiContext& context, const QString& name, const QString& help,
               QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  const UiContext& context_;
};

}  // namespace pv
