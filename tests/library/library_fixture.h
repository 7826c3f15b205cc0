#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

#include "library/library_place.h"
#include "library/tag_cloud.h"
#include "util/program_path.h"
#include "util/temporary_folder.h"

namespace pv {

/// A shape library on the disk that goes away after the test.
class LibraryTest : public ::testing::Test {
 protected:
  LibraryTest() {
    for (const char* part : {"thumbs", "tagdb", "tags"}) {
      std::filesystem::create_directories(host(part));
    }
    place_ = {lowerCaseOf(programPath(host(""))), ".j3d"};  // as the program keeps it
    place_.folder.pop_back();
    cloud_.setFolder(place_.folder);
  }

  [[nodiscard]] std::filesystem::path host(const std::string& file) const {
    return folder_.path() / "vortex" / "shapes" / file;
  }
  void put(const std::string& file, const std::string& content) const {
    std::ofstream(host(file), std::ios::binary) << content;
  }
  [[nodiscard]] std::string get(const std::string& file) const {
    std::ifstream in(host(file), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  /// Every file below a part of the library with its bytes, CR LF as '|'; what is
  /// longer than a few lines shows as "...".
  [[nodiscard]] std::string contents(const std::string& part = "") const {
    std::vector<std::string> lines;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(host(part))) {
      if (entry.is_regular_file()) {
        const auto name = entry.path().lexically_relative(host("")).generic_string();
        std::string text = get(name);
        for (auto at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n")) {
          text.replace(at, 2, "|");
        }
        lines.push_back(name + "=" + (text.size() > 200 ? "..." : text));
      }
    }
    std::sort(lines.begin(), lines.end());
    std::string all;
    for (const auto& line : lines) {
      all += line + "\n";
    }
    return all;
  }

  /// A tag with links, in memory only.
  void tag(const std::string& name, const std::vector<std::string>& links = {}) {
    cloud_.addTag(name);
    for (const auto& link : links) {
      cloud_.linkFileToTag(link, cloud_.count() - 1);
    }
  }
  /// Lays the tags out in a column of wide rows and clicks on one of them.
  TagClickResponse clickOn(std::int32_t index, bool ctrl = false, bool alt = false) {
    cloud_.layout(100, 0, [](std::int32_t, std::string_view) { return TextExtent{80, 12}; });
    const TagBox box = cloud_.entries()[static_cast<std::size_t>(index)].box;
    return cloud_.click({box.left + 1, box.top + 3, ctrl, alt});
  }
  [[nodiscard]] std::string names() const {
    std::string text;
    for (const auto& tag : cloud_.entries()) {
      text += (text.empty() ? "" : " ") + tag.name;
    }
    return text;
  }
  [[nodiscard]] const std::vector<std::string>& links(std::int32_t index) const {
    return cloud_.entries()[static_cast<std::size_t>(index)].links;
  }
  /// One letter a tag: selected, excluded or neither.
  [[nodiscard]] std::string states() const {
    std::string text;
    for (const auto& tag : cloud_.entries()) {
      text += tag.state == TagState::Selected ? 's' : tag.state == TagState::Excluded ? 'x' : '-';
    }
    return text;
  }

  LibraryPlace place_;
  CTagCloud cloud_;

 private:
  TemporaryFolder folder_;
};

}  // namespace pv
