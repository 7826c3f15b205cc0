#include "library/file_numbering.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "library/folder_names.h"
#include "library/library_place.h"

namespace pv {
namespace {

constexpr std::string_view kThumbnail = ".bmp";
constexpr std::size_t kLeastDigits = 4;

/// What the C library's atoi makes of a text, with numbers that do not fit 32
/// bits cut to the nearest that do.
std::int64_t leadingNumber(std::string_view text) {
  constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) {
    text.remove_prefix(1);
  }
  std::int64_t number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') {
      break;
    }
    number = std::min(number * 10 + (c - '0'), kHighest + 1);
  }
  return std::clamp(negative ? -number : number, kLowest, kHighest);
}

std::int64_t numberOf(std::string_view fileName, std::size_t coreSize) {
  const std::string_view name = withoutExtension(fileName);
  return leadingNumber(name.substr(std::min(name.size(), coreSize + 1)));
}

std::string numberedName(std::string_view coreName, std::int64_t number) {
  std::string digits = std::to_string(number);
  digits.insert(0, kLeastDigits - std::min(digits.size(), kLeastDigits), '0');
  return std::string(coreName) + '-' + digits;
}

}  // namespace

std::string coreNameOf(std::string_view text) {
  return lowerCaseOf(trimmedText(text));
}

std::string nextFileName(std::string_view thumbsFolder, std::string_view coreName) {
  if (!folderExists(thumbsFolder)) {
    return {};
  }
  const FolderNames thumbs(thumbsFolder, std::string(coreName) + "*" + std::string(kThumbnail));
  std::int64_t highest = -1;
  for (const auto& fileName : thumbs.names()) {
    highest = std::max(highest, numberOf(fileName, coreName.size()));
  }
  std::string name = numberedName(coreName, ++highest);
  // Only where numbers were cut to fit can the next one be taken.
  while (thumbs.contains(name + std::string(kThumbnail))) {
    name = numberedName(coreName, ++highest);
  }
  return name;
}

}  // namespace pv
