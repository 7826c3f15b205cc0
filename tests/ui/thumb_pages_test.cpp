#include <set>
#include <vector>

#include "library/ui/library_tab.h"
#include "page_fixture.h"

namespace pv {

/// The library's pages with real mouse and key events on the offscreen platform.
class ThumbPagesTest : public QObject {
  Q_OBJECT

 private slots:
  void libraryTellsItsCodeOnlyWhilePressed();
  void libraryButtonsStandInReadingOrder();
};

void ThumbPagesTest::libraryTellsItsCodeOnlyWhilePressed() {
  const PageFixture<CLibraryTab> fixture({252, 624});
  CLibraryTab& page = *fixture.page;
  std::vector<int> seen;
  connect(&page, &CLibraryTab::command, this, [&] { seen.push_back(page.selection()); });
  for (const int id : {8106, 8107, 8031, 8032, 8033, 8034, 8035}) {
    fixture.click(id);
    QCOMPARE(page.selection(), 0);
  }
  QVERIFY((seen == std::vector{1, 2, 4}));  // particles and forces have no library
  QVERIFY(fixture.control(8030).isHidden());
  // Whoever shows it finds it at work.
  fixture.control(8030).click();
  fixture.control(8106).setFocus();
  QTest::keyClick(&fixture.control(8106), Qt::Key_Return);
  QVERIFY((seen == std::vector{1, 2, 4, 3, 1}));
}

void ThumbPagesTest::libraryButtonsStandInReadingOrder() {
  const PageFixture<CLibraryTab> fixture({252, 624});
  std::set<QString> names;
  int bottom = 0;
  for (const LibraryControl& row : kLibraryControls) {
    const auto& control = fixture.control<QWidget>(row.id);
    names.insert(control.accessibleName());
    QVERIFY(row.row == LibraryRow::Header || !control.accessibleDescription().isEmpty());
    QVERIFY(isDrawn(row.image));
    QCOMPARE(control.isEnabled(), row.row != LibraryRow::DisabledButton);
    if (row.row != LibraryRow::HiddenButton) {
      QVERIFY(control.y() >= bottom && fixture.page->rect().contains(control.geometry()));
      bottom = control.geometry().bottom() + 1;
    }
  }
  QCOMPARE(names.size(), kLibraryControlCount);
}

}  // namespace pv

QTEST_MAIN(pv::ThumbPagesTest)
#include "thumb_pages_test.moc"
