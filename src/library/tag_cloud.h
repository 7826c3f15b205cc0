#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "library/line_file.h"
#include "library/tag_layout.h"
#include "util/colour_scheme.h"
#include "util/disk_object.h"

namespace pv {

inline constexpr std::size_t kMaxTags = 256;
/// What the page shows when a tag was refused.
inline constexpr std::string_view kTagsFullText = "The library is full: it holds 256 tags.";

enum class TagState : std::int32_t { None = -1, Selected = 1, Excluded = 2 };

struct TagEntry {
  std::string name;         ///< also the ".tag" file's name
  std::int32_t weight = 0;  ///< linked files when the tag was loaded; 0 when added since
  TagBox box;               ///< where the last layout put the tag
  TagState state = TagState::None;
  bool dirty = false;              ///< differs from what the disk holds
  std::vector<std::string> links;  ///< saved files that carry the tag
  bool unread = false;             ///< the file is there but could not be read

  bool operator==(const TagEntry&) const = default;
};

enum class AddTagResult : std::uint8_t { Added, Full };

struct TagClick {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool ctrl = false;
  bool alt = false;
};

struct TagClickResponse {
  bool changed = false;   ///< some state changed: repaint
  std::int32_t hit = -1;  ///< the tag under the pointer
};

/// The tags of one library: links in both directions, selection, filter, click
/// rule and layout of the cloud. Names are compared byte by byte, except where a
/// link may start with a name. Paths are program paths. A tag whose name is no
/// valid file name stays in memory and never meets the disk.
///
/// Life cycle: setFolder, loadAll, then clicks and links in memory; saveAll (or
/// saveUnsaved) brings the ".tag" files up to date. deleteTag and writeFileTags
/// act on the disk at once. An operation whose folder does not exist does nothing.
class CTagCloud {
 public:
  CTagCloud() = default;
  explicit CTagCloud(const ColourScheme& scheme) : colours_(tagColours(scheme)) {}

  // --- the store on disk ---------------------------------------------------
  /// `folder` is the library's folder without a separator at its end; when it
  /// does not exist `libraryRoot` takes its place. "\tags\" is appended unless
  /// the last four letters are "tags" already.
  void setFolder(std::string_view folder, std::string_view libraryRoot = {});
  [[nodiscard]] const std::string& folder() const { return folder_; }

  /// Every tag anew from the ".tag" files, in byte order. Files that vanish on
  /// the way yield a tag without links. Returns how many files found no room.
  std::size_t loadAll();
  /// Writes every tag, dirty or not. False when one could not be written.
  bool saveAll();
  /// The same for those only that differ from the disk.
  bool saveUnsaved();
  [[nodiscard]] bool hasUnsaved() const;
  /// Writes one file after stray characters at the ends of the links were cut
  /// off, in memory too. True when it was written.
  bool writeTagFile(std::string_view tagName, std::int32_t index);
  /// The reason of the last failure to read or write a file.
  [[nodiscard]] const std::string& errorText() const { return lineFile_.errorText(); }

  // --- tags ----------------------------------------------------------------
  [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(entries_.size()); }
  [[nodiscard]] std::span<const TagEntry> entries() const { return entries_; }
  void clear();
  /// Twice the same name makes two tags. A full store stays as it is.
  AddTagResult addTag(std::string_view name);
  AddTagResult addWeightedTag(std::string_view name, std::int32_t weight);
  /// Together with its file; an index out of range is ignored.
  void deleteTag(std::int32_t index);
  /// Deletes tags that are selected or excluded; the walk ends early when several
  /// are marked (its steps are counted against the shrinking number of tags).
  void deleteMarked();
  /// First tag of the name, or -1.
  [[nodiscard]] std::int32_t findTag(std::string_view name) const;
  [[nodiscard]] const TagWeights& weights() const { return weights_; }

  // --- selection -----------------------------------------------------------
  void resetStates();
  /// Without a click; an index out of range is ignored.
  void setState(std::int32_t index, TagState state);
  [[nodiscard]] std::int32_t countSelected() const;
  /// Names of the selected tags with two blanks between.
  [[nodiscard]] std::string selectedText() const;
  /// Plain: exactly this tag. Ctrl: adds or removes. Alt: excludes or readmits.
  /// Beside all tags a plain click clears every state.
  TagClickResponse click(const TagClick& click);
  /// Refills the two lists below from the states, in the order of the tags.
  void buildLists();
  [[nodiscard]] const std::vector<std::string>& selectedList() const { return selectedList_; }
  [[nodiscard]] const std::vector<std::string>& excludedList() const { return excludedList_; }
  /// Builds the lists. Files of the first selected tag, in its order, that every
  /// other selected tag and no excluded one has; none when no tag is selected.
  [[nodiscard]] std::vector<std::string> filterFiles();

  // --- links ---------------------------------------------------------------
  /// Weights 0, no links, all dirty.
  void clearLinks();
  /// To every selected tag without a link that starts with the name. Needs the
  /// library's folder, given with a separator at its end, and its tags folder.
  void linkFileToSelected(std::string_view libraryFolder, std::string_view fileName);
  /// To every selected tag, also where it is linked already.
  void linkFileToSelectedSimple(std::string_view fileName);
  /// Unless a link starts with the name; the tag is dirty in any case. An index out
  /// of range is ignored, here and below.
  void linkFileToTag(std::string_view fileName, std::int32_t index);
  /// From every tag the links that start with the name; of two such in a row the
  /// second stays until the next call. An empty name unlinks nothing.
  void unlinkFile(std::string_view fileName);
  /// From one tag all links that start with the name.
  void unlinkFileFromTag(std::string_view fileName, std::int32_t index);

  /// Selects exactly the tags that the ".tdb" file names, adding those that are
  /// missing while there is room. False when the file cannot be read; then
  /// nothing is selected.
  bool applyFileTags(std::string_view tagListPath);
  /// Writes tagListFolder + name + ".tdb" with the selected tags, in their order.
  bool writeFileTags(std::string_view tagListFolder, std::string_view fileName);

  // --- the cloud on the screen ---------------------------------------------
  /// Rows of tags from the top of the client area, which lies above 0 while it is
  /// scrolled (top = -offset). Stores each tag's box for the hit test.
  TagLayout layout(std::int32_t clientWidth, std::int32_t clientTop, const MeasureTagText& measure);
  /// First tag whose box holds the point, or -1.
  [[nodiscard]] std::int32_t hitTest(std::int32_t x, std::int32_t y) const;
  [[nodiscard]] const TagColours& colours() const { return colours_; }
  /// 0x00RRGGBB; the contrast colour follows.
  void setBackgroundColour(std::uint32_t colour);

 private:
  [[nodiscard]] bool isIndex(std::int32_t index) const { return index >= 0 && index < count(); }
  [[nodiscard]] TagEntry& entry(std::int32_t index) {
    return entries_[static_cast<std::size_t>(index)];
  }
  void updateWeights();
  void readTag(std::string_view name);
  bool saveEntry(std::int32_t index);

  CDiskObject disk_;
  CLineFile lineFile_;
  std::vector<std::string> selectedList_;
  std::vector<std::string> excludedList_;
  TagColours colours_;
  std::string folder_;
  std::vector<TagEntry> entries_;
  TagWeights weights_;
};

}  // namespace pv
