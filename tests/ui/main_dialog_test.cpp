#include "app/ui/main_dialog.h"

#include <array>
#include <deque>
#include <functional>
#include <memory>
#include <utility>

#include <QAbstractButton>
#include <QApplication>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include "app/application_folder.h"
#include "app/ui/quiet_page.h"
#include "app/ui/window_place.h"
#include "app/ui/window_style.h"
#include "shape/ui/tab_emitter.h"
#include "ui/spin_combo.h"
#include "util/colour_scheme.h"
#include "util/program_path.h"
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

  void controlsStandInTheirPlaces();
  void smallWindowsScroll();
  void stripCyclesThroughThePages();
  void everyEditReachesTheView();
  void titleShowsTheModifierInHand();
  void savedShapeLoadsIdentical();
  void savingAsksBeforeItReplaces();
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
  static std::function<void(QWidget*)> pick(const QString& name);
  static void press(QWidget* asked, Qt::Key key) { QTest::keyClick(asked, key); }

  std::unique_ptr<QTemporaryDir> root_;
  std::unique_ptr<UserRegistry> registry_;
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
  registry_ = std::make_unique<UserRegistry>(pathOf(root_->filePath("config")));
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
    QVERIFY(registry_->setString(kSettingsKey, kWindowPlaceValue, place));
  }
  const MainDialogSetup setup{applicationFolderAt(pathOf(root_->path())), "\\x\\<b>help\\main.htm"};
  dialog_ = std::make_unique<MainDialog>(setup, *registry_);
  if (place.empty()) {
    dialog_->resize(kUsual);
  }
  dialog_->show();
  dialog_->activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(dialog_.get()));
}

std::function<void(QWidget*)> MainDialogTest::pick(const QString& name) {
  return [name](QWidget* asked) {
    asked->findChild<QLineEdit*>("fileNameEdit")->setText(name);
    QMetaObject::invokeMethod(asked, "accept");
  };
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
  click(8029);
  click(8032);
  QVERIFY(!control<QAbstractButton>(8032).isChecked());
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

void MainDialogTest::savedShapeLoadsIdentical() {
  click(8026);
  control<CSpinCombo>(8034).moveTo(12);
  for (const char* name : {"one", "two.j3d", "three.J3D", "four.five"}) {
    const ShapeRecord made = view().shape();
    answer({pick(name)});
    click(8033);
    const QString stem = QString(name).remove(".j3d", Qt::CaseInsensitive);
    QTRY_VERIFY(QFile::exists(file(stem + ".j3d")));
    QTRY_COMPARE(part<PanelFrame>(8029).name(), stem);
    click(8024);
    answer({pick(file(stem + ".j3d"))});
    click(8031);
    QTRY_COMPARE(view().shape().emitter.kind, EmitterKind::GridPatch);
    QVERIFY(view().shape() == made);
    QVERIFY(control<QAbstractButton>(8026).isChecked());
  }
  QCOMPARE(control<QLabel>(8061).text(), "Total Emitter Count = 143");
  // Typed, but not entered; and by the keyboard.
  type(8039, "5");
  answer({pick("typed")});
  dialog_->activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(dialog_.get()));
  QTest::keyClick(dialog_.get(), Qt::Key_S, Qt::ControlModifier);
  QTRY_VERIFY(QFile::exists(file("typed.j3d")));
  QCOMPARE(view().shape().emitter.verticalAmount, 5);
}

void MainDialogTest::savingAsksBeforeItReplaces() {
  const auto bytes = [this] {
    QFile saved(file("mine.j3d"));
    return saved.open(QIODevice::ReadOnly) ? saved.readAll() : QByteArray();
  };
  const auto enter = [](QWidget* asked) { press(asked, Qt::Key_Return); };
  const auto giveUp = [](QWidget* asked) { press(asked, Qt::Key_Escape); };
  answer({pick("mine")});
  click(8033);
  QTRY_COMPARE(bytes().size(), 6494);
  const QByteArray first = bytes();
  click(8026);
  answer({pick("mine"), enter, giveUp});  // back in the file dialog after a No
  click(8033);
  QTRY_VERIFY(answers_.empty() && QApplication::activeModalWidget() == nullptr);
  QCOMPARE(bytes(), first);
  answer({pick("mine.j3d"), [](QWidget* asked) { press(asked, Qt::Key_Y); }});
  click(8033);
  QTRY_VERIFY(bytes() != first);
  // A folder cannot be replaced.
  QVERIFY(QDir(root_->path()).mkpath(file("folder.j3d")));
  QString reason;
  answer({pick("folder"), [](QWidget* asked) { press(asked, Qt::Key_Y); },
          [&](QWidget* asked) {
            reason = qobject_cast<QMessageBox*>(asked)->text();
            press(asked, Qt::Key_Return);
          }});
  click(8033);
  QTRY_VERIFY(reason.contains("folder.j3d"));
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
    dialog_->openFile(file(name));
    QVERIFY(view().shape() == made);
    QVERIFY(part<PanelFrame>(8029).name().startsWith("Not loaded: "));
  }
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
  answer({pick("dropped")});
  click(8033);
  QTRY_VERIFY(QFile::exists(file("dropped.j3d")));
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
}

void MainDialogTest::settingsComeBackAsTexts() {
  dialog_.reset();
  QFile store(QDir(root_->filePath("config")).filePath("software.amberly.kaleido.ui.reg"));
  QVERIFY(store.open(QIODevice::ReadOnly));
  QByteArray text = store.readAll();
  store.close();
  QVERIFY(text.contains("\"CoreShapeFilename\"=\"shpe\"") && text.contains("\"DesignerWindow\"="));
  text.replace("\"shpe\"", "dword:00000007").replace("\"part\"", "\"dust\"");
  QVERIFY(store.open(QIODevice::WriteOnly) && store.write(text) == text.size());
  store.close();
  open();
  dialog_.reset();
  QVERIFY(registry_->query(kSettingsKey, "CoreShapeFilename") == RegistryValue("shpe"));
  QVERIFY(registry_->query(kSettingsKey, "CoreParticleFilename") == RegistryValue("dust"));
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
    QVERIFY(registry_->setString(kSettingsKey, kWindowPlaceValue, text));
    dialog_ = std::make_unique<MainDialog>(MainDialogSetup{}, *registry_);
    const QRect place = dialog_->geometry();
    QVERIFY2(screen.contains(place) && place.width() >= 320 && place.height() >= 200, text);
    dialog_.reset();
  }
}

void MainDialogTest::badSurroundingsDoNoHarm() {
  dialog_.reset();
  QFile store(QDir(root_->filePath("config")).filePath("software.amberly.kaleido.ui.reg"));
  QVERIFY(store.open(QIODevice::WriteOnly));
  store.write(QByteArray("\xff\xfe\0[\"=dword:zz\n\"TextColour\"=hex:1,\n", 36).repeated(50));
  store.close();
  UserRegistry nowhere({});
  for (UserRegistry* registry : {registry_.get(), &nowhere}) {
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
  const auto [ended, reason] = run({}, "");
  QVERIFY(ended == 1 && reason.contains("display"));
  const auto [failed, why] = run({}, "nonsense");
  QVERIFY(failed == 1 && why.contains("no window can be opened"));
}

}  // namespace pv

QTEST_MAIN(pv::MainDialogTest)
#include "main_dialog_test.moc"
