#pragma once

#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>

#include "app/ui/window_buttons.h"

namespace pv {

/// A column of text buttons under dark titles.
class ButtonPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ButtonPanel(QWidget* parent = nullptr);

  void addTitle(const QString& text);
  /// The button answers to its key wherever the focus is in the window. Its
  /// object name is the text's `name`.
  QPushButton* addButton(const ButtonText& text);
  QPushButton* addToggle(const ButtonText& text);
  /// Keeps what follows at the lower end.
  void addStretch() { column_->addStretch(); }

 private:
  QVBoxLayout* column_;
};

}  // namespace pv
