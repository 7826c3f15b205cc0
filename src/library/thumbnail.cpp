#include "library/thumbnail.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "raster/stretch.h"

namespace pv {
namespace {

constexpr std::size_t kWordBytes = sizeof(std::uint32_t);
constexpr std::uint32_t kOpaque = 0xFF000000;

std::size_t area(std::int32_t width, std::int32_t height) {
  return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

ConstPixelBlock blockOf(std::span<const std::uint32_t> words, std::int32_t width,
                        std::int32_t height, std::int32_t rowWords) {
  return {std::as_bytes(words), width, height, static_cast<std::size_t>(rowWords) * kWordBytes,
          PixelFormat::Argb32};
}

std::optional<BmpPicture> stretched(const ConstPixelBlock& from, std::int32_t width,
                                    std::int32_t height) {
  BmpPicture picture{width, height, std::vector<std::uint32_t>(area(width, height))};
  const PixelBlock to{std::as_writable_bytes(std::span(picture.words)), width, height,
                      static_cast<std::size_t>(width) * kWordBytes, PixelFormat::Argb32};
  if (!Stretch_Any2Any(to, from)) {
    return std::nullopt;
  }
  return picture;
}

/// The picture's size inside 96 x 72, at least one pixel each way.
void shrinkToFit(std::int32_t& width, std::int32_t& height) {
  const std::int64_t w = width;
  const std::int64_t h = height;
  if (w <= kThumbnailWidth && h <= kThumbnailHeight) {
    return;
  }
  const bool wide = w * kThumbnailHeight >= h * kThumbnailWidth;
  const std::int64_t fittedWidth = wide ? kThumbnailWidth : w * kThumbnailHeight / h;
  const std::int64_t fittedHeight = wide ? h * kThumbnailWidth / w : kThumbnailHeight;
  width = static_cast<std::int32_t>(std::max<std::int64_t>(fittedWidth, 1));
  height = static_cast<std::int32_t>(std::max<std::int64_t>(fittedHeight, 1));
}

}  // namespace

std::optional<BmpPicture> makeThumbnail(std::span<const std::uint32_t> frame, std::int32_t width,
                                        std::int32_t height) {
  if (width < 1 || height < 1 || frame.size() < area(width, height)) {
    return std::nullopt;
  }
  const std::int64_t w = width;
  const std::int64_t h = height;
  const auto across = static_cast<std::int32_t>(std::clamp<std::int64_t>(h * 4 / 3, 1, w));
  const auto up = static_cast<std::int32_t>(std::clamp<std::int64_t>(w * 3 / 4, 1, h));
  const std::size_t first =
      area(width, (height - up) / 2) + static_cast<std::size_t>((width - across) / 2);
  auto picture = stretched(blockOf(frame.subspan(first), across, up, width), kThumbnailWidth,
                           kThumbnailHeight);
  if (picture) {
    for (std::uint32_t& word : picture->words) {
      word |= kOpaque;
    }
  }
  return picture;
}

BmpPicture fitThumbnail(const BmpPicture& picture) {
  BmpPicture fitted{kThumbnailWidth, kThumbnailHeight,
                    std::vector<std::uint32_t>(area(kThumbnailWidth, kThumbnailHeight))};
  if (picture.width < 1 || picture.height < 1 ||
      picture.words.size() < area(picture.width, picture.height)) {
    return fitted;
  }
  std::int32_t width = picture.width;
  std::int32_t height = picture.height;
  shrinkToFit(width, height);
  const auto inner = stretched(blockOf(picture.words, picture.width, picture.height, picture.width),
                               width, height);
  if (!inner) {
    return fitted;
  }
  const std::size_t first = area(kThumbnailWidth, (kThumbnailHeight - height) / 2) +
                            static_cast<std::size_t>((kThumbnailWidth - width) / 2);
  for (std::int32_t y = 0; y < height; ++y) {
    std::copy_n(
        inner->words.begin() + static_cast<std::ptrdiff_t>(area(width, y)), width,
        fitted.words.begin() + static_cast<std::ptrdiff_t>(first + area(kThumbnailWidth, y)));
  }
  return fitted;
}

}  // namespace pv
