#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include <QFileInfo>

#include "app/document_picture.h"
#include "app/ui/library_desk.h"
#include "app/ui/main_dialog.h"
#include "app/ui/messages.h"
#include "app/ui/quiet_page.h"
#include "path/path_file.h"
#include "path/ui/edit_path_tab.h"
#include "path/ui/path_view_widget.h"
#include "shape/emitter_page.h"
#include "shape/shape_file.h"
#include "shape/ui/tab_emitter.h"
#include "util/ascii.h"
#include "util/utf8_path.h"
#include "view3d/ui/tab_3d.h"

namespace pv {
namespace {

constexpr std::string_view kPathSuffix = ".j2d";

QString stemOf(const std::filesystem::path& file) {
  return QFileInfo(file).completeBaseName();
}

}  // namespace

// --- the current shape ---------------------------------------------------------

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

void MainDialog::takePath(const PathRecord& path) {
  ShapeRecord shape = tab3d_->shape();
  shape.path = path;
  applyShape(shape);
  showName();
}

std::string& MainDialog::coreName() {
  return modes_.modeKind() == ModeKind::Path ? coreNames_.path : coreNames_.shape;
}

// --- loading ---------------------------------------------------------------------

void MainDialog::tellNotLoaded(const std::filesystem::path& file) {
  showName(tr("Not loaded: %1").arg(QFileInfo(file).fileName()));
}

void MainDialog::openFile(const std::filesystem::path& file) {
  if (endsIgnoringCase(utf8FromPath(file), kPathSuffix)) {
    openPathFile(file);
    return;
  }
  const auto shape = LoadShapeFile(file);
  if (!shape) {
    tellNotLoaded(file);
    return;
  }
  emitter_->setState(emitterPageOf(shape.value(), emitter_->state().emitter.selectedAxis));
  applyShape(shape.value());
  shapeName_ = stemOf(file);
  showName();
  showModifier();
}

// The editor opens only for what can be loaded into it.
void MainDialog::openPathFile(const std::filesystem::path& file) {
  if (mode() == Mode::Editing && LoadPathFile(file)) {
    showPage(LeftPage::Emitter);
    leftCommand({.code = 0, .editPath = true});
  }
  if (mode() == Mode::EditPath) {
    loadPathFile(file, PathTarget::Editor);
  } else {
    tellNotLoaded(file);
  }
}

void MainDialog::loadPathFile(const std::filesystem::path& file, PathTarget target) {
  if (target == PathTarget::Editor) {
    if (pathEditor_->view().view().load(file)) {
      pathEditor_->view().refresh();
      pathEditor_->showChoices();
      pathName_ = stemOf(file);
      showName();
      return;
    }
  } else if (const auto path = LoadPathFile(file)) {
    takePath(path.value());
    return;
  }
  tellNotLoaded(file);
}

// --- saving ----------------------------------------------------------------------

void MainDialog::openSavePanels() {
  BmpPicture picture;
  if (modes_.modeKind() == ModeKind::Path) {
    picture = pathThumbnail(pathEditor_->path(), pathEditor_->view().view().viewport());
  } else {
    const ShapeView& view = tab3d_->view().view();
    ShapeLook look = lookOf(view);
    look.grid = false;  // too fine for so small a picture
    look.lines = look.lines && libraryLook(tab3d_->shape()).lines;
    picture = shapeThumbnail(tab3d_->shape(), look, view.width(), view.height());
  }
  libraries_->openSave(traits(mode()), coreName(), picture);
}

void MainDialog::saveShapeFile() {
  collectEmitterPage();  // the mapping is read only now
  const SaveReport report = libraries_->save(
      [this](const std::filesystem::path& name) { return SaveShapeFile(name, tab3d_->shape()); });
  if (report.saved()) {
    shapeName_ = QString::fromStdString(report.name);
  }
  tellSave(report);
}

void MainDialog::savePathFile() {
  const SaveReport report = libraries_->save([this](const std::filesystem::path& name) {
    return SavePathFile(name, pathEditor_->path());
  });
  if (report.saved()) {
    pathName_ = QString::fromStdString(report.name);
  }
  tellSave(report);
}

// Only the picture's failures are told with a box; the title bar tells the rest.
void MainDialog::tellSave(const SaveReport& report) {
  if (report.saved()) {
    showName();
  } else if (report.name.empty()) {
    showName(coreName().empty() ? tr("Not saved: there is no file name")
                                : tr("Not saved: the library cannot be found"));
  } else {
    showName(tr("Not saved: %1").arg(QString::fromStdString(report.dataFailure->message())));
  }
  if (report.thumbnailFailure) {
    tell(this, windowTitle(), QString::fromStdString(bmpFailureText(*report.thumbnailFailure)));
  }
}

}  // namespace pv
