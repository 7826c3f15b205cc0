#include "raster/bitmap_font.h"
#include "raster/pixel_words.h"
#include "raster/raster_canvas.h"

namespace pv {

namespace {

// A block of scale x scale pixels a dot; blocks that would leave the canvas, or
// touch its last row or column, are skipped whole.
void drawGlyph(const RasterCanvas& canvas, const Glyph& glyph, std::int64_t left,
               std::int64_t bottom) {
  const std::int64_t scale = canvas.textScale;
  const auto side = static_cast<std::size_t>(scale);
  std::int64_t y = bottom;
  for (auto bits = glyph.rbegin(); bits != glyph.rend(); ++bits, y += scale) {
    if (*bits == 0 || y < 0 || y >= canvas.height - scale) {
      continue;
    }
    for (int column = 0; column < kGlyphWidth; ++column) {
      const std::int64_t x = left + column * scale;
      if ((*bits & (0x80U >> column)) == 0 || x < 0 || x >= canvas.width - scale) {
        continue;
      }
      for (std::int64_t row = y; row < y + scale; ++row) {
        MMXDWORDset(canvas.pixels + row * canvas.width + x, canvas.colour, side);
      }
    }
  }
}

}  // namespace

void RasterCanvas::text(std::int32_t x, std::int32_t y, std::string_view characters) const {
  if (textScale < 1) {
    return;
  }
  const std::int64_t advance = std::int64_t{kGlyphWidth} * textScale;
  std::int64_t left = x;
  for (const char character : characters) {
    if (left >= width) {
      return;
    }
    drawGlyph(*this, glyphOf(static_cast<unsigned char>(character)), left, y);
    left += advance;
  }
}

}  // namespace pv
