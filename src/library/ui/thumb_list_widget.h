#pragma once

#include <cstdint>
#include <string>

#include <QTimer>
#include <QWidget>

#include "library/thumb_grid.h"
#include "library/thumb_list.h"
#include "library/ui/thumb_painter.h"
#include "ui/ui_context.h"

namespace pv {

class QuietScrollBar;

/// The window side of a CThumbList: a scrolling grid of pictures with their names.
/// Only what can be seen is read from the disk, for a few milliseconds in each turn
/// of the event loop; a cell whose picture has not come yet shows its frame.
///
/// The left button selects what is under the pointer when it goes down and tells
/// when it comes up; keys select and tell at once. Nothing here changes files.
class ThumbListWidget : public QWidget {
  Q_OBJECT

 public:
  explicit ThumbListWidget(const UiContext& context, QWidget* parent = nullptr);
  ~ThumbListWidget() override;
  Q_DISABLE_COPY_MOVE(ThumbListWidget)

  [[nodiscard]] CThumbList& list() { return list_; }
  [[nodiscard]] const CThumbList& list() const { return list_; }
  /// To be called after calls that change what list() shows or has selected: lays
  /// out anew, scrolls to the selection and loads what can be seen. Tells nobody.
  void refresh();
  /// The nearest possible offset in pixels.
  void scrollTo(int offset);

  /// In which a click deletes: ring and hover take the warning colour, and a
  /// release beside the pressed cell clears the selection before it is told.
  void setDeleteMode(bool on);
  [[nodiscard]] bool deleteMode() const { return deleteMode_; }

  /// Pictures of visible cells that have not been looked for yet.
  [[nodiscard]] int pending() const { return wanted_.last - nextToLoad_; }
  [[nodiscard]] int visibleCount() const { return wanted_.last - wanted_.first; }
  /// In the widget's pixels; the scroll offset taken off.
  [[nodiscard]] QRect cellRect(int index) const;
  [[nodiscard]] QRect pictureRect(int index) const;
  /// Index among the shown names, or -1.
  [[nodiscard]] int itemAt(QPointF position) const;
  /// As if a key had moved the selection there: scrolls to it and tells.
  void moveSelection(int index);

  [[nodiscard]] QSize sizeHint() const override { return {570, 506}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {140, 124}; }

 signals:
  /// The left button came up after it went down in here.
  void clicked();
  /// A key moved the selection.
  void selectionMoved();
  /// A double click on the selected file, or Enter while one is selected.
  void activated();
  /// The Delete key, once for each press, while a file is selected.
  void deletePressed();
  /// Pictures were looked for, or other cells came into sight: how many of the
  /// `total` visible ones are done.
  void progress(int loaded, int total);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void layOut();
  void startLoading();
  void loadSome();
  void hoverAt(QPointF position);
  void updateCell(int index);
  void select(int index);
  [[nodiscard]] bool moveByKey(int key);
  [[nodiscard]] bool moveByText(const QKeyEvent& event);

  const UiContext& context_;
  CThumbList list_;
  ThumbGrid grid_;
  ThumbPainter painter_;
  QuietScrollBar* bar_ = nullptr;
  QTimer loader_;
  QTimer typing_;  ///< runs while further letters belong to the typed text
  std::string typed_;
  std::string pressedName_;      ///< of the last press, empty for none
  ThumbGrid::Range wanted_;      ///< the cells whose pictures are to be there
  std::int32_t nextToLoad_ = 0;  ///< of these
  int hovered_ = -1;
  int wheelRest_ = 0;  ///< parts of a pixel that do not make one yet, in 1/120
  bool pressed_ = false;
  bool deleteMode_ = false;
  bool ring_ = false;
};

}  // namespace pv
