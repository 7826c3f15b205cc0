#pragma once

#include <array>
#include <string>
#include <string_view>

#include "app/panel_pages.h"

namespace pv {

/// The left panel's first pages are those that the strip cycles through.
inline constexpr int kStripPages = 4;

struct StripTab {
  std::string_view text;
  std::string_view image;
};

/// The tabs in the order in which they are added. Tab i stands for the page
/// behind it: tab 0 for page 1, the last tab for page 0.
extern const std::array<StripTab, kStripPages> kStripTabs;

[[nodiscard]] constexpr LeftPage pageOfTab(int tab) {
  return static_cast<LeftPage>((tab + 1) % kStripPages);
}
[[nodiscard]] constexpr int tabOfPage(LeftPage page) {
  return (static_cast<int>(page) + kStripPages - 1) % kStripPages;
}
[[nodiscard]] constexpr LeftPage nextPage(LeftPage page) {
  return static_cast<LeftPage>((static_cast<int>(page) + 1) % kStripPages);
}

/// "Vortexa-" and the text of the page's tab.
[[nodiscard]] std::string windowTitle(LeftPage page);

/// The line under the right panel; empty on most pages.
[[nodiscard]] std::string_view informationLine(LeftPage page);

}  // namespace pv
