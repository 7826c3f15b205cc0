#include "shape/shape_fields.h"

#include <gtest/gtest.h>

#include "cli/assignments.h"
#include "shape/shape_file.h"

namespace pv {
namespace {

std::string sampleText(const ShapeField& field) {
  switch (field.type) {
    case FieldType::Float:
      return "-12.3456793";
    case FieldType::Name:
      return std::string(field.names.back());
    case FieldType::Flag:
      return "1";
    case FieldType::ByteFlag:
      return "0";
    default:
      return "-2147483648";
  }
}

TEST(ShapeFields, CoverTheFileWordByWord) {
  std::size_t offset = 2;
  for (const ShapeField& field : shapeFields()) {
    offset = offset == kShapePathOffset ? offset + kPathRecordBytes : offset;
    EXPECT_EQ(field.offset, offset) << field.key;
    offset += 4;
  }
  EXPECT_EQ(offset, kShapeFileBytes);
}

TEST(ShapeFields, EachSettableOneChangesItsOwnBytesAndIsListed) {
  const ShapeRecord fresh;
  const auto before = encodeShapeFile(fresh);
  const std::string list = keyListText();
  for (const ShapeField& field : shapeFields()) {
    ShapeRecord shape;
    ASSERT_EQ(setField(field, sampleText(field), shape).ok(), field.isSettable()) << field.key;
    EXPECT_EQ(list.find("\n" + field.key + " ") != std::string::npos, field.isSettable());
    if (!field.isSettable()) {
      continue;
    }
    const auto after = encodeShapeFile(shape);
    const auto [first, ignored] = std::mismatch(before.begin(), before.end(), after.begin());
    const auto [last, alsoIgnored] = std::mismatch(before.rbegin(), before.rend(), after.rbegin());
    EXPECT_GE(static_cast<std::size_t>(first - before.begin()), field.offset) << field.key;
    EXPECT_LE(static_cast<std::size_t>(last.base() - before.begin()), field.offset + 4);
    const auto loaded = decodeShapeFile(after);
    ASSERT_TRUE(loaded.ok());
    EXPECT_EQ(fieldText(field, loaded.value()), sampleText(field)) << field.key;
    EXPECT_NE(fieldText(field, fresh), sampleText(field)) << field.key;
  }
}

TEST(ShapeFields, ValuesAreReadStrictly) {
  struct Case {
    const char* key;
    const char* text;
    const char* stored;  // null when refused
  };
  const Case cases[] = {
      {"EMITTER.Kind", "Sphere Patch", "spherePatch"},
      {"emitter.kind", "sweep", "sweepPath"},
      {"emitter.kind", "1", "gridPatch"},
      {"emitter.kind", "5", nullptr},
      {"emitter.kind", "-1", nullptr},
      {"emitter.kind", "sweepP", nullptr},
      {"emitter.kind", "", nullptr},
      {"emitter.selectedAxis", "Z", "z"},
      {"emitter.copies", "21", "21"},
      {"emitter.copies", "2147483648", nullptr},
      {"emitter.copies", "3x", nullptr},
      {"emitter.copies", " 3", nullptr},
      {"emitter.copies", "3.0", nullptr},
      {"emitter.horizontalCentre", "false", "0"},
      {"emitter.horizontalCentre", "2", nullptr},
      {"useWorldAxis", "yes", "1"},
      {"duplicates.position.y", "1e3", "1000"},
      {"duplicates.position.y", "0,5", nullptr},
      {"duplicates.position.y", "nan", nullptr},
      {"duplicates.position.y", "-inf", nullptr},
      {"duplicates.position.y", "1e39", nullptr},
      {"modifiers.bulge.x", "0.1", "0.100000001"},
      {"mapping", "HORIZONTAL", "horizontal"},
      {"emitter.reserved1", "0", nullptr},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(std::string(row.key) + "=" + row.text);
    const ShapeField* field = findShapeField(row.key);
    ASSERT_NE(field, nullptr);
    ShapeRecord shape;
    const auto status = setField(*field, row.text, shape);
    ASSERT_EQ(status.ok(), row.stored != nullptr);
    if (row.stored != nullptr) {
      EXPECT_EQ(fieldText(*field, shape), row.stored);
    } else {
      EXPECT_EQ(shape, ShapeRecord());
      EXPECT_EQ(status.error().reason.find(field->key + ": "), 0U) << status.error().reason;
    }
  }
  EXPECT_EQ(findShapeField("emitter.kin"), nullptr);
}

TEST(ShapeFields, AFlagKeepsTheBytesThatAreNotItsOwn) {
  ShapeRecord shape;
  shape.emitter.verticalCentre.slot = 0x12345601U;
  ASSERT_TRUE(setField(*findShapeField("emitter.verticalCentre"), "0", shape).ok());
  EXPECT_EQ(shape.emitter.verticalCentre.slot, 0x12345600U);
}

TEST(ShapeFields, PathPointCountFollowsTheKind) {
  ShapeRecord shape;
  shape.path.count = 7;
  shape.emitter.pathPointCount = 99;
  const auto countOf = [&shape](EmitterKind kind, std::int32_t amount) {
    shape.emitter.kind = kind;
    shape.emitter.horizontalAmount = amount;
    return generatedPathPointCount(shape);
  };
  EXPECT_EQ(countOf(EmitterKind::Point, 10), 0);
  EXPECT_EQ(countOf(EmitterKind::GridPatch, 10), 0);
  EXPECT_EQ(countOf(EmitterKind::SpherePatch, 10), 11);
  EXPECT_EQ(countOf(EmitterKind::SpherePatch, -2147483647 - 1), 0);
  EXPECT_EQ(countOf(EmitterKind::SpherePatch, 2147483647), 512);
  EXPECT_EQ(countOf(EmitterKind::SweepPath, 10), 7);
  EXPECT_EQ(countOf(static_cast<EmitterKind>(9), 10), 99);
}

}  // namespace
}  // namespace pv
