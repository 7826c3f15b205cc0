#pragma once

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace pv {

/// An empty folder that goes away with its contents.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    do {
      const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
      path_ = std::filesystem::temp_directory_path() / ("pv-test-" + std::to_string(ticks));
    } while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  /// What stands in the folder, in order, with blanks between.
  [[nodiscard]] std::string names() const {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      found.push_back(entry.path().filename().string());
    }
    std::sort(found.begin(), found.end());
    std::string text;
    for (const auto& name : found) {
      text += (text.empty() ? "" : " ") + name;
    }
    return text;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace pv
