#include "app/ui/shape_window.h"

#include <memory>
#include <set>

#include <QApplication>
#include <QLabel>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "app/ui/window_buttons.h"
#include "app/ui/window_style.h"
#include "shape/shape_file.h"

namespace pv {
namespace {

ShapeRecord grid() {
  ShapeRecord shape;
  shape.emitter.kind = EmitterKind::GridPatch;
  ModifierTable table;
  table[ModifierKind::Bend] = {20.0F, 0.0F, 35.5F};
  shape.modifiers = toFileOrder(table);
  return shape;
}

// The frame that the core draws for this state, top row first.
QImage frameOf(const ShapeView& shown, QSize size, float ratio) {
  ShapeView view;
  view.setShape(shown.shape());
  view.setViewMode(shown.viewMode());
  view.setCamera(shown.camera());
  view.SelectModifier(shown.SelectedModifier());
  view.setSize(size.width(), size.height(), ratio);
  const auto frame = view.drawFrame();
  const QImage picture(reinterpret_cast<const uchar*>(frame.data()), size.width(), size.height(),
                       QImage::Format_RGB32);
  return picture.mirrored();
}

}  // namespace

/// The whole window with real mouse and key events on the offscreen platform.
class ShapeWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { applyDarkStyle(); }
  void init();
  void cleanup() { window_.reset(); }

  void showsTheFramePixelByPixel();
  void followsTheScreensDensity();
  void manyMovesMakeOneFrame();
  void dragOnEmptySpaceMovesTheCamera();
  void dragOfAHandleChangesItsValue();
  void dragEndsWhenTheButtonIsLost();
  void viewsAndToolsAreRadioGroups();
  void modifierButtonsSwitchAndDeselect();
  void keysPressTheirButtons();
  void everyButtonExplainsItself();
  void savedShapeLoadsIdentical();
  void badFilesKeepTheShape();
  void droppedFileOpens();
  void closesInMidDrag();
  void programEndsWithAReason();

 private:
  ShapeView& view() { return window_->viewWidget().view(); }
  QPushButton& button(const char* name) { return *window_->findChild<QPushButton*>(name); }
  QString status() { return window_->findChild<QLabel*>("shape status")->text(); }
  /// Position in the window of a canvas position given in device pixels.
  QPoint inWindow(double canvasX, double canvasY);
  QPoint xHandle();
  void press(QPoint at) { QTest::mousePress(window_->windowHandle(), Qt::LeftButton, {}, at); }
  void move(QPoint at) { QTest::mouseMove(window_->windowHandle(), at); }
  void release(QPoint at) { QTest::mouseRelease(window_->windowHandle(), Qt::LeftButton, {}, at); }

  QTemporaryDir folder_;
  std::unique_ptr<ShapeWindow> window_;
};

void ShapeWindowTest::init() {
  window_ = std::make_unique<ShapeWindow>(folder_.path());
  window_->show();
  window_->activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(window_.get()));
  view().setShape(grid());
  view().setViewMode(ViewMode::Front);
  window_->viewWidget().repaint();
}

QPoint ShapeWindowTest::inWindow(double canvasX, double canvasY) {
  const double ratio = window_->devicePixelRatioF();
  const QPointF inView(canvasX / ratio, (view().height() - canvasY) / ratio);
  return window_->viewWidget().mapTo(window_.get(), inView).toPoint();
}

QPoint ShapeWindowTest::xHandle() {
  return inWindow(view().width() / 2 + view().width() / 2.0 * 0.55, view().height() / 2);
}

void ShapeWindowTest::showsTheFramePixelByPixel() {
  ShapeViewWidget& widget = window_->viewWidget();
  view().SelectModifier(ModifierKind::Twist);
  for (const ViewMode mode : {ViewMode::Perspective, ViewMode::Side}) {
    view().setViewMode(mode);
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
      QImage shown((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_RGB32);
      shown.setDevicePixelRatio(ratio);
      shown.fill(Qt::magenta);
      widget.render(&shown);
      const QImage expected = frameOf(view(), shown.size(), static_cast<float>(ratio));
      shown.setDevicePixelRatio(1);
      QCOMPARE(shown, expected);
    }
  }
  // The window as a whole, its view at whatever place and scale it has.
  const QImage whole = window_->grab().toImage();
  const QPointF corner = widget.mapTo(window_.get(), QPointF(0, 0)) * whole.devicePixelRatio();
  QImage part = whole.copy(QRect(corner.toPoint(), QSize(view().width(), view().height())));
  part.setDevicePixelRatio(1);
  QCOMPARE(part.convertToFormat(QImage::Format_RGB32),
           frameOf(view(), part.size(), static_cast<float>(whole.devicePixelRatio())));
}

void ShapeWindowTest::followsTheScreensDensity() {
  const auto screens = QGuiApplication::screens();
  if (screens.size() < 2) {
    QSKIP("Needs a second screen of twice the density");
  }
  const int width = view().width();
  window_->windowHandle()->setScreen(screens[1]);
  QTRY_COMPARE(view().width(), 2 * width);
  dragOfAHandleChangesItsValue();
  window_->windowHandle()->setScreen(screens[0]);
  QTRY_COMPARE(view().width(), width);
}

void ShapeWindowTest::manyMovesMakeOneFrame() {
  struct Counter : QObject {
    int paints = 0;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      paints += event->type() == QEvent::Paint ? 1 : 0;
      return false;
    }
  } counter;
  ShapeViewWidget& widget = window_->viewWidget();
  press(inWindow(40, 40));
  QCoreApplication::processEvents();
  widget.installEventFilter(&counter);
  const float yaw = view().camera().yaw;
  for (int i = 1; i <= 50; ++i) {
    const QPointF at(40 + i, 60);
    QMouseEvent moved(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &moved);
  }
  QTRY_COMPARE(counter.paints, 1);
  QVERIFY(view().camera().yaw > yaw + 40);
}

void ShapeWindowTest::dragOnEmptySpaceMovesTheCamera() {
  view().SelectModifier(ModifierKind::VertexMove);
  window_->viewWidget().repaint();
  const QPoint empty = inWindow(40, 40);
  move(empty + QPoint(300, 0));  // where the pointer was before does not count
  press(empty);
  move(empty + QPoint(30, -20));
  release(empty + QPoint(30, -20));
  move(empty);
  QCOMPARE(view().camera().yaw, 300.0F);
  QCOMPARE(view().camera().pitch, -20.0F);
  QCOMPARE(view().shape(), grid());
}

void ShapeWindowTest::dragOfAHandleChangesItsValue() {
  QTest::mouseClick(&button("Vertex Move"), Qt::LeftButton);
  window_->viewWidget().repaint();
  const ViewCamera camera = view().camera();
  const QPoint handle = xHandle();
  move(handle);
  press(handle);
  for (int i = 1; i <= 20; ++i) {
    move(handle + QPoint(10 * i, 0));
    QTest::qWait(1);  // frames in between: the handle follows
  }
  release(handle + QPoint(200, 0));
  const float x = view().modifiers()[ModifierKind::VertexMove].x;
  QVERIFY2(std::abs(x - 1.0F) < 1e-4F, qPrintable(QString::number(x)));
  QCOMPARE(view().camera(), camera);
  const QString shown = window_->findChild<QLabel*>("modifier status")->text();
  QVERIFY2(shown.startsWith("Vertex Move") && shown.contains("1.00"), qPrintable(shown));
}

void ShapeWindowTest::dragEndsWhenTheButtonIsLost() {
  ShapeViewWidget& widget = window_->viewWidget();
  const QPoint start = inWindow(40, 40);
  const auto dragsAfter = [&](auto&& loss) {
    const float pitch = view().camera().pitch;
    press(start);
    loss();
    move(start + QPoint(0, 5));
    const bool drags = view().camera().pitch != pitch;
    release(start);
    return drags;
  };
  QVERIFY(dragsAfter([] {}));
  QVERIFY(!dragsAfter([&] { button("Grid").setFocus(); }));
  QVERIFY(!dragsAfter([&] {
    widget.hide();
    widget.show();
  }));
  // The release went to another program: the next move has no button.
  QVERIFY(!dragsAfter([&] {
    QMouseEvent bare(QEvent::MouseMove, QPointF(60, 60), widget.mapToGlobal(QPointF(60, 60)),
                     Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &bare);
  }));
}

void ShapeWindowTest::viewsAndToolsAreRadioGroups() {
  QTest::mouseClick(&button("Side view"), Qt::LeftButton);
  QTest::mouseClick(&button("Side view"), Qt::LeftButton);
  QCOMPARE(view().viewMode(), ViewMode::Side);
  QVERIFY(button("Side view").isChecked() && !button("3D view").isChecked());
  QVERIFY(button("Camera Rotate").isChecked());
  QTest::mouseClick(&button("Camera Roll"), Qt::LeftButton);
  QTest::mouseClick(&button("Camera Roll"), Qt::LeftButton);
  QCOMPARE(view().cameraTool(), CameraTool::Roll);
  QVERIFY(button("Camera Roll").isChecked() && !button("Camera Rotate").isChecked());
  QVERIFY(button("Grid").isChecked() && button("Lines").isChecked());
  QTest::mouseClick(&button("Grid"), Qt::LeftButton);
  QVERIFY(!view().showGrid() && view().showLines());
  view().setCamera({10, 20, 30, 2});
  QTest::mouseClick(&button("Camera Reset"), Qt::LeftButton);
  QCOMPARE(view().camera(), ViewCamera{});
}

void ShapeWindowTest::modifierButtonsSwitchAndDeselect() {
  for (const ModifierButton& entry : kModifierButtons) {
    QTest::mouseClick(&button(entry.text.name), Qt::LeftButton);
    QCOMPARE(view().SelectedModifier(), entry.kind);
    for (const ModifierButton& other : kModifierButtons) {
      QCOMPARE(button(other.text.name).isChecked(), other.kind == entry.kind);
    }
  }
  ModifierTable table = view().modifiers();
  table[ModifierKind::VertexScale] = {2, 3, 4};
  table[ModifierKind::Twist] = {5, 6, 7};
  view().setModifiers(table);
  QTest::mouseClick(&button("Vertex Scale"), Qt::LeftButton);
  QTest::mouseClick(&button("XYZ Reset"), Qt::LeftButton);
  QCOMPARE(view().modifiers()[ModifierKind::VertexScale], (Vec3{1, 1, 1}));
  QCOMPARE(view().modifiers()[ModifierKind::Twist], (Vec3{5, 6, 7}));
  QTest::mouseClick(&button("Vertex Scale"), Qt::LeftButton);
  QCOMPARE(view().SelectedModifier(), ModifierKind::None);
  QTest::mouseClick(&button("XYZ Reset"), Qt::LeftButton);  // nothing to reset
  QCOMPARE(view().modifiers()[ModifierKind::Twist], (Vec3{5, 6, 7}));
  QTest::mouseClick(&button("XYZ Reset All"), Qt::LeftButton);
  QCOMPARE(view().modifiers(), ModifierTable());
}

void ShapeWindowTest::keysPressTheirButtons() {
  for (const ModifierButton& entry : kModifierButtons) {
    const QKeySequence key(entry.text.key);
    QTest::keyClick(window_.get(), key[0].key(), key[0].keyboardModifiers());
    QCOMPARE(view().SelectedModifier(), entry.kind);
  }
  QTest::keyClick(window_.get(), Qt::Key_Escape);
  QCOMPARE(view().SelectedModifier(), ModifierKind::None);
  QVERIFY(!button("Shape Scale").isChecked());
  for (int i = 0; i < 4; ++i) {
    QTest::keyClick(window_.get(), static_cast<Qt::Key>(Qt::Key_1 + i));
    QCOMPARE(view().viewMode(), static_cast<ViewMode>(i));
  }
  QTest::keyClick(window_.get(), Qt::Key_G);
  QTest::keyClick(window_.get(), Qt::Key_L);
  QVERIFY(!view().showGrid() && !view().showLines());
}

void ShapeWindowTest::everyButtonExplainsItself() {
  std::set<QString> names;
  std::set<QString> keys;
  for (const auto* each : window_->findChildren<QPushButton*>()) {
    QVERIFY(names.insert(each->accessibleName()).second);
    QVERIFY(each->toolTip().contains("<b>"));
    QVERIFY(each->whatsThis().contains(":\nThis "));
  }
  QCOMPARE(names.size(), 29U);
  std::set<ModifierKind> kinds;
  for (const ModifierButton& entry : kModifierButtons) {
    QVERIFY(kinds.insert(entry.kind).second && keys.insert(entry.text.key).second);
    QCOMPARE(entry.text.name, QString::fromStdString(std::string(traits(entry.kind).name)));
  }
}

void ShapeWindowTest::savedShapeLoadsIdentical() {
  for (const char* name : {"one", "two.j3d", "three.J3D", "four.five"}) {
    view().setShape(grid());
    QVERIFY(window_->saveFile(folder_.filePath(name)));
    view().setShape({});
    const QString stem = QString(name).remove(".j3d", Qt::CaseInsensitive);
    QVERIFY(window_->openFile(folder_.filePath(stem + ".j3d")));
    QCOMPARE(view().shape(), grid());
    QCOMPARE(window_->windowTitle(), "Particle Vortex - " + stem + ".j3d");
  }
  QVERIFY(status().contains("Total Emitter Count = 121"));

  bool asked = false;
  QTimer::singleShot(0, [&] {
    asked = QApplication::activeModalWidget() != nullptr;
    QApplication::activeModalWidget()->close();
  });
  QVERIFY(!window_->saveFile(folder_.filePath("no/such/folder/shape")));
  QVERIFY(asked);
}

void ShapeWindowTest::badFilesKeepTheShape() {
  QVERIFY(window_->saveFile(folder_.filePath("good")));
  const QString title = window_->windowTitle();
  const auto write = [&](const char* name, const QByteArray& bytes) {
    QFile file(folder_.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
  };
  QVERIFY(write("empty.j3d", {}) && write("short.j3d", "\x46\x13") &&
          write("other.j3d", QByteArray(7000, 'x')));
  for (const char* name : {"empty.j3d", "short.j3d", "other.j3d", "missing.j3d", "."}) {
    QVERIFY(!window_->openFile(folder_.filePath(name)));
    QVERIFY2(status().contains("Not opened: ") && status().contains(name), qPrintable(status()));
    QCOMPARE(view().shape(), grid());
    QCOMPARE(window_->windowTitle(), title);
  }
  QVERIFY(window_->openFile(folder_.filePath("good.j3d")));
  QVERIFY(status().startsWith("good.j3d"));
}

void ShapeWindowTest::droppedFileOpens() {
  QVERIFY(window_->saveFile(folder_.filePath("dropped")));
  view().setShape({});
  const auto drop = [&](const QString& file) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
    enter.setAccepted(false);
    QApplication::sendEvent(window_.get(), &enter);
    if (enter.isAccepted()) {
      QDropEvent event({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
      QApplication::sendEvent(window_.get(), &event);
    }
    return enter.isAccepted();
  };
  QVERIFY(!drop(folder_.filePath("picture.png")));
  QVERIFY(drop(folder_.filePath("dropped.j3d")));
  QCOMPARE(view().shape(), grid());
}

void ShapeWindowTest::closesInMidDrag() {
  press(inWindow(40, 40));
  move(inWindow(60, 60));
  window_->close();
  QVERIFY(!window_->isVisible());
  window_.reset();
}

void ShapeWindowTest::programEndsWithAReason() {
  const auto run = [](const QStringList& arguments, const char* platform) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
    environment.insert("QT_QPA_PLATFORM", platform);
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

QTEST_MAIN(pv::ShapeWindowTest)
#include "shape_window_test.moc"
