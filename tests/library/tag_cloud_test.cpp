#include "library/tag_cloud.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "library_fixture.h"

namespace pv {
namespace {

namespace fs = std::filesystem;
using Links = std::vector<std::string>;
using TagCloud = LibraryTest;

TEST_F(TagCloud, TheFolderRuleKeepsItsOddCases) {
  struct Case {
    std::string folder;
    std::string root;
    std::string expected;
  };
  const std::string real = place_.folder;
  const Case cases[] = {
      {real, "", real + "\\tags\\"},
      {real + "\\", "", real + "\\\\tags\\"},
      {real + "\\tags", "", real + "\\tags"},
      {real + "\\tags\\", "", real + "\\tags\\\\tags\\"},
      {real + "\\none", "C:\\Show\\", "c:\\show\\tags\\"},
      {"", "C:/Show/", "c:/show\\tags\\"},
      {"", "C:\\Show\\Tags\\", "c:\\show\\tags"},
      {"", "", "\\tags\\"},
  };
  for (const auto& [folder, root, expected] : cases) {
    cloud_.setFolder(folder, root);
    EXPECT_EQ(cloud_.folder(), expected) << folder << " " << root;
  }
}

TEST_F(TagCloud, LoadsInByteOrderAndCutsEveryExtension) {
  put("tags/b.tag", "x-0001\nx-0002\r\n\r\nlast");
  put("tags/Z.tag", "");
  put("tags/b.txt", "not read");
  put("tags/abc", "too short for a name");
  put("tags/..tag", "x");
  put("tags/c\x7F.tag", "x-0001\n");
  put("tags/.pv-1-2.tmp", "left behind");
  fs::create_directory(host("tags/sub.tag"));
  fs::create_directory(host("tags/sub.tag/x"));
  EXPECT_EQ(cloud_.loadAll(), 0U);
  EXPECT_EQ(names(), ". Z b b c\x7F");
  EXPECT_EQ(links(2), (Links{"x-0001", "x-0002", "", "last"}));
  EXPECT_EQ(links(3), links(2));
  EXPECT_EQ(cloud_.entries()[2].weight, 4);
  EXPECT_EQ(cloud_.weights(), (TagWeights{0, 4, 5.0 / 6.0}));
  EXPECT_TRUE(links(4).empty());  // the name never meets the disk
  EXPECT_FALSE(cloud_.hasUnsaved());

  // A folder that went away leaves the tags as they are.
  fs::rename(host("tags"), host("gone"));
  EXPECT_EQ(cloud_.loadAll(), 0U);
  EXPECT_EQ(cloud_.count(), 5);
  EXPECT_FALSE(cloud_.saveAll());
  cloud_.deleteTag(2);
  EXPECT_EQ(get("gone/b.tag").size(), 21U);
}

TEST_F(TagCloud, WritesCleanedLinksAndOnlyValidNames) {
  const Links bad = {"..", "con", "a/b", "a\\b", std::string(300, 'x'), "x ", "q?"};
  tag("red", {"f-0001 \r.", "g_", "\xC3\xA4", "(h)", "..."});
  for (const auto& name : bad) {
    tag(name, {"f-0001"});
  }
  EXPECT_TRUE(cloud_.saveAll());
  EXPECT_EQ(contents(), "tags/red.tag=f-0001|g||(h)||\n");
  EXPECT_EQ(links(0), (Links{"f-0001", "g", "", "(h)", ""}));
  EXPECT_FALSE(cloud_.writeTagFile("..\\red", 0));
  EXPECT_FALSE(cloud_.writeTagFile("red", 99));
  EXPECT_TRUE(cloud_.writeTagFile("green", 0));
  for (std::int32_t i = cloud_.count(); i-- > 0;) {
    cloud_.deleteTag(i);
  }
  EXPECT_EQ(contents(), "tags/green.tag=f-0001|g||(h)||\n");
}

TEST_F(TagCloud, OnlyWhatIsUnsavedIsWrittenAtTheEnd) {
  put("tags/a.tag", "f-0001\r\n");
  put("tags/b.tag", "f-0002\r\n");
  cloud_.loadAll();
  cloud_.linkFileToTag("f-0003", 1);
  EXPECT_TRUE(cloud_.hasUnsaved());
  put("tags/a.tag", "newer\r\n");
  EXPECT_TRUE(cloud_.saveUnsaved());
  EXPECT_FALSE(cloud_.hasUnsaved());
  EXPECT_EQ(contents(), "tags/a.tag=newer|\ntags/b.tag=f-0002|f-0003|\n");
  EXPECT_TRUE(cloud_.saveAll());
  EXPECT_EQ(get("tags/a.tag"), "f-0001\r\n");
  // The file of a tag that is there twice comes back after one was deleted.
  tag("a", {"f-0009"});
  cloud_.saveUnsaved();
  cloud_.deleteTag(2);
  EXPECT_EQ(contents(), "tags/b.tag=f-0002|f-0003|\n");
  EXPECT_TRUE(cloud_.saveUnsaved());
  EXPECT_EQ(get("tags/a.tag"), "f-0001\r\n");
}

TEST_F(TagCloud, AFileThatCannotBeReadIsNotReplacedByNothing) {
  put("tags/big.tag", std::string(kMaxLineFileBytes + 1, 'x'));
  put("tags/last.tag", "f-0001\r\n");
  cloud_.loadAll();
  EXPECT_NE(cloud_.errorText().find("too large"), std::string::npos);
  EXPECT_TRUE(links(0).empty());
  EXPECT_TRUE(cloud_.saveAll());
  EXPECT_EQ(fs::file_size(host("tags/big.tag")), kMaxLineFileBytes + 1);
  cloud_.clearLinks();
  EXPECT_TRUE(cloud_.saveAll());
  EXPECT_EQ(get("tags/big.tag"), "");
}

TEST_F(TagCloud, ReadOnlyFilesStayAndTheRestIsWritten) {
  put("tags/a.tag", "f-0001\r\n");
  put("tags/b.tag", "f-0001\r\n");
  cloud_.loadAll();
  fs::permissions(host("tags/a.tag"), fs::perms::owner_read);
  cloud_.clearLinks();
  EXPECT_FALSE(cloud_.saveAll());
  EXPECT_TRUE(cloud_.hasUnsaved());
  EXPECT_EQ(contents(), "tags/a.tag=f-0001|\ntags/b.tag=\n");
  fs::permissions(host("tags/a.tag"), fs::perms::owner_all);
}

TEST_F(TagCloud, TheTag257IsRefusedAndItsFileKept) {
  for (int i = 0; i < 256; ++i) {
    tag("t" + std::to_string(1000 + i));
  }
  EXPECT_TRUE(cloud_.saveAll());
  EXPECT_EQ(cloud_.addTag("more"), AddTagResult::Full);
  EXPECT_EQ(cloud_.findTag("more"), -1);
  put("tags/zz.tag", "f-0001\r\n");
  put("tagdb/f-0001.tdb", "zz\r\nt1007\r\n");
  EXPECT_EQ(cloud_.loadAll(), 1U);
  EXPECT_TRUE(cloud_.applyFileTags(place_.tagListFile("f-0001")));
  EXPECT_EQ(cloud_.selectedText(), "t1007");
  EXPECT_TRUE(cloud_.saveAll());
  EXPECT_EQ(get("tags/zz.tag"), "f-0001\r\n");
  cloud_.deleteTag(0);
  EXPECT_EQ(cloud_.addTag("again"), AddTagResult::Added);
  EXPECT_TRUE(links(255).empty());
}

TEST_F(TagCloud, DeleteMarkedStopsEarly) {
  struct Case {
    const char* marks;  ///< a letter a tag as states() has them
    const char* left;
  };
  const Case cases[] = {{"sss", "c"},      {"sx-", "c"},    {"-ss", "a c"}, {"--s", "a b"},
                        {"x--", "b c"},    {"s-s-", "b d"}, {"s", ""},      {"---", "a b c"},
                        {"-s-s", "a c d"}, {"ssss", "c d"}};
  for (const auto& [marks, left] : cases) {
    cloud_.clear();
    const std::string text = marks;
    for (std::size_t i = 0; i < text.size(); ++i) {
      tag(std::string(1, static_cast<char>('a' + i)));
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] != '-') {
        clickOn(static_cast<std::int32_t>(i), text[i] == 's', text[i] == 'x');
      }
    }
    ASSERT_EQ(states(), text);
    cloud_.deleteMarked();
    EXPECT_EQ(names(), left) << marks;
  }
}

TEST_F(TagCloud, ClicksSelectAddAndExclude) {
  tag("a");
  tag("b");
  tag("c");
  struct Step {
    std::int32_t index;
    bool ctrl;
    bool alt;
    const char* states;
    bool changed;
  };
  const Step steps[] = {
      {0, false, false, "s--", true}, {0, false, false, "s--", false},
      {1, true, false, "ss-", true},  {1, false, true, "sx-", true},
      {1, true, false, "ss-", true},  {1, true, false, "s--", true},
      {2, true, true, "s-x", true},   {2, true, true, "s--", true},
      {2, false, true, "s-x", true},  {2, false, false, "--s", true},
  };
  for (const auto& step : steps) {
    EXPECT_EQ(clickOn(step.index, step.ctrl, step.alt).changed, step.changed);
    EXPECT_EQ(states(), step.states);
  }
  EXPECT_FALSE(cloud_.click({5000, 5000, true, false}).changed);
  EXPECT_EQ(cloud_.click({-1, 0}).hit, -1);
  EXPECT_EQ(states(), "---");
  EXPECT_EQ(cloud_.selectedText(), "");
}

TEST_F(TagCloud, FiltersWithAndAndWithout) {
  tag("a");
  tag("b", {"f3", "f1", "f2"});
  tag("c", {"f1"});
  cloud_.linkFileToTag("f1", 0);
  clickOn(0);
  for (const char* file : {"f3", "f1", "f2"}) {  // "f1" twice
    cloud_.linkFileToSelectedSimple(file);
  }
  EXPECT_EQ(cloud_.filterFiles(), (Links{"f1", "f3", "f1", "f2"}));
  clickOn(1, true);
  EXPECT_EQ(cloud_.selectedText(), "a  b");
  EXPECT_EQ(cloud_.filterFiles(), (Links{"f1", "f3", "f1", "f2"}));
  clickOn(2, false, true);
  EXPECT_EQ(cloud_.filterFiles(), (Links{"f3", "f2"}));
  EXPECT_EQ(cloud_.excludedList(), Links{"c"});
  clickOn(2, true);
  EXPECT_EQ(cloud_.filterFiles(), (Links{"f1", "f1"}));
  cloud_.resetStates();
  clickOn(2, false, true);
  EXPECT_TRUE(cloud_.filterFiles().empty());
}

TEST_F(TagCloud, LinksGoByTheBeginningOfTheName) {
  tag("a", {"s-00010", "s-0001x", "s-0001", "t"});
  EXPECT_EQ(links(0), (Links{"s-00010", "s-0001x", "t"}));  // one is refused
  clickOn(0);
  const std::string folder = place_.folder + "\\";
  cloud_.linkFileToSelected(folder, "s-0001");
  cloud_.linkFileToSelected(folder + "none\\", "new");
  EXPECT_EQ(links(0).size(), 3U);
  cloud_.linkFileToSelected(folder, "new");
  cloud_.linkFileToSelectedSimple("new");
  EXPECT_EQ(links(0), (Links{"s-00010", "s-0001x", "t", "new", "new"}));

  // Of two in a row the second stays until the next call.
  EXPECT_TRUE(cloud_.saveAll());
  cloud_.unlinkFile("s-0001");
  EXPECT_EQ(links(0), (Links{"s-0001x", "t", "new", "new"}));
  EXPECT_TRUE(cloud_.hasUnsaved());
  cloud_.unlinkFile("new");
  EXPECT_EQ(links(0), (Links{"s-0001x", "t", "new"}));
  cloud_.saveAll();
  cloud_.unlinkFile("");
  cloud_.unlinkFile("none");
  EXPECT_FALSE(cloud_.hasUnsaved());
  cloud_.linkFileToSelectedSimple("s-0001y");
  cloud_.linkFileToSelectedSimple("s-0001z");
  cloud_.unlinkFileFromTag("s-0001", 0);
  EXPECT_EQ(links(0), (Links{"t", "new"}));
}

TEST_F(TagCloud, AFilesTagsComeAndGo) {
  tag("a");
  tag("b");
  tag("b");
  put("tagdb/f.tdb", "b\r\n\r\nnew\r\nnew");
  clickOn(0);
  EXPECT_TRUE(cloud_.applyFileTags(place_.tagListFile("f")));
  EXPECT_EQ(names(), "a b b new");
  EXPECT_EQ(states(), "-sss");
  EXPECT_TRUE(cloud_.writeFileTags(place_.tagListFolder(), "g"));
  EXPECT_FALSE(cloud_.writeFileTags(place_.tagListFolder(), "..\\g"));
  EXPECT_FALSE(cloud_.writeFileTags(place_.tagListFolder() + "none\\", "g"));
  EXPECT_EQ(get("tagdb/g.tdb"), "b\r\nb\r\nnew\r\n");
  EXPECT_FALSE(cloud_.applyFileTags(place_.tagListFile("none")));
  EXPECT_EQ(states(), "----");
}

TEST_F(TagCloud, LaysRowsOutAndHitsWhatItDrew) {
  const auto measure = [](std::int32_t font, std::string_view text) {
    return TextExtent{static_cast<std::int32_t>(text.size()) * 10,
                      kTagFontHeights[static_cast<std::size_t>(font)]};
  };
  cloud_.addWeightedTag("aaaaa", 0);
  cloud_.addWeightedTag("bbbbb", 11);  // a step is two files
  cloud_.addWeightedTag("ccccc", 4);
  const TagLayout layout = cloud_.layout(120, -7, measure);
  ASSERT_EQ(layout.items.size(), 3U);
  // The tops of 12, 21 and 17 pixels: 11 - trunc(h / 1.75) below their rows'.
  EXPECT_EQ(layout.items[0].box, (TagBox{0, -2, 60, 18}));
  EXPECT_EQ(layout.items[1].box, (TagBox{60, -8, 120, 12}));
  EXPECT_EQ(layout.items[2].box, (TagBox{0, 15, 60, 35}));
  EXPECT_EQ(layout.items[2].fontHeight(), 17);
  EXPECT_EQ(layout.neededHeight, 42);
  EXPECT_EQ(cloud_.hitTest(0, 16), 0);  // the first of two that overlap
  EXPECT_EQ(cloud_.hitTest(59, 18), 2);
  EXPECT_EQ(cloud_.hitTest(120, 0), -1);
  // One pixel less, and the second tag goes into a row of its own.
  EXPECT_EQ(cloud_.layout(119, 0, measure).items[1].x, 0);
  // A name that is too wide even starts a second row.
  EXPECT_EQ(cloud_.layout(20, 0, measure).items[0].box.top, 25);

  cloud_.click({60, 25});
  ColourScheme light;
  light.selected = 0xFFFF00;
  CTagCloud other(light);
  EXPECT_EQ(other.colours().selectedContrast, 0U);
  other.setBackgroundColour(0xFFFFFF);
  EXPECT_EQ(other.colours().contrast, 0U);
  cloud_.clearLinks();
  EXPECT_EQ(cloud_.weights().fontIndex(0), 0);
  EXPECT_EQ(cloud_.weights().fontIndex(-9), 0);
  EXPECT_EQ(cloud_.weights().fontIndex(2'000'000'000), 5);
}

TEST_F(TagCloud, StatesShowInTheColours) {
  tag("a");
  tag("b");
  tag("c");
  clickOn(1);
  clickOn(2, false, true);
  const auto layout = cloud_.layout(500, 0, [](std::int32_t, std::string_view) {
    return TextExtent{9, 12};
  });
  const std::uint32_t expected[][2] = {
      {0xAAAAAA, 0x464646}, {0xFFFFFF, 0xF07800}, {0xF07800, 0xFFFFFF}};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(layout.items[i].textColour, expected[i][0]) << i;
    EXPECT_EQ(layout.items[i].faceColour, expected[i][1]) << i;
  }
}

}  // namespace
}  // namespace pv
