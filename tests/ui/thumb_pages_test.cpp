#include <array>
#include <fstream>
#include <set>
#include <utility>
#include <vector>

#include <QAccessible>
#include <QTemporaryDir>

#include "library/ui/library_tab.h"
#include "library/ui/right_edit_tab.h"
#include "library/ui/right_load_tab.h"
#include "library/ui/thumb_list_widget.h"
#include "library/ui/thumb_page.h"
#include "page_fixture.h"
#include "ui/scroll_bar.h"
#include "util/bmp_file.h"

namespace pv {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

constexpr QSize kPage{614, 561};
constexpr auto kSubFolder = "vortex\\shapes";

void write(const fs::path& file, std::string_view text) {
  create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << text;
}

/// Every pixel unlike its neighbours.
BmpPicture pattern() {
  BmpPicture picture{96, 72, {}};
  for (std::uint32_t i = 0; i < 96 * 72; ++i) {
    picture.words.push_back(0xFF000000U | (i * 2654435761U >> 8));
  }
  return picture;
}

/// A library of shapes on the disk with a page that shows it.
template <typename Page>
struct LibraryFixture : PageFixture<Page> {
  explicit LibraryFixture(const Names& names = {"ash", "Birch", "cedar 1", "cedar 2", "dogwood"})
      : PageFixture<Page>(kPage) {
    for (const auto& name : names) {
      write(shapes / (name + ".j3d"), "shape");
      write(shapes / "tagdb" / (name + ".tdb"), "tree\r\n");
      write(shapes / "thumbs" / (name + ".bmp"), "not a picture");
    }
    this->page->open(programPath(root), kSubFolder, "*.j3d");
    (void)QTest::qWaitForWindowActive(this->page.get());
  }

  [[nodiscard]] ThumbListWidget& widget() const { return this->page->list(); }
  [[nodiscard]] CThumbList& list() const { return widget().list(); }
  [[nodiscard]] QPoint at(int index) const { return widget().cellRect(index).center(); }
  void clickFile(int index) const { QTest::mouseClick(&widget(), Qt::LeftButton, {}, at(index)); }
  void doubleClick(QPoint at) const {
    QTest::mouseClick(&widget(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(&widget(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(&widget(), Qt::LeftButton, {}, at);
  }
  void key(Qt::Key key) const { QTest::keyClick(&widget(), key); }
  [[nodiscard]] QString status() const {
    return this->page->template findChild<ThumbStatus*>()->text();
  }
  /// Files below the library's folder, all three kinds counted.
  [[nodiscard]] std::ptrdiff_t filesOf(const std::string& name) const {
    return exists(shapes / (name + ".j3d")) + exists(shapes / "tagdb" / (name + ".tdb")) +
           exists(shapes / "thumbs" / (name + ".bmp"));
  }

  QTemporaryDir folder;
  fs::path root = folder.path().toStdString();
  fs::path shapes = root / "vortex" / "shapes";
};

}  // namespace

/// The library's pages with real mouse and key events on the offscreen platform.
class ThumbPagesTest : public QObject {
  Q_OBJECT

 private slots:
  void libraryTellsItsCodeOnlyWhilePressed();
  void libraryButtonsStandInReadingOrder();
  void picturesKeepTheirPixels();
  void scaledPicturesAreFair();
  void namesBreakWhereTheyCan();
  void filesAreFoundAndLoaded();
  void keysReachEveryFile();
  void onlyWhatIsSeenIsRead();
  void scrollBarAndWheel();
  void clicksDeleteAndKeysDoNot();
  void editedFilesAreTold();
  void itemsCanBeReadAloud();
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

void ThumbPagesTest::picturesKeepTheirPixels() {
  const LibraryFixture<CRightLoadTab> fixture({"a", "b", "c"});
  QVERIFY(writeBmpFile(fixture.shapes / "thumbs" / "b.bmp", pattern()).ok());
  fs::remove(fixture.shapes / "thumbs" / "c.bmp");
  fixture.page->open(programPath(fixture.root), kSubFolder, "*.j3d");
  ThumbListWidget& widget = fixture.widget();
  QTRY_COMPARE(widget.pending(), 0);
  const QImage shown = widget.grab().toImage();
  const double scale = shown.devicePixelRatio();
  const QImage wanted = scaledPicture(pattern(), scale).toImage();
  QCOMPARE(wanted.size(), (QSizeF(96, 72) * scale).toSize());
  const auto part = [&](int index) {
    QRectF box = widget.pictureRect(index);
    const QPoint corner(qRound(box.left() * scale), qRound(box.top() * scale));
    QImage picture = shown.copy(QRect(corner, wanted.size()));
    picture.setDevicePixelRatio(1);
    return picture.convertToFormat(QImage::Format_RGB32);
  };
  QCOMPARE(part(1), wanted.convertToFormat(QImage::Format_RGB32));
  // Damaged or missing: the same drawing, whatever the frame's corners do.
  const QRect inside = wanted.rect().adjusted(4, 4, -4, -4);
  const QImage drawing = part(0).copy(inside);
  QCOMPARE(drawing, part(2).copy(inside));
  QImage plain = drawing;
  plain.fill(drawing.pixel(0, 0));
  QVERIFY(drawing != plain);
}

void ThumbPagesTest::scaledPicturesAreFair() {
  const BmpPicture source = pattern();
  const auto word = [&](int x, int y) {
    return source.words[static_cast<std::size_t>((71 - y) * 96 + x)];
  };
  for (const int scale : {1, 2, 3}) {
    const QImage image = scaledPicture(source, scale).toImage();
    for (const QPoint at : {QPoint(0, 0), QPoint(95, 71), QPoint(40, 13)}) {
      QCOMPARE(image.pixel(at * scale), word(at.x(), at.y()));
      QCOMPARE(image.pixel(at * scale + QPoint(scale - 1, scale - 1)), word(at.x(), at.y()));
    }
  }
  // Three pixels of the screen to two: own, half and half, own.
  const QImage image = scaledPicture(source, 1.5).toImage();
  QCOMPARE(image.pixel(3, 3), word(2, 2));
  QCOMPARE(image.pixel(5, 3), word(3, 2));
  QVERIFY(std::abs(2 * qRed(image.pixel(4, 3)) - qRed(word(2, 2)) - qRed(word(3, 2))) <= 2);
}

void ThumbPagesTest::namesBreakWhereTheyCan() {
  const QFont font = skinFrom({}).font;
  const auto wide = [&font](const char* text) {
    return QFontMetricsF(font).horizontalAdvance(text) + 1;
  };
  QCOMPARE(nameLines("oak", font, wide("oak")), QStringList{"oak"});
  QCOMPARE(nameLines("two words", font, wide("two wor")), (QStringList{"two", "words"}));
  QCOMPARE(nameLines("deep_water", font, wide("deep_wat")), (QStringList{"deep_", "water"}));
  QCOMPARE(nameLines("mmmmmmmm", font, wide("mmmmm")), (QStringList{"mmmmm", "mmm"}));
  const QStringList cut = nameLines(QString(200, 'm') + "0012", font, wide("mmmmmmmmmmmmmm"));
  QVERIFY(cut.size() == 2 && cut.back().contains(QChar(0x2026)) && cut.back().endsWith("0012"));
  QCOMPARE(nameLines("mm", font, 1).size(), 2);
}

void ThumbPagesTest::filesAreFoundAndLoaded() {
  const LibraryFixture<CRightLoadTab> fixture;
  CRightLoadTab& page = *fixture.page;
  const auto& load = fixture.control(1);
  std::vector<std::pair<int, std::string>> told;
  connect(&page, &CRightLoadTab::command, this, [&] {
    told.emplace_back(page.takeResult(), page.selectedFile());
    QCOMPARE(page.takeResult(), 0);
  });
  const QSignalSpy changed(&page, &CRightLoadTab::selectionChanged);
  QVERIFY((fixture.list().shownNames() == Names{"Birch", "ash", "cedar 1", "cedar 2", "dogwood"}));
  QVERIFY(!load.isEnabled());
  QCOMPARE(fixture.status(), "5 files");

  QTest::mousePress(&fixture.widget(), Qt::LeftButton, {}, fixture.at(2));
  QVERIFY(fixture.widget().hasFocus() && !load.isEnabled());
  QTest::mouseRelease(&fixture.widget(), Qt::LeftButton, {}, fixture.at(2));
  QVERIFY(load.isEnabled());
  const Names kept{"cedar 2", "elder", "cedar 1"};
  page.showFiles(kept);  // an elder is not in the folder
  QCOMPARE(fixture.status(), "2 of 5 files");
  QVERIFY(load.isEnabled() && page.selectedName() == "cedar 1");
  QCOMPARE(changed.count(), 1);
  fixture.click(1);
  fixture.key(Qt::Key_Return);
  page.showFiles({});
  QVERIFY(!load.isEnabled() && page.selectedFile().empty());
  QCOMPARE(fixture.status(), "0 of 5 files");
  fixture.click(1);  // disabled
  fixture.click(2);
  page.pressCancel();

  page.open(programPath(fixture.root), kSubFolder, "*.j3d");
  fixture.doubleClick(fixture.at(1));
  fixture.doubleClick({5, kPage.height() - 80});
  QVERIFY(!load.isEnabled());  // beside the files
  QCOMPARE(page.takeResult(), 0);
  QVERIFY(told.size() == 5 && told[0] == told[1] && told[0].first == CRightLoadTab::kLoad);
  QVERIFY(fs::equivalent(hostPath(told[0].second), fixture.shapes / "cedar 1.j3d"));
  QVERIFY(told[2] == std::pair(2, std::string()) && told[3] == told[2]);
  QVERIFY(told[4].first == CRightLoadTab::kLoad && told[4].second.ends_with("\\ash.j3d"));

  page.open(programPath(fixture.root), "nowhere", "*.j3d");  // the root, which has none
  QVERIFY(fixture.list().count() == 0 && fixture.status().isEmpty());
}

void ThumbPagesTest::keysReachEveryFile() {
  const LibraryFixture<CRightLoadTab> fixture;
  fixture.page->resize(3 * 112 + 30, 300);
  fixture.widget().setFocus();
  QTRY_COMPARE(fixture.widget().cellRect(3).top(), fixture.widget().cellRect(0).bottom() + 1);
  constexpr std::array<std::pair<Qt::Key, int>, 12> kWays{{{Qt::Key_Right, 0},
                                                           {Qt::Key_Right, 1},
                                                           {Qt::Key_Down, 4},
                                                           {Qt::Key_Down, 4},
                                                           {Qt::Key_Left, 3},
                                                           {Qt::Key_Up, 0},
                                                           {Qt::Key_End, 4},
                                                           {Qt::Key_Home, 0},
                                                           {Qt::Key_C, 2},
                                                           {Qt::Key_PageDown, 4},
                                                           {Qt::Key_PageUp, 0},
                                                           {Qt::Key_Space, 0}}};
  const QSignalSpy moved(&fixture.widget(), &ThumbListWidget::selectionMoved);
  for (const auto& [key, place] : kWays) {
    fixture.key(key);
    QCOMPARE(fixture.list().selected(), place);
    QVERIFY(fixture.control(1).isEnabled());
    QVERIFY(fixture.widget().rect().contains(fixture.widget().cellRect(place)));
  }
  QCOMPARE(moved.count(), 10);  // one step led nowhere, a blank begins no name
  fixture.list().select(-1);
  fixture.widget().clearFocus();  // ends the word
  fixture.widget().setFocus();
  QTest::keyClicks(&fixture.widget(), "CEDAR 2");
  QCOMPARE(fixture.page->selectedName(), "cedar 2");
}

void ThumbPagesTest::onlyWhatIsSeenIsRead() {
  const LibraryFixture<CRightLoadTab> fixture(Names{});
  create_directories(fixture.shapes / "thumbs");
  for (int i = 0; i < 10000; ++i) {
    const auto name = std::string("n").append(std::to_string(10000 + i)).append(".j3d");
    std::ofstream file(fixture.shapes / name);
  }
  ThumbListWidget& widget = fixture.widget();
  const QSignalSpy progress(&widget, &ThumbListWidget::progress);
  fixture.page->open(programPath(fixture.root), kSubFolder, "*.j3d");
  QCOMPARE(fixture.list().count(), 10000);
  QCOMPARE(widget.pending(), widget.visibleCount());  // the listing itself reads none
  QVERIFY(widget.pending() > 0 && widget.pending() < 60);
  QTRY_COMPARE(widget.pending(), 0);
  QVERIFY(progress.back().at(0) == widget.visibleCount() &&
          progress.back().at(1) == progress.back().at(0));
  const auto loaded = [&fixture] {
    int count = 0;
    for (int i = 0; i < fixture.list().shownCount(); ++i) {
      count += fixture.list().isThumbnailLoaded(i);
    }
    return count;
  };
  const int screen = widget.visibleCount();
  QCOMPARE(loaded(), screen);
  fixture.key(Qt::Key_End);
  QCOMPARE(fixture.page->selectedName(), "n19999");
  QTRY_COMPARE(widget.pending(), 0);
  QCOMPARE(loaded(), screen + widget.visibleCount());
  fixture.page->showFiles(Names{"n15000"});
  QVERIFY(widget.visibleCount() == 1 && widget.rect().contains(widget.cellRect(0)));
  fixture.page->hide();
  fixture.page->open(programPath(fixture.root), kSubFolder, "*.j3d");
  QTest::qWait(20);
  QCOMPARE(loaded(), 0);  // nobody looks
}

void ThumbPagesTest::scrollBarAndWheel() {
  Names names;
  for (char c = 'a'; c <= 'z'; ++c) {
    names.insert(names.end(), {{c}, {c, '2'}, {c, '3'}});
  }
  const LibraryFixture<CRightLoadTab> fixture(names);
  ThumbListWidget& widget = fixture.widget();
  auto& bar = *widget.findChild<QuietScrollBar*>();
  const auto top = [&widget] { return -widget.cellRect(0).top(); };
  const int still = top();
  const int row = widget.cellRect(0).height();
  const auto turn = [&widget](int angle) {
    QWheelEvent event({50, 50}, widget.mapToGlobal(QPointF(50, 50)), {}, {0, angle}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
  };
  for (const auto& [angle, rows] : {std::pair(120, 0), {-120, 1}, {-60, 1}, {-60, 2}, {240, 0}}) {
    turn(angle);
    QVERIFY(top() - still >= rows * row && top() - still < rows * row + row);
  }
  QCOMPARE(top(), still);
  const auto middle = [&bar] { return bar.handleRect().center().toPoint(); };
  const auto press = [&bar](QPoint at) { QTest::mousePress(&bar, Qt::LeftButton, {}, at); };
  const auto release = [&bar](QPoint at) { QTest::mouseRelease(&bar, Qt::LeftButton, {}, at); };
  press(middle());
  QTest::mouseMove(&bar, QPoint(5, bar.height() + 50));
  release({5, bar.height() + 50});
  QVERIFY(bar.value() == bar.maximum() && top() - still == bar.maximum());
  press({5, 3});
  QCOMPARE(bar.value(), bar.maximum() - bar.pageStep());
  QTRY_COMPARE(bar.value(), 0);  // goes on while it is held
  release({5, 3});
  press({5, bar.height() / 2});
  QTRY_VERIFY(bar.handleRect().contains(5, bar.height() / 2));
  const int reached = bar.value();
  QTest::qWait(150);
  QCOMPARE(bar.value(), reached);  // but never past the pointer
  release({5, bar.height() / 2});
  fixture.page->showFiles(Names{"a"});
  QVERIFY(bar.handleRect().isEmpty() && top() == still);
}

void ThumbPagesTest::clicksDeleteAndKeysDoNot() {
  const LibraryFixture<CRightEditTab> fixture;
  CRightEditTab& page = *fixture.page;
  std::vector<std::pair<int, std::string>> told;
  connect(&page, &CRightEditTab::command, this,
          [&] { told.emplace_back(page.takeResult(), page.deletedName()); });
  const auto gone = [&](const std::string& name) {
    return fixture.filesOf(name) == 0 && !told.empty() &&
           told.back() == std::pair(CRightEditTab::kDeleted, name);
  };
  fixture.clickFile(2);
  fixture.key(Qt::Key_Delete);  // the mode is off
  told.clear();
  fixture.click(3);
  QVERIFY(page.deleteMode() && fixture.control(3).isChecked() && page.selectedName().empty());
  QVERIFY((told == decltype(told){{CRightEditTab::kCleared, ""}}));
  QCOMPARE(fixture.status(), "Click a file to delete it");
  for (const Qt::Key key : {Qt::Key_Right, Qt::Key_End, Qt::Key_Return, Qt::Key_Space, Qt::Key_D}) {
    fixture.key(key);
  }
  QCOMPARE(page.selectedName(), "dogwood");
  QTest::mousePress(&fixture.widget(), Qt::LeftButton, {}, fixture.at(0));
  QTest::mouseRelease(&fixture.widget(), Qt::LeftButton, {}, fixture.at(1));
  QVERIFY(page.selectedName().empty());  // a change of mind
  QCOMPARE(told.size(), 1U);
  QCOMPARE(fixture.list().shownCount(), 5);

  // The second half of a double click finds "cedar 1" and leaves it alone.
  fixture.doubleClick(fixture.at(1));
  QVERIFY(gone("ash") && fixture.filesOf("cedar 1") == 3 && told.size() == 2);
  page.list().moveSelection(2);
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Delete, {}, {}, true);
  QApplication::sendEvent(&fixture.widget(), &held);
  fixture.key(Qt::Key_Delete);
  QVERIFY(gone("cedar 2") && page.selectedName() == "dogwood" && told.size() == 3);
  fs::remove(fixture.shapes / "cedar 1.j3d");  // by somebody else
  fixture.clickFile(1);
  QVERIFY(gone("cedar 1"));
  page.showFiles(Names{"Birch", "ash"});
  QVERIFY(page.deleteMode() && fixture.list().shownNames() == Names{"Birch"});
  fixture.clickFile(0);
  QVERIFY(gone("Birch") && !page.deleteMode() && !fixture.control(3).isChecked());
  page.showAll();
  QVERIFY(fixture.list().shownNames() == Names{"dogwood"} && page.allNames().size() == 1);
  QCOMPARE(fixture.status(), "1 file");
  fixture.click(3);
  fixture.key(Qt::Key_Escape);
  QVERIFY(!page.deleteMode());
  fixture.clickFile(0);
  QCOMPARE(fixture.filesOf("dogwood"), 3);
}

void ThumbPagesTest::editedFilesAreTold() {
  const LibraryFixture<CRightEditTab> fixture;
  CRightEditTab& page = *fixture.page;
  std::vector<std::pair<int, std::string>> told;
  connect(&page, &CRightEditTab::command, this, [&] {
    const int result = page.takeResult();
    told.emplace_back(result, page.selectedName());
    QCOMPARE(page.takeResult(), 0);
  });
  fixture.clickFile(1);
  fixture.key(Qt::Key_Right);
  page.showFiles(Names{"cedar 1", "ash"});
  QVERIFY(page.selectedName() == "cedar 1" && fixture.status() == "2 of 5 files");
  page.showAll();
  QTest::mouseClick(&fixture.widget(), Qt::LeftButton, {}, {5, kPage.height() - 80});
  fixture.click(2);
  page.pressFinish();
  using enum_t = CRightEditTab;
  QVERIFY((told == decltype(told){{enum_t::kSelected, "ash"},
                                  {enum_t::kSelected, "cedar 1"},
                                  {enum_t::kCleared, ""},
                                  {enum_t::kFinished, ""},
                                  {enum_t::kFinished, ""}}));
  fixture.click(3);
  page.open(programPath(fixture.root), kSubFolder, "*.j3d");
  QVERIFY(!page.deleteMode() && page.deletedName().empty());
  QCOMPARE(page.allNames().size(), 5U);
}

void ThumbPagesTest::itemsCanBeReadAloud() {
  const LibraryFixture<CRightLoadTab> fixture;
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&fixture.widget());
  QVERIFY(list != nullptr && list->role() == QAccessible::List && list->childCount() == 5);
  fixture.clickFile(3);
  QAccessibleInterface* item = list->child(3);
  QVERIFY(item != nullptr && list->focusChild() == item && list->indexOfChild(item) == 3);
  QVERIFY(item->text(QAccessible::Name) == "cedar 2" && item->state().selected);
  QVERIFY(item->role() == QAccessible::ListItem && item->parent() == list);
  const QPoint middle = item->rect().center();
  QVERIFY(list->childAt(middle.x(), middle.y()) == item);
  list->child(0)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  QCOMPARE(fixture.page->selectedName(), "Birch");
  fixture.page->showFiles(Names{"ash"});
  QVERIFY(!item->isValid() && item->text(QAccessible::Name).isEmpty() && list->childCount() == 1);
}

}  // namespace pv

QTEST_MAIN(pv::ThumbPagesTest)
#include "thumb_pages_test.moc"
