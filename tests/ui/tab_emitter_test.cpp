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
constexpr std::array kAxes{8090, 8089, 8088};
constexpr std::array kMappings{8093, 8094, 8095};

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
  const auto shows = [this](int id, const QString& name, PageRange range) {
    const CSpinCombo& control = slider(id);
    return control.accessibleName() + ':' == name &&
           PageRange{control.low(), control.high()} == range;
  };
  const auto usable = [this](std::initializer_list<int> ids, bool on) {
    return std::all_of(ids.begin(), ids.end(), [this, on](int id) {
      return fixture_->control<QWidget>(id).isEnabled() == on;
    });
  };
  for (const std::size_t i : {4U, 3U, 2U, 1U, 0U}) {
    told_->clear();
    click(kKinds[i]);
    QCOMPARE(told_->count(), 1);
    QCOMPARE(emitter().kind, static_cast<EmitterKind>(i));
    QCOMPARE(fixture_->lit(kKinds), kKinds[i]);
    const EmitterPageLook look = emitterPageLook(emitter().kind);
    QCOMPARE(fixture_->control<SectionHeader>(8038).text(), look.verticalHeader.data());
    QVERIFY(
        shows(8035, QString("Horizontal ") + look.horizontalSizeLabel.data(), look.horizontalSize));
    QVERIFY(shows(8040, QString("Vertical ") + look.verticalSizeLabel.data(), look.verticalSize));
    QVERIFY(usable({8034, 8035, 8036}, look.horizontalSections));
    QVERIFY(usable({8042}, look.horizontalEnd));
    QVERIFY(usable({8039, 8040, 8041}, look.verticalSections));
    QVERIFY(usable({8032}, look.editPath));
    QVERIFY(usable({8031, 8033, 8043, 8047, 8088, 8091, 8044, 8093}, true));
    for (const PageImages& pair :
         {look.verticalAmountImages, look.verticalSizeImages, look.horizontalSizeImages}) {
      QVERIFY(isDrawn(pair.high) && isDrawn(pair.low));
    }
  }
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
  click(8026);                   // angles beyond the sizes of a section are cut
  QCOMPARE(std::pair(slider(8035).value(), slider(8040).value()), std::pair(100, 100));
  page().setState(wanted);
  QCOMPARE(told_->count(), 13);
  QCOMPARE(slider(8040).value(), 360);
  QVERIFY(!fixture_->control(8036).isChecked() && fixture_->control(8047).isChecked());
}

void TabEmitterTest::axesShareTheSliders() {
  const auto shown = [this] {
    return DuplicateAxis{slider(8044).value(), slider(8045).value(), slider(8046).value()};
  };
  EmitterPageState state;
  state.axes = {{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}};
  page().setState(state);
  QCOMPARE(fixture_->lit(kAxes), 8090);
  click(8089);
  QCOMPARE(shown(), (DuplicateAxis{4, 5, 6}));
  QCOMPARE(fixture_->lit(kAxes), 8089);
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
  QCOMPARE(fixture_->lit(kMappings), 8093);
  click(8095);
  QCOMPARE(told_->count(), 0);
  QCOMPARE(page().state().mapping, DuplicateMapping::Vertical);
  EmitterPageState loaded;
  loaded.mapping = DuplicateMapping::Horizontal;
  page().setState(loaded);
  QCOMPARE(page().state().mapping, DuplicateMapping::Horizontal);
  QCOMPARE(fixture_->lit(kMappings), 8095);  // what was clicked last
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
  QCOMPARE(fixture_->lit(kKinds), 0);
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

  for (const auto& row : kKindButtons) {
    QVERIFY(isDrawn(row.face));
  }
  for (std::size_t i = 0; i < kFileButtons.size(); ++i) {
    QVERIFY(isDrawn(kFileButtons[i].face) && isDrawn(kMappingButtons[i].face));
  }
  for (const EmitterSlider& row : kEmitterSliders) {
    QVERIFY2(isDrawn(row.images.high) && isDrawn(row.images.low), row.help);
  }
  QVERIFY(isDrawn(kCountImage));
}

}  // namespace pv

QTEST_MAIN(pv::TabEmitterTest)
#include "tab_emitter_test.moc"
