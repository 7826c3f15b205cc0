#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/panel_pages.h"

namespace pv {

/// What the two panels are used for. Editing is the resting state.
enum class Mode : std::uint8_t {
  Editing,
  LoadShape,
  LoadPath,
  SaveShape,
  SavePath,
  EditShapeTags,
  EditPathTags,
  EditPath,
};
inline constexpr int kModeCount = 8;

/// Which library a load or save mode works on.
enum class ModeKind : std::int32_t { None = 0, Path = 1, Shape = 2 };

struct ModeTraits {
  Mode mode = Mode::Editing;
  std::string_view titleSuffix;    ///< behind the tab's title
  std::string_view folder;         ///< behind the application folder and a backslash
  std::string_view filter;         ///< of the library's files, "*" and the suffix
  ModeKind kind = ModeKind::None;  ///< None leaves the kind as it was
  PanelPages pages;
};

/// Of every mode but Editing, whose pages are those of the strip.
[[nodiscard]] const ModeTraits& traits(Mode mode);

/// Title, pages and what can be used of the window, and the way back from a mode
/// and from a mode inside a mode.
class ModeLayout {
 public:
  [[nodiscard]] Mode mode() const { return shown_.mode; }
  [[nodiscard]] PanelPages pages() const { return shown_.pages; }
  [[nodiscard]] const std::string& title() const { return shown_.title; }
  /// Of the last load or save mode.
  [[nodiscard]] ModeKind modeKind() const { return kind_; }
  /// Whether the page strip and the OK button can be used: while no mode is open.
  [[nodiscard]] bool stripEnabled() const { return shown_.mode == Mode::Editing; }
  /// A mode is open inside another one.
  [[nodiscard]] bool nested() const { return outer_.has_value(); }

  /// One of the strip's pages beside the 3D page; ignored while a mode is open.
  void showPage(LeftPage page);
  void EnterMode(Mode mode);
  /// Keeps the layout of the mode that is open, so that leaving leads back to it.
  void EnterNestedMode(Mode mode);
  /// Back to what showed when the mode was entered. From a nested mode that is
  /// the outer mode; otherwise the editing layout.
  void RestoreLayout();

 private:
  struct Layout {
    Mode mode = Mode::Editing;
    PanelPages pages;
    std::string title;
  };
  void SetModeTitle(std::string_view suffix);

  Layout shown_{Mode::Editing, {}, "Vortexa-Emitter"};
  Layout saved_ = shown_;
  std::optional<Layout> outer_;
  LeftPage tab_ = LeftPage::Emitter;  ///< the strip's page
  ModeKind kind_ = ModeKind::None;
};

/// What the window has to do for a command, each after the one before.
enum class ModeStep : std::uint8_t {
  TakeEmitterPage,     ///< the page's values into the shape, which regenerates
  TakeParticlePage,    ///< the page's values into the particle settings
  OpenLoadPanels,      ///< folder, filter and tags of the mode's library
  OpenSavePanels,      ///< folder, tags, core name and the view's picture
  OpenTagPanels,       ///< folder, filter and tags
  GivePathToEditor,    ///< the current path
  TakeEditedPath,      ///< the editor's record into the current path; regenerate
  ReleaseEditPath,     ///< the emitter page's toggle
  TakeSaveTexts,       ///< thumbnail text and core name to the save page
  ShowSelectedTags,    ///< the save page's tags on the save panel
  SavePath,            ///< thumbnail and the path that is edited, under the new name
  SaveShape,           ///< thumbnail and the current shape, under the new name
  WriteSavedTags,      ///< the save page's tag files
  ShowFilteredFiles,   ///< the load panel's filter in the load browser
  LoadShape,           ///< the chosen file, into the shape and the emitter page
  LoadPath,            ///< the chosen file, into the current path; regenerate
  LoadPathIntoEditor,  ///< the chosen file, into the path that is edited
  ShowAllTaggedFiles,  ///< tag editing: the whole library
  ShowTaggedFiles,     ///< tag editing: what fits the chosen tags
  ReconstructTagLinks,
  UpdateFileTags,     ///< the chosen file's tags and the links to it
  WriteAllTags,       ///< every tag's file
  UnlinkDeletedFile,  ///< from every tag
  ApplyFileTags,      ///< the chosen file's tags become the selected ones
  HandSelectedFile,   ///< the browser's choice to the tag panel
};

/// What a page told the window with its command.
struct PageResult {
  int code = 0;
  bool editPath = false;  ///< emitter page: its toggle is down
};

/// The command of the left panel's page that shows: changes the layout where the
/// command opens a mode and says what is to be done. Unknown codes do nothing.
[[nodiscard]] std::vector<ModeStep> leftCommand(ModeLayout& layout, PageResult result);

/// The same for the right panel's page.
[[nodiscard]] std::vector<ModeStep> rightCommand(ModeLayout& layout, PageResult result);

}  // namespace pv
