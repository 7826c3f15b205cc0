#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "cli/cli_run.h"
#include "library/library_place.h"
#include "library/tag_cloud.h"
#include "path/path_record.h"
#include "shape/shape_record.h"
#include "util/result.h"

namespace CLI {
class App;
}

namespace pv {

/// Which library a command works on, as the user named it.
struct LibraryOptions {
  std::string folder;
  std::optional<std::string> kind;
};
void addLibraryOptions(CLI::App& command, LibraryOptions& options);

/// A library that is there.
struct LibraryFolder {
  std::string name;  ///< the folder as the user wrote it, for messages
  LibraryPlace place;
  bool holdsPaths = false;

  /// Every data file without its extension, in byte order.
  [[nodiscard]] std::vector<std::string> dataNames() const;
  /// The tags; says so when there are more than a library takes.
  [[nodiscard]] CTagCloud loadTags(CliRun& run) const;
  /// For messages: the folder's name and a program path below it.
  [[nodiscard]] std::string shown(std::string_view file) const;
};

/// None after a report: no such folder, or its kind cannot be told.
[[nodiscard]] std::optional<LibraryFolder> openLibrary(const LibraryOptions& options, CliRun& run);

using LibraryDocument = std::variant<ShapeRecord, PathRecord>;
/// A data file of the library's kind; `file` is a path of the system.
[[nodiscard]] Result<LibraryDocument> loadLibraryFile(const LibraryFolder& library,
                                                      const std::filesystem::path& file);

/// Makes thumbs, tagdb or tags where it is missing. False after a report.
bool makeLibraryPart(const LibraryFolder& library, std::string_view part, CliRun& run);

}  // namespace pv
