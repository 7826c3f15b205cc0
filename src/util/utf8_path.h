#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#ifdef _WIN32
#include "util/utf16.h"
#endif

namespace pv {

// Text inside the program is UTF-8; the standard's narrow conversions would use the
// system's code page instead, and some throw at what is no text. Whatever stands in a
// file's name comes through both of these unharmed.

#ifdef _WIN32

[[nodiscard]] inline std::filesystem::path pathFromUtf8(std::string_view text) {
  const std::u16string units = utf16FromUtf8(text, LoneHalves::Kept);
  return std::wstring(units.begin(), units.end());
}

[[nodiscard]] inline std::string utf8FromPath(const std::filesystem::path& path) {
  const std::wstring& units = path.native();
  return utf8FromUtf16(std::u16string(units.begin(), units.end()), LoneHalves::Kept);
}

#else

[[nodiscard]] inline std::filesystem::path pathFromUtf8(std::string_view text) {
  return {std::u8string(text.begin(), text.end())};
}

[[nodiscard]] inline std::string utf8FromPath(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

#endif

}  // namespace pv
