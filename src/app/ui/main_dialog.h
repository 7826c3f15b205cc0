#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <QString>
#include <QWidget>

#include "app/modes.h"
#include "app/settings.h"
#include "particle/particle_settings.h"
#include "ui/ui_context.h"

class QScrollArea;
class QStackedWidget;

namespace pv {

class CEditPathTab;
class CLeftPathTab;
class CLibraryTab;
class CParticleTab;
class CTab3d;
class CTabEmitter;
class LibraryDesk;
class PageStrip;
class PanelFrame;
class TextLabel;
struct PathRecord;
struct SaveReport;
struct ShapeRecord;

/// What the main dialog is started with.
struct MainDialogSetup {
  std::string applicationFolder;  ///< program path, or a message that leads nowhere
  std::string helpPath;           ///< shown by F1
};

/// The program's window: owns every page, the current shape (inside the 3D
/// page's view) and the core names, and is the one place where pages meet. What a
/// page's command leads to is decided by ModeLayout; the dialog performs it.
///
/// Life cycle: made once with a registry that outlives it, which it reads at
/// once and writes when it is destroyed; shown; closed, which ends the program.
class MainDialog : public QWidget {
  Q_OBJECT
  Q_DISABLE_COPY_MOVE(MainDialog)

 public:
  MainDialog(const MainDialogSetup& setup, UserRegistry& registry);
  ~MainDialog() override;

  /// A shape, or a path (.j2d), for which its editor opens. A file that is neither
  /// changes nothing; a quiet line says that it was not loaded until something else
  /// happens.
  void openFile(const std::filesystem::path& file);

  [[nodiscard]] LeftPage page() const { return modes_.pages().left; }
  [[nodiscard]] Mode mode() const { return modes_.mode(); }
  /// One of the strip's pages; nothing happens while a mode is open.
  void showPage(LeftPage page);
  /// Keeps the window's place and the core names; also done when the dialog is
  /// destroyed, for which the end of the user's session leaves no time.
  void writeSettings();
  [[nodiscard]] const ParticleSettings& particles() const { return particles_; }

 signals:
  /// The window's first picture is on the screen: time for what nobody waits for.
  void pictureShown();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  // The window opens with the two pages that show first; the others are made as soon
  // as it has been painted, or when one of them is asked for before that.
  void buildStrip();
  void buildPanels();
  void buildOtherPages();
  void connectEmitter();
  void connectOtherPages();
  void connectModifiers();
  void addKeys();
  void placeControls();
  void followFirstPicture();

  // Commands and modes.
  void leftCommand(PageResult result);
  void rightCommand(PageResult result);
  void perform(const std::vector<ModeStep>& steps);
  void perform(ModeStep step);
  void performOnDocument(ModeStep step);
  void loadChosen(ModeStep step);
  void openSavePanels();
  void showLayout();
  void giveFocus();
  void showInformation();
  void showPreview();
  void pressCancel();
  [[nodiscard]] QString droppedSuffix() const;
  [[nodiscard]] bool pressDefault();

  // The current shape, its path and files.
  void collectEmitterPage();
  void applyShape(const ShapeRecord& shape);
  void takePath(const PathRecord& path);
  enum class PathTarget : std::uint8_t { Shape, Editor };
  void loadPathFile(const std::filesystem::path& file, PathTarget target);
  void openPathFile(const std::filesystem::path& file);
  void tellNotLoaded(const std::filesystem::path& file);
  void saveShapeFile();
  void savePathFile();
  void tellSave(const SaveReport& report);
  [[nodiscard]] std::string& coreName();
  /// The panel's title: the shape's name, or why another one is not there.
  void showName(const QString& fault = {});
  void showModifier();

  MainDialogSetup setup_;
  UserRegistry& registry_;
  CoreNames coreNames_;
  UiContext context_;
  ModeLayout modes_;
  Mode shownMode_ = Mode::EditPath;  ///< any but the first
  ParticleSettings particles_;
  QString shapeName_;  ///< without folder and suffix; empty for a new shape
  QString pathName_;   ///< the same for the path that is edited
  QString fault_;      ///< why something was not loaded or saved
  bool painted_ = false;

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

  // Null until buildOtherPages.
  CLibraryTab* library_ = nullptr;
  CParticleTab* particleTab_ = nullptr;
  CLeftPathTab* pathPage_ = nullptr;
  CEditPathTab* pathEditor_ = nullptr;
  LibraryDesk* libraries_ = nullptr;
};

}  // namespace pv
