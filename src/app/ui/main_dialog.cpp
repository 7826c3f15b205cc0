#include "app/ui/main_dialog.h"

#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>

#include "app/application_folder.h"
#include "app/ui/quiet_page.h"
#include "app/ui/window_place.h"
#include "shape/emitter_page.h"
#include "shape/shape_file.h"
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

QRect toRect(DialogRect r) {
  return {r.x, r.y, r.width, r.height};
}

std::filesystem::path toPath(const QString& name) {
  return QFileInfo(name).filesystemAbsoluteFilePath();
}

QString inPath(const std::filesystem::path& path) {
  return QString::fromStdU16String(path.u16string());
}

QString toText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// The button that Enter and Escape would press; in the editing layout neither
// does anything.
void addHiddenButton(QWidget* desk, const QString& text, DialogRect place) {
  auto* button = new QPushButton(text, desk);
  button->setGeometry(toRect(inPixels(place)));
  button->hide();
}

}  // namespace

MainDialog::MainDialog(const MainDialogSetup& setup, UserRegistry& registry)
    : setup_(setup),
      registry_(registry),
      coreNames_(readCoreNames(registry)),
      context_{skinFrom(readColourScheme(registry)), ImageStore(setup.applicationFolder)} {
  setAcceptDrops(true);
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
  addHiddenButton(desk_, "OK", kOk);
  addHiddenButton(desk_, "Cancel", kCancel);
  desk_->installEventFilter(this);

  applyShape(ShapeRecord{});
  showPage(LeftPage::Emitter);
  restorePlace();
}

MainDialog::~MainDialog() {
  keepPlace();
  writeCoreNames(registry_, coreNames_);
}

void MainDialog::buildLeftPanel() {
  std::vector<PageStrip::Tab> tabs;
  for (const StripTab& tab : kStripTabs) {
    tabs.push_back({toText(tab.text), std::string(tab.image)});
  }
  strip_ = new PageStrip(context_, std::move(tabs), desk_);
  connect(strip_, &PageStrip::nextRequested, this, [this] { showPage(nextPage(page_)); });
  connect(strip_, &PageStrip::tabRequested, this, [this](int tab) { showPage(pageOfTab(tab)); });

  leftFrame_ = new PanelFrame(context_, desk_);
  leftHost_ = new QStackedWidget(desk_);
  emitter_ = new CTabEmitter(context_);
  connect(emitter_, &CTabEmitter::command, this, &MainDialog::emitterCommand);
  // In the order of LeftPage.
  leftHost_->addWidget(new QuietPage(context_, tr("The libraries are not part of this version.")));
  leftHost_->addWidget(emitter_);
  leftHost_->addWidget(
      new QuietPage(context_, tr("Particle settings are not part of this version.")));
  leftHost_->addWidget(new QuietPage(context_, tr("There are no forces to set.")));
}

void MainDialog::buildRightPanel() {
  rightFrame_ = new PanelFrame(context_, desk_);
  rightHost_ = new QStackedWidget(desk_);
  tab3d_ = new CTab3d(context_);
  rightHost_->addWidget(tab3d_);
  information_ = new TextLabel(context_, QString(), desk_);
  information_->setWordWrap(true);
  information_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
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
  constexpr int kLoad = 1;
  constexpr int kSave = 2;
  switch (emitter_->pendingRequest()) {
    case kLoad:
      // After the notification, so that the page is not held up by the dialog.
      QMetaObject::invokeMethod(this, &MainDialog::loadShape, Qt::QueuedConnection);
      return;
    case kSave:
      QMetaObject::invokeMethod(this, &MainDialog::saveShape, Qt::QueuedConnection);
      return;
    default:
      collectEmitterPage();
  }
  if (emitter_->editPathRequest() == 1) {
    emitter_->releaseEditPath();
  }
}

void MainDialog::collectEmitterPage() {
  ShapeRecord shape = tab3d_->shape();
  storeEmitterPage(emitter_->state(), shape);
  applyShape(shape);
}

void MainDialog::applyShape(const ShapeRecord& shape) {
  tab3d_->setShape(shape);
  emitter_->setPathPointCount(tab3d_->view().view().mesh().ProfileCount());
}

void MainDialog::openFile(const QString& file) {
  const auto shape = LoadShapeFile(toPath(file));
  if (!shape) {
    return;
  }
  applyShape(shape.value());
  emitter_->setState(emitterPageOf(tab3d_->shape(), emitter_->state().emitter.selectedAxis));
  showFileName(QFileInfo(file).completeBaseName());
}

void MainDialog::loadShape() {
  const auto folder = hostPath(setup_.applicationFolder + "\\" + std::string(kShapeLibrary));
  const QString file =
      QFileDialog::getOpenFileName(this, tr("Load 3d Shape"), inPath(folder), tr("Shapes (*.j3d)"));
  if (!file.isEmpty()) {
    openFile(file);
  }
}

void MainDialog::saveShape() {
  const auto folder = hostPath(setup_.applicationFolder + "\\" + std::string(kShapeLibrary));
  QString file =
      QFileDialog::getSaveFileName(this, tr("Save 3d Shape"), inPath(folder), tr("Shapes (*.j3d)"));
  if (file.isEmpty()) {
    return;
  }
  if (file.endsWith(".j3d", Qt::CaseInsensitive)) {
    file.chop(4);
  }
  collectEmitterPage();  // the profile's point count comes from the mesh
  const Status saved = SaveShapeFile(toPath(file), tab3d_->shape());
  if (!saved) {
    QMessageBox::warning(this, tr("Save 3d Shape"), toText(saved.error().message()));
    return;
  }
  showFileName(QFileInfo(file).fileName());
}

void MainDialog::showFileName(const QString& name) {
  rightFrame_->setTitle(tr("Emitter"), name);
}

// --- window events -------------------------------------------------------------

// F1 names the help page; no browser is started. Other keys that no control
// took, Enter and Escape among them, do nothing here.
void MainDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    QMessageBox::information(this, tr("Help"), toText(setup_.helpPath));
    return;
  }
  QWidget::keyPressEvent(event);
}

void MainDialog::dragEnterEvent(QDragEnterEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (urls.size() == 1 && urls.front().isLocalFile()) {
    event->acceptProposedAction();
  }
}

void MainDialog::dropEvent(QDropEvent* event) {
  openFile(event->mimeData()->urls().front().toLocalFile());
  event->acceptProposedAction();
}

void MainDialog::restorePlace() {
  showFileName(QString());
  const QSize usual = toRect(inPixels(kDialog)).size();
  placeWindow(*this, readSetting(registry_, kWindowPlaceValue, ""), usual);
}

void MainDialog::keepPlace() {
  writeSetting(registry_, kWindowPlaceValue, windowPlace(*this));
}

}  // namespace pv
