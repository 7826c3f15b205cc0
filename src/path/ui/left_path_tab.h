#pragma once

#include <cstddef>
#include <string>

#include <QWidget>

#include "ui/ui_context.h"

class QBoxLayout;

namespace pv {

/// The page beside the path editor: loads and saves the path that is edited, and
/// tells what the mouse and the keys do in the view. Made for 252 × 624 pixels.
class CLeftPathTab : public QWidget {
  Q_OBJECT

 public:
  explicit CLeftPathTab(const UiContext& context, QWidget* parent = nullptr);

  /// What was asked for: 1 to load a path, 2 to save it, -1 nothing. Told once;
  /// after that it is -1.
  [[nodiscard]] int takeResult();

 signals:
  /// A button was pressed; takeResult() tells which.
  void command();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void addHeader(QBoxLayout& column, const QString& text, std::string image = {});
  void addButton(QBoxLayout& column, std::size_t which);
  void addKeys(QBoxLayout& column);

  const UiContext& context_;
  int result_ = -1;
};

}  // namespace pv
