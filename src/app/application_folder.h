#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace pv {

/// The two libraries, as they stand behind the application folder and a backslash.
inline constexpr std::string_view kShapeLibrary = "vortex\\shapes";
inline constexpr std::string_view kPathLibrary = "vortex\\paths";

/// The folder that every image, cursor, help page and library is found from, in
/// lower case and without a backslash at its end. `moduleName` is the running
/// program's file (moduleName()). For a program in "...\bin" it is the folder
/// above; any other folder that ends in "bin" loses its last four characters as
/// well. A name that is missing, too short or without ".exe" yields a message in
/// place of a folder: nothing is shown, and no file below it is found.
[[nodiscard]] std::string applicationFolder(const std::optional<std::string>& moduleName);

/// The application folder that was given by name, made absolute.
[[nodiscard]] std::string applicationFolderAt(const std::filesystem::path& root);

/// The help page of that name: the lower-cased module name up to its first
/// "bin\", or all of it, file name included, where there is none, followed by
/// "help\" and the page.
[[nodiscard]] std::string helpPath(const std::optional<std::string>& moduleName,
                                   std::string_view page = "vortexa\\main.htm");

/// Makes what is missing of both libraries' folders. An application folder that
/// does not exist or is a message is left alone, and failures stay silent.
void makeLibraryFolders(std::string_view applicationFolder);

}  // namespace pv
