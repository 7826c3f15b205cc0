#pragma once

#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "raster/raster_canvas.h"

namespace pv {

using Picture = std::vector<std::string>;

/// A small black canvas with white as its colour, between two runs of guard
/// words that must still stand when the board goes.
class Board {
 public:
  Board(int width, int height)
      : words_(static_cast<std::size_t>(width * height) + 2 * kGuards, kGuard),
        canvas(words_.data() + kGuards, width, height) {
    canvas.clear(0);
    canvas.setColour(0xFFFFFF);
  }
  ~Board() {
    for (std::size_t i = 0; i < kGuards; ++i) {
      EXPECT_EQ(words_[i], kGuard) << "written before the block";
      EXPECT_EQ(words_[words_.size() - 1 - i], kGuard) << "written behind the block";
    }
  }
  Board(const Board&) = delete;
  Board& operator=(const Board&) = delete;
  bool operator==(const Board& other) const { return words_ == other.words_; }

  [[nodiscard]] std::uint32_t& at(std::int64_t x, std::int64_t y) {
    return canvas.pixels[y * canvas.width + x];
  }
  /// Top row first: '.' black, '#' white, '?' anything else.
  [[nodiscard]] Picture picture() {
    Picture rows;
    for (int y = canvas.height - 1; y >= 0; --y) {
      std::string row;
      for (int x = 0; x < canvas.width; ++x) {
        const std::uint32_t word = at(x, y);
        row += word == 0xFF000000U ? '.' : (word == 0xFFFFFFFFU ? '#' : '?');
      }
      rows.push_back(row);
    }
    return rows;
  }

 private:
  static constexpr std::size_t kGuards = 64;
  static constexpr std::uint32_t kGuard = 0x5AFEB10CU;

  std::vector<std::uint32_t> words_;

 public:
  RasterCanvas canvas;
};

}  // namespace pv
