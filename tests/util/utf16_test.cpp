#include "util/utf16.h"

#include <gtest/gtest.h>
#include <utility>

namespace pv {
namespace {

using namespace std::string_view_literals;

TEST(Utf16, CharactersOfEachLengthGoThereAndBack) {
  constexpr std::pair<std::string_view, std::u16string_view> kCases[] = {
      {"", u""},
      {"a\0b"sv, u"a\0b"sv},
      {"\x7F\xC2\x80\xDF\xBF", u"\x7F\x80\x7FF"},
      {"\xE0\xA0\x80\xEF\xBF\xBF", u"\x800\xFFFF"},
      {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\xD800\xDC00\xDBFF\xDFFF"},
  };
  for (const auto& [narrow, wide] : kCases) {
    EXPECT_EQ(utf16FromUtf8(narrow), wide) << narrow;
    EXPECT_EQ(utf8FromUtf16(wide), narrow) << narrow;
  }
}

TEST(Utf16, WhatIsNoTextIsReplacedOrKept) {
  for (const std::string_view bad : {"\x80"sv, "\xC0"sv, "\xC3"sv, "\xF8"sv}) {
    EXPECT_EQ(utf16FromUtf8(std::string(bad) + "a"), u"\uFFFDa") << bad;
  }
  EXPECT_EQ(utf16FromUtf8("\xE0\x80\x80"), u"\xFFFD\xFFFD\xFFFD");  // longer than it must be
  EXPECT_EQ(utf16FromUtf8("\xF4\x90\x80\x80").size(), 4U);          // beyond the last

  constexpr std::u16string_view kHalves = u"\xDC00x\xD800";
  constexpr std::string_view kKept = "\xED\xB0\x80x\xED\xA0\x80";
  EXPECT_EQ(utf8FromUtf16(kHalves), "\xEF\xBF\xBDx\xEF\xBF\xBD");
  EXPECT_EQ(utf8FromUtf16(kHalves, LoneHalves::Kept), kKept);
  EXPECT_EQ(utf16FromUtf8(kKept, LoneHalves::Kept), kHalves);
  EXPECT_EQ(utf16FromUtf8(kKept).size(), 7U);
}

}  // namespace
}  // namespace pv
