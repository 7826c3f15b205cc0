#include "support/golden.h"

#include <cstdlib>
#include <filesystem>
#include <png.h>
#include <vector>

namespace pv {

namespace {

struct Picture {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  std::vector<std::uint8_t> rgb;  // top row first
};

Picture pictureOf(std::span<const std::uint32_t> frame, std::int32_t width, std::int32_t height) {
  Picture picture{static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height), {}};
  for (std::int32_t y = height - 1; y >= 0; --y) {
    for (std::int32_t x = 0; x < width; ++x) {
      const std::uint32_t pixel = frame[static_cast<std::size_t>(y) * picture.width + x];
      for (const int shift : {16, 8, 0}) {
        picture.rgb.push_back(static_cast<std::uint8_t>(pixel >> shift));
      }
    }
  }
  return picture;
}

bool write(const std::filesystem::path& file, const Picture& picture) {
  std::filesystem::create_directories(file.parent_path());
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = picture.width;
  image.height = picture.height;
  image.format = PNG_FORMAT_RGB;
  return png_image_write_to_file(&image, file.string().c_str(), 0, picture.rgb.data(), 0,
                                 nullptr) != 0;
}

Picture read(const std::filesystem::path& file) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_file(&image, file.string().c_str()) == 0) {
    return {};
  }
  image.format = PNG_FORMAT_RGB;
  Picture picture{image.width, image.height, std::vector<std::uint8_t>(PNG_IMAGE_SIZE(image))};
  if (png_image_finish_read(&image, nullptr, picture.rgb.data(), 0, nullptr) == 0) {
    return {};
  }
  return picture;
}

}  // namespace

::testing::AssertionResult matchesGolden(std::span<const std::uint32_t> frame, std::int32_t width,
                                         std::int32_t height, const std::string& name) {
  const auto file = std::filesystem::path(PV_SOURCE_DIR) / "tests/golden" / (name + ".png");
  const Picture actual = pictureOf(frame, width, height);
  if (std::getenv("PV_UPDATE_GOLDEN") != nullptr) {
    return write(file, actual) ? ::testing::AssertionSuccess()
                               : ::testing::AssertionFailure() << "cannot write " << file;
  }
  const Picture expected = read(file);
  if (expected.rgb == actual.rgb && expected.width == actual.width) {
    return ::testing::AssertionSuccess();
  }
  const auto left = std::filesystem::path(PV_BINARY_DIR) / "golden";
  write(left / (name + ".out.png"), actual);
  if (expected.rgb.size() != actual.rgb.size()) {
    return ::testing::AssertionFailure() << file << " is missing or has another size";
  }
  Picture difference = actual;
  std::size_t differing = 0;
  for (std::size_t i = 0; i < actual.rgb.size(); ++i) {
    difference.rgb[i] = expected.rgb[i] == actual.rgb[i] ? 0 : 255;
    differing += expected.rgb[i] == actual.rgb[i] ? 0 : 1;
  }
  write(left / (name + ".diff.png"), difference);
  return ::testing::AssertionFailure()
         << differing << " bytes differ from " << file << "; see " << left;
}

}  // namespace pv
