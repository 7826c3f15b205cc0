#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "library/library_place.h"
#include "library/thumb_cache.h"
#include "library/thumbnail.h"
#include "util/disk_object.h"

namespace pv {

/// Room for some six hundred pictures.
inline constexpr std::size_t kThumbCacheBytes = std::size_t{1} << 24;

/// The files of a library, all or a filtered part of them, with the selection
/// and the pictures that were needed so far. Names have no extension. Where the
/// cells stand is up to ThumbGrid, which takes shownCount().
class CThumbList {
 public:
  explicit CThumbList(std::size_t cacheBytes = kThumbCacheBytes) : cache_(cacheBytes) {}

  /// A folder that does not exist is replaced by the library root.
  void setFolder(std::string_view folder, std::string_view libraryRoot = {});
  [[nodiscard]] const std::string& folder() const { return folder_; }
  /// A pattern such as "*.j3d"; its last four characters are the extension.
  void setFilter(std::string_view pattern) { filter_ = pattern; }
  [[nodiscard]] const std::string& filter() const { return filter_; }
  [[nodiscard]] LibraryPlace place() const;

  /// Lists the folder anew, in byte order, and shows all of it. Pictures are
  /// forgotten, nothing is selected. Without a folder nothing happens.
  void fill();
  /// Shows the given names in their order, each as often as the folder holds it;
  /// others are left out. A selected file that is still shown stays selected.
  void showSubset(std::span<const std::string> names);
  /// Shows all names; after a file was removed the folder is listed anew first.
  void showAll();

  /// Number of all names, shown or not.
  [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(allNames_.size()); }
  [[nodiscard]] const std::vector<std::string>& allNames() const { return allNames_; }
  [[nodiscard]] std::int32_t shownCount() const {
    return static_cast<std::int32_t>(shownNames_.size());
  }
  [[nodiscard]] const std::vector<std::string>& shownNames() const { return shownNames_; }
  /// Position among all names, 0 <= index < shownCount().
  [[nodiscard]] std::int32_t shownToAll(std::int32_t index) const {
    return shownToAll_[static_cast<std::size_t>(index)];
  }

  /// Index among the shown names, or -1.
  [[nodiscard]] std::int32_t selected() const { return selected_; }
  /// Any index that is not shown selects nothing.
  void select(std::int32_t index);
  void clearSelection() { selected_ = -1; }
  /// Empty when nothing is selected.
  [[nodiscard]] std::string selectedName() const;
  /// Takes the selected item out of what is shown; nothing is selected then.
  void removeSelected();

  /// The 96 x 72 picture of a shown item, read from thumbs\name.bmp when it is
  /// first asked for; null when there is none that can be read.
  ThumbnailPtr thumbnail(std::int32_t index);
  /// Whether thumbnail() would answer without the disk.
  [[nodiscard]] bool isThumbnailLoaded(std::int32_t index) const;
  [[nodiscard]] std::size_t thumbnailBytes() const { return cache_.bytes(); }

 private:
  void show(std::vector<std::string> names, std::vector<std::int32_t> positions);
  [[nodiscard]] bool isShown(std::int32_t index) const {
    return index >= 0 && index < shownCount();
  }

  std::string folder_;
  std::string filter_ = "*.rvb";
  CDiskObject disk_;
  std::vector<std::string> shownNames_;
  std::vector<std::int32_t> shownToAll_;
  std::vector<std::string> allNames_;
  std::vector<std::int32_t> byName_;  ///< positions in allNames_, sorted by name
  std::int32_t selected_ = -1;
  bool removed_ = false;  ///< since the folder was listed
  ThumbCache cache_;
};

}  // namespace pv
