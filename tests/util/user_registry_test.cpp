#include "util/user_registry.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

#include "util/temporary_folder.h"

namespace pv {
namespace {

constexpr std::string_view kKey = "Software\\Maker\\Tool";

class UserRegistryTest : public ::testing::Test {
 protected:
  void store(std::string_view text) const {
    std::filesystem::create_directories(file_.parent_path());
    std::ofstream(file_, std::ios::binary) << text;
  }
  void storeValue(const std::string& line) const {
    store("[HKEY_CURRENT_USER\\" + std::string(kKey) + "]\n" + line + "\n");
  }
  std::string stored() const {
    std::ifstream in(file_, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  std::optional<RegistryValue> value(std::string_view name = "Name") const {
    return registry_.query(kKey, name);
  }
  static RegistryBytes bytes(std::uint32_t type, std::initializer_list<int> values) {
    RegistryBytes result{type, {}};
    for (const int v : values) {
      result.bytes.push_back(static_cast<std::byte>(v));
    }
    return result;
  }

  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_.path() / "config" / "software.maker.tool.reg";
  UserRegistry registry_{file_.parent_path()};
};

TEST_F(UserRegistryTest, TypesOfValues) {
  const std::pair<const char*, RegistryValue> kCases[] = {
      {R"("Name"="say \"a\\b\"")", std::string(R"(say "a\b")")},
      {R"(  "nAME" = "é" )", std::string("é")},
      {R"("Name"="")", std::string()},
      {R"("Name"=dword:00f07800)", 0xF07800U},
      {R"("Name"=dword:FFFFFFFF)", 0xFFFFFFFFU},
      {R"("Name"=hex(4):01,02,03,04)", 0x04030201U},
      {R"("Name"=hex(4):01,02,03)", bytes(4, {1, 2, 3})},
      {"\"Name\"=hex(b):01,02,03,04,\\\r\n  05,06,\\\r\n  07,08",
       bytes(11, {1, 2, 3, 4, 5, 6, 7, 8})},
      {R"("Name"=hex:)", bytes(3, {})},
      {R"("Name"=hex(1):3d,d8,00,de,41,00,00,d8,00,00,42,00)", std::string("😀A\xEF\xBF\xBD")},
      {"\"Name\"=dword:1\n\"Name\"=dword:2\n\"Name\"=dword:zz", 2U},
  };
  for (const auto& [line, expected] : kCases) {
    storeValue(line);
    EXPECT_EQ(value(), expected) << line;
  }
  storeValue("@=\"own\"");
  EXPECT_EQ(value(""), RegistryValue("own"));
}

TEST_F(UserRegistryTest, MeaninglessLinesHaveNoValue) {
  for (const char* line :
       {"\"Name\"=dword:", "\"Name\"=dword:-1", "\"Name\"=dword:123456789", "\"Name\"=\"open",
        "\"Name\"=\"open\\", "\"Name\"=\"a\" b", "\"Name\"=hex:1,,2", "\"Name\"=hex(",
        "\"Name\"=hex()", "\"Name\"=hex(1:00", "\"Name\"=hex:100", "\"Name\"",
        "\"Name\"=", "Name=\"a\"", "\"", "@", "\"Name\"=hex:zz,\\", "\"Name\"=dword:1\n\"Name\"=-",
        "[HKEY_CURRENT_USER\\Other]\n\"Name\"=\"a\""}) {
    storeValue(line);
    EXPECT_EQ(value(), std::nullopt) << line;
  }
}

TEST_F(UserRegistryTest, ReadsTheEncodingOfRealExports) {
  const std::string text = "\r\n[HKEY_CURRENT_USER\\SOFTWARE\\Maker\\tool]\r\n\"Name\"=\"a\"\r\n";
  std::string utf16 = "\xFF\xFE";
  for (const char c : text) {
    utf16 += {c, '\0'};
  }
  store(utf16);
  EXPECT_EQ(value(), RegistryValue("a"));
  store("\xEF\xBB\xBF" + text.substr(2));
  EXPECT_EQ(value(), RegistryValue("a"));
}

TEST_F(UserRegistryTest, ForeignLinesStayAsTheyAre) {
  const std::string before =
      "Windows Registry Editor Version 5.00\r\n\r\n; "
      "mine\r\n[HKEY_CURRENT_USER\\Software\\Maker\\Tool]\r\n"
      "\"Bytes\"=hex:00,\\\r\n  01\r\nnonsense \xFF\r\n";
  const std::string after = "\r\n\r\n[HKEY_CURRENT_USER\\Other]\r\n\"Name\"=\"other\"";
  store(before + "\"NAME\"=hex:01,\\\r\n  02" + after);
  ASSERT_TRUE(registry_.setString(kKey, "Name", "a\\\"é").ok());
  EXPECT_EQ(stored(), before + R"("NAME"="a\\\"é")" + after);
  ASSERT_TRUE(registry_.setString(kKey, "New", "").ok());
  EXPECT_EQ(stored(), before + R"("NAME"="a\\\"é")" + "\r\n\"New\"=\"\"" + after);
  EXPECT_EQ(value(), RegistryValue("a\\\"é"));

  store("junk without an end");
  ASSERT_TRUE(registry_.setString(kKey, "Name", "a").ok());
  EXPECT_EQ(stored(),
            "junk without an end\n\n[HKEY_CURRENT_USER\\Software\\Maker\\Tool]\n\"Name\"=\"a\"\n");

  storeValue("\"Bytes\"=hex:00,\\");
  ASSERT_TRUE(registry_.setString(kKey, "Name", "after a cut").ok());
  EXPECT_EQ(value(), RegistryValue("after a cut"));
}

TEST_F(UserRegistryTest, MakesOneFilePerKeyAndNeverLeavesTheFolder) {
  for (const auto* key : {"Software\\Maker\\Tool", "../escape", "a.b", "a\\b"}) {
    ASSERT_TRUE(registry_.setString(key, "Name", key).ok());
    EXPECT_EQ(registry_.query(key, "name"), RegistryValue(key));
  }
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(file_.parent_path())) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (std::vector<std::string>{"%2e%2e%2fescape.reg", "a%2eb.reg", "a.b.reg",
                                             "software.maker.tool.reg"}));
  EXPECT_EQ(folder_.names(), "config");
}

TEST_F(UserRegistryTest, WhatCannotBeKeptLeavesTheFileAlone) {
  storeValue("\"Name\"=\"old\"");
  const std::string old = stored();
  EXPECT_FALSE(registry_.setString(kKey, "Name", "two\nlines").ok());
  EXPECT_FALSE(registry_.setString(kKey, "Na\rme", "a").ok());
  EXPECT_FALSE(registry_.setString(kKey, "Name", std::string(1 << 20, 'x')).ok());
  std::filesystem::permissions(file_, std::filesystem::perms::owner_read);
  EXPECT_FALSE(registry_.setString(kKey, "Name", "new").ok());
  EXPECT_EQ(stored(), old);
  std::filesystem::permissions(file_, std::filesystem::perms::owner_all);

  store(std::string((1 << 20) + 1, '\n'));
  EXPECT_EQ(value(), std::nullopt);
  EXPECT_FALSE(registry_.setString(kKey, "Name", "new").ok());
  EXPECT_EQ(stored().size(), (1U << 20) + 1);
}

TEST_F(UserRegistryTest, FoldersThatCannotBeUsedHoldNothing) {
  std::ofstream(folder_.path() / "file") << "a";
  std::filesystem::create_directories(folder_.path() / "taken" / file_.filename());
  for (const auto& folder :
       {std::filesystem::path(), folder_.path() / "file", folder_.path() / "file" / "below",
        folder_.path() / "taken", std::filesystem::path("/proc/none")}) {
    UserRegistry registry(folder);
    EXPECT_EQ(registry.query(kKey, "Name"), std::nullopt) << folder;
    EXPECT_FALSE(registry.setString(kKey, "Name", "a").ok()) << folder;
  }
}

}  // namespace
}  // namespace pv
