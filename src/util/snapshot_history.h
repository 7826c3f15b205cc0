#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace pv {

/// Undo and redo of a small document that is a value: each step holds the whole
/// document before and after it. `Value` is copyable and compares with ==.
/// The history never holds the document itself: whoever does puts what undo()
/// and redo() return in its place.
template <class Value>
class SnapshotHistory {
 public:
  static constexpr std::size_t kDefaultSteps = 200;

  /// The oldest step is forgotten when one more than `maxSteps` (at least 1) is
  /// recorded.
  explicit SnapshotHistory(std::size_t maxSteps = kDefaultSteps)
      : maxSteps_(std::max<std::size_t>(maxSteps, 1)) {}

  /// Adds a step and drops what could be redone; false, and nothing happens,
  /// when both values are equal. `label` names the step to people.
  bool record(Value before, Value after, std::string_view label = {}) {
    if (before == after) {
      return false;
    }
    steps_.erase(std::next(steps_.begin(), static_cast<std::ptrdiff_t>(done_)), steps_.end());
    steps_.push_back({std::move(before), std::move(after), std::string(label)});
    if (steps_.size() > maxSteps_) {
      steps_.pop_front();
    }
    done_ = steps_.size();
    return true;
  }

  /// The document as it was before the last step; none when there is no step.
  [[nodiscard]] std::optional<Value> undo() {
    if (!canUndo()) {
      return std::nullopt;
    }
    return steps_[--done_].before;
  }
  /// The document as it was after the step that was undone last; none when there is none.
  [[nodiscard]] std::optional<Value> redo() {
    if (!canRedo()) {
      return std::nullopt;
    }
    return steps_[done_++].after;
  }

  [[nodiscard]] bool canUndo() const { return done_ > 0; }
  [[nodiscard]] bool canRedo() const { return done_ < steps_.size(); }
  /// What the next undo() or redo() is about; empty when there is nothing. Lives
  /// until the next change of the history.
  [[nodiscard]] std::string_view undoLabel() const {
    return canUndo() ? std::string_view(steps_[done_ - 1].label) : std::string_view();
  }
  [[nodiscard]] std::string_view redoLabel() const {
    return canRedo() ? std::string_view(steps_[done_].label) : std::string_view();
  }

  void clear() {
    steps_.clear();
    done_ = 0;
  }

 private:
  struct Step {
    Value before;
    Value after;
    std::string label;
  };

  std::size_t maxSteps_;
  std::deque<Step> steps_;
  std::size_t done_ = 0;  ///< steps before it are done, the others undone
};

}  // namespace pv
