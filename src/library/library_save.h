#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "library/library_place.h"
#include "library/tag_cloud.h"
#include "util/bmp_file.h"
#include "util/result.h"

namespace pv {

/// Writes the data file: gets its path on the system without the extension,
/// which the writer appends.
using WriteDataFile = std::function<Status(const std::filesystem::path& name)>;

/// What a save came to. An empty name: nothing was written.
struct SaveReport {
  std::string name;
  std::optional<Error> thumbnailFailure;
  std::optional<Error> dataFailure;
  /// Where an older data file that bore the name already was moved to.
  std::string backupFile;
  bool tagsSaved = true;  ///< false when some ".tag" file could not be written

  [[nodiscard]] bool saved() const { return !name.empty() && !dataFailure; }
};

/// First half, when Save is pressed: chooses the numbered name, writes its ".tdb"
/// with the selected tags and links it to them in memory. Empty, with nothing
/// written, when the core name or the folder is empty, the folder of thumbnails
/// is missing or the name could not stand in a folder.
[[nodiscard]] std::string beginSave(const LibraryPlace& place, std::string_view coreName,
                                    CTagCloud& cloud);

/// Second half: thumbnail, then data file, each also when the other fails. A data
/// file that bears the name already is first renamed to name.j3d.bak, .bak2, …
/// and put back when the new one cannot be written. Nothing for an empty name.
[[nodiscard]] SaveReport finishSave(const LibraryPlace& place, std::string_view name,
                                    const BmpPicture& thumbnail, const WriteDataFile& writeData);

/// Both halves and, as the mode is left, every ".tag" file.
[[nodiscard]] SaveReport saveToLibrary(const LibraryPlace& place, std::string_view coreName,
                                       CTagCloud& cloud, const BmpPicture& thumbnail,
                                       const WriteDataFile& writeData);

}  // namespace pv
