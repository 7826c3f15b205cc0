#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "library/library_place.h"
#include "library/tag_cloud.h"
#include "library/thumb_list.h"
#include "util/result.h"

namespace pv {

/// The mode in which clicks on the cloud delete tags; on the save page and while
/// tags are edited.
class TagDeleteMode {
 public:
  [[nodiscard]] bool on() const { return on_; }
  /// Also clears every tag's state.
  void toggle(CTagCloud& cloud);
  void end() { on_ = false; }
  /// After the cloud's click rule: deletes the marked tags; the mode ends with
  /// the last tag. False, with nothing done, while the mode is off.
  bool tagClicked(CTagCloud& cloud);

 private:
  bool on_ = false;
};

/// What the tag-editing panel asks of its owner.
enum class TagPanelCode : std::int32_t {
  None = 0,
  ShowAll = 1,
  ShowFiltered = 2,
  Reconstruct = 3,
  FileTagsChanged = 4,
};

/// State and rules of the tag-editing panel; the cloud belongs to the page.
class TagPanel {
 public:
  TagDeleteMode deleteMode;

  /// A click on the cloud, after its click rule. FileTagsChanged comes only when
  /// the selected tags differ from those that were last held for the file.
  [[nodiscard]] TagPanelCode tagClicked(CTagCloud& cloud);
  /// The delete mode was toggled, which cleared every state. As it ends, a file
  /// that is still selected shows its tags again: else the next click would
  /// replace them all.
  void deleteToggled(CTagCloud& cloud);
  /// The file that is selected in the browser now: its tags become selected and
  /// the lists are built. An empty name means none and leaves the cloud alone.
  void fileSelected(CTagCloud& cloud, const LibraryPlace& place, std::string_view name);
  [[nodiscard]] const std::string& selectedFile() const { return selectedFile_; }
  /// The files of the last ShowFiltered.
  [[nodiscard]] const std::vector<std::string>& filteredFiles() const { return filteredFiles_; }

 private:
  void showFileTags(CTagCloud& cloud);

  std::string selectedFile_;
  std::string heldText_;
  std::vector<std::string> filteredFiles_;
};

/// FileTagsChanged: tags that were selected when the lists were last built and
/// have no state now lose the file, its ".tdb" is written with the tags that are
/// selected now, and these get it. The lists are built anew at the end.
void changeFileTags(CTagCloud& cloud, const LibraryPlace& place, std::string_view name);

/// Reconstruct: all links anew from the ".tdb" files of the given names, every
/// ".tag" file written, the cloud loaded from them, no tag selected. Tags stay,
/// with no links if need be. Names without a ".tdb" are passed over.
void reconstructLinks(CTagCloud& cloud, const LibraryPlace& place,
                      std::span<const std::string> names);

/// Deletes data file, ".tdb" and thumbnail in that order, each where it exists.
/// When the data file cannot be deleted, the other two stay too. The first
/// failure; none when all is gone. Links are not touched.
[[nodiscard]] std::optional<Error> deleteLibraryFile(const LibraryPlace& place,
                                                     std::string_view name);

/// File delete mode's click: deletes the list's selected file and takes it out
/// of what is shown. The name, empty when nothing was selected or the file could
/// not be deleted. The mode ends when nothing is shown any more.
[[nodiscard]] std::string deleteSelectedFile(CThumbList& list);

}  // namespace pv
