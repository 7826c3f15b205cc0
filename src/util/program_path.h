#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace pv {

/// Inside the program a path is UTF-8 text with backslashes, put together as
/// plain text, doubled separators and all. This is the only way from such a
/// path to the file system: separators become the system's, doubled and trailing
/// ones go (the two that begin a network path stay where the system has such),
/// and on systems that tell case apart each component that does not exist as
/// written is looked up ignoring ASCII case, the first match in byte order.
/// What is not found stays as written.
[[nodiscard]] std::filesystem::path hostPath(std::string_view programPath);

/// The way back: a path of the system as a program path.
[[nodiscard]] std::string programPath(const std::filesystem::path& path);

/// Every "/" turned into a backslash.
[[nodiscard]] std::string withBackslashes(std::string_view path);

/// True for program paths that do not depend on the current folder.
[[nodiscard]] bool isAbsoluteProgramPath(std::string_view programPath);

}  // namespace pv
