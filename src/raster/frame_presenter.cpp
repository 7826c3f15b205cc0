#include "raster/frame_presenter.h"

#include <cstddef>

#include "raster/pixel_words.h"

namespace pv {

namespace {

constexpr std::int32_t kSmallestWidth = 4;
constexpr std::int32_t kLargestWidth = 20'000'000;

}  // namespace

FramePresenter::Outcome FramePresenter::present(std::span<const std::uint32_t> frame,
                                                std::int32_t width, std::int32_t height) {
  if (width < kSmallestWidth || width > kLargestWidth || height < 1) {
    return Outcome::Refused;
  }
  const std::uint64_t count =
      static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
  if (frame.size() < count) {
    return Outcome::Refused;
  }
  Outcome outcome = Outcome::Copied;
  if (width != width_ || height != height_) {
    bits_ = std::vector<std::uint32_t>(static_cast<std::size_t>(count));
    width_ = width;
    height_ = height;
    outcome = Outcome::Recreated;
  }
  const auto row = static_cast<std::size_t>(width);
  for (std::size_t at = 0; at < bits_.size(); at += row) {
    MMXcpy(&bits_[bits_.size() - row - at], &frame[at], row * sizeof(std::uint32_t));
  }
  return outcome;
}

}  // namespace pv
