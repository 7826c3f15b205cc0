#include <filesystem>
#include <string>

#include <QFileInfo>

#include "app/ui/file_questions.h"
#include "app/ui/main_dialog.h"
#include "app/ui/quiet_page.h"
#include "shape/emitter_page.h"
#include "shape/shape_file.h"
#include "shape/ui/tab_emitter.h"
#include "view3d/ui/tab_3d.h"

namespace pv {
namespace {

std::filesystem::path toPath(const QString& name) {
  return QFileInfo(name).filesystemAbsoluteFilePath();
}

}  // namespace

void MainDialog::openFile(const QString& file) {
  const auto shape = LoadShapeFile(toPath(file));
  if (!shape) {
    showName(tr("Not loaded: %1").arg(QFileInfo(file).fileName()));
    return;
  }
  emitter_->setState(emitterPageOf(shape.value(), emitter_->state().emitter.selectedAxis));
  applyShape(shape.value());
  showModifier();
  setFile(file);
}

void MainDialog::loadShape() {
  const QString file = askShapeToLoad(this, folder_);
  if (!file.isEmpty()) {
    openFile(file);
  }
}

void MainDialog::saveShape() {
  // A number that is still being typed belongs to the shape.
  if (QWidget* focus = focusWidget()) {
    focus->clearFocus();
  }
  const QString name = askShapeToSave(this, folder_, shapeName_);
  if (name.isEmpty()) {
    return;
  }
  collectEmitterPage();  // the mapping is read only now
  const Status saved = SaveShapeFile(toPath(name), tab3d_->shape());
  if (saved) {
    setFile(name + ".j3d");
  } else {
    tell(this, tr("Save 3d Shape"), QString::fromStdString(saved.error().message()));
  }
}

void MainDialog::setFile(const QString& file) {
  folder_ = QFileInfo(file).absolutePath();
  shapeName_ = QFileInfo(file).completeBaseName();
  showName();
}

void MainDialog::showName(const QString& fault) {
  rightFrame_->setName(fault.isEmpty() ? shapeName_ : fault);
}

}  // namespace pv
