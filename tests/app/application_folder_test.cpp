#include "app/application_folder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <string>

#include "util/program_path.h"
#include "util/temporary_folder.h"

namespace pv {
namespace {

TEST(ApplicationFolder, IsCutFromTheModuleName) {
  const std::pair<const char*, const char*> kCases[] = {
      {"C:\\tools\\app\\bin\\designer.exe", "c:\\tools\\app"},
      {"C:\\tools\\designer.exe", "c:\\tools"},
      {"C:\\Tools\\BIN\\DESIGNER.EXE", "c:\\tools"},
      {"C:\\tools\\mybin\\designer.exe", "c:\\tools\\m"},
      {"\\usr\\bin\\designer.exe", "\\usr"},
      {"\\bin\\designer.exe", ""},
      {"bin\\designer.exe", ""},
      {"designer.exe", ""},
      {".EXE", ""},
      {"EXE", "Illegal executable name 'exe'!"},
      {"", "Illegal executable name ''!"},
      {"C:\\Bin\\Designer", "Application must end in .exe! 'c:\\bin\\designer'"},
      {"C:\\\xC3\x89\\a.exe", "c:\\\xC3\x89"},
  };
  for (const auto& [name, folder] : kCases) {
    EXPECT_EQ(applicationFolder(name), folder) << name;
  }
  EXPECT_EQ(applicationFolder(std::nullopt), "Error");
}

TEST(ApplicationFolder, HelpIsBesideTheFirstBin) {
  EXPECT_EQ(helpPath("C:\\tools\\app\\bin\\designer.exe"),
            "c:\\tools\\app\\help\\vortexa\\main.htm");
  EXPECT_EQ(helpPath("C:\\Tools\\Designer.exe"), "c:\\tools\\designer.exehelp\\vortexa\\main.htm");
  EXPECT_EQ(helpPath("C:\\robin\\bin\\designer.exe", "a.htm"), "c:\\rohelp\\a.htm");
}

TEST(ApplicationFolder, LibrariesAreMadeOnlyBelowAFolderThatExists) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder.path() / "Show" / "Vortex");
  const auto made = [&](const char* part) {
    return std::filesystem::is_directory(folder.path() / "Show" / "Vortex" / part);
  };
  makeLibraryFolders(programPath(folder.path()) + "\\show");
  for (const auto* part : {"shapes/thumbs", "shapes/tagdb", "shapes/tags", "paths/thumbs",
                           "paths/tagdb", "paths/tags"}) {
    EXPECT_TRUE(made(part)) << part;
  }
  EXPECT_EQ(folder.names(), "Show");

  std::ofstream(folder.path() / "file") << "a";
  std::filesystem::current_path(folder.path());
  std::filesystem::create_directory("Error");
  for (const std::string& useless :
       {std::string("Error"), std::string(), programPath(folder.path() / "none"),
        programPath(folder.path() / "file"), std::string("\\proc")}) {
    makeLibraryFolders(useless);
  }
  EXPECT_EQ(folder.names(), "Error Show file");
  EXPECT_TRUE(std::filesystem::is_empty("Error"));
}

TEST(ApplicationFolder, CanBeGivenByName) {
  const TemporaryFolder folder;
  std::filesystem::current_path(folder.path());
  const std::string here = programPath(std::filesystem::current_path());
  EXPECT_EQ(applicationFolderAt("Show/../Next/"), here + "\\Next");
  EXPECT_EQ(applicationFolderAt("."), here);
  EXPECT_EQ(applicationFolderAt(folder.path()), programPath(folder.path()));
}

}  // namespace
}  // namespace pv
