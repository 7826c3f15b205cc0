#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace pv {

/// The files of one folder as it was listed once: asking a listing takes no time
/// where asking the disk for many missing files would search the folder for each.
class FolderNames {
 public:
  /// A folder that is missing or empty yields no names.
  FolderNames(std::string_view folder, std::string_view pattern);

  /// In byte order.
  [[nodiscard]] const std::vector<std::string>& names() const { return names_; }
  /// ASCII case is ignored.
  [[nodiscard]] bool contains(std::string_view fileName) const;

 private:
  std::vector<std::string> names_;
  std::unordered_set<std::string> lowered_;
};

/// The file name less its last four characters, which are the extension and its
/// dot; empty when it has no more than these.
[[nodiscard]] std::string_view withoutExtension(std::string_view fileName);

}  // namespace pv
