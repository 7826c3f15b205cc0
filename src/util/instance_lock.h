#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace pv {

/// Lets one process of this user say that it is the first of its kind. The
/// system frees the lock when the process ends, however it ends. The folder
/// belongs to the user alone (userRuntimeFolder()); on Windows it means nothing.
class InstanceLock {
 public:
  /// Tries once and never waits.
  InstanceLock(const std::filesystem::path& folder, std::string_view name);
  ~InstanceLock();
  InstanceLock(const InstanceLock&) = delete;
  InstanceLock& operator=(const InstanceLock&) = delete;
  InstanceLock(InstanceLock&&) = delete;
  InstanceLock& operator=(InstanceLock&&) = delete;

  /// False when another process held the lock. True also when the lock could not
  /// be tried, as two windows are better than none.
  [[nodiscard]] bool first() const { return first_; }

 private:
  static constexpr std::intptr_t kNone = -1;

  std::intptr_t handle_ = kNone;
  bool first_ = true;
};

}  // namespace pv
