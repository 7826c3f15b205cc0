#pragma once

#include <array>
#include <optional>

#include <QCursor>
#include <QRect>
#include <QTransform>
#include <QWidget>

#include "path/path_view.h"
#include "raster/frame_presenter.h"
#include "ui/ui_context.h"

class QKeyEvent;
class QSinglePointEvent;

namespace pv {

/// The window side of a PathView: turns events into the view's own in device
/// pixels, paints its frames at the screen's full density, shows its cursors and
/// acts on its answers.
class PathViewWidget : public QWidget {
  Q_OBJECT

 public:
  explicit PathViewWidget(const UiContext& context, QWidget* parent = nullptr);

  [[nodiscard]] PathView& view() { return view_; }
  [[nodiscard]] const PathView& view() const { return view_; }

  /// Acts on the answer of a call of view(). Frames are only asked for here and
  /// drawn when the window paints, so any number of changes make one frame.
  void apply(const PathResponse& response);
  /// Asks for a frame. Without that the window's paints show the last one again.
  void refresh();

  /// Whether a key means something here now; Escape only while there is a drag to take back.
  /// Such keys are kept from the window's shortcuts.
  [[nodiscard]] bool wantsKey(const QKeyEvent& event) const;
  /// Does what the key stands for; false, and nothing happens, when it is not
  /// wanted.
  bool handleKey(const QKeyEvent& event);

  [[nodiscard]] QSize sizeHint() const override { return {567, 507}; }

 signals:
  /// The view answered: its figures and its undo state may have changed.
  void responded();
  /// Points were moved, added or removed.
  void pathChanged();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  [[nodiscard]] PathMouse toView(const QSinglePointEvent& event);
  void pressCtrl(bool down);
  void measure(const QTransform& toDevice);
  void drawFrame();
  void loadCursors();

  const UiContext& context_;
  PathView view_;
  FramePresenter presenter_;
  QTransform toDevice_;               ///< from the widget to what was painted on last
  QRect area_;                        ///< the widget there
  std::optional<PathMouse> pointer_;  ///< while it is over the view
  bool frameIsDue_ = true;
  bool ring_ = false;  ///< the keyboard brought the focus
  PathCursor shown_ = PathCursor::Arrow;
  std::array<QCursor, kPathCursorCount> cursors_;
  qreal cursorRatio_ = 0;  ///< of the screen that the cursors were loaded for
};

}  // namespace pv
