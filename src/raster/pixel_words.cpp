#include "raster/pixel_words.h"

#include <algorithm>
#include <cstring>

namespace pv {

namespace {

// Four byte sums in one word. The low seven bits of each byte are added without
// a carry into its neighbour, the top bits by exclusive or; a byte whose sum
// left its eight bits is then set to 255. Plain word operations, so that the
// loop below becomes vector code everywhere.
constexpr std::uint32_t addSaturated(std::uint32_t a, std::uint32_t b) {
  constexpr std::uint32_t kLowBits = 0x7F7F7F7FU;
  constexpr std::uint32_t kTopBits = 0x80808080U;
  const std::uint32_t sum = ((a & kLowBits) + (b & kLowBits)) ^ ((a ^ b) & kTopBits);
  const std::uint32_t overflowed = (((a & b) | ((a | b) & ~sum)) & kTopBits) >> 7U;
  return sum | ((overflowed << 8U) - overflowed);
}

}  // namespace

void MMXDWORDset(std::uint32_t* dest, std::uint32_t value, std::size_t count) {
  std::fill_n(dest, count, value);
}

void MMXAddDWORDSaturation(std::uint32_t* dest, std::uint32_t value, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    dest[i] = addSaturated(dest[i], value);
  }
}

void MMXcpy(void* dest, const void* src, std::size_t bytes) {
  if (bytes != 0) {  // empty blocks may come with null pointers
    std::memcpy(dest, src, bytes);
  }
}

}  // namespace pv
