#include "app/modes.h"

#include <span>
#include <utility>

#include "app/application_folder.h"
#include "app/page_strip_model.h"

namespace pv {
namespace {

constexpr std::string_view kShapeFilter = "*.j3d";
constexpr std::string_view kPathFilter = "*.j2d";
constexpr PanelPages kLoadPages{LeftPage::Load, RightPage::Load};
constexpr PanelPages kSavePages{LeftPage::Save, RightPage::Save};
constexpr PanelPages kTagPages{LeftPage::EditTags, RightPage::EditTags};
constexpr PanelPages kPathPages{LeftPage::Path, RightPage::PathEditor};

constexpr std::array<ModeTraits, kModeCount> kModes{{
    {},
    {Mode::LoadShape, "-Load Shape", kShapeLibrary, kShapeFilter, ModeKind::Shape, kLoadPages},
    {Mode::LoadPath, "-Load Path", kPathLibrary, kPathFilter, ModeKind::Path, kLoadPages},
    {Mode::SaveShape, "-Save Shape", kShapeLibrary, kShapeFilter, ModeKind::Shape, kSavePages},
    {Mode::SavePath, "-Save Path", kPathLibrary, kPathFilter, ModeKind::Path, kSavePages},
    {Mode::EditShapeTags, "-Edit 3d Shape Tags", kShapeLibrary, kShapeFilter, ModeKind::None,
     kTagPages},
    {Mode::EditPathTags, "-Edit 2d Path Tags", kPathLibrary, kPathFilter, ModeKind::None,
     kTagPages},
    {Mode::EditPath, "-Edit Path", "", "", ModeKind::None, kPathPages},
}};

bool isModePanel(LeftPage page) {
  return page > LeftPage::Forces;
}

using Steps = std::vector<ModeStep>;

Steps enter(ModeLayout& layout, Mode mode, ModeStep open) {
  layout.EnterMode(mode);
  return {open};
}

Steps enterNested(ModeLayout& layout, Mode mode, ModeStep open) {
  layout.EnterNestedMode(mode);
  return {open};
}

Steps leave(ModeLayout& layout, Steps steps) {
  layout.RestoreLayout();
  return steps;
}

Steps libraryCommand(ModeLayout& layout, int selection) {
  switch (selection) {
    case 1:
      return enter(layout, Mode::LoadShape, ModeStep::OpenLoadPanels);
    case 2:
      return enter(layout, Mode::EditShapeTags, ModeStep::OpenTagPanels);
    case 3:
      return enter(layout, Mode::LoadPath, ModeStep::OpenLoadPanels);
    case 4:
      return enter(layout, Mode::EditPathTags, ModeStep::OpenTagPanels);
    default:
      return {};
  }
}

Steps emitterCommand(ModeLayout& layout, PageResult result) {
  if (result.editPath) {
    return enter(layout, Mode::EditPath, ModeStep::GivePathToEditor);
  }
  switch (result.code) {
    case 1:
      return enter(layout, Mode::LoadShape, ModeStep::OpenLoadPanels);
    case 2:
      return enter(layout, Mode::SaveShape, ModeStep::OpenSavePanels);
    default:
      return {ModeStep::TakeEmitterPage};
  }
}

Steps pathPageCommand(ModeLayout& layout, int code) {
  switch (code) {
    case 1:
      return enterNested(layout, Mode::LoadPath, ModeStep::OpenLoadPanels);
    case 2:
      return enterNested(layout, Mode::SavePath, ModeStep::OpenSavePanels);
    default:
      return {};
  }
}

Steps tagPanelCommand(int code) {
  switch (code) {
    case 1:
      return {ModeStep::ShowAllTaggedFiles};
    case 2:
      return {ModeStep::ShowTaggedFiles};
    case 3:
      return {ModeStep::ReconstructTagLinks};
    case 4:
      return {ModeStep::UpdateFileTags};
    default:
      return {};
  }
}

Steps pathEditorCommand(ModeLayout& layout, int code) {
  switch (code) {
    case 1:
      return leave(layout, {ModeStep::TakeEditedPath, ModeStep::ReleaseEditPath});
    case 2:
      return leave(layout, {ModeStep::ReleaseEditPath});
    default:
      return {ModeStep::ReleaseEditPath};
  }
}

Steps savePageCommand(ModeLayout& layout, int code) {
  switch (code) {
    case 1:
      return {ModeStep::ShowSelectedTags};
    case 2:
      return leave(layout, {});
    case 3: {
      const bool path = layout.modeKind() == ModeKind::Path;
      return leave(layout,
                   {path ? ModeStep::SavePath : ModeStep::SaveShape, ModeStep::WriteSavedTags});
    }
    default:
      return {};
  }
}

Steps loadBrowserCommand(ModeLayout& layout, int code) {
  switch (code) {
    case 2:
      return leave(layout, {});
    case 3: {
      const ModeStep path = layout.nested() ? ModeStep::LoadPathIntoEditor : ModeStep::LoadPath;
      return leave(layout, {layout.modeKind() == ModeKind::Path ? path : ModeStep::LoadShape});
    }
    default:
      return {};
  }
}

Steps tagBrowserCommand(ModeLayout& layout, int code) {
  switch (code) {
    case 1:
      return leave(layout, {ModeStep::WriteAllTags});
    case 2:
      return {ModeStep::UnlinkDeletedFile};
    case 3:
      return {ModeStep::ApplyFileTags, ModeStep::HandSelectedFile};
    default:
      return {ModeStep::HandSelectedFile};
  }
}

}  // namespace

const ModeTraits& traits(Mode mode) {
  return kModes[static_cast<std::size_t>(mode)];
}

// --- the layout ----------------------------------------------------------------

void ModeLayout::SetModeTitle(std::string_view suffix) {
  shown_.title = windowTitle(tab_) + std::string(suffix);
}

void ModeLayout::showPage(LeftPage page) {
  if (shown_.mode != Mode::Editing || isModePanel(page)) {
    return;
  }
  tab_ = page;
  shown_.pages = {page, RightPage::View3d};
  SetModeTitle("");
}

void ModeLayout::EnterMode(Mode mode) {
  saved_ = shown_;
  const ModeTraits& entered = traits(mode);
  shown_.mode = mode;
  shown_.pages = entered.pages;
  if (entered.kind != ModeKind::None) {
    kind_ = entered.kind;
  }
  SetModeTitle(entered.titleSuffix);
}

void ModeLayout::EnterNestedMode(Mode mode) {
  outer_ = saved_;
  EnterMode(mode);
}

void ModeLayout::RestoreLayout() {
  shown_ = saved_;
  if (outer_) {
    saved_ = *std::exchange(outer_, std::nullopt);
  } else if (isModePanel(shown_.pages.left)) {
    shown_ = {};  // a mode panel never rests
    showPage(LeftPage::Emitter);
  }
}

// --- commands --------------------------------------------------------------------

std::vector<ModeStep> leftCommand(ModeLayout& layout, PageResult result) {
  switch (layout.pages().left) {
    case LeftPage::Library:
      return libraryCommand(layout, result.code);
    case LeftPage::Emitter:
      return emitterCommand(layout, result);
    case LeftPage::Particles:
      return {ModeStep::TakeParticlePage};
    case LeftPage::Path:
      return pathPageCommand(layout, result.code);
    case LeftPage::Save:
      return result.code == 1 ? Steps{ModeStep::TakeSaveTexts} : Steps{};
    case LeftPage::Load:
      return {ModeStep::ShowFilteredFiles};
    case LeftPage::EditTags:
      return tagPanelCommand(result.code);
    case LeftPage::Forces:
      break;
  }
  return {};
}

std::vector<ModeStep> rightCommand(ModeLayout& layout, PageResult result) {
  switch (layout.pages().right) {
    case RightPage::View3d:
      return {};
    case RightPage::PathEditor:
      return pathEditorCommand(layout, result.code);
    case RightPage::Save:
      return savePageCommand(layout, result.code);
    case RightPage::Load:
      return loadBrowserCommand(layout, result.code);
    case RightPage::EditTags:
      return tagBrowserCommand(layout, result.code);
  }
  return {};
}

}  // namespace pv
