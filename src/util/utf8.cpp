#include "util/utf8.h"

#include <array>

namespace pv {
namespace {

constexpr char32_t kLast = 0x10FFFF;
constexpr char32_t kFirstHalf = 0xD800;
constexpr char32_t kLastHalf = 0xDFFF;

/// How a character of that many bytes begins and the least code that needs them.
struct Utf8Form {
  std::uint8_t mask;
  std::uint8_t lead;
  char32_t least;
};
constexpr std::array<Utf8Form, 4> kUtf8Forms{
    {{0x80, 0x00, 0}, {0xE0, 0xC0, 0x80}, {0xF0, 0xE0, 0x800}, {0xF8, 0xF0, 0x10000}}};

}  // namespace

std::optional<char32_t> takeUtf8Character(std::string_view& text, LoneHalves halves) {
  const auto lead = static_cast<std::uint8_t>(text.front());
  for (std::size_t more = 0; more < kUtf8Forms.size(); ++more) {
    const auto& form = kUtf8Forms[more];
    if ((lead & form.mask) != form.lead) {
      continue;
    }
    if (text.size() <= more) {
      return std::nullopt;
    }
    char32_t code = lead & static_cast<std::uint8_t>(~form.mask);
    for (std::size_t i = 1; i <= more; ++i) {
      const auto byte = static_cast<std::uint8_t>(text[i]);
      if ((byte & 0xC0U) != 0x80U) {
        return std::nullopt;
      }
      code = (code << 6U) | (byte & 0x3FU);
    }
    const bool half = code >= kFirstHalf && code <= kLastHalf;
    if (code < form.least || code > kLast || (half && halves == LoneHalves::Refused)) {
      return std::nullopt;
    }
    text.remove_prefix(more + 1);
    return code;
  }
  return std::nullopt;
}

void appendUtf8Character(std::string& text, char32_t character) {
  std::size_t more = 0;
  while (more + 1 < kUtf8Forms.size() && character >= kUtf8Forms[more + 1].least) {
    ++more;
  }
  text += static_cast<char>(kUtf8Forms[more].lead | (character >> (6 * more)));
  while (more-- > 0) {
    text += static_cast<char>(0x80U | ((character >> (6 * more)) & 0x3FU));
  }
}

}  // namespace pv
