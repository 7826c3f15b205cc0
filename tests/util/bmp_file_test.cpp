#include "util/bmp_file.h"

#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "temporary_folder.h"
#include "util/file_name.h"

namespace pv {
namespace {

std::string hex(std::span<const std::byte> bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (const auto byte : bytes) {
    text += kDigits[std::to_integer<std::size_t>(byte) / 16];
    text += kDigits[std::to_integer<std::size_t>(byte) % 16];
  }
  return text;
}

std::vector<std::byte> bytesOf(std::initializer_list<int> values) {
  std::vector<std::byte> bytes;
  for (const int value : values) {
    bytes.push_back(static_cast<std::byte>(value));
  }
  return bytes;
}

/// Overwrites a little-endian field of 2 or 4 bytes.
void patch(std::vector<std::byte>& bytes, std::size_t at, std::size_t size, std::uint32_t value) {
  for (std::size_t i = 0; i < size; ++i) {
    bytes[at + i] = static_cast<std::byte>(value >> (8 * i));
  }
}

TEST(BmpFile, TwentyFourBitsByteByByte) {
  const BmpPicture picture{2, 2, {0xFF112233, 0x00445566, 0x80778899, 0xFFAABBCC}};
  EXPECT_EQ(hex(encodeBmp(picture)),
            "424d"      // BM
            "46000000"  // 70 bytes in all
            "00000000"
            "36000000"  // pixels at 54
            "28000000"  // 40
            "02000000"
            "02000000"  // bottom-up
            "0100"
            "1800"
            "00000000"  // uncompressed
            "10000000"  // two rows of eight bytes
            "00000000"
            "00000000"
            "00000000"
            "00000000"
            "332211"
            "665544"
            "0000"
            "998877"
            "ccbbaa"
            "0000");
}

TEST(BmpFile, SizesOfEveryDepth) {
  const std::array<std::array<std::uint32_t, 3>, 9> depths{{{1, 1, 1},
                                                            {1, 2, 4},
                                                            {1, 4, 4},
                                                            {1, 5, 8},
                                                            {4, 3, 16},
                                                            {1, 17, 24},
                                                            {1, 25, 32},
                                                            {8, 8, 32},
                                                            {0xFFFFFFFF, 0xFFFFFFFF, 32}}};
  for (const auto& [planes, bits, depth] : depths) {
    EXPECT_EQ(bmpDepth(planes, bits), depth) << planes << " " << bits;
  }
  struct Case {
    std::uint16_t depth;
    std::uint32_t colours;
    std::size_t imageBytes;  ///< of 33 x 3
    std::size_t fileBytes;
  };
  const Case cases[] = {{1, 2, 24, 86},           {4, 16, 60, 178},  {8, 256, 108, 1186},
                        {16, 65536, 204, 262402}, {24, 0, 300, 354}, {32, 0, 396, 450}};
  for (const auto& [depth, colours, imageBytes, fileBytes] : cases) {
    EXPECT_EQ(bmpColourCount(depth), colours);
    EXPECT_EQ(bmpImageBytes(depth, 33, 3), imageBytes);
    const auto file = encodeDib(depth, 33, 3, {}, {});
    EXPECT_EQ(file.size(), fileBytes);
    const auto picture = decodeBmp(file);
    ASSERT_TRUE(picture) << depth;
    EXPECT_EQ(picture.value(), (BmpPicture{33, 3, std::vector<std::uint32_t>(99, 0xFF000000)}));
  }
}

TEST(BmpFile, ReadsPalettesAndBothRowOrders) {
  const std::array<std::uint32_t, 2> colours{0x112233, 0x445566};
  struct Case {
    std::uint16_t depth;
    std::vector<std::byte> rows;  ///< two of two pixels: 0 1, then 1 0
  };
  const Case cases[] = {{1, bytesOf({0x40, 0, 0, 0, 0x80, 0, 0, 0})},
                        {4, bytesOf({0x01, 0, 0, 0, 0x10, 0, 0, 0})},
                        {8, bytesOf({0, 1, 0, 0, 1, 0, 0, 0})}};
  const std::uint32_t a = 0xFF112233;
  const std::uint32_t b = 0xFF445566;
  for (const auto& [depth, rows] : cases) {
    auto file = encodeDib(depth, 2, 2, colours, rows);
    EXPECT_EQ(decodeBmp(file).value().words, (std::vector{a, b, b, a})) << depth;
    patch(file, 22, 4, static_cast<std::uint32_t>(-2));
    EXPECT_EQ(decodeBmp(file).value().words, (std::vector{b, a, a, b})) << depth;
    patch(file, 46, 4, 1);  // a table of one colour: the other is black
    EXPECT_EQ(decodeBmp(file).value().words[0], 0xFF000000U) << depth;
  }
  const auto high = encodeDib(16, 2, 1, {}, bytesOf({0xFF, 0x7F, 0x01, 0x40}));
  EXPECT_EQ(decodeBmp(high).value().words, (std::vector{0xFFFFFFFFU, 0xFF840008U}));
  const auto true32 = encodeDib(32, 1, 1, {}, bytesOf({1, 2, 3, 0}));
  EXPECT_EQ(decodeBmp(true32).value().words, std::vector{0xFF030201U});
}

TEST(BmpFile, RefusesWhatItCannotTrust) {
  const auto good = encodeDib(24, 3, 2, {}, {});
  struct Case {
    std::size_t at;
    std::size_t size;
    std::uint32_t value;
  };
  const Case cases[] = {
      {0, 2, 0x4142},      {10, 4, 55}, {10, 4, 0xFFFFFFFF}, {14, 4, 12},
      {14, 4, 0xFFFFFFFF}, {18, 4, 0},  {18, 4, 5},          {18, 4, 0x7FFFFFFF},
      {18, 4, 0xFFFFFFFF}, {22, 4, 0},  {22, 4, 3},          {22, 4, 0x80000000},
      {28, 2, 0},          {28, 2, 23}, {30, 4, 1},          {30, 4, 3},
  };
  for (const auto& [at, size, value] : cases) {
    auto bad = good;
    patch(bad, at, size, value);
    const auto picture = decodeBmp(bad);
    ASSERT_FALSE(picture) << at << " " << value;
    EXPECT_EQ(picture.error().kind, ErrorKind::BadData);
  }
  for (std::size_t size = 0; size < good.size(); ++size) {
    EXPECT_FALSE(decodeBmp(std::span(good).first(size))) << size;
  }
  // A palette that is told to begin among the pixels, or beyond the file, is cut.
  auto palette = encodeDib(8, 1, 1, {}, {});
  patch(palette, 10, 4, 54);
  palette.resize(58);
  EXPECT_TRUE(decodeBmp(palette));
  patch(palette, 14, 4, 124);
  EXPECT_TRUE(decodeBmp(palette));
}

TEST(BmpFile, WritesWholeFilesAndNamesTheFailure) {
  const TemporaryFolder folder;
  const BmpPicture picture{1, 1, {0xFF010203}};
  ASSERT_TRUE(writeBmpFile(folder.path() / "a.bmp", picture));
  EXPECT_EQ(readBmpFile(folder.path() / "a.bmp").value(), picture);
  EXPECT_EQ(readBmpFile(folder.path() / "b.bmp").error().kind, ErrorKind::NoInput);
  const auto status = writeBmpFile(folder.path() / "none" / "a.bmp", picture);
  ASSERT_FALSE(status);
  EXPECT_EQ(bmpFailureText(status.error()), "CreateFile\nError");
  EXPECT_EQ(bmpFailureText({ErrorKind::InputOutput, {}, {}, {}}), "error\nError");
  EXPECT_EQ(folder.names(), "a.bmp");
}

TEST(FileNames, OnlyWhatEverySystemTakes) {
  for (const std::string name :
       {"a", "My Shape-0001", "..a", ".a", "con1", "com", "com10", "lpt-1", "a.con", "\xC3\xA4",
        "\xF0\x9F\x98\x80", "(1) [2] {3} & ' ` ~ ! @ # $ % ^ + = ; ,"}) {
    EXPECT_TRUE(isValidFileName(name)) << name;
  }
  for (const std::string name : {"",
                                 ".",
                                 "..",
                                 "a.",
                                 "a ",
                                 "a/b",
                                 "a\\b",
                                 "a:b",
                                 "a*",
                                 "a?",
                                 "\"",
                                 "<",
                                 ">",
                                 "|",
                                 "con",
                                 "CON",
                                 "nul.txt",
                                 "Aux .x",
                                 "com1",
                                 "LPT9.a",
                                 "com0",
                                 "com\xC2\xB2",
                                 "conin$",
                                 "a\tb",
                                 "a\x7F",
                                 "\xC2\x85",
                                 "\xFF",
                                 "a\xC3",
                                 "\xC0\xAF",
                                 "\xED\xA0\x80",
                                 "\xF4\x90\x80\x80"}) {
    EXPECT_FALSE(isValidFileName(name)) << name;
  }
  EXPECT_FALSE(isValidFileName(std::string("a\0b", 3)));
  EXPECT_TRUE(isValidFileName(std::string(kMaxFileNameBytes, 'x')));
  EXPECT_FALSE(isValidFileName(std::string(kMaxFileNameBytes + 1, 'x')));
  EXPECT_TRUE(isFileNameCharacter(U'-'));
  EXPECT_FALSE(isFileNameCharacter(U'\\'));
}

}  // namespace
}  // namespace pv
