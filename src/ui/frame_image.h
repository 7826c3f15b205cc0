#pragma once

#include <cstdint>
#include <span>

#include <QImage>
#include <QRect>
#include <QTransform>

namespace pv {

/// An image of `words` (0xAARRGGBB, top row first, width * height) without a copy: good
/// as long as they stay where they are.
[[nodiscard]] QImage imageOver(std::span<const std::uint32_t> words, int width, int height);

/// Puts `words` (0xAARRGGBB, bottom row first, width * height) into an image, top
/// row first; the image's memory is used again where the size fits.
void copyFrame(std::span<const std::uint32_t> words, int width, int height, QImage& image);

/// The pixels of the device that a widget of this size covers. Edges are rounded,
/// not sizes, so that no row is doubled or lost at fractional scales.
[[nodiscard]] QRect deviceArea(const QTransform& toDevice, QSize widget);

}  // namespace pv
