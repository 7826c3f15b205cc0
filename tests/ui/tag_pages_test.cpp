#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>

#include "library/library_save.h"
#include "library/thumbnail.h"
#include "library/ui/left_edit_tab.h"
#include "library/ui/left_load_tab.h"
#include "library/ui/left_save_tab.h"
#include "library/ui/picture_button.h"
#include "library/ui/right_save_tab.h"
#include "library/ui/tag_cloud_widget.h"
#include "page_fixture.h"
#include "ui/controls.h"
#include "ui/scroll_bar.h"

namespace pv {
namespace {

constexpr QSize kLeft{252, 624};
constexpr QSize kRight{612, 554};

/// A library on disk that goes when the test ends.
class Library {
 public:
  Library() {
    for (const char* folder : {"tags", "tagdb", "thumbs"}) {
      QDir(folder_.path()).mkdir(folder);
    }
  }
  void write(const QString& file, const QByteArray& bytes) const {
    QFile out(folder_.filePath(file));
    if (out.open(QIODevice::WriteOnly)) {
      out.write(bytes);
    }
  }
  /// "missing" for a file that is not there.
  [[nodiscard]] QByteArray read(const QString& file) const {
    QFile in(folder_.filePath(file));
    return in.open(QIODevice::ReadOnly) ? in.readAll() : "missing";
  }
  [[nodiscard]] LibraryPlace place() const {
    return {programPath(folder_.path().toStdString()), ".j3d"};
  }

 private:
  QTemporaryDir folder_;
};

BmpPicture gradient() {
  BmpPicture picture{kThumbnailWidth, kThumbnailHeight, {}};
  for (std::uint32_t i = 0; i < std::uint32_t{96} * 72; ++i) {
    picture.words.push_back(0xFF000000U | (i * 2654435761U >> 8U));
  }
  return picture;
}

template <typename Page>
class OpenPage : public PageFixture<Page> {
 public:
  using PageFixture<Page>::PageFixture;

  TagCloudWidget& cloud() { return this->template control<TagCloudWidget>(1149); }
  void tag(std::int32_t index, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(&cloud(), Qt::LeftButton, keys, cloud().tagRect(index).center());
  }
  void tag(const std::string& name, Qt::KeyboardModifiers keys = {}) {
    tag(cloud().cloud().findTag(name), keys);
  }
  /// Every tag's state as a letter.
  QByteArray states() {
    QByteArray all;
    for (const TagEntry& entry : cloud().cloud().entries()) {
      all += entry.state == TagState::None ? '-' : entry.state == TagState::Selected ? 's' : 'x';
    }
    return all;
  }
  void type(int id, const QString& text) {
    auto& edit = this->template control<QLineEdit>(id);
    edit.selectAll();
    QTest::keyClicks(&edit, text);
  }
  QString text(int id) { return this->template control<QLineEdit>(id).text(); }
  QString hint() { return this->page->template findChild<QLabel*>("tag hint")->text(); }
};

}  // namespace

/// The tag pages with real mouse and key events and real folders.
class TagPagesTest : public QObject {
  Q_OBJECT

 private slots:
  void init() { library_ = std::make_unique<Library>(); }
  void cleanup() { library_.reset(); }

  void controlsAndTexts();
  void clickRule();
  void keysWalkTheCloud();
  void cloudScrolls();
  void cloudShowsStates();
  void saveTextsAreTold();
  void refusedCharacters();
  void thumbnailIsWhatShows();
  void saveWritesTags();
  void tagsAreAddedAndDeleted();
  void fullLibrary();
  void loadPanelFilters();
  void editPanelChangesFileTags();
  void deletingKeepsTheFilesTags();
  void reconstruction();

 private:
  void addTags(int count, const char* form = "tag%1") {
    for (int i = 0; i < count; ++i) {
      library_->write("tags/" + QString(form).arg(i, 3, 10, QChar('0')) + ".tag", "");
    }
  }

  std::unique_ptr<Library> library_;
};

namespace {

struct Expected {
  int id;
  const char* text;
};

QString seen(const QWidget& control) {
  if (const auto* header = qobject_cast<const SectionHeader*>(&control)) {
    return header->text();
  }
  if (const auto* label = qobject_cast<const QLabel*>(&control)) {
    return label->text();
  }
  const auto* button = qobject_cast<const QAbstractButton*>(&control);
  return button != nullptr ? button->text() : QString();
}

template <typename Page>
void checkControls(QSize size, const std::vector<Expected>& expected) {
  OpenPage<Page> at(size);
  QVERIFY(QTest::qWaitForWindowActive(at.page.get()));
  std::vector<const QWidget*> shown;
  for (const auto& [id, text] : expected) {
    auto& control = at.template control<QWidget>(id);
    QCOMPARE(seen(control), QString(text));
    QVERIFY2(!control.accessibleName().isEmpty() || qobject_cast<QLabel*>(&control) != nullptr,
             qPrintable(control.objectName()));
    if (control.isVisible()) {
      const QRect place(control.mapTo(at.page.get(), QPoint()), control.size());
      QVERIFY2(at.page->rect().contains(place), qPrintable(control.objectName()));
      QVERIFY2(control.height() >= control.sizeHint().height() || control.height() >= 24,
               qPrintable(control.objectName()));
      for (const QWidget* other : shown) {
        const QRect taken(other->mapTo(at.page.get(), QPoint()), other->size());
        QVERIFY2(!taken.intersects(place), qPrintable(control.objectName()));
      }
      shown.push_back(&control);
    }
  }
  // Tab goes down the page, and along a row.
  std::vector<QPoint> stops;
  const QWidget* first = at.page->nextInFocusChain();
  for (QWidget* next = at.page->nextInFocusChain(); next != at.page.get();
       next = next->nextInFocusChain()) {
    if ((next->focusPolicy() & Qt::TabFocus) != 0 && next->isVisible()) {
      stops.push_back(next->mapTo(at.page.get(), QPoint()));
    }
  }
  QVERIFY(first != nullptr);
  QVERIFY(std::is_sorted(stops.begin(), stops.end(), [](QPoint a, QPoint b) {
    return std::abs(a.y() - b.y()) > 12 ? a.y() < b.y() : a.x() < b.x();
  }));
}

}  // namespace

void TagPagesTest::controlsAndTexts() {
  checkControls<CLeftSaveTab>(
      kLeft, {{8025, "Thumbnail"},
              {8090, "thumbnail"},
              {8097, "Thumbnail Text:"},
              {8096, ""},
              {8028, "Filename"},
              {8099, "Core Filename:"},
              {8092, ""},
              {8098, "All filenames will be automatically numbered:\n[filename]-0000"},
              {8029, "Tags"},
              {8101, ""},
              {8100, "These Tags have been selected:"},
              {8102, "(Use the Right panel to add and select tags)"}});
  checkControls<CRightSaveTab>(
      kRight, {{8025, "Available Tags"},
               {8093, ""},
               {8091, ""},
               {8094, "Add Tag"},
               {1149, ""},
               {8096, "Delete Tag"},
               {1147,
                "Click a Tag to relate it to the saved file. The Save button saves the file with "
                "the selected Tags."},
               {1, "Save"},
               {2, "Cancel Save"}});
  checkControls<CLeftLoadTab>(
      kLeft,
      {{8025, "Preview"},
       {8090, "Select a file to see it here."},
       {8028, "Available Tags"},
       {1149, ""},
       {8098, "Click a tag to show related file.\nctrl+click a tag to not show related files."}});
  checkControls<CLeftEditTab>(kLeft,
                              {{8108, "Available Tags"},
                               {8093, ""},
                               {8091, ""},
                               {8094, "Add Tag"},
                               {1149, ""},
                               {8096, "Delete Tag"},
                               {8095, "Reconstruct Tag Links"},
                               {1147, "Select a file.\nClick a tag to relate it to the file."}});
  OpenPage<CLeftEditTab> edit(kLeft);
  QVERIFY(!edit.control(8095).isVisible());
}

void TagPagesTest::clickRule() {
  addTags(3);
  OpenPage<CLeftLoadTab> at(kLeft);
  at.page->open(library_->place(), {});
  const QSignalSpy told(at.page.get(), &CLeftLoadTab::command);
  const struct {
    int tag;
    Qt::KeyboardModifiers keys;
    const char* states;
  } clicks[] = {
      {0, {}, "s--"},
      {0, {}, "s--"},
      {1, {}, "-s-"},
      {2, Qt::ControlModifier, "-ss"},
      {1, Qt::ControlModifier, "--s"},
      {1, Qt::AltModifier, "-xs"},
      {2, Qt::AltModifier, "-xx"},
      {2, Qt::ControlModifier, "-xs"},
      {1, Qt::AltModifier, "--s"},
      {0, Qt::ControlModifier | Qt::AltModifier, "x-s"},
      {0, {}, "s--"},
  };
  int count = 0;
  for (const auto& click : clicks) {
    at.tag(click.tag, click.keys);
    QCOMPARE(at.states(), click.states);
    QCOMPARE(told.count(), ++count);
  }
  // The states change with the press, the notification comes with the release.
  const QPoint second = at.cloud().tagRect(1).center();
  QTest::mousePress(&at.cloud(), Qt::LeftButton, {}, second);
  QCOMPARE(at.states(), "-s-");
  QCOMPARE(told.count(), count);
  QTest::mouseRelease(&at.cloud(), Qt::LeftButton, {}, second);
  QCOMPARE(told.count(), ++count);
  QTest::mouseClick(&at.cloud(), Qt::RightButton, {}, second);  // stands for Alt
  QCOMPARE(told.count(), ++count);
  const QPoint beside(at.cloud().width() / 2, at.cloud().height() - 8);
  QTest::mouseClick(&at.cloud(), Qt::LeftButton, Qt::ControlModifier, beside);
  QCOMPARE(at.states(), "-x-");
  QTest::mouseClick(&at.cloud(), Qt::LeftButton, {}, beside);
  QCOMPARE(at.states(), "---");
  // The page is left while the button is down.
  QTest::mousePress(&at.cloud(), Qt::LeftButton, {}, second);
  at.page->hide();
  at.page->show();
  at.tag(0);
  QCOMPARE(at.states(), "s--");
}

void TagPagesTest::keysWalkTheCloud() {
  addTags(12);
  OpenPage<CLeftLoadTab> at(kLeft);
  QVERIFY(QTest::qWaitForWindowActive(at.page.get()));
  at.page->open(library_->place(), {});
  TagCloudWidget& cloud = at.cloud();
  const QSignalSpy told(at.page.get(), &CLeftLoadTab::command);
  const auto go = [&cloud](Qt::Key key) {
    QTest::keyClick(&cloud, key);
    return cloud.current();
  };
  QCOMPARE(go(Qt::Key_Right), 0);
  const QPoint from = cloud.tagRect(go(Qt::Key_Right)).center();
  const QPoint below = cloud.tagRect(go(Qt::Key_Down)).center();
  QVERIFY(below.y() > from.y() && below.y() < from.y() + 30);
  QVERIFY(std::abs(below.x() - from.x()) < 20);
  QCOMPARE(go(Qt::Key_Up), 1);
  QCOMPARE(go(Qt::Key_Up), 1);
  QCOMPARE(go(Qt::Key_End), 11);
  QCOMPARE(go(Qt::Key_Right), 11);
  QCOMPARE(go(Qt::Key_Home), 0);
  QTest::keyClick(&cloud, Qt::Key_Space);
  go(Qt::Key_Right);
  QTest::keyClick(&cloud, Qt::Key_Return, Qt::AltModifier);
  go(Qt::Key_Right);
  QTest::keyClick(&cloud, Qt::Key_Space, Qt::ControlModifier);
  QCOMPARE(at.states(), "sxs---------");
  QCOMPARE(told.count(), 3);
}

void TagPagesTest::cloudScrolls() {
  addTags(200);
  library_->write("tags/" + QString(200, 'w') + ".tag", "");
  OpenPage<CLeftLoadTab> at(kLeft);
  at.page->open(library_->place(), {});
  TagCloudWidget& cloud = at.cloud();
  QVERIFY(cloud.scrollBar().isVisible());
  QVERIFY(!cloud.rect().intersects(cloud.tagRect(200)));
  cloud.setFocus();
  QTest::keyClick(&cloud, Qt::Key_End);
  QVERIFY(cloud.rect().contains(cloud.tagRect(200)));  // cut at the edge, not beyond it
  at.tag(200);
  QCOMPARE(at.states(), QByteArray(200, '-') + 's');
  at.page->resize(252, 2000);
  QVERIFY(!cloud.scrollBar().isVisible());
  QCOMPARE(cloud.tagRect(0).top() > 0, true);
}

// Whoever looks at the pixels must find the three states apart.
void TagPagesTest::cloudShowsStates() {
  addTags(3);
  OpenPage<CLeftLoadTab> at(kLeft);
  QVERIFY(QTest::qWaitForWindowActive(at.page.get()));
  at.page->open(library_->place(), {});
  at.tag(0);
  at.tag(1, Qt::AltModifier);
  const QImage image = at.cloud().grab().toImage();
  const auto face = [&at, &image](std::int32_t tag) {
    const QPoint corner = at.cloud().tagRect(tag).topLeft() + QPoint(3, 2);
    return QColor(image.pixel((QPointF(corner) * image.devicePixelRatio()).toPoint())).rgb();
  };
  QCOMPARE(face(0), at.context.skin.selected.rgb());
  QCOMPARE(face(1), QColor(Qt::white).rgb());
  QCOMPARE(face(2), at.context.skin.panel.rgb());
}

void TagPagesTest::saveTextsAreTold() {
  OpenPage<CLeftSaveTab> at(kLeft);
  const QSignalSpy told(at.page.get(), &CLeftSaveTab::command);
  const auto hint = [&at] { return at.page->findChild<QLabel*>("name hint")->text(); };
  QVERIFY(!hint().isEmpty());
  at.page->setCoreName("Spiral ");
  QVERIFY(hint().isEmpty());
  QCOMPARE(told.count() + at.page->takeResult(), 0);
  QCOMPARE(at.page->coreName(), "spiral");
  at.type(8092, " MyShape ");
  QCOMPARE(at.page->coreName(), "myshape");
  QCOMPARE(told.count(), 9);
  QCOMPARE(at.page->takeResult(), 1);
  QCOMPARE(at.page->takeResult(), 0);
  at.type(8096, " A b ");
  QCOMPARE(at.page->thumbnailText(), "A b");
  QCOMPARE(at.page->takeResult(), 1);
  QTest::keyClick(&at.control<QLineEdit>(8096), Qt::Key_Return);
  QCOMPARE(at.control<QLineEdit>(8096).selectedText(), " A b ");
  at.page->setCoreName(std::string(300, 'x'));
  QVERIFY(!hint().isEmpty());
  at.page->setCoreName("con");  // con-0000 is no device
  QVERIFY(hint().isEmpty());
  at.page->setSelectedTags("red  blue");
  QCOMPARE(at.control(8102).text(), "red  blue");
  at.page->setSelectedTags({});
  QCOMPARE(at.control(8102).text(), "(Use the Right panel to add and select tags)");
}

void TagPagesTest::refusedCharacters() {
  OpenPage<CLeftSaveTab> at(kLeft);
  const auto hint = [&at] { return at.page->findChild<QLabel*>("name hint")->text(); };
  at.type(8092, "a");
  auto& edit = at.control<QLineEdit>(8092);
  edit.selectAll();
  QTest::keyClicks(&edit, R"(\/:*?"<>|)");
  QCOMPARE(edit.text(), "a");
  QCOMPARE(edit.selectedText(), "a");
  QVERIFY(hint().contains('*'));
  QTest::keyClicks(&edit, "b.(1)");
  QCOMPARE(at.page->coreName(), "b.(1)");
  QVERIFY(hint().isEmpty());
  QGuiApplication::clipboard()->setText(QString::fromUtf8("..\\x/y\xc3\xa4\n"));
  edit.selectAll();
  edit.paste();
  QCOMPARE(edit.text().toUtf8(), "..xy\xc3\xa4");
  QCOMPARE(at.page->coreName(), "..xy\xc3\xa4");
  QTRY_VERIFY(hint().contains('*'));
  at.type(8096, "a/b?");  // no file is called by this text
  QCOMPARE(at.page->thumbnailText(), "a/b?");
}

void TagPagesTest::thumbnailIsWhatShows() {
  OpenPage<CLeftSaveTab> at(kLeft);
  QVERIFY(QTest::qWaitForWindowActive(at.page.get()));
  const BmpPicture view = gradient();
  at.page->setPicture(view);
  QVERIFY(at.page->thumbnail() == view);
  at.type(8096, "Spiral with a text that is much too long for it");
  const BmpPicture picture = at.page->thumbnail();
  const std::string file = library_->place().thumbnailFile("spiral-0000");
  QVERIFY(writeBmpFile(hostPath(file), picture));

  const QImage read(QString::fromStdU16String(hostPath(file).u16string()));
  QCOMPARE(read.size(), QSize(96, 72));
  auto& button = at.control<PictureButton>(8090);
  const QImage shown = button.grab().toImage();
  const double ratio = shown.devicePixelRatio();
  const int factor = static_cast<int>(192 * ratio) / 96;
  const QPoint corner((shown.width() - 96 * factor) / 2, (shown.height() - 72 * factor) / 2);
  int changed = 0;
  for (int y = 0; y < 72; ++y) {
    for (int x = 0; x < 96; ++x) {
      const QRgb pixel = read.pixel(x, y);
      for (const int in : {0, factor - 1}) {
        QCOMPARE(shown.pixel(corner + QPoint(x, y) * factor + QPoint(in, in)), pixel);
      }
      const auto at96 = static_cast<std::size_t>((71 - y) * 96 + x);
      QCOMPARE(picture.words[at96], pixel);
      changed += pixel != view.words[at96] && y < 72 - 15 ? 1 : 0;
    }
  }
  QCOMPARE(changed, 0);  // the text keeps to its band
  QVERIFY(!(picture == view));
  at.page->setPicture({});
  QCOMPARE(at.page->thumbnail().words.size(), std::size_t{96} * 72);
}

void TagPagesTest::saveWritesTags() {
  library_->write("tags/blue.tag", "old-0000\r\n");
  library_->write("tags/red.tag", "");
  library_->write("thumbs/spiral-0004.bmp", "");
  OpenPage<CRightSaveTab> at(kRight);
  QVERIFY(QTest::qWaitForWindowActive(at.page.get()));
  at.page->open(library_->place(), {});
  const QSignalSpy told(at.page.get(), &CRightSaveTab::command);
  at.click(1);
  QVERIFY(at.page->savedName().empty());  // without a core name; still told
  QCOMPARE(at.page->takeResult(), 3);
  at.page->setCoreName(" Spiral");
  at.tag("red");
  QCOMPARE(at.page->takeResult(), 1);
  QCOMPARE(at.page->takeResult(), 0);
  at.tag("blue", Qt::ControlModifier);
  QCOMPARE(at.page->selectedTags(), "blue  red");
  QVERIFY(at.page->takeResult() == 1 && told.count() == 3);
  at.click(1);
  QCOMPARE(at.page->takeResult(), 3);
  QCOMPARE(at.page->savedName(), "spiral-0005");
  QCOMPARE(library_->read("tagdb/spiral-0005.tdb"), "blue\r\nred\r\n");
  QCOMPARE(library_->read("tags/blue.tag"), "old-0000\r\n");
  QVERIFY(at.page->writeTags());
  QCOMPARE(library_->read("tags/blue.tag"), "old-0000\r\nspiral-0005\r\n");
  QCOMPARE(library_->read("tags/red.tag"), "spiral-0005\r\n");

  // Other files that were written since are safe from this page.
  at.page->open(library_->place(), {});
  QVERIFY(at.page->savedName().empty() && at.page->selectedTags().isEmpty());
  library_->write("tags/red.tag", "newer\r\n");
  at.click(2);
  QCOMPARE(at.page->takeResult(), 2);
  at.page.reset();
  QCOMPARE(library_->read("tags/red.tag"), "newer\r\n");
}

void TagPagesTest::tagsAreAddedAndDeleted() {
  library_->write("tags/red.tag", "");
  OpenPage<CRightSaveTab> at(kRight);
  QVERIFY(QTest::qWaitForWindowActive(at.page.get()));
  at.page->open(library_->place(), {});
  at.click(8094);
  QCOMPARE(at.states(), "-");
  at.type(8091, "red");
  at.click(8094);
  at.type(8091, "two words");
  QTest::keyClick(&at.control<QLineEdit>(8091), Qt::Key_Enter);
  QCOMPARE(at.states(), "---");  // twice the same name makes two
  QCOMPARE(at.control<QLineEdit>(8091).selectedText(), "two words");
  QVERIFY(at.hint().isEmpty());
  at.type(8091, "lpt1");
  QVERIFY(!at.hint().isEmpty());
  at.type(8091, QString(300, 'n'));
  at.click(8094);
  QVERIFY(!at.hint().isEmpty());
  QCOMPARE(at.states(), "----");

  at.tag("two words");
  QCOMPARE(at.page->takeResult(), 1);
  at.click(8096);
  QVERIFY(at.control(8096).isChecked() && at.states() == "----");
  QCOMPARE(at.page->takeResult(), 1);  // nothing is selected any more
  at.tag("red");
  QCOMPARE(library_->read("tags/red.tag"), "missing");
  QCOMPARE(at.page->takeResult(), 0);
  at.click(8096);
  QVERIFY(!at.control(8096).isChecked());
  at.click(8096);
  while (at.cloud().cloud().count() > 1) {
    at.tag(1);
  }
  at.tag(0);
  QVERIFY(!at.control(8096).isChecked());  // no tag is left to delete

  at.type(8091, "late");
  at.click(8094);
  QCOMPARE(library_->read("tags/late.tag"), "missing");
  at.page.reset();
  QCOMPARE(library_->read("tags/late.tag"), "");
}

void TagPagesTest::fullLibrary() {
  addTags(256);
  OpenPage<CRightSaveTab> at(kRight);
  QVERIFY(QTest::qWaitForWindowActive(at.page.get()));
  at.page->open(library_->place(), {});
  QVERIFY(at.hint().isEmpty());
  at.type(8091, "more");
  at.click(8094);
  QCOMPARE(at.cloud().cloud().count(), 256);
  QCOMPARE(at.text(8091), "more");
  QCOMPARE(at.hint().toStdString(), kTagsFullText);
  at.click(8096);
  at.tag(0);
  at.click(8094);
  QCOMPARE(at.cloud().cloud().findTag("more"), 255);
  QVERIFY(at.hint().isEmpty());
}

void TagPagesTest::loadPanelFilters() {
  library_->write("tags/blue.tag", "a-0000\r\nb-0000\r\n");
  library_->write("tags/red.tag", "b-0000\r\nc-0000\r\n");
  OpenPage<CLeftLoadTab> at(kLeft);
  QVERIFY(QTest::qWaitForWindowActive(at.page.get()));
  at.page->open(library_->place(), {});
  using Files = std::vector<std::string>;
  at.tag("blue");
  QVERIFY((at.page->filteredFiles() == Files{"a-0000", "b-0000"}));
  at.tag("red", Qt::ControlModifier);
  QVERIFY((at.page->filteredFiles() == Files{"b-0000"}));
  at.tag("red", Qt::AltModifier);
  QVERIFY((at.page->filteredFiles() == Files{"a-0000"}));

  const QSize size = at.page->previewSize();
  const double ratio = at.page->devicePixelRatio();
  QVERIFY(std::abs(size.width() * 3 - size.height() * 4) <= 4);
  QVERIFY(size.width() >= 247 * ratio && size.width() <= 252 * ratio);
  QImage picture(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    for (int x = 0; x < size.width(); ++x) {
      picture.setPixel(x, y, (x + y) % 2 != 0 ? 0xFFFFFFFF : 0xFF000000);
    }
  }
  at.page->setPreview(picture);
  const QImage shown = at.control(8090).grab().toImage();
  const QPoint middle = shown.rect().center();
  for (int i = -10; i < 10; ++i) {  // not scaled: neighbours stay black and white
    QCOMPARE(qAbs(qRed(shown.pixel(middle + QPoint(i, 0))) -
                  qRed(shown.pixel(middle + QPoint(i + 1, 0)))),
             255);
  }
  at.page->open(library_->place(), {});
  QVERIFY(at.page->filteredFiles().empty());
  QVERIFY(at.control<PictureButton>(8090).picture().isNull());
}

void TagPagesTest::editPanelChangesFileTags() {
  library_->write("tags/blue.tag", "a-0000\r\nb-0000\r\n");
  library_->write("tags/red.tag", "");
  library_->write("tagdb/a-0000.tdb", "blue\r\n");
  OpenPage<CLeftEditTab> at(kLeft);
  QVERIFY(QTest::qWaitForWindowActive(at.page.get()));
  at.page->open(library_->place(), {});
  const auto file = [&at] { return at.page->findChild<QLabel*>("tagged file")->text(); };
  const QString none = file();
  at.tag("blue");
  QCOMPARE(at.page->takeResult(), 2);
  QVERIFY(at.page->filteredFiles().size() == 2 && at.page->takeResult() == 0);
  at.tag("blue", Qt::ControlModifier);
  QCOMPARE(at.page->takeResult(), 1);

  at.page->applyFileTags("a-0000");
  at.page->selectFile("a-0000");
  QCOMPARE(at.states(), "s-");
  QVERIFY(file().contains("a-0000"));
  at.tag("blue");  // what it has already
  QCOMPARE(at.page->takeResult(), 0);
  at.tag("red");
  QCOMPARE(at.page->takeResult(), 4);
  at.page->updateFileTags();
  QCOMPARE(library_->read("tagdb/a-0000.tdb"), "red\r\n");
  at.tag("blue", Qt::ControlModifier);
  QCOMPARE(at.page->takeResult(), 4);
  at.page->updateFileTags();
  QCOMPARE(library_->read("tagdb/a-0000.tdb"), "blue\r\nred\r\n");
  at.page->unlinkFile("b-0000");
  QVERIFY(at.page->writeAllTags());
  QCOMPARE(library_->read("tags/blue.tag"), "a-0000\r\n");
  QCOMPARE(library_->read("tags/red.tag"), "a-0000\r\n");
  at.page->selectFile({});
  QCOMPARE(file(), none);
}

// While clicks delete no tag is marked; the file has its tags again afterwards.
void TagPagesTest::deletingKeepsTheFilesTags() {
  library_->write("tags/blue.tag", "a-0000\r\n");
  library_->write("tags/green.tag", "");
  library_->write("tags/red.tag", "a-0000\r\n");
  library_->write("tagdb/a-0000.tdb", "blue\r\nred\r\n");
  OpenPage<CLeftEditTab> at(kLeft);
  QVERIFY(QTest::qWaitForWindowActive(at.page.get()));
  at.page->open(library_->place(), {});
  at.page->applyFileTags("a-0000");
  QCOMPARE(at.states(), "s-s");
  at.click(8096);
  QCOMPARE(at.states(), "---");
  at.tag("red");
  QCOMPARE(library_->read("tags/red.tag"), "missing");
  QVERIFY(at.control(8096).isChecked() && at.page->takeResult() == 0);
  at.click(8096);
  QCOMPARE(at.states(), "s-");  // "red" does not come back
  at.tag("green", Qt::ControlModifier);
  QCOMPARE(at.page->takeResult(), 4);
  at.page->updateFileTags();
  QCOMPARE(library_->read("tagdb/a-0000.tdb"), "blue\r\ngreen\r\n");
  at.click(8096);
  at.page->applyFileTags("a-0000");     // another file is chosen, which ends the mode:
  at.tag("blue", Qt::ControlModifier);  // takes one tag from the file and deletes none
  QVERIFY(at.page->takeResult() == 4 && at.cloud().cloud().count() == 2);
  // Without tags there is nothing to go on deleting, or that the file would hold.
  at.page->updateFileTags();
  at.click(8096);
  at.tag("blue");
  at.tag("green");
  QVERIFY(!at.control(8096).isChecked());
  at.type(8091, "green");
  at.click(8094);
  at.tag("green");
  QCOMPARE(at.page->takeResult(), 4);
}

void TagPagesTest::reconstruction() {
  library_->write("tags/blue.tag", "gone-0000\r\n");
  library_->write("tagdb/a-0000.tdb", "blue\r\ngreen\r\n");
  library_->write("tagdb/b-0000.tdb", "green\r\n");
  OpenPage<CLeftEditTab> at(kLeft);
  QVERIFY(QTest::qWaitForWindowActive(at.page.get()));
  at.page->open(library_->place(), {});
  const std::vector<std::string> names{"a-0000", "b-0000", "c-0000"};
  QTest::keyClick(at.page.get(), Qt::Key_R, Qt::ControlModifier);
  QCOMPARE(at.page->takeResult(), 3);
  at.page->reconstruct(names);
  QCOMPARE(library_->read("tags/blue.tag"), "a-0000\r\n");
  QCOMPARE(library_->read("tags/green.tag"), "a-0000\r\nb-0000\r\n");
  QCOMPARE(at.states(), "--");
  at.page->selectFile("b-0000");
  at.page->reconstruct(names);
  QCOMPARE(at.states(), "-s");
}

}  // namespace pv

QTEST_MAIN(pv::TagPagesTest)
#include "tag_pages_test.moc"
