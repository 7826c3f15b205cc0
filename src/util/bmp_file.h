#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "util/result.h"

namespace pv {

/// Pixels as 0xAARRGGBB, the bottom row first, as frames are.
struct BmpPicture {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::vector<std::uint32_t> words;  ///< width * height

  bool operator==(const BmpPicture&) const = default;
};

inline constexpr std::size_t kBmpFileHeaderBytes = 14;
inline constexpr std::size_t kBmpInfoHeaderBytes = 40;
/// Pictures from outside with a longer side are refused, and larger files not read.
inline constexpr std::int32_t kMaxBmpSide = 4096;
inline constexpr std::size_t kMaxBmpFileBytes = std::size_t{1} << 26;

/// The file's depth for a bitmap of that many planes and bits a pixel: their
/// product rounded up to 1, 4, 8, 16, 24 or 32; more than 24 is 32.
[[nodiscard]] std::uint16_t bmpDepth(std::uint32_t planes, std::uint32_t bitsPerPixel);
/// Entries of the colour table: 2 to the power of the depth below 24, else none.
[[nodiscard]] std::uint32_t bmpColourCount(std::uint16_t depth);
/// Bytes of the pixels, each row filled up to four bytes. Sides of 0 and up.
[[nodiscard]] std::size_t bmpImageBytes(std::uint16_t depth, std::int32_t width,
                                        std::int32_t height);

/// A file of any of the six depths, bottom-up, from pixels that are laid out as
/// in the file. The colour table (0x00RRGGBB) and the pixels are cut or filled
/// with zeros to the sizes above. Sides of 0..kMaxBmpSide.
[[nodiscard]] std::vector<std::byte> encodeDib(std::uint16_t depth, std::int32_t width,
                                               std::int32_t height,
                                               std::span<const std::uint32_t> colours,
                                               std::span<const std::byte> pixels);

/// A 24-bit file; alpha is dropped, missing words are black. Sides of 0..kMaxBmpSide.
[[nodiscard]] std::vector<std::byte> encodeBmp(const BmpPicture& picture);

/// Uncompressed pictures of 1, 4, 8, 16, 24 and 32 bits, bottom-up and top-down;
/// the result is opaque. Every size is checked before memory is asked for: a
/// file that is cut short, compressed or too large is refused as bad data.
[[nodiscard]] Result<BmpPicture> decodeBmp(std::span<const std::byte> bytes);

/// Replaces what is there, whole or not at all.
[[nodiscard]] Status writeBmpFile(const std::filesystem::path& file, const BmpPicture& picture);
[[nodiscard]] Result<BmpPicture> readBmpFile(const std::filesystem::path& file);

/// What a message box says after writeBmpFile failed.
[[nodiscard]] std::string bmpFailureText(const Error& error);

}  // namespace pv
