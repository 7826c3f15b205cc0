#include "path/ui/edit_path_tab.h"

#include <cmath>
#include <set>
#include <tuple>
#include <vector>

#include "page_fixture.h"
#include "paint_counter.h"
#include "path/ui/left_path_tab.h"

namespace pv {
namespace {

constexpr QSize kBasic{612, 554};
constexpr std::array kViews{8038, 8036, 8037};
constexpr std::array kTools{8033, 8062, 8063, 8064, 8065, 8066, 8051, 8052, 8041, 8940};
constexpr std::array kSnaps{8047, 8048, 8049, 8050};
constexpr int kDraw = 8051, kMove = 8063, kReset = 8039, kSnap = 8046, kUndo = 8942, kRedo = 8943;

struct Place {
  int id, x, y, width, height;  // in dialog units
  const char* name;
};
constexpr std::array<Place, kEditPathButtonCount> kPlaces{{
    {8037, 0, 0, 23, 22, "Use Front View"},
    {8038, 0, 24, 23, 22, "Use Side View"},
    {8036, 0, 48, 23, 22, "Use Top View"},
    {8062, 0, 78, 23, 22, "Select"},
    {8051, 0, 102, 23, 22, "Path Draw"},
    {8052, 0, 126, 23, 22, "Path Vertex Add"},
    {8041, 0, 150, 23, 22, "Path Vertex Delete"},
    {8063, 0, 210, 23, 22, "Vertex Move"},
    {8064, 0, 234, 23, 22, "Vertex Scale"},
    {8065, 0, 258, 23, 22, "Vertex X Scale"},
    {8066, 0, 282, 23, 22, "Vertex Y Scale"},
    {8039, 0, 318, 23, 22, "PAth Delete"},
    {8033, 42, 318, 23, 22, "Grid Zoom"},
    {8941, 66, 318, 23, 22, "Zoom Reset"},
    {8940, 96, 318, 23, 22, "Grid Move"},
    {8942, 122, 318, 19, 22, "Undo"},
    {8943, 141, 318, 19, 22, "Redo"},
    {8046, 162, 318, 23, 22, "Snap Activate"},
    {8047, 186, 318, 23, 22, "Snap to 1 grid position"},
    {8048, 210, 318, 23, 22, "Snap to 1/2 grid position"},
    {8049, 234, 318, 23, 22, "Snap to 1/3 grid position"},
    {8050, 258, 318, 23, 22, "Snap to 1/4 grid position"},
    {1, 298, 323, 50, 14, "Use Path"},
    {2, 353, 323, 50, 14, "Cancel Path"},
}};

PathRecord pathOf(std::initializer_list<Vec3> points) {
  PathRecord path;
  std::ranges::copy(points, path.points.begin());
  path.count = static_cast<std::int32_t>(points.size());
  return path;
}
const PathRecord kTwoPoints = pathOf({{-0.4F, 0.2F, 0.1F}, {0.4F, 0.2F, -0.1F}});

}  // namespace

/// The path editor's pages with real mouse and key events on the offscreen platform.
class EditPathTabTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup() { fixture_.reset(); }

  void everyControlStandsInItsPlace();
  void buttonsExplainThemselvesInReadingOrder();
  void viewsToolsAndSnapping();
  void drawnPointsLieUnderThePointer();
  void movesMakeFramesOnlyOfChanges();
  void stepsAreTakenBackByKeysAndButtons();
  void escapeTakesBackADragAndIsPassedOnOtherwise();
  void wheelMiddleButtonAndCtrlMoveTheGrid();
  void everyToolHasItsCursor();
  void resultsAreToldOnce();
  void tinyAndHiddenPagesLive();
  void leftPageAsksForFiles();

 private:
  CEditPathTab& page() { return *fixture_->page; }
  PathViewWidget& widget() { return page().view(); }
  PathView& view() { return widget().view(); }
  void click(int id) { fixture_->click(id); }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&widget(), key, modifiers);
  }
  // Through the window, which keeps track of the buttons that are down.
  void move(QPoint to) { QTest::mouseMove(page().windowHandle(), widget().mapTo(&page(), to)); }
  void press(QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    move(at);
    QTest::mousePress(page().windowHandle(), button, {}, widget().mapTo(&page(), at));
  }
  void release(QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    move(at);
    QTest::mouseRelease(page().windowHandle(), button, {}, widget().mapTo(&page(), at));
  }
  void clickAt(QPoint at) {
    press(at);
    release(at);
  }
  /// Where a point of the front view shows, in the window's pixels.
  QPoint placeOfPoint(Vec3 point) {
    const PathViewport shown = view().viewport();
    const ScreenPoint at = shown.toScreen(*shown.project(point));
    return (QPointF(at.x, at.y) / widget().devicePixelRatio()).toPoint();
  }

  std::unique_ptr<PageFixture<CEditPathTab>> fixture_;
};

void EditPathTabTest::init() {
  fixture_ = std::make_unique<PageFixture<CEditPathTab>>(kBasic);
  QVERIFY(QTest::qWaitForWindowActive(&page()));
  widget().repaint();  // sizes the view
}

void EditPathTabTest::everyControlStandsInItsPlace() {
  std::vector<QRect> taken{widget().geometry()};
  QCOMPARE(taken[0], QRect(45, 0, 567, 507));
  for (const Place& place : kPlaces) {
    const DialogRect at = inPixels({place.x, place.y, place.width, place.height});
    const QRect shown = fixture_->control(place.id).geometry();
    QCOMPARE(shown, QRect(at.x, at.y, at.width, at.height));
    for (const QRect& other : taken) {
      QVERIFY2(!shown.intersects(other), place.name);
    }
    QVERIFY(page().rect().contains(shown));
    taken.push_back(shown);
  }
  page().resize(kBasic + QSize(300, 200));
  QCOMPARE(widget().geometry(), taken[0].adjusted(0, 0, 300, 200));
  for (std::size_t i = 0; i < kPlaces.size(); ++i) {
    const QPoint by(kPlaces[i].x >= 298 ? 300 : 0, kPlaces[i].y >= 318 ? 200 : 0);
    QCOMPARE(fixture_->control(kPlaces[i].id).geometry(), taken[i + 1].translated(by));
  }
}

void EditPathTabTest::buttonsExplainThemselvesInReadingOrder() {
  for (std::size_t i = 0; i < kPlaces.size(); ++i) {
    const EditPathButton& row = kEditPathButtons[i];
    QCOMPARE(row.id, kPlaces[i].id);
    const QAbstractButton& button = fixture_->control(row.id);
    const QString shown = button.accessibleName();
    QCOMPARE(shown.isEmpty() ? button.text() : shown, kPlaces[i].name);
    QVERIFY(row.image == nullptr ||
            (isDrawn(row.image) && !button.accessibleDescription().isEmpty()));
  }
  view().setSnapEnabled(true);
  page().showChoices();
  fixture_->control(8037).setFocus(Qt::TabFocusReason);
  for (const Place& place : kPlaces) {
    if (place.id != kUndo && place.id != kRedo) {  // there is nothing to undo
      QCOMPARE(page().focusWidget()->objectName(), QString::number(place.id));
      QTest::keyClick(page().focusWidget(), Qt::Key_Tab);
    }
  }
  QCOMPARE(page().focusWidget(), &widget());
}

void EditPathTabTest::viewsToolsAndSnapping() {
  page().setPath(kTwoPoints);
  QCOMPARE(fixture_->lit(kViews), 8037);
  QCOMPARE(fixture_->lit(kTools), 8062);
  for (const std::size_t i : {0U, 1U, 2U}) {
    click(kViews[i]);
    click(kViews[i]);
    QCOMPARE(view().axisView(), static_cast<PathAxisView>(i));
    QCOMPARE(fixture_->lit(kViews), kViews[i]);
  }
  for (std::size_t i = 0; i < kTools.size(); ++i) {
    key(Qt::Key_A, Qt::ControlModifier);
    click(kTools[i]);
    QCOMPARE(view().getTool(), pathTools()[i].tool);
    QCOMPARE(fixture_->lit(kTools), kTools[i]);
    QVERIFY(widget().hasFocus());
    // Inserting begins without a selection.
    QCOMPARE(view().path().selectedCount(), kTools[i] == 8052 ? 0 : 2);
  }
  for (const bool on : {false, true, false}) {
    QCOMPARE(std::pair(view().snapEnabled(), fixture_->control(kSnap).isChecked()),
             std::pair(on, on));
    for (std::size_t i = 0; i < kSnaps.size(); ++i) {
      const int before = view().snapDivisions();
      QCOMPARE(fixture_->control(kSnaps[i]).isEnabled(), on);
      click(kSnaps[i]);
      QCOMPARE(view().snapDivisions(), on ? 10 * (static_cast<int>(i) + 1) : before);
      QCOMPARE(fixture_->lit(kSnaps),
               kSnaps[static_cast<std::size_t>(view().snapDivisions() / 10 - 1)]);
    }
    click(kSnap);
  }
}

void EditPathTabTest::drawnPointsLieUnderThePointer() {
  const QSignalSpy changed(&widget(), &PathViewWidget::pathChanged);
  const QSignalSpy told(&page(), &CEditPathTab::readoutChanged);
  click(kDraw);
  const std::vector<QPoint> places{{40, 30}, {283, 253}, {501, 77}, {566, 506}};
  for (const QPoint& place : places) {
    clickAt(place);
  }
  QCOMPARE(page().path().count, static_cast<int>(places.size()));
  QCOMPARE(changed.count(), static_cast<int>(places.size()));
  QVERIFY(told.count() >= changed.count());
  click(8062);  // without the band to the pointer
  const QImage picture = widget().grab().toImage();
  for (std::size_t i = 0; i < places.size(); ++i) {
    const QPointF off = placeOfPoint(page().path().points[i]) - QPointF(places[i]);
    QVERIFY2(std::hypot(off.x(), off.y()) <= 1.0, qPrintable(QString::number(i)));
    // Its marker is painted just there, in colour on grey.
    const QPoint pixel = QPointF(places[i] * picture.devicePixelRatio()).toPoint();
    const QColor marker = picture.pixelColor(pixel);
    QVERIFY2(marker.hslSaturation() > 100, qPrintable(marker.name()));
  }
}

void EditPathTabTest::movesMakeFramesOnlyOfChanges() {
  page().setPath(kTwoPoints);
  click(kMove);
  key(Qt::Key_A, Qt::ControlModifier);
  widget().repaint();
  PaintCounter counter(widget());
  for (int i = 0; i < 50; ++i) {
    move({20 + 2 * i, 20});
  }
  QCoreApplication::processEvents();
  QCOMPARE(counter.paints, 0);

  const QPoint first = placeOfPoint(kTwoPoints.points[0]);
  press(first);
  QCoreApplication::processEvents();
  counter.paints = 0;
  for (int i = 1; i <= 200; ++i) {
    const QPointF at = first + QPoint(i, i % 7);
    QCoreApplication::postEvent(
        &widget(), new QMouseEvent(QEvent::MouseMove, at, widget().mapToGlobal(at), Qt::NoButton,
                                   Qt::LeftButton, Qt::NoModifier));
  }
  QTRY_COMPARE(counter.paints, 1);
  const QPoint off = placeOfPoint(page().path().points[0]) - first - QPoint(200, 200 % 7);
  QVERIFY2(off.manhattanLength() <= 2, qPrintable(QString::number(off.manhattanLength())));
}

void EditPathTabTest::stepsAreTakenBackByKeysAndButtons() {
  const auto usable = [this] {
    return std::pair(fixture_->control(kUndo).isEnabled(), fixture_->control(kRedo).isEnabled());
  };
  page().setPath(kTwoPoints);
  QCOMPARE(usable(), std::pair(false, false));
  click(kDraw);
  clickAt({100, 100});
  const PathRecord three = page().path();
  QCOMPARE(three.count, 3);
  QCOMPARE(usable(), std::pair(true, false));
  QVERIFY(fixture_->control(kUndo).accessibleDescription().contains(view().undoLabel().data()));
  key(Qt::Key_Z, Qt::ControlModifier);
  QVERIFY(page().path() == kTwoPoints);
  QCOMPARE(usable(), std::pair(false, true));
  key(Qt::Key_Y, Qt::ControlModifier);
  QVERIFY(page().path() == three);
  click(kUndo);
  QVERIFY(page().path() == kTwoPoints);
  key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  QVERIFY(page().path() == three);

  move({200, 200});
  widget().apply(view().wheel({{50, 50}}, 3));
  click(kReset);
  QCOMPARE(page().path().count, 0);
  QVERIFY(view().zoom() == kPathDefaultZoom && view().pan() == Vec3());
  // The keys also work while a button has the focus.
  fixture_->control(kReset).setFocus(Qt::TabFocusReason);
  QTest::keyClick(&fixture_->control(kReset), Qt::Key_Z, Qt::ControlModifier);
  QVERIFY(page().path() == three);
  key(Qt::Key_Backspace);
  QVERIFY(page().path() == kTwoPoints);
  page().setPath(three);
  QCOMPARE(usable(), std::pair(false, false));
}

void EditPathTabTest::escapeTakesBackADragAndIsPassedOnOtherwise() {
  const QSignalSpy told(&page(), &CEditPathTab::command);
  page().setPath(kTwoPoints);
  click(kMove);
  key(Qt::Key_A, Qt::ControlModifier);
  const auto passedOn = [this](QEvent::Type type, Qt::Key key) {
    QKeyEvent event(type, key, Qt::NoModifier);
    event.setAccepted(type == QEvent::KeyPress);  // as the toolkit sends them
    QCoreApplication::sendEvent(&widget(), &event);
    return !event.isAccepted();
  };
  QVERIFY(passedOn(QEvent::ShortcutOverride, Qt::Key_Escape));
  QVERIFY(passedOn(QEvent::KeyPress, Qt::Key_Escape));
  QVERIFY(passedOn(QEvent::ShortcutOverride, Qt::Key_F1));
  QVERIFY(!passedOn(QEvent::ShortcutOverride, Qt::Key_Delete));

  widget().repaint();
  const QPoint first = placeOfPoint(kTwoPoints.points[0]);
  press(first);
  move(first + QPoint(30, 40));
  move(first + QPoint(60, 80));
  QVERIFY(!(page().path() == kTwoPoints));
  QVERIFY(!passedOn(QEvent::ShortcutOverride, Qt::Key_Escape));
  QVERIFY(!passedOn(QEvent::KeyPress, Qt::Key_Escape));
  QVERIFY(page().path() == kTwoPoints);
  release(first + QPoint(60, 80));
  QVERIFY(page().path() == kTwoPoints && !view().canUndo());
  QCOMPARE(told.count(), 0);
}

void EditPathTabTest::wheelMiddleButtonAndCtrlMoveTheGrid() {
  const auto turn = [this](QPoint angle) {
    QWheelEvent event({200, 100}, widget().mapToGlobal(QPointF(200, 100)), {}, angle, {}, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget(), &event);
  };
  turn({120, 0});
  QCOMPARE(view().zoom(), kPathDefaultZoom);
  turn({0, 120});
  QVERIFY(view().zoom() > kPathDefaultZoom);
  click(8941);
  QCOMPARE(view().zoom(), kPathDefaultZoom);

  press({100, 100}, Qt::MiddleButton);
  release({140, 90}, Qt::MiddleButton);
  const auto ratio = static_cast<float>(widget().devicePixelRatio());
  const Vec3 pan = view().pan();
  QVERIFY(std::abs(pan.x - 40 * ratio) <= 1 && std::abs(pan.y + 10 * ratio) <= 1);

  move({150, 150});
  QTest::keyPress(&widget(), Qt::Key_Control, Qt::ControlModifier);
  QCOMPARE(view().cursor(), PathCursor::HandOff);
  QTest::keyRelease(&widget(), Qt::Key_Control);
  QCOMPARE(view().cursor(), PathCursor::Arrow);
}

void EditPathTabTest::everyToolHasItsCursor() {
  page().setPath(kTwoPoints);
  key(Qt::Key_A, Qt::ControlModifier);
  for (std::size_t i = 0; i < kTools.size(); ++i) {
    const bool inserts = kTools[i] == 8052;
    click(kTools[i]);
    key(Qt::Key_A, Qt::ControlModifier);
    widget().repaint();
    const QPoint over = placeOfPoint(inserts ? Vec3{0, 0.2F, 0} : kTwoPoints.points[0]);
    move({5, 5});
    move(over);
    move(over + QPoint(1, 0));
    const QCursor& shown = widget().cursor();
    const std::string_view image = pathCursorImage(pathTools()[i].hoverCursor);
    if (kTools[i] == 8940) {
      QCOMPARE(view().cursor(), PathCursor::HandOff);
      QCOMPARE(shown.hotSpot(), QPoint(16, 16));
    } else if (image.empty()) {
      QCOMPARE(shown.shape(), Qt::ArrowCursor);
    } else {
      const double ratio = widget().devicePixelRatio();
      const QCursor wanted =
          fixture_->context.images.cursor("\\bin\\program\\" + std::string(image) + ".cur", ratio);
      QCOMPARE(shown.shape(), Qt::BitmapCursor);
      QCOMPARE(shown.hotSpot(), wanted.hotSpot());
      QCOMPARE(shown.pixmap().toImage(), wanted.pixmap().toImage());
      QVERIFY(shown.pixmap().devicePixelRatio() >= ratio);
    }
  }
}

void EditPathTabTest::resultsAreToldOnce() {
  const QSignalSpy told(&page(), &CEditPathTab::command);
  QCOMPARE(page().takeResult(), -1);
  const auto leaves = [this, &told](int result, const auto& act) {
    const auto before = told.count();
    act();
    const bool once = page().takeResult() == result && page().takeResult() == -1;
    return once && told.count() == before + (result > 0 ? 1 : 0);
  };
  QVERIFY(leaves(1, [this] { click(1); }));
  QVERIFY(leaves(2, [this] { click(2); }));
  QVERIFY(leaves(2, [this] { page().pressCancel(); }));
  QVERIFY(leaves(1, [this] { key(Qt::Key_Return); }));
  QVERIFY(leaves(1, [this] { key(Qt::Key_Enter, Qt::KeypadModifier); }));
  QVERIFY(leaves(-1, [this] {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(&widget(), &held);
  }));
  // On a button Enter presses that button.
  QVERIFY(leaves(2, [this] { QTest::keyClick(&fixture_->control(2), Qt::Key_Return); }));
}

void EditPathTabTest::tinyAndHiddenPagesLive() {
  page().setPath(kTwoPoints);
  click(kDraw);
  for (const QSize size :
       {QSize(1, 1), QSize(0, 1), QSize(1, 0), QSize(2000, 3), QSize(567, 507)}) {
    widget().resize(size);
    widget().grab();
    clickAt({0, 0});
  }
  const PathRecord drawn = page().path();
  press({20, 20});
  page().hide();
  QVERIFY(!view().isDragging());
  QVERIFY(page().path() == drawn);
  fixture_->control(kReset).setFocus();
  page().show();
  QCOMPARE(page().focusWidget(), &widget());
}

void EditPathTabTest::leftPageAsksForFiles() {
  const PageFixture<CLeftPathTab> left({252, 624});
  const QSignalSpy told(left.page.get(), &CLeftPathTab::command);
  QCOMPARE(left.page->takeResult(), -1);
  for (const auto& [id, result, name] :
       {std::tuple(8031, 1, "Load 2d Path"), {8033, 2, "Save 2d Path"}}) {
    left.click(id);
    QCOMPARE(left.control(id).accessibleName(), name);
    QCOMPARE(left.page->takeResult(), result);
    QCOMPARE(left.page->takeResult(), -1);
  }
  QCOMPARE(told.count(), 2);
  for (const QWidget* child : left.page->findChildren<QWidget*>()) {
    QVERIFY(left.page->rect().contains(child->geometry()));
    QVERIFY(child->height() >= child->heightForWidth(child->width()));
  }
}

}  // namespace pv

QTEST_MAIN(pv::EditPathTabTest)
#include "edit_path_tab_test.moc"
