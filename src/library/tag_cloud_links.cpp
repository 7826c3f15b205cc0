#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "library/library_place.h"
#include "library/tag_cloud.h"

namespace pv {
namespace {

using Links = std::vector<std::string>;

bool anyStartsWith(const Links& links, std::string_view name) {
  return std::any_of(links.begin(), links.end(),
                     [name](const std::string& link) { return link.starts_with(name); });
}

/// Counts for each name of a list in how many of the lists shown to it it stood.
/// The list's names are hashed once, however many lists follow.
class Tally {
 public:
  explicit Tally(const Links& names) {
    counts_.reserve(names.size());
    for (const auto& name : names) {
      counts_.try_emplace(name, Count{});
    }
  }

  void show(const Links& links) {
    ++shown_;
    for (const auto& link : links) {
      const auto found = counts_.find(link);
      if (found != counts_.end() && found->second.last != shown_) {
        found->second.last = shown_;
        ++found->second.hits;
      }
    }
  }
  [[nodiscard]] std::size_t shown() const { return shown_; }
  [[nodiscard]] std::size_t hits(const std::string& name) const { return counts_.at(name).hits; }

 private:
  struct Count {
    std::size_t hits = 0;
    std::size_t last = 0;  ///< the list that hit last: a link may stand in it twice
  };
  std::size_t shown_ = 0;
  std::unordered_map<std::string_view, Count> counts_;
};

}  // namespace

std::vector<std::string> CTagCloud::filterFiles() {
  buildLists();
  if (selectedList_.empty()) {
    return {};
  }
  // The lists were built from the tags, so every name is found.
  const auto linksOf = [this](const std::string& name) -> const Links& {
    return entry(findTag(name)).links;
  };
  const Links& first = linksOf(selectedList_.front());
  Tally wanted(first);
  for (const auto& name : std::span(selectedList_).subspan(1)) {
    wanted.show(linksOf(name));
  }
  Tally unwanted(first);
  for (const auto& name : excludedList_) {
    unwanted.show(linksOf(name));
  }
  Links files;
  std::copy_if(first.begin(), first.end(), std::back_inserter(files), [&](const auto& file) {
    return wanted.hits(file) == wanted.shown() && unwanted.hits(file) == 0;
  });
  return files;
}

void CTagCloud::clearLinks() {
  for (auto& tag : entries_) {
    tag.weight = 0;
    tag.links.clear();
    tag.dirty = true;
  }
  updateWeights();
}

void CTagCloud::linkFileToSelected(std::string_view libraryFolder, std::string_view fileName) {
  if (fileName.empty() || countSelected() == 0 || !folderExists(libraryFolder) ||
      !folderExists(std::string(libraryFolder) + "tags\\")) {
    return;
  }
  for (auto& tag : entries_) {
    if (tag.state == TagState::Selected && !anyStartsWith(tag.links, fileName)) {
      tag.links.emplace_back(fileName);
      tag.dirty = true;
    }
  }
}

void CTagCloud::linkFileToSelectedSimple(std::string_view fileName) {
  for (auto& tag : entries_) {
    if (tag.state == TagState::Selected) {
      tag.links.emplace_back(fileName);
      tag.dirty = true;
    }
  }
}

void CTagCloud::linkFileToTag(std::string_view fileName, std::int32_t index) {
  if (!isIndex(index)) {
    return;
  }
  TagEntry& tag = entry(index);
  if (!anyStartsWith(tag.links, fileName)) {
    tag.links.emplace_back(fileName);
  }
  tag.dirty = true;
}

void CTagCloud::unlinkFile(std::string_view fileName) {
  if (fileName.empty()) {
    return;
  }
  for (auto& tag : entries_) {
    Links kept;
    kept.reserve(tag.links.size());
    for (std::size_t i = 0; i < tag.links.size(); ++i) {
      // The link that moves into the place of a removed one is not looked at.
      i += tag.links[i].starts_with(fileName) ? 1 : 0;
      if (i < tag.links.size()) {
        kept.push_back(std::move(tag.links[i]));
      }
    }
    tag.dirty = tag.dirty || kept.size() < tag.links.size();
    tag.links = std::move(kept);
  }
}

void CTagCloud::unlinkFileFromTag(std::string_view fileName, std::int32_t index) {
  if (fileName.empty() || !isIndex(index)) {
    return;
  }
  TagEntry& tag = entry(index);
  const auto removed = std::erase_if(
      tag.links, [fileName](const std::string& link) { return link.starts_with(fileName); });
  tag.dirty = tag.dirty || removed > 0;
}

bool CTagCloud::applyFileTags(std::string_view tagListPath) {
  std::vector<std::string> names;
  const bool read = lineFile_.readLines(tagListPath, names);
  const std::unordered_set<std::string_view> wanted(names.begin(), names.end());
  std::unordered_set<std::string> known;
  for (auto& tag : entries_) {
    tag.state = wanted.contains(tag.name) ? TagState::Selected : TagState::None;
    known.insert(tag.name);
  }
  for (const auto& name : names) {
    if (name.empty() || !known.insert(name).second) {
      continue;
    }
    if (addTag(name) == AddTagResult::Full) {
      break;
    }
    entries_.back().state = TagState::Selected;
  }
  return read;
}

}  // namespace pv
