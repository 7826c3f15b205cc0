#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

#include "shape/shape_record.h"
#include "util/result.h"

namespace pv {

inline constexpr std::uint16_t kShapeFileVersion = 4934;
inline constexpr std::size_t kShapeFileBytes = 6494;
/// Byte at which the path begins.
inline constexpr std::size_t kShapePathOffset = 174;

/// The 6494 bytes of a shape file.
[[nodiscard]] std::vector<std::byte> encodeShapeFile(const ShapeRecord& shape);

/// All or nothing: refuses a wrong version word, fewer than 6494 bytes and a
/// path count outside 0..512. Other values are kept whatever they are; further
/// bytes are ignored.
[[nodiscard]] Result<ShapeRecord> decodeShapeFile(std::span<const std::byte> bytes);

/// Reads the file under the name as given, extension included.
[[nodiscard]] Result<ShapeRecord> LoadShapeFile(const std::filesystem::path& file);

/// Writes `name` + ".j3d".
[[nodiscard]] Status SaveShapeFile(const std::filesystem::path& name, const ShapeRecord& shape);

}  // namespace pv
