#include "particle/ui/particle_tab.h"

#include <set>
#include <tuple>

#include <QAbstractItemView>
#include <QLabel>

#include "page_fixture.h"
#include "ui/controls.h"
#include "ui/list_selector.h"
#include "ui/spin_combo.h"

namespace pv {
namespace {

constexpr QSize kPanel{252, 624};
constexpr std::array kSelectors{8068, 8069, 8071, 8074, 8076, 8078};
constexpr std::array kModes{8086, 8087, 8088};

}  // namespace

/// The particle page with real mouse and key events on the offscreen platform.
class ParticleTabTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();

  void freezingOpensItsRow();
  void sourcesAndTriggerAreToldTheRestIsQuiet();
  void listsOpenForMouseAndKeys();
  void strangeValuesAreKept();
  void everythingStandsInItsPlace();
  void tabGoesThroughNamedControls();

 private:
  CParticleTab& page() { return *fixture_->page; }
  ListSelector& selector(int id) { return fixture_->control<ListSelector>(id); }
  void click(int id) { fixture_->click(id); }
  void key(int id, Qt::Key key) { QTest::keyClick(&fixture_->control<QWidget>(id), key); }
  std::tuple<bool, bool, bool> usable();

  std::unique_ptr<PageFixture<CParticleTab>> fixture_;
  std::unique_ptr<QSignalSpy> told_;
};

void ParticleTabTest::init() {
  fixture_ = std::make_unique<PageFixture<CParticleTab>>(kPanel);
  QVERIFY(QTest::qWaitForWindowActive(&page()));
  told_ = std::make_unique<QSignalSpy>(&page(), &CParticleTab::command);
}

void ParticleTabTest::cleanup() {
  told_.reset();
  fixture_.reset();
}

/// The row with its label, the check box below it, the rotation.
std::tuple<bool, bool, bool> ParticleTabTest::usable() {
  const auto enabled = [this](int id) { return fixture_->control<QWidget>(id).isEnabled(); };
  const bool row = enabled(8085);
  for (const int id : kModes) {
    if (enabled(id) != row) {
      throw std::runtime_error("half a row");
    }
  }
  return {row, enabled(8089), enabled(8090)};
}

void ParticleTabTest::freezingOpensItsRow() {
  QCOMPARE(usable(), std::tuple(false, false, false));
  QCOMPARE(fixture_->lit(kModes), 8086);
  click(8087);
  click(8089);
  QVERIFY(page().state() == ParticleSettings{});

  click(8083);
  QCOMPARE(usable(), std::tuple(true, true, false));
  click(8088);
  QCOMPARE(fixture_->lit(kModes), 8088);
  click(8089);
  QCOMPARE(usable(), std::tuple(true, true, true));
  key(8090, Qt::Key_Home);
  click(8083);
  QCOMPARE(usable(), std::tuple(false, false, false));
  QCOMPARE(fixture_->lit(kModes), 8088);
  ParticleSettings kept;
  kept.autoRandom = AutoRandom::Full;
  kept.rotateInsteadOfRandom = true;
  kept.rotation = 10;
  QVERIFY(page().state() == kept);
}

void ParticleTabTest::sourcesAndTriggerAreToldTheRestIsQuiet() {
  ParticleSettings wanted;
  wanted.sources = {1, 1, 1, 1, 1, 1};
  wanted.trigger = 245;
  for (const int id : kSelectors) {
    key(id, Qt::Key_Down);
  }
  QCOMPARE(told_->count(), 6);
  key(8082, Qt::Key_End);
  QCOMPARE(told_->count(), 7);
  QVERIFY(page().state() == wanted);
  key(8068, Qt::Key_Down);  // at the end of its list
  key(8082, Qt::Key_End);
  for (const int id : {8083, 8087, 8089}) {
    click(id);
  }
  key(8090, Qt::Key_Home);
  QCOMPARE(told_->count(), 7);
  wanted.freezeInput = wanted.rotateInsteadOfRandom = true;
  wanted.autoRandom = AutoRandom::Partial;
  wanted.rotation = 10;
  QVERIFY(page().state() == wanted);
  page().setState({});
  QCOMPARE(told_->count(), 7);
  QCOMPARE(selector(8078).currentText(), "Not used");
  QVERIFY(!fixture_->control(8083).isChecked());
}

void ParticleTabTest::listsOpenForMouseAndKeys() {
  ListSelector& list = selector(8071);
  const auto isOpen = [&list] { return list.view()->isVisible(); };
  for (const Qt::Key opener : {Qt::Key_Space, Qt::Key_Return, Qt::Key_F4}) {
    key(8071, opener);
    QTRY_VERIFY(isOpen());
    QTest::keyClick(list.view(), Qt::Key_Escape);
    QTRY_VERIFY(!isOpen());
  }
  QCOMPARE(told_->count(), 0);
  key(8071, Qt::Key_Return);
  QTRY_VERIFY(isOpen());
  QTest::keyClick(list.view(), Qt::Key_End);
  QTest::keyClick(list.view(), Qt::Key_Return);
  QTRY_COMPARE(page().state().source(ParticleSource::Active), 8);

  QTest::mouseClick(&list, Qt::LeftButton);
  QTRY_VERIFY(isOpen());
  QTest::qWait(QApplication::doubleClickInterval() + 50);  // a quick release would still open it
  const QRect row = list.view()->visualRect(list.model()->index(3, 0));
  QTest::mouseMove(list.view()->viewport(), row.center());
  QTest::mouseClick(list.view()->viewport(), Qt::LeftButton, {}, row.center());
  QTRY_COMPARE(page().state().source(ParticleSource::Active), 3);
  QCOMPARE(told_->count(), 2);
}

void ParticleTabTest::strangeValuesAreKept() {
  ParticleSettings strange;
  strange.sources = {-1, 99, 3, 0, 0, 0};
  strange.trigger = -7;
  strange.rotation = 720;
  strange.autoRandom = static_cast<AutoRandom>(5);
  page().setState(strange);
  QVERIFY(page().state() == strange);
  QCOMPARE(fixture_->lit(kModes), 0);
  QVERIFY(selector(8069).currentText().isEmpty());
  QCOMPARE(fixture_->control<CSpinCombo>(8090).value(), 720);
  key(8069, Qt::Key_Down);
  key(8082, Qt::Key_Up);
  strange.sources[1] = 0;
  strange.trigger = 10;
  QVERIFY(page().state() == strange);
}

void ParticleTabTest::everythingStandsInItsPlace() {
  struct Place {
    int id;
    QRect rect;
    const char* text;
  };
  // In pixels, where a unit is 1.5 by 1.625.
  for (const Place& row : {Place{8080, {0, 39, 252, 29}, "Vertex Controls"},
                           {8072, {9, 128, 71, 13}, "Vertex Active:"},
                           {8071, {81, 127, 171, 19}, nullptr},
                           {8082, {18, 148, 234, 26}, nullptr},
                           {8073, {0, 176, 252, 29}, "Vertex Displacement"},
                           {8079, {9, 267, 54, 13}, "Displace Z:"},
                           {8081, {0, 283, 252, 29}, "Particle Input Node"},
                           {8083, {81, 312, 99, 13}, "Freeze Input"},
                           {8087, {138, 332, 57, 19}, "Partial"},
                           {8089, {81, 356, 171, 13}, "Rotate instead of random"},
                           {8090, {18, 371, 234, 26}, nullptr}}) {
    const auto& control = fixture_->control<QWidget>(row.id);
    QCOMPARE(control.geometry(), row.rect);
    const QString text = control.property("text").toString();
    QVERIFY2(row.text == nullptr || text == row.text || control.accessibleName() == row.text,
             qPrintable(text));
  }
  const auto children = page().findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
  QCOMPARE(children.size(), 23);
  for (const QLabel* label : page().findChildren<QLabel*>()) {
    QVERIFY(label->buddy() != nullptr);
    // Every text can be read whole.
    QVERIFY2(label->fontMetrics().horizontalAdvance(label->text()) <= label->width(),
             qPrintable(label->text()));
  }
}

void ParticleTabTest::tabGoesThroughNamedControls() {
  ParticleSettings open;
  open.freezeInput = open.rotateInsteadOfRandom = true;
  page().setState(open);
  fixture_->control<QWidget>(8068).setFocus(Qt::TabFocusReason);
  std::set<QString> names;
  for (const int id :
       {8068, 8069, 8071, 8082, 8074, 8076, 8078, 8083, 8086, 8087, 8088, 8089, 8090, 8068}) {
    const QWidget* focus = page().focusWidget();
    QCOMPARE(focus->objectName(), QString::number(id));
    QVERIFY(!focus->accessibleName().isEmpty() && !focus->accessibleDescription().isEmpty());
    names.insert(focus->accessibleName());
    QTest::keyClick(page().focusWidget(), Qt::Key_Tab);
  }
  QCOMPARE(names.size(), 13U);
  QVERIFY(names.contains("RGB Colour") && names.contains("Auto Random Full"));
}

}  // namespace pv

QTEST_MAIN(pv::ParticleTabTest)
#include "particle_tab_test.moc"
