#include <array>
#include <string>

#include <QAbstractButton>
#include <QStackedWidget>

#include "app/document_picture.h"
#include "app/page_strip_model.h"
#include "app/ui/library_desk.h"
#include "app/ui/main_dialog.h"
#include "app/ui/quiet_page.h"
#include "library/ui/library_tab.h"
#include "particle/ui/particle_tab.h"
#include "path/path_file.h"
#include "path/path_readout.h"
#include "path/ui/edit_path_tab.h"
#include "path/ui/path_view_widget.h"
#include "shape/shape_file.h"
#include "shape/ui/tab_emitter.h"
#include "ui/controls.h"
#include "ui/frame_image.h"
#include "ui/page_strip.h"
#include "util/program_path.h"
#include "view3d/ui/tab_3d.h"

namespace pv {
namespace {

QString toText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// What the right panel is about, and the control that the keyboard is given to.
struct ModeLook {
  const char* title;
  const char* rightControl;
  const char* leftControl;
};
constexpr std::array<ModeLook, kModeCount> kLooks{{
    {"Emitter", "8030", nullptr},
    {"3d Shapes", "8104", nullptr},
    {"2d Paths", "8104", nullptr},
    {"3d Shapes", nullptr, "8096"},
    {"2d Paths", nullptr, "8096"},
    {"3d Shapes", "8104", nullptr},
    {"2d Paths", "8104", nullptr},
    {"Path", "8057", nullptr},
}};

const ModeLook& lookOf(Mode mode) {
  return kLooks.at(static_cast<std::size_t>(mode));
}

QImage toImage(const BmpPicture& picture, qreal pixelRatio) {
  if (picture.words.empty()) {
    return {};
  }
  QImage image;
  copyFrame(picture.words, picture.width, picture.height, image);
  image.setDevicePixelRatio(pixelRatio);
  return image;
}

}  // namespace

// --- commands ----------------------------------------------------------------------

void MainDialog::leftCommand(PageResult result) {
  buildOtherPages();
  if (page() == LeftPage::Emitter && (result.code != 0 || result.editPath)) {
    // A number that is still being typed belongs to the shape.
    if (QWidget* focus = focusWidget()) {
      focus->clearFocus();
    }
  }
  perform(pv::leftCommand(modes_, result));
}

void MainDialog::rightCommand(PageResult result) {
  perform(pv::rightCommand(modes_, result));
}

void MainDialog::perform(const std::vector<ModeStep>& steps) {
  for (const ModeStep step : steps) {
    perform(step);
  }
  showLayout();
}

void MainDialog::perform(ModeStep step) {
  switch (step) {
    case ModeStep::TakeEmitterPage:
      collectEmitterPage();
      break;
    case ModeStep::TakeParticlePage:
      particles_ = particleTab_->state();
      break;
    case ModeStep::OpenLoadPanels:
      libraries_->openLoad(traits(mode()));
      break;
    case ModeStep::OpenSavePanels:
      openSavePanels();
      break;
    case ModeStep::OpenTagPanels:
      libraries_->openTags(traits(mode()));
      break;
    case ModeStep::TakeSaveTexts:
      coreName() = libraries_->coreName();
      libraries_->perform(step);
      break;
    default:
      performOnDocument(step);
      libraries_->perform(step);
  }
}

void MainDialog::performOnDocument(ModeStep step) {
  switch (step) {
    case ModeStep::GivePathToEditor:
      pathName_.clear();
      pathEditor_->setPath(tab3d_->shape().path);
      break;
    case ModeStep::TakeEditedPath:
      takePath(pathEditor_->path());
      break;
    case ModeStep::ReleaseEditPath:
      emitter_->releaseEditPath();
      break;
    case ModeStep::SavePath:
      savePathFile();
      break;
    case ModeStep::SaveShape:
      saveShapeFile();
      break;
    case ModeStep::LoadShape:
    case ModeStep::LoadPath:
    case ModeStep::LoadPathIntoEditor:
      loadChosen(step);
      break;
    default:
      break;
  }
}

void MainDialog::loadChosen(ModeStep step) {
  const std::string file = libraries_->chosenFile();
  if (file.empty()) {
    return;
  }
  if (step == ModeStep::LoadShape) {
    openFile(hostPath(file));
  } else {
    loadPathFile(hostPath(file),
                 step == ModeStep::LoadPath ? PathTarget::Shape : PathTarget::Editor);
  }
}

// --- what shows ----------------------------------------------------------------------

void MainDialog::showPage(LeftPage page) {
  buildOtherPages();
  modes_.showPage(page);
  showLayout();
}

void MainDialog::showLayout() {
  const bool otherMode = shownMode_ != mode();
  leftHost_->setCurrentIndex(static_cast<int>(modes_.pages().left));
  rightHost_->setCurrentIndex(static_cast<int>(modes_.pages().right));
  if (mode() == Mode::Editing) {
    strip_->setCurrent(tabOfPage(page()));
  }
  strip_->setEnabled(modes_.stripEnabled());
  desk_->findChild<QAbstractButton*>("1", Qt::FindDirectChildrenOnly)
      ->setEnabled(modes_.stripEnabled());
  setWindowTitle(toText(modes_.title()));
  showInformation();
  if (otherMode) {
    shownMode_ = mode();
    rightFrame_->setTitle(tr(lookOf(mode()).title));
    showName(fault_);
    showModifier();
    giveFocus();
  }
}

void MainDialog::giveFocus() {
  const ModeLook& look = lookOf(mode());
  const auto* host = look.leftControl != nullptr ? leftHost_ : rightHost_;
  const char* name = look.leftControl != nullptr ? look.leftControl : look.rightControl;
  if (auto* control = host->currentWidget()->findChild<QWidget*>(name)) {
    control->setFocus();
  }
}

void MainDialog::showInformation() {
  if (mode() != Mode::EditPath) {
    information_->setText(toText(informationLine(page())));
    return;
  }
  const PathReadout readout = pathEditor_->view().view().readout();
  information_->setText(toText(pathReadoutText(readout) + "\n\n" + pathHintText(readout)));
}

void MainDialog::showName(const QString& fault) {
  // In a library an older fault has nothing to say.
  const bool library = mode() != Mode::EditPath && mode() != Mode::Editing;
  fault_ = library ? QString() : fault;
  const QString& name = mode() == Mode::EditPath ? pathName_ : shapeName_;
  rightFrame_->setName(!fault_.isEmpty() ? fault_ : library ? QString() : name);
}

void MainDialog::showPreview() {
  const std::string file = libraries_->chosenFile();
  const QSize size = libraries_->previewSize();
  const auto ratio = static_cast<float>(libraries_->previewRatio());
  BmpPicture picture;
  if (file.empty()) {
    // nothing to show
  } else if (modes_.modeKind() == ModeKind::Path) {
    if (const auto path = LoadPathFile(hostPath(file))) {
      PathViewport look = libraryLook(path.value());
      look.width = size.width();
      look.height = size.height();
      picture = drawPath(path.value(), look, ratio);
    }
  } else if (const auto shape = LoadShapeFile(hostPath(file))) {
    picture = drawShape(shape.value(), libraryLook(shape.value()), size.width(), size.height(),
                        ratio, kMaxPreviewVertices);
  }
  libraries_->setPreview(toImage(picture, libraries_->previewRatio()));
}

// --- keys of a mode ------------------------------------------------------------------

void MainDialog::pressCancel() {
  if (mode() == Mode::EditPath) {
    pathEditor_->pressCancel();
  } else {
    libraries_->pressCancel(modes_.pages().right);
  }
}

bool MainDialog::pressDefault() {
  if (mode() == Mode::Editing) {
    return false;
  }
  auto* button = rightHost_->currentWidget()->findChild<QAbstractButton*>("1");
  if (button == nullptr || !button->isEnabled()) {
    return false;
  }
  button->click();
  return true;
}

}  // namespace pv
