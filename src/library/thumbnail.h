#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "util/bmp_file.h"

namespace pv {

inline constexpr std::int32_t kThumbnailWidth = 96;
inline constexpr std::int32_t kThumbnailHeight = 72;

/// A 96 x 72 opaque picture of a frame (0x..RRGGBB, bottom row first): the
/// largest 4:3 part around its centre, averaged in whole numbers, so that it is
/// the same on every machine. A smaller frame's pixels are repeated. None when a
/// side is below 1 or `frame` holds fewer than width * height words.
[[nodiscard]] std::optional<BmpPicture> makeThumbnail(std::span<const std::uint32_t> frame,
                                                      std::int32_t width, std::int32_t height);

/// Any picture inside 96 x 72, centred: shrunk in proportion where it is larger,
/// never enlarged; the rest is transparent (0). Empty pictures stay empty.
[[nodiscard]] BmpPicture fitThumbnail(const BmpPicture& picture);

}  // namespace pv
