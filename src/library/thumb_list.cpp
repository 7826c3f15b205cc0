#include "library/thumb_list.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "library/folder_names.h"
#include "util/file_name.h"
#include "util/program_path.h"

namespace pv {
namespace {

ThumbnailPtr readThumbnail(const std::string& path) {
  const auto picture = readBmpFile(hostPath(path));
  if (!picture) {
    return nullptr;
  }
  return std::make_shared<const BmpPicture>(fitThumbnail(picture.value()));
}

}  // namespace

void CThumbList::setFolder(std::string_view folder, std::string_view libraryRoot) {
  folder_ = folderExists(folder) ? lowerCaseOf(folder) : fallbackFolder(libraryRoot);
}

LibraryPlace CThumbList::place() const {
  constexpr std::size_t kExtension = 4;
  const std::size_t begin = filter_.size() - std::min(filter_.size(), kExtension);
  return {folder_, filter_.substr(begin)};
}

void CThumbList::fill() {
  if (folder_.empty()) {
    return;
  }
  std::vector<std::string> files;
  disk_.listFilesMatching(filter_, folder_, files);
  allNames_.clear();
  for (const auto& file : files) {
    const auto name = withoutExtension(file);
    if (!name.empty()) {
      allNames_.emplace_back(name);
    }
  }
  byName_.resize(allNames_.size());
  std::iota(byName_.begin(), byName_.end(), 0);
  std::stable_sort(byName_.begin(), byName_.end(), [this](std::int32_t a, std::int32_t b) {
    return allNames_[static_cast<std::size_t>(a)] < allNames_[static_cast<std::size_t>(b)];
  });
  cache_.clear();
  removed_ = false;
  clearSelection();
  showAll();
}

void CThumbList::showSubset(std::span<const std::string> names) {
  const auto nameAt = [this](std::int32_t position) -> const std::string& {
    return allNames_[static_cast<std::size_t>(position)];
  };
  std::vector<std::string> shown;
  std::vector<std::int32_t> positions;
  for (const auto& name : names) {
    auto at = std::lower_bound(byName_.begin(), byName_.end(), name,
                               [&](std::int32_t a, const auto& b) { return nameAt(a) < b; });
    for (; at != byName_.end() && nameAt(*at) == name; ++at) {
      shown.push_back(name);
      positions.push_back(*at);
    }
  }
  show(std::move(shown), std::move(positions));
}

void CThumbList::showAll() {
  if (removed_) {
    fill();
    return;
  }
  std::vector<std::int32_t> positions(allNames_.size());
  std::iota(positions.begin(), positions.end(), 0);
  show(allNames_, std::move(positions));
}

void CThumbList::show(std::vector<std::string> names, std::vector<std::int32_t> positions) {
  const std::int32_t kept = isShown(selected_) ? shownToAll(selected_) : -1;
  shownNames_ = std::move(names);
  shownToAll_ = std::move(positions);
  const auto again = std::find(shownToAll_.begin(), shownToAll_.end(), kept);
  selected_ =
      again == shownToAll_.end() ? -1 : static_cast<std::int32_t>(again - shownToAll_.begin());
}

void CThumbList::select(std::int32_t index) {
  selected_ = isShown(index) ? index : -1;
}

std::string CThumbList::selectedName() const {
  return isShown(selected_) ? shownNames_[static_cast<std::size_t>(selected_)] : std::string();
}

void CThumbList::removeSelected() {
  if (!isShown(selected_)) {
    return;
  }
  shownNames_.erase(shownNames_.begin() + selected_);
  shownToAll_.erase(shownToAll_.begin() + selected_);
  clearSelection();
  removed_ = true;
}

ThumbnailPtr CThumbList::thumbnail(std::int32_t index) {
  if (!isShown(index)) {
    return nullptr;
  }
  const std::int32_t key = shownToAll(index);
  if (!cache_.contains(key)) {
    const auto& name = shownNames_[static_cast<std::size_t>(index)];
    const bool sound = isValidFileName(name);
    cache_.insert(key, sound ? readThumbnail(place().thumbnailFile(name)) : nullptr);
  }
  return cache_.find(key);
}

bool CThumbList::isThumbnailLoaded(std::int32_t index) const {
  return isShown(index) && cache_.contains(shownToAll(index));
}

}  // namespace pv
