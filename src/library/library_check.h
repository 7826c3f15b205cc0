#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "library/library_place.h"
#include "util/result.h"

namespace pv {

enum class FindingKind : std::uint8_t {
  MissingFolder,  ///< thumbs, tagdb or tags
  DataDoesNotLoad,
  MissingThumbnail,
  BadThumbnail,    ///< it is there and cannot be read as a picture
  UnreadableList,  ///< a ".tag" or ".tdb" file
  MissingLink,     ///< the file names the tag, the tag not the file
  MissingTag,      ///< the tag names the file, the file not the tag
  DanglingLink,    ///< the tag names a file that is not there
  LostCompanion,   ///< ".tdb" or thumbnail of a file that is not there
  ForeignFile,     ///< of no kind that belongs into the folder
  InvalidName,     ///< cannot be a file's name on every system
  TooManyTags,
};

struct Finding {
  FindingKind kind = FindingKind::ForeignFile;
  std::string file;  ///< program path below the library's folder: tags\red.tag
  std::string text;  ///< one sentence part, no full stop

  bool operator==(const Finding&) const = default;
};

/// A short name for a script to look for: "dangling-link".
[[nodiscard]] std::string_view findingName(FindingKind kind);

/// True for faults that rebuilding the links from the ".tdb" files repairs.
[[nodiscard]] bool isRepairedByReconstruction(FindingKind kind);

/// Loads one data file, only to see whether that works.
using LoadDataFile = std::function<Status(const std::filesystem::path& file)>;

/// Everything that is wrong with a library, folder by folder in byte order.
/// Reads only. Backups and temporary files of interrupted saves are no faults.
[[nodiscard]] std::vector<Finding> checkLibrary(const LibraryPlace& place,
                                                const LoadDataFile& loadData);

}  // namespace pv
