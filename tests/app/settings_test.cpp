#include "app/settings.h"

#include <fstream>
#include <gtest/gtest.h>
#include <string>

#include "util/colour_scheme.h"
#include "util/temporary_folder.h"

namespace pv {
namespace {

class SettingsTest : public ::testing::Test {
 protected:
  void store(const std::string& lines) const {
    std::ofstream(folder_.path() / "software.amberly.kaleido.ui.reg")
        << "[HKEY_CURRENT_USER\\Software\\Amberly\\kaleido\\UI]\n"
        << lines << "\n";
  }

  TemporaryFolder folder_;
  UserRegistry registry_{folder_.path()};
};

TEST_F(SettingsTest, CoreNamesComeBackAndOverwriteOtherTypes) {
  EXPECT_EQ(readCoreNames(registry_), (CoreNames{"shpe", "path", "part"}));
  store(
      "\"CoreShapeFilename\"=dword:00000001\n\"corepathfilename\"=\"mine\"\n\"TextColour\"=dword:"
      "1");
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
  UserRegistry nowhere{std::filesystem::path()};
  writeCoreNames(nowhere, {"a", "b", "c"});
  EXPECT_EQ(readCoreNames(nowhere), CoreNames());
  EXPECT_EQ(readColourScheme(nowhere), ColourScheme());
}

TEST_F(SettingsTest, OnlyFourByteNumbersAreColours) {
  const auto selected = [this](const char* value) {
    store(std::string("\"SelectedColour\"=") + value);
    return readColourScheme(registry_).selected;
  };
  EXPECT_EQ(selected("dword:00112233"), 0x332211U);
  EXPECT_EQ(selected("dword:ff000001"), 0x010000U);
  EXPECT_EQ(selected("hex(4):33,22,11,00"), 0x332211U);
  for (const char* other : {"\"00112233\"", "hex(b):33,22,11,00,00,00,00,00", "hex:33,22,11,00",
                            "hex(4):33,22,11", "hex(5):33,22,11,00"}) {
    EXPECT_EQ(selected(other), 0xF07800U) << other;
  }
}

TEST_F(SettingsTest, EachNameSetsItsOwnColour) {
  store(
      "\"BGColour\"=dword:1\n\"TextColour\"=dword:2\n\"ButtonColour\"=dword:3\n"
      "\"SelectedColour\"=dword:4\n\"TitleColour\"=dword:5\n\"DlgColour\"=dword:6");
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
