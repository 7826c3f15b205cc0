#pragma once

#include <cstddef>
#include <cstdint>

namespace pv {

/// Fills `count` consecutive words with `value`.
void MMXDWORDset(std::uint32_t* dest, std::uint32_t value, std::size_t count);

/// Adds `value` to `count` consecutive words, each of the four bytes on its own
/// and saturating at 255.
void MMXAddDWORDSaturation(std::uint32_t* dest, std::uint32_t value, std::size_t count);

/// Either of the above: how a primitive puts its colour down.
using WordOperation = void (*)(std::uint32_t* dest, std::uint32_t value, std::size_t count);

/// Copies `bytes` bytes between blocks that do not overlap.
void MMXcpy(void* dest, const void* src, std::size_t bytes);

}  // namespace pv
