#include "shape/emitter_page.h"

#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace pv {
namespace {

constexpr auto kUnknown = static_cast<EmitterKind>(77);

std::vector<EmitterKind> kinds() {
  return {EmitterKind::Point, EmitterKind::GridPatch, EmitterKind::SpherePatch,
          EmitterKind::LoftPath, EmitterKind::SweepPath};
}

TEST(EmitterPage, EachKindUsesItsOwnControls) {
  // Horizontal sections, horizontal end, vertical sections, path editor.
  const std::array<std::array<bool, 4>, 5> used{{{false, false, false, false},
                                                 {true, false, true, false},
                                                 {true, true, true, false},
                                                 {false, false, true, true},
                                                 {false, false, true, true}}};
  for (const EmitterKind kind : kinds()) {
    const EmitterPageLook look = emitterPageLook(kind);
    const auto& row = used[static_cast<std::size_t>(kind)];
    EXPECT_EQ(look.horizontalSections, row[0]);
    EXPECT_EQ(look.horizontalEnd, row[1]);
    EXPECT_EQ(look.verticalSections, row[2]);
    EXPECT_EQ(look.editPath, row[3]);

    const bool turned = kind == EmitterKind::SpherePatch || kind == EmitterKind::SweepPath;
    EXPECT_EQ(look.verticalHeader, turned ? "Vertical Rotations" : "Vertical Sections");
    EXPECT_EQ(look.verticalSizeLabel, turned ? "Angle:" : "Width:");
    EXPECT_EQ(look.verticalSize, turned ? (PageRange{0, 360}) : (PageRange{1, 100}));
    const bool sphere = kind == EmitterKind::SpherePatch;
    EXPECT_EQ(look.horizontalSizeLabel, sphere ? "Start:" : "Height:");
    EXPECT_EQ(look.horizontalSize, sphere ? (PageRange{0, 180}) : (PageRange{1, 100}));
  }
  const EmitterPageLook unknown = emitterPageLook(kUnknown);
  EXPECT_FALSE(unknown.horizontalSections || unknown.verticalSections || unknown.editPath);
}

TEST(EmitterPage, EveryImageIsDrawnAtAllDensities) {
  const std::filesystem::path root = std::filesystem::path(PV_SOURCE_DIR) / "art/rendered";
  for (const EmitterKind kind : kinds()) {
    const EmitterPageLook look = emitterPageLook(kind);
    for (const PageImages& pair :
         {look.verticalAmountImages, look.verticalSizeImages, look.horizontalSizeImages}) {
      for (const std::string_view name : {pair.high, pair.low}) {
        for (const char* ending : {".png", "@2x.png", "@3x.png"}) {
          const std::string stem(name.substr(1, name.size() - 5));
          EXPECT_TRUE(exists(root / (stem + ending))) << stem << ending;
        }
      }
    }
  }
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

TEST(EmitterPage, ResetLeavesAStepOnXOnly) {
  for (std::size_t axis = 0; axis < 3; ++axis) {
    DuplicateAxis values{77, 88, 99};
    resetDuplicateAxis(values, axis);
    EXPECT_EQ(values, (DuplicateAxis{axis == 0 ? 10 : 0, 0, 0}));
  }
  EmitterPageState page;
  page.emitter.selectedAxis = -5;  // a file's axis may be anything
  EXPECT_EQ(&page.selectedAxis(), &page.axes[0]);
}

TEST(EmitterPage, CountsInWords) {
  EmitterSettings emitter;
  EXPECT_EQ(emitterCountText(emitter), "Total Emitter Count = 1");
  emitter.kind = EmitterKind::GridPatch;
  emitter.copies = 2;
  EXPECT_EQ(emitterCountText(emitter), "Total Emitter Count = 363");
  emitter.kind = EmitterKind::SweepPath;
  emitter.pathPointCount = 5;
  EXPECT_EQ(emitterCountText(emitter), "Total Emitter Count = 198");
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
