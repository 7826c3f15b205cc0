#pragma once

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
/// Every primitive clips first and then writes unchecked; none fails. Colours
/// are passed as 0x00RRGGBB and stored opaque.
class RasterCanvas {
 public:
  /// `pixels` holds at least width * height words. Sizes below 1 draw nothing.
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

  void clear(std::uint32_t rgb);

  /// Pixels with x1 <= x < x2 and y2 <= y < y1, in `rgb`.
  void fillRectangle(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                     std::uint32_t rgb);
  /// The same area in the current colour; a box wholly to the right of, above,
  /// left of or below the canvas draws nothing.
  void filledBox(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2);
  /// filledBox after ordering the corners so that x1 <= x2 and y1 >= y2.
  void orderedFilledBox(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2);
  /// Row y1 and column x2 in `topRight`, row y2 and column x1 in `bottomLeft`;
  /// both colours are 0x00BBGGRR.
  void bevelFrame(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                  std::uint32_t topRight, std::uint32_t bottomLeft);

  void squareDot(std::int32_t x, std::int32_t y, float halfSize);
  void additiveSquareDot(std::int32_t x, std::int32_t y, float halfSize);
  void filledDisc(std::int32_t x, std::int32_t y, float radius);
  void additiveDisc(std::int32_t x, std::int32_t y, float radius);
  void circle(std::int32_t x, std::int32_t y, std::int32_t radius);
  void ring(std::int32_t x, std::int32_t y, std::int32_t radius);

  /// A horizontal line leaves out its right end pixel; every other line has
  /// both ends. Clipped at most once an axis; what is still outside is dropped.
  void line(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2);
  void moveTo(std::int32_t x, std::int32_t y);
  void lineTo(std::int32_t x, std::int32_t y);
  void polyline(std::span<const PixelPoint> points);
  void triangle(PixelPoint a, PixelPoint b, PixelPoint c);

  /// 7-bit text with its lower left corner at (x, y), 8 * textScale pixels a
  /// character. Codes above 127 are drawn as blanks.
  void text(std::int32_t x, std::int32_t y, std::string_view characters);

 private:
  [[nodiscard]] std::uint32_t* row(std::int32_t y) const;
};

}  // namespace pv
