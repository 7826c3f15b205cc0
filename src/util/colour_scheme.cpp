#include "util/colour_scheme.h"

#include <optional>
#include <variant>

namespace pv {
namespace {

struct SchemeRow {
  std::string_view valueName;
  std::uint32_t ColourScheme::*colour;
};

// The first and the last are one value, as value names ignore case.
constexpr SchemeRow kRows[] = {
    {"BGColour", &ColourScheme::background}, {"TextColour", &ColourScheme::text},
    {"ButtonColour", &ColourScheme::button}, {"SelectedColour", &ColourScheme::selected},
    {"TitleColour", &ColourScheme::title},   {"DlgColour", &ColourScheme::dialog},
    {"BgColour", &ColourScheme::page},
};

}  // namespace

std::uint32_t readColour(const UserRegistry& registry, std::string_view valueName,
                         std::uint32_t defaultColour) {
  const auto value = registry.query(kSettingsKey, valueName);
  const auto* number = value ? std::get_if<std::uint32_t>(&*value) : nullptr;
  return number != nullptr ? *number : defaultColour;
}

ColourScheme readColourScheme(const UserRegistry& registry) {
  ColourScheme scheme;
  for (const auto& row : kRows) {
    // Swapping red and blue twice gives the colour back.
    auto& colour = scheme.*row.colour;
    colour = rgbFromStored(readColour(registry, row.valueName, rgbFromStored(colour)));
  }
  return scheme;
}

}  // namespace pv
