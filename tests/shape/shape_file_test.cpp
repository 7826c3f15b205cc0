#include "shape/shape_file.h"

#include <bit>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace pv {
namespace {

std::uint32_t wordAt(const std::vector<std::byte>& bytes, std::size_t offset) {
  std::uint32_t word = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    word |= std::to_integer<std::uint32_t>(bytes[offset + i]) << (8 * i);
  }
  return word;
}

float floatAt(const std::vector<std::byte>& bytes, std::size_t offset) {
  return std::bit_cast<float>(wordAt(bytes, offset));
}

// A record in which no two fields hold the same value.
ShapeRecord distinctRecord() {
  ShapeRecord shape;
  shape.applyModifiersGlobally = 1;
  shape.useWorldAxis = 7;
  shape.duplicates = {101, {1.5F, 2.5F, 3.5F}, {4, 5, 6}, {7.5F, 8.5F, 9.5F}, {}, {}};
  shape.duplicates.reserved.fill(0xDEADBEEF);
  shape.emitter = {EmitterKind::LoftPath, 201, 202, 203, 204, ByteFlag{0x00000100}, 205, 206,
                   ByteFlag{0xAABBCC01},  21,  207, 208, 2};
  shape.path.count = 2;
  shape.path.points[0] = {0.25F, -0.5F, 0.75F};
  shape.path.points[511] = {11, 12, 13};  // not in use, and kept all the same
  ModifierTable table;
  for (std::int32_t i = 0; i < kModifierCount; ++i) {
    const auto first = static_cast<float>(1000 + 10 * i);
    table[static_cast<ModifierKind>(i)] = {first, first + 1, first + 2};
  }
  shape.modifiers = toFileOrder(table);
  shape.duplicates.bulge = bulgeOf(table);
  shape.mapping = DuplicateMapping::Vertical;
  return shape;
}

TEST(ShapeFile, EveryFieldHasItsPlace) {
  const auto bytes = encodeShapeFile(distinctRecord());
  ASSERT_EQ(bytes.size(), 6494U);
  EXPECT_EQ(wordAt(bytes, 0) & 0xFFFFU, 0x1346U);
  const std::pair<std::size_t, std::uint32_t> words[] = {
      {2, 1},       {6, 7},     {10, 101},  {62, 0xDEADBEEF},  {118, 0xDEADBEEF},
      {122, 3},     {126, 201}, {130, 202}, {134, 203},        {138, 204},
      {142, 0x100}, {146, 205}, {150, 206}, {154, 0xAABBCC01}, {158, 21},
      {162, 207},   {166, 208}, {170, 2},   {174, 2},          {6490, 2}};
  for (const auto& [offset, value] : words) {
    EXPECT_EQ(wordAt(bytes, offset), value) << "at " << offset;
  }
  const std::pair<std::size_t, float> floats[] = {
      {14, 1.5F},
      {22, 3.5F},
      {26, 4},
      {34, 6},
      {38, 7.5F},
      {46, 9.5F},
      {50, 1140},
      {58, 1142},
      {178, 0.25F},
      {186, 0.75F},
      {174 + 4 + 12 * 511, 11},
      // Vertex Move, Rotate, Scale, Disperse, Pinch A, Pinch B, Taper, Shear A, Shear B, Bend,
      // Twist, Shape Move, Rotate, Scale
      {6322, 1000},
      {6334, 1010},
      {6338, 1011},
      {6346, 1020},
      {6358, 1040},
      {6370, 1030},
      {6382, 1070},
      {6394, 1110},
      {6406, 1120},
      {6418, 1130},
      {6430, 1050},
      {6442, 1060},
      {6454, 1080},
      {6466, 1090},
      {6478, 1100},
      {6486, 1102}};
  for (const auto& [offset, value] : floats) {
    EXPECT_EQ(floatAt(bytes, offset), value) << "at " << offset;
  }
}

TEST(ShapeFile, ReadingGivesBackEveryByte) {
  auto bytes = encodeShapeFile(distinctRecord());
  const auto read = decodeShapeFile(bytes);
  ASSERT_TRUE(read);
  EXPECT_EQ(read.value(), distinctRecord());
  EXPECT_EQ(encodeShapeFile(read.value()), bytes);
  EXPECT_FALSE(read.value().emitter.horizontalCentre.isSet());
  EXPECT_TRUE(read.value().emitter.verticalCentre.isSet());
  bytes.push_back(std::byte{1});  // what follows is nobody's business
  EXPECT_TRUE(decodeShapeFile(bytes));
}

TEST(ShapeFile, RefusesWhatIsNoShape) {
  const auto good = encodeShapeFile(distinctRecord());
  for (const std::size_t size : {0U, 1U, 2U, 100U, 6493U}) {
    const auto cut = decodeShapeFile(std::span(good).first(size));
    ASSERT_FALSE(cut);
    EXPECT_EQ(cut.error().kind, ErrorKind::BadData);
  }
  auto pathFile = good;
  pathFile[0] = std::byte{0x34};  // 4916, a path file's word
  EXPECT_EQ(decodeShapeFile(pathFile).error().offset, 0U);
  for (const std::int32_t count : {-1, 513, 0x7FFFFFFF}) {
    ShapeRecord shape;
    shape.path.count = count;
    const auto refused = decodeShapeFile(encodeShapeFile(shape));
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().offset, 174U);
  }
}

TEST(ShapeFile, NamesGetTheirExtensionOnSavingOnly) {
  const auto folder =
      std::filesystem::temp_directory_path() / ("pv-shape-file-" + std::to_string(std::rand()));
  std::filesystem::create_directory(folder);
  ASSERT_TRUE(SaveShapeFile(folder / "a.b", distinctRecord()));
  const auto read = LoadShapeFile(folder / "a.b.j3d");
  ASSERT_TRUE(read);
  EXPECT_EQ(read.value(), distinctRecord());
  const auto missing = LoadShapeFile(folder / "a.b");
  ASSERT_FALSE(missing);
  EXPECT_EQ(missing.error().kind, ErrorKind::NoInput);
  EXPECT_NE(missing.error().message().find("a.b"), std::string::npos);
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace pv
