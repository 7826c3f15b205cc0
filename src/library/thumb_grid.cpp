#include "library/thumb_grid.h"

#include <algorithm>
#include <array>
#include <limits>

#include "library/thumbnail.h"
#include "util/ascii.h"

namespace pv {
namespace {

constexpr std::int32_t kPictureTop = 8;

std::int32_t atLeastOne(std::int32_t size) {
  return std::max(size, 1);
}

std::int32_t saturated(std::int64_t value) {
  constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(value, kLowest, kHighest));
}

}  // namespace

std::int32_t ThumbGrid::columns() const {
  return atLeastOne(clientWidth / atLeastOne(cellWidth));
}

std::int32_t ThumbGrid::rows() const {
  const std::int32_t items = std::max(count, 0);
  return items / columns() + (items % columns() == 0 ? 0 : 1);
}

std::int32_t ThumbGrid::contentHeight() const {
  return saturated(std::int64_t{rows()} * atLeastOne(cellHeight));
}

std::int32_t ThumbGrid::maxScroll() const {
  return std::max(contentHeight() - std::max(clientHeight, 0), 0);
}

TagBox ThumbGrid::cell(std::int32_t index) const {
  const std::int64_t left = std::int64_t{index % columns()} * atLeastOne(cellWidth);
  const std::int64_t top = std::int64_t{index / columns()} * atLeastOne(cellHeight) - scroll;
  return {saturated(left), saturated(top), saturated(left + atLeastOne(cellWidth)),
          saturated(top + atLeastOne(cellHeight))};
}

TagBox ThumbGrid::picture(std::int32_t index) const {
  const TagBox box = cell(index);
  const std::int64_t left = box.left + (std::int64_t{cellWidth} - kThumbnailWidth) / 2;
  const std::int64_t top = std::int64_t{box.top} + kPictureTop;
  return {saturated(left), saturated(top), saturated(left + kThumbnailWidth),
          saturated(top + kThumbnailHeight)};
}

ThumbGrid::Range ThumbGrid::visible() const {
  const std::int64_t height = atLeastOne(cellHeight);
  const std::int64_t top = std::max(scroll, 0);
  const std::int64_t bottom = std::int64_t{scroll} + std::max(clientHeight, 0);
  const auto item = [this](std::int64_t row) {
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(row * columns(), 0, std::max(count, 0)));
  };
  const Range range{item(top / height), item((bottom + height - 1) / height)};
  return range.first < range.last ? range : Range{};
}

std::int32_t ThumbGrid::hitTest(std::int32_t x, std::int32_t y) const {
  const std::int64_t down = std::int64_t{y} + scroll;
  const std::int32_t column = x / atLeastOne(cellWidth);
  if (x < 0 || down < 0 || column >= columns()) {
    return -1;
  }
  const std::int64_t index = down / atLeastOne(cellHeight) * columns() + column;
  return index < count ? static_cast<std::int32_t>(index) : -1;
}

std::int32_t ThumbGrid::moved(std::int32_t selected, GridKey key) const {
  if (count < 1) {
    return -1;
  }
  const std::int64_t last = count - 1;
  if (selected < 0) {
    return key == GridKey::End ? static_cast<std::int32_t>(last) : 0;
  }
  const std::int64_t row = columns();
  const std::int64_t page = row * atLeastOne(clientHeight / atLeastOne(cellHeight));
  // In the order of the keys. A step up or down that leaves the list is not made;
  // the others end at the first or last item.
  const std::array<std::int64_t, 8> steps{-1, 1, -row, row, -last, last, -page, page};
  const std::int64_t from = std::min<std::int64_t>(selected, last);
  const std::int64_t to = from + steps.at(static_cast<std::size_t>(key));
  const bool vertical = key == GridKey::Up || key == GridKey::Down;
  if (vertical && (to < 0 || to > last)) {
    return static_cast<std::int32_t>(from);
  }
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(to, 0, last));
}

std::int32_t ThumbGrid::scrollToShow(std::int32_t index) const {
  const std::int64_t height = atLeastOne(cellHeight);
  const std::int64_t top = index / columns() * height;
  const std::int64_t lowest = top + height - std::max(clientHeight, 0);
  // Where a whole cell does not fit, its upper edge counts.
  return saturated(std::min(std::max<std::int64_t>(scroll, lowest), top));
}

std::int32_t typeAhead(std::span<const std::string> names, std::int32_t from,
                       std::string_view typed) {
  const std::size_t count = names.size();
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t at = (static_cast<std::size_t>(std::max(from, 0)) + i) % count;
    if (equalIgnoringCase(std::string_view(names[at]).substr(0, typed.size()), typed)) {
      return static_cast<std::int32_t>(at);
    }
  }
  return -1;
}

}  // namespace pv
