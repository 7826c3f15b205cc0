#pragma once

#include <initializer_list>

#include <QElapsedTimer>
#include <QSize>
#include <QString>

#include "ui/controls.h"

namespace pv {

class ThumbListWidget;

/// The quiet line below a thumbnail list: how many of how many files are shown, how
/// far the pictures are where that takes long, or a note that goes before both.
class ThumbStatus : public TextLabel {
  Q_OBJECT

 public:
  /// `list` outlives it; its progress is followed.
  ThumbStatus(const UiContext& context, const ThumbListWidget& list, QWidget* parent);

  /// Files of the list that are no longer on the disk.
  void setGone(int gone);
  /// In the warning colour; an empty one brings the figures back.
  void setWarning(const QString& warning);
  /// To be called when the list shows other files.
  void showFigures();

 private:
  [[nodiscard]] QString figures() const;

  const UiContext& context_;
  const ThumbListWidget& list_;
  QElapsedTimer loading_;  ///< runs while pictures are missing
  QString warning_;
  int gone_ = 0;
};

/// The basic size of the pages with a thumbnail list, in pixels of 96 dpi.
[[nodiscard]] QSize thumbPageSize();

/// The list takes the room; the status stands below it on the left, the buttons in
/// their order on the right.
void layOutThumbPage(QWidget& page, QWidget& list, QWidget& status,
                     std::initializer_list<QWidget*> buttons);

}  // namespace pv
