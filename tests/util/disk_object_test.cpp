#include "util/disk_object.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "temporary_folder.h"
#include "util/files.h"
#include "util/program_path.h"

namespace pv {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class DiskObject : public ::testing::Test {
 protected:
  void put(const char* name) { ASSERT_TRUE(writeFile(folder_.path() / name, {})); }
  void putFolder(const char* name) { ASSERT_TRUE(fs::create_directory(folder_.path() / name)); }
  /// A program path below the test's folder.
  [[nodiscard]] std::string at(const std::string& rest) const {
    return programPath(folder_.path()) + rest;
  }
  [[nodiscard]] fs::path host(const char* name) const { return folder_.path() / name; }

  CDiskObject disk_;

 private:
  TemporaryFolder folder_;
};

TEST_F(DiskObject, ListsFilesInByteOrderIntoWhatIsThere) {
  put("a.tag");
  put("B.tag");
  put("c");
  put(".pv-left-behind.tmp");
  putFolder("sub.tag");
  Names list;
  ASSERT_TRUE(disk_.listFiles(at(""), list));
  EXPECT_EQ(list, (Names{"B.tag", "a.tag", "c"}));

  // Each entry goes before the first greater one, also in a list out of order.
  list = {"x", "a.sag"};
  Names shown;
  disk_.setFeedback([&shown](std::string_view text) { shown.emplace_back(text); });
  std::string slashes = at("");
  std::replace(slashes.begin(), slashes.end(), '\\', '/');
  ASSERT_TRUE(disk_.listFilesMatching("?.TAG", slashes, list));
  EXPECT_EQ(list, (Names{"B.tag", "a.tag", "x", "a.sag"}));
  EXPECT_EQ(shown.size(), 2U);

  list.clear();
  ASSERT_TRUE(disk_.listFilesMatching("a*", at("\\"), list, ListMode::FullPaths));
  EXPECT_EQ(list, Names{at("\\a.tag")});
}

TEST_F(DiskObject, ASearchWithoutHitsFailsAndLeavesTheList) {
  Names list = {"kept"};
  EXPECT_TRUE(disk_.listFiles(at(""), list));  // the folder itself fits
  EXPECT_FALSE(disk_.listFilesMatching("*.bmp", at(""), list));
  EXPECT_TRUE(disk_.errorText().ends_with(" " + at("\\*.bmp"))) << disk_.errorText();
  EXPECT_FALSE(disk_.listFiles(at("\\none"), list));
  EXPECT_NE(disk_.errorText(), "");
  putFolder("x.bmp");
  EXPECT_TRUE(disk_.listFilesMatching("*.bmp", at(""), list));
  EXPECT_EQ(disk_.errorText(), "");
  EXPECT_EQ(list, Names{"kept"});
}

TEST(DiskObjectPatterns, StarsAndQuestionMarks) {
  for (const char* fits : {"*", "*.*", "core-*.bmp", "CORE-????.BMP", "c*e*1*.b*p", "**"}) {
    EXPECT_TRUE(matchesPattern("core-0012.bmp", fits)) << fits;
  }
  EXPECT_FALSE(matchesPattern("core-0012.bmp", "*-*-*"));
  EXPECT_TRUE(matchesPattern("none", "*.*"));
  EXPECT_TRUE(matchesPattern("\xC3\xA4.j3d", "?.j3d"));
  EXPECT_FALSE(matchesPattern("none", "*.??"));
  EXPECT_FALSE(matchesPattern("abc", "ab"));
  EXPECT_FALSE(matchesPattern("ab", "ab?"));
  EXPECT_FALSE(matchesPattern(std::string(5000, 'a'), "*a*a*a*a*a*a*a*a*a*b"));
}

TEST_F(DiskObject, SplitsAndQualifies) {
  EXPECT_EQ(CDiskObject::fileNameOf("\\x/y\\z.j3d"), "z.j3d");
  EXPECT_EQ(CDiskObject::fileNameOf("z.j3d"), "z.j3d");
  EXPECT_EQ(CDiskObject::directoryOf("\\\\host/share\\z"), "\\\\host\\share");
  EXPECT_EQ(CDiskObject::directoryOf("z"), programPath(fs::current_path()));

  const auto qualified = [](std::string folder) {
    CDiskObject::qualifyFolder(folder);
    return folder;
  };
  EXPECT_EQ(qualified("//host/share"), "\\\\host\\share\\");
  EXPECT_EQ(qualified("a/b\\"), programPath(fs::current_path()) + "\\a\\b\\");
#ifndef _WIN32
  EXPECT_EQ(qualified("/a//b"), "\\a\\\\b\\");
#endif
}

TEST_F(DiskObject, MakesAndRemoves) {
  EXPECT_TRUE(disk_.createDirectory(at("\\d")));
  EXPECT_FALSE(disk_.createDirectory(at("\\d")));
  EXPECT_FALSE(disk_.createDirectory(at("\\none\\d")));
  EXPECT_TRUE(disk_.createFile(at("\\d\\f")));
  EXPECT_FALSE(disk_.createFile(at("\\d\\f")));
  EXPECT_EQ(disk_.fileInformation(at("\\d\\f")), FileInformation{});
  EXPECT_TRUE(disk_.fileInformation(at("\\d")).value_or(FileInformation{}).isFolder);
  EXPECT_FALSE(disk_.fileInformation(at("\\none")));

  EXPECT_FALSE(disk_.removeDirectory(at("\\d")));  // not empty
  EXPECT_FALSE(disk_.removeFile(at("\\d")));
  EXPECT_FALSE(disk_.removeDirectory(at("\\d\\f")));
  EXPECT_FALSE(disk_.removeFile(at("\\none")));
  EXPECT_FALSE(disk_.removeFile(at(std::string("\\d\\f\0x", 6))));
  EXPECT_EQ(disk_.errorText(), "CDiskObject internal error");
  EXPECT_TRUE(fs::exists(host("d/f")));
  EXPECT_TRUE(disk_.removeFile(at("\\d\\f")));
  EXPECT_TRUE(disk_.removeDirectory(at("\\d")));
}

#ifndef _WIN32

TEST_F(DiskObject, HostPathsFindOtherCaseAndKeepTheRest) {
  putFolder("Bin");
  put("Bin/Tab-Wire.png");
  put("Bin/TAB-wire.png");
  put("Bin/exact");
  put("Bin/EXACT");
  EXPECT_EQ(hostPath(at("\\\\bin/\\tab-wire.png\\")), host("Bin/TAB-wire.png"));
  EXPECT_EQ(hostPath(at("\\bin\\exact")), host("Bin/exact"));
  EXPECT_EQ(hostPath(at("\\BIN\\New\\EXact")), host("Bin/New/EXact"));
  EXPECT_EQ(hostPath("\\"), fs::path("/"));
  EXPECT_EQ(hostPath(""), fs::path());
  EXPECT_EQ(hostPath("no-such\\x"), fs::path("no-such/x"));
}

#endif

}  // namespace
}  // namespace pv
