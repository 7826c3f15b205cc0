#pragma once

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

namespace pv {

/// What the program was started with; empty where nothing was given.
struct Arguments {
  std::filesystem::path file;  ///< shape or path to open
  std::filesystem::path root;  ///< application folder in place of the program's own
};

/// Reads the command line (programArguments()) without the toolkit, so that --help
/// and --version work where there is no display. An exit status when the program is
/// to end; what there was to say has then been printed.
[[nodiscard]] std::variant<Arguments, int> parseArguments(std::vector<std::string> words);

/// False where a window could not be opened anyway.
[[nodiscard]] bool hasDisplay();

}  // namespace pv
