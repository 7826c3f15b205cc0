#include "library/folder_names.h"

#include <algorithm>

#include "library/library_place.h"
#include "util/disk_object.h"

namespace pv {

FolderNames::FolderNames(std::string_view folder, std::string_view pattern) {
  CDiskObject disk;
  disk.listFilesMatching(pattern, folder, names_);
  for (const auto& name : names_) {
    lowered_.insert(lowerCaseOf(name));
  }
}

bool FolderNames::contains(std::string_view fileName) const {
  return lowered_.contains(lowerCaseOf(fileName));
}

std::string_view withoutExtension(std::string_view fileName) {
  constexpr std::size_t kExtension = 4;
  return fileName.substr(0, fileName.size() - std::min(fileName.size(), kExtension));
}

}  // namespace pv
