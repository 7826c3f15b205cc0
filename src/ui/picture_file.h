#pragma once

#include <cstddef>
#include <filesystem>
#include <span>

#include <QImage>

namespace pv {

/// Of pictures and cursors; larger files count as broken.
inline constexpr std::size_t kMaxPictureFile = std::size_t{4} << 20U;

/// A null image where the bytes are no picture. Both need no application object.
[[nodiscard]] QImage decodePicture(std::span<const std::byte> bytes);
[[nodiscard]] QImage readPicture(const std::filesystem::path& file);

}  // namespace pv
