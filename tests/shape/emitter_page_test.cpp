#include "shape/emitter_page.h"

#include <array>
#include <gtest/gtest.h>
#include <utility>

namespace pv {
namespace {

constexpr auto kUnknown = static_cast<EmitterKind>(77);

TEST(EmitterPage, EachKindUsesItsOwnControls) {
  struct Row {
    bool rows, end, columns, path;  // what the kind uses
    PageRange height, width;
  };
  constexpr PageRange kSection{1, 100};
  const std::array<Row, kEmitterKindCount> wanted{{
      {false, false, false, false, kSection, kSection},
      {true, false, true, false, kSection, kSection},
      {true, true, true, false, {0, 180}, {0, 360}},
      {false, false, true, true, kSection, kSection},
      {false, false, true, true, kSection, {0, 360}},
  }};
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const EmitterPageLook look = emitterPageLook(static_cast<EmitterKind>(i));
    const Row& row = wanted[i];
    EXPECT_EQ(look.horizontalSections, row.rows);
    EXPECT_EQ(look.horizontalEnd, row.end);
    EXPECT_EQ(look.verticalSections, row.columns);
    EXPECT_EQ(look.editPath, row.path);
    EXPECT_EQ(look.horizontalSize, row.height);
    EXPECT_EQ(look.horizontalSizeLabel, row.height == kSection ? "Height:" : "Start:");
    EXPECT_EQ(look.verticalSize, row.width);
    EXPECT_EQ(look.verticalSizeLabel, row.width == kSection ? "Width:" : "Angle:");
    EXPECT_EQ(look.verticalHeader,
              row.width == kSection ? "Vertical Sections" : "Vertical Rotations");
  }
  const EmitterPageLook unknown = emitterPageLook(kUnknown);
  EXPECT_FALSE(unknown.horizontalSections || unknown.verticalSections || unknown.editPath);
}

TEST(EmitterPage, ChoosingAKindCutsAnglesToSections) {
  const auto sizesAfter = [](EmitterKind kind) {
    EmitterPageState page;
    page.emitter.kind = EmitterKind::SpherePatch;
    page.emitter.horizontalSize = 150;
    page.emitter.verticalSize = 360;
    chooseEmitterKind(page, kind);
    return std::pair(page.emitter.horizontalSize, page.emitter.verticalSize);
  };
  EXPECT_EQ(sizesAfter(EmitterKind::Point), std::pair(100, 360));
  EXPECT_EQ(sizesAfter(EmitterKind::GridPatch), std::pair(100, 100));
  EXPECT_EQ(sizesAfter(EmitterKind::SpherePatch), std::pair(150, 360));
  EXPECT_EQ(sizesAfter(EmitterKind::LoftPath), std::pair(100, 100));
  EXPECT_EQ(sizesAfter(EmitterKind::SweepPath), std::pair(100, 360));
  EXPECT_EQ(sizesAfter(kUnknown), std::pair(150, 360));

  EmitterPageState page;
  page.emitter.horizontalSize = -3;  // only what is too much is cut
  chooseEmitterKind(page, EmitterKind::GridPatch);
  chooseEmitterKind(page, kUnknown);
  EXPECT_EQ(page.emitter.kind, EmitterKind::GridPatch);
  EXPECT_EQ(page.emitter.horizontalSize, -3);
}

TEST(EmitterPage, AnUntouchedPageChangesNothingInAShape) {
  ShapeRecord shape;
  shape.applyModifiersGlobally = 7;
  shape.useWorldAxis = -1;
  shape.duplicates.reserved0 = 5;
  shape.duplicates.position = {0.5F, -3.75F, 1e30F};
  shape.duplicates.rotation = {359.9F, -0.0F, 400.0F};
  shape.emitter.horizontalCentre = {0xAABBCC00};
  shape.emitter.horizontalSize = 500;
  shape.emitter.selectedAxis = 2;
  shape.mapping = DuplicateMapping::Vertical;
  const ShapeRecord before = shape;

  EmitterPageState page = emitterPageOf(shape, 2);
  storeEmitterPage(page, shape);
  EXPECT_EQ(shape, before);

  page.axes[1].position = -4;
  page.useWorldAxis = false;
  page.applyModifiersGlobally = true;  // as it was
  storeEmitterPage(page, shape);
  EXPECT_EQ(shape.duplicates.position, (std::array{0.5F, -4.0F, 1e30F}));
  EXPECT_EQ(shape.useWorldAxis, 0);
  EXPECT_EQ(shape.applyModifiersGlobally, 7);
  EXPECT_EQ(emitterPageOf(shape, 1).emitter.selectedAxis, 1);
}

}  // namespace
}  // namespace pv
