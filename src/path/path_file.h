#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

#include "path/path_record.h"
#include "util/result.h"

namespace pv {

inline constexpr std::uint16_t kPathFileVersion = 4916;
inline constexpr std::size_t kPathFileBytes = 2 + kPathRecordBytes;

/// The 6150 bytes of a path file.
[[nodiscard]] std::vector<std::byte> encodePathFile(const PathRecord& path);

/// Refuses a wrong version word, fewer than 6150 bytes and a count outside
/// 0..512; further bytes are ignored.
[[nodiscard]] Result<PathRecord> decodePathFile(std::span<const std::byte> bytes);

/// Reads the file under the name as given, extension included.
[[nodiscard]] Result<PathRecord> LoadPathFile(const std::filesystem::path& file);

/// Writes `name` + ".j2d".
[[nodiscard]] Status SavePathFile(const std::filesystem::path& name, const PathRecord& path);

}  // namespace pv
