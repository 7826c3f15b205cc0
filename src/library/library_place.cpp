#include "library/library_place.h"

#include <algorithm>
#include <iterator>

#include "util/ascii.h"
#include "util/folders.h"
#include "util/program_path.h"

namespace pv {
namespace {

/// The system would cut a path with a zero byte short and look at another one.
bool usable(std::string_view path) {
  return !path.empty() && path.find('\0') == std::string_view::npos;
}

}  // namespace

std::string LibraryPlace::dataFile(std::string_view name) const {
  return folder + '\\' + std::string(name) + extension;
}

std::string LibraryPlace::tagListFile(std::string_view name) const {
  return tagListFolder() + std::string(name) + ".tdb";
}

std::string LibraryPlace::thumbnailFile(std::string_view name) const {
  return thumbsFolder() + std::string(name) + ".bmp";
}

bool folderExists(std::string_view path) {
  return usable(path) && isFolder(hostPath(path));
}

bool fileExists(std::string_view path) {
  return usable(path) && entryKind(hostPath(path)) == EntryKind::File;
}

std::string lowerCaseOf(std::string_view text) {
  std::string result;
  std::transform(text.begin(), text.end(), std::back_inserter(result), asciiLower);
  return result;
}

std::string trimmedText(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\n\v\f\r";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) {
    return {};
  }
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

std::string fallbackFolder(std::string_view libraryRoot) {
  std::string folder = lowerCaseOf(libraryRoot);
  if (folder.ends_with('\\') || folder.ends_with('/')) {
    folder.pop_back();
  }
  return folder;
}

}  // namespace pv
