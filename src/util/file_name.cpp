#include "util/file_name.h"

#include <algorithm>
#include <array>

#include "util/ascii.h"
#include "util/utf8.h"

namespace pv {
namespace {

constexpr std::u32string_view kReserved = U"<>:\"|?*/\\";
constexpr char32_t kLastControl = 0x1F;
constexpr char32_t kDelete = 0x7F;
constexpr char32_t kLastHighControl = 0x9F;

// Behind "com" and "lpt" stands a digit as well; see isDeviceName.
constexpr std::array<std::string_view, 7> kDevices{"con",    "prn",     "aux",   "nul",
                                                   "conin$", "conout$", "clock$"};
constexpr std::array<std::string_view, 2> kPorts{"com", "lpt"};
// Superscript 1, 2 and 3 count as digits to the system.
constexpr std::array<std::string_view, 3> kHighDigits{"\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};

bool isPortNumber(std::string_view text) {
  return (text.size() == 1 && text[0] >= '0' && text[0] <= '9') ||
         std::find(kHighDigits.begin(), kHighDigits.end(), text) != kHighDigits.end();
}

/// The system looks at what stands before the first dot, trailing blanks aside.
bool isDeviceName(std::string_view name) {
  std::string_view stem = name.substr(0, name.find('.'));
  stem = stem.substr(0, stem.find_last_not_of(' ') + 1);
  const auto is = [stem](std::string_view device) { return equalIgnoringCase(stem, device); };
  const auto isPort = [stem](std::string_view port) {
    return stem.size() > port.size() && equalIgnoringCase(stem.substr(0, port.size()), port) &&
           isPortNumber(stem.substr(port.size()));
  };
  return std::any_of(kDevices.begin(), kDevices.end(), is) ||
         std::any_of(kPorts.begin(), kPorts.end(), isPort);
}

}  // namespace

bool isFileNameCharacter(char32_t character) {
  const bool control =
      character <= kLastControl || (character >= kDelete && character <= kLastHighControl);
  return !control && kReserved.find(character) == std::u32string_view::npos;
}

bool isValidFileName(std::string_view name) {
  if (name.empty() || name.size() > kMaxFileNameBytes || name.ends_with('.') ||
      name.ends_with(' ') || isDeviceName(name)) {
    return false;
  }
  while (!name.empty()) {
    const auto character = takeUtf8Character(name);
    if (!character || !isFileNameCharacter(*character)) {
      return false;
    }
  }
  return true;
}

}  // namespace pv
