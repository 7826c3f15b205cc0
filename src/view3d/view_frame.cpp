#include "view3d/view_frame.h"

#include <algorithm>

#include "raster/pixel_words.h"

namespace pv {

namespace {

void copyBox(const std::uint32_t* from, std::uint32_t* to, std::int32_t width,
             const PixelBox& box) {
  for (std::int32_t y = box.bottom; y < box.top; ++y) {
    const std::int64_t first = std::int64_t{y} * width + box.left;
    MMXcpy(to + first, from + first,
           static_cast<std::size_t>(box.right - box.left) * sizeof(std::uint32_t));
  }
}

}  // namespace

bool ViewFrame::begin(const BackgroundScene& scene) {
  if (isComplete_ && scene == scene_) {
    return false;
  }
  scene_ = scene;
  covered_ = {};
  kept_ = {};
  const auto size = static_cast<std::size_t>(scene.width) * static_cast<std::size_t>(scene.height);
  cells_ = FrameCells(scene.width, scene.height);
  isComplete_ = pixels_.resize(size) && background_.resize(size) && dirty_.resize(cells_.count());
  if (!isComplete_) {
    pixels_.clear();
    return false;
  }
  MMXDWORDset(pixels_.data(), 0, size);
  std::fill_n(dirty_.data(), dirty_.size(), std::uint8_t{0});
  return true;
}

// Whole cells where the size allows it.
void ViewFrame::cover(const PixelBox& drawn) {
  constexpr std::int32_t kWidth = FrameCells::kWidth;
  constexpr std::int32_t kHeight = FrameCells::kHeight;
  const PixelBox box{drawn.left / kWidth * kWidth, drawn.bottom / kHeight * kHeight,
                     std::min((drawn.right + kWidth - 1) / kWidth * kWidth, scene_.width),
                     std::min((drawn.top + kHeight - 1) / kHeight * kHeight, scene_.height)};
  if (!kept_.contains(box)) {
    keep(box);
  }
  restored_ = box.with(covered_);
  covered_ = box;
}

void ViewFrame::restore() {
  copyBox(background_.data(), pixels_.data(), scene_.width, restored_);
}

void ViewFrame::touch(const PixelBox& box) {
  constexpr std::int32_t kHeight = FrameCells::kHeight;
  for (std::int32_t y = box.bottom / kHeight * kHeight; y < box.top && !box.empty(); y += kHeight) {
    std::fill(dirty_.data() + cells_.cell(box.left, y),
              dirty_.data() + cells_.cell(box.right - 1, y) + 1, std::uint8_t{1});
  }
}

// A little more, since the next box is often a little larger. What lies in the box
// of the last frame shows its background again; that its cells still count as dirty
// only costs time.
void ViewFrame::keep(const PixelBox& box) {
  constexpr std::int32_t kMargin = 16;
  copyBox(background_.data(), pixels_.data(), scene_.width, covered_);
  kept_ = kept_.with(box);
  kept_ = {std::max(kept_.left - kMargin, 0), std::max(kept_.bottom - kMargin, 0),
           std::min(kept_.right + kMargin, scene_.width),
           std::min(kept_.top + kMargin, scene_.height)};
  copyBox(pixels_.data(), background_.data(), scene_.width, kept_);
}

}  // namespace pv
