#include "app/ui/main_dialog.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>

#include "app/application_folder.h"
#include "app/ui/file_questions.h"
#include "app/ui/quiet_page.h"
#include "app/ui/window_place.h"
#include "shape/emitter_page.h"
#include "shape/ui/tab_emitter.h"
#include "ui/controls.h"
#include "ui/dialog_units.h"
#include "ui/page_strip.h"
#include "util/program_path.h"
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

// Of the emitter page.
constexpr int kLoadRequest = 1;
constexpr int kSaveRequest = 2;

QRect toRect(DialogRect r) {
  return {r.x, r.y, r.width, r.height};
}

QString inPath(const std::filesystem::path& path) {
  return QString::fromStdU16String(path.u16string());
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
      context_{skinFrom(readColourScheme(registry)), ImageStore(setup.applicationFolder)},
      folder_(inPath(hostPath(setup.applicationFolder + "\\" + std::string(kShapeLibrary)))) {
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
  buildLeftPanel();
  buildRightPanel();
  addHiddenButton(desk_, "1", "OK", kOk);
  addHiddenButton(desk_, "2", "Cancel", kCancel);
  desk_->installEventFilter(this);
  connectModifiers();
  addKeys();

  applyShape(ShapeRecord{});
  showPage(LeftPage::Emitter);
  placeWindow(*this, readSetting(registry_, kWindowPlaceValue, ""), desk_->minimumSize());
}

MainDialog::~MainDialog() {
  writeSetting(registry_, kWindowPlaceValue, windowPlace(*this));
  writeCoreNames(registry_, coreNames_);
}

void MainDialog::buildLeftPanel() {
  std::vector<PageStrip::Tab> tabs;
  tabs.reserve(kStripTabs.size());
  for (const StripTab& tab : kStripTabs) {
    tabs.push_back({toText(tab.text), std::string(tab.image)});
  }
  strip_ = new PageStrip(context_, std::move(tabs), desk_);
  strip_->setObjectName("8019");
  connect(strip_, &PageStrip::nextRequested, this, [this] { showPage(nextPage(page_)); });
  connect(strip_, &PageStrip::tabRequested, this, [this](int tab) { showPage(pageOfTab(tab)); });

  leftFrame_ = new PanelFrame(context_, desk_);
  leftFrame_->setObjectName("8020");
  leftHost_ = new QStackedWidget(desk_);
  leftHost_->setObjectName("8022");
  emitter_ = new CTabEmitter(context_);
  connect(emitter_, &CTabEmitter::command, this, &MainDialog::emitterCommand);
  // Queued, so that a file dialog does not hold up the page's notification.
  connect(
      this, &MainDialog::fileRequested, this,
      [this](int request) { request == kLoadRequest ? loadShape() : saveShape(); },
      Qt::QueuedConnection);
  // In the order of LeftPage.
  leftHost_->addWidget(new QuietPage(context_, tr("The libraries are not part of this version.")));
  leftHost_->addWidget(emitter_);
  leftHost_->addWidget(
      new QuietPage(context_, tr("Particle settings are not part of this version.")));
  leftHost_->addWidget(new QuietPage(context_, tr("There are no forces to set.")));
}

void MainDialog::buildRightPanel() {
  rightFrame_ = new PanelFrame(context_, desk_);
  rightFrame_->setObjectName("8029");
  rightFrame_->setTitle(tr("Emitter"));
  rightHost_ = new QStackedWidget(desk_);
  rightHost_->setObjectName("8028");
  tab3d_ = new CTab3d(context_);
  rightHost_->addWidget(tab3d_);
  information_ = new TextLabel(context_, QString(), desk_);
  information_->setObjectName("8058");
  information_->setContentsMargins(2, 4, 0, 0);
  information_->setWordWrap(true);
  information_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void MainDialog::connectModifiers() {
  connect(tab3d_, &CTab3d::modifierChanged, this, [this] {
    showName();
    showModifier();
  });
  // Any of the page's buttons may have chosen another modifier.
  for (const auto* button : tab3d_->findChildren<QAbstractButton*>()) {
    connect(button, &QAbstractButton::clicked, this, &MainDialog::showModifier);
  }
}

void MainDialog::addKeys() {
  auto* load = new QShortcut(QKeySequence::Open, this);
  connect(load, &QShortcut::activated, this, &MainDialog::loadShape);
  auto* save = new QShortcut(QKeySequence::Save, this);
  connect(save, &QShortcut::activated, this, &MainDialog::saveShape);
  // A file dropped on a number field is meant for the window.
  for (auto* field : desk_->findChildren<QLineEdit*>()) {
    field->setAcceptDrops(false);
  }
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
  return QWidget::eventFilter(watched, event);
}

void MainDialog::resizeEvent(QResizeEvent* event) {
  scroll_->setGeometry(rect());
  QWidget::resizeEvent(event);
}

void MainDialog::showPage(LeftPage page) {
  page_ = page;
  leftHost_->setCurrentIndex(static_cast<int>(page));
  strip_->setCurrent(tabOfPage(page));
  information_->setText(toText(informationLine(page)));
  setWindowTitle(toText(pv::windowTitle(page)));
}

// --- the current shape ---------------------------------------------------------

void MainDialog::emitterCommand() {
  const int request = emitter_->pendingRequest();
  if (request == kLoadRequest || request == kSaveRequest) {
    emit fileRequested(request);
    return;
  }
  collectEmitterPage();
  if (emitter_->editPathRequest() == 1) {
    emitter_->releaseEditPath();
  }
}

void MainDialog::collectEmitterPage() {
  ShapeRecord shape = tab3d_->shape();
  storeEmitterPage(emitter_->state(), shape);
  applyShape(shape);
  showName();
}

void MainDialog::applyShape(const ShapeRecord& shape) {
  tab3d_->setShape(shape);
  emitter_->setPathPointCount(tab3d_->view().view().mesh().ProfileCount());
}

void MainDialog::showModifier() {
  const ShapeView& view = tab3d_->view().view();
  const ModifierKind kind = view.SelectedModifier();
  rightFrame_->setDetail(isModifier(kind) ? modifierText(kind, view.modifiers()) : QString());
}

// --- window events -------------------------------------------------------------

// F1 names the help page; no browser is started. Other keys that no control
// took, Enter and Escape among them, do nothing here.
void MainDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    tell(this, tr("Help"), toText(setup_.helpPath));
    return;
  }
  QWidget::keyPressEvent(event);
}

void MainDialog::dragEnterEvent(QDragEnterEvent* event) {
  if (!draggedShape(*event->mimeData()).isEmpty()) {
    event->acceptProposedAction();
  }
}

void MainDialog::dropEvent(QDropEvent* event) {
  openFile(draggedShape(*event->mimeData()));
  event->acceptProposedAction();
}

}  // namespace pv
