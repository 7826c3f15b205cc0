#pragma once

#include <optional>
#include <string>

namespace pv {

/// The running program's file as a program path, with backslashes: for example
/// "C:\tools\bin\designer.exe". Where programs have no extension, ".exe" is
/// appended: "\usr\bin\designer.exe". Nothing when the system does not tell.
[[nodiscard]] std::optional<std::string> moduleName();

}  // namespace pv
