#include "app/ui/main_dialog.h"

#include <array>
#include <deque>
#include <functional>
#include <memory>
#include <set>
#include <utility>

#include <QAbstractButton>
#include <QApplication>
#include <QDragEnterEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include "app/application_folder.h"
#include "app/page_strip_model.h"
#include "app/ui/first_drawings.h"
#include "app/ui/messages.h"
#include "app/ui/quiet_page.h"
#include "app/ui/window_place.h"
#include "app/ui/window_style.h"
#include "library/ui/left_edit_tab.h"
#include "library/ui/left_load_tab.h"
#include "library/ui/left_save_tab.h"
#include "library/ui/library_tab.h"
#include "library/ui/right_edit_tab.h"
#include "library/ui/right_load_tab.h"
#include "library/ui/right_save_tab.h"
#include "library/ui/tag_cloud_widget.h"
#include "library/ui/thumb_list_widget.h"
#include "particle/ui/particle_tab.h"
#include "path/path_file.h"
#include "path/ui/edit_path_tab.h"
#include "path/ui/left_path_tab.h"
#include "shape/shape_file.h"
#include "shape/ui/tab_emitter.h"
#include "ui/spin_combo.h"
#include "util/colour_scheme.h"
#include "util/program_path.h"
#include "util/registry_store.h"
#include "view3d/ui/tab_3d.h"

namespace pv {
namespace {

constexpr QSize kUsual(924, 683);
constexpr std::array kTabTexts{"Emitter", "Particles", "Forces", "Library"};

std::filesystem::path pathOf(const QString& name) {
  return QFileInfo(name).filesystemAbsoluteFilePath();
}

}  // namespace

/// The whole window with real mouse and key events on the offscreen platform.
class MainDialogTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase();
  void init();
  void cleanup();

  void drawingsToReadFirstAreThere();
  void controlsStandInTheirPlaces();
  void smallWindowsScroll();
  void stripCyclesThroughThePages();
  void everyEditReachesTheView();
  void titleShowsTheModifierInHand();
  void modesTakeTheWindowAndGiveItBack();
  void pathIsDrawnUsedSavedAndLoaded();
  void savedShapeLoadsIdentical();
  void filesAreTaggedFoundAndDeleted();
  void failedSavesKeepTheShape();
  void particlesReachTheDialog();
  void badFilesKeepTheShape();
  void droppedFileOpens();
  void settingsComeBackAsTexts();
  void placeComesBackOnTheScreen();
  void badSurroundingsDoNoHarm();
  void helpNamesItsPage();
  void programEndsWithAReason();

 private:
  // Numbers are unique within the dialog itself and within each page.
  template <typename Control = QWidget>
  Control& part(int id) {
    auto* desk = dialog_->findChild<QScrollArea*>()->widget();
    return *desk->findChild<Control*>(QString::number(id), Qt::FindDirectChildrenOnly);
  }
  template <typename Control = QWidget>
  Control& control(int id) {
    return *dialog_->findChild<CTabEmitter*>()->findChild<Control*>(QString::number(id));
  }
  ShapeViewWidget& viewWidget() { return *dialog_->findChild<ShapeViewWidget*>(); }
  void click(int id) { QTest::mouseClick(&control(id), Qt::LeftButton); }
  /// A control of one page, by its number there.
  template <typename Page, typename Control = QWidget>
  Control& on(int id) {
    return *dialog_->findChild<Page*>()->template findChild<Control*>(QString::number(id));
  }
  template <typename Page>
  void press(int id) {
    QTest::mouseClick(&on<Page>(id), Qt::LeftButton);
  }
  template <typename Page>
  void type(int id, const QString& text) {
    auto& edit = on<Page, QLineEdit>(id);
    edit.setFocus();
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    QTest::keyClicks(&edit, text);
  }
  template <typename Page>
  void clickFile(int index) {
    auto& list = *dialog_->findChild<Page*>()->template findChild<ThumbListWidget*>();
    QTest::mouseClick(&list, Qt::LeftButton, {}, list.cellRect(index).center());
  }
  template <typename Page>
  void clickTag(const char* name, Qt::KeyboardModifiers keys = {},
                Qt::MouseButton button = Qt::LeftButton) {
    auto& cloud = *dialog_->findChild<Page*>()->template findChild<TagCloudWidget*>();
    const int tag = cloud.cloud().findTag(name);
    QVERIFY2(tag >= 0, name);
    QTest::mouseClick(&cloud, button, keys, cloud.tagRect(tag).center());
  }
  [[nodiscard]] QStringList files(const QString& folder) const {
    return QDir(root_->filePath("vortex/" + folder)).entryList(QDir::Files, QDir::Name);
  }
  [[nodiscard]] QByteArray contents(const QString& name) const {
    QFile in(root_->filePath("vortex/" + name));
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("no file");
  }
  void clickIn3d(int id) {
    auto* tab = dialog_->findChild<CTab3d*>();
    QTest::mouseClick(tab->findChild<QWidget*>(QString::number(id)), Qt::LeftButton);
  }
  void type(int id, const char* text) {
    auto& field = *control(id).findChild<QLineEdit*>();
    QTest::mouseClick(&field, Qt::LeftButton);
    field.selectAll();
    QTest::keyClicks(&field, text);
  }
  UserRegistry& registry() { return store_->registry(); }
  ShapeView& view() { return viewWidget().view(); }
  [[nodiscard]] QString file(const QString& name) const {
    return root_->filePath("vortex/shapes/" + name);
  }
  void open(const std::string& place = {});
  /// The next dialogs that show up get these answers, in this order.
  void answer(std::deque<std::function<void(QWidget*)>> answers) {
    answers_ = std::move(answers);
    asked_ = nullptr;
  }
  static void press(QWidget* asked, Qt::Key key) { QTest::keyClick(asked, key); }

  std::unique_ptr<QTemporaryDir> root_;
  std::unique_ptr<RegistryStore> store_;
  std::unique_ptr<MainDialog> dialog_;
  std::deque<std::function<void(QWidget*)>> answers_;
  QTimer watch_;
  QWidget* asked_ = nullptr;
};

void MainDialogTest::initTestCase() {
  applyDarkStyle();
  watch_.setInterval(5);
  connect(&watch_, &QTimer::timeout, this, [this] {
    QWidget* asked = QApplication::activeModalWidget();
    // One answer for each time that a dialog comes up, as some close slowly.
    if (asked != std::exchange(asked_, asked) && asked != nullptr && !answers_.empty()) {
      const auto next = answers_.front();
      answers_.pop_front();
      next(asked);
    }
  });
  watch_.start();
}

void MainDialogTest::init() {
  root_ = std::make_unique<QTemporaryDir>();
  store_.reset();  // one at a time is in force
  store_ = std::make_unique<RegistryStore>();
  makeLibraryFolders(applicationFolderAt(pathOf(root_->path())));
  open();
}

void MainDialogTest::cleanup() {
  dialog_.reset();
  QVERIFY(std::exchange(answers_, {}).empty());
}

void MainDialogTest::open(const std::string& place) {
  dialog_.reset();
  if (!place.empty()) {
    QVERIFY(registry().setString(kSettingsKey, kWindowPlaceValue, place));
  }
  const MainDialogSetup setup{applicationFolderAt(pathOf(root_->path())), "\\x\\<b>help\\main.htm"};
  dialog_ = std::make_unique<MainDialog>(setup, registry());
  if (place.empty()) {
    dialog_->resize(kUsual);
  }
  dialog_->show();
  dialog_->activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(dialog_.get()));
  QTRY_VERIFY(dialog_->findChild<CLibraryTab*>());  // pages that do not show come later
}

void MainDialogTest::drawingsToReadFirstAreThere() {
  const std::vector<std::string> names = firstDrawings();
  const ImageStore images(programPath(PV_ART));
  for (const std::string& name : names) {
    QVERIFY2(!images.pixmap(name, 1).isNull(), name.c_str());
  }
  QCOMPARE(std::set(names.begin(), names.end()).size(), names.size());
}

void MainDialogTest::controlsStandInTheirPlaces() {
  struct Row {
    int id;
    std::array<int, 4> units;              // x, y, width, height
    int wider = 0, taller = 0, lower = 0;  // how it follows a larger window
  };
  const std::array rows{
      Row{8019, {6, 6, 180, 18}},           Row{8020, {6, 24, 180, 390}, 0, 1},
      Row{8022, {12, 25, 168, 384}, 0, 1},  Row{8029, {192, 7, 420, 362}, 1, 1},
      Row{8028, {198, 24, 408, 341}, 1, 1}, Row{8058, {191, 369, 418, 32}, 1, 0, 1},
      Row{1, {504, 402, 50, 14}},           Row{2, {559, 402, 50, 14}},
  };
  for (const QSize extra : {QSize(0, 0), QSize(310, 120)}) {
    dialog_->resize(kUsual + extra);
    QCoreApplication::processEvents();
    for (const Row& row : rows) {
      const auto pixel = [](int x, int y) { return QPointF(x * 1.5, y * 1.625).toPoint(); };
      const auto [x, y, width, height] = row.units;
      QRect wanted(pixel(x, y), pixel(x + width, y + height) - QPoint(1, 1));
      wanted.translate(0, row.lower * extra.height());
      wanted.adjust(0, 0, row.wider * extra.width(), row.taller * extra.height());
      QVERIFY2(part(row.id).geometry() == wanted, qPrintable(QString::number(row.id)));
      QCOMPARE(part(row.id).isVisible(), row.id > 2);
    }
    // The page is a little larger than its host, which comes first.
    const QSize page = extra.isNull() ? QSize(0, 0) : extra - QSize(2, 7);
    QCOMPARE(viewWidget().size(), QSize(567, 507) + page);
  }
}

void MainDialogTest::smallWindowsScroll() {
  auto& area = *dialog_->findChild<QScrollArea*>();
  QVERIFY(!area.horizontalScrollBar()->isVisible() && !area.verticalScrollBar()->isVisible());
  dialog_->resize(1, 1);
  QCoreApplication::processEvents();
  QVERIFY(dialog_->width() >= 300 && dialog_->height() >= 200);
  QVERIFY(area.horizontalScrollBar()->isVisible() && area.verticalScrollBar()->isVisible());
  QCOMPARE(viewWidget().height(), 507);
}

void MainDialogTest::stripCyclesThroughThePages() {
  const auto shows = [this](int tab) {
    QCOMPARE(dialog_->page(), pageOfTab(tab));
    QCOMPARE(dialog_->windowTitle(), QString("Vortexa-") + kTabTexts[tab]);
    QCOMPARE(part<QLabel>(8058).text().startsWith("Using large emitter amounts"), tab == 0);
    QCOMPARE(control(8024).isVisible(), tab == 0);
  };
  shows(0);
  for (int presses = 1; presses <= 4; ++presses) {
    QTest::mouseClick(&part(8019), Qt::LeftButton);
    shows(presses % 4);
  }
  part(8019).setFocus();
  for (const int tab : {2, 1, 3, 0}) {
    QTest::keyClick(&part(8019), static_cast<Qt::Key>(Qt::Key_1 + tab));
    shows(tab);
  }
}

void MainDialogTest::everyEditReachesTheView() {
  click(8027);
  QCOMPARE(view().shape().emitter.kind, EmitterKind::SpherePatch);
  type(8034, "40");
  QTest::keyClick(control(8034).findChild<QLineEdit*>(), Qt::Key_Return);
  QCOMPARE(view().shape().emitter.horizontalAmount, 40);
  QTest::keyClick(&control(8039), Qt::Key_Home);  // no sections: a single line of points
  QCOMPARE(view().shape().emitter.verticalAmount, 0);
  control<CSpinCombo>(8039).moveTo(7);
  QCOMPARE(control<QLabel>(8061).text(), "Total Emitter Count = 328");
  click(8036);
  QVERIFY(!view().shape().emitter.horizontalCentre.isSet());
  click(8047);
  QVERIFY(view().shape().applyModifiersGlobally != 0);
  control<CSpinCombo>(8043).moveTo(3);
  click(8089);
  control<CSpinCombo>(8045).moveTo(15);
  QCOMPARE(view().shape().duplicates.rotation[1], 15.0F);
  QCOMPARE(view().shape().duplicates.position[0], 10.0F);
  click(8091);
  QCOMPARE(view().shape().duplicates.rotation[1], 0.0F);
  click(8094);  // the mapping waits for the next change or a save
  QCOMPARE(view().shape().mapping, DuplicateMapping::Normal);
  click(8088);
  QCOMPARE(view().shape().mapping, DuplicateMapping::Horizontal);
}

void MainDialogTest::titleShowsTheModifierInHand() {
  const auto detail = [this] { return part<PanelFrame>(8029).detail().simplified(); };
  QCOMPARE(detail(), "");
  clickIn3d(8044);
  QCOMPARE(detail(), "Twist X 0.00 Y 0.00 Z 0.00");
  ModifierTable table;
  table[ModifierKind::Twist] = {1, -2.345F, 1400};
  view().setModifiers(table);
  viewWidget().apply({.repaint = true, .modifierChanged = true});
  QCOMPARE(detail(), "Twist X 1.00 Y -2.35 Z 1400.00");
  clickIn3d(8039);
  QCOMPARE(detail(), "Twist X 0.00 Y 0.00 Z 0.00");
  clickIn3d(8041);
  QCOMPARE(detail(), "Shape Scale X 1.00 Y 1.00 Z 1.00");
  clickIn3d(8041);
  QCOMPARE(detail(), "");
}

void MainDialogTest::modesTakeTheWindowAndGiveItBack() {
  struct Row {
    LeftPage from;
    std::function<void()> open;
    Mode mode;
    const char* title;
  };
  const std::vector<Row> rows{
      {LeftPage::Emitter, [this] { click(8031); }, Mode::LoadShape, "Emitter-Load Shape"},
      {LeftPage::Emitter, [this] { click(8033); }, Mode::SaveShape, "Emitter-Save Shape"},
      {LeftPage::Emitter, [this] { click(8032); }, Mode::EditPath, "Emitter-Edit Path"},
      {LeftPage::Library, [this] { press<CLibraryTab>(8106); }, Mode::LoadShape,
       "Library-Load Shape"},
      {LeftPage::Library, [this] { press<CLibraryTab>(8107); }, Mode::EditShapeTags,
       "Library-Edit 3d Shape Tags"},
      {LeftPage::Library, [this] { press<CLibraryTab>(8031); }, Mode::EditPathTags,
       "Library-Edit 2d Path Tags"},
      {LeftPage::Particles,
       [this] { QTest::keyClick(dialog_.get(), Qt::Key_O, Qt::ControlModifier); }, Mode::LoadShape,
       "Emitter-Load Shape"},
  };
  click(8028);  // a kind that has a path
  for (const Row& row : rows) {
    dialog_->showPage(row.from);
    row.open();
    QCOMPARE(dialog_->mode(), row.mode);
    QCOMPARE(dialog_->windowTitle(), QString("Vortexa-") + row.title);
    QVERIFY(!part(8019).isEnabled() && !part(1).isEnabled());
    QCOMPARE(part<QStackedWidget>(8022).currentIndex(),
             static_cast<int>(traits(row.mode).pages.left));
    QCOMPARE(part<QStackedWidget>(8028).currentIndex(),
             static_cast<int>(traits(row.mode).pages.right));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCOMPARE(dialog_->mode(), Mode::Editing);
    QVERIFY(part(8019).isEnabled() && part(1).isEnabled());
    QVERIFY(!control<QAbstractButton>(8032).isChecked());
    QVERIFY(viewWidget().isVisible());
  }
}

void MainDialogTest::pathIsDrawnUsedSavedAndLoaded() {
  auto& editor = *dialog_->findChild<CEditPathTab*>();
  const auto clickView = [&](QPoint at) {
    QTest::mouseMove(&editor.view(), at);
    QTest::mouseClick(&editor.view(), Qt::LeftButton, {}, at);
  };
  click(8029);
  click(8032);
  press<CEditPathTab>(8051);
  for (const QPoint at : {QPoint(300, 100), QPoint(400, 200), QPoint(350, 300)}) {
    clickView(at);
  }
  QCOMPARE(editor.path().count, 3);
  QVERIFY(part<QLabel>(8058).text().contains("3 of 512"));
  // Saved and loaded from inside the editor, which shows again after each.
  press<CLeftPathTab>(8033);
  QCOMPARE(dialog_->windowTitle(), "Vortexa-Emitter-Save Path");
  press<CRightSaveTab>(1);
  QCOMPARE(files("paths"), QStringList{"path-0000.j2d"});
  QCOMPARE(files("paths/thumbs"), QStringList{"path-0000.bmp"});
  QCOMPARE(dialog_->mode(), Mode::EditPath);
  QCOMPARE(part<PanelFrame>(8029).name(), "path-0000");
  const PathRecord drawn = editor.path();
  press<CEditPathTab>(8039);
  QCOMPARE(editor.path().count, 0);
  press<CLeftPathTab>(8031);
  clickFile<CRightLoadTab>(0);
  press<CRightLoadTab>(1);
  QCOMPARE(dialog_->mode(), Mode::EditPath);
  QVERIFY(editor.path() == drawn);
  // Cancelled, then used.
  press<CEditPathTab>(2);
  QCOMPARE(view().shape().path.count, 0);
  click(8032);
  QCOMPARE(editor.path().count, 0);
  press<CLeftPathTab>(8031);
  clickFile<CRightLoadTab>(0);
  press<CRightLoadTab>(1);
  press<CEditPathTab>(1);
  QVERIFY(view().shape().path == drawn);
  QCOMPARE(view().mesh().ProfileCount(), 3);
  QVERIFY(!control<QAbstractButton>(8032).isChecked());
  QVERIFY(dialog_->mode() == Mode::Editing && dialog_->windowTitle() == "Vortexa-Emitter");
  // Named when the program starts: the editor opens, and the shape keeps its path.
  PathRecord shorter = drawn;
  shorter.count = 2;
  QVERIFY(SavePathFile(pathOf(root_->filePath("shorter")), shorter).ok());
  dialog_->openFile(pathOf(root_->filePath("missing.j2d")));
  QVERIFY(dialog_->mode() == Mode::Editing);
  QCOMPARE(part<PanelFrame>(8029).name(), "Not loaded: missing.j2d");
  dialog_->showPage(LeftPage::Library);
  dialog_->openFile(pathOf(root_->filePath("shorter.j2d")));
  QCOMPARE(dialog_->windowTitle(), "Vortexa-Emitter-Edit Path");
  QCOMPARE(part<PanelFrame>(8029).name(), "shorter");
  QVERIFY(editor.path().count == 2 && view().shape().path == drawn);
}

void MainDialogTest::savedShapeLoadsIdentical() {
  click(8026);
  control<CSpinCombo>(8034).moveTo(12);
  type(8039, "5");  // typed, but not entered
  QTest::keyClick(dialog_.get(), Qt::Key_S, Qt::ControlModifier);
  QCOMPARE((on<CLeftSaveTab, QLineEdit>(8092).text()), "shpe");
  type<CLeftSaveTab>(8092, " My:Rings/ ");
  type<CLeftSaveTab>(8096, "Rings");
  QTest::keyClick(&on<CLeftSaveTab>(8096), Qt::Key_Return);
  QCOMPARE(dialog_->mode(), Mode::SaveShape);
  press<CRightSaveTab>(1);
  QCOMPARE(dialog_->mode(), Mode::Editing);
  QCOMPARE(files("shapes"), QStringList{"myrings-0000.j3d"});
  QCOMPARE(files("shapes/thumbs"), QStringList{"myrings-0000.bmp"});
  QCOMPARE(files("shapes/tagdb"), QStringList{"myrings-0000.tdb"});
  QCOMPARE(part<PanelFrame>(8029).name(), "myrings-0000");
  const ShapeRecord made = view().shape();
  QVERIFY(made.emitter.verticalAmount == 5 && made.emitter.horizontalAmount == 12);

  click(8024);
  click(8033);  // the name is remembered, the number is the next one
  press<CRightSaveTab>(1);
  QCOMPARE(files("shapes"), (QStringList{"myrings-0000.j3d", "myrings-0001.j3d"}));
  click(8031);
  QVERIFY(!on<CRightLoadTab>(1).isEnabled());
  clickFile<CRightLoadTab>(0);
  press<CRightLoadTab>(1);
  QVERIFY(view().shape() == made);
  QVERIFY(control<QAbstractButton>(8026).isChecked());
  QCOMPARE(part<PanelFrame>(8029).name(), "myrings-0000");
  dialog_.reset();
  QVERIFY(registry().query(kSettingsKey, "CoreShapeFilename") == RegistryValue("myrings"));
}

void MainDialogTest::filesAreTaggedFoundAndDeleted() {
  const auto addTag = [this](const char* tag) {
    type<CRightSaveTab>(8091, tag);
    press<CRightSaveTab>(8094);
  };
  const auto shown = [this] {
    return dialog_->findChild<CRightLoadTab*>()->findChild<ThumbListWidget*>()->list().shownNames();
  };
  using Names = std::vector<std::string>;
  // Three shapes: red, red and blue, none.
  for (int i = 0; i < 3; ++i) {
    click(8033);
    if (i == 0) {
      addTag("red");
      addTag("blue");
    }
    if (i < 2) {
      clickTag<CRightSaveTab>("red");
      QCOMPARE((on<CLeftSaveTab, QAbstractButton>(8102).text()), "red");
    }
    if (i == 1) {
      clickTag<CRightSaveTab>("blue", Qt::ControlModifier);
    }
    press<CRightSaveTab>(1);
  }
  QCOMPARE(contents("shapes/tags/red.tag"), "shpe-0000\r\nshpe-0001\r\n");
  QCOMPARE(contents("shapes/tags/blue.tag"), "shpe-0001\r\n");
  QCOMPARE(contents("shapes/tagdb/shpe-0001.tdb").split('\n').size(), 3);

  open();  // started again
  click(8031);
  QCOMPARE(shown(), (Names{"shpe-0000", "shpe-0001", "shpe-0002"}));
  clickTag<CLeftLoadTab>("red");
  QCOMPARE(shown(), (Names{"shpe-0000", "shpe-0001"}));
  clickTag<CLeftLoadTab>("blue", {}, Qt::RightButton);
  QCOMPARE(shown(), Names{"shpe-0000"});
  press<CRightLoadTab>(2);

  dialog_->showPage(LeftPage::Library);
  press<CLibraryTab>(8107);
  clickFile<CRightEditTab>(2);
  clickTag<CLeftEditTab>("blue");
  QCOMPARE(contents("shapes/tagdb/shpe-0002.tdb"), "blue\r\n");
  press<CRightEditTab>(3);
  clickFile<CRightEditTab>(0);
  press<CRightEditTab>(2);
  QCOMPARE(files("shapes"), (QStringList{"shpe-0001.j3d", "shpe-0002.j3d"}));
  QCOMPARE(contents("shapes/tags/red.tag"), "shpe-0001\r\n");
  QCOMPARE(contents("shapes/tags/blue.tag"), "shpe-0001\r\nshpe-0002\r\n");
  QCOMPARE(dialog_->windowTitle(), "Vortexa-Library");
}

void MainDialogTest::failedSavesKeepTheShape() {
  click(8026);
  const ShapeRecord made = view().shape();
  // Folders stand where the files belong: one cannot be replaced and is told of,
  // the other is moved aside.
  QVERIFY(QDir(root_->path()).mkpath(file("thumbs/shpe-0000.bmp/x")));
  QVERIFY(QDir(root_->path()).mkpath(file("shpe-0000.j3d/x")));
  QVERIFY(QFile::rename(file("thumbs/shpe-0000.bmp"), file("thumbs/shpe-0000.BMP")));
  QString told;
  answer({[&](QWidget* asked) {
    told = qobject_cast<QMessageBox*>(asked)->text();
    press(asked, Qt::Key_Return);
  }});
  click(8033);
  press<CRightSaveTab>(1);
  QCOMPARE(told, "CreateFile\nError");
  QVERIFY(contents("shapes/shpe-0000.j3d").size() == 6494);
  QVERIFY(QDir(file("shpe-0000.j3d.bak/x")).exists());
  QVERIFY(view().shape() == made && dialog_->mode() == Mode::Editing);
  // No name, and no library.
  for (const bool folder : {true, false}) {
    if (!folder) {
      QVERIFY(QDir(root_->filePath("vortex")).removeRecursively());
    }
    click(8033);
    type<CLeftSaveTab>(8092, folder ? "  " : "gone");
    press<CRightSaveTab>(1);
    QCOMPARE(part<PanelFrame>(8029).name(), folder ? "Not saved: there is no file name"
                                                   : "Not saved: the library cannot be found");
    QVERIFY(dialog_->mode() == Mode::Editing);
  }
  QVERIFY(!QDir(root_->filePath("vortex")).exists());
}

void MainDialogTest::particlesReachTheDialog() {
  dialog_->showPage(LeftPage::Particles);
  on<CParticleTab, CSpinCombo>(8082).moveTo(77);
  QCOMPARE(dialog_->particles().trigger, 77);
}

void MainDialogTest::badFilesKeepTheShape() {
  click(8026);
  const ShapeRecord made = view().shape();
  const auto write = [&](const char* name, const QByteArray& bytes) {
    QFile out(file(name));
    return out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size();
  };
  QVERIFY(write("empty.j3d", {}) && write("short.j3d", "\x46\x13") &&
          write("other.j3d", QByteArray(7000, 'x')));
  for (const char* name : {"empty.j3d", "short.j3d", "other.j3d", "missing.j3d", "."}) {
    dialog_->openFile(pathOf(file(name)));
    QVERIFY(view().shape() == made);
    QVERIFY(part<PanelFrame>(8029).name().startsWith("Not loaded: "));
  }
  click(8031);
  QCOMPARE(part<PanelFrame>(8029).name(), "");
  press<CRightLoadTab>(2);
  dialog_->openFile(pathOf(file("missing.j3d")));
  control<CSpinCombo>(8034).moveTo(3);
  QCOMPARE(part<PanelFrame>(8029).name(), "");
}

void MainDialogTest::droppedFileOpens() {
  const auto drop = [&](const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    const QPoint at = control(8034).mapTo(dialog_.get(), QPoint(240, 12));  // on a number field
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    enter.setAccepted(false);
    QApplication::sendEvent(dialog_.get(), &enter);
    if (enter.isAccepted()) {
      QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, {});
      QApplication::sendEvent(dialog_.get(), &event);
    }
    return enter.isAccepted();
  };
  click(8027);
  QVERIFY(SaveShapeFile(pathOf(file("dropped")), view().shape()).ok());
  click(8024);
  const auto local = [this](const char* name) { return QUrl::fromLocalFile(file(name)); };
  QVERIFY(!drop({}));
  QVERIFY(!drop({local("picture.png"), QUrl("http://host/remote.j3d")}));
  QCOMPARE(view().shape().emitter.kind, EmitterKind::Point);
  QVERIFY(drop({local("picture.png"), local("dropped.j3d"), local("missing.j3d")}));
  QCOMPARE(view().shape().emitter.kind, EmitterKind::SpherePatch);
  for (const auto* field : dialog_->findChildren<QLineEdit*>()) {
    QVERIFY(!field->acceptDrops());
  }
#ifdef _WIN32
  QMimeData remote;
  remote.setUrls({QUrl("file://server/share%20a/ball.j3d"), QUrl("file:///C:/ball.j3d")});
  QCOMPARE(draggedFile(remote, ".j3d").native(), L"\\\\server\\share a\\ball.j3d");
#endif
}

void MainDialogTest::settingsComeBackAsTexts() {
  dialog_.reset();
  QVERIFY(registry().query(kSettingsKey, "CoreShapeFilename") == RegistryValue("shpe"));
  QVERIFY(registry().query(kSettingsKey, kWindowPlaceValue));
  store_->put(kSettingsKey, "CoreShapeFilename", 4, {7, 0, 0, 0});
  QVERIFY(registry().setString(kSettingsKey, "CoreParticleFilename", "dust"));
  open();
  dialog_.reset();
  QVERIFY(registry().query(kSettingsKey, "CoreShapeFilename") == RegistryValue("shpe"));
  QVERIFY(registry().query(kSettingsKey, "CoreParticleFilename") == RegistryValue("dust"));
}

void MainDialogTest::placeComesBackOnTheScreen() {
  const QRect screen = dialog_->screen()->availableGeometry();
  open("31 47 350 260 0");
  QCOMPARE(dialog_->geometry(), QRect(31, 47, 350, 260));
  open(windowPlace(*dialog_));
  QCOMPARE(dialog_->geometry(), QRect(31, 47, 350, 260));
  open("31 47 350 260 1");
  QVERIFY(dialog_->isMaximized());
  dialog_.reset();
  for (const char* text :
       {"", "nonsense", "1 2 3", "-5000 -5000 400 300 0", "60000 60000 400 300 0",
        "0 0 65000 65000 0", "2147483647 2147483647 2147483647 2147483647 1", "1 1 0 0 0",
        "-2147483648 5 400 300 0", "9 9 99999999999999999999 9 0", "0 0 1 1 0"}) {
    QVERIFY(registry().setString(kSettingsKey, kWindowPlaceValue, text));
    dialog_ = std::make_unique<MainDialog>(MainDialogSetup{}, registry());
    const QRect place = dialog_->geometry();
    QVERIFY2(screen.contains(place) && place.width() >= 320 && place.height() >= 200, text);
    dialog_.reset();
  }
}

void MainDialogTest::badSurroundingsDoNoHarm() {
  dialog_.reset();
  QVERIFY(QDir(root_->path()).mkdir("config"));
  QFile store(root_->filePath("config/software.amberly.kaleido.ui.reg"));
  QVERIFY(store.open(QIODevice::WriteOnly));
  store.write(QByteArray("\xff\xfe\0[\"=dword:zz\n\"TextColour\"=hex:1,\n", 36).repeated(50));
  store.close();
  UserRegistry garbled(pathOf(root_->filePath("config")));
  UserRegistry nowhere({});
  for (UserRegistry* registry : {&garbled, &nowhere}) {
    for (const char* folder : {"Error", "", "\\no\\such\\folder", "Illegal executable name 'x'!"}) {
      MainDialog dialog({folder, ""}, *registry);
      dialog.show();
      QVERIFY(QTest::qWaitForWindowExposed(&dialog));
      dialog.openFile("");
      dialog.grab();
    }
  }
}

void MainDialogTest::helpNamesItsPage() {
  QString text;
  answer({[&](QWidget* asked) {
    text = qobject_cast<QMessageBox*>(asked)->text();
    QCOMPARE(qobject_cast<QMessageBox*>(asked)->textFormat(), Qt::PlainText);
    press(asked, Qt::Key_Escape);
  }});
  type(8043, "4");  // also from within a field
  QTest::keyClick(control(8043).findChild<QLineEdit*>(), Qt::Key_F1);
  QTRY_COMPARE(text, "\\x\\<b>help\\main.htm");
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
    QTest::keyClick(dialog_.get(), key);
    QTest::keyClick(&viewWidget(), key);
    QVERIFY(dialog_->isVisible());
  }
}

void MainDialogTest::programEndsWithAReason() {
  const auto run = [this](const QStringList& arguments, const char* platform) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
    environment.insert("QT_QPA_PLATFORM", platform);
    environment.insert("XDG_RUNTIME_DIR", root_->path());
    environment.insert("XDG_CONFIG_HOME", root_->path());
    program.setProcessEnvironment(environment);
    program.start(PV_PROGRAM, arguments);
    program.waitForFinished();
    return std::pair(program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
                     program.readAllStandardOutput() + program.readAllStandardError());
  };
  const auto [helped, help] = run({"--help"}, "");
  QVERIFY(helped == 0 && help.contains("--root"));
  QCOMPARE(run({"--version"}, "").first, 0);
  QCOMPARE(run({"--root", "/no/such/folder"}, "").first, 64);
  QCOMPARE(run({"--nonsense"}, "").first, 64);
#ifndef _WIN32  // which always has a display, and tells of a missing plug-in in a box
  const auto [ended, reason] = run({}, "");
  QVERIFY(ended == 1 && reason.contains("display"));
  const auto [failed, why] = run({}, "nonsense");
  QVERIFY(failed == 1 && why.contains("no window can be opened"));
#endif
}

}  // namespace pv

QTEST_MAIN(pv::MainDialogTest)
#include "main_dialog_test.moc"
