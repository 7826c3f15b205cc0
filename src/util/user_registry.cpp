#include "util/user_registry.h"

#include <algorithm>

#include "util/little_endian.h"
#include "util/utf16.h"

namespace pv {
namespace {

constexpr std::uint32_t kTextType = 1;
constexpr std::uint32_t kNumberType = 4;

}  // namespace

RegistryValue registryValue(std::uint32_t type, std::span<const std::byte> bytes) {
  if (type == kTextType) {
    std::string text = utf8FromUtf16(bytes);
    text.resize(std::min(text.find('\0'), text.size()));
    return text;
  }
  if (type == kNumberType && bytes.size() == sizeof(std::uint32_t)) {
    std::uint32_t number = 0;
    FieldReader(bytes).field(number);
    return number;
  }
  return RegistryBytes{type, {bytes.begin(), bytes.end()}};
}

}  // namespace pv
