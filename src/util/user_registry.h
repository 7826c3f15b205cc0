#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "util/result.h"

namespace pv {

/// A value that is neither a text nor a 32-bit number.
struct RegistryBytes {
  std::uint32_t type = 0;  ///< the system's type number, 3 for plain bytes
  std::vector<std::byte> bytes;

  friend bool operator==(const RegistryBytes&, const RegistryBytes&) = default;
};

/// Texts are UTF-8 and end before their first zero.
using RegistryValue = std::variant<std::string, std::uint32_t, RegistryBytes>;

/// A value from its stored bytes: type 1 is a UTF-16 text, type 4 with exactly
/// four bytes a number, low byte first; anything else keeps its bytes.
[[nodiscard]] RegistryValue registryValue(std::uint32_t type, std::span<const std::byte> bytes);

/// Settings per user, as named values below keys such as "Software\Name". On
/// Windows this is HKEY_CURRENT_USER. Elsewhere each key is one readable file in
/// the folder, in the notation of registry export files, read afresh by each
/// query. Keys and value names ignore the case of ASCII letters.
class UserRegistry {
 public:
  /// An empty folder makes a registry without values that refuses all writing.
  /// On Windows the folder means nothing.
  explicit UserRegistry(std::filesystem::path folder);

  /// Nothing when the key or the value is missing or cannot be read.
  [[nodiscard]] std::optional<RegistryValue> query(std::string_view key,
                                                   std::string_view name) const;

  /// Creates the key where it is missing and replaces a value of any type. On
  /// failure the store is as it was. Line ends and zeros in texts are refused.
  [[nodiscard]] Status setString(std::string_view key, std::string_view name,
                                 std::string_view text);

 private:
  std::filesystem::path folder_;
};

}  // namespace pv
