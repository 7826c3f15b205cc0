// Holds the tree to its own rules: who may include whom, no toolkit outside the
// ui folders, and no image without a file.

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace pv {
namespace {

namespace fs = std::filesystem;

// Folder to the folders that it may include, besides itself. A folder's ui may
// include what the folder may, the folder and the skinned controls in src/ui.
const std::map<std::string, std::set<std::string>> kMayInclude{
    {"math", {}},
    {"util", {}},
    {"raster", {"math"}},
    {"path", {"raster", "math", "util"}},
    {"shape", {"math", "util"}},
    {"view3d", {"shape", "raster", "math", "util"}},
    {"library", {"util", "raster"}},
    {"particle", {}},
    {"app", {"math", "util", "raster", "path", "shape", "view3d", "library", "particle"}},
    {"ui", {"util"}},
    {"cli", {"math", "util", "raster", "path", "shape", "view3d", "library", "particle", "app"}},
};
// A shape holds a path's record and nothing more of it.
const std::map<std::string, std::set<std::string>> kSingleHeaders{
    {"shape", {"path/path_record.h"}},
    {"view3d", {"path/path_record.h"}},
};

bool mayInclude(const fs::path& from, const std::string& header) {
  const std::string folder = from.begin()->string();
  const std::string other = header.substr(0, header.find('/'));
  const bool inUi = from.generic_string().find("/ui/") != std::string::npos || folder == "ui";
  if (header.find("/ui/") != std::string::npos || other == "ui") {
    return inUi && (other == folder || other == "ui" || folder == "app");
  }
  const auto single = kSingleHeaders.find(folder);
  return other == folder || kMayInclude.at(folder).contains(other) ||
         (single != kSingleHeaders.end() && single->second.contains(header));
}

TEST(House, FoldersIncludeOnlyWhatTheyMay) {
  const fs::path root = fs::path(PV_SOURCE_DIR) / "src";
  const std::regex include(R"re(^\s*#include\s+(["<])([^">]+)[">])re");
  std::size_t files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".h" && extension != ".cpp") {
      continue;
    }
    ++files;
    const fs::path relative = entry.path().lexically_relative(root);
    ASSERT_TRUE(kMayInclude.contains(relative.begin()->string())) << relative << " has no level";
    std::ifstream text(entry.path());
    std::smatch match;
    for (std::string line; std::getline(text, line);) {
      if (!std::regex_search(line, match, include)) {
        continue;
      }
      const std::string header = match[2];
      if (match[1] == "\"" && header.find('/') != std::string::npos) {
        EXPECT_TRUE(mayInclude(relative, header)) << relative << " includes " << header;
      }
      if (match[1] == "<" && header.starts_with('Q')) {
        EXPECT_NE(("/" + relative.generic_string()).find("/ui/"), std::string::npos)
            << relative << " includes " << header;
      }
    }
  }
  EXPECT_GT(files, 40U);
}

// A missing image is silent at run time, so every name that the code holds must
// have its drawing at each density.
TEST(House, EveryImageThatIsNamedIsThere) {
  const fs::path source = PV_SOURCE_DIR;
  const std::regex name(R"re([/\\]bin[/\\]+program[/\\]+([\w-]+)\.(png|cur))re");
  std::set<std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(source / "src")) {
    if (!entry.is_regular_file()) {
      continue;
    }
    std::ifstream file(entry.path());
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    for (std::sregex_iterator match(text.begin(), text.end(), name), end; match != end; ++match) {
      const std::string base = (*match)[1];
      if ((*match)[2] == "cur") {
        files.insert({base + ".cur", base + "-cursor.png", base + "-cursor@2x.png"});
      } else {
        files.insert({base + ".png", base + "@2x.png", base + "@3x.png"});
      }
    }
  }
  EXPECT_GT(files.size(), 150U);
  for (const std::string& file : files) {
    EXPECT_TRUE(fs::exists(source / "art/rendered/bin/program" / file)) << file;
  }
}

}  // namespace
}  // namespace pv
