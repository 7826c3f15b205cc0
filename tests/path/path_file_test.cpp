#include "path/path_file.h"

#include <bit>
#include <cstdint>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <span>
#include <vector>

#include "util/files.h"
#include "util/temporary_folder.h"

namespace pv {
namespace {

std::uint32_t wordAt(const std::vector<std::byte>& bytes, std::size_t offset) {
  std::uint32_t word = 0;
  for (std::size_t i = 4; i-- > 0;) {
    word = word << 8U | std::to_integer<std::uint32_t>(bytes.at(offset + i));
  }
  return word;
}

PathRecord fullPath() {
  PathRecord path;
  path.count = kMaxPathPoints;
  for (std::size_t i = 0; i < path.points.size(); ++i) {
    const auto v = static_cast<float>(i);
    path.points[i] = {v, -v, 0.5F * v};
  }
  return path;
}

TEST(PathFile, BytesLieWhereTheyBelong) {
  PathRecord path = fullPath();
  path.count = 2;
  const auto bytes = encodePathFile(path);
  ASSERT_EQ(bytes.size(), 6150U);
  EXPECT_EQ(bytes[0], std::byte{0x34});
  EXPECT_EQ(bytes[1], std::byte{0x13});
  EXPECT_EQ(wordAt(bytes, 2), 2U);
  for (std::size_t i = 0; i < path.points.size(); ++i) {
    const std::size_t offset = 6 + 12 * i;
    ASSERT_EQ(std::bit_cast<float>(wordAt(bytes, offset)), path.points[i].x);
    ASSERT_EQ(std::bit_cast<float>(wordAt(bytes, offset + 4)), path.points[i].y);
    ASSERT_EQ(std::bit_cast<float>(wordAt(bytes, offset + 8)), path.points[i].z);
  }
}

TEST(PathFile, RefusesWhatIsNotAPath) {
  const auto good = encodePathFile(fullPath());
  EXPECT_EQ(decodePathFile(good).value(), fullPath());
  auto longer = good;
  longer.push_back(std::byte{1});
  EXPECT_EQ(decodePathFile(longer).value(), fullPath());

  const auto refusedAt = [&good](std::size_t offset, int value) {
    auto bytes = good;
    bytes[offset] = static_cast<std::byte>(value);
    const auto path = decodePathFile(bytes);
    return path ? std::optional<std::uint64_t>() : path.error().offset;
  };
  EXPECT_EQ(refusedAt(0, 0x35), 0U);
  EXPECT_EQ(refusedAt(2, 1), 2U);     // 513
  EXPECT_EQ(refusedAt(5, 0xFF), 2U);  // negative
  EXPECT_EQ(refusedAt(3, 0), std::nullopt);
  for (const std::size_t size : {0U, 1U, 2U, 6U, 6149U}) {
    EXPECT_FALSE(decodePathFile(std::span(good).first(size))) << size;
  }
}

TEST(PathFile, SavesUnderTheNameWithItsExtension) {
  const TemporaryFolder folder;
  PathRecord empty;
  ASSERT_TRUE(SavePathFile(folder.path() / "a", fullPath()));
  ASSERT_TRUE(SavePathFile(folder.path() / "b.j2d", empty));
  EXPECT_EQ(folder.names(), "a.j2d b.j2d.j2d");
  EXPECT_EQ(LoadPathFile(folder.path() / "a.j2d").value(), fullPath());
  EXPECT_EQ(LoadPathFile(folder.path() / "b.j2d.j2d").value(), empty);
  EXPECT_EQ(LoadPathFile(folder.path() / "a").error().kind, ErrorKind::NoInput);

  const auto bad = folder.path() / "bad";
  ASSERT_TRUE(writeFile(bad, std::vector<std::byte>(6150)));
  EXPECT_EQ(LoadPathFile(bad).error().file, bad.string());
}

}  // namespace
}  // namespace pv
