#pragma once

#include <cstdint>

#include <QWidget>

#include "library/tag_cloud.h"
#include "library/ui/tag_painter.h"
#include "ui/ui_context.h"

namespace pv {

class QuietScrollBar;

/// The window side of a CTagCloud: measures texts, turns clicks and keys into the
/// click rule's, paints the layout's tags and scrolls them. The arrow keys lead a
/// ring from tag to tag; Space and Enter click the tag in the ring.
class TagCloudWidget : public QWidget {
  Q_OBJECT

 public:
  explicit TagCloudWidget(const UiContext& context, QWidget* parent = nullptr);

  [[nodiscard]] const CTagCloud& cloud() const { return cloud_; }
  /// Whoever changes tags or states calls refresh() afterwards.
  [[nodiscard]] CTagCloud& cloud() { return cloud_; }
  /// Lays the tags out anew and paints them.
  void refresh();
  /// Back to the top, with no tag in the ring; for a store that was loaded anew.
  void rewind();
  /// Scrolls until the tag shows whole.
  void scrollTo(std::int32_t index);
  /// Strikes the tag under the pointer through: what a click does now.
  void setDeleting(bool deleting);
  /// Stands in the middle while there are no tags.
  void setEmptyText(const QString& text);

  /// Where a tag shows, in pixels of the widget; may lie outside while scrolled.
  [[nodiscard]] QRect tagRect(std::int32_t index) const;
  /// Tag in the ring, or -1.
  [[nodiscard]] std::int32_t current() const { return current_; }
  [[nodiscard]] QuietScrollBar& scrollBar() { return *bar_; }

  [[nodiscard]] QSize sizeHint() const override { return {236, 240}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {96, 64}; }

 signals:
  /// A click has ended, by mouse or key; its rule was applied when it began.
  void clicked();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void layOut(bool scrolls);
  [[nodiscard]] int clientRight() const;
  [[nodiscard]] std::int32_t tagAt(QPoint position) const;
  void hover(QPoint position);
  void press(QPoint position, Qt::KeyboardModifiers modifiers);
  void setCurrent(std::int32_t index);
  [[nodiscard]] std::int32_t neighbour(int key) const;
  [[nodiscard]] std::int32_t inNextRow(int direction) const;
  [[nodiscard]] QString helpOf(std::int32_t index) const;
  void showHelp();

  const UiContext& context_;
  CTagCloud cloud_;
  TagLayout layout_;
  QuietScrollBar* bar_ = nullptr;
  TagPainter tags_;
  QString emptyText_;
  std::int32_t hovered_ = -1;
  std::int32_t current_ = -1;
  bool scrolls_ = false;
  bool deleting_ = false;
  bool pressed_ = false;
  bool ring_ = false;
};

}  // namespace pv
