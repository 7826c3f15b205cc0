#include "library/tag_cloud.h"

#include <algorithm>
#include <utility>

#include "library/library_place.h"

namespace pv {
namespace {

/// What a click makes of the state of the tag that it hit. Without Ctrl and Alt
/// every state was cleared before.
TagState clicked(TagState before, const TagClick& click) {
  if (click.alt) {
    return before == TagState::Excluded ? TagState::None : TagState::Excluded;
  }
  return before == TagState::Selected ? TagState::None : TagState::Selected;
}

std::vector<TagState> statesOf(std::span<const TagEntry> entries) {
  std::vector<TagState> states;
  states.reserve(entries.size());
  for (const auto& tag : entries) {
    states.push_back(tag.state);
  }
  return states;
}

}  // namespace

void CTagCloud::clear() {
  entries_.clear();
  updateWeights();
}

AddTagResult CTagCloud::addTag(std::string_view name) {
  const auto result = addWeightedTag(name, 0);
  if (result == AddTagResult::Added) {
    entries_.back().dirty = true;
  }
  return result;
}

AddTagResult CTagCloud::addWeightedTag(std::string_view name, std::int32_t weight) {
  if (entries_.size() >= kMaxTags) {
    return AddTagResult::Full;
  }
  TagEntry tag;
  tag.name = name;
  tag.weight = weight;
  entries_.push_back(std::move(tag));
  updateWeights();
  return AddTagResult::Added;
}

// Steps are counted up to a count that shrinks meanwhile, so that after a
// deletion the walk ends before the last tags.
void CTagCloud::deleteMarked() {
  std::int32_t position = 0;
  for (std::int32_t step = 0; step < count(); ++step) {
    if (entry(position).state == TagState::None) {
      ++position;
    } else {
      deleteTag(position);
    }
  }
}

std::int32_t CTagCloud::findTag(std::string_view name) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [name](const TagEntry& tag) { return tag.name == name; });
  return found == entries_.end() ? -1 : static_cast<std::int32_t>(found - entries_.begin());
}

void CTagCloud::updateWeights() {
  weights_ = {};
  if (!entries_.empty()) {
    const auto [least, most] = std::minmax_element(
        entries_.begin(), entries_.end(),
        [](const TagEntry& a, const TagEntry& b) { return a.weight < b.weight; });
    weights_.minimum = least->weight;
    weights_.maximum = most->weight;
  }
  weights_.step = (static_cast<double>(weights_.maximum) - weights_.minimum + 1.0) / 6.0;
}

void CTagCloud::resetStates() {
  for (auto& tag : entries_) {
    tag.state = TagState::None;
  }
}

void CTagCloud::setState(std::int32_t index, TagState state) {
  if (isIndex(index)) {
    entry(index).state = state;
  }
}

std::int32_t CTagCloud::countSelected() const {
  return static_cast<std::int32_t>(
      std::count_if(entries_.begin(), entries_.end(),
                    [](const TagEntry& tag) { return tag.state == TagState::Selected; }));
}

std::string CTagCloud::selectedText() const {
  std::string text;
  for (const auto& tag : entries_) {
    if (tag.state == TagState::Selected) {
      text += tag.name + "  ";
    }
  }
  return trimmedText(text);
}

TagClickResponse CTagCloud::click(const TagClick& click) {
  const auto before = statesOf(entries_);
  TagClickResponse response;
  response.hit = hitTest(click.x, click.y);
  if (!click.ctrl && !click.alt) {
    resetStates();
  }
  if (response.hit >= 0) {
    auto& state = entry(response.hit).state;
    state = clicked(state, click);
  }
  response.changed = before != statesOf(entries_);
  return response;
}

void CTagCloud::buildLists() {
  selectedList_.clear();
  excludedList_.clear();
  for (const auto& tag : entries_) {
    if (tag.state == TagState::Selected) {
      selectedList_.push_back(tag.name);
    } else if (tag.state == TagState::Excluded) {
      excludedList_.push_back(tag.name);
    }
  }
}

std::int32_t CTagCloud::hitTest(std::int32_t x, std::int32_t y) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [x, y](const TagEntry& tag) { return tag.box.contains(x, y); });
  return found == entries_.end() ? -1 : static_cast<std::int32_t>(found - entries_.begin());
}

void CTagCloud::setBackgroundColour(std::uint32_t colour) {
  colours_.background = colour;
  colours_.contrast = contrastColour(colour);
}

}  // namespace pv
