#include "library/tag_layout.h"

#include <algorithm>
#include <cmath>

#include "library/tag_cloud.h"

namespace pv {
namespace {

constexpr std::int32_t kRowHeight = 20;
constexpr std::int32_t kGap = 10;
constexpr std::int32_t kMiddle = 11;       ///< from a row's top to the names' middle
constexpr double kHeightShare = 1.75;      ///< lets sizes share a base line
constexpr std::int32_t kWidest = 1 << 20;  ///< of a text; keeps sums far from overflow

struct Faces {
  std::uint32_t text;
  std::uint32_t face;
};

Faces facesOf(TagState state, const TagColours& colours) {
  switch (state) {
    case TagState::Selected:
      return {colours.selectedContrast, colours.selected};
    case TagState::Excluded:
      return {colours.selected, colours.selectedContrast};
    case TagState::None:
      break;
  }
  return {colours.text, colours.background};
}

TextExtent cut(TextExtent extent) {
  return {std::clamp(extent.width, 0, kWidest), std::clamp(extent.height, 0, kWidest)};
}

}  // namespace

TagColours tagColours(const ColourScheme& scheme) {
  return {scheme.background,
          contrastColour(scheme.background),
          contrastColour(scheme.selected),
          scheme.text,
          scheme.selected,
          scheme.button};
}

std::int32_t TagWeights::fontIndex(std::int32_t weight) const {
  constexpr double kLargest = kTagFontHeights.size() - 1;
  const double above = (static_cast<double>(weight) - minimum) / step;
  return static_cast<std::int32_t>(std::clamp(std::trunc(above), 0.0, kLargest));
}

TagLayout CTagCloud::layout(std::int32_t clientWidth, std::int32_t clientTop,
                            const MeasureTagText& measure) {
  TagLayout layout;
  layout.items.reserve(entries_.size());
  std::int32_t x = 0;
  std::int32_t rowTop = clientTop;
  std::int32_t bottom = clientTop;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    TagEntry& tag = entries_[i];
    const std::int32_t fontIndex = weights_.fontIndex(tag.weight);
    const TextExtent extent = cut(measure(fontIndex, tag.name));
    if (x + extent.width + kGap > clientWidth) {
      x = 0;
      rowTop += kRowHeight;
    }
    const std::int32_t y =
        rowTop + kMiddle - static_cast<std::int32_t>(extent.height / kHeightShare);
    tag.box = {x, y, x + extent.width + kGap, y + kRowHeight};
    const Faces faces = facesOf(tag.state, colours_);
    layout.items.push_back({static_cast<std::int32_t>(i), tag.name, fontIndex, x, y, extent,
                            tag.box, faces.text, faces.face});
    bottom = std::max({bottom, tag.box.bottom, y + extent.height});
    x = tag.box.right;
  }
  layout.neededHeight = bottom - clientTop;
  return layout;
}

}  // namespace pv
