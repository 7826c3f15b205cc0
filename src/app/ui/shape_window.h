#pragma once

#include <array>

#include <QString>
#include <QWidget>

#include "shape/modifier_kind.h"
#include "view3d/ui/shape_view_widget.h"

class QLabel;
class QPushButton;

namespace pv {

class ButtonPanel;

/// The program's window: the view of one shape, the buttons of the view and the
/// modifiers beside it, and the files that the shape comes from and goes to.
class ShapeWindow : public QWidget {
  Q_OBJECT

 public:
  /// `root` is the application folder; may be empty.
  explicit ShapeWindow(const QString& root = {}, QWidget* parent = nullptr);

  /// On failure the shape that was there stays and the status line says why.
  bool openFile(const QString& file);
  /// `name` may end in ".j3d" or not; on failure a message says why.
  bool saveFile(const QString& name);

  [[nodiscard]] ShapeViewWidget& viewWidget() { return *view_; }

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  ButtonPanel* makeViewPanel();
  ButtonPanel* makeModifierPanel();
  void addCameraButtons(ButtonPanel& panel);
  QLayout* makeStatusLine();
  void askOpen();
  void askSave();
  /// Makes `file` the shape's name and `message` empty, then refreshes.
  void setFile(const QString& file);
  /// Brings buttons, status and title to the state of the view.
  void refresh();
  void refreshStatus();

  QString folder_;  ///< where the file dialogs open
  QString file_;    ///< empty for a shape that has no file
  QString fault_;   ///< why the last file was not opened
  ShapeViewWidget* view_;
  QLabel* shapeLabel_;   ///< status line: the shape, or why a file was not opened
  QLabel* valuesLabel_;  ///< status line: values of the modifier in hand
  std::array<QPushButton*, 4> viewButtons_{};
  std::array<QPushButton*, 3> cameraButtons_{};
  QPushButton* gridButton_ = nullptr;
  QPushButton* linesButton_ = nullptr;
  std::array<QPushButton*, kModifierCount> modifierButtons_{};
  QPushButton* resetButton_ = nullptr;
};

}  // namespace pv
