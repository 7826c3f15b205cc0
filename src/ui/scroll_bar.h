#pragma once

#include <QScrollBar>

#include "ui/ui_context.h"

namespace pv {

/// An upright scroll bar without arrows: a thin handle that widens and lightens
/// under the pointer. Dragging it scrolls; a press beside it goes a page towards
/// the pointer and on while the button is held. It leaves the keyboard to the view
/// that it scrolls and shows nothing while there is nothing to scroll.
class QuietScrollBar : public QScrollBar {
  Q_OBJECT

 public:
  /// In pixels of 96 dpi; views keep it free at their right edge.
  static constexpr int kWidth = 12;

  explicit QuietScrollBar(const UiContext& context, QWidget* parent = nullptr);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  /// Where the handle stands for the present value; empty without a range.
  [[nodiscard]] QRectF handleRect() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void sliderChange(SliderChange change) override;

 private:
  [[nodiscard]] double handleLength() const;
  void dragTo(double y);
  void release();

  const UiContext& context_;
  double grip_ = 0;     ///< of the pointer below the handle's upper edge, while dragging
  double pointer_ = 0;  ///< where the bar was pressed
};

}  // namespace pv
