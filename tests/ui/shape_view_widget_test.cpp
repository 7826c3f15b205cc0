#include "view3d/ui/shape_view_widget.h"

#include <memory>

#include <QApplication>
#include <QTest>
#include <QWindow>

#include "paint_counter.h"

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

/// The view in a window, off its corner, with real mouse events.
class ShapeViewWidgetTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup() { window_.reset(); }

  void showsTheFramePixelByPixel();
  void followsTheScreensDensity();
  void manyMovesMakeOneFrame();
  void onlyChangesMakeFrames();
  void dragOnEmptySpaceMovesTheCamera();
  void dragOfAHandleChangesItsValue();
  void dragEndsWhenTheButtonIsLost();
  void closesInMidDrag();

 private:
  ShapeView& view() { return widget_->view(); }
  /// Position in the window of a canvas position given in device pixels.
  QPoint inWindow(double canvasX, double canvasY);
  void press(QPoint at) { QTest::mousePress(window_->windowHandle(), Qt::LeftButton, {}, at); }
  void move(QPoint at) { QTest::mouseMove(window_->windowHandle(), at); }
  void redraw() {
    widget_->refresh();
    widget_->repaint();
  }
  void release(QPoint at) { QTest::mouseRelease(window_->windowHandle(), Qt::LeftButton, {}, at); }

  std::unique_ptr<QWidget> window_;
  ShapeViewWidget* widget_ = nullptr;
};

void ShapeViewWidgetTest::init() {
  window_ = std::make_unique<QWidget>();
  window_->resize(680, 570);
  widget_ = new ShapeViewWidget(window_.get());
  widget_->setGeometry(46, 32, 568, 508);
  window_->show();
  window_->activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(window_.get()));
  widget_->setFocus();
  view().setCameraTool(CameraTool::Rotate);
  view().setShape(grid());
  view().setViewMode(ViewMode::Front);
  redraw();
}

QPoint ShapeViewWidgetTest::inWindow(double canvasX, double canvasY) {
  const double ratio = window_->devicePixelRatioF();
  const QPointF inView(canvasX / ratio, (view().height() - canvasY) / ratio);
  return widget_->mapTo(window_.get(), inView).toPoint();
}

void ShapeViewWidgetTest::showsTheFramePixelByPixel() {
  view().SelectModifier(ModifierKind::Twist);
  for (const ViewMode mode : {ViewMode::Perspective, ViewMode::Side}) {
    view().setViewMode(mode);
    widget_->refresh();
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
      QImage shown((QSizeF(widget_->size()) * ratio).toSize(), QImage::Format_RGB32);
      shown.setDevicePixelRatio(ratio);
      shown.fill(Qt::magenta);
      widget_->render(&shown);
      const QImage expected = frameOf(view(), shown.size(), static_cast<float>(ratio));
      shown.setDevicePixelRatio(1);
      QCOMPARE(shown, expected);
    }
  }
  // The window as a whole, its view at whatever place and scale it has.
  const QImage whole = window_->grab().toImage();
  const QPointF corner = widget_->mapTo(window_.get(), QPointF(0, 0)) * whole.devicePixelRatio();
  QImage part = whole.copy(QRect(corner.toPoint(), QSize(view().width(), view().height())));
  part.setDevicePixelRatio(1);
  QCOMPARE(part.convertToFormat(QImage::Format_RGB32),
           frameOf(view(), part.size(), static_cast<float>(whole.devicePixelRatio())));
}

void ShapeViewWidgetTest::followsTheScreensDensity() {
  const auto screens = QGuiApplication::screens();
  if (screens.size() < 2) {
    QSKIP("Needs a second screen of twice the density");
  }
  const int width = view().width();
  window_->windowHandle()->setScreen(screens[1]);
  QTRY_VERIFY(std::abs(view().width() - 2 * width) <= 1);
  dragOfAHandleChangesItsValue();
  window_->windowHandle()->setScreen(screens[0]);
  QTRY_COMPARE(view().width(), width);
}

void ShapeViewWidgetTest::manyMovesMakeOneFrame() {
  ShapeRecord large = grid();
  large.emitter.kind = EmitterKind::SpherePatch;
  large.emitter.horizontalAmount = large.emitter.verticalAmount = 300;
  view().setShape(large);
  redraw();
  press(widget_->mapTo(window_.get(), QPoint(40, 40)));
  QCoreApplication::processEvents();
  PaintCounter counter(*widget_);
  for (int i = 1; i <= 200; ++i) {
    const QPointF at(40 + i, 40 + i % 7);
    QCoreApplication::postEvent(
        widget_, new QMouseEvent(QEvent::MouseMove, at, widget_->mapToGlobal(at), Qt::NoButton,
                                 Qt::LeftButton, Qt::NoModifier));
  }
  QTRY_COMPARE(counter.paints, 1);
  ShapeView once;  // sees the last position only
  once.setCameraTool(CameraTool::Rotate);
  once.mouseMove({40, 40});
  once.mousePress({40, 40});
  once.mouseMove({240, 44});
  QCOMPARE(view().camera(), once.camera());
}

void ShapeViewWidgetTest::onlyChangesMakeFrames() {
  ModifierTable table;
  table[ModifierKind::VertexDisperse] = {1, 1, 1};  // no frame is like the one before
  view().setModifiers(table);
  view().SelectModifier(ModifierKind::VertexMove);
  redraw();
  const QImage shown = widget_->grab().toImage();
  {
    PaintCounter counter(*widget_);
    for (int i = 0; i < 50; ++i) {
      move(inWindow(40 + 2 * i, 40));
    }
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 0);
  }
  window_->repaint();
  widget_->clearFocus();
  widget_->hide();
  widget_->show();
  QCoreApplication::processEvents();
  QVERIFY(widget_->grab().toImage() == shown);
  move(inWindow(view().width() / 2, view().height() / 2));  // onto the handle in the middle
  QVERIFY(view().activeHandle() != Handle::None);
  QVERIFY(widget_->grab().toImage() != shown);
}

void ShapeViewWidgetTest::dragOnEmptySpaceMovesTheCamera() {
  view().SelectModifier(ModifierKind::VertexMove);
  redraw();
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

void ShapeViewWidgetTest::dragOfAHandleChangesItsValue() {
  view().SelectModifier(ModifierKind::VertexMove);
  redraw();
  const ViewCamera camera = view().camera();
  const QPoint handle =
      inWindow(view().width() / 2 + view().width() / 2.0 * 0.55, view().height() / 2);
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
}

void ShapeViewWidgetTest::dragEndsWhenTheButtonIsLost() {
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
  QVERIFY(!dragsAfter([&] { widget_->clearFocus(); }));
  QVERIFY(!dragsAfter([&] {
    widget_->hide();
    widget_->show();
  }));
  // The release went to another program: the next move has no button.
  QVERIFY(!dragsAfter([&] {
    QMouseEvent bare(QEvent::MouseMove, QPointF(60, 60), widget_->mapToGlobal(QPointF(60, 60)),
                     Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget_, &bare);
  }));
}

void ShapeViewWidgetTest::closesInMidDrag() {
  press(inWindow(40, 40));
  move(inWindow(60, 60));
  window_->close();
  QVERIFY(!window_->isVisible());
  window_.reset();
}

}  // namespace pv

QTEST_MAIN(pv::ShapeViewWidgetTest)
#include "shape_view_widget_test.moc"
