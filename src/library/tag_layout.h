#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "util/colour_scheme.h"

namespace pv {

/// "Verdana", weight 400; in pixels of 96 dpi, for the font indexes 0..5.
inline constexpr std::string_view kTagFontName = "Verdana";
inline constexpr std::array<std::int32_t, 6> kTagFontHeights{12, 14, 17, 19, 20, 21};

/// Client coordinates; right and bottom lie outside.
struct TagBox {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  [[nodiscard]] constexpr bool contains(std::int32_t x, std::int32_t y) const {
    return x >= left && x < right && y >= top && y < bottom;
  }
  bool operator==(const TagBox&) const = default;
};

struct TextExtent {
  std::int32_t width = 0;
  std::int32_t height = 0;
};
/// Measures a text (UTF-8) in one of the six fonts.
using MeasureTagText = std::function<TextExtent(std::int32_t fontIndex, std::string_view text)>;

/// One tag to draw: the face fills the text's own rectangle, the name stands
/// with its upper left corner at x, y.
struct TagDrawItem {
  std::int32_t index = 0;  ///< of the tag
  std::string text;
  std::int32_t fontIndex = 0;
  std::int32_t x = 0;
  std::int32_t y = 0;
  TextExtent extent;
  TagBox box;                    ///< what a click hits
  std::uint32_t textColour = 0;  ///< 0x00RRGGBB
  std::uint32_t faceColour = 0;

  [[nodiscard]] std::int32_t fontHeight() const {
    return kTagFontHeights.at(static_cast<std::size_t>(fontIndex));
  }
};

struct TagLayout {
  std::vector<TagDrawItem> items;
  std::int32_t neededHeight = 0;  ///< of everything, for scrolling
};

/// What the cloud paints itself with, all as 0x00RRGGBB.
struct TagColours {
  std::uint32_t background = 0x464646;
  std::uint32_t contrast = 0xFFFFFF;  ///< black, or white on a dark background
  std::uint32_t selectedContrast = 0xFFFFFF;
  std::uint32_t text = 0xAAAAAA;
  std::uint32_t selected = 0xF07800;
  std::uint32_t button = 0x9B9B9B;

  bool operator==(const TagColours&) const = default;
};
[[nodiscard]] TagColours tagColours(const ColourScheme& scheme);

/// What the sizes of all tags are measured against.
struct TagWeights {
  std::int32_t minimum = 0;
  std::int32_t maximum = 0;
  double step = 1.0 / 6.0;  ///< (maximum - minimum + 1) / 6

  /// 0..5, whatever the weight.
  [[nodiscard]] std::int32_t fontIndex(std::int32_t weight) const;
  bool operator==(const TagWeights&) const = default;
};

}  // namespace pv
