#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace pv {

/// Text inside the program is UTF-8; the standard's narrow conversions would
/// use the system's code page instead.
[[nodiscard]] inline std::filesystem::path pathFromUtf8(std::string_view text) {
  return {std::u8string(text.begin(), text.end())};
}

[[nodiscard]] inline std::string utf8FromPath(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace pv
