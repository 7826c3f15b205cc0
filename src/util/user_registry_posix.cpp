#include <span>
#include <system_error>
#include <utility>

#include "util/ascii.h"
#include "util/files.h"
#include "util/registry_text.h"
#include "util/user_registry.h"

namespace pv {
namespace {

constexpr std::size_t kMaxFileSize = std::size_t{1} << 20;

/// One key, one name, whatever its case: "Software\Name" is software.name.reg.
/// Every character that is special to a file system becomes % and its code.
std::string fileName(std::string_view key) {
  constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyz0123456789-_ ";
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string name;
  for (const char c : key) {
    const char lower = asciiLower(c);
    if (lower == '\\') {
      name += '.';
    } else if (kPlain.find(lower) != std::string_view::npos) {
      name += lower;
    } else {
      const auto code = static_cast<unsigned char>(lower);
      name += {'%', kDigits[code >> 4U], kDigits[code & 0xFU]};
    }
  }
  return name + ".reg";
}

Result<std::string> readText(const std::filesystem::path& file) {
  const auto bytes = readFile(file, kMaxFileSize + 1);
  if (!bytes) {
    return bytes.error();
  }
  if (bytes.value().size() > kMaxFileSize) {
    return Error{ErrorKind::BadData, file.string(), {}, "the file is too large for settings"};
  }
  return registryTextFromBytes(bytes.value());
}

bool fitsLine(std::string_view text) {
  constexpr std::string_view kBreaks("\r\n\0", 3);
  return text.find_first_of(kBreaks) == std::string_view::npos;
}

}  // namespace

UserRegistry::UserRegistry(std::filesystem::path folder) : folder_(std::move(folder)) {}

std::optional<RegistryValue> UserRegistry::query(std::string_view key,
                                                 std::string_view name) const {
  if (folder_.empty()) {
    return std::nullopt;
  }
  const auto text = readText(folder_ / fileName(key));
  return text ? findRegistryValue(text.value(), key, name) : std::nullopt;
}

Status UserRegistry::setString(std::string_view key, std::string_view name, std::string_view text) {
  if (folder_.empty()) {
    return Error{ErrorKind::CannotCreate, {}, {}, "this user has no folder for settings"};
  }
  if (!fitsLine(key) || !fitsLine(name) || !fitsLine(text)) {
    return Error{ErrorKind::BadData, {}, {}, "settings are single lines"};
  }
  const auto file = folder_ / fileName(key);
  std::error_code error;
  std::string old;
  // What cannot be read must not be overwritten; only a missing file is empty.
  if (std::filesystem::status(file, error).type() != std::filesystem::file_type::not_found) {
    auto read = readText(file);
    if (!read) {
      return read.error();
    }
    old = std::move(read.value());
  }
  if (findRegistryValue(old, key, name) == RegistryValue(std::string(text))) {
    return Done{};
  }
  const std::string changed = withRegistryString(old, key, name, text);
  if (changed.size() > kMaxFileSize) {
    return Error{ErrorKind::BadData, file.string(), {}, "the file would be too large for settings"};
  }
  std::filesystem::create_directories(folder_, error);
  return writeFile(file, std::as_bytes(std::span(changed)));
}

}  // namespace pv
