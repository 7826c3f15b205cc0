#pragma once

#include <string>
#include <string_view>

namespace pv {

/// One library: the folder that its files stand in and what they are. All paths
/// are program paths; a name has neither folder nor extension. Only names that
/// isValidFileName accepts may be handed in.
struct LibraryPlace {
  std::string folder;     ///< without a separator at its end: root\vortex\shapes
  std::string extension;  ///< with its dot: .j3d or .j2d

  [[nodiscard]] std::string dataFile(std::string_view name) const;
  [[nodiscard]] std::string tagListFile(std::string_view name) const;    ///< tagdb\name.tdb
  [[nodiscard]] std::string thumbnailFile(std::string_view name) const;  ///< thumbs\name.bmp
  /// Each with a separator at its end.
  [[nodiscard]] std::string thumbsFolder() const { return folder + "\\thumbs\\"; }
  [[nodiscard]] std::string tagListFolder() const { return folder + "\\tagdb\\"; }
  [[nodiscard]] std::string tagsFolder() const { return folder + "\\tags\\"; }

  bool operator==(const LibraryPlace&) const = default;
};

/// True when the folder can be entered.
[[nodiscard]] bool folderExists(std::string_view path);
/// True when anything but a folder stands under the path.
[[nodiscard]] bool fileExists(std::string_view path);

/// ASCII letters only, as in every path of the program.
[[nodiscard]] std::string lowerCaseOf(std::string_view text);
/// Without the ASCII white space at both ends.
[[nodiscard]] std::string trimmedText(std::string_view text);

/// What stands in for a folder that does not exist: the root in lower case,
/// less one separator at its end.
[[nodiscard]] std::string fallbackFolder(std::string_view libraryRoot);

}  // namespace pv
