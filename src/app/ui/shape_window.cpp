#include "app/ui/shape_window.h"

#include <string_view>

#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QUrl>
#include <QVBoxLayout>

#include "app/ui/button_panel.h"
#include "app/ui/window_buttons.h"
#include "shape/shape_file.h"

namespace pv {
namespace {

constexpr QSize kStartSize(924, 682);
constexpr QLatin1StringView kSuffix(".j3d");
constexpr QLatin1StringView kFilter("Shapes (*.j3d);;All files (*)");

QString shapesFolder(const QString& root) {
  const QString shapes = QDir(root).filePath("vortex/shapes");
  return !root.isEmpty() && QFileInfo(shapes).isDir() ? shapes : root;
}

QString withoutSuffix(const QString& name) {
  return name.endsWith(kSuffix, Qt::CaseInsensitive) ? name.chopped(kSuffix.size()) : name;
}

// The dragged shape file, or nothing when it is anything else.
QString shapeFileOf(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  const QString file = urls.size() == 1 ? urls.first().toLocalFile() : QString();
  return file.endsWith(kSuffix, Qt::CaseInsensitive) ? file : QString();
}

// Every field as wide as its neighbours, so that the line stands still in a drag.
QString valueText(std::string_view name, const Vec3& values) {
  const QChar figureSpace(0x2007);
  const auto field = [&](float value) {
    return QStringLiteral("%1").arg(static_cast<double>(value), 7, 'f', 2, figureSpace);
  };
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())) + "   X" +
         field(values.x) + "   Y" + field(values.y) + "   Z" + field(values.z);
}

}  // namespace

ShapeWindow::ShapeWindow(const QString& root, QWidget* parent)
    : QWidget(parent), folder_(shapesFolder(root)) {
  setAcceptDrops(true);
  auto* middle = new QHBoxLayout;
  middle->setSpacing(0);
  view_ = new ShapeViewWidget;
  view_->view().setShape({});
  view_->view().setCameraTool(CameraTool::Rotate);
  middle->addWidget(makeViewPanel());
  middle->addWidget(view_, 1);
  middle->addWidget(makeModifierPanel());
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSpacing(0);
  whole->addLayout(middle, 1);
  whole->addLayout(makeStatusLine());

  connect(view_, &ShapeViewWidget::modifierChanged, this, [this] {
    fault_.clear();
    refreshStatus();
  });
  auto* deselect = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(deselect, &QShortcut::activated, this, [this] {
    view_->apply(view_->view().SelectModifier(ModifierKind::None));
    refresh();
  });
  view_->setFocus();
  resize(kStartSize.boundedTo(screen()->availableSize()));
  refresh();
}

ButtonPanel* ShapeWindow::makeViewPanel() {
  auto* panel = new ButtonPanel;
  panel->addTitle(tr("File"));
  connect(panel->addButton(kOpenButton), &QPushButton::clicked, this, &ShapeWindow::askOpen);
  connect(panel->addButton(kSaveButton), &QPushButton::clicked, this, &ShapeWindow::askSave);

  panel->addTitle(tr("View"));
  for (std::size_t i = 0; i < viewButtons_.size(); ++i) {
    viewButtons_[i] = panel->addToggle(kViewButtons[i]);
    connect(viewButtons_[i], &QPushButton::clicked, this, [this, i] {
      if (const auto mode = static_cast<ViewMode>(i); mode != view_->view().viewMode()) {
        view_->apply(view_->view().setViewMode(mode));
      }
      refresh();
    });
  }
  panel->addTitle(tr("Show"));
  gridButton_ = panel->addToggle(kGridButton);
  connect(gridButton_, &QPushButton::clicked, this,
          [this](bool on) { view_->apply(view_->view().setShowGrid(on)); });
  linesButton_ = panel->addToggle(kLinesButton);
  connect(linesButton_, &QPushButton::clicked, this,
          [this](bool on) { view_->apply(view_->view().setShowLines(on)); });
  addCameraButtons(*panel);
  panel->addStretch();
  return panel;
}

void ShapeWindow::addCameraButtons(ButtonPanel& panel) {
  panel.addTitle(tr("Camera"));
  for (std::size_t i = 0; i < cameraButtons_.size(); ++i) {
    cameraButtons_[i] = panel.addToggle(kCameraButtons[i]);
    connect(cameraButtons_[i], &QPushButton::clicked, this, [this, i] {
      view_->view().setCameraTool(static_cast<CameraTool>(i));
      refresh();
    });
  }
  connect(panel.addButton(kCameraResetButton), &QPushButton::clicked, this,
          [this] { view_->apply(view_->view().setCamera({})); });
}

ButtonPanel* ShapeWindow::makeModifierPanel() {
  auto* panel = new ButtonPanel;
  for (std::size_t i = 0; i < kModifierButtons.size(); ++i) {
    if (i == 0 || i == kFirstDeformation || i == kFirstShapeModifier) {
      panel->addTitle(i == 0 ? tr("Vertex") : i == kFirstDeformation ? tr("Deform") : tr("Shape"));
    }
    modifierButtons_[i] = panel->addToggle(kModifierButtons[i].text);
    connect(modifierButtons_[i], &QPushButton::clicked, this, [this, i] {
      view_->apply(view_->view().toggleModifier(kModifierButtons[i].kind));
      refresh();
    });
  }
  panel->addTitle(tr("Reset"));
  resetButton_ = panel->addButton(kResetButton);
  connect(resetButton_, &QPushButton::clicked, this, [this] {
    view_->apply(view_->view().ResetSelectedModifier());
    refresh();
  });
  connect(panel->addButton(kResetAllButton), &QPushButton::clicked, this, [this] {
    view_->apply(view_->view().ResetAllModifiers());
    refresh();
  });
  panel->addStretch();
  return panel;
}

QLayout* ShapeWindow::makeStatusLine() {
  shapeLabel_ = new QLabel;
  shapeLabel_->setObjectName("shape status");
  shapeLabel_->setTextFormat(Qt::PlainText);
  shapeLabel_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  valuesLabel_ = new QLabel;
  valuesLabel_->setObjectName("modifier status");
  auto* line = new QHBoxLayout;
  line->setContentsMargins(8, 4, 8, 4);
  line->setSpacing(8);
  line->addWidget(shapeLabel_, 1);
  line->addWidget(valuesLabel_);
  return line;
}

bool ShapeWindow::openFile(const QString& file) {
  const Result<ShapeRecord> shape = LoadShapeFile(QFileInfo(file).filesystemFilePath());
  if (!shape) {
    fault_ = tr("Not opened: ") + QString::fromStdString(shape.error().message());
    refreshStatus();
    return false;
  }
  view_->view().setShape(shape.value());
  view_->apply({.repaint = true});
  setFile(file);
  return true;
}

bool ShapeWindow::saveFile(const QString& name) {
  const QString base = withoutSuffix(name);
  const Status saved = SaveShapeFile(QFileInfo(base).filesystemFilePath(), view_->view().shape());
  if (!saved) {
    QMessageBox::warning(
        this, tr("Particle Vortex"),
        tr("The shape was not saved.") + "\n\n" + QString::fromStdString(saved.error().message()));
    return false;
  }
  setFile(base + kSuffix);
  return true;
}

void ShapeWindow::askOpen() {
  const QString file = QFileDialog::getOpenFileName(this, tr("Open Shape"), folder_, kFilter);
  if (!file.isEmpty()) {
    openFile(file);
  }
}

void ShapeWindow::askSave() {
  QFileDialog dialog(this, tr("Save Shape As"), folder_, kFilter);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // The dialog would ask about the name as typed, not about the file that is written.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.selectFile(QFileInfo(file_).fileName());
  if (dialog.exec() != QDialog::Accepted) {
    return;
  }
  const QString base = withoutSuffix(dialog.selectedFiles().value(0));
  const QString file = QFileInfo(base + kSuffix).fileName();
  if (QFileInfo::exists(base + kSuffix) &&
      QMessageBox::question(this, tr("Particle Vortex"), tr("\"%1\" exists. Replace it?").arg(file),
                            QMessageBox::Yes | QMessageBox::No,
                            QMessageBox::No) != QMessageBox::Yes) {
    return;
  }
  saveFile(base);
}

void ShapeWindow::setFile(const QString& file) {
  file_ = file;
  folder_ = QFileInfo(file).absolutePath();
  fault_.clear();
  refresh();
}

void ShapeWindow::refresh() {
  const ShapeView& view = view_->view();
  for (std::size_t i = 0; i < viewButtons_.size(); ++i) {
    viewButtons_[i]->setChecked(static_cast<ViewMode>(i) == view.viewMode());
  }
  for (std::size_t i = 0; i < cameraButtons_.size(); ++i) {
    cameraButtons_[i]->setChecked(static_cast<CameraTool>(i) == view.cameraTool());
  }
  gridButton_->setChecked(view.showGrid());
  linesButton_->setChecked(view.showLines());
  for (std::size_t i = 0; i < modifierButtons_.size(); ++i) {
    modifierButtons_[i]->setChecked(kModifierButtons[i].kind == view.SelectedModifier());
  }
  resetButton_->setEnabled(isModifier(view.SelectedModifier()));
  setWindowTitle("Particle Vortex" +
                 (file_.isEmpty() ? QString() : " - " + QFileInfo(file_).fileName()));
  refreshStatus();
}

void ShapeWindow::refreshStatus() {
  const ShapeView& view = view_->view();
  const QString name = file_.isEmpty() ? tr("New shape") : QFileInfo(file_).fileName();
  EmitterSettings emitter = view.shape().emitter;
  emitter.pathPointCount = view.mesh().ProfileCount();
  const auto count = static_cast<qlonglong>(totalEmitterCount(emitter));
  const QString text =
      fault_.isEmpty() ? name + tr("   Total Emitter Count = %1").arg(count) : fault_;
  shapeLabel_->setText(text);
  shapeLabel_->setToolTip(text.toHtmlEscaped());  // a long path may not fit the line
  shapeLabel_->setForegroundRole(fault_.isEmpty() ? QPalette::WindowText : QPalette::Highlight);
  const ModifierKind kind = view.SelectedModifier();
  valuesLabel_->setText(isModifier(kind) ? valueText(traits(kind).name, view.modifiers()[kind])
                                         : QString());
}

void ShapeWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!shapeFileOf(*event->mimeData()).isEmpty()) {
    event->acceptProposedAction();
  }
}

void ShapeWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  openFile(shapeFileOf(*event->mimeData()));
}

}  // namespace pv
