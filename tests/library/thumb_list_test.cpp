#include "library/thumb_list.h"

#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "library/thumb_grid.h"
#include "library_fixture.h"
#include "util/bmp_file.h"

namespace pv {
namespace {

using Names = std::vector<std::string>;

/// a.J3D and a.j3d are two files.
#ifdef _WIN32
constexpr bool kNamesTellCase = false;
#else
constexpr bool kNamesTellCase = true;
#endif

class ThumbList : public LibraryTest {
 protected:
  void fill(CThumbList& list) const {
    list.setFolder(place_.folder);
    list.setFilter("*.j3d");
    list.fill();
  }
  void putPicture(const std::string& name, std::int32_t width = 96, std::int32_t height = 72) {
    const auto size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    ASSERT_TRUE(writeBmpFile(host("thumbs/" + name + ".bmp"),
                             {width, height, std::vector<std::uint32_t>(size, 0x00FF00)}));
  }
  CThumbList list_;
};

TEST_F(ThumbList, ListsByExtensionAndShowsParts) {
  for (const char* name : {"b.j3d", "a-b.j3d", "a.J3D", "a.j3d", "c.j2d", ".j3d", "x.j3d.bak"}) {
    put(name, "");
  }
  list_.fill();  // no folder yet
  EXPECT_EQ(list_.count(), 0);
  fill(list_);
  EXPECT_EQ(list_.allNames(),
            kNamesTellCase ? Names({"a-b", "a", "a", "b"}) : Names({"a-b", "a", "b"}));
  EXPECT_EQ(list_.shownNames(), list_.allNames());
  EXPECT_EQ(list_.place(), place_);

  list_.showSubset(Names{"b", "none", "a", "b"});
  EXPECT_EQ(list_.shownNames(),
            kNamesTellCase ? Names({"b", "a", "a", "b"}) : Names({"b", "a", "b"}));
  EXPECT_EQ(list_.shownToAll(1), 1);
  EXPECT_EQ(list_.shownToAll(2), 2);
  EXPECT_EQ(list_.count(), kNamesTellCase ? 4 : 3);
  list_.showSubset({});
  EXPECT_EQ(list_.shownCount(), 0);
  list_.showAll();
  EXPECT_EQ(list_.shownCount(), list_.count());

  CThumbList other;
  other.setFolder(place_.folder + "\\none", "C:\\Show\\");
  EXPECT_EQ(other.folder(), "c:\\show");
  other.fill();
  EXPECT_EQ(other.count(), 0);
}

TEST_F(ThumbList, TheSelectionFollowsItsFile) {
  for (const char* name : {"a.j3d", "b.j3d", "c.j3d"}) {
    put(name, "");
  }
  fill(list_);
  EXPECT_EQ(list_.selectedName(), "");
  list_.select(1);
  list_.showSubset(Names{"c", "b"});
  EXPECT_EQ(list_.selectedName(), "b");
  EXPECT_EQ(list_.selected(), 1);
  list_.select(2);
  EXPECT_EQ(list_.selected(), -1);
  list_.select(0);
  list_.showSubset(Names{"a"});
  EXPECT_EQ(list_.selected(), -1);

  list_.showAll();
  list_.select(0);
  list_.removeSelected();
  EXPECT_EQ(list_.shownNames(), (Names{"b", "c"}));
  EXPECT_EQ(list_.selected(), -1);
  EXPECT_EQ(list_.count(), 3);
  std::filesystem::remove(host("a.j3d"));
  list_.showAll();  // lists the folder anew
  EXPECT_EQ(list_.allNames(), (Names{"b", "c"}));
}

TEST_F(ThumbList, PicturesComeOnDemandAndBadOnesAreNone) {
  const Names names = {"cut", "good", "huge", "large", "missing", "text"};
  for (const auto& name : names) {
    put(name + ".j3d", "");
  }
  putPicture("good");
  putPicture("large", 200, 150);
  putPicture("cut");
  std::filesystem::resize_file(host("thumbs/cut.bmp"), 900);
  put("thumbs/text.bmp", "BM this is no picture");
  std::string huge = get("thumbs/good.bmp");
  huge.replace(18, 8, "\xFF\xFF\xFF\x7F\xFF\xFF\xFF\x7F");  // width and height
  put("thumbs/huge.bmp", huge);

  fill(list_);
  EXPECT_EQ(list_.thumbnail(-1), nullptr);
  for (std::int32_t i = 0; i < list_.shownCount(); ++i) {
    EXPECT_FALSE(list_.isThumbnailLoaded(i));
    const auto picture = list_.thumbnail(i);
    EXPECT_TRUE(list_.isThumbnailLoaded(i));
    const auto& name = names[static_cast<std::size_t>(i)];
    ASSERT_EQ(picture != nullptr, name == "good" || name == "large") << name;
    if (picture) {
      EXPECT_EQ(picture->words[40 * 96 + 50], 0xFF00FF00U);
    }
  }
  // A picture that came since is seen after the next listing.
  putPicture("missing");
  EXPECT_EQ(list_.thumbnail(4), nullptr);
  list_.fill();
  EXPECT_NE(list_.thumbnail(4), nullptr);
  // A listing that is out of date does no harm.
  std::filesystem::remove_all(host("thumbs"));
  EXPECT_EQ(list_.thumbnail(1), nullptr);
}

TEST_F(ThumbList, MemoryIsBoundedAndTheLongestUnusedGoes) {
  constexpr std::size_t kPictureBytes = 96 * 72 * 4;
  for (const char* name : {"a", "b", "c", "d"}) {
    put(std::string(name) + ".j3d", "");
    putPicture(name);
  }
  CThumbList list(2 * kPictureBytes);
  fill(list);
  const auto kept = list.thumbnail(0);
  list.thumbnail(1);
  list.thumbnail(0);
  list.thumbnail(2);
  EXPECT_TRUE(list.isThumbnailLoaded(0));
  EXPECT_FALSE(list.isThumbnailLoaded(1));
  EXPECT_EQ(list.thumbnailBytes(), 2 * kPictureBytes);
  list.showSubset(Names{"d", "a"});
  EXPECT_EQ(list.thumbnail(1), kept);  // still there under another index
  list.fill();
  EXPECT_EQ(list.thumbnailBytes(), 0U);
  EXPECT_EQ(kept->words.size(), 96U * 72U);
}

ThumbGrid grid() {
  ThumbGrid grid;
  grid.count = 10;
  grid.clientWidth = 350;  // three columns
  grid.clientHeight = 220;
  return grid;
}

TEST(ThumbGrid, PlacesAndFindsCells) {
  ThumbGrid g = grid();
  EXPECT_EQ(g.columns(), 3);
  EXPECT_EQ(g.rows(), 4);
  EXPECT_EQ(g.contentHeight(), 432);
  EXPECT_EQ(g.maxScroll(), 212);
  g.scroll = 100;
  EXPECT_EQ(g.cell(4), (TagBox{112, 8, 224, 116}));
  EXPECT_EQ(g.picture(4), (TagBox{120, 16, 216, 88}));
  EXPECT_EQ(g.visible(), (ThumbGrid::Range{0, 9}));
  g.scroll = 108;
  EXPECT_EQ(g.visible(), (ThumbGrid::Range{3, 10}));
  for (std::int32_t i = 0; i < g.count; ++i) {
    const TagBox box = g.cell(i);
    EXPECT_EQ(g.hitTest(box.left, box.top), i);
    EXPECT_EQ(g.hitTest(box.right - 1, box.bottom - 1), i);
  }
  EXPECT_EQ(g.hitTest(336, 10), -1);  // right of the last column
  EXPECT_EQ(g.hitTest(-1, 10), -1);
  EXPECT_EQ(g.hitTest(112, 220), -1);  // behind the last item
  for (const std::int32_t extreme :
       {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
    const ThumbGrid hostile{extreme, extreme, extreme, extreme, extreme, extreme};
    EXPECT_GE(hostile.columns(), 1);
    EXPECT_GE(hostile.maxScroll(), 0);
    EXPECT_LE(hostile.visible().first, hostile.visible().last);
    EXPECT_GE(hostile.hitTest(extreme, extreme), -1);
    EXPECT_GE(hostile.moved(extreme, GridKey::PageDown), -1);
    EXPECT_EQ(hostile.cell(0).left, 0);
    static_cast<void>(hostile.picture(0));
    EXPECT_LE(hostile.scrollToShow(0), 0);
  }
}

TEST(ThumbGrid, KeysMoveAndTheCellComesIntoView) {
  const ThumbGrid g = grid();
  struct Case {
    std::int32_t from;
    // Left, Right, Up, Down, Home, End, PageUp, PageDown
    std::array<std::int32_t, 8> to;
  };
  const Case cases[] = {{-1, {0, 0, 0, 0, 0, 9, 0, 0}},
                        {0, {0, 1, 0, 3, 0, 9, 0, 6}},
                        {4, {3, 5, 1, 7, 0, 9, 0, 9}},
                        {8, {7, 9, 5, 8, 0, 9, 2, 9}}};
  for (const auto& [from, to] : cases) {
    for (std::size_t key = 0; key < to.size(); ++key) {
      EXPECT_EQ(g.moved(from, static_cast<GridKey>(key)), to[key]) << from << " " << key;
    }
  }
  EXPECT_EQ(ThumbGrid{}.moved(0, GridKey::End), -1);

  ThumbGrid scrolled = g;
  scrolled.scroll = 50;
  EXPECT_EQ(scrolled.scrollToShow(0), 0);
  EXPECT_EQ(scrolled.scrollToShow(3), 50);
  EXPECT_EQ(scrolled.scrollToShow(9), 212);
  scrolled.clientHeight = 20;
  EXPECT_EQ(scrolled.scrollToShow(9), 324);

  const Names names = {"alpha", "Beta", "bell"};
  EXPECT_EQ(typeAhead(names, 0, "b"), 1);
  EXPECT_EQ(typeAhead(names, 2, "B"), 2);
  EXPECT_EQ(typeAhead(names, 2, "a"), 0);
  EXPECT_EQ(typeAhead(names, 0, "bells"), -1);
  EXPECT_EQ(typeAhead({}, 0, "a"), -1);
}

}  // namespace
}  // namespace pv
