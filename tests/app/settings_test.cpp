#include "app/settings.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>

#include "util/colour_scheme.h"
#include "util/registry_store.h"

namespace pv {
namespace {

constexpr std::uint32_t kText = 1;
constexpr std::uint32_t kNumber = 4;

class SettingsTest : public ::testing::Test {
 protected:
  void put(std::string_view name, std::uint32_t type, std::initializer_list<std::uint8_t> bytes) {
    store_.put("Software\\Amberly\\kaleido\\UI", name, type, bytes);
  }

 private:
  RegistryStore store_;

 protected:
  UserRegistry& registry_ = store_.registry();
};

TEST_F(SettingsTest, CoreNamesComeBackAndOverwriteOtherTypes) {
  EXPECT_EQ(readCoreNames(registry_), (CoreNames{"shpe", "path", "part"}));
  put("CoreShapeFilename", kNumber, {1, 0, 0, 0});
  put("corepathfilename", kText, {'m', 0, 'i', 0, 'n', 0, 'e', 0, 0, 0});
  put("TextColour", kNumber, {1, 0, 0, 0});
  const auto names = readCoreNames(registry_);
  EXPECT_EQ(names, (CoreNames{"shpe", "mine", "part"}));
  writeCoreNames(registry_, names);
  EXPECT_EQ(registry_.query(kSettingsKey, "CoreShapeFilename"), RegistryValue("shpe"));
  EXPECT_EQ(registry_.query(kSettingsKey, "CoreParticleFilename"), RegistryValue("part"));
  EXPECT_EQ(registry_.query(kSettingsKey, "TextColour"), RegistryValue(1U));

  const CoreNames changed{"", "a \"b\" \\", "größe"};
  writeCoreNames(registry_, changed);
  EXPECT_EQ(readCoreNames(registry_), changed);
}

TEST_F(SettingsTest, ATextHasToFitItsBuffer) {
  const std::string longest(1023, 'x');
  writeSetting(registry_, "Name", longest);
  EXPECT_EQ(readSetting(registry_, "Name", "default"), longest);
  writeSetting(registry_, "Name", longest + "x");
  EXPECT_EQ(readSetting(registry_, "Name", "default"), "default");
}

TEST_F(SettingsTest, WithoutAStoreThereAreDefaultsAndNoComplaint) {
  EXPECT_EQ(readColourScheme(registry_), ColourScheme());
#ifndef _WIN32
  UserRegistry nowhere{std::filesystem::path()};
  writeCoreNames(nowhere, {"a", "b", "c"});
  EXPECT_EQ(readCoreNames(nowhere), CoreNames());
  EXPECT_EQ(readColourScheme(nowhere), ColourScheme());
#endif
}

TEST_F(SettingsTest, OnlyFourByteNumbersAreColours) {
  struct Row {
    std::uint32_t type;
    std::initializer_list<std::uint8_t> bytes;
    std::uint32_t colour = 0xF07800;  // the default
  };
  for (const Row& row :
       {Row{kNumber, {0x33, 0x22, 0x11, 0}, 0x332211}, Row{kNumber, {1, 0, 0, 0xFF}, 0x010000},
        Row{kNumber, {0x33, 0x22, 0x11}}, Row{kText, {'0', 0, 0, 0}}, Row{2, {'0', 0, 0, 0}},
        Row{3, {0x33, 0x22, 0x11, 0}}, Row{5, {0x33, 0x22, 0x11, 0}}, Row{7, {'0', 0, 0, 0, 0, 0}},
        Row{11, {0x33, 0x22, 0x11, 0, 0, 0, 0, 0}}}) {
    put("SelectedColour", row.type, row.bytes);
    EXPECT_EQ(readColourScheme(registry_).selected, row.colour)
        << "type " << row.type << ", bytes " << row.bytes.size();
  }
}

TEST_F(SettingsTest, EachNameSetsItsOwnColour) {
  std::uint8_t number = 0;
  for (const char* name :
       {"BGColour", "TextColour", "ButtonColour", "SelectedColour", "TitleColour", "DlgColour"}) {
    put(name, kNumber, {++number, 0, 0, 0});
  }
  EXPECT_EQ(readColourScheme(registry_),
            (ColourScheme{0x10000, 0x20000, 0x30000, 0x40000, 0x50000, 0x60000, 0x10000}));
  EXPECT_EQ(readColour(registry_, "DLGCOLOUR", 7), 6U);
  EXPECT_EQ(readColour(registry_, "Missing", 0x9B9B9B), 0x9B9B9BU);
}

TEST(Colours, ContrastWeighsRedAThird) {
  EXPECT_EQ(contrastColour(0x464646), 0xFFFFFFU);
  EXPECT_EQ(contrastColour(0x0000DB), 0xFFFFFFU);
  EXPECT_EQ(contrastColour(0x0000DC), 0x000000U);
  EXPECT_EQ(contrastColour(0x0200DB), 0xFFFFFFU);
  EXPECT_EQ(contrastColour(0x0300DB), 0x000000U);
  EXPECT_EQ(contrastColour(0xF07800), 0xFFFFFFU);
}

}  // namespace
}  // namespace pv
