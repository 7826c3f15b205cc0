#include "shape/ui/tab_emitter.h"

#include <algorithm>
#include <set>
#include <vector>

#include "page_fixture.h"
#include "ui/controls.h"
#include "ui/spin_combo.h"

namespace pv {
namespace {

constexpr QSize kPanel{252, 624};
constexpr std::array kKinds{8024, 8026, 8027, 8028, 8029};

EmitterPageState sphere() {
  EmitterPageState page;
  page.emitter.kind = EmitterKind::SpherePatch;
  page.emitter.horizontalSize = 150;
  page.emitter.verticalSize = 350;
  return page;
}

}  // namespace

/// The emitter page with real mouse and key events on the offscreen platform.
class TabEmitterTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();

  void kindsRelabelAndEnable();
  void anglesAreCutToSections();
  void everyControlReachesItsValue();
  void axesShareTheSliders();
  void requestsShowOnlyWhileTold();
  void mappingTellsNobody();
  void valuesOutsideTheRangeStay();
  void countFollowsTheNotification();
  void everythingFitsInReadingOrder();

 private:
  CTabEmitter& page() { return *fixture_->page; }
  const EmitterSettings& emitter() { return page().state().emitter; }
  CSpinCombo& slider(int id) { return fixture_->control<CSpinCombo>(id); }
  void click(int id) { fixture_->click(id); }
  void key(int id, Qt::Key key) { QTest::keyClick(&fixture_->control<QWidget>(id), key); }
  QString count() { return fixture_->control<TextLabel>(8061).text(); }

  std::unique_ptr<PageFixture<CTabEmitter>> fixture_;
  std::unique_ptr<QSignalSpy> told_;
};

void TabEmitterTest::init() {
  fixture_ = std::make_unique<PageFixture<CTabEmitter>>(kPanel);
  QVERIFY(QTest::qWaitForWindowActive(&page()));
  told_ = std::make_unique<QSignalSpy>(&page(), &CTabEmitter::command);
}

void TabEmitterTest::cleanup() {
  told_.reset();
  fixture_.reset();
}

void TabEmitterTest::kindsRelabelAndEnable() {
  struct Look {
    const char* vertical;
    const char* horizontalSize;
    const char* verticalSize;
    bool rows, end, columns, path;
  };
  const std::array<Look, 5> looks{{
      {"Vertical Sections", "Horizontal Height", "Vertical Width", false, false, false, false},
      {"Vertical Sections", "Horizontal Height", "Vertical Width", true, false, true, false},
      {"Vertical Rotations", "Horizontal Start", "Vertical Angle", true, true, true, false},
      {"Vertical Sections", "Horizontal Height", "Vertical Width", false, false, true, true},
      {"Vertical Rotations", "Horizontal Height", "Vertical Angle", false, false, true, true},
  }};
  QCOMPARE(fixture_->lit({8024, 8026, 8027, 8028, 8029}), 8024);
  for (const std::size_t i : {4U, 3U, 2U, 1U, 0U}) {
    told_->clear();
    click(kKinds[i]);
    QCOMPARE(told_->count(), 1);
    QCOMPARE(emitter().kind, static_cast<EmitterKind>(i));
    QCOMPARE(fixture_->lit({8024, 8026, 8027, 8028, 8029}), kKinds[i]);
    QVERIFY(fixture_->control<SectionHeader>(8038).text() == looks[i].vertical);
    QCOMPARE(slider(8035).accessibleName(), looks[i].horizontalSize);
    QCOMPARE(slider(8040).accessibleName(), looks[i].verticalSize);
    QCOMPARE(std::pair(slider(8035).low(), slider(8035).high()),
             i == 2 ? std::pair(0, 180) : std::pair(1, 100));
    QCOMPARE(std::pair(slider(8040).low(), slider(8040).high()),
             i == 2 || i == 4 ? std::pair(0, 360) : std::pair(1, 100));
    for (const auto& [id, usable] :
         {std::pair(8034, looks[i].rows), std::pair(8035, looks[i].rows),
          std::pair(8036, looks[i].rows), std::pair(8042, looks[i].end),
          std::pair(8039, looks[i].columns), std::pair(8040, looks[i].columns),
          std::pair(8041, looks[i].columns), std::pair(8032, looks[i].path), std::pair(8043, true),
          std::pair(8031, true)}) {
      QVERIFY2(fixture_->control<QWidget>(id).isEnabled() == usable,
               qPrintable(QString::number(id)));
    }
  }
}

void TabEmitterTest::anglesAreCutToSections() {
  page().setState(sphere());
  QCOMPARE(told_->count(), 0);
  QCOMPARE(slider(8035).value(), 150);
  click(8026);
  QCOMPARE(slider(8035).value(), 100);
  QCOMPARE(slider(8040).value(), 100);
  QCOMPARE(std::pair(emitter().horizontalSize, emitter().verticalSize), std::pair(100, 100));
}

void TabEmitterTest::everyControlReachesItsValue() {
  page().setState(sphere());
  EmitterPageState wanted = sphere();
  for (const int id : {8034, 8035, 8042, 8039, 8040, 8043, 8044, 8045, 8046}) {
    key(id, Qt::Key_End);
  }
  for (const int id : {8036, 8041, 8047, 8048}) {
    click(id);
  }
  wanted.emitter.horizontalAmount = 400;
  wanted.emitter.horizontalSize = 180;
  wanted.emitter.verticalAmount = 400;
  wanted.emitter.verticalSize = 360;
  wanted.emitter.copies = 20;
  wanted.axes[0] = {200, 359, 200};
  wanted.emitter.horizontalCentre.set(false);
  wanted.emitter.verticalCentre.set(false);
  wanted.applyModifiersGlobally = wanted.useWorldAxis = true;
  QVERIFY(page().state() == wanted);
  QCOMPARE(told_->count(), 12);  // the end stood at its end already
  for (const int id : {8034, 8035, 8042, 8039, 8040, 8043, 8044, 8045, 8046}) {
    key(id, Qt::Key_Home);
    key(id, Qt::Key_Right);
  }
  QCOMPARE(emitter().horizontalEnd, 1);
  QCOMPARE(page().state().axes[0], (DuplicateAxis{-199, 1, -199}));
  page().setState(wanted);
  QCOMPARE(slider(8042).value(), 180);
  QVERIFY(!fixture_->control(8036).isChecked() && fixture_->control(8047).isChecked());
}

void TabEmitterTest::axesShareTheSliders() {
  const auto shown = [this] {
    return DuplicateAxis{slider(8044).value(), slider(8045).value(), slider(8046).value()};
  };
  EmitterPageState state;
  state.axes = {{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}};
  page().setState(state);
  QCOMPARE(fixture_->lit({8090, 8089, 8088}), 8090);
  click(8089);
  QCOMPARE(shown(), (DuplicateAxis{4, 5, 6}));
  QCOMPARE(fixture_->lit({8090, 8089, 8088}), 8089);
  QCOMPARE(emitter().selectedAxis, 1);
  key(8045, Qt::Key_Up);
  click(8088);
  QCOMPARE(shown(), (DuplicateAxis{7, 8, 9}));
  QCOMPARE(told_->count(), 3);
  QCOMPARE(page().state().axes[1], (DuplicateAxis{4, 6, 6}));

  click(8089);
  click(8091);
  QCOMPARE(shown(), (DuplicateAxis{0, 0, 0}));
  click(8090);
  click(8091);
  QCOMPARE(shown(), (DuplicateAxis{10, 0, 0}));
  QVERIFY((page().state().axes == std::array<DuplicateAxis, 3>{{{10, 0, 0}, {}, {7, 8, 9}}}));
  QCOMPARE(told_->count(), 7);
}

void TabEmitterTest::requestsShowOnlyWhileTold() {
  std::vector<std::pair<int, int>> seen;
  connect(&page(), &CTabEmitter::command, this,
          [&] { seen.emplace_back(page().pendingRequest(), page().editPathRequest()); });
  click(8031);
  QCOMPARE(page().pendingRequest(), 0);
  click(8033);
  QCOMPARE(page().pendingRequest(), 0);
  click(8032);  // a point has no path
  click(8028);
  click(8032);
  QVERIFY(fixture_->control(8032).isChecked());
  click(8032);
  click(8032);
  const std::vector<std::pair<int, int>> wanted{{1, -1}, {2, -1}, {0, -1}, {0, 1}, {0, -1}, {0, 1}};
  QVERIFY(seen == wanted);
  page().releaseEditPath();
  QCOMPARE(page().editPathRequest(), -1);
  QVERIFY(!fixture_->control(8032).isChecked());
  QCOMPARE(seen.size(), wanted.size());
}

void TabEmitterTest::mappingTellsNobody() {
  QCOMPARE(fixture_->lit({8093, 8094, 8095}), 8093);
  click(8095);
  QCOMPARE(told_->count(), 0);
  QCOMPARE(page().state().mapping, DuplicateMapping::Vertical);
  EmitterPageState loaded;
  loaded.mapping = DuplicateMapping::Horizontal;
  page().setState(loaded);
  QCOMPARE(page().state().mapping, DuplicateMapping::Horizontal);
  QCOMPARE(fixture_->lit({8093, 8094, 8095}), 8095);  // what was clicked last
}

void TabEmitterTest::valuesOutsideTheRangeStay() {
  EmitterPageState loaded;
  loaded.emitter.kind = static_cast<EmitterKind>(9);
  loaded.emitter.horizontalSize = 500;
  loaded.emitter.copies = 21;
  loaded.emitter.selectedAxis = -7;
  loaded.emitter.horizontalCentre = {0xAABBCC01};
  loaded.axes[0] = {-2000, 720, 0};
  page().setState(loaded);
  QCOMPARE(fixture_->lit({8024, 8026, 8027, 8028, 8029}), 0);
  QCOMPARE(slider(8043).value(), 21);
  click(8048);
  loaded.useWorldAxis = true;
  QVERIFY(page().state() == loaded);
  key(8043, Qt::Key_Down);
  QCOMPARE(emitter().copies, 20);
  QCOMPARE(emitter().horizontalSize, 500);
  key(8045, Qt::Key_Home);
  QCOMPARE(page().state().axes[0], (DuplicateAxis{-2000, 0, 0}));
}

void TabEmitterTest::countFollowsTheNotification() {
  page().setPathPointCount(-1);
  QCOMPARE(emitter().pathPointCount, 0);
  connect(&page(), &CTabEmitter::command, this, [this] { page().setPathPointCount(4); });
  click(8029);
  QCOMPARE(count(), "Total Emitter Count = 55");
  key(8043, Qt::Key_Up);
  QCOMPARE(count(), "Total Emitter Count = 110");
  EmitterPageState state = page().state();
  state.emitter.pathPointCount = -3;
  page().setState(state);
  QCOMPARE(emitter().pathPointCount, 4);
}

void TabEmitterTest::everythingFitsInReadingOrder() {
  QVERIFY(page().minimumSizeHint().height() <= kPanel.height());
  QVERIFY(page().minimumSizeHint().width() <= kPanel.width());
  page().setState(sphere());
  std::vector<QWidget*> shown;
  for (QWidget* child : page().findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    QVERIFY(page().rect().contains(child->geometry()));
    for (const QWidget* other : shown) {
      QVERIFY(!child->geometry().intersects(other->geometry()));
    }
    shown.push_back(child);
  }
  click(8029);  // with Edit Path
  std::set<QString> names;
  fixture_->control(8024).setFocus(Qt::TabFocusReason);
  QPoint before(-1, -1);
  for (int stops = 0; stops < 24; ++stops) {
    const QWidget* focus = page().focusWidget();
    const QPoint at = focus->geometry().center();
    QVERIFY(at.y() > before.y() || (at.y() == before.y() && at.x() > before.x()));
    QVERIFY(!focus->accessibleName().isEmpty() && !focus->accessibleDescription().isEmpty());
    QVERIFY2(names.insert(focus->accessibleName()).second, qPrintable(focus->accessibleName()));
    before = at;
    QTest::keyClick(page().focusWidget(), Qt::Key_Tab);
  }
  QCOMPARE(page().focusWidget(), &fixture_->control(8024));

  const auto allDrawn = [](const auto& buttons) {
    return std::all_of(buttons.begin(), buttons.end(),
                       [](const EmitterButton& row) { return isDrawn(row.face); });
  };
  QVERIFY(allDrawn(kKindButtons) && allDrawn(kFileButtons) && allDrawn(kMappingButtons));
  QVERIFY(isDrawn(kCountImage));
  for (const EmitterSlider& row : kEmitterSliders) {
    QVERIFY2(isDrawn(row.images.high) && isDrawn(row.images.low), row.help);
  }
}

}  // namespace pv

QTEST_MAIN(pv::TabEmitterTest)
#include "tab_emitter_test.moc"
