#pragma once

#include <filesystem>

namespace pv {

/// Where this user's settings lie: "particle-vortex" below $XDG_CONFIG_HOME or
/// ~/.config. It need not exist. Empty when the user has no such place, and on
/// Windows, which keeps settings elsewhere.
[[nodiscard]] std::filesystem::path userConfigFolder();

/// A folder of this user alone for what lives no longer than the session, below
/// $XDG_RUNTIME_DIR or in the temporary folder. It is made on the way. Empty when
/// it cannot be made or others could write into it, and on Windows.
[[nodiscard]] std::filesystem::path userRuntimeFolder();

}  // namespace pv
