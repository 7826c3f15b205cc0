#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "library/file_numbering.h"
#include "library/library_check.h"
#include "library/library_save.h"
#include "library/tag_editing.h"
#include "library/thumb_list.h"
#include "library_fixture.h"

namespace pv {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

const BmpPicture kPicture{1, 1, {0xFF000000}};

class Workflow : public LibraryTest {
 protected:
  /// Writes "shape" as the data.
  static Status writeShape(const fs::path& name) {
    std::ofstream(name.string() + ".j3d") << "shape";
    return Done{};
  }
  static Status refuseShape(const fs::path& name) {
    return Error{ErrorKind::InputOutput, name.string(), {}, "the disk is full"};
  }
  static Status loadShape(const fs::path& file) {
    std::ifstream in(file);
    std::string text;
    in >> text;
    return text == "shape" ? Status(Done{})
                           : Error{ErrorKind::BadData, file.string(), {}, "this is no shape"};
  }
  SaveReport save(const std::string& core) {
    return saveToLibrary(place_, core, cloud_, kPicture, writeShape);
  }
  void putThumbnail(const std::string& name) {
    ASSERT_TRUE(writeBmpFile(host("thumbs/" + name + ".bmp"), kPicture));
  }
  [[nodiscard]] std::string findings() const {
    std::string text;
    for (const auto& finding : checkLibrary(place_, loadShape)) {
      text += std::string(findingName(finding.kind)) + " " + finding.file + "\n";
    }
    return text;
  }
};

TEST_F(Workflow, SavesUnderTheNextNumberWithItsTags) {
  tag("red", {"shpe-0007"});
  tag("blue");
  clickOn(0);
  EXPECT_TRUE(save("shpe").saved());
  clickOn(1, true);
  const auto report = save("shpe");
  EXPECT_EQ(report.name, "shpe-0001");
  EXPECT_TRUE(report.tagsSaved);
  for (const char* thumbnail : {"thumbs/shpe-0000.bmp", "thumbs/shpe-0001.bmp"}) {
    EXPECT_EQ(get(thumbnail).size(), 58U);
  }
  const std::string files = contents();
  EXPECT_EQ(files.substr(0, files.find("thumbs/")),
            "shpe-0000.j3d=shape\nshpe-0001.j3d=shape\n"
            "tagdb/shpe-0000.tdb=red|\ntagdb/shpe-0001.tdb=red|blue|\n"
            "tags/blue.tag=shpe-0001|\ntags/red.tag=shpe-0007|shpe-0000|shpe-0001|\n");
  EXPECT_EQ(findings(), "dangling-link tags\\red.tag\n");
}

TEST_F(Workflow, WithoutAUsableNameNothingIsWritten) {
  tag("red");
  clickOn(0);
  for (const std::string& core : {std::string(), std::string("a/b"), std::string("a\\..\\b"),
                                  std::string("con."), std::string(300, 'x')}) {
    const auto report = save(core);
    EXPECT_EQ(report.name, "") << core;
    EXPECT_FALSE(report.saved());
  }
  const LibraryPlace nowhere{"", ".j3d"};
  EXPECT_EQ(beginSave(nowhere, "shpe", cloud_), "");
  fs::remove(host("thumbs"));
  EXPECT_EQ(save("shpe").name, "");
  EXPECT_EQ(finishSave(place_, "", kPicture, writeShape).name, "");
  EXPECT_EQ(finishSave(place_, "..\\x", kPicture, writeShape).name, "");
  EXPECT_EQ(contents(), "");
  EXPECT_TRUE(links(0).empty());
}

TEST_F(Workflow, AnOlderFileOfTheNameIsKept) {
  put("shpe-0000.j3d", "first");
  EXPECT_EQ(save("shpe").backupFile, place_.folder + "\\shpe-0000.j3d.bak");
  fs::remove(host("thumbs/shpe-0000.bmp"));
  save("shpe");
  fs::remove(host("thumbs/shpe-0000.bmp"));
  put("shpe-0000.j3d", "third");
  // A save that fails puts it back.
  const auto report = saveToLibrary(place_, "shpe", cloud_, kPicture, refuseShape);
  EXPECT_FALSE(report.saved());
  EXPECT_EQ(report.dataFailure.value_or(Error{}).reason, "the disk is full");
  EXPECT_EQ(report.backupFile, "");
  EXPECT_EQ(get("shpe-0000.j3d"), "third");
  EXPECT_EQ(get("shpe-0000.j3d.bak"), "first");
  EXPECT_EQ(get("shpe-0000.j3d.bak2"), "shape");
  EXPECT_FALSE(fs::exists(host("shpe-0000.j3d.bak3")));
}

TEST_F(Workflow, EachPartIsWrittenWhateverBecomesOfTheOthers) {
  tag("red");
  clickOn(0);
  fs::remove(host("tagdb"));
  EXPECT_TRUE(save("shpe").saved());
  EXPECT_EQ(get("tags/red.tag"), "shpe-0000\r\n");

  fs::create_directory(host("thumbs/shpe-0001.bmp"));  // cannot be replaced
  const auto report = save("shpe");
  EXPECT_EQ(bmpFailureText(report.thumbnailFailure.value_or(Error{})), "CreateFile\nError");
  EXPECT_TRUE(report.saved());
  fs::remove_all(host("tags"));
  EXPECT_FALSE(save("shpe").tagsSaved);
}

TEST_F(Workflow, DeletesAFilesPartsInOrder) {
  for (const char* name : {"a", "b"}) {
    put(std::string(name) + ".j3d", "shape");
    put("tagdb/" + std::string(name) + ".tdb", "");
    put("thumbs/" + std::string(name) + ".bmp", "");
  }
  fs::remove(host("tagdb/a.tdb"));
  EXPECT_FALSE(deleteLibraryFile(place_, "a"));
  EXPECT_FALSE(deleteLibraryFile(place_, "none"));
  EXPECT_TRUE(deleteLibraryFile(place_, "..\\shapes\\b"));
  EXPECT_EQ(contents(), "b.j3d=shape\ntagdb/b.tdb=\nthumbs/b.bmp=\n");

  CThumbList list;
  list.setFolder(place_.folder);
  list.setFilter("*.j3d");
  list.fill();
  EXPECT_EQ(deleteSelectedFile(list), "");
  list.select(0);
  EXPECT_EQ(deleteSelectedFile(list), "b");
  EXPECT_EQ(list.shownCount(), 0);
  EXPECT_EQ(contents(), "");
}

TEST_F(Workflow, AClickedTagGoesToTheSelectedFile) {
  tag("red", {"f-00010", "f-0001"});
  cloud_.linkFileToTag("g", 0);
  tag("blue");
  tag("green");
  put("tagdb/f-0001.tdb", "red\r\nnew\r\n");
  TagPanel panel;
  panel.fileSelected(cloud_, place_, "f-0001");
  EXPECT_EQ(states(), "s--s");
  EXPECT_EQ(names(), "red blue green new");
  EXPECT_EQ(panel.tagClicked(cloud_), TagPanelCode::None);  // nothing differs

  clickOn(1);
  EXPECT_EQ(panel.tagClicked(cloud_), TagPanelCode::FileTagsChanged);
  changeFileTags(cloud_, place_, panel.selectedFile());
  EXPECT_EQ(get("tagdb/f-0001.tdb"), "blue\r\n");
  EXPECT_EQ(links(0), Names{"g"});  // every link that starts with the name
  EXPECT_EQ(links(1), Names{"f-0001"});

  clickOn(2);
  EXPECT_EQ(panel.tagClicked(cloud_), TagPanelCode::FileTagsChanged);
  changeFileTags(cloud_, place_, panel.selectedFile());
  EXPECT_TRUE(links(1).empty());
  EXPECT_EQ(links(2), Names{"f-0001"});
  clickOn(2, false, true);  // excluded: the list loses the tag, the link stays
  EXPECT_EQ(panel.tagClicked(cloud_), TagPanelCode::FileTagsChanged);
  changeFileTags(cloud_, place_, panel.selectedFile());
  EXPECT_EQ(get("tagdb/f-0001.tdb"), "");
  EXPECT_EQ(links(2), Names{"f-0001"});
  EXPECT_EQ(contents("tags"), "");

  panel.fileSelected(cloud_, place_, "");
  clickOn(2);
  EXPECT_EQ(panel.tagClicked(cloud_), TagPanelCode::ShowFiltered);
  EXPECT_EQ(panel.filteredFiles(), Names{"f-0001"});
  clickOn(2, true);
  EXPECT_EQ(panel.tagClicked(cloud_), TagPanelCode::ShowAll);
  panel.fileSelected(cloud_, place_, "..\\f");
  EXPECT_EQ(panel.selectedFile(), "");
}

TEST_F(Workflow, DeleteModeEndsWithTheLastTag) {
  TagPanel panel;
  tag("a");
  tag("b");
  clickOn(0);
  cloud_.saveAll();
  EXPECT_FALSE(panel.deleteMode.tagClicked(cloud_));
  panel.deleteMode.toggle(cloud_);
  EXPECT_EQ(states(), "--");
  clickOn(1);
  EXPECT_EQ(panel.tagClicked(cloud_), TagPanelCode::None);
  EXPECT_EQ(contents(), "tags/a.tag=\n");
  EXPECT_TRUE(panel.deleteMode.on());
  clickOn(0, false, true);
  EXPECT_EQ(panel.tagClicked(cloud_), TagPanelCode::None);
  EXPECT_FALSE(panel.deleteMode.on());
  EXPECT_EQ(contents(), "");
}

TEST_F(Workflow, ReconstructionFollowsTheFilesTags) {
  for (const char* name : {"a", "b", "c"}) {
    put(std::string(name) + ".j3d", "shape");
  }
  for (const char* name : {"a", "B", "c"}) {  // the system may not care for case
    putThumbnail(name);
  }
  put("tagdb/a.tdb", "red\r\nblue\r\n");
  put("tagdb/B.TDB", "red\r\nred\r\n");
  put("tagdb/lost.tdb", "red\r\n");
  put("tags/red.tag", "a\r\nb\r\nb\r\ngone\r\n");
  put("tags/old.tag", "c\r\n");
  EXPECT_EQ(findings(),
            "lost-companion tagdb\\lost.tdb\n"
            "missing-tag tagdb\\c.tdb\ndangling-link tags\\red.tag\n"
            "missing-link tags\\blue.tag\n");
  cloud_.loadAll();
  reconstructLinks(cloud_, place_, Names{"a", "b", "c", "..\\a"});
  EXPECT_EQ(contents("tags"), "tags/blue.tag=a|\ntags/old.tag=\ntags/red.tag=a|b|\n");
  EXPECT_EQ(names(), "blue old red");
  EXPECT_EQ(states(), "---");
  EXPECT_EQ(cloud_.weights().maximum, 2);
  EXPECT_EQ(findings(), "lost-companion tagdb\\lost.tdb\n");

  reconstructLinks(cloud_, place_, Names{});
  EXPECT_EQ(contents("tags"), "tags/blue.tag=\ntags/old.tag=\ntags/red.tag=\n");
}

TEST_F(Workflow, TheCheckNamesEveryFault) {
  put("a.j3d", "no");
  put("b.j3d", "shape");
  put("b.j3d.bak2", "older");
  put("b.j3d.backup", "what is this");
  put("c\x7F.j3d", "shape");
  put("readme.txt", "");
  put("thumbs/b.bmp", "no picture");
  put("thumbs/lost.bmp", "");
  put("tagdb/b.tdb", "..\r\nred\r\n");
  put("tags/.pv-1-2.tmp", "an interrupted save");
  put("tags/red.tag", "b\r\n");
  put("tags/red.txt", "");
  put("tags/big.tag", std::string(kMaxLineFileBytes + 1, 'x'));
  EXPECT_EQ(findings(),
            "foreign-file b.j3d.backup\ninvalid-name c\x7F.j3d\nforeign-file readme.txt\n"
            "data-does-not-load a.j3d\n"
            "bad-thumbnail thumbs\\b.bmp\nlost-companion thumbs\\lost.bmp\n"
            "missing-thumbnail a.j3d\n"
            "foreign-file tags\\red.txt\nunreadable-list tags\\big.tag\n"
            "invalid-name tagdb\\b.tdb\n");
  fs::remove_all(host("tags"));
  EXPECT_EQ(findings().substr(0, 20), "missing-folder tags\n");
  fs::create_directory(host("tags"));
  for (int i = 0; i < 257; ++i) {
    put("tags/" + std::to_string(i) + ".tag", "");
  }
  EXPECT_NE(findings().find("too-many-tags tags\n"), std::string::npos);
}

TEST(Findings, EveryKindHasItsName) {
  for (int i = 0; i <= static_cast<int>(FindingKind::TooManyTags); ++i) {
    EXPECT_NE(findingName(static_cast<FindingKind>(i)), "") << i;
  }
  EXPECT_TRUE(isRepairedByReconstruction(FindingKind::MissingLink));
  EXPECT_FALSE(isRepairedByReconstruction(FindingKind::DataDoesNotLoad));
}

}  // namespace
}  // namespace pv
