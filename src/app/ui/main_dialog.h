#pragma once

#include <string>

#include <QString>
#include <QWidget>

#include "app/page_strip_model.h"
#include "app/settings.h"
#include "ui/ui_context.h"

class QScrollArea;
class QStackedWidget;

namespace pv {

class CTab3d;
class CTabEmitter;
class PageStrip;
class PanelFrame;
class TextLabel;
struct ShapeRecord;

/// What the main dialog is started with.
struct MainDialogSetup {
  std::string applicationFolder;  ///< program path, or a message that leads nowhere
  std::string helpPath;           ///< shown by F1
};

/// The program's window: owns every page, the current shape (inside the 3D
/// page's view) and the core names, and is the one place where pages meet.
///
/// Life cycle: made once with a registry that outlives it, which it reads at
/// once and writes when it is destroyed; shown; closed, which ends the program.
class MainDialog : public QWidget {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(MainDialog)

 public:
  MainDialog(const MainDialogSetup& setup, UserRegistry& registry);
  ~MainDialog() override;

  /// A file that is no shape changes nothing; a quiet line says that it was not
  /// loaded until something else happens.
  void openFile(const QString& file);

  [[nodiscard]] LeftPage page() const { return page_; }
  void showPage(LeftPage page);

 signals:
  /// The emitter page's request for a file, 1 to load and 2 to save.
  void fileRequested(int request);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void buildLeftPanel();
  void buildRightPanel();
  void placeControls();
  void emitterCommand();
  void collectEmitterPage();
  void applyShape(const ShapeRecord& shape);
  void loadShape();
  void saveShape();
  void connectModifiers();
  void addKeys();
  /// The panel's title: the shape's name, or why another one is not there.
  void showName(const QString& fault = {});
  void showModifier();
  void setFile(const QString& file);

  MainDialogSetup setup_;
  UserRegistry& registry_;
  CoreNames coreNames_;
  UiContext context_;
  LeftPage page_ = LeftPage::Emitter;
  QString folder_;     ///< where Load and Save open
  QString shapeName_;  ///< without folder and suffix; empty for a new shape

  QScrollArea* scroll_ = nullptr;  ///< for screens that are too small
  QWidget* desk_ = nullptr;        ///< holds all controls, in dialog units
  PageStrip* strip_ = nullptr;
  PanelFrame* leftFrame_ = nullptr;
  PanelFrame* rightFrame_ = nullptr;
  QStackedWidget* leftHost_ = nullptr;
  QStackedWidget* rightHost_ = nullptr;
  TextLabel* information_ = nullptr;
  CTabEmitter* emitter_ = nullptr;
  CTab3d* tab3d_ = nullptr;
};

}  // namespace pv
