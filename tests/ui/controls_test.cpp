#include "ui/controls.h"

#include <cmath>
#include <set>
#include <utility>

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QScreen>
#include <QSignalSpy>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include "ui/image_button.h"
#include "ui/list_selector.h"
#include "ui/page_strip.h"
#include "ui/pictures_ahead.h"
#include "ui/pixel_painter.h"
#include "ui/popup_help.h"
#include "ui/spin_combo.h"
#include "util/program_path.h"

namespace pv {
namespace {

constexpr const char* kHelp = "Horizontal Amount:\nThis is the amount\nof sections.";

// Where a share of a value control's track lies; label and field do not move.
QPoint onTrack(const CSpinCombo& control, double share) {
  const auto* field = control.findChild<EditBox*>();
  const double left = 4.5;
  const double right = field->x() - 4 - 4.5;
  return {qRound(left + share * (right - left) - 0.5), control.height() / 2};
}

void wheel(QWidget& widget, int eighths) {
  const QPointF at(widget.rect().center());
  QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, eighths}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  // Only what seems to come from outside goes on to the parent.
  QSpontaneKeyEvent::setSpontaneous(&event);
  QApplication::sendEvent(&widget, &event);
}

// The toolkit's soft edges are not quite symmetrical.
bool isNear(const QColor& a, const QColor& b) {
  constexpr int kLevels = 24;
  return std::abs(a.red() - b.red()) <= kLevels && std::abs(a.green() - b.green()) <= kLevels &&
         std::abs(a.blue() - b.blue()) <= kLevels;
}

// A box in device pixels, three from the corner.
class BoxOnly : public QWidget {
 public:
  static constexpr QRgb kGround = 0xFF202020;
  static constexpr QRgb kFace = 0xFFFF0000;
  static constexpr QRgb kBorder = 0xFF0000FF;

  BoxOnly(const Skin& skin, QSize size, Corners corners, QRgb face = kFace, QRgb border = kBorder)
      : skin_(skin),
        box_({3, 3}, size),
        corners_(corners),
        face_(QColor::fromRgba(face)),
        border_(QColor::fromRgba(border)) {
    resize(60, 30);
  }
  [[nodiscard]] QRect box() const { return box_; }
  [[nodiscard]] QImage picture() {
    QImage image = grab().toImage();
    image.setDevicePixelRatio(1);
    return image.convertToFormat(QImage::Format_RGB32);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    PixelPainter painter(*this, skin_);
    painter.fill(painter.bounds(), QColor(kGround));
    painter.box(box_, face_, border_, corners_);
  }

 private:
  const Skin& skin_;
  QRect box_;
  Corners corners_;
  QColor face_;
  QColor border_;
};

}  // namespace

/// The skinned controls with real mouse and key events.
class ControlsTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { QApplication::setStyle(QStyleFactory::create("Fusion")); }
  void init();
  void cleanup() { window_.reset(); }

  void trackIsDragged();
  void controlClickStepsTowardsThePointer();
  void keysStepAndWriteIntoTheField();
  void wheelNeedsTheFocus();
  void fieldTakesNumbersOnly_data();
  void fieldTakesNumbersOnly();
  void valueOutsideTheRangeIsKept();
  void undoReachesTheWindow();
  void buttonsNeverCheckThemselves();
  void enterSelectsTheText();
  void stripAsksForPages();
  void helpComesAfterRestBesideThePointer();
  void assistiveToolsSeeEverything();
  void missingAndBrokenImagesAreHarmless();
  void drawingsReadAheadAreThoseOfTheirFiles();
  void drawingsReadAheadAreKept();
  void bordersAreWholeAtEveryPlace();
  void boxesAreWholeInEverySize();
  void cornersHaveTheirOwnColours();

 private:
  CSpinCombo& value(int low, int high, int value);

  const UiContext context_{skinFrom({}), ImageStore(programPath(PV_ART))};
  std::unique_ptr<QWidget> window_;
};

void ControlsTest::init() {
  window_ = std::make_unique<QWidget>();
  window_->resize(400, 300);
  window_->setFocusPolicy(Qt::ClickFocus);
  window_->show();
  window_->activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(window_.get()));
}

CSpinCombo& ControlsTest::value(int low, int high, int value) {
  auto* control = new CSpinCombo(context_, {}, kHelp, window_.get());
  control->setGeometry(10, 10, 252, 24);
  control->setRange(low, high);
  control->setValue(value);
  control->show();
  return *control;
}

void ControlsTest::trackIsDragged() {
  CSpinCombo& control = value(-200, 200, 10);
  QSignalSpy changes(&control, &CSpinCombo::valueChanged);
  QTest::mousePress(&control, Qt::LeftButton, {}, onTrack(control, 0.5));
  QVERIFY(qAbs(control.value()) <= 1);
  QTest::mouseMove(&control, onTrack(control, 0.75));
  QVERIFY(qAbs(control.value() - 100) <= 1);
  QTest::mouseMove(&control, QPoint(1000, 200));
  QCOMPARE(control.value(), 200);
  QTest::mouseRelease(&control, Qt::LeftButton, {}, QPoint(-1000, 200));
  QTest::mouseMove(&control, onTrack(control, 0.5));
  QCOMPARE(control.value(), 200);
  QCOMPARE(changes.count(), 3);
  QCOMPARE(control.findChild<EditBox*>()->text(), "200");
}

void ControlsTest::controlClickStepsTowardsThePointer() {
  CSpinCombo& control = value(0, 400, 200);
  QTest::mouseClick(&control, Qt::LeftButton, Qt::ControlModifier, onTrack(control, 1.0));
  QCOMPARE(control.value(), 201);
  QTest::mouseClick(&control, Qt::LeftButton, Qt::ControlModifier, onTrack(control, 0.0));
  QTest::mouseClick(&control, Qt::LeftButton, Qt::ControlModifier, onTrack(control, 0.1));
  QCOMPARE(control.value(), 199);
}

void ControlsTest::keysStepAndWriteIntoTheField() {
  CSpinCombo& control = value(0, 400, 50);
  QSignalSpy changes(&control, &CSpinCombo::valueChanged);
  control.setFocus(Qt::TabFocusReason);
  const std::pair<Qt::Key, int> steps[] = {
      {Qt::Key_Up, 51},     {Qt::Key_Right, 52},    {Qt::Key_Left, 51}, {Qt::Key_Down, 50},
      {Qt::Key_PageUp, 60}, {Qt::Key_PageDown, 50}, {Qt::Key_Home, 0},  {Qt::Key_Down, 0},
      {Qt::Key_End, 400},   {Qt::Key_PageUp, 400}};
  for (const auto& [key, expected] : steps) {
    QTest::keyClick(&control, key);
    QCOMPARE(control.value(), expected);
  }
  QCOMPARE(changes.count(), 8);
  QTest::keyClick(&control, '7');
  QWidget* field = QApplication::focusWidget();
  QCOMPARE(field, control.findChild<EditBox*>());
  // A step counts from what stands in the field.
  QTest::keyClicks(field, "2");
  QTest::keyClick(field, Qt::Key_Up);
  QCOMPARE(control.value(), 73);
  QTest::keyClicks(field, "9");
  QTest::keyClick(field, Qt::Key_Escape);
  QCOMPARE(control.findChild<EditBox*>()->text(), "73");
}

void ControlsTest::wheelNeedsTheFocus() {
  CSpinCombo& control = value(0, 400, 50);
  window_->setFocus();
  wheel(control, 120);
  QCOMPARE(control.value(), 50);
  control.setFocus();
  wheel(control, 240);
  wheel(control, -60);
  wheel(control, -60);
  QCOMPARE(control.value(), 51);
  control.findChild<EditBox*>()->setFocus();
  wheel(*control.findChild<EditBox*>(), 120);
  QCOMPARE(control.value(), 52);

  auto* list = new ListSelector(context_, "Blend", kHelp, window_.get());
  list->addItems({"Additive", "Alpha"});
  list->show();
  wheel(*list, -120);
  QCOMPARE(list->currentIndex(), 0);
  QVERIFY(!list->hasFocus());
  list->setFocus();
  wheel(*list, -60);
  QCOMPARE(list->currentIndex(), 0);
  wheel(*list, -60);
  QCOMPARE(list->currentIndex(), 1);
}

void ControlsTest::fieldTakesNumbersOnly_data() {
  QTest::addColumn<QString>("typed");
  QTest::addColumn<int>("expected");
  QTest::newRow("comma") << "12,7" << 12;
  QTest::newRow("point") << " 12.7 " << 12;
  QTest::newRow("negative is cut toward zero") << "-12.7" << -12;
  QTest::newRow("bare fraction") << ",9" << 0;
  QTest::newRow("above") << "401" << 400;
  QTest::newRow("far below") << "-99999999999999999999" << -200;
  QTest::newRow("huge") << QString(400, '9') << 400;
  for (const char* nonsense : {"", "abc", "1e2", "nan", "inf", "0x10", "1.2.3", "--5", "."}) {
    QTest::addRow("nonsense '%s'", nonsense) << nonsense << 50;
  }
}

void ControlsTest::fieldTakesNumbersOnly() {
  QFETCH(QString, typed);
  QFETCH(int, expected);
  CSpinCombo& control = value(-200, 400, 50);
  QSignalSpy changes(&control, &CSpinCombo::valueChanged);
  auto* field = control.findChild<EditBox*>();
  field->setFocus();
  field->selectAll();
  QTest::keyClick(field, Qt::Key_Delete);
  QTest::keyClicks(field, typed);
  QCOMPARE(control.value(), 50);
  QTest::keyClick(field, Qt::Key_Enter);
  QCOMPARE(control.value(), expected);
  QCOMPARE(field->text(), QString::number(expected));
  QCOMPARE(field->selectedText(), field->text());
  window_->setFocus();
  QCOMPARE(changes.count(), expected == 50 ? 0 : 1);
}

void ControlsTest::valueOutsideTheRangeIsKept() {
  CSpinCombo& control = value(0, 400, 500);
  QSignalSpy changes(&control, &CSpinCombo::valueChanged);
  auto* field = control.findChild<EditBox*>();
  control.setRange(0, 100);
  field->setFocus();
  QTest::keyClick(field, Qt::Key_Return);
  window_->setFocus();
  QCOMPARE(control.value(), 500);
  QCOMPARE(field->text(), "500");
  QCOMPARE(changes.count(), 0);
  control.setFocus();
  QTest::keyClick(&control, Qt::Key_Up);
  QCOMPARE(control.value(), 100);
  // Ends of the integers, and a range that is upside down or a single number.
  control.setRange(std::numeric_limits<int>::max(), std::numeric_limits<int>::min());
  QTest::keyClick(&control, Qt::Key_End);
  QTest::keyClick(&control, Qt::Key_PageUp);
  QCOMPARE(control.value(), std::numeric_limits<int>::max());
  control.setRange(7, 7);
  QTest::mouseClick(&control, Qt::LeftButton, {}, onTrack(control, 0.5));
  QCOMPARE(control.value(), 7);
}

void ControlsTest::undoReachesTheWindow() {
  CSpinCombo& control = value(0, 100, 5);
  auto* undo = new QAction(window_.get());
  undo->setShortcut(QKeySequence::Undo);
  window_->addAction(undo);
  QSignalSpy undone(undo, &QAction::triggered);
  auto* field = control.findChild<EditBox*>();
  field->setFocus();
  QTest::keySequence(field, QKeySequence::Undo);
  QCOMPARE(undone.count(), 1);
  QTest::keyClicks(field, "7");
  QTest::keySequence(field, QKeySequence::Undo);
  QCOMPARE(undone.count(), 1);
}

void ControlsTest::buttonsNeverCheckThemselves() {
  auto* image = new ImageButton(context_, "/bin/program/snap.png", kHelp, window_.get());
  auto* text = new TextButton(context_, "Finished", kHelp, window_.get());
  auto* box = new CheckBox(context_, "Center Sections", kHelp, window_.get());
  for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{image, text, box}) {
    button->setCheckable(true);
    button->show();
    QSignalSpy clicks(button, &QAbstractButton::clicked);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(button->isChecked(), button == box);
    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(!button->isChecked());
    if (button != box) {
      QTest::keyClick(button, Qt::Key_Return);
      QCOMPARE(clicks.count(), 3);
      QVERIFY(!button->isChecked());
    }
  }
}

void ControlsTest::enterSelectsTheText() {
  auto* edit = new EditBox(context_, "Core name", window_.get());
  edit->show();
  QSignalSpy enters(edit, &EditBox::enterPressed);
  QTest::keyClicks(edit, "spiral");
  QCOMPARE(enters.count(), 0);
  QTest::keyClick(edit, Qt::Key_Return);
  QCOMPARE(enters.count(), 1);
  QCOMPARE(edit->selectedText(), "spiral");
}

void ControlsTest::stripAsksForPages() {
  auto* strip =
      new PageStrip(context_, {{"Emitter", ""}, {"Particles", ""}, {"Forces", ""}}, window_.get());
  strip->resize(270, 29);
  strip->show();
  QSignalSpy next(strip, &PageStrip::nextRequested);
  QSignalSpy asked(strip, &PageStrip::tabRequested);
  QTest::mouseClick(strip, Qt::LeftButton);
  QTest::keyClick(strip, Qt::Key_Space);
  QTest::mousePress(strip, Qt::LeftButton);
  QTest::mouseRelease(strip, Qt::LeftButton, {}, QPoint(0, 200));
  QCOMPARE(next.count(), 2);
  QCOMPARE(strip->current(), 0);
  const std::pair<Qt::Key, int> keys[] = {
      {Qt::Key_Left, 2}, {Qt::Key_Right, 1}, {Qt::Key_End, 2}, {Qt::Key_2, 1}, {Qt::Key_Home, 0}};
  for (const auto& [key, tab] : keys) {
    QTest::keyClick(strip, key);
    QCOMPARE(asked.takeFirst().front().toInt(), tab);
  }
  QTest::keyClick(strip, Qt::Key_4);
  QCOMPARE(asked.count(), 0);
  PageStrip(context_, {}).grab();
}

void ControlsTest::helpComesAfterRestBesideThePointer() {
  auto* button = new ImageButton(context_, "/bin/program/snap.png", kHelp, window_.get());
  button->resize(36, 36);
  button->show();
  const auto bubble = [this] {
    for (QWidget* child : window_->findChildren<QWidget*>("popup help")) {
      if (child->isVisible()) {
        return child;
      }
    }
    return static_cast<QWidget*>(nullptr);
  };
  const QRect screen = window_->screen()->availableGeometry();
  window_->setGeometry(screen);
  for (const QPoint corner : {QPoint(20, 20), window_->rect().bottomRight() - QPoint(40, 40)}) {
    button->move(corner);
    QTest::mouseMove(window_->windowHandle(), QPoint(120, 5));
    QTRY_VERIFY(!button->underMouse());
    for (int x = 0; x < 4; ++x) {
      QTest::mouseMove(window_->windowHandle(), corner + QPoint(10 + x, 10));
      QTest::qWait(Skin::kHelpDelay / 3);
      QVERIFY(bubble() == nullptr);
    }
    QTRY_VERIFY(bubble() != nullptr);
    const QPoint pointer = button->mapToGlobal(QPoint(13, 10));
    QVERIFY(!bubble()->geometry().contains(pointer));
    QVERIFY(screen.contains(bubble()->geometry()));
    QTest::keyClick(window_.get(), Qt::Key_Shift);
    QTRY_VERIFY(bubble() == nullptr);
  }
}

void ControlsTest::assistiveToolsSeeEverything() {
  const auto seen = [](QWidget* widget) { return QAccessible::queryAccessibleInterface(widget); };
  const auto name = [&seen](QWidget* widget) { return seen(widget)->text(QAccessible::Name); };
  CSpinCombo& control = value(0, 400, 40);
  QCOMPARE(name(&control), "Horizontal Amount");
  QCOMPARE(seen(&control)->text(QAccessible::Description), "This is the amount of sections.");
  QCOMPARE(seen(&control)->role(), QAccessible::Slider);
  QAccessibleValueInterface* slider = seen(&control)->valueInterface();
  QVERIFY(slider != nullptr);
  QCOMPARE(slider->currentValue().toInt(), 40);
  QCOMPARE(slider->maximumValue().toInt(), 400);
  slider->setCurrentValue(500);
  QCOMPARE(control.value(), 400);

  auto* image = new ImageButton(context_, "", kHelp, window_.get());
  auto* box = new CheckBox(context_, "Center Sections", "Other:\nText", window_.get());
  auto* strip = new PageStrip(context_, {{"Emitter", ""}}, window_.get());
  auto* header = new SectionHeader(context_, "Duplicates", window_.get());
  auto* list = new ListSelector(context_, "Blend", kHelp, window_.get());
  QCOMPARE(name(image), "Horizontal Amount");
  QCOMPARE(seen(image)->role(), QAccessible::Button);
  QCOMPARE(name(box), "Center Sections");
  QCOMPARE(seen(box)->role(), QAccessible::CheckBox);
  seen(box)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  QVERIFY(box->isChecked() && seen(box)->state().checked);
  QCOMPARE(name(strip), "Emitter");
  QCOMPARE(seen(strip)->role(), QAccessible::Button);
  QCOMPARE(seen(header)->role(), QAccessible::Heading);
  QCOMPARE(name(list), "Blend");
  QCOMPARE(seen(list)->role(), QAccessible::ComboBox);
}

void ControlsTest::missingAndBrokenImagesAreHarmless() {
  const QTemporaryDir folder;
  for (const char* file : {"broken.png", "broken.cur"}) {
    QFile broken(folder.filePath(file));
    QVERIFY(broken.open(QFile::WriteOnly));
    broken.write("\x89PNG\r\n\x1A\n\0\0\0", 11);
  }
  const ImageStore images(programPath(folder.path().toStdString()));
  for (const char* name : {"", ".", "/none.png", "/broken.png"}) {
    QVERIFY(images.pixmap(name, 2).isNull());
  }
  QCOMPARE(images.cursor("\\broken.cur", 1).shape(), Qt::ArrowCursor);
  QCOMPARE(ImageStore("Illegal executable name 'x'!").cursor("/pen.cur", 1).shape(),
           Qt::ArrowCursor);
  QCOMPARE(context_.images.pixmap("/bin/program/snap.png", 1.25).width(), 48);
  const QCursor pen = context_.images.cursor("\\bin\\program\\pen.cur", 3);
  QCOMPARE(pen.pixmap().devicePixelRatio(), 3.0);
  QCOMPARE(pen.hotSpot(), QPoint(5, 26));
  const UiContext bare{context_.skin, images};
  ImageButton(bare, "/broken.png", kHelp).grab();
}

void ControlsTest::drawingsReadAheadAreThoseOfTheirFiles() {
  const std::string folder = programPath(PV_ART);
  const std::vector<std::string> names{"/bin/program/snap.png", "/bin/program/none.png", "nothing",
                                       "/bin/program/tag.png"};
  for (const double ratio : {1.0, 2.0, 3.0}) {
    ImageStore images(folder);
    images.readAhead(names, ratio);
    for (const std::string& name : names) {
      // Whether it was read yet or not.
      QCOMPARE(images.pixmap(name, ratio).toImage(), context_.images.pixmap(name, ratio).toImage());
    }
  }
  const std::string last = folder + names.back();
  const PicturesAhead ahead({folder + names[0], folder + names[1], last});
  QTRY_COMPARE(ahead.find(last).size(), QSize(24, 24));
  QVERIFY(!ahead.find(folder + names[0]).isNull());
  QVERIFY(ahead.find(folder + names[1]).isNull());
  QVERIFY(ahead.find(folder + "/bin/program/view-grid.png").isNull());
}

// Once they are read, their files are not needed any more.
void ControlsTest::drawingsReadAheadAreKept() {
  const QTemporaryDir folder;
  QVERIFY(QDir(folder.path()).mkpath("bin/program"));
  const QString file = folder.filePath("bin/program/snap@2x.png");
  bool kept = false;
  for (int wait = 20; !kept && wait < 3000; wait *= 2) {
    QVERIFY(QFile::copy(PV_ART "/bin/program/snap@2x.png", file));
    ImageStore images(programPath(folder.path().toStdString()));
    images.readAhead({"/bin/program/snap.png"}, 2);
    const ImageStore copy = images;
    QTest::qSleep(wait);
    QVERIFY(QFile::remove(file));
    kept = copy.pixmap("/bin/program/snap.png", 2).width() == 48;
  }
  QVERIFY(kept);
}

// A rounded edge must never fall outside the clip, whatever the scale.
void ControlsTest::bordersAreWholeAtEveryPlace() {
  std::vector<TextButton*> buttons;
  for (int i = 0; i < 12; ++i) {
    buttons.push_back(new TextButton(context_, {}, {}, window_.get()));
    buttons.back()->setGeometry(3 + 21 * i, 7 + i, 10 + i % 5, 11 + i % 3);
    buttons.back()->show();
  }
  QImage shown = window_->grab().toImage();
  const double scale = shown.devicePixelRatio();
  shown.setDevicePixelRatio(1);
  const QColor background = shown.pixelColor(0, 0);
  for (const TextButton* button : buttons) {
    const QRectF box(button->geometry());
    const int left = qRound(box.left() * scale);
    const int right = qRound(box.right() * scale) - 1;
    const int bottom = qRound(box.bottom() * scale) - 1;
    const int middle = qRound(box.center().y() * scale);
    const QColor border = shown.pixelColor(left, middle);
    QVERIFY(border != background);
    QCOMPARE(shown.pixelColor(right, middle), border);
    QCOMPARE(shown.pixelColor((left + right) / 2, bottom), border);
    QCOMPARE(shown.pixelColor(right + 1, middle), background);
  }
}

// Straight edges of full strength, an even face, the same all round, nothing outside.
void ControlsTest::boxesAreWholeInEverySize() {
  const double scale = window_->devicePixelRatioF();
  const int line = std::max(1, static_cast<int>(scale));
  const int round = static_cast<int>(std::ceil(Skin::kRadius * scale));
  const int least = 2 * round;
  for (const Corners corners : {Corners::None, Corners::All, Corners::Left, Corners::Right}) {
    for (const QSize size :
         {QSize(least, least), QSize(least + 1, least + 2), QSize(40, least + 3)}) {
      BoxOnly widget(context_.skin, size, corners);
      const QImage shown = widget.picture();
      const QRect box = widget.box();
      for (int at = 0; at < shown.width() * shown.height(); ++at) {
        const QPoint pixel(at % shown.width(), at / shown.width());
        const QColor seen = shown.pixelColor(pixel);
        const int across = std::min(pixel.x() - box.left(), box.right() - pixel.x());
        const int along = std::min(pixel.y() - box.top(), box.bottom() - pixel.y());
        if (std::min(across, along) < 0) {
          QCOMPARE(seen, QColor(BoxOnly::kGround));
          continue;
        }
        const QPoint mirrored(pixel.x(), box.top() + box.bottom() - pixel.y());
        QVERIFY(isNear(shown.pixelColor(mirrored), seen));
        const bool left = 2 * pixel.x() < box.left() + box.right();
        const bool rounded =
            corners == (left ? Corners::Left : Corners::Right) || corners == Corners::All;
        if (across == 0 && along == 0) {
          QCOMPARE(seen != QColor(BoxOnly::kBorder), rounded);
        } else if (!rounded || across >= round || along >= round) {
          const bool border = across < line || along < line;
          QCOMPARE(seen, QColor(border ? BoxOnly::kBorder : BoxOnly::kFace));
        }
      }
    }
  }
}

void ControlsTest::cornersHaveTheirOwnColours() {
  const int corner = 3 + static_cast<int>(std::ceil(Skin::kRadius * window_->devicePixelRatioF()));
  std::set<std::pair<QRgb, QRgb>> seen;
  for (const QRgb face : {0xFFFF0000U, 0x80FF0000U, 0xFFFF0001U}) {
    for (const QRgb border : {0xFF0000FFU, 0x400000FFU}) {
      BoxOnly widget(context_.skin, {30, 20}, Corners::All, face, border);
      const QImage shown = widget.picture();
      // The last of the corner on the border, and within it.
      seen.insert({shown.pixel(corner - 1, 3), shown.pixel(corner - 1, corner - 1)});
    }
  }
  QCOMPARE(seen.size(), std::size_t{6});
}

}  // namespace pv

QTEST_MAIN(pv::ControlsTest)
#include "controls_test.moc"
