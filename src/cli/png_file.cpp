#include "cli/png_file.h"

#include <png.h>
#include <string>

namespace pv {

namespace {

// Top row first, three bytes a pixel.
std::vector<std::uint8_t> rgbRows(std::span<const std::uint32_t> frame, std::size_t width,
                                  std::size_t height) {
  std::vector<std::uint8_t> rgb;
  rgb.reserve(3 * width * height);
  for (std::size_t row = height; row-- > 0;) {
    for (const std::uint32_t pixel : frame.subspan(row * width, width)) {
      rgb.push_back(static_cast<std::uint8_t>(pixel >> 16U));
      rgb.push_back(static_cast<std::uint8_t>(pixel >> 8U));
      rgb.push_back(static_cast<std::uint8_t>(pixel));
    }
  }
  return rgb;
}

}  // namespace

Result<std::vector<std::byte>> encodePng(std::span<const std::uint32_t> frame, std::int32_t width,
                                         std::int32_t height) {
  const auto rgb =
      rgbRows(frame, static_cast<std::size_t>(width), static_cast<std::size_t>(height));
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width);
  image.height = static_cast<png_uint_32>(height);
  image.format = PNG_FORMAT_RGB;
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
  std::vector<std::byte> file(size);
  if (png_image_write_to_memory(&image, file.data(), &size, 0, rgb.data(), 0, nullptr) == 0) {
    return Error{ErrorKind::InputOutput, {}, {}, std::string("PNG: ") + image.message};
  }
  file.resize(size);
  return file;
}

}  // namespace pv
