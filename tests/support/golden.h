#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <span>
#include <string>

namespace pv {

/// Compares a frame (bottom row first, alpha ignored) pixel by pixel with
/// tests/golden/NAME.png. On a difference NAME.out.png and NAME.diff.png are left
/// in the build folder. With PV_UPDATE_GOLDEN=1 in the environment the frame
/// becomes the new golden picture; look at it before it is committed.
[[nodiscard]] ::testing::AssertionResult matchesGolden(std::span<const std::uint32_t> frame,
                                                       std::int32_t width, std::int32_t height,
                                                       const std::string& name);

}  // namespace pv
