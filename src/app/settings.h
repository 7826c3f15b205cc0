#pragma once

#include <string>
#include <string_view>

#include "util/user_registry.h"

namespace pv {

/// A stored text of up to 1023 bytes. A missing or longer one, or a value of
/// another type, yields the default.
[[nodiscard]] std::string readSetting(const UserRegistry& registry, std::string_view valueName,
                                      std::string_view defaultText);

/// Failures stay silent: a setting that cannot be kept must not end a session.
void writeSetting(UserRegistry& registry, std::string_view valueName, std::string_view text);

/// What the names of newly saved files begin with.
struct CoreNames {
  std::string shape = "shpe";
  std::string path = "path";
  std::string particle = "part";

  friend bool operator==(const CoreNames&, const CoreNames&) = default;
};

[[nodiscard]] CoreNames readCoreNames(const UserRegistry& registry);
void writeCoreNames(UserRegistry& registry, const CoreNames& names);

}  // namespace pv
