#include "library/tag_editing.h"

#include <algorithm>
#include <unordered_set>

#include "library/folder_names.h"
#include "util/disk_object.h"
#include "util/file_name.h"

namespace pv {
namespace {

/// Tags that the lists name as selected, of which no tag is selected now.
std::unordered_set<std::string> deselectedNames(const CTagCloud& cloud) {
  const auto& listed = cloud.selectedList();
  std::unordered_set<std::string> names(listed.begin(), listed.end());
  for (const auto& tag : cloud.entries()) {
    if (tag.state == TagState::Selected) {
      names.erase(tag.name);
    }
  }
  return names;
}

std::optional<Error> removeIfThere(const std::string& path) {
  CDiskObject disk;
  if (!fileExists(path) || disk.removeFile(path)) {
    return std::nullopt;
  }
  return Error{ErrorKind::InputOutput, {}, std::nullopt, disk.errorText()};
}

}  // namespace

void TagDeleteMode::toggle(CTagCloud& cloud) {
  cloud.resetStates();
  on_ = !on_;
}

bool TagDeleteMode::tagClicked(CTagCloud& cloud) {
  if (!on_) {
    return false;
  }
  cloud.deleteMarked();
  on_ = cloud.count() > 0;
  return true;
}

TagPanelCode TagPanel::tagClicked(CTagCloud& cloud) {
  if (deleteMode.tagClicked(cloud)) {
    deleteToggled(cloud);
    return TagPanelCode::None;
  }
  if (!selectedFile_.empty()) {
    std::string text = cloud.selectedText();
    if (text == heldText_) {
      return TagPanelCode::None;
    }
    heldText_ = std::move(text);
    return TagPanelCode::FileTagsChanged;
  }
  filteredFiles_ = cloud.filterFiles();
  return cloud.countSelected() == 0 ? TagPanelCode::ShowAll : TagPanelCode::ShowFiltered;
}

void TagPanel::deleteToggled(CTagCloud& cloud) {
  if (!deleteMode.on() && !selectedFile_.empty()) {
    showFileTags(cloud);
  }
}

/// By the lists, which were last built for this file: a tag that was deleted
/// meanwhile does not come back, as it would from the ".tdb" file.
void TagPanel::showFileTags(CTagCloud& cloud) {
  const auto& listed = cloud.selectedList();
  for (std::int32_t i = 0; i < cloud.count(); ++i) {
    const TagEntry& tag = cloud.entries()[static_cast<std::size_t>(i)];
    if (std::find(listed.begin(), listed.end(), tag.name) != listed.end()) {
      cloud.setState(i, TagState::Selected);
    }
  }
  cloud.buildLists();
  heldText_ = cloud.selectedText();
}

void TagPanel::fileSelected(CTagCloud& cloud, const LibraryPlace& place, std::string_view name) {
  selectedFile_.clear();
  heldText_.clear();
  if (!isValidFileName(name)) {
    return;
  }
  cloud.applyFileTags(place.tagListFile(name));
  cloud.buildLists();
  selectedFile_ = name;
  heldText_ = cloud.selectedText();
}

void changeFileTags(CTagCloud& cloud, const LibraryPlace& place, std::string_view name) {
  if (!isValidFileName(name)) {
    return;
  }
  const auto deselected = deselectedNames(cloud);
  for (std::int32_t i = 0; i < cloud.count(); ++i) {
    const TagEntry& tag = cloud.entries()[static_cast<std::size_t>(i)];
    if (tag.state == TagState::None && deselected.contains(tag.name)) {
      cloud.unlinkFileFromTag(name, i);
    }
  }
  cloud.writeFileTags(place.tagListFolder(), name);
  cloud.linkFileToSelected(place.folder + '\\', name);
  cloud.buildLists();
}

void reconstructLinks(CTagCloud& cloud, const LibraryPlace& place,
                      std::span<const std::string> names) {
  const FolderNames lists(place.tagListFolder(), "*.tdb");
  cloud.clearLinks();
  for (const auto& name : names) {
    if (isValidFileName(name) && lists.contains(name + ".tdb")) {
      cloud.applyFileTags(place.tagListFile(name));
      cloud.linkFileToSelectedSimple(name);
    }
  }
  cloud.saveAll();
  cloud.loadAll();
  cloud.resetStates();
}

std::optional<Error> deleteLibraryFile(const LibraryPlace& place, std::string_view name) {
  if (!isValidFileName(name)) {
    return Error{ErrorKind::NoInput, std::string(name), std::nullopt, "this is not a file name"};
  }
  if (auto failure = removeIfThere(place.dataFile(name))) {
    return failure;
  }
  auto failure = removeIfThere(place.tagListFile(name));
  auto later = removeIfThere(place.thumbnailFile(name));
  return failure ? failure : later;
}

std::string deleteSelectedFile(CThumbList& list) {
  std::string name = list.selectedName();
  const LibraryPlace place = list.place();
  const auto failure = deleteLibraryFile(place, name);
  if (failure && (!isValidFileName(name) || fileExists(place.dataFile(name)))) {
    return {};
  }
  list.removeSelected();
  return name;
}

}  // namespace pv
