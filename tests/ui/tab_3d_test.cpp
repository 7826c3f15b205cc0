#include "view3d/ui/tab_3d.h"

#include <cmath>
#include <set>
#include <vector>

#include "page_fixture.h"

namespace pv {
namespace {

constexpr QSize kBasic{614, 561};

ShapeRecord grid() {
  ShapeRecord shape;
  shape.emitter.kind = EmitterKind::GridPatch;
  return shape;
}

}  // namespace

/// The 3D page with real mouse and key events on the offscreen platform.
class Tab3dTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup() { fixture_.reset(); }

  void everyControlStandsInItsPlace();
  void largerPagesGrowTheView();
  void everyButtonHasItsPictureAndName();
  void viewsAndToolsAreRadioGroups();
  void gridAndLinesSwitch();
  void modifierButtonsSelectAndDeselect();
  void resetsGoThroughTheView();
  void handleDragIsTold();
  void keysWorkInReadingOrder();

 private:
  CTab3d& page() { return *fixture_->page; }
  ShapeView& view() { return page().view().view(); }
  void click(int id) { fixture_->click(id); }

  std::unique_ptr<PageFixture<CTab3d>> fixture_;
};

void Tab3dTest::init() {
  fixture_ = std::make_unique<PageFixture<CTab3d>>(kBasic);
  QVERIFY(QTest::qWaitForWindowActive(&page()));
  page().setShape(grid());
}

void Tab3dTest::everyControlStandsInItsPlace() {
  struct Place {
    int id, x, y;
  };
  // In dialog units.
  const std::vector<Place> places{
      {8031, 0, 168},   {8033, 0, 216},   {8032, 0, 192},   {8034, 0, 246},   {8035, 0, 0},
      {8036, 0, 24},    {8037, 0, 48},    {8038, 0, 72},    {8055, 0, 108},   {8056, 0, 132},
      {8039, 0, 318},   {8040, 0, 290},   {8045, 30, 318},  {8046, 54, 318},  {8047, 78, 318},
      {8049, 105, 318}, {8048, 132, 318}, {8051, 156, 318}, {8052, 180, 318}, {8053, 204, 318},
      {8054, 228, 318}, {8050, 252, 318}, {8044, 276, 318}, {8057, 299, 318}, {8043, 336, 318},
      {8042, 360, 318}, {8041, 384, 318}};
  QCOMPARE(places.size(), kTab3dButtonCount);
  page().resize(612, 554);  // the panel is a little smaller than the page
  std::vector<QRect> taken{page().view().geometry()};
  QCOMPARE(taken[0], QRect(45, 0, 567, 507));
  for (const Place& place : places) {
    const QRect at = fixture_->control(place.id).geometry();
    QCOMPARE(at.topLeft(), QPointF(place.x * 1.5 + 0.01, place.y * 1.625 + 0.01).toPoint());
    QVERIFY(at.width() >= 34 && at.width() <= 36 && at.height() >= 35 && at.height() <= 36);
    QVERIFY2(page().rect().contains(at), qPrintable(QString::number(place.id)));
    for (const QRect& other : taken) {
      QVERIFY2(!at.intersects(other), qPrintable(QString::number(place.id)));
    }
    taken.push_back(at);
  }
}

void Tab3dTest::largerPagesGrowTheView() {
  const auto at = [this](int id) { return fixture_->control(id).geometry(); };
  const std::array before{at(8034), at(8039), at(8057), at(8041), page().view().geometry()};
  page().resize(kBasic + QSize(300, 200));
  QCOMPARE(at(8034), before[0]);
  QCOMPARE(at(8039), before[1].translated(0, 200));
  QCOMPARE(at(8057), before[2].translated(0, 200));
  QCOMPARE(at(8041), before[3].translated(300, 200));
  QCOMPARE(page().view().geometry(), before[4].adjusted(0, 0, 300, 200));
  page().resize(200, 150);
  QCOMPARE(at(8041), before[3]);
}

void Tab3dTest::everyButtonHasItsPictureAndName() {
  std::set<QString> names;
  for (const Tab3dButton& row : kTab3dButtons) {
    QVERIFY2(isDrawn(row.image), row.image);
    const QAbstractButton& button = fixture_->control(row.id);
    QVERIFY(!button.accessibleDescription().isEmpty());
    QVERIFY2(names.insert(button.accessibleName()).second, row.help);
    if (row.action == Tab3dAction::Modifier) {
      const std::string_view name = traits(static_cast<ModifierKind>(row.which)).name;
      const QString wanted = "Modifier - " + QString::fromUtf8(name.data(), name.size());
      QCOMPARE(button.accessibleName(), wanted);
    }
  }
}

void Tab3dTest::viewsAndToolsAreRadioGroups() {
  const auto lit = [this] {
    return std::pair(fixture_->lit({8035, 8036, 8037, 8038}), fixture_->lit({8031, 8032, 8033}));
  };
  QCOMPARE(lit(), std::pair(8035, 8031));
  QCOMPARE(view().cameraTool(), CameraTool::Rotate);
  for (const auto& [id, mode] :
       {std::pair(8036, ViewMode::Top), std::pair(8037, ViewMode::Front),
        std::pair(8038, ViewMode::Side), std::pair(8035, ViewMode::Perspective)}) {
    click(id);
    click(id);  // the second click finds nothing to do
    QCOMPARE(view().viewMode(), mode);
    QCOMPARE(lit(), std::pair(id, 8031));
  }
  for (const auto& [id, tool] :
       {std::pair(8032, CameraTool::Roll), std::pair(8033, CameraTool::Zoom),
        std::pair(8031, CameraTool::Rotate)}) {
    click(id);
    click(id);
    QCOMPARE(view().cameraTool(), tool);
    QCOMPARE(lit(), std::pair(8035, id));
  }
  view().setCamera({10, 20, 30, 2});
  click(8034);
  QCOMPARE(view().camera(), ViewCamera{});
  QVERIFY(!fixture_->control(8034).isChecked());
}

void Tab3dTest::gridAndLinesSwitch() {
  for (const bool on : {true, false, true}) {
    QCOMPARE(std::pair(view().showGrid(), view().showLines()), std::pair(on, true));
    QCOMPARE(fixture_->control(8055).isChecked(), on);
    QVERIFY(fixture_->control(8056).isChecked());
    click(8055);
  }
  click(8056);
  QVERIFY(!view().showLines() && !fixture_->control(8056).isChecked());
}

void Tab3dTest::modifierButtonsSelectAndDeselect() {
  const QSignalSpy changed(&page(), &CTab3d::modifierChanged);
  for (const Tab3dButton& row : kTab3dButtons) {
    if (row.action == Tab3dAction::Modifier) {
      click(row.id);
      QCOMPARE(static_cast<int>(view().SelectedModifier()), row.which);
      for (const Tab3dButton& other : kTab3dButtons) {
        if (other.action == Tab3dAction::Modifier) {
          QCOMPARE(fixture_->control(other.id).isChecked(), other.id == row.id);
        }
      }
    }
  }
  click(8041);  // the last one again
  QCOMPARE(view().SelectedModifier(), ModifierKind::None);
  QVERIFY(!fixture_->control(8041).isChecked());
  QCOMPARE(changed.count(), 0);
}

void Tab3dTest::resetsGoThroughTheView() {
  const QSignalSpy changed(&page(), &CTab3d::modifierChanged);
  ModifierTable table;
  table[ModifierKind::VertexScale] = {2, 3, 4};
  table[ModifierKind::Twist] = {5, 6, 7};
  view().setModifiers(table);
  click(8039);  // nothing is selected
  QCOMPARE(changed.count(), 0);
  QVERIFY(view().modifiers() == table);

  click(8047);
  click(8039);
  QCOMPARE(changed.count(), 1);
  QCOMPARE(view().modifiers()[ModifierKind::VertexScale], (Vec3{1, 1, 1}));
  QCOMPARE(view().modifiers()[ModifierKind::Twist], (Vec3{5, 6, 7}));
  click(8040);
  QCOMPARE(changed.count(), 2);
  QVERIFY(view().modifiers() == ModifierTable());
  QCOMPARE(view().SelectedModifier(), ModifierKind::VertexScale);
}

void Tab3dTest::handleDragIsTold() {
  const QSignalSpy changed(&page(), &CTab3d::modifierChanged);
  ShapeViewWidget& widget = page().view();
  click(8037);
  click(8045);
  widget.repaint();  // only drawn handles can be hit
  QWindow* window = page().windowHandle();
  const QPoint middle = widget.geometry().center();
  const QPoint handle = middle + QPoint(qRound(widget.width() / 2.0 * 0.55), 0);
  const auto drag = [&](QPoint from, QPoint by) {
    QTest::mouseMove(window, from);
    QTest::mousePress(window, Qt::LeftButton, {}, from);
    QTest::mouseMove(window, from + by);
    QTest::mouseRelease(window, Qt::LeftButton, {}, from + by);
  };
  const ViewCamera camera = view().camera();
  drag(handle, {100, -100});
  QCOMPARE(changed.count(), 1);
  const float x = page().shape().modifiers.triples[0].x;
  QVERIFY2(std::abs(x - 1.0F) < 1e-4F, qPrintable(QString::number(x)));
  QVERIFY(view().camera() == camera);

  drag(widget.geometry().topLeft() + QPoint(40, 40), {30, 20});
  QCOMPARE(changed.count(), 1);
  QVERIFY(view().camera() != camera);
}

void Tab3dTest::keysWorkInReadingOrder() {
  QWidget* focus = &fixture_->control(kTab3dButtons[0].id);
  focus->setFocus(Qt::TabFocusReason);
  for (const Tab3dButton& row : kTab3dButtons) {
    QCOMPARE(page().focusWidget()->objectName(), QString::number(row.id));
    QTest::keyClick(page().focusWidget(), Qt::Key_Tab);
  }
  fixture_->control(8044).setFocus(Qt::TabFocusReason);
  QTest::keyClick(page().focusWidget(), Qt::Key_Space);
  QCOMPARE(view().SelectedModifier(), ModifierKind::Twist);
}

}  // namespace pv

QTEST_MAIN(pv::Tab3dTest)
#include "tab_3d_test.moc"
