#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "cli/cli_run.h"
#include "path/path_record.h"
#include "shape/shape_record.h"
#include "util/result.h"

namespace pv {

// Files by the names that the user gave, in UTF-8; every error bears that very name.

struct LoadedDocument {
  std::variant<ShapeRecord, PathRecord> content;
  std::size_t bytesUsed = 0;
  bool extraBytes = false;  ///< the file goes on behind them
};

/// A shape or a path, whichever the version word says.
[[nodiscard]] Result<LoadedDocument> loadDocument(const std::string& name);
[[nodiscard]] Result<ShapeRecord> loadShape(const std::string& name);
[[nodiscard]] Result<PathRecord> loadPath(const std::string& name);

/// Whole or not at all.
[[nodiscard]] Status saveFile(const std::string& name, std::span<const std::byte> bytes);

/// Reports a usage error and says false unless the name ends in `suffix`.
bool checkOutputName(const std::string& name, std::string_view suffix, CliRun& run);

}  // namespace pv
