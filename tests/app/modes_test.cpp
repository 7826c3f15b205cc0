// Every command in every mode: which steps it asks for, and what shows then.

#include "app/modes.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace pv {
namespace {

using Steps = std::vector<ModeStep>;
using S = ModeStep;

struct Shown {
  LeftPage left;
  RightPage right;
  std::string title;
  bool strip;
};

void expectShown(const ModeLayout& layout, const Shown& wanted, const std::string& where) {
  EXPECT_EQ(layout.pages(), (PanelPages{wanted.left, wanted.right})) << where;
  EXPECT_EQ(layout.title(), "Vortexa-" + wanted.title) << where;
  EXPECT_EQ(layout.stripEnabled(), wanted.strip) << where;
}

ModeLayout inMode(Mode mode) {
  ModeLayout layout;
  if (mode != Mode::Editing) {
    layout.EnterMode(mode);
  }
  return layout;
}

TEST(Modes, LeftCommandsOpenModesFromTheStripsPages) {
  struct Row {
    LeftPage page;
    PageResult result;
    Steps steps;
    Mode mode;
    std::string title;
    ModeKind kind;
  };
  const ModeKind none = ModeKind::None;
  const std::vector<Row> rows{
      {LeftPage::Library,
       {1},
       {S::OpenLoadPanels},
       Mode::LoadShape,
       "Library-Load Shape",
       ModeKind::Shape},
      {LeftPage::Library,
       {2},
       {S::OpenTagPanels},
       Mode::EditShapeTags,
       "Library-Edit 3d Shape Tags",
       none},
      {LeftPage::Library,
       {3},
       {S::OpenLoadPanels},
       Mode::LoadPath,
       "Library-Load Path",
       ModeKind::Path},
      {LeftPage::Library,
       {4},
       {S::OpenTagPanels},
       Mode::EditPathTags,
       "Library-Edit 2d Path Tags",
       none},
      {LeftPage::Library, {5}, {}, Mode::Editing, "Library", none},
      {LeftPage::Library, {0}, {}, Mode::Editing, "Library", none},
      {LeftPage::Emitter, {0}, {S::TakeEmitterPage}, Mode::Editing, "Emitter", none},
      {LeftPage::Emitter,
       {1},
       {S::OpenLoadPanels},
       Mode::LoadShape,
       "Emitter-Load Shape",
       ModeKind::Shape},
      {LeftPage::Emitter,
       {2},
       {S::OpenSavePanels},
       Mode::SaveShape,
       "Emitter-Save Shape",
       ModeKind::Shape},
      {LeftPage::Emitter,
       {0, true},
       {S::GivePathToEditor},
       Mode::EditPath,
       "Emitter-Edit Path",
       none},
      {LeftPage::Emitter,
       {2, true},
       {S::GivePathToEditor},
       Mode::EditPath,
       "Emitter-Edit Path",
       none},
      {LeftPage::Particles, {0}, {S::TakeParticlePage}, Mode::Editing, "Particles", none},
      {LeftPage::Forces, {1}, {}, Mode::Editing, "Forces", none},
  };
  for (const Row& row : rows) {
    ModeLayout layout;
    layout.showPage(row.page);
    const std::string where = "page " + std::to_string(static_cast<int>(row.page)) + " code " +
                              std::to_string(row.result.code);
    EXPECT_EQ(leftCommand(layout, row.result), row.steps) << where;
    EXPECT_EQ(layout.mode(), row.mode) << where;
    EXPECT_EQ(layout.modeKind(), row.kind) << where;
    const bool editing = row.mode == Mode::Editing;
    const PanelPages pages =
        editing ? PanelPages{row.page, RightPage::View3d} : traits(row.mode).pages;
    expectShown(layout, {pages.left, pages.right, row.title, editing}, where);
    // The strip cannot be used while a mode is open.
    layout.showPage(LeftPage::Forces);
    EXPECT_EQ(layout.pages().left, editing ? LeftPage::Forces : pages.left) << where;
  }
}

TEST(Modes, CommandsInsideAModeAskForTheirStepsAndLeaveIt) {
  struct Row {
    Mode mode;
    bool left;
    int code;
    Steps steps;
    bool leaves;
  };
  constexpr bool kLeft = true;
  constexpr bool kRight = false;
  const std::vector<Row> rows{
      {Mode::Editing, kRight, 1, {}, false},
      {Mode::EditPath, kLeft, 0, {}, false},
      {Mode::EditPath, kRight, 1, {S::TakeEditedPath, S::ReleaseEditPath}, true},
      {Mode::EditPath, kRight, 2, {S::ReleaseEditPath}, true},
      {Mode::EditPath, kRight, -1, {S::ReleaseEditPath}, false},
      {Mode::SaveShape, kLeft, 1, {S::TakeSaveTexts}, false},
      {Mode::SaveShape, kLeft, 0, {}, false},
      {Mode::SaveShape, kRight, 1, {S::ShowSelectedTags}, false},
      {Mode::SaveShape, kRight, 2, {}, true},
      {Mode::SaveShape, kRight, 3, {S::SaveShape, S::WriteSavedTags}, true},
      {Mode::SavePath, kRight, 3, {S::SavePath, S::WriteSavedTags}, true},
      {Mode::SavePath, kRight, 4, {}, false},
      {Mode::LoadShape, kLeft, 0, {S::ShowFilteredFiles}, false},
      {Mode::LoadShape, kRight, 1, {}, false},
      {Mode::LoadShape, kRight, 2, {}, true},
      {Mode::LoadShape, kRight, 3, {S::LoadShape}, true},
      {Mode::LoadPath, kRight, 3, {S::LoadPath}, true},
      {Mode::EditShapeTags, kLeft, 1, {S::ShowAllTaggedFiles}, false},
      {Mode::EditShapeTags, kLeft, 2, {S::ShowTaggedFiles}, false},
      {Mode::EditShapeTags, kLeft, 3, {S::ReconstructTagLinks}, false},
      {Mode::EditPathTags, kLeft, 4, {S::UpdateFileTags}, false},
      {Mode::EditPathTags, kLeft, 0, {}, false},
      {Mode::EditShapeTags, kRight, 1, {S::WriteAllTags}, true},
      {Mode::EditShapeTags, kRight, 2, {S::UnlinkDeletedFile}, false},
      {Mode::EditPathTags, kRight, 3, {S::ApplyFileTags, S::HandSelectedFile}, false},
      {Mode::EditPathTags, kRight, 0, {S::HandSelectedFile}, false},
  };
  for (const Row& row : rows) {
    ModeLayout layout = inMode(row.mode);
    const std::string where = "mode " + std::to_string(static_cast<int>(row.mode)) +
                              (row.left ? " left " : " right ") + std::to_string(row.code);
    EXPECT_EQ(row.left ? leftCommand(layout, {row.code}) : rightCommand(layout, {row.code}),
              row.steps)
        << where;
    EXPECT_EQ(layout.mode(), row.leaves ? Mode::Editing : row.mode) << where;
    if (row.leaves) {
      expectShown(layout, {LeftPage::Emitter, RightPage::View3d, "Emitter", true}, where);
    }
  }
}

TEST(Modes, NestedModesLeadBackToThePathEditorAndThenToEditing) {
  for (const int code : {1, 2}) {      // load, save
    for (const int result : {2, 3}) {  // cancel, done
      ModeLayout layout;
      ASSERT_EQ(leftCommand(layout, {0, true}), Steps{S::GivePathToEditor});
      const Shown editor{LeftPage::Path, RightPage::PathEditor, "Emitter-Edit Path", false};
      for (int round = 0; round < 2; ++round) {
        (void)leftCommand(layout, {code});
        EXPECT_TRUE(layout.nested());
        EXPECT_EQ(layout.title(),
                  code == 1 ? "Vortexa-Emitter-Load Path" : "Vortexa-Emitter-Save Path");
        const Steps steps = rightCommand(layout, {result});
        if (code == 1 && result == 3) {
          EXPECT_EQ(steps, Steps{S::LoadPathIntoEditor});
        }
        expectShown(layout, editor, "back from " + std::to_string(code));
        EXPECT_FALSE(layout.nested());
      }
      (void)rightCommand(layout, {1});
      expectShown(layout, {LeftPage::Emitter, RightPage::View3d, "Emitter", true}, "after all");
    }
  }
}

TEST(Modes, ModeLeftFromTheLibraryPageReturnsThere) {
  ModeLayout layout;
  layout.showPage(LeftPage::Library);
  (void)leftCommand(layout, {4});
  (void)rightCommand(layout, {1});
  expectShown(layout, {LeftPage::Library, RightPage::View3d, "Library", true}, "finished");
}

TEST(Modes, EveryModeHasItsRow) {
  for (int i = 1; i < kModeCount; ++i) {
    const ModeTraits& row = traits(static_cast<Mode>(i));
    EXPECT_EQ(static_cast<int>(row.mode), i);
    const bool shape = row.filter == "*.j3d";
    EXPECT_EQ(row.folder, row.mode == Mode::EditPath ? ""
                          : shape                    ? "vortex\\shapes"
                                                     : "vortex\\paths");
  }
}

}  // namespace
}  // namespace pv
