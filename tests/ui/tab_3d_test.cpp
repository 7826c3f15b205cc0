#include "view3d/ui/tab_3d.h"

#include <cmath>
#include <set>
#include <vector>

#include "page_fixture.h"

namespace pv {
namespace {

constexpr QSize kBasic{614, 561};
constexpr std::array kViews{8035, 8036, 8037, 8038};
constexpr std::array kTools{8031, 8033, 8032};
constexpr std::array kModifierButtons{8045, 8046, 8047, 8048, 8049, 8050, 8044, 8051,
                                      8043, 8042, 8041, 8052, 8053, 8054, 8057};

struct Place {
  int id, x, y;  // in dialog units
};
constexpr std::array<Place, kTab3dButtonCount> kPlaces{
    {{8031, 0, 168},   {8033, 0, 216},   {8032, 0, 192},   {8034, 0, 246},   {8035, 0, 0},
     {8036, 0, 24},    {8037, 0, 48},    {8038, 0, 72},    {8055, 0, 108},   {8056, 0, 132},
     {8039, 0, 318},   {8040, 0, 290},   {8045, 30, 318},  {8046, 54, 318},  {8047, 78, 318},
     {8049, 105, 318}, {8048, 132, 318}, {8051, 156, 318}, {8052, 180, 318}, {8053, 204, 318},
     {8054, 228, 318}, {8050, 252, 318}, {8044, 276, 318}, {8057, 299, 318}, {8043, 336, 318},
     {8042, 360, 318}, {8041, 384, 318}}};

}  // namespace

/// The 3D page with real mouse and key events on the offscreen platform.
class Tab3dTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup() { fixture_.reset(); }

  void everyControlStandsInItsPlace();
  void buttonsExplainThemselvesInReadingOrder();
  void viewsToolsAndSwitches();
  void modifiersSelectDeselectAndReset();
  void handleDragIsTold();

 private:
  CTab3d& page() { return *fixture_->page; }
  ShapeView& view() { return page().view().view(); }
  void click(int id) { fixture_->click(id); }

  std::unique_ptr<PageFixture<CTab3d>> fixture_;
};

void Tab3dTest::init() {
  fixture_ = std::make_unique<PageFixture<CTab3d>>(kBasic);
  QVERIFY(QTest::qWaitForWindowActive(&page()));
}

void Tab3dTest::everyControlStandsInItsPlace() {
  page().resize(612, 554);  // the panel is a little smaller than the page
  std::vector<QRect> taken{page().view().geometry()};
  QCOMPARE(taken[0], QRect(45, 0, 567, 507));
  for (const Place& place : kPlaces) {
    const QRect at = fixture_->control(place.id).geometry();
    QCOMPARE(at.topLeft(), QPointF(place.x * 1.5, place.y * 1.625).toPoint());
    QVERIFY(at.width() >= 34 && at.width() <= 36 && at.height() >= 35 && at.height() <= 36);
    for (const QRect& other : taken) {
      QVERIFY2(!at.intersects(other), qPrintable(QString::number(place.id)));
    }
    QVERIFY(page().rect().contains(at));
    taken.push_back(at);
  }
  page().resize(kBasic + QSize(300, 200));
  QCOMPARE(page().view().geometry(), taken[0].adjusted(0, 0, 300, 200));
  for (std::size_t i = 0; i < kPlaces.size(); ++i) {
    const QPoint by(kPlaces[i].x >= 336 ? 300 : 0, kPlaces[i].y >= 290 ? 200 : 0);
    QCOMPARE(fixture_->control(kPlaces[i].id).geometry(), taken[i + 1].translated(by));
  }
}

void Tab3dTest::buttonsExplainThemselvesInReadingOrder() {
  std::set<QString> names;
  fixture_->control(8035).setFocus(Qt::TabFocusReason);
  for (const Tab3dButton& row : kTab3dButtons) {
    QWidget* focus = page().focusWidget();
    QCOMPARE(focus->objectName(), QString::number(row.id));
    QVERIFY(isDrawn(row.image) && !focus->accessibleDescription().isEmpty());
    QVERIFY2(names.insert(focus->accessibleName()).second, row.help);
    QTest::keyClick(focus, Qt::Key_Tab);
  }
  for (const ModifierTraits& modifier : kModifiers) {
    const int id = kModifierButtons[static_cast<std::size_t>(modifier.kind)];
    const QString name = fixture_->control(id).accessibleName();
    QCOMPARE(name, QString("Modifier - ") + modifier.name.data());
  }
}

void Tab3dTest::viewsToolsAndSwitches() {
  QCOMPARE(fixture_->lit(kViews), 8035);
  QCOMPARE(fixture_->lit(kTools), 8031);
  QCOMPARE(view().cameraTool(), CameraTool::Rotate);
  for (std::size_t i : {1U, 2U, 3U, 0U}) {
    click(kViews[i]);
    click(kViews[i]);  // the second click finds nothing to do
    QCOMPARE(view().viewMode(), static_cast<ViewMode>(i));
    QCOMPARE(fixture_->lit(kViews), kViews[i]);
  }
  for (std::size_t i : {1U, 2U, 0U}) {
    click(kTools[i]);
    click(kTools[i]);
    QCOMPARE(view().cameraTool(), static_cast<CameraTool>(i));
    QCOMPARE(fixture_->lit(kTools), kTools[i]);
  }
  view().setCamera({10, 20, 30, 2});
  click(8034);
  QCOMPARE(view().camera(), ViewCamera{});
  for (const bool on : {true, false, true}) {
    QCOMPARE(std::pair(view().showGrid(), fixture_->control(8055).isChecked()), std::pair(on, on));
    QCOMPARE(std::pair(view().showLines(), fixture_->control(8056).isChecked()), std::pair(on, on));
    click(8055);
    click(8056);
  }
}

void Tab3dTest::modifiersSelectDeselectAndReset() {
  const QSignalSpy changed(&page(), &CTab3d::modifierChanged);
  for (std::size_t i = 0; i < kModifierButtons.size(); ++i) {
    click(kModifierButtons[i]);
    QCOMPARE(view().SelectedModifier(), static_cast<ModifierKind>(i));
    QCOMPARE(fixture_->lit(kModifierButtons), kModifierButtons[i]);
  }
  click(kModifierButtons.back());  // once more
  QCOMPARE(view().SelectedModifier(), ModifierKind::None);
  QCOMPARE(fixture_->lit(kModifierButtons), 0);

  ModifierTable table;
  table[ModifierKind::VertexScale] = {2, 3, 4};
  table[ModifierKind::Twist] = {5, 6, 7};
  view().setModifiers(table);
  click(8039);  // nothing is selected
  QVERIFY(view().modifiers() == table);
  QCOMPARE(changed.count(), 0);
  click(8047);
  click(8039);
  table.reset(ModifierKind::VertexScale);
  QVERIFY(view().modifiers() == table);
  QCOMPARE(changed.count(), 1);
  click(8040);
  QVERIFY(view().modifiers() == ModifierTable());
  QCOMPARE(changed.count(), 2);
  QCOMPARE(view().SelectedModifier(), ModifierKind::VertexScale);
}

void Tab3dTest::handleDragIsTold() {
  const QSignalSpy changed(&page(), &CTab3d::modifierChanged);
  ShapeViewWidget& widget = page().view();
  click(8037);
  click(8045);
  widget.repaint();  // only drawn handles can be hit
  const auto drag = [this](QPoint from, QPoint by) {
    QWindow* window = page().windowHandle();
    QTest::mouseMove(window, from);
    QTest::mousePress(window, Qt::LeftButton, {}, from);
    QTest::mouseMove(window, from + by);
    QTest::mouseRelease(window, Qt::LeftButton, {}, from + by);
  };
  const ViewCamera camera = view().camera();
  const QPoint handle(qRound(widget.width() / 2.0 * 0.55), 0);
  drag(widget.geometry().center() + handle, {100, -100});
  QCOMPARE(changed.count(), 1);
  const float x = page().shape().modifiers.triples[0].x;
  QVERIFY2(std::abs(x - 1.0F) < 1e-4F, qPrintable(QString::number(x)));
  QVERIFY(view().camera() == camera);

  drag(widget.geometry().topLeft() + QPoint(40, 40), {30, 20});
  QCOMPARE(changed.count(), 1);
  QVERIFY(view().camera() != camera);
}

}  // namespace pv

QTEST_MAIN(pv::Tab3dTest)
#include "tab_3d_test.moc"
