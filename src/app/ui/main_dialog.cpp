#include "app/ui/main_dialog.h"

#include <algorithm>
#include <utility>

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QTimer>

#include "app/ui/first_drawings.h"
#include "app/ui/messages.h"
#include "app/ui/quiet_page.h"
#include "app/ui/window_place.h"
#include "ui/controls.h"
#include "ui/dialog_units.h"
#include "ui/page_strip.h"
#include "view3d/ui/tab_3d.h"

namespace pv {

namespace {

// In dialog units.
constexpr DialogRect kDialog{0, 0, 616, 420};
constexpr DialogRect kStrip{6, 6, 180, 18};
constexpr DialogRect kLeftFrame{6, 24, 180, 390};
constexpr DialogRect kLeftHost{12, 25, 168, 384};
constexpr DialogRect kRightFrame{192, 7, 420, 362};
constexpr DialogRect kRightHost{198, 24, 408, 341};
constexpr DialogRect kInformation{191, 369, 418, 32};
constexpr DialogRect kOk{504, 402, 50, 14};
constexpr DialogRect kCancel{559, 402, 50, 14};

constexpr QSize kLeastSize(320, 200);

QRect toRect(DialogRect r) {
  return {r.x, r.y, r.width, r.height};
}

QString toText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Every field as wide as its neighbours, so that the line stands still in a drag.
QString modifierText(ModifierKind kind, const ModifierTable& values) {
  constexpr QChar kFigureSpace(0x2007);
  constexpr int kWidth = 11;
  QString text = toText(traits(kind).name);
  const Vec3& triple = values[kind];
  for (const auto& [axis, value] : {std::pair("X", triple.x), {"Y", triple.y}, {"Z", triple.z}}) {
    const QString field = QString("%1 %2").arg(axis).arg(static_cast<double>(value), 0, 'f', 2);
    text += field.rightJustified(kWidth, kFigureSpace);
  }
  return text;
}

// The button that Enter or Escape would press; in the editing layout neither
// does anything.
void addHiddenButton(QWidget* desk, const char* id, const QString& text, DialogRect place) {
  auto* button = new QPushButton(text, desk);
  button->setObjectName(id);
  button->setGeometry(toRect(inPixels(place)));
  button->hide();
}

}  // namespace

MainDialog::MainDialog(const MainDialogSetup& setup, UserRegistry& registry)
    : setup_(setup),
      registry_(registry),
      coreNames_(readCoreNames(registry)),
      context_{skinFrom(readColourScheme(registry)), ImageStore(setup.applicationFolder)} {
  context_.images.readAhead(firstDrawings(), devicePixelRatioF());
  setAcceptDrops(true);
  setMinimumSize(kLeastSize);
  setFont(context_.skin.font);
  QPalette colours = palette();
  colours.setColor(QPalette::Window, context_.skin.dialog);
  setPalette(colours);

  scroll_ = new QScrollArea(this);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setWidgetResizable(true);
  desk_ = new QWidget;
  desk_->setMinimumSize(toRect(inPixels(kDialog)).size());
  scroll_->setWidget(desk_);
  buildStrip();
  buildPanels();
  addHiddenButton(desk_, "1", "OK", kOk);
  addHiddenButton(desk_, "2", "Cancel", kCancel);
  desk_->installEventFilter(this);
  connectEmitter();
  connectModifiers();
  addKeys();

  applyShape(ShapeRecord{});
  showLayout();
  placeWindow(*this, readSetting(registry_, kWindowPlaceValue, ""), desk_->minimumSize());
}

// What the parts still say while they are taken down, as the path editor does, would
// reach a dialog that is gone already.
MainDialog::~MainDialog() {
  writeSettings();
  for (const QObject* part : findChildren<QObject*>()) {
    disconnect(part, nullptr, this, nullptr);
  }
}

void MainDialog::writeSettings() {
  writeSetting(registry_, kWindowPlaceValue, windowPlace(*this));
  writeCoreNames(registry_, coreNames_);
}

void MainDialog::showModifier() {
  const ShapeView& view = tab3d_->view().view();
  const ModifierKind kind = view.SelectedModifier();
  const bool shown = mode() == Mode::Editing && isModifier(kind);
  rightFrame_->setDetail(shown ? modifierText(kind, view.modifiers()) : QString());
}

void MainDialog::addKeys() {
  // The same as Load and Save of the page that shows.
  const auto file = [this](QKeySequence::StandardKey keys, int code) {
    auto* shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, this, [this, code] {
      if (mode() == Mode::Editing) {
        showPage(LeftPage::Emitter);
      }
      if (page() == LeftPage::Emitter || page() == LeftPage::Path) {
        leftCommand({code});
      }
    });
  };
  file(QKeySequence::Open, 1);
  file(QKeySequence::Save, 2);
}

// The left panel keeps its width and all rows their edges; the right panel takes
// the room that a larger window gives.
void MainDialog::placeControls() {
  const QSize extra = desk_->size() - toRect(inPixels(kDialog)).size();
  const int wider = std::max(0, extra.width());
  const int taller = std::max(0, extra.height());
  strip_->setGeometry(toRect(inPixels(kStrip)));
  leftFrame_->setGeometry(toRect(inPixels(kLeftFrame)).adjusted(0, 0, 0, taller));
  leftHost_->setGeometry(toRect(inPixels(kLeftHost)).adjusted(0, 0, 0, taller));
  rightFrame_->setGeometry(toRect(inPixels(kRightFrame)).adjusted(0, 0, wider, taller));
  rightHost_->setGeometry(toRect(inPixels(kRightHost)).adjusted(0, 0, wider, taller));
  information_->setGeometry(toRect(inPixels(kInformation)).adjusted(0, taller, wider, taller));
}

bool MainDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched == desk_ && event->type() == QEvent::Resize) {
    placeControls();
  }
  if (watched == desk_ && event->type() == QEvent::Paint && !std::exchange(painted_, true)) {
    QTimer::singleShot(0, this, &MainDialog::followFirstPicture);
  }
  return QWidget::eventFilter(watched, event);
}

void MainDialog::resizeEvent(QResizeEvent* event) {
  scroll_->setGeometry(rect());
  QWidget::resizeEvent(event);
}

// --- window events -------------------------------------------------------------

// F1 names the help page; no browser is started. In a mode Escape is its way out
// and Enter its default button; in the editing layout neither does anything.
void MainDialog::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_F1:
      tell(this, tr("Help"), toText(setup_.helpPath));
      return;
    case Qt::Key_Escape:
      if (mode() != Mode::Editing) {
        pressCancel();
        return;
      }
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (pressDefault()) {
        return;
      }
      break;
    default:
      break;
  }
  QWidget::keyPressEvent(event);
}

// A shape while shapes are edited, a path while a path is.
void MainDialog::dragEnterEvent(QDragEnterEvent* event) {
  if (!draggedFile(*event->mimeData(), droppedSuffix()).empty()) {
    event->acceptProposedAction();
  }
}

void MainDialog::dropEvent(QDropEvent* event) {
  const std::filesystem::path file = draggedFile(*event->mimeData(), droppedSuffix());
  if (mode() == Mode::EditPath) {
    loadPathFile(file, PathTarget::Editor);
  } else if (!file.empty()) {
    openFile(file);
  }
  event->acceptProposedAction();
}

QString MainDialog::droppedSuffix() const {
  return mode() == Mode::Editing ? ".j3d" : mode() == Mode::EditPath ? ".j2d" : "";
}

}  // namespace pv
