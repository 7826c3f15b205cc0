#pragma once

#include <QPointF>
#include <QSize>
#include <QWidget>

#include "raster/frame_presenter.h"
#include "view3d/shape_view.h"

namespace pv {

/// The window side of a ShapeView: turns its mouse events into plain positions,
/// paints its frames at the screen's full density and acts on its answers.
class ShapeViewWidget : public QWidget {
  Q_OBJECT

 public:
  explicit ShapeViewWidget(QWidget* parent = nullptr);

  [[nodiscard]] ShapeView& view() { return view_; }
  [[nodiscard]] const ShapeView& view() const { return view_; }

  /// Acts on the answer of a call of view(). Frames are only asked for here and
  /// drawn when the window paints, so any number of changes make one frame.
  void apply(const ViewResponse& response);
  /// Asks for a frame. Without that the window's paints show the last one again.
  void refresh();

  [[nodiscard]] QSize sizeHint() const override { return {640, 600}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {160, 120}; }

 signals:
  void modifierChanged();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  [[nodiscard]] PixelPoint toView(QPointF position) const;
  void measure(QSize deviceSize, qreal pixelRatio);
  void drawFrame();
  void releaseDrag();
  void showPointer();

  ShapeView view_;
  FramePresenter presenter_;
  QSize frameSize_;          ///< in the view's pixels
  qreal frameRatio_ = 0;     ///< of those to pixels of the window
  qreal pixelsOf96Dpi_ = 1;  ///< the view's mouse pixels to one of the window's
  bool frameIsDue_ = true;
  bool pressed_ = false;
};

}  // namespace pv
