// Runs every input that once broke a fuzz target through that target again.

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <iterator>
#include <span>
#include <string>
#include <vector>

#include "entries.h"

namespace pv::fuzz {
namespace {

namespace fs = std::filesystem;

using Entry = void (*)(std::span<const std::byte>);

void replay(const std::string& folder, Entry entry, int atLeast) {
  int files = 0;
  const fs::path findings = fs::path(PV_SOURCE_DIR) / "tests" / "fuzz-findings" / folder;
  if (fs::exists(findings)) {
    for (const auto& file : fs::directory_iterator(findings)) {
      std::cout << file.path().filename().string() << std::endl;  // before it can crash
      std::ifstream stream(file.path(), std::ios::binary);
      const std::vector<char> bytes(std::istreambuf_iterator<char>(stream), {});
      entry(std::as_bytes(std::span(bytes)));
      ++files;
    }
  }
  EXPECT_GE(files, atLeast);
}

TEST(FuzzFindings, ShapeFiles) {
  replay("shape_file", runShapeFile, 0);
}
TEST(FuzzFindings, PathFiles) {
  replay("path_file", runPathFile, 0);
}
TEST(FuzzFindings, Frames) {
  replay("render", runRender, 3);
}
TEST(FuzzFindings, SvgDrawings) {
  replay("svg", runSvg, 0);
}

}  // namespace
}  // namespace pv::fuzz
