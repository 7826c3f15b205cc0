#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace pv {

/// A pixel position; y grows upward inside a canvas.
struct PixelPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;

  bool operator==(const PixelPoint&) const = default;
};

/// Drawing context over a block of 32-bit pixels, 0xAARRGGBB, that somebody
/// else owns: `width` words a row, row 0 first and at the bottom of the picture.
/// Every primitive clips first and then writes unchecked; none fails. Drawing
/// changes the pixels and not the canvas, as with a span, so it is const. Colours
/// are passed as 0x00RRGGBB and stored opaque.
class RasterCanvas {
 public:
  /// `pixels` holds at least width * height words. A size below 1 makes an empty
  /// canvas, 0 x 0, on which nothing is drawn.
  RasterCanvas(std::uint32_t* pixels, std::int32_t width, std::int32_t height);

  std::uint32_t* pixels = nullptr;
  std::uint32_t colour = 0xFF000000U;
  std::int32_t thickness = 1;  ///< rings of the ring primitive
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t cursorX = 0;
  std::int32_t cursorY = 0;
  std::int32_t textScale = 1;  ///< pixels a font dot; text is drawn from 1 up

  void setColour(std::uint32_t rgb) { colour = rgb | 0xFF000000U; }

  void clear(std::uint32_t rgb) const;

  /// Pixels with x1 <= x < x2 and y2 <= y < y1, in `rgb`.
  void fillRectangle(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                     std::uint32_t rgb) const;
  /// The same area in the current colour, but a box with x1 > width, y1 > height,
  /// x2 < 0 or y2 < 0 draws nothing, so one that sticks out above or below is lost.
  void filledBox(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2) const;
  /// filledBox after ordering the corners so that x1 <= x2 and y1 >= y2.
  void orderedFilledBox(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2) const;
  /// Row y1 and column x2 in `topRight`, row y2 and column x1 in `bottomLeft`;
  /// both colours are 0x00BBGGRR.
  void bevelFrame(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                  std::uint32_t topRight, std::uint32_t bottomLeft) const;

  /// Half-sizes and radii between 0 and 1 give the single pixel (x, y). Otherwise
  /// a dot fills the truncated box x - r <= x' < x + r, and likewise in y; a disc
  /// or circle has the truncated radius, each disc row without its right end.
  /// The additive forms add `colour` byte by byte, saturating. NaN draws nothing.
  void squareDot(std::int32_t x, std::int32_t y, float halfSize) const;
  void additiveSquareDot(std::int32_t x, std::int32_t y, float halfSize) const;
  void filledDisc(std::int32_t x, std::int32_t y, float radius) const;
  void additiveDisc(std::int32_t x, std::int32_t y, float radius) const;
  void circle(std::int32_t x, std::int32_t y, std::int32_t radius) const;
  /// Circles of radius, radius - 1, ... `thickness` of them.
  void ring(std::int32_t x, std::int32_t y, std::int32_t radius) const;

  /// A horizontal line leaves out its right end pixel; every other line has
  /// both ends. Clipped at most once an axis; what is still outside is dropped.
  void line(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2) const;
  void moveTo(std::int32_t x, std::int32_t y);
  void lineTo(std::int32_t x, std::int32_t y);
  void polyline(std::span<const PixelPoint> points);
  void triangle(PixelPoint a, PixelPoint b, PixelPoint c);

  /// 7-bit text with its lower left corner at (x, y), 8 * textScale pixels a
  /// character. Codes above 127 are drawn as blanks. Dots that reach into the
  /// topmost row or the rightmost column are left out.
  void text(std::int32_t x, std::int32_t y, std::string_view characters) const;

  /// The words of row `y` with x1 <= x < x2, cut to the canvas; often none.
  [[nodiscard]] std::span<std::uint32_t> clippedRow(std::int64_t y, std::int64_t x1,
                                                    std::int64_t x2) const {
    const std::int64_t from = std::max<std::int64_t>(x1, 0);
    const std::int64_t to = std::min<std::int64_t>(x2, width);
    if (y < 0 || y >= height || from >= to) {
      return {};
    }
    return {pixels + y * width + from, static_cast<std::size_t>(to - from)};
  }
};

}  // namespace pv
