#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "util/user_registry.h"

namespace pv {

/// A registry export file as UTF-8. Exports that come straight from Windows are
/// UTF-16 and are turned; all other bytes are taken as they are.
[[nodiscard]] std::string registryTextFromBytes(std::span<const std::byte> bytes);

/// The last value of that name in the key's sections. Lines that make no sense
/// and values of other keys are passed over.
[[nodiscard]] std::optional<RegistryValue> findRegistryValue(std::string_view fileText,
                                                             std::string_view key,
                                                             std::string_view name);

/// The file with one text value replaced or added, all other lines as they were.
/// An empty file gets its heading. Key, name and text hold no line ends or zeros.
[[nodiscard]] std::string withRegistryString(std::string_view fileText, std::string_view key,
                                             std::string_view name, std::string_view text);

}  // namespace pv
