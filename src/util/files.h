#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

#include "util/result.h"

namespace pv {

/// The first `limit` bytes of a regular file (fewer when it is shorter).
/// Folders, devices and pipes are refused, so that reading can never hang.
[[nodiscard]] Result<std::vector<std::byte>> readFile(const std::filesystem::path& file,
                                                      std::size_t limit);

/// Writes a file whole or not at all: into a temporary file of the same folder,
/// flushed to disk, then renamed over the target. On failure the target is as
/// it was and the temporary file is gone. A target that is marked read-only is
/// not replaced. A device or pipe (such as the standard output's name) is
/// written straight.
[[nodiscard]] Status writeFile(const std::filesystem::path& file, std::span<const std::byte> bytes);

/// True for the names that writeFile gives its temporary files. An interruption
/// can leave one behind; listings skip them.
[[nodiscard]] bool isTemporaryFileName(std::string_view name);

}  // namespace pv
