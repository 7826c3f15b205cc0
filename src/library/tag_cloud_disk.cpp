#include <algorithm>
#include <limits>
#include <utility>

#include "library/folder_names.h"
#include "library/library_place.h"
#include "library/tag_cloud.h"
#include "util/ascii.h"
#include "util/file_name.h"

namespace pv {
namespace {

constexpr std::string_view kTagExtension = ".tag";

/// The last character of a name that came from a numbered file; what else stands
/// at the end is taken for stray line ends and blanks.
bool mayEndLink(char c) {
  const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  return letter || (c >= '0' && c <= '9') ||
         std::string_view("-[]{})(").find(c) != std::string_view::npos;
}

void cleanLink(std::string& link) {
  while (!link.empty() && !mayEndLink(link.back())) {
    link.pop_back();
  }
}

std::string withTags(std::string folder) {
  return folder.ends_with("tags") ? std::move(folder) : std::move(folder) + "\\tags\\";
}

}  // namespace

void CTagCloud::setFolder(std::string_view folder, std::string_view libraryRoot) {
  folder_ = withTags(folderExists(folder) ? lowerCaseOf(folder) : fallbackFolder(libraryRoot));
}

std::size_t CTagCloud::loadAll() {
  if (!folderExists(folder_)) {
    return 0;
  }
  clear();
  std::vector<std::string> files;
  disk_.listFiles(folder_, files);
  std::erase_if(files, [](const auto& file) { return withoutExtension(file).empty(); });
  const std::size_t taken = std::min(files.size(), kMaxTags);
  for (const auto& file : std::span(files).first(taken)) {
    readTag(withoutExtension(file));
  }
  return files.size() - taken;
}

void CTagCloud::readTag(std::string_view name) {
  TagEntry tag;
  std::vector<std::string> links;
  bool unread = false;
  if (isValidFileName(name)) {
    const std::string path = folder_ + std::string(name) + std::string(kTagExtension);
    unread = !lineFile_.readLines(path, links) && fileExists(path);
  }
  constexpr std::size_t kHeaviest = std::numeric_limits<std::int32_t>::max();
  addWeightedTag(name, static_cast<std::int32_t>(std::min(links.size(), kHeaviest)));
  entries_.back().links = std::move(links);
  entries_.back().unread = unread;
}

bool CTagCloud::writeTagFile(std::string_view tagName, std::int32_t index) {
  if (!isIndex(index) || !isValidFileName(tagName) || !folderExists(folder_)) {
    return false;
  }
  TagEntry& tag = entry(index);
  std::for_each(tag.links.begin(), tag.links.end(), cleanLink);
  if (!lineFile_.writeLines(folder_ + std::string(tagName) + std::string(kTagExtension),
                            tag.links)) {
    return false;
  }
  if (tag.name == tagName) {
    tag.dirty = false;
    tag.unread = false;
  }
  return true;
}

/// A file that could not be read holds more than the entry knows of, so only a
/// change that the user made replaces it.
bool CTagCloud::saveEntry(std::int32_t index) {
  const TagEntry& tag = entry(index);
  const bool keep = tag.unread && !tag.dirty;
  return keep || !isValidFileName(tag.name) || writeTagFile(tag.name, index);
}

bool CTagCloud::saveAll() {
  bool saved = folderExists(folder_);
  const std::int32_t last = saved ? count() : 0;
  for (std::int32_t i = 0; i < last; ++i) {
    saved = saveEntry(i) && saved;
  }
  return saved;
}

bool CTagCloud::saveUnsaved() {
  bool saved = true;
  for (std::int32_t i = 0; i < count(); ++i) {
    if (entry(i).dirty) {
      saved = saveEntry(i) && saved;
    }
  }
  return saved;
}

bool CTagCloud::hasUnsaved() const {
  return std::any_of(entries_.begin(), entries_.end(),
                     [](const TagEntry& tag) { return tag.dirty && isValidFileName(tag.name); });
}

void CTagCloud::deleteTag(std::int32_t index) {
  if (!isIndex(index)) {
    return;
  }
  const std::string name = std::move(entry(index).name);
  entries_.erase(entries_.begin() + index);
  updateWeights();
  const std::string path = folder_ + name + std::string(kTagExtension);
  const bool onDisk = isValidFileName(name) && folderExists(folder_) && fileExists(path);
  if (!onDisk || !disk_.removeFile(path)) {
    return;
  }
  // The file belonged to every tag whose name differs in case at most.
  for (auto& tag : entries_) {
    tag.dirty = tag.dirty || equalIgnoringCase(tag.name, name);
  }
}

bool CTagCloud::writeFileTags(std::string_view tagListFolder, std::string_view fileName) {
  if (!isValidFileName(fileName) || !folderExists(tagListFolder)) {
    return false;
  }
  std::vector<std::string> names;
  for (const auto& tag : entries_) {
    // A name with a line end in it would be read back as two.
    if (tag.state == TagState::Selected && tag.name.find('\n') == std::string::npos) {
      names.push_back(tag.name);
    }
  }
  return lineFile_.writeLines(std::string(tagListFolder) + std::string(fileName) + ".tdb", names);
}

}  // namespace pv
