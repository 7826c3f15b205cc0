#pragma once

#include <cstddef>
#include <string_view>

namespace pv {

/// The longest name, in bytes of UTF-8, that isValidFileName lets pass: what every
/// file system takes, less room for an extension and a backup mark.
inline constexpr std::size_t kMaxFileNameBytes = 239;

/// False for what no edit box should let into a name: separators, control
/// characters and <>:"|?*.
[[nodiscard]] bool isFileNameCharacter(char32_t character);

/// True when the text, with an extension behind it, names one file inside a
/// folder on every system: valid UTF-8 of 1..kMaxFileNameBytes bytes, only
/// characters as above, no dot or blank at its end (and so neither "." nor
/// ".."), and no device name such as "con" or "com1", also before a dot. Names
/// from outside are joined to a folder only after this said true.
[[nodiscard]] bool isValidFileName(std::string_view name);

}  // namespace pv
