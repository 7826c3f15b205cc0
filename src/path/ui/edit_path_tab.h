#pragma once

#include <array>

#include <QString>
#include <QWidget>

#include "path/path_record.h"
#include "path/ui/edit_path_layout.h"
#include "path/ui/path_view_widget.h"
#include "ui/ui_context.h"

class QAbstractButton;

namespace pv {

/// The page around the path view: views, tools, zoom, snapping, undo, and the two
/// ways out. All that they choose lives in the view; the buttons only show it.
class CEditPathTab : public QWidget {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(CEditPathTab)

 public:
  explicit CEditPathTab(const UiContext& context, QWidget* parent = nullptr);
  ~CEditPathTab() override;

  [[nodiscard]] PathViewWidget& view() { return *view_; }
  [[nodiscard]] const PathViewWidget& view() const { return *view_; }

  /// Starts editing another path: nothing selected, nothing to undo. Tool, view,
  /// zoom and snapping stay.
  void setPath(const PathRecord& path);
  /// The path as it is now.
  [[nodiscard]] PathRecord path() const { return view_->view().path().getRecord(); }

  /// How the user left the page: 1 to use the path, 2 to cancel, -1 not yet. Told
  /// once; after that it is -1.
  [[nodiscard]] int takeResult();
  /// As if Cancel Path was pressed, for the window's Escape.
  void pressCancel();
  /// Shows what the view has chosen; for callers that load or choose there.
  void showChoices();

  [[nodiscard]] QSize sizeHint() const override;

 signals:
  /// The user left the page; takeResult() tells how.
  void command();
  /// What view().view().readout() tells may have changed.
  void readoutChanged();

 protected:
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QAbstractButton* makeButton(const EditPathButton& row);
  void press(const EditPathButton& button);
  void chooseTool(PathTool tool);
  void leave(int result);
  [[nodiscard]] bool isChosen(const EditPathButton& button) const;
  [[nodiscard]] bool isUsable(const EditPathButton& button) const;
  void showSteps();

  const UiContext& context_;
  PathViewWidget* view_ = nullptr;
  std::array<QAbstractButton*, kEditPathButtonCount> buttons_{};
  QString undoHelp_;  ///< as shown now
  QString redoHelp_;
  int result_ = -1;
};

}  // namespace pv
