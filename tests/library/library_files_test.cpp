#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "library/file_numbering.h"
#include "library/line_file.h"
#include "library/thumbnail.h"
#include "library_fixture.h"

namespace pv {
namespace {

using Lines = std::vector<std::string>;

class LineFile : public LibraryTest {
 protected:
  [[nodiscard]] std::string at(const std::string& name) const {
    return place_.folder + "\\" + name;
  }
  CLineFile file_;
};

TEST_F(LineFile, ReadsEveryLineEnd) {
  struct Case {
    std::string bytes;
    Lines lines;
  };
  const std::string large(1 << 20, 'x');
  const Case cases[] = {
      {"", {}},
      {"\n", {""}},
      {"a\nb\r\n\r\nc", {"a", "b", "", "c"}},
      {"a\r\r\n\rb\r", {"a\r", "\rb\r"}},
      {std::string("\xFF\xE4\0z\n", 5), {std::string("\xFF\xE4\0z", 4)}},
      {large + "\n" + large, {large, large}},
  };
  for (const auto& [bytes, lines] : cases) {
    put("x", bytes);
    Lines read = {"old"};
    EXPECT_TRUE(file_.readLines(at("x"), read));
    EXPECT_EQ(read, lines);
    // What is written from lines without line ends in them comes back.
    EXPECT_TRUE(file_.writeLines(at("y"), lines));
    EXPECT_TRUE(file_.readLines(at("y"), read));
    EXPECT_EQ(read, lines);
  }
}

TEST_F(LineFile, WritesCrLfAndWhatStandsAroundAnEntry) {
  EXPECT_TRUE(file_.writeText(at("x"), "a\nb\r"));
  EXPECT_EQ(get("x"), "a\r\nb\r");
  file_.setLineStart("- ");
  file_.setLineEnd(";\n");
  EXPECT_TRUE(file_.writeLines(at("x"), {"a", ""}));
  EXPECT_EQ(get("x"), "- a;\r\n- ;\r\n");
  EXPECT_EQ(file_.errorText(), "");
}

TEST_F(LineFile, FailuresLeaveAReasonAndNoLines) {
  struct Asking : CLineFile {
    std::string askFileName(FileUse use, std::string_view nameSoFar) override {
      asked = nameSoFar;
      return use == FileUse::Save ? answer : std::string();
    }
    std::string answer;
    std::string asked = "not asked";
  };
  Lines lines = {"old"};
  EXPECT_FALSE(file_.readLines(at("none"), lines));
  EXPECT_TRUE(lines.empty());
  EXPECT_NE(file_.errorText().find("none"), std::string::npos);
  EXPECT_FALSE(file_.readLines(at("tags"), lines));
  EXPECT_FALSE(file_.writeLines(at("none\\x"), {}));
  EXPECT_FALSE(file_.writeText("", "x"));

  Asking asking;
  asking.answer = at("x");
  EXPECT_TRUE(asking.writeText("", "x"));
  EXPECT_EQ(asking.asked, "");
  EXPECT_FALSE(asking.readLines("", lines));
  EXPECT_EQ(contents(), "x=x\n");
}

using Numbering = LibraryTest;

TEST_F(Numbering, CountsOnFromTheHighestThumbnail) {
  struct Case {
    Lines thumbs;
    const char* core;
    const char* next;
  };
  const Case cases[] = {
      {{}, "core", "core-0000"},
      {{"core-0000.bmp", "core-0003.bmp"}, "core", "core-0004"},
      {{"core-9999.bmp"}, "core", "core-10000"},
      {{"core-abc.bmp"}, "core", "core-0001"},
      {{"core.bmp"}, "core", "core-0001"},
      {{"core- +12.bmp"}, "core", "core-0013"},
      {{"core- 12x9.bmp"}, "core", "core-0013"},
      {{"core-+ 12.bmp"}, "core", "core-0001"},
      {{"CORE-0007.BMP"}, "core", "core-0008"},
      {{"core-0007.j3d", "x-0009.bmp"}, "core", "core-0000"},
      {{"spiral2-0005.bmp"}, "spiral", "spiral-0000"},
      {{"spiral22-0005.bmp"}, "spiral", "spiral-0003"},
      {{"-0004.bmp"}, "", "-0005"},
      {{"core-2147483646.bmp"}, "core", "core-2147483647"},
      {{"core-2147483647.bmp"}, "core", "core-2147483648"},
      {{"core-99999999999999999999.bmp", "core-2147483648.bmp"}, "core", "core-2147483649"},
      {{"core--99999999999999999999.bmp"}, "core", "core-0000"},
  };
  for (const auto& [thumbs, core, next] : cases) {
    for (const auto& thumb : thumbs) {
      put("thumbs/" + thumb, "");
    }
    EXPECT_EQ(nextFileName(place_.thumbsFolder(), core), next);
    for (const auto& thumb : thumbs) {
      std::filesystem::remove(host("thumbs/" + thumb));
    }
  }
  EXPECT_EQ(nextFileName(place_.folder + "\\none\\", "core"), "");
  EXPECT_EQ(coreNameOf(" \tMy Shape \r\n"), "my shape");
}

// Every word names its row and column, so that a crop shows in the corners.
std::vector<std::uint32_t> numberedFrame(std::int32_t width, std::int32_t height) {
  std::vector<std::uint32_t> frame;
  for (std::int32_t y = 0; y < height; ++y) {
    for (std::int32_t x = 0; x < width; ++x) {
      frame.push_back(static_cast<std::uint32_t>(y << 8 | x));
    }
  }
  return frame;
}

TEST(Thumbnails, AreCutToFourThirdsAroundTheCentre) {
  struct Case {
    std::int32_t width;
    std::int32_t height;
    std::uint32_t first;  ///< lower left
    std::uint32_t last;   ///< upper right
  };
  const Case cases[] = {
      {96, 72, 0x0000, 0x475F}, {136, 72, 0x0014, 0x4773}, {96, 112, 0x1400, 0x5B5F},
      {97, 72, 0x0000, 0x475F}, {2, 1, 0x0000, 0x0000},    {1, 1, 0, 0},
  };
  for (const auto& [width, height, first, last] : cases) {
    const auto picture = makeThumbnail(numberedFrame(width, height), width, height);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 96);
    EXPECT_EQ(picture->words.size(), 96U * 72U);
    EXPECT_EQ(picture->words.front(), 0xFF000000U | first) << width;
    EXPECT_EQ(picture->words.back(), 0xFF000000U | last) << width;
  }
  EXPECT_FALSE(makeThumbnail(numberedFrame(4, 4), 5, 4));
  EXPECT_FALSE(makeThumbnail({}, 0, 10));
  constexpr auto kHuge = std::numeric_limits<std::int32_t>::max();
  EXPECT_FALSE(makeThumbnail(numberedFrame(4, 4), kHuge, kHuge));
}

TEST(Thumbnails, AverageTheAreaUnderAPixel) {
  std::vector<std::uint32_t> frame(192 * 144, 0x00102030);
  frame[0] = 0x00FF2030;  // a quarter of the first pixel
  const auto picture = makeThumbnail(frame, 192, 144);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->words[0], 0xFF4C2030U);  // (255 + 3 * 16 + 2) / 4
  EXPECT_EQ(picture->words[1], 0xFF102030U);
}

TEST(Thumbnails, OtherSizesAreFittedIn) {
  struct Case {
    std::int32_t width;
    std::int32_t height;
    std::size_t opaque;
    std::size_t firstOpaque;
  };
  const Case cases[] = {
      {96, 72, 96 * 72, 0},
      {192, 144, 96 * 72, 0},
      {400, 100, 96 * 24, 24 * 96},
      {100, 400, 18 * 72, 39},
      {4, 2, 8, 35 * 96 + 46},
      {4096, 1, 96, 35 * 96},
      {0, 0, 0, 0},
  };
  for (const auto& [width, height, opaque, firstOpaque] : cases) {
    const auto size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    const BmpPicture fitted = fitThumbnail({width, height, std::vector(size, 0xFF123456U)});
    ASSERT_EQ(fitted.words.size(), 96U * 72U);
    EXPECT_EQ(std::count(fitted.words.begin(), fitted.words.end(), 0xFF123456U), opaque) << width;
    const auto first = std::find(fitted.words.begin(), fitted.words.end(), 0xFF123456U);
    EXPECT_TRUE(opaque == 0 || first - fitted.words.begin() == std::ptrdiff_t(firstOpaque))
        << width;
  }
}

}  // namespace
}  // namespace pv
